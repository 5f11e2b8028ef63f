// The calculator's pick: a click hands it a polyline that exists.
#pragma once

#include "model/Elemento.h"

namespace tessaro {

// A click in the selecting mode while the calculator is open, `point` in sheet units: the topmost polyline with a side
// there is selected and measured. Without one nothing is selected and the measures stay.
void ScegliPercorso(const puntot& point);

}   // namespace tessaro
