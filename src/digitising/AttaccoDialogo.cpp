// The dialogs of the live transformation: the present one and the older one, with the same items.
#include "digitising/AttaccoDialogo.h"

#include <array>

#include "dialogs/Errori.h"
#include "display/Ridisegno.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

ActiveAttach& a = attaccoAttivo;

// Items: ten fields in a row, X1 Y1 to X5 Y5, in real coordinates.
enum : std::int16_t { primoCampo = 3, casellaOpzione = 13, casellaModificato = 14, radioDue = 27, radioCinque = 29 };

constexpr std::int16_t campoX(std::size_t i) { return static_cast<std::int16_t>(primoCampo + 2 * i); }
constexpr std::int16_t campoY(std::size_t i) { return static_cast<std::int16_t>(primoCampo + 2 * i + 1); }

bool eRadio(std::int16_t item) { return item >= radioDue && item <= radioCinque; }

// Kept: point 1 moves a hair whenever it is typed, so that it never stays exactly on the value it had.
void assegna(std::size_t i, const double& X, const double& Y) {
    constexpr double scarto = 1e-5;   // sheet units
    RealToDigi(X, Y, a.xAtt[i], a.yAtt[i]);
    if (i > 0) return;
    a.xAtt[0] += scarto;
    a.yAtt[0] += scarto;
}

void preparaEMostra() {
    ErroreAlert(a.PreparaAttacco());
    InvalWind();
}

}   // namespace

void TAttaccoDialogo::mostraScelte() {
    for (std::int16_t item = radioDue; item <= radioCinque; ++item)
        SetDialogItemValue(theDialog, item, item == a.radioTipo);
}

void TAttaccoDialogo::Display() {
    for (std::size_t i = 0; i < a.xAtt.size(); ++i) {
        double x = 0, y = 0;
        DigiToReal(a.xAtt[i], a.yAtt[i], x, y);
        ScriviCampoReale(campoX(i), x, 3);
        ScriviCampoReale(campoY(i), y, 3);
    }
    SetDialogItemValue(theDialog, casellaOpzione, a.opzione != 0);
    SetDialogItemValue(theDialog, casellaModificato, a.modificato != 0);
    mostraScelte();
}

void TAttaccoDialogo::IngGene(std::uint8_t ripristino) {
    esito = 1;
    if (ripristino) return;
    std::array<Coppia, 5> reali{};
    for (std::size_t i = 0; i < reali.size(); ++i)
        if (!LeggiCampo(campoX(i), -limiteReale, limiteReale, reali[i].x)
            || !LeggiCampo(campoY(i), -limiteReale, limiteReale, reali[i].y))
            return;
    a.opzione = GetDialogItemValue(theDialog, casellaOpzione) != 0;
    a.modificato = GetDialogItemValue(theDialog, casellaModificato) != 0;
    if (eRadio(a.radioTipo)) a.tipo = a.radioTipo - radioDue;
    for (std::size_t i = 0; i < reali.size(); ++i) assegna(i, reali[i].x, reali[i].y);
    preparaEMostra();
}

void PoniDestinazione(std::int16_t n, const double& X, const double& Y) {
    if (n < 1 || static_cast<std::size_t>(n) > a.xAtt.size()) return;
    assegna(static_cast<std::size_t>(n - 1), X, Y);
    preparaEMostra();
}

void TAttaccoDialogo::Riprendi() { a.radioTipo = static_cast<std::int16_t>(a.tipo + radioDue); }

void TAttaccoDialogo::ItemColpito() {
    if (itemCorrente == casellaOpzione || itemCorrente == casellaModificato) CambiaCheck(itemCorrente);
    if (!eRadio(itemCorrente)) return;
    a.radioTipo = itemCorrente;
    mostraScelte();
}

void TAttaccoDialogo::giroDialogo(ModalFilter filtro) {
    esito = 1;
    Giro(primoCampo, filtro);
    Riprendi();
}

void TAttaccoDialogo::Dialogo() {
    constexpr std::int16_t dialogo = 157;
    const DialogoAperto aperto(dialogo);
    for (const std::int16_t item : {campoX(4), campoY(4), std::int16_t{radioCinque}})
        HiliteDialogItem(theDialog, item, 0);
    giroDialogo(nullptr);
}

void TAttaccoDialogo::DialogoOld() {
    const DialogoAperto aperto(dialogoId);
    giroDialogo(MyMovableFilter);
}

}   // namespace tessaro
