// The buffer of the writers.
#include "dwg/kit/OdFileBuf.h"

#include <algorithm>

namespace tessaro {

void OdWrFileBuf::flush() {
    constexpr std::size_t pezzo = std::size_t{1} << 30;   // what one call takes
    if (refNum == 0) return;
    for (std::size_t da = 0; errore == noErr && da < byte.size();) {
        auto n = static_cast<std::int32_t>(std::min(byte.size() - da, pezzo));
        errore = FSWrite(refNum, n, byte.data() + da);
        da += static_cast<std::size_t>(n);
        if (errore == noErr && n <= 0) errore = ioErr;
    }
    byte.clear();
}

}   // namespace tessaro
