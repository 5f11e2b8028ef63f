// The points that the selected element offers to control points, for source and destination alike.
#pragma once

#include <array>
#include <cstdint>

#include "model/Registrazione.h"

namespace tessaro {

struct PuntiSelezione {
    bool presi = false;    // one element is selected and is of a kind with points: it speaks for the cursor
    bool figura = false;   // they are a segment's or a polyline's: the drawing is repainted
    std::int32_t numero = 0;
    std::array<Coppia, 4> punti{};   // sheet units; for point n, n + 1, ...
};

// For point n (1 to 5) and those behind it. A polyline fills up to point 4, a segment's second end up to point 5.
PuntiSelezione PuntiPerAttacco(std::int16_t n);

// For all points at once, from a segment or a polyline: nothing without a selection, a beep for anything else.
PuntiSelezione PuntiPerTutti();

}   // namespace tessaro
