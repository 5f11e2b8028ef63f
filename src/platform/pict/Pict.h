// The stored-picture format, PICT version 1 and 2: a reader that drives the current port, and a port that records.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Quickdraw.h"

namespace tessaro {

// Replays the picture into dst of the current port. False when it cannot be decoded; what could be was drawn.
// Every length is checked: any bytes end, without growth beyond their own claims.
bool DrawPicture(std::string_view bytes, const Rect& dst);
bool PictFrame(std::string_view bytes, Rect& frame, double& dpiX, double& dpiY);

// True when the picture is one raster over its whole frame (compressed image, packed or direct pixels): then it can be
// decoded to pixels at once instead of being replayed.
struct PictRaster {
    bool jpeg = false;
    std::string_view data;   // jpeg: the compressed bytes inside the picture
};
bool PictSoloRaster(std::string_view bytes, PictRaster& out);

// Records what is drawn on the current port until ClosePicture, in version 2.
void OpenPicture(const Rect& frame);
std::string ClosePicture();   // empty when nothing was open or it grew beyond 2^31 bytes

// Writers of whole rasters, used by imports and by the recorder.
std::string PictDaPixel(const std::uint32_t* pixels, std::int32_t width, std::int32_t height);
std::string PictDaIndici(const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t width,
                         std::int32_t height, std::int16_t depth);
std::string PictDaJpeg(std::string_view jpeg, std::int32_t width, std::int32_t height, double dpiX, double dpiY);

}   // namespace tessaro
