// The layout's dialog and its settings file, and which menu items a layout allows.
#include "exchange/FormatoXYZ.h"

#include <algorithm>

#include "dialogs/Parametri.h"
#include "exchange/ImportaElenco.h"
#include "files/Impostazioni.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Quickdraw.h"
#include "text/FileDati.h"

namespace tessaro {

constinit std::int16_t TipoForm = rigaPerValore, TipoFormNum = rigaPerValore;
constinit std::array<std::int16_t, 4> DatoP{1, 2, 3, 5}, DatoPNum{1, 2, 3, 5};

namespace {

constexpr const char* nomeFile = "FormParD";
constexpr std::int16_t dialogoFormato = 2027, avvisoDoppia = 3013;
constexpr std::int16_t primaColonna = 7, ultimaColonna = 10;   // pop-ups
constexpr std::array<std::int16_t, 4> colonnePredefinite{colonnaX, colonnaY, colonnaZ, colonnaNessuna};

bool eColonna(std::int16_t item) { return item >= primaColonna && item <= ultimaColonna; }
std::int16_t& colonnaDi(std::int16_t item) { return DatoPNum[static_cast<std::size_t>(item - primaColonna)]; }

bool colonnaDoppia(const std::array<std::int16_t, 4>& colonne) {
    for (std::size_t i = 0; i < colonne.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (colonne[i] != colonnaNessuna && colonne[i] == colonne[j]) return true;
    return false;
}

bool usabile() {
    const auto nota = [](std::int16_t c) { return c >= colonnaX && c <= colonnaNessuna; };
    return (TipoFormNum == rigaPerValore || TipoFormNum == rigaPerPunto)
           && std::all_of(DatoPNum.begin(), DatoPNum.end(), nota) && !colonnaDoppia(DatoPNum);
}

bool leggiFile() {
    if (!ApriImpostazioni(nomeFile, false)) return false;
    TipoFormNum = leggii();
    for (std::int16_t& c : DatoPNum) c = leggii();
    LeggiScelteElenco();
    FSClose(RefNum);
    return usabile();
}

// A list without a column can be neither read nor written. The export's menu is off as a whole without a drawing.
void abilitaVoci() {
    const auto poni = ColonneXYZ() > 0 ? EnableMenuItem : DisableMenuItem;
    poni(menuImporta, voci::importa::xyz);
    poni(menuEsporta, voci::esporta::xyz);
    DrawMenuBar();
}

}   // namespace

std::int16_t ColonneXYZ() {
    return static_cast<std::int16_t>(
        std::count_if(DatoP.begin(), DatoP.end(), [](std::int16_t c) { return c != colonnaNessuna; }));
}

void TFormatoXYZ::leggipar() {
    const std::uint8_t prima = uscita;
    uscita = 0;
    if (!leggiFile()) {
        TipoFormNum = rigaPerValore;
        DatoPNum = colonnePredefinite;
    }
    uscita = prima;
}

void TFormatoXYZ::scrivipar() {
    if (!ApriImpostazioni(nomeFile, true)) return;
    scrivii(TipoForm);
    for (const std::int16_t c : DatoP) scrivii(c);
    ScriviScelteElenco();
    ChiudiImpostazioni();
}

void TFormatoXYZ::AggPopItem(std::int16_t item) { SetDialogItemValue(theDialog, item, colonnaDi(item)); }

void TFormatoXYZ::Display() {
    SetDialogItemValue(theDialog, rigaPerValore, TipoFormNum == rigaPerValore);
    SetDialogItemValue(theDialog, rigaPerPunto, TipoFormNum == rigaPerPunto);
    for (std::int16_t item = primaColonna; item <= ultimaColonna; ++item) AggPopItem(item);
}

void TFormatoXYZ::inggene(std::uint8_t nascosto) {
    esito = 1;
    if (!nascosto) {
        for (std::int16_t item = primaColonna; item <= ultimaColonna; ++item)
            PopUp(item, menuColonne, 1, 1, colonnaDi(item));
        if (colonnaDoppia(DatoPNum)) {
            esito = 0;
            StopAlert(avvisoDoppia);
            return;
        }
    }
    DatoP = DatoPNum;
    TipoForm = TipoFormNum;
}

// What the item that was hit does.
void TFormatoXYZ::colpito() {
    if (eColonna(itemCorrente)) {
        PopUp(itemCorrente, menuColonne, 1, 1, colonnaDi(itemCorrente));
    } else if (itemCorrente == rigaPerValore || itemCorrente == rigaPerPunto) {
        RadioBoxItem(TipoFormNum);
    } else if (itemCorrente == okItem || itemCorrente == salvaItem) {
        inggene(0);
    } else if (itemCorrente == ripristinaItem) {
        leggipar();
        Display();
        esito = 1;
    }
}

void TFormatoXYZ::Dialogo() {
    TipoFormNum = TipoForm;
    DatoPNum = DatoP;
    const DialogoAperto aperto(dialogoId);
    for (std::int16_t item = primaColonna; item <= ultimaColonna; ++item)
        SetDialogItemMenu(theDialog, item, menuColonne);
    Display();
    const auto chiude = [this] {
        return itemCorrente == annullaItem || ((itemCorrente == okItem || itemCorrente == salvaItem) && esito > 0);
    };
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        colpito();
    } while (!chiude());
}

void TFormatoXYZ::Form(std::uint8_t nascosto) {
    if (nascosto) {
        leggipar();
        inggene(1);
    } else {
        Dialogo();
        if (itemCorrente == salvaItem) scrivipar();
    }
    abilitaVoci();
}

void FormatoXYZ(std::uint8_t nascosto) {
    const PortaCorrente porta;
    TFormatoXYZ f;
    f.Poni(1, 2, 16, 15, dialogoFormato);
    f.Form(nascosto);
}

namespace {
const VoceStato righe[] = {
    voce<TipoForm>("TipoForm"),
    voce<TipoFormNum>("TipoFormNum"),
    {"DatoP", [] { DatoP = colonnePredefinite; },
     [] {
         std::string s;
         for (const std::int16_t c : DatoP) s += (s.empty() ? "[" : ",") + std::to_string(c);
         return s + "]";
     }},
    {"DatoPNum", [] { DatoPNum = colonnePredefinite; }, nullptr},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
