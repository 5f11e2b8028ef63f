// The cursor: where it is, where the tablet's origin lies, and its shapes by resource number.
#pragma once

#include <array>
#include <cstdint>

#include "platform/Types.h"

namespace tessaro {

extern double xcurs, ycurs, zcurs;      // cursor, sheet units; 1000, 1000, 0
extern Point EventPoint;                // this click, window-local
extern std::uint8_t TabAbilit;          // tablet reading is on
extern std::uint8_t RifTablet;          // 1: the tablet's origin is the sheet's; 0: it follows the view
extern std::int16_t XtabFin, YtabFin;   // tablet origin, sheet units

// Cursors by resource number
enum : std::int16_t {
    ClockCursor = 4,
    CroceCursor = 2,
    DigitaCursor = 128,
    spostaCursor = 10,
    Sposta1Cursor = 129,
    Sposta2Cursor = 130,
    AttaccaCursor = 131,
    AttaccaCursorZ = 132,
    SpFoglioCursor = 133,
    manoCursor = 9401,   // a hand that holds the sheet
};
inline constexpr std::array<std::int16_t, 5> origineCursor{134, 135, 136, 137, 138};
inline constexpr std::array<std::int16_t, 5> destinazioneCursor{140, 141, 142, 143, 144};

}   // namespace tessaro
