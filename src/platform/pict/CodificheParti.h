// What the decoders of old codings share. For the files of platform/pict only.
#pragma once

#include <array>
#include <cstdint>

#include "platform/pict/Compressa.h"

namespace tessaro {

using TavolaColori = std::array<std::uint32_t, 256>;   // 0xFFRRGGBB

constexpr std::uint32_t CodiceDi(const char (&s)[5]) {
    std::uint32_t n = 0;
    for (int i = 0; i < 4; ++i) n = n << 8 | static_cast<std::uint8_t>(s[i]);
    return n;
}

// Bits of an index: depths of 33 to 40 are greys of 1 to 8 bits.
std::int16_t BitIndice(const ImmagineCompressa& c);
// The colours of an image of 1, 2, 4 or 8 bits: a table of its own behind the description, the system's of that depth, or
// greys from white to black.
TavolaColori TavolaDi(const ImmagineCompressa& c);

// The smallest code of a picture's blocks or rows stands for this many pixels at most: a claim beyond is no picture.
bool Credibile(const ImmagineCompressa& c, double pixelPerByte);
// A white image of the described size.
void ApriBianca(const ImmagineCompressa& c, Immagine& out);

// One coding each, as DecodificaAntica tells.
bool DecodificaSmc(const ImmagineCompressa& c, Immagine& out);
bool DecodificaCinepak(const ImmagineCompressa& c, Immagine& out);

}   // namespace tessaro
