// What the person does to the figure in progress as a whole: ends it, closes it, throws it away.
#pragma once

#include "model/Figura.h"

namespace tessaro {

// Ends the figure, or the calculator's path, where its last point is, as a double click does; a lone first point and a
// curve's open stage are given up. Nothing without one.
void TerminaFigura();

// Ends it with a side back to its first point, elevation included; one that ends there already is only ended.
void ChiudiPolilinea();

// Throws away the figure with all sides stored so far; an Undo brings them back. Nothing without one.
void AbbandonaFigura();

}   // namespace tessaro
