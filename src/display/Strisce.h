// The scan of a large drawing in bands, on as many threads as the machine has.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::int32_t sogliaStrisce;   // records from which on a repaint is shared out, 20000

// Draws the records like Scandisci, with the same pixels. False, and nothing is drawn, when that is not worth it or cannot
// be done: a small drawing, one thread, a port that is no raster, the live transformation's preview, many pictures or
// hatches in view, no memory for the lists.
bool ScandisciAStrisce();

}   // namespace tessaro
