// Zooming, scrolling and the window's layout.
#pragma once

#include <cstdint>

#include "display/Ridisegno.h"
#include "model/Elemento.h"
#include "model/Selezione.h"
#include "platform/Events.h"
#include "platform/Types.h"
#include "platform/Windows.h"

namespace tessaro {

// 1 sheet, 2..6 fixed, 7 double, 8 half, 9 window, 10 extents with the sheet, 11 extents of what is drawn. 7 and 8 hold the
// view's centre.
void FaiZoom(std::int16_t kind);
// 7 or 8; what lies under the pointer stays there, when that is over the view.
void ZoomAlPuntatore(std::int16_t kind);
// The scale times f, and what lies under the pixel stays there; outside the view its centre does. Nothing is repainted.
void ZoomAttorno(double f, Point fermo);
void ZoomFinestra();   // kind 9: the rectangle that is dragged out; one without a size is ignored
void ZoomRilievo();    // kind 10: sheet and everything on visible layers
void ZoomDisegno();    // kind 11: what is drawn and shown, without the sheet; the sheet when nothing is
// The view onto a rectangle of the sheet with a margin round it, no nearer than MaxScalavid. Nothing is repainted.
void VediArea(double xmin, double ymin, double xmax, double ymax);
// The box of the shown records from `da` to `a`, sheet units; false when none of them reaches anywhere.
bool EstremiDisegno(std::int32_t da, std::int32_t a, RettSel& out);
// The box of sheet and visible elements, sheet units. Nothing to span: width and height -1, and error 4 is shown.
void ContrMaxMin(double& xmax, double& ymax, double& xmin, double& ymin, double& width, double& height);
bool SelRect(Rect& out);   // rubber rectangle while the button is held, normalised; false when given up
void ScrollBits();         // from the scroll bars' values to the view
void ScrollWindow(std::int32_t dh, std::int32_t dv);   // moves the view by pixels, right and down
void TrackScroll(bool vertical, std::int16_t part);    // 20, 21 line up, down; 22, 23 page up, down
void TabletSegueVista();                               // the tablet's origin goes with the view when it is tied to it
// The view goes with the pointer by (dh, dv) pixels, beside the sheet too.
void SpingiVista(std::int32_t dh, std::int32_t dv);
void TrascinaVista();   // the middle button is down: the view follows the pointer until it is released
// The wheel: `axis` 0 down, 1 across; `delta` notches of 40 pixels, above 0 back to the top or left. Option takes ten
// times as many, Command zooms about the pointer; with rotellaIngrandisce Command scrolls and the plain wheel zooms.
void DoMouseWheelMoved(std::uint16_t modifiers, std::int16_t axis, std::int16_t delta);
void Pizzica(double fattore);   // two fingers of a touch pad: the scale times fattore, about the pointer
inline constexpr std::int32_t passoRiga = 15;                 // pixels of a scroll by a line
void MoveScrollBars();                                        // to their places in the window of the moment
void ReSizeWindow(std::int32_t width, std::int32_t height);   // the window has this size now, pixels
void AggiornaBarre();                                         // maxima from scalavid and sheet, values from PageCorner
void DisponiVista();                                          // myViewRect from the port's bounds
// scalavid and the tolerances. Held to 1e-12..20000, where scroll positions stay within 32 bits; a scale that is no
// number or not above 0 (a view without room) changes nothing.
void CambiaScala(double nuova);
extern Rect Screen;     // the desktop, pixels
extern Rect DragRect;   // where a window may be dragged
extern Rect GrowRect;   // how far it may grow
void SetupLimits();     // sets the three

extern std::uint8_t NewDis;                     // a full repaint is wanted at the next update
extern ControlHandle VScroll, HScroll, panel;   // scroll bars and the strip of the read-out; null without a drawing

}   // namespace tessaro
