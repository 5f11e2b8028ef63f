// Hatching: parallel lines inside a polyline, worked out from its vertices at each repaint.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

extern std::uint8_t UscitaTratt;   // a hatch has been given up for want of memory, 0

void Hatch_Poligon(std::int32_t index);     // the hatch of the polyline at `index`, with the pen of the moment
void ESCITRATTEGGIO();                      // alert 3012; hatches are hidden from then on
void TratteggiaNuovo(std::int32_t testa);   // a head just stored takes the hatch of new ones, TrattCorrente
void CopiaTratteggio(elemento& a, const elemento& da);   // the hatch fields of two heads

extern elemento TrattCorrente;   // hatch template: type 7, hatch fields zero

}   // namespace tessaro
