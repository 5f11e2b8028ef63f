// The dialog of the two factors.
#include "raster/ScalaImmagine.h"

#include <string>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "display/Zoom.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Events.h"
#include "platform/Quickdraw.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogoScala = 154;

std::string numero(double v, std::int16_t decimali) {
    PStr255 s;
    RToStr(v, decimali, s);
    return s.str();
}

class TScalaImmagine : public TParametri {
    enum : std::int16_t { campoX = 4, campoY = 6 };
    double fattoreX = 1, fattoreY = 1;
    double misuraX = 0, misuraY = 0;   // of the picture, in the user's unit

public:
    explicit TScalaImmagine(const elemento& e)
        : misuraX(Scaladis * e.pict.larghezza / decimiUnita), misuraY(Scaladis * e.pict.altezza / decimiUnita) {}

    void Poni(std::int16_t ok, std::int16_t annulla, std::int16_t salva, std::int16_t ripristina,
              std::int16_t dialogo) override {
        TParametri::Poni(ok, annulla, salva, ripristina, dialogo);
        fattoreX = scalaImmagineX;
        fattoreY = scalaImmagineY;
    }

    void Display() override {
        ScriviCampoReale(campoX, fattoreX, 3);
        ScriviCampoReale(campoY, fattoreY, 3);
    }

    void IngGene(std::uint8_t ripristino) override {
        // A factor of 0 or below would leave a picture that can neither be seen nor scaled back.
        constexpr double minimo = 0.000001, massimo = 2000000;
        esito = 1;
        if (ripristino) return;
        if (!LeggiCampo(campoX, minimo, massimo, fattoreX) || !LeggiCampo(campoY, minimo, massimo, fattoreY)) return;
        scalaImmagineX = fattoreX;
        scalaImmagineY = fattoreY;
    }

    void Dialogo() override {
        ParamText(numero(misuraX, 2), numero(misuraY, 2), "", "");
        const DialogoAperto aperto(dialogoId);
        Giro(campoX);
    }
};

}   // namespace

void ScalaImmagine() {
    constexpr std::int16_t troppi = 34, nonImmagine = 35;   // error numbers
    if (!Puntosel.attiva) return SysBeep(30);
    if (Puntosel.multipla) return ErroreAlert(troppi);
    const std::int32_t n = Puntosel.indice;
    if (n < 3 || n > indElem || Elem(n).tipo != tPict) return ErroreAlert(nonImmagine);
    const GrafPtr prima = GetPort();
    TScalaImmagine d(Elem(n));
    d.Poni(1, 2, 0, 0, dialogoScala);
    d.Dialogo();
    SetPort(prima);
    if (!d.Accettato()) return;
    auto& p = Elem(n).pict;
    p.larghezza = p.larghezza * scalaImmagineX;
    p.altezza = p.altezza * scalaImmagineY;
    numElementoScalato = n;
    PoniAnnulla(aScalaPict);
    InvalFinestra();
}

}   // namespace tessaro
