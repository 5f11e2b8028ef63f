// What a person prefers of the view and of snapping. Whoever asks for preferences writes here; every part reads them when it
// needs them, so a change shows with the next move of the pointer or the next repaint.
#pragma once

#include <cstdint>

#include "platform/Types.h"

namespace tessaro {

extern std::uint8_t rotellaIngrandisce;   // the plain wheel zooms and Ctrl with it scrolls; 0: the other way round

// How far from the pointer a point attracts the cursor, pixels.
inline constexpr std::int16_t distanzaAggancioMinima = 1, distanzaAggancioMassima = 50;
extern std::int16_t distanzaAggancio;   // 10

// What a point is that attracts the cursor. Of the kinds that lie in reach the told ones, the first three, go before the
// others.
enum TipoAggancio : std::uint8_t {
    agNessuno,
    agEstremo,    // an end of a segment
    agVertice,    // a vertex of a polyline
    agMarker,     // a marker
    agCentro,     // the centre of a circle or an arc
    agIncrocio,   // where two sides cross
    agMezzo,      // the middle of a side
    agPiede,      // the foot of the perpendicular from the figure's last point on a side
    numAgganci,
};
constexpr std::uint8_t BitAggancio(TipoAggancio t) { return static_cast<std::uint8_t>(1U << (t - 1)); }
// The kinds that attract, one bit each, while the cursor attaches to points at all (statoCursore.attaccoPunto). At start
// those that always did: ends, vertices and markers.
extern std::uint8_t agganciAttivi;

// Lines and curves of the drawing are drawn with the share of each pixel that they cover: on the screen alone, 0.
extern std::uint8_t lineeMorbide;

extern RGBColor coloreEvidenza;   // of what is selected, and of its grips; never black

}   // namespace tessaro
