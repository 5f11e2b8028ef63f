// The dialogs that change coordinates and curves.
#pragma once

#include <cstdint>

namespace tessaro {

// A point's coordinates, shown as real ones; x, y in sheet units. True when it was given new ones: the undo of a
// change is armed then. Dialog 141.
bool ModificaCoord(double& x, double& y, double& z);
// Centre and radius of the circle, or also start and sweep of the arc, in record `index`. Dialogs 143 and 144.
bool ModificaCurva(std::int32_t index, bool cerchio);

}   // namespace tessaro
