// Deleting the selection, and bringing it before or behind everything else: both part the record array in two.
#pragma once

#include <cstdint>

namespace tessaro {

// Takes the selection out; the rest closes up.
void CancellaSelezione();
// The selection goes to the end of the drawing order (avanti) or to its beginning.
void AvantiEIndietroSelezione(bool avanti);
// A polyline in progress goes on behind the last record: it ends before others are added or change their places.
void ConcludiFigura();

}   // namespace tessaro
