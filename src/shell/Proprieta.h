// The properties' window: modeless beside the drawing, it shows the fields of what is selected and takes typed values.
#pragma once

#include <cstdint>

#include "platform/Dialogs.h"

namespace tessaro {

inline constexpr std::int16_t dialogoProprieta = 9481;

extern DialogPtr proprietaDialog;   // null while it is closed

void ApriProprieta();     // an open one comes to the front
void ChiudiProprieta();   // nothing happens when it is closed
// Shows what is selected now, when it differs from what the window shows. `forse`: an event has passed that may have
// changed the selection or the drawing; without one only a closed drawing is looked for.
void AggiornaProprieta(bool forse);
void ColpoProprieta(std::int16_t item);   // its items; 0 is the close box

}   // namespace tessaro
