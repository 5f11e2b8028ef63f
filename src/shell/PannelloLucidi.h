// The panel of the layers: modeless, beside the drawing. A row a layer: number, current, name, seen, locked, elements.
#pragma once

#include <cstdint>

#include "platform/Dialogs.h"

namespace tessaro {

inline constexpr std::int16_t dialogoPannelloLucidi = 9430;

extern DialogPtr pannelloLucidi;   // null while it is closed

void ApriPannelloLucidi();       // an open one comes to the front
void AggiornaPannelloLucidi();   // shows what has changed; called behind what may have changed the drawing
void ChiudiPannelloLucidi();     // nothing when it is closed
void ColpoPannelloLucidi(std::int16_t item);   // its items; 0 is the close box

}   // namespace tessaro
