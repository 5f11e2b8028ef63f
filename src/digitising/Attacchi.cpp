// Setting control points: source points in records 1 and 2, destination points in the live transformation.
#include "digitising/Attacchi.h"

#include "dialogs/Errori.h"
#include "digitising/PuntiSelezione.h"
#include "digitising/RegistrazioneValida.h"
#include "display/AttacchiMarche.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/AttacchiCambiati.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "platform/Windows.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

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
        CopiePunti12();
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

void Attacco(std::int16_t n) {
    if (n < 1 || n > 5) return;
    const bool digitato = IntroDigitale != 0;
    if (digitato) {
        if (Azione == sFermo) {   // the rubber band of a figure in progress stays where it is
            Xfine = XDigit;
            Yfine = YDigit;
        }
        zcurs = ZDigit;
    } else {
        Croce();
        Elastico();
        Croce();
    }
    pennaMarca();
    const Punti prima;
    if (digitato) {
        AssegnaAttacco(n, XDigit, YDigit);
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
    TrasformazioniCambiate();
    PoniAnnulla(aNiente);
    IntroDigitale = 0;
    if (!guasto.empty()) RifiutaRegistrazione(guasto);
}

void SetAttacco(std::int16_t n, const double& x, const double& y) {
    const PuntiSelezione s = PuntiPerAttacco(n);
    if (!s.presi) {
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1), x, y);
        return;
    }
    for (std::int16_t i = 0; i < s.numero; ++i) {
        const Coppia& p = s.punti[static_cast<std::size_t>(i)];
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1 + i), p.x, p.y);
    }
    if (s.figura) InvalWind();
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
        DisAttaccoDin(n);
        XDigit = xcurs;
        YDigit = ycurs;
        AttaccaCursore(XDigit, YDigit, zcurs);
    }
    SetAttacco(n, XDigit, YDigit);
    PenMode(patCopy);
    DisAttaccoDin(n);
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
