// Turned text on a raster: the glyphs' coverage is turned, not their pixels, so that it reads as horizontal text does.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/paint/RasterPort.h"

namespace tessaro {

// The turn clockwise on the screen.
struct VersoTesto {
    double coseno = 1, seno = 0;
};

// One line in the port's text state and colour, its base line beginning at `ancora` (logical pixels).
void DisegnaGirato(RasterPort& port, std::string_view macRoman, Point ancora, VersoTesto verso);

}   // namespace tessaro
