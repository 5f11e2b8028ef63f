// The swaps between big-endian files and the processor.
#include "text/EndianConvert.h"

#include <bit>

namespace tessaro {
namespace {

constexpr bool ordineDelDisco = std::endian::native == std::endian::big;

std::uint16_t scambia(std::uint16_t v) { return ordineDelDisco ? v : __builtin_bswap16(v); }
std::uint32_t scambia(std::uint32_t v) { return ordineDelDisco ? v : __builtin_bswap32(v); }
std::uint64_t scambia(std::uint64_t v) { return ordineDelDisco ? v : __builtin_bswap64(v); }
std::int16_t scambia(std::int16_t v) { return std::bit_cast<std::int16_t>(scambia(std::bit_cast<std::uint16_t>(v))); }

}   // namespace

std::int16_t EndiansShort_BtoN(std::int16_t v) { return scambia(v); }
std::int16_t EndiansShort_NtoB(std::int16_t v) { return scambia(v); }
std::int32_t EndiansLong_BtoN(std::int32_t v) {
    return std::bit_cast<std::int32_t>(scambia(std::bit_cast<std::uint32_t>(v)));
}
std::int32_t EndiansLong_NtoB(std::int32_t v) { return EndiansLong_BtoN(v); }

double EndiansDouble_BtoN(double v) { return std::bit_cast<double>(scambia(std::bit_cast<std::uint64_t>(v))); }
double EndiansDouble_NtoB(double v) { return EndiansDouble_BtoN(v); }
float EndiansFloat_BtoN(float v) { return std::bit_cast<float>(scambia(std::bit_cast<std::uint32_t>(v))); }
float EndiansFloat_NtoB(double v) { return EndiansFloat_BtoN(static_cast<float>(v)); }

std::int32_t EndiansFixed_BtoN(std::int32_t v) {
    const auto u = std::bit_cast<std::uint32_t>(v);
    const std::uint32_t alta = scambia(static_cast<std::uint16_t>(u >> 16));
    const std::uint32_t bassa = scambia(static_cast<std::uint16_t>(u));
    return std::bit_cast<std::int32_t>(alta << 16 | bassa);
}
std::int32_t EndiansFixed_NtoB(std::int32_t v) { return EndiansFixed_BtoN(v); }

PointDisco EndiansPoint_BtoN(PointDisco p) { return {scambia(p.v), scambia(p.h)}; }
PointDisco EndiansPoint_NtoB(PointDisco p) { return EndiansPoint_BtoN(p); }
RectDisco EndiansRect_BtoN(RectDisco r) {
    return {scambia(r.top), scambia(r.left), scambia(r.bottom), scambia(r.right)};
}
RectDisco EndiansRect_NtoB(RectDisco r) { return EndiansRect_BtoN(r); }
RGBColor EndiansRGB_BtoN(RGBColor c) { return {scambia(c.red), scambia(c.green), scambia(c.blue)}; }
RGBColor EndiansRGB_NtoB(RGBColor c) { return EndiansRGB_BtoN(c); }

void EndiansBitMapFlip_BtoN(std::int32_t bytes, std::int16_t wordSize, std::uint32_t* data) {
    if (wordSize <= 0) return;
    for (std::int32_t i = 0; i < bytes / wordSize; ++i) data[i] = scambia(data[i]);
}
void EndiansBitMapFlip_NtoB(std::int32_t bytes, std::int16_t wordSize, std::uint32_t* data) {
    EndiansBitMapFlip_BtoN(bytes, wordSize, data);
}

}   // namespace tessaro
