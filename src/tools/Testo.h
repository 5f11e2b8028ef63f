// The text tool.
#pragma once

#include <cstdint>

#include "text/PascalString.h"

namespace tessaro {

// A text at the cursor in the current font, size, style and colour; `angolo` as records hold it.
void FaiTesto(const PStr255& testo, std::int16_t angolo);

}   // namespace tessaro
