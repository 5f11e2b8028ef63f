// What must hold of a drawing whatever was read into it.
#pragma once

#include <cstdint>
#include <cstdlib>

#include "model/Archivio.h"

namespace tessaro {

// The vertices that a head counts are there.
inline void controllaRecord() {
    if (indElem > maxElementi) std::abort();
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        if (e.lucido < 0 || e.lucido > 99 || e.tipo == tVertice) std::abort();
        if (e.tipo != tPoligono) continue;
        const std::int32_t fine = i + e.poli.numVertici;
        if (fine < i || fine > indElem) std::abort();
        while (i < fine)
            if (Elem(++i).tipo != tVertice) std::abort();
    }
}

}   // namespace tessaro
