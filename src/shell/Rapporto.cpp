// Opens, fills, saves and closes the report.
#include "shell/Rapporto.h"

#include <string>
#include <vector>

#include "digitising/RapportoTesti.h"
#include "display/AttacchiMarche.h"
#include "display/Ridisegno.h"
#include "exchange/ApriScrittura.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

constinit DialogPtr rapportoDialog = nullptr;

namespace {

enum : std::int16_t {   // items
    vChiusura = 0,
    vSalva = 1,
    vChiudi = 2,
    vPunti = 3,
    vResidui = 4,
    vScala = 5,
    vRotazione = 6,
    vModo = 7,
    vMassimo = 8,
    vMedio = 9,
    vAvvisi = 10,
};

// What stands in the window was made from these.
struct Mostrato {
    DatiRapporto dati;
    std::int32_t gradi = 0;
    std::int16_t tipoAngolo = 0;
    bool operator==(const Mostrato&) const = default;
};
Mostrato mostrato;

Mostrato adesso() { return {DatiDelMomento(), gradCorrente, tipoAngolo}; }

void tabella(std::int16_t item, const std::vector<std::string>& righe) {
    SetDialogItemRows(rapportoDialog, item, static_cast<std::int16_t>(righe.size()));
    for (std::size_t i = 0; i < righe.size(); ++i)
        SetDialogItemRow(rapportoDialog, item, static_cast<std::int16_t>(i + 1), righe[i], {});
}

void mostra(const TestiRapporto& t) {
    SetDialogItemText(rapportoDialog, vPunti, t.testataPunti);
    tabella(vPunti, t.punti);
    SetDialogItemText(rapportoDialog, vResidui, t.testataResidui);
    tabella(vResidui, t.residui);
    SetDialogItemText(rapportoDialog, vScala, t.scala);
    SetDialogItemText(rapportoDialog, vRotazione, t.rotazione);
    SetDialogItemText(rapportoDialog, vModo, t.modo);
    SetDialogItemText(rapportoDialog, vMassimo, t.massimo);
    SetDialogItemText(rapportoDialog, vMedio, t.medio);
    SetDialogItemText(rapportoDialog, vAvvisi, t.testataAvvisi);
    tabella(vAvvisi, t.avvisi);
}

RapportoAttacchi ultimo;   // what stands in the window

void rifai() {
    mostrato = adesso();
    ultimo = CalcolaRapportoAttacchi(mostrato.dati);
    mostra(TestiDi(ultimo));
    InvalWind();   // the residuals stand beside the marks too
}

// Beside the mark of a control point: by how much it misses, in the user's unit or in millimetres of the sheet.
std::string residuoAccanto(std::int16_t n, bool destinazione) {
    if (!rapportoDialog || destinazione) return {};
    const PuntoRapporto& p = ultimo.punti[static_cast<std::size_t>(n - 1)];
    if (!p.dato || !p.mappato) return {};
    constexpr double decimiPerMm = 10;
    PStr255 s;
    RToStr(ultimo.coordReali ? p.residuoReale : p.residuo / decimiPerMm, 3, s);
    return ultimo.coordReali ? s.str() : s.str() + " mm";
}

void salva() {
    constexpr std::string_view suffisso = ".txt";
    const std::string testo = TestoRapporto(TestiDi(CalcolaRapportoAttacchi(DatiDelMomento())), NomeD.view());
    if (!ApriTesto(InvitoRapporto(), suffisso)) return;
    scriviBlocco(testo.data(), static_cast<std::int32_t>(testo.size()));
    ChiudiScrittura();
}

}   // namespace

void ApriRapporto() {
    if (rapportoDialog) {
        SelectDialogWindow(rapportoDialog);
        return;
    }
    rapportoDialog = GetNewDialog(dialogoRapporto);
    if (!rapportoDialog) return;
    rifai();
    CheckMenuItem(menuTrasforma, voci::trasforma::rapporto, true);
}

void AggiornaRapporto() {
    if (!rapportoDialog) return;
    if (noWindow) return ChiudiRapporto();
    if (!(adesso() == mostrato)) rifai();
}

void ChiudiRapporto() {
    if (!rapportoDialog) return;
    DisposeDialog(rapportoDialog);
    rapportoDialog = nullptr;
    InvalWind();
    CheckMenuItem(menuTrasforma, voci::trasforma::rapporto, false);
}

void ColpoRapporto(std::int16_t item) {
    if (!rapportoDialog) return;   // a click that was still queued when it closed
    if (item == vSalva) salva();
    if (item == vChiudi || item == vChiusura) ChiudiRapporto();
}

namespace {

const VoceStato righe[] = {
    {"rapportoDialog",
     [] {
         if (rapportoDialog) DisposeDialog(rapportoDialog);
         rapportoDialog = nullptr;
     },
     nullptr},
};
const TabellaStato tabellaStato(righe);

[[maybe_unused]] const bool agganciato = [] {
    accantoAllaMarca = residuoAccanto;
    return true;
}();

}   // namespace

}   // namespace tessaro
