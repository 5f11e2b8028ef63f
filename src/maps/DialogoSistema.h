// The dialog of the drawing's reference systems.
#pragma once

namespace tessaro {

// Asks for the drawing's system and for the one of the second read-out, and stores them with the drawing. Where PROJ is
// not installed, a message says what to install. Nothing of the drawing moves.
void ParSistema();

}   // namespace tessaro
