// Text boxes in pixels, by the stored angle.
#include "display/RiquadroTesto.h"

#include "model/Unita.h"
#include "text/Conversione.h"

namespace tessaro {

bool TestoLibero(std::int16_t angolo) {
    return angolo != 0 && angolo != 100 && angolo != 200 && angolo != 300 && angolo != -100;
}

RettD RiquadroTesto(const elemento& e) {
    const double x = XVidD(e.test.x), y = YVidD(e.test.y);
    const double alto = std::round(0.7 * e.test.altezza * ScalaTesto);
    const double basso = std::round(0.3 * e.test.altezza * ScalaTesto);
    const double lungo = std::round(ScalaTesto * e.test.larghezza);
    switch (e.test.angolo) {
    case 200: return {x - basso, y, x + alto, y + lungo};
    case 300:
    case -100: return {x - lungo, y - basso, x, y + alto};
    case 0: return {x - alto, y - lungo, x + basso, y};
    default: return {x, y - alto, x + lungo, y + basso};
    }
}

double GiroTesto(std::int16_t angolo) { return static_cast<double>(PigMezzi) - AngToRad(angolo, gradCorrente); }

std::array<PuntoD, 4> AngoliTesto(const elemento& e) {
    const RettD r = RiquadroTesto(e);
    std::array<PuntoD, 4> p{PuntoD{r.left, r.top}, {r.right, r.top}, {r.right, r.bottom}, {r.left, r.bottom}};
    if (!TestoLibero(e.test.angolo)) return p;
    const double x = XVidD(e.test.x), y = YVidD(e.test.y), t = GiroTesto(e.test.angolo);
    for (PuntoD& q : p) {
        const double dh = q.h - x, dv = y - q.v;
        q = {x + std::round(dh * std::cos(t) - dv * std::sin(t)), y - std::round(dh * std::sin(t) + dv * std::cos(t))};
    }
    return p;
}

}   // namespace tessaro
