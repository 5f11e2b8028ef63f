// How the parts of an object are joined, and its texts.
#include "dwg/kit/scrividwg/OggettoDwg.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace tessaro {

namespace {

constexpr char32_t nessuno = 0xFFFD;

// The next character of UTF-8; a byte that begins none is U+FFFD.
char32_t prossimo(std::string_view s, std::size_t& i) {
    const auto b = static_cast<unsigned char>(s[i++]);
    if (b < 0x80) return b;
    const int seguono = b >= 0xF0 && b < 0xF5 ? 3 : b >= 0xE0 ? 2 : b >= 0xC2 ? 1 : 0;
    if (seguono == 0 || b >= 0xF5) return nessuno;
    char32_t c = b & (0x3FU >> seguono);
    for (int k = 0; k < seguono; ++k) {
        if (i >= s.size() || (static_cast<unsigned char>(s[i]) & 0xC0) != 0x80) return nessuno;
        c = c << 6 | (static_cast<unsigned char>(s[i++]) & 0x3FU);
    }
    return c;
}

// Code page 1252 between 0x80 and 0x9F; 0 where it has nothing.
constexpr std::array<char16_t, 32> alti1252{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

}   // namespace

std::string TestoDwg(std::string_view utf8) {
    std::string t;
    for (std::size_t i = 0; i < utf8.size();) {
        const char32_t c = prossimo(utf8, i);
        if (c < 0x80 || (c >= 0xA0 && c < 0x100)) {
            t.push_back(static_cast<char>(c));
            continue;
        }
        std::size_t k = 0;
        while (k < alti1252.size() && alti1252[k] != c) ++k;
        if (k < alti1252.size()) {
            t.push_back(static_cast<char>(0x80 + k));
            continue;
        }
        std::array<char, 16> codice{};
        const int n = std::snprintf(codice.data(), codice.size(), "\\U+%04X", static_cast<unsigned>(c) & 0xFFFF);
        t.append(codice.data(), static_cast<std::size_t>(n));
    }
    return t;
}

std::string TestoDwg16(std::string_view utf8) {
    std::string t;
    for (std::size_t i = 0; i < utf8.size();) {
        const char32_t c = prossimo(utf8, i);
        if (c < 0x10000) {
            aggiungiRS(t, static_cast<unsigned>(c));
        } else {
            aggiungiRS(t, static_cast<unsigned>(0xD800 + ((c - 0x10000) >> 10)));
            aggiungiRS(t, static_cast<unsigned>(0xDC00 + (c & 0x3FF)));
        }
    }
    return t;
}

double GiroInteroDwg(double a) {
    const double resto = std::fmod(a, 2 * std::numbers::pi);
    return resto < 0 ? resto + 2 * std::numbers::pi : resto;
}

OggettoDwg::OggettoDwg(FormatoDwg f, unsigned tipo, OdDbHandle handle) : formato(f) {
    if (formato >= FormatoDwg::r2010)
        dati.OT(tipo);
    else
        dati.BS(static_cast<std::int32_t>(tipo));
    if (formato == FormatoDwg::r2000 || formato == FormatoDwg::r2004 || formato == FormatoDwg::r2007) segnaLunghezza();
    dati.H(hProprio, handle);
    dati.BS(0);   // no extended data
}

void OggettoDwg::segnaLunghezza() {
    postoLunghezza = dati.quantiBit();
    dati.RL(0);
}

void OggettoDwg::TV(std::string_view utf8) {
    if (formato >= FormatoDwg::r2007) {
        const std::string t = TestoDwg16(utf8);
        testi.BS(static_cast<std::int32_t>(t.size() / 2));
        testi.byte(t);
        conTesti = true;
        return;
    }
    const std::string t = TestoDwg(utf8);
    dati.BS(static_cast<std::int32_t>(t.size()));
    dati.byte(t);
}

void OggettoDwg::colore(const OdCmColor& c) {
    if (formato < FormatoDwg::r2004) {
        dati.BS(c.indice);
        return;
    }
    dati.BS(0);
    if (c.metodo == OdCmColor::byColor)
        dati.BL(static_cast<std::int32_t>(0xC2000000U | static_cast<unsigned>(c.red) << 16
                                          | static_cast<unsigned>(c.green) << 8 | c.blue));
    else if (c.metodo == OdCmColor::byLayer)
        dati.BL(static_cast<std::int32_t>(0xC0000000U));
    else if (c.metodo == OdCmColor::byBlock)
        dati.BL(static_cast<std::int32_t>(0xC1000000U));
    else
        dati.BL(static_cast<std::int32_t>(0xC3000000U | static_cast<unsigned>(c.indice)));
    dati.RC(0);   // no name of a colour, none of a book
}

void chiudiTesti(BitDwg& dati, const BitDwg& testi, bool conTesti) {
    if (conTesti) {
        const std::size_t n = testi.quantiBit();
        dati.bitDi(testi);
        // The count of bits stands behind them; above 15 bits its higher part stands before the lower.
        if (n > 0x7FFF) {
            dati.RS(static_cast<unsigned>(n >> 15) & 0xFFFF);
            dati.RS((static_cast<unsigned>(n) & 0x7FFF) | 0x8000);
        } else {
            dati.RS(static_cast<unsigned>(n));
        }
    }
    dati.B(conTesti);
}

std::string OggettoDwg::byte() {
    if (formato >= FormatoDwg::r2007) chiudiTesti(dati, testi, conTesti);
    if (formato <= FormatoDwg::r2007) dati.poniRL(postoLunghezza, static_cast<std::uint32_t>(dati.quantiBit()));
    dati.bitDi(riferimenti);
    const std::size_t bitDati = dati.quantiBit() - riferimenti.quantiBit();
    dati.allinea();
    const std::size_t bitRiferimenti = dati.quantiBit() - bitDati;
    const std::vector<std::uint8_t>& b = dati.dati();
    std::string s;
    aggiungiMS(s, static_cast<std::uint32_t>(b.size()));
    if (formato >= FormatoDwg::r2010) aggiungiUMC(s, bitRiferimenti);
    s.append(b.begin(), b.end());
    aggiungiRS(s, CrcDwg(s, semeCrc));
    return s;
}

}   // namespace tessaro
