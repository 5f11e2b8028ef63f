// The corners of circles and arcs.
#include "maps/Curve.h"

#include <algorithm>
#include <cmath>

namespace tessaro {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double freccia = 0.05;   // sheet units between a side and its curve

double girato(double gradi) {
    gradi = std::fmod(gradi, 360);
    return gradi < 0 ? gradi + 360 : gradi;
}

double direzione(const puntot& p, const Cerchio& c) { return girato(std::atan2(p.x - c.x, c.y - p.y) * 180 / pi); }

}   // namespace

std::vector<puntot> CurvaInPunti(const elemento& e) {
    constexpr int minimi = 32, massimi = 20000;   // sides of a whole turn
    const bool arco = e.tipo == tArco;
    const double cx = e.cerc.cx, cy = e.cerc.cy, r = std::fabs(static_cast<double>(e.cerc.raggio));   // an arc's too
    const double inizio = arco ? static_cast<double>(e.arco.angoloInizio) : 0;
    const double ampiezza = arco ? static_cast<double>(e.arco.ampiezza) : 360;
    const double passo = r > freccia ? 2 * std::acos(1 - freccia / r) : pi;
    const double intero = std::clamp(std::ceil(2 * pi / passo), double{minimi}, double{massimi});
    const int lati = std::max(8, static_cast<int>(std::ceil(intero * std::min(std::fabs(ampiezza), 360.0) / 360)));
    std::vector<puntot> p;
    p.reserve(static_cast<std::size_t>(lati) + 1);
    for (int i = 0; i <= lati; ++i) {
        const double a = (inizio + ampiezza * i / lati) * pi / 180;
        p.push_back({cx + r * std::sin(a), cy - r * std::cos(a), 0});
    }
    if (!arco) p.back() = p.front();
    return p;
}

bool CerchioPer(const std::vector<puntot>& punti, Cerchio& c) {
    constexpr std::size_t minimi = 8;
    constexpr double tolleranza = 1e-6;
    if (punti.size() < minimi) return false;
    // Through the first corner, one a third and one two thirds of the way.
    const puntot &a = punti[0], &b = punti[punti.size() / 3], &d = punti[2 * punti.size() / 3];
    const double bx = b.x - a.x, by = b.y - a.y, dx = d.x - a.x, dy = d.y - a.y;
    const double D = 2 * (bx * dy - by * dx), b2 = bx * bx + by * by, d2 = dx * dx + dy * dy;
    if (D == 0) return false;
    const double ux = (dy * b2 - by * d2) / D, uy = (bx * d2 - dx * b2) / D;
    c = {a.x + ux, a.y + uy, std::hypot(ux, uy)};
    if (!std::isfinite(c.r) || !(c.r > 0)) return false;
    return std::all_of(punti.begin(), punti.end(), [&c](const puntot& p) {
        return std::fabs(std::hypot(p.x - c.x, p.y - c.y) - c.r) <= tolleranza * c.r;
    });
}

void ArcoPer(const std::vector<puntot>& punti, const Cerchio& c, double& inizio, double& ampiezza) {
    const double da = direzione(punti.front(), c), a = direzione(punti.back(), c);
    const bool orario = girato(direzione(punti[1], c) - da) < 180;
    inizio = orario ? da : a;
    ampiezza = orario ? girato(a - da) : girato(da - a);
}

}   // namespace tessaro
