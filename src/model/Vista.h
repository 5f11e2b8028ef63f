// The view's numbers and the chain from sheet units to pixels. A pure scale and an offset: no rotation, no flip.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Types.h"

namespace tessaro {

extern double scalavid;             // pixels per sheet unit
extern std::int32_t OrigX, OrigY;   // pixel offset of the view; -32 and -hToolbar (0 before the window is laid out)
struct AngoloPagina {
    std::int32_t v = 0, h = 0;
};
extern AngoloPagina PageCorner;              // scroll position; OrigX = h - 32, OrigY = v - hToolbar
extern Rect myViewRect;                      // drawing area, window pixels
extern double diffCerca;                     // grab tolerance: 5 pixels in sheet units
extern double DiffSelez;                     // pick tolerance: 4 pixels in sheet units
extern double ScalaTesto;                    // scalavid x DecPunto: pixels per typographic point
inline constexpr double MaxScalavid = 3.0;   // the automatic zooms stop here

// Kept: 16 bits that wrap, as every caller that keeps whole positions expects.
std::int16_t XVid(const double& x);
std::int16_t YVid(const double& y);
// The same pixel unbounded, for what is clipped before it is drawn. NaN gives a place far outside.
double XVidD(const double& x);
double YVidD(const double& y);
// Pixel to sheet units despite its name; z is not touched.
void VidToReal(Point p, puntot& out);
void AggiornaTolleranze();   // diffCerca, DiffSelez, ScalaTesto from scalavid

}   // namespace tessaro
