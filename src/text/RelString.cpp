// Collating order of Mac Roman text: case ignored, accents significant (a < a grave < a acute < ... < b). All
// comparisons of strings go through it.
#include <algorithm>
#include <string_view>

#include "text/PascalString.h"

namespace tessaro {
namespace {

using Byte = unsigned char;

// A family is the letters that stand together in the alphabet, in order; a group of bytes with one rank ends at a
// blank. Plain letter first, then grave, acute, circumflex, tilde, diaeresis, ring; ligatures stand behind all else.
constexpr std::string_view famiglie[] = {
    "Aa \xCB\x88 \xE7\x87 \xE5\x89 \xCC\x8B \x80\x8A \x81\x8C \xBB \xAE\xBE",   // ... feminine ordinal, AE
    "Bb",
    "Cc \x82\x8D",
    "Dd",
    "Ee \xE9\x8F \x83\x8E \xE6\x90 \xE8\x91",
    "Ff \xC4 \xDE \xDF",   // ... florin, fi, fl
    "Gg",
    "Hh",
    "Ii \xED\x93 \xEA\x92 \xEB\x94 \xEC\x95 \xF5",   // ... dotless
    "Jj",
    "Kk",
    "Ll",
    "Mm",
    "Nn \x84\x96",
    "Oo \xF1\x98 \xEE\x97 \xEF\x99 \xCD\x9B \x85\x9A \xAF\xBF \xBC \xCE\xCF",   // ... slash, masculine ordinal, OE
    "Pp",
    "Qq",
    "Rr",
    "Ss \xA7",   // ... sharp s
    "Tt \xAA",   // ... trade mark
    "Uu \xF4\x9D \xF2\x9C \xF3\x9E \x86\x9F",
    "Vv",
    "Ww",
    "Xx",
    "Yy \xD9\xD8",
    "Zz",
};

struct Ordine {
    std::array<Byte, 256> rango{};   // of each byte; equal only where letters differ by case alone
};

// Bytes below the letters keep their order, then come the families, then all other bytes in order.
constexpr Ordine faiOrdine() {
    Ordine o;
    std::array<bool, 256> posto{};
    Byte rango = 0;
    for (int c = 0; c < 'A'; ++c) {
        o.rango[static_cast<std::size_t>(c)] = rango++;
        posto[static_cast<std::size_t>(c)] = true;
    }
    for (const std::string_view famiglia : famiglie) {
        for (const char c : famiglia) {
            if (c == ' ') {
                ++rango;
                continue;
            }
            o.rango[static_cast<Byte>(c)] = rango;
            posto[static_cast<Byte>(c)] = true;
        }
        ++rango;
    }
    for (std::size_t c = 0; c < 256; ++c)
        if (!posto[c]) o.rango[c] = rango++;
    return o;
}

constexpr Ordine ordine = faiOrdine();

int confronta(std::string_view a, std::string_view b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const int d = ordine.rango[static_cast<Byte>(a[i])] - ordine.rango[static_cast<Byte>(b[i])];
        if (d != 0) return d;
    }
    return static_cast<int>(a.size()) - static_cast<int>(b.size());
}

int confronta(const PString& a, const PString& b) { return confronta(a.view(), b.view()); }
int confronta(const char* a, const PString& b) { return confronta(PStr255(a), b); }
int confronta(const PString& a, const char* b) { return confronta(a, PStr255(b)); }

}   // namespace

int RelString(const PString& a, const PString& b) { return confronta(a, b); }

bool operator==(const PString& a, const PString& b) { return confronta(a, b) == 0; }
bool operator==(const char* a, const PString& b) { return confronta(a, b) == 0; }
bool operator==(const PString& a, const char* b) { return confronta(a, b) == 0; }
bool operator!=(const PString& a, const PString& b) { return confronta(a, b) != 0; }
bool operator!=(const char* a, const PString& b) { return confronta(a, b) != 0; }
bool operator!=(const PString& a, const char* b) { return confronta(a, b) != 0; }
bool operator<(const PString& a, const PString& b) { return confronta(a, b) < 0; }
bool operator<(const char* a, const PString& b) { return confronta(a, b) < 0; }
bool operator<(const PString& a, const char* b) { return confronta(a, b) < 0; }
bool operator>(const PString& a, const PString& b) { return confronta(a, b) > 0; }
bool operator>(const char* a, const PString& b) { return confronta(a, b) > 0; }
bool operator>(const PString& a, const char* b) { return confronta(a, b) > 0; }
bool operator<=(const PString& a, const PString& b) { return confronta(a, b) <= 0; }
bool operator<=(const char* a, const PString& b) { return confronta(a, b) <= 0; }
bool operator<=(const PString& a, const char* b) { return confronta(a, b) <= 0; }
bool operator>=(const PString& a, const PString& b) { return confronta(a, b) >= 0; }
bool operator>=(const char* a, const PString& b) { return confronta(a, b) >= 0; }
bool operator>=(const PString& a, const char* b) { return confronta(a, b) >= 0; }

}   // namespace tessaro
