// The box of a text record on the screen: 0.7 of its height above the base line and 0.3 below.
#pragma once

#include <array>
#include <cstdint>

#include "display/Pixel.h"
#include "model/Elemento.h"

namespace tessaro {

// The stored numbers 0, 100, 200, 300 and -100 are upright whatever angle system is in force.
bool TestoLibero(std::int16_t angolo);
// Upright: the box as it lies. Free: the box before its turn about the anchor.
RettD RiquadroTesto(const elemento& e);
// The turn of a free text, radians, counterclockwise on the screen.
double GiroTesto(std::int16_t angolo);
// The four corners as they lie on the screen.
std::array<PuntoD, 4> AngoliTesto(const elemento& e);

}   // namespace tessaro
