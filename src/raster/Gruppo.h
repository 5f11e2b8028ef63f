// What the raster dialogs share: groups of radio items, and the bounds of the resolution.
#pragma once

#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

inline constexpr double minRisoluzione = 49, maxRisoluzione = 999;   // points per inch
inline constexpr std::int16_t menuBit = 9170;                        // 8, 16, 32 bits

// A group of radio items, the first of which is value 1.
struct Gruppo {
    std::int16_t prima, quanti, valore;
    [[nodiscard]] bool ha(std::int16_t item) const { return item >= prima && item < prima + quanti; }
    void mostra() const { SetDialogItemValue(theDialog, static_cast<std::int16_t>(prima + valore - 1), 1); }
    void scegli(std::int16_t item) {
        SetDialogItemValue(theDialog, static_cast<std::int16_t>(prima + valore - 1), 0);
        valore = static_cast<std::int16_t>(item - prima + 1);
        mostra();
    }
};

}   // namespace tessaro
