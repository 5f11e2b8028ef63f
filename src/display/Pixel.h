// From sheet units to whole pixels of the current port, and the drawing in doubles of what whole pixels cannot hold.
// A coordinate that fits goes to the port as it is; one that does not is clipped first, so nothing wraps at any zoom.
#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "display/Disegno.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"

namespace tessaro {

struct PuntoD {   // a pixel unbounded
    double h = 0, v = 0;
};
struct RettD {
    double left = 0, top = 0, right = 0, bottom = 0;
};

// Pixels beyond this are not given to a port: stored pictures hold 16 bits, rasters must not overflow.
inline std::int64_t LimitePixel() { return DisegnaPict && !StoStampando ? 30000 : std::int64_t{1} << 28; }

// The nearest whole number, half away from zero.
inline std::int64_t PixelVicino(double t) {
    constexpr double quasiMezzo = 0.49999999999999994;   // with 0.5 itself the value just below a half would round up
    return static_cast<std::int64_t>(t + std::copysign(quasiMezzo, t));
}
// round(scalavid * sheet) - orig, half away from zero. False when it is no number or passes the limit.
inline bool PixelIntero(double foglio, std::int32_t orig, std::int32_t& out) {
    const double t = scalavid * foglio;
    if (!(std::fabs(t) < 4e15)) return false;
    const std::int64_t p = PixelVicino(t) - orig;
    out = static_cast<std::int32_t>(p);
    const std::int64_t limite = LimitePixel();
    return p > -limite && p < limite;
}
inline bool PuntoIntero(double x, double y, Point& p) {
    return PixelIntero(x, OrigX, p.h) && PixelIntero(y, OrigY, p.v);
}
// The nearest whole pixel that a port takes: for edges of upright rectangles, which may be held at the limit.
std::int32_t PixelTenuto(double p);

// The part of the current port that can be drawn on: its clip within its extent.
Rect AreaDisegnabile();
// While one lives, the area of the calling thread is this one, whatever part of it the current port holds: figures come
// out the same in every band of a repaint.
class AreaIntera {
public:
    explicit AreaIntera(const Rect& area);
    ~AreaIntera();
    AreaIntera(const AreaIntera&) = delete;
    AreaIntera& operator=(const AreaIntera&) = delete;
};

// MoveTo and LineTo of the part of a-b within the limit; nothing when it is no number or lies outside.
void LineaD(PuntoD a, PuntoD b);
// The same from sheet units, each end moved by -spess in both axes.
void LineaFoglio(double x1, double y1, double x2, double y2);
// Cuts a figure to the limit, closing it along the cut, and rounds it.
void TagliaPoligono(const std::vector<PuntoD>& punti, Polygon& out);
// Points of the arc from angle a0 to a1 (radians, 0 straight up, clockwise), fine where it can be seen and coarse
// where it cannot; a0's own point included. Centre and radius in pixels.
void PuntiArco(PuntoD centro, double raggio, double a0, double a1, std::vector<PuntoD>& out);

// A pattern moved so that it stays with the sheet when the view scrolls: a scrolled strip meets its neighbour, and an
// xor figure drawn before a scroll is taken off after it. Pictures and paper take it as it is.
Pattern PatternVista(const Pattern& p);

}   // namespace tessaro
