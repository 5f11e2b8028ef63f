// The packing of values into bits.
#include "dwg/kit/scrividwg/BitDwg.h"

#include <array>
#include <bit>
#include <cstring>

namespace tessaro {

void BitDwg::bit(unsigned v, int quanti) {
    while (quanti > 0) {
        const int libero = 8 - static_cast<int>(posto % 8);
        if (libero == 8) buffer.push_back(0);
        const int n = quanti < libero ? quanti : libero;
        const unsigned pezzo = (v >> (quanti - n)) & ((1U << n) - 1U);
        buffer.back() = static_cast<std::uint8_t>(buffer.back() | (pezzo << (libero - n)));
        posto += static_cast<std::size_t>(n);
        quanti -= n;
    }
}

void BitDwg::RS(unsigned v) {
    RC(v);
    RC(v >> 8);
}

void BitDwg::RL(std::uint32_t v) {
    RS(v & 0xFFFF);
    RS(v >> 16);
}

void BitDwg::RD(double v) {
    const auto b = std::bit_cast<std::uint64_t>(v);
    RL(static_cast<std::uint32_t>(b));
    RL(static_cast<std::uint32_t>(b >> 32));
}

void BitDwg::BS(std::int32_t v) {
    if (v == 0) return BB(2);
    if (v == 256) return BB(3);
    if (v > 0 && v < 256) {
        BB(1);
        return RC(static_cast<unsigned>(v));
    }
    BB(0);
    RS(static_cast<unsigned>(v) & 0xFFFF);
}

void BitDwg::BL(std::int32_t v) {
    if (v == 0) return BB(2);
    if (v > 0 && v < 256) {
        BB(1);
        return RC(static_cast<unsigned>(v));
    }
    BB(0);
    RL(static_cast<std::uint32_t>(v));
}

void BitDwg::BD(double v) {
    if (std::bit_cast<std::uint64_t>(v) == 0) return BB(2);   // -0 keeps its sign
    if (v == 1) return BB(1);
    BB(0);
    RD(v);
}

void BitDwg::DD(double v, double atteso) {
    if (std::bit_cast<std::uint64_t>(v) == std::bit_cast<std::uint64_t>(atteso)) return BB(0);
    BB(3);
    RD(v);
}

void BitDwg::BD3(const OdGePoint3d& p) {
    BD(p.x);
    BD(p.y);
    BD(p.z);
}

void BitDwg::RD2(double x, double y) {
    RD(x);
    RD(y);
}

void BitDwg::H(unsigned codice, OdDbHandle h) {
    unsigned lunghezza = 0;
    for (OdDbHandle resto = h; resto != 0; resto >>= 8) ++lunghezza;
    bit(codice, 4);
    bit(lunghezza, 4);
    for (unsigned i = lunghezza; i > 0; --i) RC(static_cast<unsigned>(h >> (8 * (i - 1))) & 0xFF);
}

void BitDwg::OT(unsigned tipo) {
    constexpr unsigned secondo = 0x1F0;   // where the second byte-long range begins: classes stand from 500 on
    if (tipo < 256) {
        BB(0);
        RC(tipo);
    } else if (tipo >= secondo && tipo < secondo + 256) {
        BB(1);
        RC(tipo - secondo);
    } else {
        BB(2);
        RS(tipo);
    }
}

void BitDwg::byte(std::string_view s) {
    for (const char c : s) RC(static_cast<unsigned char>(c));
}

void BitDwg::bitDi(const BitDwg& altro) {
    const std::size_t interi = altro.posto / 8;
    for (std::size_t i = 0; i < interi; ++i) RC(altro.buffer[i]);
    if (const int resto = static_cast<int>(altro.posto % 8); resto != 0)
        bit(static_cast<unsigned>(altro.buffer.back()) >> (8 - resto), resto);
}

void BitDwg::allinea() {
    if (posto % 8 != 0) bit(0, 8 - static_cast<int>(posto % 8));
}

void BitDwg::poniRL(std::size_t dove, std::uint32_t v) {
    for (int i = 0; i < 4; ++i, v >>= 8)
        for (int k = 7; k >= 0; --k, ++dove) {
            const auto maschera = static_cast<std::uint8_t>(0x80U >> (dove % 8));
            std::uint8_t& b = buffer[dove / 8];
            b = static_cast<std::uint8_t>((v >> k & 1U) != 0 ? b | maschera : b & ~maschera);
        }
}

void aggiungiRS(std::string& s, unsigned v) {
    s.push_back(static_cast<char>(v & 0xFF));
    s.push_back(static_cast<char>(v >> 8 & 0xFF));
}

void aggiungiRL(std::string& s, std::uint32_t v) {
    aggiungiRS(s, v & 0xFFFF);
    aggiungiRS(s, v >> 16);
}

void aggiungiUMC(std::string& s, std::uint64_t v) {
    for (; v > 0x7F; v >>= 7) s.push_back(static_cast<char>((v & 0x7F) | 0x80));
    s.push_back(static_cast<char>(v));
}

void aggiungiMC(std::string& s, std::int64_t v) {
    const bool negativo = v < 0;
    auto resto = static_cast<std::uint64_t>(negativo ? -v : v);
    for (; resto > 0x3F; resto >>= 7) s.push_back(static_cast<char>((resto & 0x7F) | 0x80));
    s.push_back(static_cast<char>(resto | (negativo ? 0x40 : 0)));
}

void aggiungiMS(std::string& s, std::uint32_t v) {
    for (; v > 0x7FFF; v >>= 15) aggiungiRS(s, (v & 0x7FFF) | 0x8000);
    aggiungiRS(s, v);
}

std::uint16_t CrcDwg(std::string_view s, std::uint16_t seme) {
    static constexpr auto tavola = [] {
        std::array<std::uint16_t, 256> t{};
        for (unsigned i = 0; i < 256; ++i) {
            unsigned c = i;
            for (int k = 0; k < 8; ++k) c = (c & 1U) != 0 ? (c >> 1) ^ 0xA001U : c >> 1;
            t[i] = static_cast<std::uint16_t>(c);
        }
        return t;
    }();
    std::uint16_t crc = seme;
    for (const char c : s)
        crc = static_cast<std::uint16_t>(crc >> 8 ^ tavola[(crc ^ static_cast<unsigned char>(c)) & 0xFF]);
    return crc;
}

}   // namespace tessaro
