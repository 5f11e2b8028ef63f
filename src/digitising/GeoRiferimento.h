// A quick registration by one real point: the sheet's lower left corner takes it, the scale stays.
#pragma once
#include <cstdint>
namespace tessaro {
// With dialog 135, or (grafico) with the point XFVisual, YFVisual and no dialog.
void ParGeoRefer(std::uint8_t grafico);

extern double XFVisual, YFVisual;   // real position of a sheet move

}   // namespace tessaro
