// Tags: the 13 characters that an element carries beside its geometry, and their defaults by type.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

// Dialog 130 for the tag of the selected elements of a type, or of new ones.
void PoniAREF(std::int16_t tipo);
// The tag of the selected elements of exactly that type; a beep when there is none.
void CambiaAREF(std::int16_t tipo, const Aref& testo);

}   // namespace tessaro
