// The blocks behind the elements of a native file: view filter, colours, units and sheet, live transformation, meshes.
#pragma once

#include <cstdint>

#include "dialogs/Errori.h"

namespace tessaro {

void ScriviBlocchi();   // all of the present version, to RefNum
// Those that the version has. What is missing or out of bounds ends the reading, and all from there on keeps its
// present value; false then, with `g` telling why.
bool LeggiBlocchi(std::int16_t versione, Guasto& g);

extern double DataUltima;   // reserved double of the files, kept as read, 0

}   // namespace tessaro
