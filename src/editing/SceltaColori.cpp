// Editing the colour table on a working copy: names, colours, plotter pens, new colours, deletion.
#include "editing/SceltaColori.h"

#include <algorithm>

#include "dialogs/Parametri.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "editing/Selezionati.h"
#include "files/ParamColor.h"
#include "model/Annulla.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/TabellaStato.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "text/FileDati.h"

namespace tessaro {

constinit std::int16_t IndiceColore = 1, OldIndiceColore = 1;

namespace {

constexpr std::int16_t dialogo = 3000, listaTesti = 129, stringaNuovo = 20, stringaScegli = 21;
constexpr std::int16_t campoNome = 4, elencoColori = 7, elencoPenne = 8, campione = 13, aggiungi = 14, cancella = 15;
constexpr std::int16_t menuPenne = 9130;
constexpr std::int16_t coloriFissi = 7;   // the first ones cannot be deleted
constexpr std::int16_t nomeLungo = -5;
constexpr std::int16_t avvisoFissi = 3014, avvisoCancella = 3003, bottoneCancella = 2;

// A colour goes: `cambia` turns the number of everything that holds one.
template <class Cambia>
void rinumera(Cambia cambia) {
    const auto uno = [&](elemento& e) {
        if (f16* c = ColoreDi(e); c != nullptr) *c = cambia(std::int16_t{*c});
    };
    for (std::int32_t n = 3; n <= indElem; ++n) uno(Elem(n));
}

class TSceltaColori : public TParametri {
public:
    virtual void leggipar();
    virtual void scrivipar() { ScriviParamColor(tavola); }
    void Display() override;
    virtual void inggene();
    virtual void AggPopItem();
    virtual void AggiungiColore();
    virtual void CancellaColore();
    void Dialogo() override;
    void AggiornaMenu();
    void Scelta(std::uint8_t silent);

private:
    TavolaColori tavola;
    std::int16_t nomeMostrato = 0;   // the colour whose name the field holds

    Colore& corrente() { return tavola.colori[static_cast<std::size_t>(IndiceColore - 1)]; }
    void entroTavola() {
        IndiceColore = std::clamp<std::int16_t>(IndiceColore, 1, std::max<std::int16_t>(tavola.presenti, 1));
    }
    void scegliRGB();
    void colpito();
    [[nodiscard]] bool chiude() const {
        return (itemCorrente == okItem || itemCorrente == salvaItem || itemCorrente == annullaItem) && esito > 0;
    }
};

void TSceltaColori::leggipar() {
    tavola = TavolaPredefinita();
    if (!LeggiParamColor(tavola)) uscita = 0;
}

void TSceltaColori::AggiornaMenu() {
    arrColori = tavola.colori;
    coloriPresenti = tavola.presenti;
    colorCorrente = IndiceColore;
    RifaiMenuColori();
}

// The whole list anew, then what belongs to the colour on show.
void TSceltaColori::Display() {
    SetDialogItemRows(theDialog, elencoColori, tavola.presenti);
    for (std::int16_t i = 1; i <= tavola.presenti; ++i) {
        const Colore& c = tavola.colori[static_cast<std::size_t>(i - 1)];
        SetDialogItemRow(theDialog, elencoColori, i, NomeColore(c), c.rgb);
    }
    nomeMostrato = 0;
    AggPopItem();
}

void TSceltaColori::AggPopItem() {
    const Colore& c = corrente();
    const bool scrive = nomeMostrato == IndiceColore;   // the name being typed is not in the working copy yet
    const std::string nome = scrive ? GetDialogItemText(theDialog, campoNome).substr(0, maxNomeColore) : NomeColore(c);
    SetDialogItemRow(theDialog, elencoColori, IndiceColore, nome, c.rgb);
    SetDialogItemValue(theDialog, elencoColori, IndiceColore);
    SetDialogItemValue(theDialog, elencoPenne, c.penna);
    const auto alto = [](std::uint16_t v) { return std::int32_t{v} >> 8; };
    SetDialogItemValue(theDialog, campione, alto(c.rgb.red) << 16 | alto(c.rgb.green) << 8 | alto(c.rgb.blue));
    if (scrive) return;
    nomeMostrato = IndiceColore;
    SetDialogItemText(theDialog, campoNome, NomeColore(c));
    SelectDialogItemText(theDialog, campoNome, 0, 255);
}

// The name field goes into the working copy, under the colour that it was shown for.
void TSceltaColori::inggene() {
    const std::string nome = GetDialogItemText(theDialog, campoNome);
    esito = 1;
    if (nome.size() > maxNomeColore) {
        esito = nomeLungo;
        SysBeep(30);
        SelectDialogItemText(theDialog, campoNome, maxNomeColore - 1, 255);
        if (itemCorrente == elencoColori) IndiceColore = OldIndiceColore;
        return;
    }
    PoniNomeColore(corrente(), nome);
    SetDialogItemRow(theDialog, elencoColori, IndiceColore, nome, corrente().rgb);
    if (itemCorrente != elencoColori && itemCorrente != aggiungi && itemCorrente != cancella) AggiornaMenu();
}

void TSceltaColori::AggiungiColore() {
    IndiceColore = ++tavola.presenti;
    Colore& c = corrente() = Colore{};
    PoniNomeColore(c, GetIndString(listaTesti, stringaNuovo));
    SetDialogItemRows(theDialog, elencoColori, tavola.presenti);
    AggPopItem();
}

// Kept: the elements of the drawing are renumbered at once, and stay so when the dialog is cancelled afterwards.
void TSceltaColori::CancellaColore() {
    if (IndiceColore <= coloriFissi) {
        StopAlert(avvisoFissi);
        return;
    }
    if (CautionAlert(avvisoCancella) != bottoneCancella) return;
    const std::int16_t via = IndiceColore;
    if (via < tavola.presenti) {
        const auto primo = tavola.colori.begin() + via;
        std::copy(primo, tavola.colori.begin() + tavola.presenti, primo - 1);
        --tavola.presenti;
        // Kept: elements of the deleted colour keep its number, and so show the colour that followed it.
        rinumera([via](std::int16_t c) { return c > via ? static_cast<std::int16_t>(c - 1) : c; });
    } else {
        --tavola.presenti;
        rinumera([via](std::int16_t c) { return c == via ? static_cast<std::int16_t>(c - 1) : c; });
        IndiceColore = tavola.presenti;
    }
    Display();
}

void TSceltaColori::scegliRGB() {
    RGBColor nuovo;
    if (!GetColor(GetIndString(listaTesti, stringaScegli), corrente().rgb, nuovo)) return;
    corrente().rgb = nuovo;
    AggPopItem();
}

void TSceltaColori::colpito() {
    switch (itemCorrente) {
    case elencoColori: {
        OldIndiceColore = IndiceColore;
        inggene();
        const auto scelto = static_cast<std::int16_t>(GetDialogItemValue(theDialog, elencoColori));
        if (esito > 0 && scelto >= 1 && scelto <= tavola.presenti) IndiceColore = scelto;
        AggPopItem();
        break;
    }
    case campoNome:
        AggPopItem();
        if (GetDialogItemText(theDialog, campoNome).size() <= maxNomeColore) esito = 1;
        break;
    case elencoPenne: corrente().penna = static_cast<std::int16_t>(GetDialogItemValue(theDialog, elencoPenne)); break;
    case campione: scegliRGB(); break;
    case aggiungi:
        inggene();
        if (esito <= 0) break;
        if (tavola.presenti < maxColori) {
            AggiungiColore();
        } else {
            SysBeep(30);
        }
        break;
    case cancella:
        inggene();
        if (esito > 0) CancellaColore();
        break;
    default: break;
    }
    if (itemCorrente == okItem || itemCorrente == salvaItem) inggene();
    if (itemCorrente == ripristinaItem) {
        leggipar();
        entroTavola();
        Display();
        esito = 1;
    }
    OscuraAnnulla();
}

void TSceltaColori::Dialogo() {
    const DialogoAperto aperto(dialogoId);
    SetDialogItemMenu(theDialog, elencoPenne, menuPenne);
    Display();
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        if (!quitPending()) colpito();
    } while (!chiude() && !quitPending());
}

void TSceltaColori::Scelta(std::uint8_t silent) {
    IndiceColore = colorCorrente;
    if (silent) {
        leggipar();
        entroTavola();
        AggiornaMenu();
    } else {
        tavola = {arrColori, coloriPresenti};
        entroTavola();
        AggiornaMenu();
        Dialogo();
        if (itemCorrente == salvaItem && esito > 0 && !quitPending()) scrivipar();
    }
    if (noWindow) return;
    InvalFinestra();
    DrawPallette();
}

}   // namespace

void SceltaColori(std::uint8_t silent) {
    TSceltaColori s;
    s.Poni(1, 2, 9, 10, dialogo);
    s.Scelta(silent);
}

namespace {
const VoceStato righe[] = {
    voce<IndiceColore>("IndiceColore"),
    voce<OldIndiceColore>("OldIndiceColore"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
