// The window of control points 1 to 5: modeless, beside the registration report. Its cells are typed in place, each as the dialog
// that asks for the same would take it; it follows the points, whoever changes them.
#pragma once

#include <cstdint>

#include "platform/Dialogs.h"

namespace tessaro {

inline constexpr std::int16_t dialogoAttacchi = 9600;

extern DialogPtr attacchiDialog;   // null while it is closed

void ApriAttacchi();       // an open one comes to the front
void AggiornaAttacchi();   // shows what has changed; costs next to nothing when nothing did, or when it is closed
void ChiudiAttacchi();     // nothing when it is closed
void ColpoAttacchi(std::int16_t item);   // its items; 0 is the close box

}   // namespace tessaro
