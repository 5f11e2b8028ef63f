// The outline of what a move carries between its two clicks.
#pragma once

namespace tessaro {

void FaiContorno();   // records PolySel from the selection, where it stands, in pixels of the current port
void DisegnaContorno();   // in xor on the current port, taken along from XSpost1, YSpost1 to the cursor; nothing without a move

}   // namespace tessaro
