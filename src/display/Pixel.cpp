// Clipping in doubles at the edge of what a port can hold, arcs too large for it, and patterns fixed to the sheet.
#include "display/Pixel.h"
#include "display/Disegno.h"
#include "model/Penna.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tessaro {

namespace {

RettD rettangoloLimite() {
    const auto l = static_cast<double>(LimitePixel() / 2);
    return RettD{-l, -l, l, l};
}

// Cuts a segment to min <= p <= max; q is its other coordinate. The cut coordinate becomes the bound itself, so that
// ends however far away lose nothing. False when nothing is left.
bool tagliaAsse(double& p0, double& q0, double& p1, double& q1, double min, double max) {
    if ((p0 < min && p1 < min) || (p0 > max && p1 > max)) return false;
    const double pa = p0, qa = q0, dp = p1 - p0, dq = q1 - q0;
    const auto taglia = [&](double& p, double& q) {
        if (p >= min && p <= max) return;
        p = p < min ? min : max;
        q = qa + dq * ((p - pa) / dp);
    };
    taglia(p0, q0);
    taglia(p1, q1);
    return true;
}

bool tagliaSegmento(PuntoD& a, PuntoD& b, const RettD& r) {
    if (!std::isfinite(b.h - a.h) || !std::isfinite(b.v - a.v)) return false;
    return tagliaAsse(a.h, a.v, b.h, b.v, r.left, r.right) && tagliaAsse(a.v, a.h, b.v, b.h, r.top, r.bottom);
}

// One edge of the polygon cut: keeps the points for which dentro(p) >= 0.
template <class Dentro>
void tagliaLato(std::vector<PuntoD>& punti, std::vector<PuntoD>& scratch, Dentro dentro) {
    scratch.clear();
    for (std::size_t i = 0; i < punti.size(); ++i) {
        const PuntoD a = punti[i], b = punti[(i + 1) % punti.size()];
        const double da = dentro(a), db = dentro(b);
        if (da >= 0) scratch.push_back(a);
        if ((da >= 0) == (db >= 0)) continue;
        const double t = da / (da - db);
        scratch.push_back({a.h + t * (b.h - a.h), a.v + t * (b.v - a.v)});
    }
    punti.swap(scratch);
}

class Arco {
    PuntoD centro;
    double raggio;
    RettD vista;
    std::vector<PuntoD>& out;

public:
    Arco(PuntoD c, double r, const RettD& v, std::vector<PuntoD>& o) : centro(c), raggio(r), vista(v), out(o) {}

    [[nodiscard]] PuntoD a(double angolo) const {
        return {centro.h + raggio * std::sin(angolo), centro.v - raggio * std::cos(angolo)};
    }

    void suddividi(double a0, PuntoD p0, double a1, PuntoD p1, int profondita) {
        const double quarto = std::sin((a1 - a0) / 4);
        const double freccia = 2 * raggio * quarto * quarto;   // how far the arc leaves its chord
        const bool lontano = std::max(p0.h, p1.h) + freccia < vista.left || std::min(p0.h, p1.h) - freccia > vista.right
                             || std::max(p0.v, p1.v) + freccia < vista.top
                             || std::min(p0.v, p1.v) - freccia > vista.bottom;
        constexpr double invisibile = 0.25;   // pixels
        if (lontano || freccia < invisibile || profondita == 0) {
            out.push_back(p1);
            return;
        }
        const double am = (a0 + a1) / 2;
        const PuntoD pm = a(am);
        suddividi(a0, p0, am, pm, profondita - 1);
        suddividi(am, pm, a1, p1, profondita - 1);
    }
};

}   // namespace

std::int32_t PixelTenuto(double p) {
    const auto l = static_cast<double>(LimitePixel() / 2);
    if (std::isnan(p)) return static_cast<std::int32_t>(-l);
    return static_cast<std::int32_t>(std::round(std::clamp(p, -l, l)));
}

namespace {
constinit thread_local const Rect* areaIntera = nullptr;
}   // namespace

AreaIntera::AreaIntera(const Rect& area) { areaIntera = &area; }
AreaIntera::~AreaIntera() { areaIntera = nullptr; }

Rect AreaDisegnabile() {
    if (areaIntera != nullptr) return *areaIntera;
    const GrafPtr port = GetPort();
    return SectRect(port->clip.box(), port->portRect);
}

void LineaD(PuntoD a, PuntoD b) {
    if (!tagliaSegmento(a, b, rettangoloLimite())) return;
    MoveTo(PixelTenuto(a.h), PixelTenuto(a.v));
    LineTo(PixelTenuto(b.h), PixelTenuto(b.v));
}

void LineaFoglio(double x1, double y1, double x2, double y2) {
    Point a, b;
    if (PuntoIntero(x1, y1, a) && PuntoIntero(x2, y2, b)) [[likely]] {
        const std::int32_t centro = spess;
        a = {a.v - centro, a.h - centro};
        b = {b.v - centro, b.h - centro};
        GrafPort& port = *GetPort();
        if (!port.poligonoAperto) [[likely]] {   // MoveTo and LineTo in one: a repaint does this most of all
            port.pen.pnLoc = b;
            port.stdLine(a, b);
            return;
        }
        MoveTo(a.h, a.v);
        LineTo(b.h, b.v);
        return;
    }
    const double s = spess;
    LineaD({XVidD(x1) - s, YVidD(y1) - s}, {XVidD(x2) - s, YVidD(y2) - s});
}

void TagliaPoligono(const std::vector<PuntoD>& punti, Polygon& out) {
    out.punti.clear();
    for (const PuntoD& p : punti)
        if (!std::isfinite(p.h) || !std::isfinite(p.v)) return;
    std::vector<PuntoD> lavoro = punti, scratch;
    const RettD r = rettangoloLimite();
    tagliaLato(lavoro, scratch, [&](PuntoD p) { return p.h - r.left; });
    tagliaLato(lavoro, scratch, [&](PuntoD p) { return r.right - p.h; });
    tagliaLato(lavoro, scratch, [&](PuntoD p) { return p.v - r.top; });
    tagliaLato(lavoro, scratch, [&](PuntoD p) { return r.bottom - p.v; });
    for (const PuntoD& p : lavoro) out.punti.push_back(Point{PixelTenuto(p.v), PixelTenuto(p.h)});
}

void PuntiArco(PuntoD centro, double raggio, double a0, double a1, std::vector<PuntoD>& out) {
    const Rect area = AreaDisegnabile();
    constexpr double contorno = 64;   // pixels: more than any pen
    const RettD vista{area.left - contorno, area.top - contorno, area.right + contorno, area.bottom + contorno};
    Arco arco(centro, raggio, vista, out);
    constexpr int spicchi = 8, profondita = 40;   // a spicchio stays below half a turn, so its sagitta bounds it
    PuntoD p = arco.a(a0);
    out.push_back(p);
    for (int i = 0; i < spicchi; ++i) {
        const double da = a0 + (a1 - a0) * i / spicchi, ad = a0 + (a1 - a0) * (i + 1) / spicchi;
        const PuntoD q = arco.a(ad);
        arco.suddividi(da, p, ad, q, profondita);
        p = q;
    }
}

Pattern PatternVista(const Pattern& p) {
    if (DisegnaPict) return p;
    Pattern q;
    const int dh = OrigX & 7;
    for (unsigned i = 0; i < 8; ++i) q.pat[i] = std::rotl(p.pat[(i + static_cast<unsigned>(OrigY)) & 7], dh);
    return q;
}

}   // namespace tessaro
