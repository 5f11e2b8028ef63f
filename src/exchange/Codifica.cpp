// The kind of a text file from one pass over its bytes, and lines turned into Mac Roman.
#include "exchange/Codifica.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/Resources.h"
#include "text/FileDati.h"

namespace tessaro {

namespace {

constexpr std::uint8_t cr = 13, lf = 10;
constexpr std::array<std::uint8_t, 3> segnoUtf8{0xEF, 0xBB, 0xBF};

// Follows the bytes of UTF-8 one by one: over-long forms, surrogates and what lies above U+10FFFF do not pass.
class ProvaUtf8 {
    int mancanti = 0;
    std::uint8_t minimo = 0x80, massimo = 0xBF;   // bounds of the next byte
    bool buono = true;

    void inizia(std::uint8_t c) {
        if (c < 0x80) return;
        if (c >= 0xC2 && c <= 0xDF)
            mancanti = 1;
        else if (c >= 0xE0 && c <= 0xEF)
            mancanti = 2;
        else if (c >= 0xF0 && c <= 0xF4)
            mancanti = 3;
        else
            buono = false;
        if (c == 0xE0) minimo = 0xA0;
        if (c == 0xED) massimo = 0x9F;
        if (c == 0xF0) minimo = 0x90;
        if (c == 0xF4) massimo = 0x8F;
    }

public:
    void passa(std::uint8_t c) {
        if (mancanti == 0) {
            inizia(c);
            return;
        }
        if (c < minimo || c > massimo) buono = false;
        minimo = 0x80;
        massimo = 0xBF;
        --mancanti;
    }
    [[nodiscard]] bool traCaratteri() const { return mancanti == 0; }
    [[nodiscard]] bool valida() const { return buono && mancanti == 0; }
};

// What the choice between the two sets of single bytes rests on.
class Conteggio {
    std::int64_t lettereMac = 0;       // 0x80 to 0x9F: accented letters there, punctuation or nothing in CP1252
    std::int64_t lettereWindows = 0;   // 0xC0 to 0xFF: accented letters there, marks and capitals in Mac Roman
    std::int64_t crSoli = 0, crLf = 0;
    bool dopoCr = false;

public:
    void passa(std::uint8_t c) {
        if (dopoCr) ++(c == lf ? crLf : crSoli);
        dopoCr = c == cr;
        if (c >= 0x80 && c <= 0x9F) ++lettereMac;
        if (c >= 0xC0) ++lettereWindows;
    }
    [[nodiscard]] bool cp1252() const {
        if (crSoli > crLf) return false;
        if (lettereMac != lettereWindows) return lettereWindows > lettereMac;
        return crLf > 0;
    }
};

bool cominciaColSegno() {
    std::array<std::uint8_t, 3> testa{};
    auto n = static_cast<std::int32_t>(testa.size());
    FSRead(RefNum, n, testa.data());   // a shorter file has no mark
    return n == 3 && testa == segnoUtf8;
}

// The file's bytes from its present position on, in large blocks.
template <class Passo>
void perOgniBlocco(Passo passo) {
    std::int64_t posizione = 0, quanti = 0;
    GetFPos(RefNum, posizione);
    const char* byte = nullptr;
    // A fault comes again, and is told, when the lines are read.
    while (FSPeek(RefNum, byte, quanti) == noErr && quanti > 0) {
        passo(std::string_view(byte, static_cast<std::size_t>(quanti)));
        posizione += quanti;
        if (SetFPos(RefNum, posizione) != noErr) return;
    }
}

// The first byte above ASCII, or the end.
const char* saltaAscii(const char* p, const char* fine) {
    constexpr std::uint64_t alti = 0x8080808080808080;
    std::array<std::uint64_t, 4> parole;
    for (; fine - p >= static_cast<std::ptrdiff_t>(sizeof parole); p += sizeof parole) {
        std::memcpy(parole.data(), p, sizeof parole);
        if (((parole[0] | parole[1] | parole[2] | parole[3]) & alti) != 0) break;
    }
    while (p != fine && static_cast<std::uint8_t>(*p) < 0x80) ++p;
    return p;
}

// CP1252 from 0x80 to 0x9F; the five places it leaves open stand for themselves.
constexpr std::array<std::uint16_t, 32> alti{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                             0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void aggiungi(std::string& s, unsigned u) {
    if (u < 0x80) {
        s += static_cast<char>(u);
    } else if (u < 0x800) {
        s += static_cast<char>(0xC0U | (u >> 6));
        s += static_cast<char>(0x80U | (u & 0x3FU));
    } else {
        s += static_cast<char>(0xE0U | (u >> 12));
        s += static_cast<char>(0x80U | ((u >> 6) & 0x3FU));
        s += static_cast<char>(0x80U | (u & 0x3FU));
    }
}

std::string daCp1252(std::string_view riga) {
    std::string s;
    for (const char c : riga) {
        const auto u = static_cast<std::uint8_t>(c);
        aggiungi(s, u >= 0x80 && u <= 0x9F ? alti[u - 0x80U] : u);
    }
    return s;
}

bool soloAscii(std::string_view s) {
    return std::none_of(s.begin(), s.end(), [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
}

}   // namespace

Codifica RiconosciCodifica() {
    std::int64_t inizioTesto = 0;
    GetFPos(RefNum, inizioTesto);
    const bool conSegno = cominciaColSegno();
    SetFPos(RefNum, inizioTesto);
    ProvaUtf8 prova;
    bool ascii = true;
    perOgniBlocco([&](std::string_view blocco) {
        const char* p = blocco.data();
        const char* const fine = p + blocco.size();
        while (p != fine) {
            if (prova.traCaratteri()) p = saltaAscii(p, fine);
            if (p == fine) break;
            ascii = false;
            prova.passa(static_cast<std::uint8_t>(*p++));
        }
    });
    Codifica codifica = ascii ? Codifica::ascii : Codifica::utf8;
    if (!prova.valida()) {
        SetFPos(RefNum, inizioTesto);
        Conteggio conto;
        perOgniBlocco([&conto](std::string_view blocco) {
            for (const char c : blocco) conto.passa(static_cast<std::uint8_t>(c));
        });
        codifica = conto.cp1252() ? Codifica::cp1252 : Codifica::macRoman;
    }
    SetFPos(RefNum, inizioTesto + (conSegno ? static_cast<std::int64_t>(segnoUtf8.size()) : 0));
    return codifica;
}

std::string_view InMacRoman(std::string_view riga, Codifica codifica, std::string& spazio) {
    if (codifica == Codifica::ascii || codifica == Codifica::macRoman || soloAscii(riga)) return riga;
    constexpr std::size_t massima = 255;
    spazio = Utf8ToMac(codifica == Codifica::utf8 ? std::string(riga) : daCp1252(riga));
    return std::string_view(spazio).substr(0, massima);
}

void InMacRoman(PStr255& riga, Codifica codifica) {
    std::string spazio;
    const std::string_view mac = InMacRoman(riga.view(), codifica, spazio);
    if (mac.data() == spazio.data()) riga = PStr255(mac);
}

}   // namespace tessaro
