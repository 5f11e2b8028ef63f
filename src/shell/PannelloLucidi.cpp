// Fills the rows of the layers and does what the person does in them.
#include "shell/PannelloLucidi.h"

#include <algorithm>
#include <string>
#include <vector>

#include "display/palette.h"
#include "display/Ridisegno.h"
#include "editing/LucidiClassi.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/NomiLucidi.h"
#include "model/Selezione.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"

namespace tessaro {

constinit DialogPtr pannelloLucidi = nullptr;

namespace {

enum : std::int16_t {   // items
    vChiusura = 0,
    vTutti = 1,
    vChiudi = 2,
    vSoloUsati = 3,
    vRighe = 4,
};
enum : std::int16_t { cSpostata = 0, cNumero, cCorrente, cNome, cVisto, cBloccato, cElementi };   // columns
constexpr std::int16_t listaPannello = 9430, testata = 1;

using PerLucido = std::array<std::int32_t, quantiLucidi>;
std::size_t posto(std::int16_t l) { return static_cast<std::size_t>(l); }

// What stands in the panel.
struct Mostrato {
    std::vector<std::int16_t> lucidi;   // in the rows' order
    std::vector<std::string> righe;
    bool operator==(const Mostrato&) const = default;
};
Mostrato mostrato;
constinit bool soloUsati = false;

PerLucido contaElementi() {
    PerLucido quanti{};
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const std::int16_t l = Elem(n).lucido;
        if (l >= 0 && l < quantiLucidi && Elem(n).tipo != tVertice) ++quanti[posto(l)];
    }
    return quanti;
}

std::string riga(std::int16_t l, std::int32_t elementi) {
    constexpr char tab = '\t';
    const auto segno = [](bool s) { return std::string(s ? "1" : "0"); };
    return std::to_string(l) + tab + segno(l == VisioneGraf.lucidoCorrente) + tab + NomeLucido(l) + tab
           + segno(VisioneGraf.visibile[posto(l)] != 0) + tab + segno(LucidoBloccato(l)) + tab
           + (elementi == 0 ? std::string() : std::to_string(elementi));
}

Mostrato adesso() {
    Mostrato m;
    const PerLucido quanti = contaElementi();
    for (const std::int16_t l : OrdineLucidi()) {
        const bool usato = quanti[posto(l)] > 0 || l == VisioneGraf.lucidoCorrente || !NomeLucido(l).empty();
        if (soloUsati && !usato) continue;
        m.lucidi.push_back(l);
        m.righe.push_back(riga(l, quanti[posto(l)]));
    }
    return m;
}

void mostra(Mostrato m) {
    if (m.righe.size() != mostrato.righe.size()) {
        SetDialogItemRows(pannelloLucidi, vRighe, static_cast<std::int16_t>(m.righe.size()));
        mostrato.righe.clear();
    }
    mostrato.righe.resize(m.righe.size());
    for (std::size_t i = 0; i < m.righe.size(); ++i)
        if (m.righe[i] != mostrato.righe[i])
            SetDialogItemRow(pannelloLucidi, vRighe, static_cast<std::int16_t>(i + 1), m.righe[i], {});
    mostrato = std::move(m);
}

// --- what the person does in a row

void poniCorrente(std::int16_t l) {
    VisioneGraf.lucidoCorrente = l;
    if (VisioneGraf.grigiaAltri || VisioneGraf.soloCorrente) InvalFinestra();
    DrawPallette();
}

void poniVisto(std::int16_t l, bool visto) {
    VisioneGraf.visibile[posto(l)] = visto;
    if (Puntosel.attiva) RifaiRettSel();
    InvalFinestra();
}

// The dragged layer comes to stand where the other one is; layers that the list does not show keep their neighbours.
void sposta(std::int16_t l, std::int16_t dove) {
    std::array<std::int16_t, quantiLucidi> ordine = OrdineLucidi();
    const auto da = std::find(ordine.begin(), ordine.end(), l), a = std::find(ordine.begin(), ordine.end(), dove);
    if (da == ordine.end() || a == ordine.end()) return;
    if (da < a) {
        std::rotate(da, da + 1, a + 1);
    } else {
        std::rotate(a, da, da + 1);
    }
    PoniOrdineLucidi(ordine);
}

void esegui(const GridHit& h) {
    const auto lucidoDi = [](std::int16_t r) {
        return r >= 1 && posto(r) <= mostrato.lucidi.size() ? mostrato.lucidi[posto(r) - 1] : std::int16_t{-1};
    };
    const std::int16_t l = lucidoDi(h.row);
    if (l < 0) return;
    const bool acceso = h.text == "1";
    switch (h.column) {
    case cSpostata: return sposta(l, lucidoDi(h.to));
    case cCorrente: return poniCorrente(l);
    case cNome: return PoniNomeLucido(l, h.text);
    case cVisto: return poniVisto(l, acceso);
    case cBloccato: return BloccaLucido(l, acceso);
    default: return;
    }
}

}   // namespace

void ApriPannelloLucidi() {
    if (pannelloLucidi) {
        SelectDialogWindow(pannelloLucidi);
        return;
    }
    if (noWindow) return;
    pannelloLucidi = GetNewDialog(dialogoPannelloLucidi);
    mostrato = {};
    SetDialogItemText(pannelloLucidi, vRighe, GetIndString(listaPannello, testata));
    SetDialogItemValue(pannelloLucidi, vSoloUsati, soloUsati);
    mostra(adesso());
    CheckMenuItem(menuStrumenti, voci::strumenti::pannelloLucidi, true);
}

void AggiornaPannelloLucidi() {
    if (!pannelloLucidi) return;
    if (noWindow) return ChiudiPannelloLucidi();
    if (Mostrato m = adesso(); !(m == mostrato)) mostra(std::move(m));
}

void ChiudiPannelloLucidi() {
    if (!pannelloLucidi) return;
    DisposeDialog(pannelloLucidi);
    pannelloLucidi = nullptr;
    CheckMenuItem(menuStrumenti, voci::strumenti::pannelloLucidi, false);
}

void ColpoPannelloLucidi(std::int16_t item) {
    if (!pannelloLucidi) return;   // a click that was still queued when it closed
    if (item == vRighe && !noWindow) {
        for (GridHit h; GetGridHit(pannelloLucidi, vRighe, h);) esegui(h);
        mostrato.righe.assign(mostrato.righe.size(), {});   // what was typed and not taken goes too
    }
    if (item == vSoloUsati) {
        soloUsati = !soloUsati;
        SetDialogItemValue(pannelloLucidi, vSoloUsati, soloUsati);
    }
    if (item == vTutti) ParamLucidi();
    if (item == vChiudi || item == vChiusura) ChiudiPannelloLucidi();
}

namespace {

const VoceStato righe[] = {
    {"pannelloLucidi",
     [] {
         if (pannelloLucidi) DisposeDialog(pannelloLucidi);
         pannelloLucidi = nullptr;
         mostrato = {};
         soloUsati = false;
     },
     nullptr},
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
