// The two pens of the construction tools.
#pragma once
namespace tessaro {
void PennaElastico();     // black xor in the current pattern: the rubber band's
void PennaDefinitiva();   // copy in the current colour: a finished figure's
}   // namespace tessaro
