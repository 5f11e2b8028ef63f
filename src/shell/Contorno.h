// The outline of what a move carries, framed in xor while the pointer moves.
#pragma once

#include "platform/Types.h"
namespace tessaro {
void FaiContorno();      // records PolySel from the selection
void MostraContorno();   // frames it once: a second time removes it
void SpostaContorno();   // takes it to the cursor's pixel

extern Point PosBaseSpost;   // pixel of the move's outline

}   // namespace tessaro
