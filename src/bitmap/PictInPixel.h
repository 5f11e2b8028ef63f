// A stored picture as pixels, at its own or any other size, some rows at a time.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "bitmap/Piramide.h"
#include "bitmap/Riduci.h"
#include "platform/paint/RasterPort.h"

namespace tessaro {

// Packed pixels are read where they stand and never unpacked as a whole; a coded image (JPEG) is decoded whole once, 4
// bytes a pixel, 1 when it is grey; figures are played anew for each call, so few calls with many rows serve best.
class PictInPixel {
public:
    explicit PictInPixel(std::string_view pict);   // the bytes must outlive it; nothing is decoded yet
    ~PictInPixel();
    PictInPixel(const PictInPixel&) = delete;
    PictInPixel& operator=(const PictInPixel&) = delete;

    // The pixels that it holds; of a picture of several figures, its frame at 72 to the inch. 0 when it is no picture.
    [[nodiscard]] std::int32_t width() const { return propria.width; }
    [[nodiscard]] std::int32_t height() const { return propria.height; }
    [[nodiscard]] bool soloRaster() const { return piramide.specie() != Piramide::Specie::figure; }

    // The size of the raster that `righe` is about, the whole picture over it; the picture's own at first. A pixel takes
    // the nearest source pixel where the picture grows and the mean of what it covers where it shrinks. False when a side
    // is not between 1 and 2^28.
    bool misura(std::int32_t w, std::int32_t h);
    // Rows y to y + n (not included) of it into out: n * w pixels 0xFFRRGGBB, what the picture leaves open is white. What
    // a row holds does not hang on how the calls are cut; from the top down is fastest. False when the picture cannot be
    // decoded or memory lacks; what could be is there.
    bool righe(std::int32_t y, std::int32_t n, std::uint32_t* out);

private:
    struct Misura {
        std::int32_t width = 0, height = 0;
    };
    bool righePixel(std::int32_t y, std::int32_t n, std::uint32_t* out);
    bool righeFigure(std::int32_t y, std::int32_t n, std::uint32_t* out);
    std::string_view bytes;
    Piramide piramide;
    Misura propria, voluta;
    std::optional<Riduttore> riduttore;
    std::unique_ptr<RasterPort> porto;   // of figures, as many rows as the last call asked for
};

}   // namespace tessaro
