// Zooming, scrolling and the window's layout.
#pragma once

#include <cstdint>

#include "display/Ridisegno.h"
#include "model/Elemento.h"
#include "platform/Events.h"
#include "platform/Types.h"
#include "platform/Windows.h"

namespace tessaro {

void FaiZoom(std::int16_t kind);   // 1 sheet 2..6 fixed 7 double 8 half 9 window 10 extents
void ZoomFinestra();               // kind 9: the rectangle that is dragged out; one without a size is ignored
void ZoomRilievo();                // kind 10: sheet and everything on visible layers
// The box of sheet and visible elements, sheet units. Nothing to span: width and height -1, and error 4 is shown.
void ContrMaxMin(double& xmax, double& ymax, double& xmin, double& ymin, double& width, double& height);
bool SelRect(Rect& out);   // rubber rectangle while the button is held, normalised; false when given up
void ScrollBits();         // from the scroll bars' values to the view
void ScrollWindow(std::int32_t dh, std::int32_t dv);   // moves the view by pixels, right and down
void TrackScroll(bool vertical, std::int16_t part);    // 20, 21 line up, down; 22, 23 page up, down
// The wheel: `axis` 0 down, 1 across; `delta` notches of 40 pixels, above 0 back to the top or left. Option takes ten
// times as many, Command zooms.
void DoMouseWheelMoved(std::uint16_t modifiers, std::int16_t axis, std::int16_t delta);
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
