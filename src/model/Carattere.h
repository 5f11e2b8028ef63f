// The character that new texts take.
#pragma once

#include <cstdint>

#include "text/PascalString.h"

namespace tessaro {

struct TxStyle {
    std::int16_t face = 0, riservato = 0, dimensione = 9;
};
extern PStr255 gFontName;        // family name
extern std::int16_t gFontID;     // its number
extern std::int16_t gFontSize;   // points, 9
extern TxStyle gTxStyle;
extern std::int16_t TheOldFontIt;   // ticked font item, 1
extern std::int16_t TheOldDimFIt;   // ticked size item, 2

}   // namespace tessaro
