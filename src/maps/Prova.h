// A file of someone else is first walked from end to end by a process of its own: what brings GDAL down, or keeps it for
// ever, takes that process and not the work. Only then is it read here.
#pragma once

#include <cstdint>

#include "platform/Files.h"

namespace tessaro {

enum class Prova : std::uint8_t { vettori, raster, testaRaster };   // all features, all pixels, the place alone

// False when the file must not be read, which was said unless the person stopped it. True for one that GDAL merely refuses:
// the reading says why. Without the program's own file to start, nothing can be tried, and it is true.
bool ProvaFile(const FSSpec& file, Prova che);

// The other process: its first argument says so. Its status tells nothing but that it came to its end.
bool EProva(int argc, char** argv);
int EseguiProva(char** argv);

}   // namespace tessaro
