// The move by typed values.
#include "dialogs/Parametri.h"
#include "editing/Sposta.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "platform/Quickdraw.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

constexpr std::int16_t dialogo = 1035, ok = 1, annulla = 2, campoX = 4, campoY = 6, campoZ = 8;

// A delta has no place of its own: it is what the chain makes of it, counted from the image of (0, 0).
void mostraDelta() {
    double x = 0, y = 0, x0 = 0, y0 = 0;
    DigiToReal(XDeltaSpost, YDeltaSpost, x, y);
    DigiToReal(0, 0, x0, y0);
    ScriviCampoReale(campoX, x - x0, 3);
    ScriviCampoReale(campoY, y - y0, 3);
    ScriviCampoReale(campoZ, ZDeltaSpost, 3);
}

bool leggiDelta() {
    double x = 0, y = 0, z = 0, x0 = 0, y0 = 0;
    for (const auto& [campo, valore] : {std::pair{campoX, &x}, {campoY, &y}, {campoZ, &z}})
        if (!LeggiCampoReale(campo, -limiteReale, limiteReale, *valore)) return false;
    DigiToReal(0, 0, x0, y0);
    RealToDigi(x0 + x, y0 + y, XDeltaSpost, YDeltaSpost);
    ZDeltaSpost = z;
    return true;
}

// The deltas of a move; false when they were not given.
bool chiediDelta() {
    const PortaCorrente porta;
    const DialogoAperto aperto(dialogo);
    mostraDelta();
    SelectDialogItemText(theDialog, campoX, 0, 100);
    do { ModalDialog(MyMovableFilter, Noitem); } while (Noitem != annulla && !(Noitem == ok && leggiDelta()));
    return Noitem == ok;
}

}   // namespace

void Sposta() {
    if (chiediDelta()) SpostaSelezione();
}

}   // namespace tessaro
