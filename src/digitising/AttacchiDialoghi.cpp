// The dialog of the real coordinates of control points 1 and 2.
#include "dialogs/Parametri.h"
#include "digitising/Attacchi.h"
#include "digitising/RegistrazioneValida.h"
#include "model/Archivio.h"
#include "model/Stato.h"
#include "model/Unita.h"
#include "platform/Quickdraw.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

class TParAttacco : public TParametri {
    enum : std::int16_t { campoX1 = 4, campoY1 = 6, campoX2 = 8, campoY2 = 10, conReali = 17, senzaReali = 18 };

    elemento copia{};   // of record 2, until OK
    std::int16_t radio = senzaReali;

    void Riprendi() override {
        copia = Elem(2);
        radio = copia.att.coordReali ? conReali : senzaReali;
    }

    void ItemColpito() override {
        if (itemCorrente == conReali || itemCorrente == senzaReali) RadioBoxItem(radio);
        if (itemCorrente == campoX1 || itemCorrente == campoY1 || itemCorrente == campoX2
            || itemCorrente == campoY2) {   // who types them means them
            radio = conReali;
            SetDialogItemValue(theDialog, conReali, 1);
            SetDialogItemValue(theDialog, senzaReali, 0);
        }
    }

public:
    void Display() override {
        ScriviCampoReale(campoX1, copia.att.x1, 3);
        ScriviCampoReale(campoY1, copia.att.y1, 3);
        ScriviCampoReale(campoX2, copia.att.x2, 3);
        ScriviCampoReale(campoY2, copia.att.y2, 3);
        SetDialogItemValue(theDialog, conReali, radio == conReali);
        SetDialogItemValue(theDialog, senzaReali, radio == senzaReali);
    }

    void IngGene(std::uint8_t ripristino) override {
        constexpr std::int16_t campi[] = {campoX1, campoY1, campoX2, campoY2};
        esito = 1;
        if (ripristino) return;
        std::array<double, 4> v{};
        for (std::size_t i = 0; i < v.size(); ++i)
            if (!LeggiCampo(campi[i], -limiteReale, limiteReale, v[i])) return;
        copia.att.x1 = v[0];
        copia.att.y1 = v[1];
        copia.att.x2 = v[2];
        copia.att.y2 = v[3];
        copia.att.coordReali = radio == conReali;
        const std::string guasto = GuastoRegistrazione(Elem(1), copia);
        if (guasto.empty()) return;
        RifiutaRegistrazione(guasto);
        esito = 0;
    }

    void Dialogo() override {
        const DialogoAperto aperto(dialogoId);
        Giro(campoX1);
    }

    void Param() {
        Dialogo();
        if (!Accettato()) return;
        PoniReali(copia);
    }
};

}   // namespace

void PoniReali(const elemento& secondo) {
    Elem(2) = secondo;
    if (secondo.att.coordReali) CalcTransfC();
    CalcolaRapporti();
}

void ParAttacco() {
    const PortaCorrente porta;
    TParAttacco d;
    d.Poni(1, 2, 0, 11, 2006);
    d.Param();
}

}   // namespace tessaro
