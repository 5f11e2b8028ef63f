// The one fork of the program: a job's rows, or a repaint's bands, shared out among threads.
#pragma once

#include <cstdint>
#include <functional>

namespace tessaro {

extern std::int32_t filiRaster;   // threads of a raster job; 0, the default: as the machine has, 16 at most
std::int32_t Fili();              // how many that are, 1 or more

// Calls fn(from, to, thread) over bands of rows that together are 0 to n (not included), each on a thread of its own, and
// returns when all are done. Rows must be those of the RESULT wherever a later source pixel overwrites an earlier one.
// fn makes no call of the toolbox and throws nothing.
void perRighe(std::int32_t n, const std::function<void(std::int32_t, std::int32_t, std::int32_t)>& fn);

}   // namespace tessaro
