// Decimal text to the nearest double and back, in every locale: correctly rounded both ways, and quick for the numbers
// that files of coordinates are full of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessaro {

// The number that s begins with: sign, digits, point, exponent; nothing else is known. used: the characters it took,
// 0 when there is no number, and then 0. Beyond the range of a double: infinity or 0, with the sign.
double DoubleDaTesto(std::string_view s, std::size_t& used);

// 10 to the powers that a double holds exactly.
inline constexpr double potenzeDieci[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                          1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// A short number without exponent, behind blanks: its digits are a whole number that a double holds exactly, over a
// power of ten that it holds too, so one division rounds correctly. Gives where it ends; null for any other text, which
// may be a number all the same. v is set when it is found; zero has no sign.
inline const char* RealeEsatto(const char* p, const char* limite, double& v) {
    constexpr std::uint64_t mantissaEsatta = std::uint64_t{1} << 53;
    constexpr std::ptrdiff_t cifreMassime = 18;   // fit 64 bits
    while (p != limite && *p == ' ') ++p;
    bool negativo = false;
    if (p != limite && (*p == '-' || *p == '+')) negativo = *p++ == '-';
    std::uint64_t mantissa = 0;
    const auto prendiCifre = [&] {
        const char* const prima = p;
        for (; p != limite; ++p) {
            const auto cifra = static_cast<std::uint8_t>(*p - '0');
            if (cifra > 9) break;
            mantissa = mantissa * 10 + cifra;
        }
        return p - prima;
    };
    const std::ptrdiff_t intere = prendiCifre();
    if (intere == 0) return nullptr;
    std::ptrdiff_t decimali = 0;
    if (p != limite && *p == '.') {
        ++p;
        decimali = prendiCifre();
    }
    if (intere + decimali > cifreMassime || decimali > 15 || mantissa > mantissaEsatta) return nullptr;
    const double x = static_cast<double>(mantissa) / potenzeDieci[decimali];
    v = negativo ? 0 - x : x;
    return p;
}

// The ordinary number that s is, blanks around it allowed: as above, or with more digits or an exponent, between 1e-15
// and 1e18. False for all else, without a judgement of it.
bool RealePiano(std::string_view s, double& v);

// v with that many decimals, what std::to_chars writes; nothing is written and null given where it is not below 1e15 in
// size or is no number, and above 18 decimals. Takes at most 40 characters.
char* TestoDaReale(char* dove, double v, int decimali);

}   // namespace tessaro
