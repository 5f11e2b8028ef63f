// Deleting the selection, and bringing it before or behind everything else: both part the record array in two.
#pragma once

#include <cstdint>

namespace tessaro {

// Takes the selection out. The records stay parked behind indElem, in their old order up to AnnullaIndElem, where the
// undo finds them; without room for that they are gone for good and annullamento stays 0.
void CancellaSelezione();
// The selection goes to the end of the drawing order (avanti) or to its beginning; no undo.
void AvantiEIndietroSelezione(bool avanti);

}   // namespace tessaro
