// The point that attracts the cursor: looked for at each move of the pointer, to be marked, and taken by a click.
#pragma once

#include <cstdint>

#include "model/PreferenzeVista.h"
#include "model/Vincoli.h"

namespace tessaro {

// The point that a click at (x, y), sheet units, would take while the cursor attaches to points: within distanzaAggancio pixels
// along each axis. Ends, vertices and markers first, the earliest record's; then, on shown layers, the nearest of centres,
// crossings and middles, then the foot of the perpendicular from (Xini, Yini) while a figure is in progress. Of kinds that are
// switched on in agganciAttivi. agNessuno when there is none. The grid's raw position counts while the grid is on. One scan of
// the records, two where kinds of the second group are on.
Aggancio CercaAggancio(double x, double y);
// agganciato for the cursor of the moment: empty in the modes whose clicks attach to nothing, and with `fuori`.
void AggiornaAggancio(bool fuori);

}   // namespace tessaro
