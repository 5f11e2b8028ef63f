// Typed points: a dialog gives real coordinates, they become XDigit, YDigit, ZDigit with IntroDigitale raised, and the
// tool is called as a click would call it.
#pragma once

#include <cstdint>

namespace tessaro {

void IngressoMarker();                  // dialog 2024, then FaiMarker
void IngressoVertici();                 // dialog 2023: a vertex by coordinates, absolute or from the last point
void IngressoPolare();                  // dialog 148: a vertex by direction and distance from the last point
void IngressoAttacco(std::int16_t n);   // dialog 2024: control point 1 to 5
// Control point 1 to 5 at a typed position, sheet units, with the elevation of the cursor. False where it does not come to lie
// there, off the sheet or where it would spoil the registration: alert 1014 or 9151 has said so.
bool AttaccoDigitato(std::int16_t n, double x, double y);

extern std::uint8_t inserimentoRelativo;   // typed points are offsets, 1

}   // namespace tessaro
