// The dialog of the import's choices.
#include "dialogs/Parametri.h"
#include "dwg/DbDumper.h"
#include "platform/Events.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 9150;
constexpr std::int16_t spuntaPiani = 5, spuntaArchi = 6, spuntaCurve = 7, campoTolleranza = 4;
constexpr double minTolleranza = 1e-6, maxTolleranza = 1e6;   // real units

class TScelteImporta : public TParametri {
public:
    TScelteImporta() { Poni(1, 2, 0, 0, dialogo); }
    void esegui() {
        const DialogoAperto aperto(dialogoId);
        Giro(campoTolleranza);
    }
    void Display() override {
        SetDialogItemValue(theDialog, spuntaPiani, scelteImporta.piani);
        SetDialogItemValue(theDialog, spuntaArchi, scelteImporta.archi);
        SetDialogItemValue(theDialog, spuntaCurve, scelteImporta.curve);
        ScriviCampoReale(campoTolleranza, scelteImporta.tolleranza, 6);
    }
    void IngGene(std::uint8_t) override {
        double tolleranza = 0;
        if (!LeggiCampo(campoTolleranza, minTolleranza, maxTolleranza, tolleranza)) return;
        const auto spunta = [](std::int16_t item) {
            return static_cast<std::uint8_t>(GetDialogItemValue(theDialog, item) != 0);
        };
        scelteImporta = {spunta(spuntaPiani), spunta(spuntaArchi), spunta(spuntaCurve), tolleranza};
    }

protected:
    void ItemColpito() override {
        if (itemCorrente >= spuntaPiani && itemCorrente <= spuntaCurve) CambiaCheck(itemCorrente);
    }
};

}   // namespace

void SceglieImportaDWG() { TScelteImporta().esegui(); }

}   // namespace tessaro
