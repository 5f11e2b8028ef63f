// Whether a file says what was meant: the database that was written against the one read back.
#pragma once

#include <cstdint>
#include <string>

#include "dwg/kit/OdDbDatabase.h"

namespace tessaro {

struct Differenze {
    std::int64_t quante = 0;
    std::string prima;   // the first one as a sentence, UTF-8
};
// Model space entity by entity, in order: class, layer, colour, line type, line weight, geometry to 1e-9 of its size,
// text; of what the file's version can hold. Nothing is written of what stands in either.
Differenze ConfrontaDatabase(const OdDbDatabase& inteso, const OdDbDatabase& riletto, std::int16_t versione);

}   // namespace tessaro
