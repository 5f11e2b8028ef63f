// Curves to polylines and polylines to segments: what is made stands beside what it was made of.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::int16_t NumLatiPoligono;   // sides of a polygon made from a curve, 3 to 100, 24; kept between uses

void TrasformaPoligSel();      // Edit item 14: the selected circles and arcs
void TrasformaSegmentiSel();   // Edit item 15: the selected polylines
bool NumeroLatiPol();          // asks for NumLatiPoligono; true on OK. Dialog 136
// The record's index counts from 0 here.
void TrasformaPoligono(std::int32_t zeroBasedIndex);
void ConvertiInSegmenti(std::int32_t zeroBasedIndex);

}   // namespace tessaro
