// The dialogs of the constraints: the elevation of new points and the steps of the grid.
#include <cmath>

#include "dialogs/Parametri.h"
#include "model/Annulla.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "platform/Quickdraw.h"
#include "text/Conversione.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

void PoniZeta() {
    constexpr std::int16_t dialogo = 2007, ok = 1, annulla = 2, campo = 4;
    constexpr double limite = 100000000;   // the user's unit
    const DialogoAperto aperto(dialogo);
    ScriviCampoReale(campo, ZetaCorrente, 2);
    SelectDialogItemText(theDialog, campo, 0, 100);
    double quota = ZetaCorrente;
    do {
        ModalDialog(MyMovableFilter, Noitem);
    } while (Noitem != annulla && !(Noitem == ok && LeggiCampoReale(campo, -limite, limite, quota)));
    if (Noitem == ok) ZetaCorrente = quota;
}

namespace {

class TDlgGriglia : public TParametri {
    // Items; the fields hold real units.
    enum : std::int16_t { campoX = 4, campoY = 6, campoTerzo = 8 };

    double &passoX, &passoY, &terzo;

    // A value that gives a step that no grid can have: nothing, or no number. Refused as too small.
    bool passo(std::int16_t item, double& p) {
        double valore = 0;
        if (!LeggiCampo(item, -limiteReale, limiteReale, valore)) return false;
        const double nuovo = valore / rappvid;
        if (std::isfinite(nuovo) && nuovo != 0) {
            p = nuovo;
            return true;
        }
        constexpr std::int16_t troppoPiccolo = -2;
        std::uint8_t mostrato = 0;
        Sbaglio(troppoPiccolo, mostrato);
        SelezionaErrore(item, troppoPiccolo, 0);
        esito = troppoPiccolo;
        return false;
    }

public:
    TDlgGriglia(double& x, double& y, double& z) : passoX(x), passoY(y), terzo(z) {}

    void Display() override {
        ScriviCampoReale(campoX, rappvid * passoX, 3);
        ScriviCampoReale(campoY, rappvid * passoY, 3);
        ScriviCampoReale(campoTerzo, terzo, 3);
    }

    void IngGene(std::uint8_t ripristino) override {
        esito = 1;
        if (ripristino) return;
        double x = passoX, y = passoY, z = terzo;
        if (!passo(campoX, x) || !passo(campoY, y) || !LeggiCampo(campoTerzo, -limiteReale, limiteReale, z)) return;
        passoX = x;
        passoY = y;
        terzo = z;
        // The grid is no record: this arms the undo of a change with nothing to bring back.
        daRecuperare = 0;
        PoniAnnulla(aElemento);
    }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        Giro(campoX);
    }
};

}   // namespace

void ModificaGriglia() {
    double terzo = 0;   // the dialog's third value means nothing to the grid
    const PortaCorrente porta;
    TDlgGriglia d(griglia.passoX, griglia.passoY, terzo);
    d.Poni(1, 2, 0, 9, 150);
    d.Dialogo();
}

}   // namespace tessaro
