// What every object of the drawing database has: handles, record ids, colours, line weights.
#pragma once

#include <cstdint>

namespace tessaro {

using OdDbHandle = std::uint64_t;   // 0: none yet

// A record of one of the database's tables, or a block: its place in that table, from 1; 0 is none.
struct OdDbObjectId {
    std::uint32_t n = 0;
    [[nodiscard]] bool isNull() const { return n == 0; }
    friend bool operator==(OdDbObjectId a, OdDbObjectId b) = default;
};

struct OdCmColor {
    enum Metodo : std::uint8_t { byLayer, byBlock, byACI, byColor };
    Metodo metodo = byLayer;
    std::uint8_t red = 0, green = 0, blue = 0;   // byColor; else what stands here means nothing
    std::int16_t indice = 256;   // byACI: 1 to 255. byColor: the nearest one, for formats without true colour

    // 0 is by block, 256 by layer; a layer that is off has its index negative in the file, positive here.
    void setColorIndex(std::int16_t i) {
        metodo = i == 0 ? byBlock : i == 256 ? byLayer : byACI;
        indice = i;
    }
    void setRGB(std::uint8_t r, std::uint8_t g, std::uint8_t b);   // and the nearest index
    friend bool operator==(const OdCmColor& a, const OdCmColor& b) = default;
};

// Line weights are hundredths of a millimetre: 0, 5, 9, 13, ... 211, or one of these.
enum : std::int16_t { kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3 };

}   // namespace tessaro
