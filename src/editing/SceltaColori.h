// The colour table's dialog, and its settings file at start.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::int16_t IndiceColore, OldIndiceColore;   // colour on show in the dialog, and the one before; 1-based

void SceltaColori(std::uint8_t silent);   // dialog 3000; 1: loads "ParamColor" and applies it, without a dialog

}   // namespace tessaro
