// Transformed copies of the selection by the live transformation.
#pragma once

#include <cstdint>

namespace tessaro {

void Aggiungi();                             // on a layer that is asked for
std::int16_t PoniLucidoCopie();              // dialog 138: the layer, 0 to 99; negative to stop
void AggiungiElemento(std::int16_t layer);   // the element at Puntosel.indice, onto a layer 0 to 99
void AggiungiMultipla(std::int16_t layer);   // every selected element, in record order; none when they do not all fit

}   // namespace tessaro
