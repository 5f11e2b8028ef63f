// The dialogs of the live transformation: the present one and the older one, with the same items.
#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Zoom.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

// Items: ten fields in a row, X1 Y1 to X5 Y5, in real coordinates.
enum : std::int16_t { primoCampo = 3, casellaOpzione = 13, casellaModificato = 14, radioDue = 27, radioCinque = 29 };

constexpr std::int16_t campoX(std::size_t i) { return static_cast<std::int16_t>(primoCampo + 2 * i); }
constexpr std::int16_t campoY(std::size_t i) { return static_cast<std::int16_t>(primoCampo + 2 * i + 1); }

bool eRadio(std::int16_t item) { return item >= radioDue && item <= radioCinque; }

}   // namespace

void ActiveAttach::mostraScelte() {
    for (std::int16_t item = radioDue; item <= radioCinque; ++item)
        SetDialogItemValue(theDialog, item, item == radioTipo);
}

void ActiveAttach::Display() {
    for (std::size_t i = 0; i < xAtt.size(); ++i) {
        double x = 0, y = 0;
        DigiToReal(xAtt[i], yAtt[i], x, y);
        ScriviCampoReale(campoX(i), x, 3);
        ScriviCampoReale(campoY(i), y, 3);
    }
    SetDialogItemValue(theDialog, casellaOpzione, opzione != 0);
    SetDialogItemValue(theDialog, casellaModificato, modificato != 0);
    mostraScelte();
}

void ActiveAttach::IngGene(std::uint8_t ripristino) {
    constexpr double scarto = 1e-5;   // sheet units
    esito = 1;
    if (ripristino) return;
    std::array<Coppia, 5> reali{};
    for (std::size_t i = 0; i < reali.size(); ++i)
        if (!LeggiCampo(campoX(i), -limiteReale, limiteReale, reali[i].x)
            || !LeggiCampo(campoY(i), -limiteReale, limiteReale, reali[i].y))
            return;
    opzione = GetDialogItemValue(theDialog, casellaOpzione) != 0;
    modificato = GetDialogItemValue(theDialog, casellaModificato) != 0;
    if (eRadio(radioTipo)) tipo = radioTipo - radioDue;
    for (std::size_t i = 0; i < reali.size(); ++i) RealToDigi(reali[i].x, reali[i].y, xAtt[i], yAtt[i]);
    // Kept: point 1 moves a hair at every OK, so that it never stays exactly on the value it had.
    xAtt[0] += scarto;
    yAtt[0] += scarto;
    ErroreAlert(PreparaAttacco());
    InvalWind();
}

void ActiveAttach::Riprendi() { radioTipo = static_cast<std::int16_t>(tipo + radioDue); }

void ActiveAttach::ItemColpito() {
    if (itemCorrente == casellaOpzione || itemCorrente == casellaModificato) CambiaCheck(itemCorrente);
    if (!eRadio(itemCorrente)) return;
    radioTipo = itemCorrente;
    mostraScelte();
}

void ActiveAttach::giroDialogo(ModalFilter filtro) {
    esito = 1;
    Giro(primoCampo, filtro);
    Riprendi();
}

void ActiveAttach::Dialogo() {
    constexpr std::int16_t dialogo = 157;
    const DialogoAperto aperto(dialogo);
    for (const std::int16_t item : {campoX(4), campoY(4), std::int16_t{radioCinque}})
        HiliteDialogItem(theDialog, item, 0);
    giroDialogo(nullptr);
}

void ActiveAttach::DialogoOld() {
    const DialogoAperto aperto(dialogoId);
    giroDialogo(MyMovableFilter);
}

}   // namespace tessaro
