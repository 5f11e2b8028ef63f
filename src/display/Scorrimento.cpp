// The view moves over the drawing: scroll bars, wheel, two fingers, the middle button.
#include <algorithm>

#include "display/Disposizione.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/PreferenzeVista.h"
#include "model/Stato.h"
#include "model/Vista.h"
#include "platform/Events.h"

namespace tessaro {

namespace {

// The view's corner to `nuovo`: the pixels move, and what is uncovered is drawn.
void portaAngolo(const AngoloPagina& nuovo) {
    const std::int32_t dh = PageCorner.h - nuovo.h, dv = PageCorner.v - nuovo.v;
    if (dh == 0 && dv == 0) return;
    AggiornaVeli();   // ScorriVeli moves what they show
    PageCorner = nuovo;
    SetPortWindowPort(theWindow);
    ClipRect(myViewRect);
    const Region scoperta = ScrollRect(myViewRect, dh, dv);
    OrigX -= dh;
    OrigY -= dv;
    TabletSegueVista();
    ScorriVeli(dh, dv);
    if (!(KeyModifiers() & cmdKey)) RidisegnaParte(scoperta);   // held: pixels only move, for speed
    ClipRect(GetPortBounds(theWindow));
}

constexpr std::int32_t limiteAngolo = 1000000000;   // of scroll positions, pixels

}   // namespace

void TabletSegueVista() {
    if (RifTablet) return;
    XtabFin = arrotonda16(OrigX / scalavid);
    YtabFin = arrotonda16(OrigY / scalavid);
}

void ScrollBits() {
    if (noWindow || !VScroll || !HScroll) return;
    portaAngolo({GetControlValue(VScroll), GetControlValue(HScroll)});
}

void SpingiVista(std::int32_t dh, std::int32_t dv) {
    if (noWindow || !theWindow || !VScroll || !HScroll) return;
    const auto entro = [](std::int32_t v) { return std::clamp(v, -limiteAngolo, limiteAngolo); };
    portaAngolo({entro(PageCorner.v - dv), entro(PageCorner.h - dh)});
    AggiornaBarre();
}

void TrascinaVista() {
    if (noWindow || !theWindow) return;
    const std::int16_t cursore = CurrentCursor();
    SetCursor(manoCursor);
    Point da = GetMouse(), p = da;
    while (TrackMouseLocation(p)) {
        SpingiVista(p.h - da.h, p.v - da.v);
        da = p;
    }
    SpingiVista(p.h - da.h, p.v - da.v);
    ClipRect(myViewRect);
    SetCursor(cursore);
}

void ScrollWindow(std::int32_t dh, std::int32_t dv) {
    if (noWindow || !VScroll || !HScroll) return;
    SetControlValue(HScroll, GetControlValue(HScroll) + dh);
    SetControlValue(VScroll, GetControlValue(VScroll) + dv);
    ScrollBits();
}

void TrackScroll(bool vertical, std::int16_t part) {
    const bool pagina = part == 22 || part == 23;
    const std::int32_t vista = vertical ? myViewRect.bottom - myViewRect.top : myViewRect.right - myViewRect.left;
    const std::int32_t passo = pagina ? vista : passoRiga;
    const std::int32_t d = part == 20 || part == 22 ? -passo : passo;
    ScrollWindow(vertical ? 0 : d, vertical ? d : 0);
}

namespace {

void ingrandisci(double f) {
    ZoomAttorno(f, GetMouse());
    InvalFinestra();
}

}   // namespace

void Pizzica(double fattore) {
    constexpr double massimo = 8;   // of one event
    if (noWindow || !(fattore > 1 / massimo) || !(fattore < massimo)) return;
    ingrandisci(fattore);
}

void DoMouseWheelMoved(std::uint16_t modifiers, std::int16_t axis, std::int16_t delta) {
    if (noWindow) return;
    if (((modifiers & cmdKey) != 0) != (rotellaIngrandisce != 0)) {
        ingrandisci(delta >= 1 ? 1 + delta * 0.2 : 1 / (1 - 0.2 * delta));
        return;
    }
    constexpr std::int32_t scatto = 40;   // pixels
    const std::int32_t n = delta * scatto * (modifiers & optionKey ? 10 : 1);
    if (axis == 0) {
        ScrollWindow(0, -n);
    } else {
        ScrollWindow(-n, 0);
    }
    ClipRect(myViewRect);
}

}   // namespace tessaro
