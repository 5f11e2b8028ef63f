// The hit tests by shape. Tolerance is DiffSelez: four pixels in sheet units.
#include <algorithm>
#include <cmath>

#include "display/RiquadroTesto.h"
#include "editing/Scelta.h"
#include "model/Archivio.h"
#include "model/Unita.h"
#include "text/Conversione.h"

namespace tessaro {

bool Destra2(const double& a, const double& b, const double& c, const double& d, const double& e, const double& f) {
    return a * (d - f) + (e - c) * b + (c * f - e * d) < 0;
}

bool Sellinea(const puntot& p, const double& x1, const double& y1, const double& x2, const double& y2) {
    const double D = DiffSelez;
    if (!(p.x + D > std::min(x1, x2) && p.x - D < std::max(x1, x2))) return false;
    if (!(p.y + D > std::min(y1, y2) && p.y - D < std::max(y1, y2))) return false;
    // A cross laid over the point: it is cut when its tips lie on different sides of the line.
    return Destra2(p.x + D, p.y, x1, y1, x2, y2) != Destra2(p.x - D, p.y, x1, y1, x2, y2)
           || Destra2(p.x, p.y + D, x1, y1, x2, y2) != Destra2(p.x, p.y - D, x1, y1, x2, y2);
}

bool SelCerchio(const puntot& p, const double& cx, const double& cy, const double& r) {
    return std::fabs(Distanza(p.x, p.y, cx, cy) - r) < DiffSelez;
}

bool SelArco(const puntot& p, const double& cx, const double& cy, const double& r, const double& start,
             const double& sweep) {
    if (!SelCerchio(p, cx, cy, r)) return false;
    double distanza = 0, direzione = 0;
    CartPolar(cx, -cy, p.x, -p.y, distanza, direzione, orientCorrente);
    direzione = RadToAng(direzione, gradSessadecimali);
    double a0 = start, a1 = start + sweep;
    if (!(sweep > 0)) {
        // Kept: only an arc that runs backwards has its ends brought into one turn.
        a0 = start + sweep;
        a1 = start;
        if (a0 < 0) a0 += 360;
        if (a1 < a0) a1 += 360;
    }
    if (direzione < a0) direzione += 360;
    return a0 < direzione && direzione < a1;
}

bool SelPict(const puntot& p, const double& x0, const double& y0, const double& x1, const double& y1) {
    return x0 <= p.x && p.x <= x1 && y0 <= p.y && p.y <= y1;
}

bool SelTesto(const puntot& p, std::int32_t index) { return SelTesto(p, Elem(index)); }

bool SelTesto(const puntot& p, const elemento& e) {
    double h = XVidD(p.x), v = YVidD(p.y);
    if (TestoLibero(e.test.angolo)) {
        const double x = XVidD(e.test.x), y = YVidD(e.test.y), t = GiroTesto(e.test.angolo);
        const double dx = h - x, dy = y - v;
        h = x + std::round(dy * std::sin(t) + dx * std::cos(t));
        v = y - std::round(dy * std::cos(t) - dx * std::sin(t));
    }
    const RettD r = RiquadroTesto(e);
    return h >= r.left && h < r.right && v >= r.top && v < r.bottom;
}

}   // namespace tessaro
