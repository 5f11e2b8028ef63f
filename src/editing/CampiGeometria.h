// Places and measures of one element in real coordinates, to be read and set. For the fields of the selection.
#pragma once

#include <cstdint>

#include "editing/CampiSelezione.h"
#include "model/Elemento.h"

namespace tessaro {

// Has an element of that type the field? Of a polyline only when it is selected alone, `sola`: its places are a vertex's.
bool HaGeometria(Campo c, std::uint8_t tipo, bool sola);
// Can it be typed there? Lengths and areas that follow from many points cannot.
bool GeometriaScrivibile(Campo c, std::uint8_t tipo);
double LeggiGeometria(Campo c, std::int32_t n, std::int32_t vertice);
// False when the element would get a place or a size that is not finite; it is then as it was.
bool PoniGeometria(Campo c, std::int32_t n, std::int32_t vertice, double valore);

}   // namespace tessaro
