// Clearing and drawing the drawing area: nobody else does both.
#include "display/Ridisegno.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "dialogs/Parametri.h"
#include "display/Disegno.h"
#include "display/Interruzione.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

// One that lasts shows a bar and can be stopped: what is painted by then stays, and the next repaint begins anew.
void disegna() {
    const Termometro termometro(LavoroLungo::disegna, ProgressKind::repaint);
    const DisegnoSeguito seguito;
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

namespace {

constinit bool dopoZoom = false;   // the screen shows a scaled picture, and the true one is to follow

RasterPort& portaFinestra() { return static_cast<RasterPort&>(*GetWindowPort(theWindow)); }

std::vector<std::uint32_t> pixelDi(const RasterPort& p) {
    return {p.pixels(), p.pixels() + p.rowPixels() * p.deviceHeight()};
}

// Paints, and puts back what stood there when a step of the wheel comes first.
void disegnaSeNonGira() {
    RasterPort& porta = portaFinestra();
    const std::vector<std::uint32_t> prima = pixelDi(porta);
    const DisegnoInterrompibile guardia;
    EraseRect(myViewRect);
    disegna();
    if (!RotellaAspetta()) {
        dopoZoom = false;
        return;
    }
    std::copy(prima.begin(), prima.end(), porta.pixels());
    porta.touch(myViewRect);
    InvalWind();
}

}   // namespace

void AnteprimaZoom(double scalaPrima, std::int32_t origXPrima, std::int32_t origYPrima) {
    if (noWindow || !theWindow || indElem < sogliaAnteprimaZoom) return;
    SetPortWindowPort(theWindow);
    RasterPort& porta = portaFinestra();
    const std::vector<std::uint32_t> prima = pixelDi(porta);
    const double f = scalavid / scalaPrima;
    constexpr double lontano = 1e6;   // pixels
    const auto nuovo = [&](std::int32_t pixel, std::int32_t origPrima, std::int32_t orig) {
        return (pixel + static_cast<double>(origPrima)) * f - orig;
    };
    const double sinistra = nuovo(myViewRect.left, origXPrima, OrigX), alto = nuovo(myViewRect.top, origYPrima, OrigY),
                 destra = nuovo(myViewRect.right, origXPrima, OrigX),
                 basso = nuovo(myViewRect.bottom, origYPrima, OrigY);
    if (!(std::max({std::fabs(sinistra), std::fabs(alto), std::fabs(destra), std::fabs(basso)}) < lontano)) return;
    const auto intero = [](double v) { return static_cast<std::int32_t>(std::lround(v)); };
    const std::int32_t r = porta.ratio;
    ClipRect(myViewRect);
    EraseRect(myViewRect);
    CopyBits({prima.data(), porta.rowPixels(), Rect{0, 0, porta.deviceHeight(), porta.deviceWidth()}},
             SetRect(myViewRect.left * r, myViewRect.top * r, myViewRect.right * r, myViewRect.bottom * r),
             SetRect(intero(sinistra), intero(alto), intero(destra), intero(basso)));
    VeliStantii();
    dopoZoom = true;
    FlushWindow(theWindow);
}

void Ridisegna() {
    if (noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    ClipRect(myViewRect);
    VeliStantii();
    if (dopoZoom) return disegnaSeNonGira();
    EraseRect(myViewRect);
    disegna();
}

void RidisegnaParte(const Region& parte) {
    if (noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    SetClip(parte);
    disegna();
}

constinit std::int32_t sogliaAnteprimaZoom = 20000;

namespace {
const VoceStato righe[] = {
    voce<sogliaAnteprimaZoom>("sogliaAnteprimaZoom"),
    {"dopoZoom", [] { dopoZoom = false; }},
};
const TabellaStato tabella(righe);

[[maybe_unused]] const bool agganciato = [] {
    figuraFinita = InvalWind;
    return true;
}();
}   // namespace

}   // namespace tessaro
