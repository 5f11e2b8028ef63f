// The pixel data of a stored picture: headers of bit maps, indexed and direct pixel maps, and their packed rows.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/pict/Lettore.h"

namespace tessaro {

// Transfer modes of stored bits that mean more than a plain copy.
enum : std::int16_t { bitsCopia = 0, bitsOr = 1, bitsBic = 3, bitsTrasparente = 36 };

struct BitsTesta {
    bool pixmap = false;       // false: a bit map of 1 bit, drawn in the colours of the moment
    bool diretto = false;      // 16 or 32 bits a pixel, no colour table
    bool imballato = false;    // rows are packed; each has its own byte count in front
    bool contoLungo = false;   // of two bytes, else one
    std::int32_t rowBytes = 0;
    Rect bounds;
    std::int16_t packType = 0;
    std::int16_t pixelSize = 1;
    std::int16_t cmpCount = 1;
    double hRes = 72, vRes = 72;
    std::array<std::uint32_t, 256> tavola{};   // colours as 0xFFRRGGBB
    Rect src, dst;
    std::int16_t mode = bitsCopia;
    std::string_view maschera;   // region data of the forms that carry one
    [[nodiscard]] std::int32_t larghezza() const { return bounds.right - bounds.left; }
    [[nodiscard]] std::int32_t altezza() const { return bounds.bottom - bounds.top; }
};

inline std::uint32_t pixelDi(const RGBColor& c) {
    return 0xFF000000U | (static_cast<std::uint32_t>(c.red >> 8) << 16)
           | (static_cast<std::uint32_t>(c.green >> 8) << 8) | static_cast<std::uint32_t>(c.blue >> 8);
}
inline RGBColor coloreDi(std::uint32_t pixel) {
    const auto c = [](std::uint32_t v) { return static_cast<std::uint16_t>((v & 0xFF) * 257); };
    return RGBColor{c(pixel >> 16), c(pixel >> 8), c(pixel)};
}

inline bool OpcodeBits(std::uint16_t op) { return op == 0x90 || op == 0x91 || (op >= 0x98 && op <= 0x9B); }

// The header behind one of the six bits opcodes, up to the first row. False when it makes no sense.
bool LeggiBitsTesta(Lettore& l, std::uint16_t op, BitsTesta& t);
// A pixel map from its rowBytes on, with its colour table when it is indexed (pixel patterns have no rectangles).
bool LeggiPixMap(Lettore& l, bool bitmapAmmessa, BitsTesta& t);

// The next row's bytes, packed as they are. False at the end of the data.
bool ProssimaRiga(Lettore& l, const BitsTesta& t, std::string_view& riga);

// Rows to pixels. Keeps its scratch memory between rows.
class DecodificaRighe {
public:
    explicit DecodificaRighe(const BitsTesta& t);
    // Writes larghezza() pixels; what the row does not tell is left at index 0 or black.
    void riga(std::string_view dati, std::uint32_t* pixel);

private:
    void indici(const std::uint8_t* da, std::uint32_t* pixel) const;
    void diretti(const std::uint8_t* da, std::uint32_t* pixel) const;
    const BitsTesta& testa;
    std::size_t utili;   // bytes of an unpacked row
    std::vector<std::uint8_t> banco;
};

// Pixels that the transfer mode leaves alone get alpha 0. `sfondo` is the background of the moment.
void ApplicaModo(std::int16_t mode, std::uint32_t sfondo, std::uint32_t* pixel, std::size_t n);
inline bool ModoTrasparente(std::int16_t mode) {
    const int base = mode & ~64;   // the dither bit means nothing here
    return base == bitsOr || base == bitsBic || base == bitsTrasparente || base == 2;
}

// Region data: 16-bit size, box, then rows of inversion points. Falls back to the box when it is too fine to be kept.
bool LeggiRegione(std::string_view dati, std::vector<Rect>& parti);

}   // namespace tessaro
