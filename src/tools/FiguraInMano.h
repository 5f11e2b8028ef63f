// What the person does to the figure in progress as a whole: ends it, closes it, throws it away.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

// Ends the figure, or the calculator's path, where its last point is, as a double click does; a lone first point and a
// curve's open stage are given up. Nothing without one.
void TerminaFigura();

// A polyline in progress with at least two sides, whose end is the last record: it can be closed.
bool PuoChiudere();
// Ends it with a side back to its first point, elevation included; one that ends there already is only ended.
void ChiudiPolilinea();
// Is p (sheet units) on the first point of a polyline that can be closed? Within diffCerca on either axis.
bool SulPrimoPunto(const puntot& p);

// Throws away the figure with all sides stored so far; an Undo brings them back. Nothing without one.
void AbbandonaFigura();

}   // namespace tessaro
