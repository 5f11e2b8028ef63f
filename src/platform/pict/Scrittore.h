// Building blocks of stored pictures: big-endian bytes, the head, packed rows, and a raster that arrives row by row.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/pict/Bits.h"
#include "platform/Types.h"

namespace tessaro {

inline constexpr std::int32_t maxRowBytes = 0x3FFE;   // of a row in a pixel opcode: two bits are flags, and it is even
inline constexpr std::int32_t maxLato = 32767;

class Scrittore {
public:
    std::string bytes;
    void u8(std::uint32_t v) { bytes.push_back(static_cast<char>(v)); }
    void u16(std::int64_t v) {
        u8(static_cast<std::uint32_t>(v >> 8) & 0xFF);
        u8(static_cast<std::uint32_t>(v) & 0xFF);
    }
    void u32(std::int64_t v) {
        u16(v >> 16);
        u16(v);
    }
    void fixed(double v);
    void punto(const Point& p) {   // coordinates are held to 16 bits
        u16(lato(p.v));
        u16(lato(p.h));
    }
    void rettangolo(const Rect& r) {
        punto(Point{r.top, r.left});
        punto(Point{r.bottom, r.right});
    }
    void colore(const RGBColor& c) {
        u16(c.red);
        u16(c.green);
        u16(c.blue);
    }
    void retino(const Pattern& p) {
        for (const auto riga : p.pat) u8(riga);
    }
    void codice(std::uint16_t op) {   // opcodes begin on even bytes
        pari();
        u16(op);
    }
    void pari() {
        if (bytes.size() % 2 != 0) u8(0);
    }
    // Size (still 0), frame, version, header, clip. `unita`: the space of the coordinates that follow, the frame's own at
    // 72 to the inch.
    void testa(const Rect& frame) { testa(frame, frame, 72, 72); }
    void testa(const Rect& frame, const Rect& unita, double dpiX, double dpiY);
    std::string fine();   // the end opcode; the size is set

private:
    static std::int32_t lato(std::int32_t v) { return v < -32768 ? -32768 : v > maxLato ? maxLato : v; }
};

// PackBits of n bytes onto the end of `a`; of n units of two bytes.
void Impacchetta(const std::uint8_t* da, std::size_t n, std::string& a);
void ImpacchettaDoppi(const std::uint16_t* da, std::size_t n, std::string& a);

// How a raster of any size lies in a picture, whose coordinates have 16 bits: in units of `pixel` pixels.
struct UnitaRaster {
    std::int32_t pixel = 1;
    Rect spazio;   // of the picture's coordinates
};
UnitaRaster UnitaPer(std::int32_t width, std::int32_t height);
// The size that other programs take it for, 72 to the inch, from dots per inch.
Rect FramePer(std::int32_t width, std::int32_t height, double dpiX, double dpiY);

// Where a raster goes: the rectangle of its pixels and their place in the picture. The source may reach beyond the pixels
// that come, to a whole number of picture units.
struct PostoBits {
    Rect src, dst;
    std::int16_t mode = bitsCopia;
};

// Pixels as direct pixel opcodes of 32 or 16 bits, row by row from the top. Wide rasters are cut into vertical strips; of great
// ones a band of rows at a time, so that the packed pixels never stand twice in memory.
class PixelInCorso {
public:
    PixelInCorso(Scrittore& w, std::int32_t width, std::int32_t height, const PostoBits& where,
                 std::int16_t depth = 32);
    void riga(const std::uint32_t* pixel);   // 0xFFRRGGBB; the last row completes it

private:
    void chiudiFascia();
    void testaPezzo(const Rect& pezzo);
    // One piece needs no waiting: its rows go straight behind the head.
    [[nodiscard]] bool diFila() const { return strisce == 1 && perFascia >= alto; }
    void rigaLarga(const std::uint32_t* pixel, std::size_t w, std::string& a);
    void rigaStretta(const std::uint32_t* pixel, std::size_t w, std::string& a);
    Scrittore& s;
    std::int32_t largo, alto, strisce, perStriscia, perFascia;
    bool sedici;
    std::int32_t y = 0, inizioFascia = 0;
    PostoBits posto;
    std::vector<std::string> pacchi;   // packed rows of each strip of the band
    std::vector<std::uint8_t> piani;
    std::vector<std::uint16_t> doppi;
};

// Indices of `depth` 1 or 8 bits (a byte each) with their colours.
void ScriviIndici(Scrittore& s, const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t width,
                  std::int32_t height, std::int16_t depth, const PostoBits& where);

}   // namespace tessaro
