// Marks and arrows of the table of control points.
#include "display/FrecceResidui.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "display/Disegno.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"
#include "registration/TabellaPunti.h"

namespace tessaro {

namespace {

bool pixelDi(const Coppia& c, Point& p) {
    constexpr double lontano = 1e5;   // pixels: beyond every view
    const double h = XVidD(c.x), v = YVidD(c.y);
    if (!(std::fabs(h) < lontano) || !(std::fabs(v) < lontano)) return false;
    p = Point{static_cast<std::int32_t>(std::lround(v)), static_cast<std::int32_t>(std::lround(h))};
    return true;
}

void linea(Point a, Point b) {
    MoveTo(a.h, a.v);
    LineTo(b.h, b.v);
}

void croce(Point p, std::int32_t braccio) {
    linea({p.v, p.h - braccio}, {p.v, p.h + braccio});
    linea({p.v - braccio, p.h}, {p.v + braccio, p.h});
}

void freccia(Point da, Point a) {
    linea(da, a);
    constexpr double testa = 7, apertura = 0.4;   // pixels, radians
    const double dh = a.h - da.h, dv = a.v - da.v;
    if (std::hypot(dh, dv) < testa) return;
    const double direzione = std::atan2(dv, dh);
    for (const double lato : {-apertura, apertura}) {
        const double t = direzione + lato;
        linea(a, {a.v - static_cast<std::int32_t>(std::lround(testa * std::sin(t))),
                  a.h - static_cast<std::int32_t>(std::lround(testa * std::cos(t)))});
    }
}

// The residual on the sheet: from the point to where the mapping has its real coordinates. Of a thin plate, to where the
// others would have them.
bool scartoSulFoglio(const TabellaPunti& t, const StatoPunti& s, std::size_t k, Coppia& scarto) {
    const RigaPunto& r = t.righe[s.righe[k]];
    const ResiduoPunto& p = s.soluzione.punti[k];
    const Coppia q = t.metodo == Metodo::lastra ? p.senza : p.residuo;
    const std::array<double, 4> d = s.soluzione.mappa.Derivate(r.foglio);
    const double det = d[0] * d[3] - d[1] * d[2];
    scarto = {-(q.x * d[3] - q.y * d[1]) / det, -(q.y * d[0] - q.x * d[2]) / det};
    return std::isfinite(scarto.x) && std::isfinite(scarto.y);
}

}   // namespace

constinit bool puntiInVista = false;

double EsagerazioneFrecce() {
    const TabellaPunti& t = LaTabella();
    if (t.esagerazione > 0) return t.esagerazione;
    const StatoPunti& s = StatoTabella();
    constexpr double lungo = 150;   // sheet units
    double massimo = 0;
    for (std::size_t k = 0; s.esito && k < s.righe.size(); ++k)
        if (Coppia q; s.pesi[k] > 0 && scartoSulFoglio(t, s, k, q)) massimo = std::max(massimo, std::hypot(q.x, q.y));
    if (!(massimo > lungo * 1e-9)) return 1;
    const double fattore = lungo / massimo, decade = std::pow(10, std::floor(std::log10(fattore)));
    return std::max(1.0, decade * (fattore >= 5 * decade ? 5 : fattore >= 2 * decade ? 2 : 1));
}

void DisPuntiTabella() {
    const TabellaPunti& t = LaTabella();
    if (!puntiInVista || t.righe.empty()) return;
    constexpr RGBColor verde{0, 0x7800, 0x2800}, grigio{0x8000, 0x8000, 0x8000}, blu{0x1000, 0x3000, 0xC000};
    const RGBColor prima = GetPort()->foreground;
    PenPat(qdBlack);
    PenSize(1, 1);
    PenSizeLaser(0);
    constexpr std::int32_t braccio = 5, accanto = 7;
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        Point p;
        if (!t.righe[i].conFoglio || !pixelDi(t.righe[i].foglio, p)) continue;
        RGBForeColor(t.righe[i].inUso ? verde : grigio);
        croce(p, braccio);
        MoveTo(p.h + accanto, p.v - 2);
        DrawString(std::to_string(i + 1));
    }
    const StatoPunti& s = StatoTabella();
    if (t.frecce && s.esito) {
        const double fattore = EsagerazioneFrecce();
        RGBForeColor(blu);
        PenSize(2, 2);
        for (std::size_t k = 0; k < s.righe.size(); ++k) {
            Coppia q;
            if (!scartoSulFoglio(t, s, k, q)) continue;
            const Coppia& f = t.righe[s.righe[k]].foglio;
            Point da, a;
            if (pixelDi(f, da) && pixelDi({f.x + fattore * q.x, f.y + fattore * q.y}, a) && !(da == a)) freccia(da, a);
        }
        PenSize(1, 1);
    }
    RGBForeColor(prima);
}

}   // namespace tessaro
