// Big-endian values of files as native ones and back. Either direction is the same swap on a little-endian processor
// and nothing on a big-endian one.
#pragma once

#include <cstdint>

#include "platform/Types.h"

namespace tessaro {

// Points and rectangles as files hold them.
struct PointDisco {
    std::int16_t v = 0, h = 0;
    friend bool operator==(const PointDisco&, const PointDisco&) = default;
};
struct RectDisco {
    std::int16_t top = 0, left = 0, bottom = 0, right = 0;
    friend bool operator==(const RectDisco&, const RectDisco&) = default;
};

// B is the order of files, big-endian; N that of the processor.
std::int16_t EndiansShort_BtoN(std::int16_t v);
std::int16_t EndiansShort_NtoB(std::int16_t v);
std::int32_t EndiansLong_BtoN(std::int32_t v);
std::int32_t EndiansLong_NtoB(std::int32_t v);

// Byte by byte: a NaN keeps its own.
double EndiansDouble_BtoN(double v);
double EndiansDouble_NtoB(double v);
float EndiansFloat_BtoN(float v);
float EndiansFloat_NtoB(double v);   // narrowed first
// Kept: a 16.16 Fixed is two 16-bit fields to files; each half is swapped in its place.
std::int32_t EndiansFixed_BtoN(std::int32_t v);
std::int32_t EndiansFixed_NtoB(std::int32_t v);
PointDisco EndiansPoint_BtoN(PointDisco p);
PointDisco EndiansPoint_NtoB(PointDisco p);
RectDisco EndiansRect_BtoN(RectDisco r);
RectDisco EndiansRect_NtoB(RectDisco r);
RGBColor EndiansRGB_BtoN(RGBColor c);
RGBColor EndiansRGB_NtoB(RGBColor c);
// bytes / wordSize words of 32 bits in place; wordSize is 4.
void EndiansBitMapFlip_BtoN(std::int32_t bytes, std::int16_t wordSize, std::uint32_t* data);
void EndiansBitMapFlip_NtoB(std::int32_t bytes, std::int16_t wordSize, std::uint32_t* data);

}   // namespace tessaro
