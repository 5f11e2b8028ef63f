// A mapping by many points at work: forward, backward, and what its parameters mean.
#include "registration/MoltiPunti.h"

#include <algorithm>
#include <cmath>

#include "registration/Lastra.h"

namespace tessaro {

int PuntiMinimi(Metodo m) {
    constexpr int minimi[numMetodi] = {2, 3, 4, 6, 10, 3};
    return minimi[static_cast<std::size_t>(m)];
}

int ParametriMetodo(Metodo m) {
    constexpr int parametri[numMetodi] = {4, 6, 8, 12, 20, 0};
    return parametri[static_cast<std::size_t>(m)];
}

Coppia MappaPunti::inCornice(const Coppia& p) const {
    return {(p.x - foglioC.centro.x) / foglioC.scala, (foglioC.centro.y - p.y) / foglioC.scala};
}

namespace {

using Coef = std::array<double, 10>;

double polinomio(const Coef& c, Metodo m, double u, double v) {
    double s = c[0] + c[1] * u + c[2] * v;
    if (m == Metodo::secondo || m == Metodo::terzo) s += (c[3] * u + c[4] * v) * u + c[5] * v * v;
    if (m == Metodo::terzo) s += ((c[6] * u + c[7] * v) * u + c[8] * v * v) * u + c[9] * v * v * v;
    return s;
}

void derivate(const Coef& c, Metodo m, double u, double v, double& du, double& dv) {
    du = c[1];
    dv = c[2];
    if (m == Metodo::secondo || m == Metodo::terzo) {
        du += 2 * c[3] * u + c[4] * v;
        dv += c[4] * u + 2 * c[5] * v;
    }
    if (m == Metodo::terzo) {
        du += 3 * c[6] * u * u + 2 * c[7] * u * v + c[8] * v * v;
        dv += c[7] * u * u + 2 * c[8] * u * v + 3 * c[9] * v * v;
    }
}

}   // namespace

Coppia MappaPunti::valore(const Coppia& p) const {
    Coppia r{polinomio(cx, quale, p.x, p.y), polinomio(cy, quale, p.x, p.y)};
    if (quale == Metodo::proiettivo) {
        const double D = 1 + (denominatore[0] * p.x + denominatore[1] * p.y);
        r = {r.x / D, r.y / D};
    }
    if (quale == Metodo::lastra) {
        const Coppia piega = SommaLastra(nodoU, nodoV, pesoX, pesoY, p.x, p.y);
        r.x += piega.x;
        r.y += piega.y;
    }
    return r;
}

Coppia MappaPunti::valoreDerivato(const Coppia& p, std::array<double, 4>& d) const {
    const Coppia r = valore(p);
    derivate(cx, quale, p.x, p.y, d[0], d[1]);
    derivate(cy, quale, p.x, p.y, d[2], d[3]);
    if (quale == Metodo::proiettivo) {
        const double D = 1 + (denominatore[0] * p.x + denominatore[1] * p.y);
        d = {(d[0] - r.x * denominatore[0]) / D, (d[1] - r.x * denominatore[1]) / D, (d[2] - r.y * denominatore[0]) / D,
             (d[3] - r.y * denominatore[1]) / D};
    }
    if (quale == Metodo::lastra) DerivateLastra(nodoU, nodoV, pesoX, pesoY, p.x, p.y, d);
    return r;
}

Coppia MappaPunti::operator()(const Coppia& foglio) const {
    const Coppia r = valore(inCornice(foglio));
    return {realeC.centro.x + realeC.scala * r.x, realeC.centro.y + realeC.scala * r.y};
}

std::array<double, 4> MappaPunti::Derivate(const Coppia& foglio) const {
    std::array<double, 4> d{};
    (void)valoreDerivato(inCornice(foglio), d);
    const double k = realeC.scala / foglioC.scala;
    return {k * d[0], -k * d[1], k * d[2], -k * d[3]};
}

// Steps are halved while they do not bring the point nearer: a spline bends.
bool MappaPunti::newton(const Coppia& meta, Coppia& p) const {
    constexpr int passi = 60;
    constexpr double minimo = 1e-15, contento = 1e-13;   // of the frame: the sheet's extent is about 4
    std::array<double, 4> d{};
    Coppia r = valoreDerivato(p, d);
    double scarto = std::hypot(r.x - meta.x, r.y - meta.y);
    for (int i = 0; i < passi && std::isfinite(scarto); ++i) {
        const double det = d[0] * d[3] - d[1] * d[2];
        if (!(std::fabs(det) > 0)) return false;
        const double ex = meta.x - r.x, ey = meta.y - r.y;
        const Coppia passo{(ex * d[3] - ey * d[1]) / det, (ey * d[0] - ex * d[2]) / det};
        double quanto = 1;
        Coppia nuovo;
        double nuovoScarto = 0;
        std::array<double, 4> nd{};
        Coppia nr;
        for (int mezzi = 0; mezzi < 30; ++mezzi, quanto /= 2) {
            nuovo = {p.x + quanto * passo.x, p.y + quanto * passo.y};
            nr = valoreDerivato(nuovo, nd);
            nuovoScarto = std::hypot(nr.x - meta.x, nr.y - meta.y);
            if (nuovoScarto < scarto || !(scarto > contento)) break;
        }
        const double lungo = quanto * std::hypot(passo.x, passo.y), limite = minimo * (1 + std::hypot(p.x, p.y));
        if (!(nuovoScarto < scarto)) return scarto <= contento * (1 + std::hypot(meta.x, meta.y));
        p = nuovo;
        r = nr;
        d = nd;
        scarto = nuovoScarto;
        if (lungo <= limite) return true;
    }
    return scarto <= contento * (1 + std::hypot(meta.x, meta.y));
}

bool MappaPunti::Inversa(const Coppia& reale, Coppia& foglio) const {
    const Coppia meta{(reale.x - realeC.centro.x) / realeC.scala, (reale.y - realeC.centro.y) / realeC.scala};
    Coppia p{indietro[0] + indietro[1] * meta.x + indietro[2] * meta.y,
             indietro[3] + indietro[4] * meta.x + indietro[5] * meta.y};
    if (quale == Metodo::proiettivo) {
        // X (1 + g u + h v) = a u + b v + c and its like for Y: two equations, linear in u and v.
        const double g = denominatore[0], h = denominatore[1];
        const double a = cx[1] - meta.x * g, b = cx[2] - meta.x * h, c = cy[1] - meta.y * g, d = cy[2] - meta.y * h;
        const double det = a * d - b * c, ex = meta.x - cx[0], ey = meta.y - cy[0];
        p = {(ex * d - ey * b) / det, (ey * a - ex * c) / det};
    } else if (quale != Metodo::helmert && quale != Metodo::affine && !newton(meta, p)) {
        return false;
    }
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return false;
    foglio = {foglioC.centro.x + foglioC.scala * p.x, foglioC.centro.y - foglioC.scala * p.y};
    return true;
}

ParametriMappa ParametriDi(const MappaPunti& m, const Coppia& foglio) {
    // By the sheet's axes with Y up: the columns are where its unit vectors go.
    const std::array<double, 4> d = m.Derivate(foglio);
    const double xx = d[0], xy = -d[1], yx = d[2], yy = -d[3], det = xx * yy - xy * yx;
    ParametriMappa p;
    p.specchiata = det < 0;
    p.scala = std::sqrt(std::fabs(det));
    p.scalaX = std::hypot(xx, yx);
    p.scalaY = std::hypot(xy, yy);
    constexpr double mezzoGiro = 3.14159265358979323846;
    const double asseX = std::atan2(yx, xx), asseY = std::atan2(yy, xy);
    double angolo = asseY - asseX;
    if (p.specchiata) angolo = -angolo;
    angolo -= 2 * mezzoGiro * std::round(angolo / (2 * mezzoGiro));
    p.taglio = angolo - mezzoGiro / 2;
    p.rotazione = asseX;
    p.origine = m({0, 0});
    return p;
}

double ScalaTonda(double denominatore) {
    constexpr double tonde[] = {1, 1.25, 1.5, 2, 2.5, 4, 5, 7.5, 10};
    constexpr double parte = 0.025;
    if (!(denominatore > 0) || !std::isfinite(denominatore)) return 0;
    const double decade = std::pow(10, std::floor(std::log10(denominatore)));
    double meglio = 0;
    for (const double t : tonde) {
        const double s = t * decade;
        if (std::fabs(denominatore / s - 1) <= parte
            && (meglio == 0 || std::fabs(denominatore - s) < std::fabs(denominatore - meglio)))
            meglio = s;
    }
    return meglio;
}

}   // namespace tessaro
