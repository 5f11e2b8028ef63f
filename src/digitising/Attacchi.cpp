// Setting control points: source points in records 1 and 2, destination points in the live transformation.
#include "digitising/Attacchi.h"

#include "dialogs/Errori.h"
#include "digitising/PuntiSelezione.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Disegno.h"
#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "platform/Windows.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

void AssegnaAttacco(std::int16_t n, const double& x, const double& y) {
    auto& primo = Elem(1).att;
    auto& secondo = Elem(2).att;
    switch (n) {
    case 1:
        primo.x1 = x;
        primo.y1 = y;
        break;
    case 2:
        primo.x2 = x;
        primo.y2 = y;
        break;
    case 3:   // the Z fields are not needed for Z
        primo.z1 = x;
        primo.z2 = y;
        break;
    case 4:
        secondo.z1 = x;
        secondo.z2 = y;
        break;
    case 5:
        xAttacco5 = x;
        yAttacco5 = y;
        break;
    default: break;
    }
}

Coppia LeggiAttacco(std::int16_t n) {
    const auto& primo = Elem(1).att;
    const auto& secondo = Elem(2).att;
    switch (n) {
    case 1: return {primo.x1, primo.y1};
    case 2: return {primo.x2, primo.y2};
    case 3: return {primo.z1, primo.z2};
    case 4: return {secondo.z1, secondo.z2};
    default: return {xAttacco5, yAttacco5};
    }
}

bool AttaccoSelezionato(std::int16_t n) {
    const PuntiSelezione s = PuntiPerAttacco(n);
    for (std::int16_t i = 0; i < s.numero; ++i) {
        const Coppia& p = s.punti[static_cast<std::size_t>(i)];
        AssegnaAttacco(static_cast<std::int16_t>(n + i), p.x, p.y);
    }
    if (s.figura) InvalWind();
    return s.presi;
}

namespace {

void copiePunti12() {
    const Coppia p1 = LeggiAttacco(1), p2 = LeggiAttacco(2);
    XA1 = p1.x;
    YA1 = p1.y;
    XA2 = p2.x;
    YA2 = p2.y;
}

void aggiornaTrasformazioni() {
    if (Elem(2).att.coordReali) CalcTransfC();
    if (!attaccoAttivo.GetModificato()) return;
    ErroreAlert(attaccoAttivo.PreparaAttacco());
    InvalWind();
}

using DisegnaMarca = void (*)();
constexpr DisegnaMarca marche[] = {DisAttacco1, DisAttacco2, DisAttacco3, DisAttacco4, DisAttacco5};

void pennaMarca() {
    PenPat(qdBlack);
    PenMode(patXor);
    ForeColor(blackColor);
    PenSize(1, 1);
}

void prendiPunto(std::int16_t n) {
    if (AttaccoSelezionato(n)) return;
    double x = xcurs, y = ycurs;
    AttaccaCursore(x, y, zcurs);
    AssegnaAttacco(n, x, y);
}

void segnaPunto(std::int16_t n) {
    if (n <= 2) {
        copiePunti12();
    } else if (n == 5) {
        OKAttacco5 = 1;
    } else {
        Elem(2).att.quattroPunti = 1;
    }
}

void invalidaAttorno(const Coppia& c) {
    constexpr std::int32_t bordo = 4;   // pixels
    const std::int32_t h = XVid(c.x), v = YVid(c.y);
    InvalWindowRect(theWindow, SetRect(h - bordo, v - bordo, h + bordo, v + bordo));
}

// The control points as they were, for a change that is refused.
struct Punti {
    elemento primo = Elem(1), secondo = Elem(2);
    double x5 = xAttacco5, y5 = yAttacco5;
    void rimetti() const {
        Elem(1) = primo;
        Elem(2) = secondo;
        xAttacco5 = x5;
        yAttacco5 = y5;
    }
};

Coppia destinazione(std::int16_t n) {
    Coppia c;
    attaccoAttivo.GetAttacco(n, c.x, c.y);
    return c;
}

}   // namespace

void AttacchiCambiati() {
    copiePunti12();
    aggiornaTrasformazioni();
}

void Attacco(std::int16_t n) {
    if (n < 1 || n > 5) return;
    const bool digitato = IntroDigitale != 0;
    if (digitato) {
        Xfine = XDigit;
        Yfine = YDigit;
        zcurs = ZDigit;
    } else {
        Croce();
        Elastico();
        Croce();
    }
    pennaMarca();
    const Punti prima;
    if (digitato) {
        AssegnaAttacco(n, Xfine, Yfine);
    } else {
        marche[n - 1]();
        prendiPunto(n);
    }
    const std::string guasto = GuastoRegistrazione(Elem(1), Elem(2));
    if (guasto.empty()) {
        segnaPunto(n);
    } else {
        prima.rimetti();
    }
    invalidaAttorno(LeggiAttacco(n == 4 ? std::int16_t{3} : n));   // Kept: point 4 repaints around point 3
    PenMode(patCopy);
    marche[n - 1]();
    PenSize(spessore, spessore);
    if (!digitato) Elastico();   // a figure in progress goes on
    aggiornaTrasformazioni();
    PoniAnnulla(aNiente);
    IntroDigitale = 0;
    if (!guasto.empty()) RifiutaRegistrazione(guasto);
}

void AttaccoDin(std::int16_t n) {
    if (n < 1 || n > 5) return;
    const bool digitato = IntroDigitale != 0;
    if (!digitato) Croce();   // the mark comes under the cross
    pennaMarca();
    const Coppia prima = destinazione(n);
    if (digitato) {
        zcurs = ZDigit;
    } else {
        attaccoAttivo.DisAttacco(n);
        XDigit = xcurs;
        YDigit = ycurs;
        AttaccaCursore(XDigit, YDigit, zcurs);
    }
    attaccoAttivo.SetAttacco(n, XDigit, YDigit);
    PenMode(patCopy);
    attaccoAttivo.DisAttacco(n);
    PenSize(spessore, spessore);
    if (!digitato) Croce();
    for (const Coppia& c : {prima, destinazione(n)}) invalidaAttorno(c);   // black in xor leaves a stain of a blue mark
    if (attaccoAttivo.GetModificato()) {
        ErroreAlert(attaccoAttivo.PreparaAttacco());
        InvalWind();
    }
    IntroDigitale = 0;
}

}   // namespace tessaro
