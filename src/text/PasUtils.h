// Small helpers beside the strings: joining, numbers as text, bits, keys, and lines of standard streams.
#pragma once

#include <cstdint>
#include <cstdio>

#include "text/PascalString.h"

namespace tessaro {

// Joined in order, cut at 255.
PStr255 ConCat2(PStr255 a, PStr255 b);
PStr255 ConCat3(PStr255 a, PStr255 b, PStr255 c);
PStr255 ConCat4(PStr255 a, PStr255 b, PStr255 c, PStr255 d);
PStr255 ConCat5(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e);
PStr255 ConCat6(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e, PStr255 f);
PStr255 ConCat7(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e, PStr255 f, PStr255 g);
PStr255 ConCat8(PStr255 a, PStr255 b, PStr255 c, PStr255 d, PStr255 e, PStr255 f, PStr255 g, PStr255 h);

constexpr char succ(char c) { return static_cast<char>(static_cast<unsigned char>(c) + 1U); }   // wraps
constexpr char pred(char c) { return static_cast<char>(static_cast<unsigned char>(c) - 1U); }

// Layout of a number: style 0 with that many significant digits and an exponent, 1 with that many decimals.
struct decform {
    std::int8_t style = 1;
    std::int16_t digits = 0;
};
// Correctly rounded from the exact value, with a point whatever the locale. Not a number is "NAN"; infinity, and what
// would not fit a string, "INF" or "-INF".
void Num2Str(decform f, double x, PStr255& s);
// The number that the text begins with, behind blanks; 0 when there is none.
double Str2Num(PStr255 s);

// Is the key down? By the keyboard's codes of the modifiers: 55 command, 56 shift, 58 option, 59 control.
bool IsThisKeyDown(std::int16_t code);

constexpr std::int32_t MIN(std::int32_t a, std::int32_t b) { return b < a ? b : a; }
constexpr std::int32_t MAX(std::int32_t a, std::int32_t b) { return a < b ? b : a; }
constexpr std::int32_t MIN2(std::int32_t a, std::int32_t b) { return MIN(a, b); }
constexpr std::int32_t MAX2(std::int32_t a, std::int32_t b) { return MAX(a, b); }

// The bits of a mask, not a bit number.
constexpr bool BITTST(std::uint32_t a, std::uint32_t mask) { return (a & mask) != 0; }
constexpr void BITSET(std::uint32_t& a, std::uint32_t mask) { a |= mask; }
constexpr void BITCLR(std::uint32_t& a, std::uint32_t mask) { a &= ~mask; }

struct TFlagList {
    std::uint32_t bits = 0;
};

// Lines of standard streams end at a line feed or at the end of the file; what is longer than 255 is cut. The Ln forms
// take the line feed, the others leave it.
void ReadLn(std::FILE* f);   // drops the rest of the line
void ScanfString(PStr255& s);
void ScanfStringLn(PStr255& s);
void FscanfString(std::FILE* f, PStr255& s);
void FscanfStringLn(std::FILE* f, PStr255& s);

}   // namespace tessaro
