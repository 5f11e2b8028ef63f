// The dialog of the sheets: a list of 100 marks, the view's six switches and the current sheet.
#include <array>

#include "dialogs/Parametri.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "editing/LucidiClassi.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/NomiLucidi.h"
#include "model/Selezione.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t ParamLucidiDia = 128;
constexpr std::int16_t primoLucido = 3, ultimoLucido = 102, primaScelta = 123, ultimaScelta = 128, campoLucido = 130;
constexpr std::int16_t tutti = 131, nessuno = 132;
constexpr std::size_t quanteScelte = 6;

class TParamLucidi : public TParametri {
public:
    void Display() override;
    virtual void inggene();
    void Dialogo() override;
    bool cambiato = false;

private:
    std::array<std::uint8_t, quantiLucidi + quanteScelte> valori{};   // sheets, then switches
    VisioneGrafT vista;

    static std::int16_t itemDi(std::size_t i) {
        return static_cast<std::int16_t>(i < quantiLucidi ? primoLucido + i : primaScelta + (i - quantiLucidi));
    }
    // The switches in the order of their boxes.
    std::array<std::uint8_t*, quanteScelte> scelte() {
        return {&vista.grigiaAltri, &vista.soloCorrente, &vista.mostraTratteggi,
                &vista.mostraTesti, &vista.mostraAref,   &vista.bloccaAltri};
    }
    static void contaElementi();
    void colpito();
};

// Behind a sheet's number stand its name and, in brackets, how many elements lie on it.
void TParamLucidi::contaElementi() {
    std::array<std::int32_t, quantiLucidi> quanti{};
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const std::int16_t l = Elem(n).lucido;
        if (l >= 0 && l < std::int16_t{quantiLucidi} && Elem(n).tipo != tVertice) ++quanti[static_cast<std::size_t>(l)];
    }
    for (std::size_t i = 0; i < quantiLucidi; ++i) {
        const std::string proprio = NomeLucido(static_cast<std::int16_t>(i));
        if (quanti[i] == 0 && proprio.empty()) continue;
        std::string testo = GetDialogItemText(theDialog, itemDi(i));
        if (!proprio.empty()) testo += " " + proprio;
        if (quanti[i] != 0) testo += " (" + std::to_string(quanti[i]) + ")";
        SetDialogItemText(theDialog, itemDi(i), testo);
    }
}

void TParamLucidi::Display() {
    const auto s = scelte();
    for (std::size_t i = 0; i < valori.size(); ++i) {
        const std::uint8_t acceso = i < quantiLucidi ? vista.visibile[i] : *s[i - quantiLucidi];
        SetDialogItemValue(theDialog, itemDi(i), acceso != 0);
    }
    SetDialogItemText(theDialog, campoLucido, NumToString(vista.lucidoCorrente).view());
    ShowDialogItem(theDialog, static_cast<std::int16_t>(primoLucido + vista.lucidoCorrente));
    SelectDialogItemText(theDialog, campoLucido, 0, 100);
}

void TParamLucidi::inggene() {
    for (std::size_t i = 0; i < valori.size(); ++i)
        valori[i] = static_cast<std::uint8_t>(GetDialogItemValue(theDialog, itemDi(i)));
    std::int16_t corrente = 0;
    if (!LeggiCampo(campoLucido, std::int16_t{0}, std::int16_t{99}, corrente)) return;
    PoniAnnulla(aNiente);
    vista.lucidoCorrente = corrente;
    const auto s = scelte();
    for (std::size_t i = 0; i < valori.size(); ++i)
        (i < quantiLucidi ? vista.visibile[i] : *s[i - quantiLucidi]) = valori[i] == 1;
    VisioneGraf = vista;
    cambiato = true;
}

void TParamLucidi::colpito() {
    const bool unLucido = itemCorrente >= primoLucido && itemCorrente <= ultimoLucido;
    const bool unaScelta = itemCorrente >= primaScelta && itemCorrente <= ultimaScelta;
    if (unLucido || unaScelta) {
        CambiaCheck(itemCorrente);
    } else if (itemCorrente == tutti || itemCorrente == nessuno) {
        for (std::int16_t i = primoLucido; i <= ultimoLucido; ++i)
            SetDialogItemValue(theDialog, i, itemCorrente == tutti);
    } else if (itemCorrente == okItem) {
        inggene();
    }
    OscuraAnnulla();
}

void TParamLucidi::Dialogo() {
    vista = VisioneGraf;
    const DialogoAperto aperto(dialogoId);
    contaElementi();
    Display();
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        if (!quitPending()) colpito();
    } while (!((itemCorrente == okItem || itemCorrente == annullaItem) && esito > 0) && !quitPending());
}

}   // namespace

void ParamLucidi() {
    TParamLucidi p;
    p.Poni(1, 2, 0, 0, ParamLucidiDia);
    p.Dialogo();
    if (!p.cambiato || noWindow) return;
    if (Puntosel.attiva) RifaiRettSel();
    InvalFinestra();
    DrawPallette();   // it shows the current sheet's number
}

}   // namespace tessaro
