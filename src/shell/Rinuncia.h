// Escape in the drawing.
#pragma once

namespace tessaro {

// Gives up the innermost thing that is in progress, and nothing beside it: the calculator's path, the figure (sides that are
// stored stay), a half-done move, the tool or pointed control point, and last the selection. False when there was none.
bool Rinuncia();

}   // namespace tessaro
