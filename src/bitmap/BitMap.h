// One-bit bitmaps and what is done to them: bits, logic, mirrors, turns, fills, text images, plotting. A set bit is
// black; within a byte the most significant bit is the leftmost pixel; a row is a whole number of 16-bit words.
#pragma once

#include <cstdint>
#include <memory>

#include "model/Archivio.h"
#include "platform/Fonts.h"
#include "platform/paint/RasterPort.h"
#include "platform/Types.h"

namespace tessaro {

// Header and rows are one block. Bounds begin at (0, 0).
struct BitMap {
    std::uint8_t* baseAddr = nullptr;
    std::int16_t rowBytes = 0;
    Rect bounds;
    [[nodiscard]] std::int32_t larghezza() const { return bounds.right; }
    [[nodiscard]] std::int32_t altezza() const { return bounds.bottom; }
    [[nodiscard]] std::uint8_t* riga(std::int32_t y) const {
        return baseAddr + static_cast<std::ptrdiff_t>(y) * rowBytes;
    }
};

// Creators, here and below, give a new bitmap that the caller releases with KillBitMap, null when memory is short or
// a size is out of 0 to 32767, and leave their arguments alone. A null argument gives null.
BitMap* NewBitMap(std::int16_t w, std::int16_t h);
BitMap* SafeHeightNewBitMap(std::int16_t w, std::int16_t h);   // rows in memory up to the next multiple of 16
BitMap* DuplicateBitMap(const BitMap* b);
void KillBitMap(BitMap* b);   // null is allowed
struct RilasciaBitMap {
    void operator()(BitMap* b) const { KillBitMap(b); }
};
using BitMapPtr = std::unique_ptr<BitMap, RilasciaBitMap>;

// --- bits; places outside the bounds read as clear and cannot be written
bool BitMapTest(const BitMap* b, std::int16_t x, std::int16_t y);
void BitMapSet(BitMap* b, std::int16_t x, std::int16_t y);
void BitMapClear(BitMap* b, std::int16_t x, std::int16_t y);
void BitMapToggle(BitMap* b, std::int16_t x, std::int16_t y);
bool EqualBitMaps(const BitMap* a, const BitMap* b);   // the same bounds and bits

// --- logic, byte by byte; null unless the two bounds are equal
BitMap* BitMapAND(const BitMap* a, const BitMap* b);
BitMap* BitMapOR(const BitMap* a, const BitMap* b);
BitMap* BitMapXOR(const BitMap* a, const BitMap* b);
BitMap* BitMapNOT(const BitMap* b);

// --- shapes
BitMap* FlipVertical(const BitMap* b);     // top and bottom change places
BitMap* FlipHorizontal(const BitMap* b);   // left and right change places
// What paint poured at the point would cover: the clear pixels joined to it by their sides.
BitMap* PaintBucketBitMap(const BitMap* b, std::int16_t x, std::int16_t y);
BitMap* LassoBitMap(const BitMap* b);   // what paint poured round the edge would not reach
BitMap* TraceBitMap(const BitMap* b);   // the pixels diagonal to the set ones, without these

// --- turns
// A row of 16-bit words, most significant first, n bits to the left with carry between words; 0 comes in.
void ShiftLeftWords(void* row, std::int32_t words, std::int16_t n);
BitMap* RotateRight(const BitMap* b);
BitMap* RotateLeft(const BitMap* b);

// Numbers of 16.16 bits, and of 2.30. Products are rounded to the nearest, halves up; what does not fit is held at the
// bound.
using Fixed = std::int32_t;
using Fract = std::int32_t;
Fixed FixRatio(std::int16_t numer, std::int16_t denom);
Fixed FixMul(Fixed a, Fixed b);
std::int32_t FracMul(std::int32_t a, Fract b);   // of the kind of a
std::int16_t FixRound(Fixed x);
Fract FracCos(Fixed radians);
Fract FracSin(Fixed radians);

// Turned clockwise by `gradi` degrees about (cx, cy), in the box of the turned corners; `angolo` gets the box's top
// left, counted from the source's. Each set bit is carried over, so at most angles some pixels between stay clear.
BitMap* RotateBitMap(const BitMap* b, std::int16_t cx, std::int16_t cy, Fixed gradi, Point* angolo);
// The same box, filled by asking the source for each of its pixels.
// Kept: the formula is the forward one, not its inverse, so what appears is the turn the other way round.
BitMap* RotateBitMapDest(const BitMap* b, std::int16_t cx, std::int16_t cy, Fixed gradi, Point* angolo);
// RotateBitMap's turn and box without holes: each pixel of the box is sent back through the inverse.
BitMap* RotateBitMapPiena(const BitMap* b, std::int16_t cx, std::int16_t cy, Fixed gradi, Point* angolo);

// --- text, ports, pictures
using FontInfo = FontMetrics;
// The image of a string (length first), w by ascent + descent; its base line is under the row ascent - 1.
BitMap* StringToBitMap(std::int16_t font, std::int16_t size, std::int16_t face, const unsigned char* s, FontInfo& info,
                       std::int16_t& w);

// Drawing into a bitmap: NewBMP makes a port with the bitmap's pixels the current one, DisposeBMP writes what is dark
// in it back as set bits and makes the port of before current again.
struct BitMapPort {
    RasterPort port;
    GrafPtr prima = nullptr;
    BitMap* bitmap = nullptr;
};
BitMapPort* NewBMP(BitMap* b);
void DisposeBMP(BitMapPort* p);   // null is allowed

// On the current port with its top left at (x, y), in logical pixels. Modes srcCopy, srcOr, 2 (xor) and 3 (clears).
void PlotBitMap(const BitMap* b, std::int32_t x, std::int32_t y, std::int16_t modo);
BitMap* PICTToBitMap(PicHandle picture);   // drawn in its frame's size
PicHandle BitMapToPICT(const BitMap* b);   // 0 when it cannot be recorded

}   // namespace tessaro
