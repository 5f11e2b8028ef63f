// Deleting the selection, and bringing it before or behind everything else: both part the record array in two.
#pragma once

#include <cstdint>

namespace tessaro {

// Takes the selection out; the rest closes up.
void CancellaSelezione();
// The selection goes to the end of the drawing order (avanti) or to its beginning.
void AvantiEIndietroSelezione(bool avanti);

}   // namespace tessaro
