// A window to the state for who drives the real program from outside.
#pragma once

namespace tessaro {

// When the environment names a file in TESSARO_WATCH, every named global goes there as JSON after each round of the loop that
// changed one, whole or not at all. Without it nothing happens.
void GuardaStato();

}   // namespace tessaro
