// Images in the codings of the old movie toolbox that stored pictures hold and that present-day readers do not know.
#pragma once

#include "platform/pict/Compressa.h"

namespace tessaro {

// Plain rows ('raw '), 4 by 4 blocks of few colours ('rpza', 'smc '), of vectors ('cvid') and runs ('rle ', from 1 bit a
// pixel on), one frame each. False for any other
// coding, a depth that it does not have, or bytes that give no pixel. What the bytes leave open is white.
bool DecodificaAntica(const ImmagineCompressa& c, Immagine& out);

}   // namespace tessaro
