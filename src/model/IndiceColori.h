// The published index of 256 colours by which exchange files name them, and the way back.
#pragma once

#include <array>
#include <cstdint>

namespace tessaro {

struct TernaColore {
    std::uint8_t r = 0, g = 0, b = 0;
};

// Colour of an index, 0 to 255; 0 (by block) and any other number are black. Index 7 is white here: programs draw it in
// whatever stands out from their ground.
TernaColore ColoreDiIndice(std::int16_t indice);
// The index, 1 to 255, whose colour lies nearest; the lowest of several. Black is 7, as the ink of every ground.
std::int16_t IndiceVicino(std::uint8_t r, std::uint8_t g, std::uint8_t b);

}   // namespace tessaro
