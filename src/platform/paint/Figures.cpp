// The figure operations: each hands its shape and verb to the current port's bottleneck.
#include <utility>

#include "platform/paint/RasterPort.h"
#include "platform/Quickdraw.h"

namespace tessaro {

void FrameRect(const Rect& r) { GetPort()->stdRect(GrafVerb::frame, r, qdBlack); }
void PaintRect(const Rect& r) { GetPort()->stdRect(GrafVerb::paint, r, qdBlack); }
void EraseRect(const Rect& r) { GetPort()->stdRect(GrafVerb::erase, r, qdBlack); }
void InvertRect(const Rect& r) { GetPort()->stdRect(GrafVerb::invert, r, qdBlack); }
void FillRect(const Rect& r, const Pattern& p) { GetPort()->stdRect(GrafVerb::fill, r, p); }

void FrameOval(const Rect& r) { GetPort()->stdOval(GrafVerb::frame, r, qdBlack); }
void PaintOval(const Rect& r) { GetPort()->stdOval(GrafVerb::paint, r, qdBlack); }
void FillOval(const Rect& r, const Pattern& p) { GetPort()->stdOval(GrafVerb::fill, r, p); }

void FrameArc(const Rect& r, std::int32_t start, std::int32_t sweep) {
    GetPort()->stdArc(GrafVerb::frame, r, start, sweep, qdBlack);
}
void PaintArc(const Rect& r, std::int32_t start, std::int32_t sweep) {
    GetPort()->stdArc(GrafVerb::paint, r, start, sweep, qdBlack);
}
void FillArc(const Rect& r, std::int32_t start, std::int32_t sweep, const Pattern& p) {
    GetPort()->stdArc(GrafVerb::fill, r, start, sweep, p);
}

void OpenPoly() {
    GrafPort& port = *GetPort();
    port.poligono.punti.clear();
    port.poligonoAperto = true;
}

Polygon ClosePoly() {
    GrafPort& port = *GetPort();
    port.poligonoAperto = false;
    Polygon recorded = std::move(port.poligono);
    port.poligono = Polygon{};
    return recorded;
}

void FramePoly(const Polygon& p) { GetPort()->stdPoly(GrafVerb::frame, p, qdBlack); }
void PaintPoly(const Polygon& p) { GetPort()->stdPoly(GrafVerb::paint, p, qdBlack); }
void FillPoly(const Polygon& p, const Pattern& pattern) { GetPort()->stdPoly(GrafVerb::fill, p, pattern); }

void OffsetPoly(Polygon& p, std::int32_t dh, std::int32_t dv) {
    for (Point& vertex : p.punti) vertex = Point{avanti(vertex.v, dv), avanti(vertex.h, dh)};
}

void PaintRgn(const Region& r) { GetPort()->stdRgn(GrafVerb::paint, r, qdBlack); }
void EraseRgn(const Region& r) { GetPort()->stdRgn(GrafVerb::erase, r, qdBlack); }

}   // namespace tessaro
