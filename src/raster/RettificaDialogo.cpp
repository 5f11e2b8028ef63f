// The options of a rectification: resolution, depth, transfer, cut, plain or perspective.
#include <cmath>

#include "dialogs/Parametri.h"
#include "raster/Gruppo.h"
#include "raster/raster.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 139, ok = 1, annulla = 2, campoRisoluzione = 4, menuColori = 7;

class TRisoluzione : public TParametri {
public:
    explicit TRisoluzione(bool conPoligono) : tagliare(conPoligono) { Poni(ok, annulla, 0, 0, dialogo); }
    bool Chiedi(double& res);

private:
    void ItemColpito() override;
    void IngGene(std::uint8_t) override { LeggiCampo(campoRisoluzione, minRisoluzione, maxRisoluzione, letta); }
    void Display() override;

    bool tagliare;
    double letta = 0;
    std::int16_t colori = numeroColori;
    Gruppo gruppi[3]{{8, 3, tipoPitc}, {11, 2, tipoTaglio}, {16, 2, tipoTrasformazione}};
};

void TRisoluzione::Display() {
    SetDialogItemMenu(theDialog, menuColori, menuBit);
    ScriviCampoReale(campoRisoluzione, letta, 0);
    SetDialogItemValue(theDialog, menuColori, colori);
    for (const Gruppo& g : gruppi) g.mostra();
    for (std::int16_t i = 0; i < gruppi[1].quanti; ++i)
        HiliteDialogItem(theDialog, static_cast<std::int16_t>(gruppi[1].prima + i), tagliare ? 0 : 255);
}

void TRisoluzione::ItemColpito() {
    if (itemCorrente == menuColori) PopUp(menuColori, menuBit, 0, 1, colori);
    for (Gruppo& g : gruppi)
        if (g.ha(itemCorrente)) g.scegli(itemCorrente);
}

bool TRisoluzione::Chiedi(double& res) {
    letta = res;
    {
        const DialogoAperto aperto(dialogo);
        Giro(campoRisoluzione);
    }
    if (!Accettato() || quitPending()) return false;
    res = letta;
    tipoPitc = gruppi[0].valore;
    tipoTaglio = gruppi[1].valore;
    tipoTrasformazione = gruppi[2].valore;
    numeroColori = colori;
    bitColore = BitDi(colori);
    return true;
}

}   // namespace

bool ScegliRisoluzione(double& res, std::uint8_t conPoligono) { return TRisoluzione(conPoligono != 0).Chiedi(res); }

}   // namespace tessaro
