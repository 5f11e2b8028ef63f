// The stored-picture format, PICT version 1 and 2: a reader that drives the current port, and a port that records.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Quickdraw.h"

namespace tessaro {

// What a picture's replay met.
struct EsitoPict {
    bool rotta = false;    // no picture, or its bytes break off or make no sense: its frame was crossed out
    bool finita = false;   // the end opcode was met
    // Asked before each opcode with the part of the bytes that was played; the first false ends the replay, and is no fault.
    bool (*avanti)(double parte) = nullptr;
    bool fermata = false;
};
// Replays the picture into dst of the current port. False when something in it cannot be decoded; what could be was drawn,
// and the place of the rest is crossed out. Every length is checked: any bytes end, without growth beyond their own claims.
bool DrawPicture(std::string_view bytes, const Rect& dst, EsitoPict* esito = nullptr);
// Its size in points of 1/72 inch, by its own resolution where that is finer than the whole points of its frame.
bool PictPunti(std::string_view bytes, double& larghi, double& alti);
// The frame as stored, and the resolution of the coordinates within it, 72 unless the picture tells its own.
bool PictFrame(std::string_view bytes, Rect& frame, double& dpiX, double& dpiY);

// True when the picture is one raster over its whole frame (compressed image, packed or direct pixels): then it can be
// decoded to pixels at once instead of being replayed.
struct PictRaster {
    bool jpeg = false;
    std::string_view data;   // jpeg: the compressed bytes inside the picture
};
bool PictSoloRaster(std::string_view bytes, PictRaster& out);

// Records what is drawn on the current port until ClosePicture, in version 2. `frame` is in pixels of `dpi` to the inch;
// other programs take its size from that.
void OpenPicture(const Rect& frame, double dpi = 72);
std::string ClosePicture();   // empty when nothing was open or it grew beyond 2^31 bytes

// Writers of whole rasters of any size; a JPEG's sides are at most 65535. Empty when that cannot be written.
std::string PictDaPixel(const std::uint32_t* pixels, std::int32_t width, std::int32_t height);
std::string PictDaIndici(const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t width,
                         std::int32_t height, std::int16_t depth, double dpiX = 72, double dpiY = 72);
std::string PictDaJpeg(std::string_view jpeg, std::int32_t width, std::int32_t height, double dpiX, double dpiY);

}   // namespace tessaro
