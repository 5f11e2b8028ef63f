// Checking the control points, and taking them all from the selection at once.
#include "digitising/Attacchi.h"

#include "dialogs/Errori.h"
#include "digitising/PuntiSelezione.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Ridisegno.h"
#include "editing/AttacchiCambiati.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Voci.h"
#include "platform/Automation.h"
#include "platform/Events.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

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

void VerificaDestinazione() {
    const auto &x = attaccoAttivo.xAtt, &y = attaccoAttivo.yAtt;
    MostraVerifica(GuastoCoincidenti({{{x[0], y[0]}, {x[1], y[1]}, {x[2], y[2]}, {x[3], y[3]}}}));   // in any order
}

void TrasformaPuntiDestinazione() {
    const PuntiSelezione s = PuntiPerTutti();
    if (!s.presi) return;
    for (std::int16_t i = 0; i < s.numero; ++i) {
        const Coppia& p = s.punti[static_cast<std::size_t>(i)];
        attaccoAttivo.SetXYAtt(i, p.x, p.y);
    }
    if (attaccoAttivo.GetModificato()) attaccoAttivo.PreparaAttacco();
    InvalWind();
}

void do_Trasforma() {
    constexpr std::int32_t lampeggio = 30;   // ticks of a menu's blink: only a script's clock sees them
    if (AvvioInForza().script) Delay(lampeggio);
    if (theItem == voci::trasforma::origineDaSelezione && !noWindow) {
        TrasformaPuntiOrigine();
    } else if (theItem == voci::trasforma::destinazioneDaSelezione && !noWindow) {
        TrasformaPuntiDestinazione();
    } else {
        SysBeep(30);
    }
}

}   // namespace tessaro
