// The registration report's window: modeless, beside the drawing, in step with the points while they move.
#pragma once

#include <cstdint>

#include "platform/Dialogs.h"

namespace tessaro {

inline constexpr std::int16_t dialogoRapporto = 9102;

extern DialogPtr rapportoDialog;   // null while it is closed

void ApriRapporto();       // an open one comes to the front
void AggiornaRapporto();   // shows what has changed; costs next to nothing when nothing did, or when it is closed
void ChiudiRapporto();     // nothing when it is closed
void ColpoRapporto(std::int16_t item);   // its items; 0 is the close box

}   // namespace tessaro
