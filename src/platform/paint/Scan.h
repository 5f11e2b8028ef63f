// The raster port's room for scanning polygons, kept from one polygon to the next so that a repaint allocates nothing.
#pragma once

#include <vector>

#include "platform/paint/Device.h"

namespace tessaro {

// A side during the scan. In row y0 + i the first pixel whose middle is not left of the side, with dx and dy from its
// upper to its lower end, is x0 + ceil(((2i + 1) dx - dy) / 2dy).
struct Fianco {
    std::int32_t top, bottom;   // visible rows, half-open
    std::int64_t x0;
    Gradini offset;
    [[nodiscard]] std::int64_t x() const { return x0 + offset.value(); }
};

struct RasterPort::Scansione {
    std::vector<Fianco> sides;    // by their first visible row
    std::vector<Fianco> active;   // those of the row in hand, by x
};

}   // namespace tessaro
