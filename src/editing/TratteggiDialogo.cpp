// The dialog of the hatch: angle, spacing, on or off, crossed.
#include "editing/TratteggiDialogo.h"

#include "dialogs/Parametri.h"
#include "display/Ridisegno.h"
#include "display/Tratteggi.h"
#include "editing/Domanda.h"
#include "editing/Selezionati.h"
#include "model/Unita.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 9130, campoAngolo = 4, campoPasso = 6, spuntaTratteggio = 9, spuntaIncrociato = 13;
constexpr double maxAngolo = 401.0;                 // in the angle system in force
constexpr double minPasso = 0.02, maxPasso = 5.0;   // hundreds of sheet units

class TPoniTratteggi : public TParametri {
public:
    void Display() override;
    virtual void inggene();
    void Dialogo() override;
    virtual void Tratt();
    virtual void CambiaTratt();

private:
    elemento lavoro{};   // its hatch fields alone count
};

// Kept: the fields show a hatch only for one selected polyline; for new elements they start empty.
void TPoniTratteggi::Display() {
    lavoro = TrattCorrente;
    if (Puntosel.attiva) {
        lavoro = elemento{};
        lavoro.tipo = tPoligono;
    }
    if (!UnSoloElemento() || Elem(Puntosel.indice).tipo != tPoligono) return;
    lavoro = Elem(Puntosel.indice);
    ScriviCampoReale(campoAngolo, RadToAng(lavoro.poli.angoloTratt, gradCorrente), 4);
    ScriviCampoReale(campoPasso, lavoro.poli.passoTratt, 4);
    SetDialogItemValue(theDialog, spuntaTratteggio, lavoro.poli.tratteggio != 0);
    SetDialogItemValue(theDialog, spuntaIncrociato, lavoro.poli.incrociato != 0);
}

void TPoniTratteggi::inggene() {
    double angolo = 0, passo = 0;
    if (!LeggiCampo(campoAngolo, -maxAngolo, maxAngolo, angolo) || !LeggiCampo(campoPasso, minPasso, maxPasso, passo))
        return;
    lavoro.poli.tratteggio = GetDialogItemValue(theDialog, spuntaTratteggio) != 0;
    lavoro.poli.incrociato = GetDialogItemValue(theDialog, spuntaIncrociato) != 0;
    lavoro.poli.angoloTratt = AngToRad(angolo, gradCorrente);
    lavoro.poli.passoTratt = passo;
}

void TPoniTratteggi::Dialogo() {
    const DialogoAperto aperto(dialogoId);
    Display();
    SelectDialogItemText(theDialog, campoAngolo, 0, 100);
    do {
        ModalDialog(MyMovableFilter, itemCorrente);
        if (quitPending()) break;
        if (itemCorrente == spuntaTratteggio || itemCorrente == spuntaIncrociato) CambiaCheck(itemCorrente);
        if (itemCorrente == campoAngolo) SetDialogItemValue(theDialog, spuntaTratteggio, 1);   // who types it means it
        if (itemCorrente == okItem) inggene();
        OscuraAnnulla();
    } while (!((itemCorrente == okItem || itemCorrente == annullaItem) && esito > 0));
}

void TPoniTratteggi::Tratt() {
    ParamText(Invito(Puntosel.attiva != 0, Puntosel.attiva ? NomeSelezione() : std::string()), NomeAngoli(), "", "");
    Dialogo();
    if (itemCorrente != okItem || quitPending()) return;
    if (Puntosel.attiva) {
        CambiaTratt();
    } else {
        CopiaTratteggio(TrattCorrente, lavoro);
    }
}

void TPoniTratteggi::CambiaTratt() {
    const auto cambia = [this](std::int32_t n) {
        if (Elem(n).tipo != tPoligono) return false;
        CopiaTratteggio(Elem(n), lavoro);
        return true;
    };
    if (!PerSelezionati(cambia)) {
        SysBeep(30);
        return;
    }
    InvalFinestra();
}

}   // namespace

void PoniTratteggi() {
    TPoniTratteggi t;
    t.Poni(1, 2, 0, 0, dialogo);
    t.Tratt();
}

}   // namespace tessaro
