// The smooth form of a rotation, and the frame that both forms share.
#pragma once

#include <cstdint>
#include <string>

#include "raster/pictrot.h"

namespace tessaro {

class LavoroRaster;

// The frame of the turned raster, its corner counted from the source's.
struct CorniceGiro {
    std::int32_t ox = 0, oy = 0, larghezza = 0, altezza = 0;
};

// The picture drawn on w by h pixels and turned into the frame. Empty when it was stopped, or behind alert 128.
std::string RotazioneMorbida(const tPictRot& p, std::int16_t bit, const CorniceGiro& q, std::int64_t w, std::int64_t h,
                             LavoroRaster& lavoro);

}   // namespace tessaro
