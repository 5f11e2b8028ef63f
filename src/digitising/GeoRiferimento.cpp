// The sheet's corner and a point 10 centimetres to its right become control points 1 and 2.
#include "digitising/GeoRiferimento.h"

#include "dialogs/Parametri.h"
#include "digitising/RegistrazioneValida.h"
#include "display/Ridisegno.h"
#include "editing/AttacchiCambiati.h"
#include "model/Archivio.h"
#include "model/Stato.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Quickdraw.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

constinit double XFVisual = 0;
constinit double YFVisual = 0;

namespace {

constexpr double dieciCentimetri = 1000;   // sheet units

class TParGeoRefer : public TParametri {
    enum : std::int16_t { campoX = 4, campoY = 6, conReali = 12, senzaReali = 13 };

    elemento copia = Elem(2);   // until OK
    std::int16_t radio = copia.att.coordReali ? conReali : senzaReali;

    void ItemColpito() override {
        if (itemCorrente == conReali || itemCorrente == senzaReali) RadioBoxItem(radio);
        if (itemCorrente == campoX || itemCorrente == campoY) {   // who types them means them
            radio = conReali;
            SetDialogItemValue(theDialog, conReali, 1);
            SetDialogItemValue(theDialog, senzaReali, 0);
        }
    }

    void poniPunti(double X, double Y, bool reali) {
        copia.att.coordReali = reali;
        copia.att.x1 = X;
        copia.att.y1 = Y;
        copia.att.x2 = X + dieciCentimetri / decimiUnita * Scaladis;
        copia.att.y2 = Y;
    }

    // The points that Param will give the sheet, with these real ones.
    [[nodiscard]] bool buona() const {
        elemento primo = Elem(1);
        primo.att.x1 = 0;
        primo.att.x2 = dieciCentimetri;
        primo.att.y1 = primo.att.y2 = piede();
        const std::string guasto = GuastoRegistrazione(primo, copia);
        if (!guasto.empty()) RifiutaRegistrazione(guasto);
        return guasto.empty();
    }
    static double piede() { return 100 * yfoglio; }   // the sheet's foot

public:
    void Display() override {
        ScriviCampoReale(campoX, copia.att.x1, 3);
        ScriviCampoReale(campoY, copia.att.y1, 3);
        SetDialogItemValue(theDialog, conReali, radio == conReali);
        SetDialogItemValue(theDialog, senzaReali, radio == senzaReali);
    }

    void IngGene(std::uint8_t ripristino) override {
        esito = 1;
        if (ripristino) return;
        double X = 0, Y = 0;
        if (LeggiCampo(campoX, -limiteReale, limiteReale, X) && LeggiCampo(campoY, -limiteReale, limiteReale, Y))
            poniPunti(X, Y, radio == conReali);
        if (esito <= 0 || buona()) return;
        esito = 0;
    }

    void ingModoGrafico() { poniPunti(XFVisual, YFVisual, true); }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        HiliteDialogItem(theDialog, ripristinaItem, 255);
        Giro(campoX);
    }

    void Param(bool grafico) {
        if (grafico) {
            ingModoGrafico();
            if (!buona()) return;
        } else {
            Dialogo();
            if (!Accettato()) return;
        }
        Elem(2) = copia;
        AssegnaAttacco(1, 0, piede());
        AssegnaAttacco(2, dieciCentimetri, piede());
        AttacchiCambiati();
        CalcolaRapporti();
    }
};

}   // namespace

void ParGeoRefer(std::uint8_t grafico) {
    const PortaCorrente porta;
    TParGeoRefer d;
    d.Poni(1, 2, 0, 7, 135);
    d.Param(grafico != 0);
}

namespace {
const VoceStato righe[] = {
    voce<XFVisual>("XFVisual"),
    voce<YFVisual>("YFVisual"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
