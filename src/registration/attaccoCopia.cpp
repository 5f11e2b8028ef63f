// A record carried over by the live transformation: points, radii, and a text's size and direction.
#include <cmath>

#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int32_t due = 0;   // the two-point mode

Coppia mappato(double x, double y) {
    attaccoAttivo.Traf4Pt(x, y);
    return {x, y};
}

void mappa(f64& x, f64& y) {
    const Coppia p = mappato(x, y);
    x = p.x;
    y = p.y;
}

// Centre and a point of the rim, both mapped, give centre and radius.
void mappaCerchio(f64& cx, f64& cy, f64& raggio) {
    const Coppia c = mappato(cx, cy), bordo = mappato(cx + raggio, cy);
    cx = c.x;
    cy = c.y;
    raggio = Distanza(c.x, c.y, bordo.x, bordo.y);
}

// An angle of a text, the system in force: whole, from 0 to less than a turn, so that copies of copies stay readable.
std::int16_t angoloDiTesto(double v) {
    const double intero = std::round(v);
    double giro = RadToAng(DuePig, gradCorrente);
    if (giro > 100) giro = std::round(giro);   // gons and degrees: without what the 32-bit pi adds
    if (!std::isfinite(intero) || !(giro > 0)) return 0;
    return arrotonda16(intero - giro * std::floor(intero / giro));
}

void scala(f16& v, double fattore) { v = arrotonda16(v * fattore); }

}   // namespace

void ActiveAttach::trasformaTesto(elemento& e) {
    auto& t = e.test;
    const Coppia prima{t.x, t.y};
    mappa(t.x, t.y);
    double angolo = 0, fattore = 0;
    if (TipoMappa() == due) {
        angolo = t.angolo + RadToAng(rotazione, gradCorrente);
        fattore = transf.ingr;
    } else {
        // A point along the text, one height away, tells direction and size.
        const auto L = static_cast<float>(DecPunto * t.altezza);
        Coppia lungo;
        PolarCart(prima.x, prima.y, AngToRad(t.angolo, gradCorrente), L, lungo.x, lungo.y, orientCorrente);
        lungo = mappato(lungo.x, lungo.y);
        double distanza = 0;
        CartPolar(t.x, t.y, lungo.x, lungo.y, distanza, angolo, orientCorrente);
        angolo = Pig - angolo;
        if (angolo < 0) angolo += DuePig;
        angolo = RadToAng(angolo, gradCorrente);
        fattore = distanza / L;
    }
    t.angolo = angoloDiTesto(angolo);
    scala(t.altezza, fattore);
    scala(t.larghezza, fattore);
    scala(t.dimensione, fattore);
}

void ActiveAttach::TrasformaCopia(elemento& e) {
    switch (e.tipo) {
    case tPict: break;   // its corner stays
    case tTesto: trasformaTesto(e); break;
    case tCerchio: mappaCerchio(e.cerc.cx, e.cerc.cy, e.cerc.raggio); break;
    case tArco:
        mappaCerchio(e.arco.cx, e.arco.cy, e.arco.raggio);
        if (TipoMappa() == due) {
            const double girato = e.arco.angoloInizio + RadToAng(rotazione, gradSessadecimali);
            e.arco.angoloInizio = girato - 360 * std::floor(girato / 360);
        }
        break;
    default: PerPunti(e, mappa); break;
    }
}

}   // namespace tessaro
