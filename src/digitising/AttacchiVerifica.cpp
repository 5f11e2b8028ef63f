// Checking the control points, and taking them all from the selection at once.
#include "digitising/Attacchi.h"

#include <cmath>

#include "dialogs/Errori.h"
#include "digitising/PuntiSelezione.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Zoom.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Voci.h"
#include "platform/Automation.h"
#include "platform/Events.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

namespace {

bool vicini(const Coppia& a, const Coppia& b) {
    constexpr double tolleranza = 0.001;   // sheet units
    return std::fabs(a.x - b.x) < tolleranza && std::fabs(a.y - b.y) < tolleranza;
}

// Lower left, upper left, upper right, lower right, with Y down; equal coordinates pass.
bool maleOrdinati(const std::array<Coppia, 4>& p) {
    return p[0].x > p[3].x || p[1].x > p[2].x || p[1].y > p[0].y || p[2].y > p[3].y;
}

}   // namespace

std::int16_t GuastoCoincidenti(const std::array<Coppia, 4>& punti) {
    constexpr std::int16_t erroreCoincidenti = 32;
    for (std::size_t i = 0; i < punti.size(); ++i)
        for (std::size_t j = i + 1; j < punti.size(); ++j)
            if (vicini(punti[i], punti[j])) return erroreCoincidenti;
    return 0;
}

std::int16_t GuastoAttacchi(const std::array<Coppia, 4>& punti) {
    constexpr std::int16_t erroreOrdine = 33;
    if (const std::int16_t guasto = GuastoCoincidenti(punti)) return guasto;
    return maleOrdinati(punti) ? erroreOrdine : std::int16_t{0};
}

void MostraVerifica(std::int16_t guasto) {
    constexpr std::int16_t avvisoBuoni = 147;
    if (guasto) {
        ErroreAlert(guasto);
    } else {
        Alert(avvisoBuoni);
    }
}

void VerificaAttacchi() {
    for (std::int16_t n = 1; n <= 4; ++n) att4Pt.src[static_cast<std::size_t>(n - 1)] = LeggiAttacco(n);
    MostraVerifica(GuastoAttacchi(att4Pt.src));
}

void TrasformaPuntiOrigine() {
    const PuntiSelezione s = PuntiPerTutti();
    if (!s.presi) return;
    const elemento primo = Elem(1), secondo = Elem(2);
    for (std::int16_t i = 0; i < s.numero; ++i) {
        const Coppia& p = s.punti[static_cast<std::size_t>(i)];
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), p.x, p.y);
    }
    if (const std::string guasto = GuastoRegistrazione(Elem(1), Elem(2)); !guasto.empty()) {
        Elem(1) = primo;
        Elem(2) = secondo;
        RifiutaRegistrazione(guasto);
        return;
    }
    if (s.numero == 4) Elem(2).att.quattroPunti = 1;
    AttacchiCambiati();
    InvalWind();
}

void do_Trasforma() {
    constexpr std::int32_t lampeggio = 30;   // ticks of a menu's blink: only a script's clock sees them
    if (AvvioInForza().script) Delay(lampeggio);
    if (theItem == voci::trasforma::origineDaSelezione && !noWindow) {
        TrasformaPuntiOrigine();
    } else if (theItem == voci::trasforma::destinazioneDaSelezione && !noWindow) {
        attaccoAttivo.TrasformaPuntiDestinazione();
    } else {
        SysBeep(30);
    }
}

}   // namespace tessaro
