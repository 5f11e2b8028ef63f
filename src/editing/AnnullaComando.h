// Undo and Redo: a step of the journal back or forward, with all that shows it made afresh.
#pragma once

#include <cstdint>

namespace tessaro {

inline constexpr std::int16_t voceAnnulla = 1, voceRipeti = 19;   // of menu 3

void AnnullaUltima();   // with nothing to take back, nothing
void RipetiUltima();
// The two items name the command whose step they take, and `annullamento` is the kind of the one that Undo takes.
void AggiornaVociAnnulla();

}   // namespace tessaro
