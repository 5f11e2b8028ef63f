// What a text becomes on its way into a DXF file.
#include "dwg/kit/Alfabeto.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "exchange/Alfabeti.h"
#include "exchange/TestoDxf.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr char32_t ignoto = 0xFFFD;

// The byte of a character in the code page 1252; 0 when it has none.
char nel1252(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(static_cast<std::uint8_t>(c));
    for (std::size_t i = 0; i < std::size(alti1252); ++i)
        if (alti1252[i] == c && c != ignoto) return static_cast<char>(static_cast<std::uint8_t>(0x80 + i));
    return 0;
}

void aggiungiSegno(std::string& s, char32_t c) {
    constexpr std::string_view cifre = "0123456789ABCDEF";
    if (c > 0xFFFF) c = ignoto;
    s += "\\U+";
    for (const unsigned sposta : {12U, 8U, 4U, 0U}) s += cifre[c >> sposta & 0xF];
}

// False when c is a control or the caret, which are dealt with.
bool comune(std::string& s, char32_t c) {
    if (c < 0x20 || c == 0x7F)
        s += ' ';
    else if (c == '^')
        s += "^ ";
    else
        return true;
    return false;
}

}   // namespace

std::string TestoAnsiDxf(std::string_view utf8) {
    std::string s;
    while (!utf8.empty()) {
        const char32_t c = PrendiUtf8(utf8);
        if (!comune(s, c)) continue;
        if (const char b = nel1252(c); b != 0)
            s += b;
        else
            aggiungiSegno(s, c);
    }
    return s;
}

std::string TestoUtf8Dxf(std::string_view utf8) {
    std::string s;
    while (!utf8.empty())
        if (const char32_t c = PrendiUtf8(utf8); comune(s, c)) AggiungiUtf8(s, c);
    return s;
}

char32_t PrendiUtf8(std::string_view& s) {
    const auto b = [s](std::size_t i) { return static_cast<std::uint8_t>(s[i]); };
    const std::uint8_t primo = b(0);
    const std::size_t n = primo < 0x80                    ? 1
                          : primo >= 0xC2 && primo < 0xE0 ? 2
                          : primo >= 0xE0 && primo < 0xF0 ? 3
                          : primo >= 0xF0 && primo < 0xF5 ? 4
                                                          : 0;
    char32_t c = n == 1 ? primo : n == 2 ? primo & 0x1FU : n == 3 ? primo & 0xFU : primo & 7U;
    std::size_t presi = 1;
    while (presi < n && presi < s.size() && (b(presi) & 0xC0) == 0x80) c = c << 6 | (b(presi++) & 0x3FU);
    const bool intero = n != 0 && presi == n && (c < 0xD800 || c > 0xDFFF) && c <= 0x10FFFF;
    s.remove_prefix(intero ? presi : 1);
    return intero ? c : ignoto;
}

void AggiungiUtf8(std::string& s, char32_t c) {
    const auto byte = [&s](char32_t x) { s += static_cast<char>(static_cast<std::uint8_t>(x)); };
    const auto seguito = [&](unsigned sposta) { byte(0x80 | (c >> sposta & 0x3F)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | c >> 6);
        seguito(0);
    } else if (c < 0x10000) {
        byte(0xE0 | c >> 12);
        seguito(6);
        seguito(0);
    } else {
        byte(0xF0 | c >> 18);
        seguito(12);
        seguito(6);
        seguito(0);
    }
}

std::string TestoDelDisegno(std::string_view utf8) { return Utf8ToMac(ConSegniDxf(utf8)); }

}   // namespace tessaro
