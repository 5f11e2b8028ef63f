// A raster that arrives row by row becomes a stored picture: of any size, in 8, 16 or 32 bits, its frame apart from its
// pixels.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/pict/Scrittore.h"

namespace tessaro {

struct FormaPict {
    Rect frame{};                    // at 72 to the inch: the size that other programs take it for
    double dpiX = 72, dpiY = 72;     // without a frame: the pixels' own resolution, which makes one
    std::int16_t mode = bitsCopia;   // transfer of the pixels: bitsCopia, bitsOr, bitsTrasparente
    std::int16_t depth = 32;   // 8: up to 256 colours as they are, else the nearest of 256 even ones; 16: 5 bits each
};

// Opcodes of a picture have 16-bit coordinates. A raster with a side beyond them is written in units of several pixels,
// so that memory alone limits its size. Throws std::bad_alloc when memory lacks.
class PictDaRighe {
public:
    PictDaRighe(std::int32_t width, std::int32_t height, const FormaPict& forma);
    void riga(const std::uint32_t* pixels);   // from the top, 0xFFRRGGBB; rows beyond the height are passed over
    // The picture's bytes. Rows that did not come are white. Empty when a side is below 1, or the bytes pass 2^31.
    std::string fine();

private:
    void rigaIndici(const std::uint32_t* pixels);
    void passaAEguali();
    std::int32_t largo, alto, y = 0;
    FormaPict forma;
    PostoBits posto;
    Scrittore scrittore;
    std::unique_ptr<PixelInCorso> corso;
    std::vector<std::uint8_t> indici;   // of depth 8
    std::vector<RGBColor> colori;
    std::unordered_map<std::uint32_t, std::uint8_t> numeri;
    bool eguali = false;   // more than 256 colours: the even ones
};

// The number of the nearest of 256 colours: a cube of 6 by 6 by 6, and greys.
std::uint8_t ColoreEguale(std::uint32_t pixel);
const std::vector<RGBColor>& ColoriEguali();

}   // namespace tessaro
