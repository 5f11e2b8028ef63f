// The block of entries behind the told end of a native file (model/Estensioni.h): the mark "TSEX", the length of what
// follows, then each entry as its mark, its length and its bytes, lengths as 32 bits, all big-endian. A drawing without
// entries has no block; readers that know nothing of it stop before it.
#pragma once

#include "dialogs/Errori.h"

namespace tessaro {

void ScriviEstensioni();   // nothing without entries
// From where the told blocks end. Entries of unknown marks are kept; other bytes than the mark there are nobody's and no
// fault. False when the block is cut off or its lengths do not fit, with `g` telling so: entries up to there are in.
bool LeggiEstensioni(Guasto& g);

}   // namespace tessaro
