// Opens, fills and closes the window of control points 1 to 5, and hands on what is typed in it.
#include "shell/FinestraAttacchi.h"

#include <string>
#include <vector>

#include "digitising/CelleAttacchi.h"
#include "digitising/RapportoAttacchi.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "registration/TabellaPunti.h"
#include "shell/Rapporto.h"

namespace tessaro {

constinit DialogPtr attacchiDialog = nullptr;

namespace {

enum : std::int16_t {   // items
    vChiusura = 0,
    vChiudi = 2,
    vPunti = 3,
    vReali = 4,
    vRapporto = 5,
};

// What stands in the window was made from these.
struct Mostrato {
    DatiRapporto dati;
    std::uint32_t tabella = 0;   // of many points, whose mapping may have the word
    bool operator==(const Mostrato&) const = default;
};
Mostrato mostrato;
std::vector<std::string> righe;   // as they stand there
AttesaAttacchi attesa;

Mostrato adesso() { return {DatiDelMomento(), NumeroEstensione(estPunti)}; }

// Only rows that differ: a cell that is being typed in keeps its text.
void mostra(std::vector<std::string> nuove) {
    if (righe.size() != nuove.size()) {
        SetDialogItemRows(attacchiDialog, vPunti, static_cast<std::int16_t>(nuove.size()));
        righe.assign(nuove.size(), {});
    }
    for (std::size_t i = 0; i < nuove.size(); ++i)
        if (nuove[i] != righe[i])
            SetDialogItemRow(attacchiDialog, vPunti, static_cast<std::int16_t>(i + 1), nuove[i], {});
    righe = std::move(nuove);
}

void rifai() {
    mostrato = adesso();
    mostra(RigheAttacchi(attesa));
    SetDialogItemValue(attacchiDialog, vReali, Elem(2).att.coordReali != 0);
}

void celleScritte() {
    GridHit c;
    while (GetGridHit(attacchiDialog, vPunti, c)) {
        if (c.column > 0) ScriviCellaAttacco(attesa, c.row, c.column, c.text);
        if (!attacchiDialog) return;   // an alert waited, and it was closed meanwhile
        if (c.row >= 1 && static_cast<std::size_t>(c.row) <= righe.size())
            righe[static_cast<std::size_t>(c.row - 1)].clear();
    }
    rifai();   // also where nothing came of it: the cell shows what holds
}

// Half a place, and what was typed for a registration, were meant for the points as they were.
bool altriPunti(const DatiRapporto& a, const DatiRapporto& b) {
    const auto altra = [](const Coppia& p, const Coppia& q) { return p.x != q.x || p.y != q.y; };
    for (std::size_t i = 0; i < a.foglio.size(); ++i)
        if (altra(a.foglio[i], b.foglio[i]) || a.dati[i] != b.dati[i]) return true;
    return altra(a.reali[0], b.reali[0]) || altra(a.reali[1], b.reali[1]) || a.coordReali != b.coordReali;
}

}   // namespace

void ApriAttacchi() {
    if (attacchiDialog) {
        SelectDialogWindow(attacchiDialog);
        return;
    }
    attacchiDialog = GetNewDialog(dialogoAttacchi);
    if (!attacchiDialog) return;
    attesa = AttesaDelMomento();
    righe.clear();
    SetDialogItemText(attacchiDialog, vPunti, TestataAttacchi());
    rifai();
    CheckMenuItem(menuTrasforma, voci::trasforma::attacchi, true);
}

void AggiornaAttacchi() {
    if (!attacchiDialog) return;
    if (noWindow) return ChiudiAttacchi();
    const Mostrato ora = adesso();
    if (ora == mostrato) return;
    if (altriPunti(ora.dati, mostrato.dati)) attesa = AttesaDelMomento();
    rifai();
}

void ChiudiAttacchi() {
    if (!attacchiDialog) return;
    DisposeDialog(attacchiDialog);
    attacchiDialog = nullptr;
    CheckMenuItem(menuTrasforma, voci::trasforma::attacchi, false);
}

void ColpoAttacchi(std::int16_t item) {
    if (!attacchiDialog) return;   // a click that was still queued when it closed
    if (item == vChiudi || item == vChiusura) return ChiudiAttacchi();
    if (noWindow) return;
    AggiornaAttacchi();
    if (item == vPunti) celleScritte();
    if (item == vRapporto) ApriRapporto();
    if (item != vReali) return;
    AccendiReali(Elem(2).att.coordReali == 0);
    if (attacchiDialog) rifai();
}

namespace {

const VoceStato vociStato[] = {
    {"attacchiDialog",
     [] {
         if (attacchiDialog) DisposeDialog(attacchiDialog);
         attacchiDialog = nullptr;
         righe.clear();
         attesa = {};
     },
     nullptr},
};
const TabellaStato tabellaStato(vociStato);

}   // namespace

}   // namespace tessaro
