// Clearing and drawing the drawing area: nobody else does both.
#include "display/Ridisegno.h"

#include "display/Disegno.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Vista.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

void disegna() {
    SetCursor(ClockCursor);
    Disegna();
    SetCursor(arrowCursor);
    ClipRect(myViewRect);
}

}   // namespace

void InvalWind() {
    if (noWindow || !theWindow) return;
    NewDis = 1;
    InvalWindowRect(theWindow, GetPortBounds(theWindow));
}

void InvalFinestra() { InvalWind(); }

void Ridisegna() {
    if (noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    ClipRect(myViewRect);
    EraseRect(myViewRect);
    VeliStantii();
    disegna();
}

void RidisegnaParte(const Region& parte) {
    if (noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    SetClip(parte);
    disegna();
}

namespace {
[[maybe_unused]] const bool agganciato = [] {
    figuraFinita = InvalWind;
    return true;
}();
}   // namespace

}   // namespace tessaro
