// Fonts and their glyphs. The raster port draws text from coverage masks that the toolkit renders once and caches.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

// One line of text as coverage, 0 clear to 255 covered. Device pixels. `left` and `top` place the mask's corner
// relative to the pen on the base line (top is negative above it).
struct MascheraTesto {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t advance = 0;             // device pixels
    std::vector<std::uint8_t> coverage;   // width x height, rows from the top
};

struct FontMetrics {
    std::int32_t ascent = 0, descent = 0, leading = 0;
};   // logical pixels

// bytes are Mac Roman. Size in points at one logical pixel each; ratio scales to device pixels. The reference stays
// good until the next call.
const MascheraTesto& TextMask(std::int16_t font, std::int16_t size, std::uint8_t face, std::int32_t ratio,
                              std::string_view bytes);
std::int32_t TextWidth(std::int16_t font, std::int16_t size, std::uint8_t face,
                       std::string_view bytes);   // logical pixels
FontMetrics GetFontInfo(std::int16_t font, std::int16_t size, std::uint8_t face);

// Families. The classic numbers 0, 3, 4, 20, 21, 22, 23 map to installed families; every other family has a number
// that depends on its name alone, so it is the same on every machine.
std::vector<std::string> FontFamilies();               // Mac Roman names, sorted
std::int16_t GetFNum(std::string_view macRomanName);   // 0 when unknown
std::string GetFontName(std::int16_t font);            // Mac Roman

}   // namespace tessaro
