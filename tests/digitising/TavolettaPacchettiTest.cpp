// Packets of digitisers: whole ones are read to the count, whatever else comes is dropped and reading goes on.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "digitising/TavolettaPacchetti.h"

using namespace tessaro;
using namespace std::string_literals;

namespace {

using Letto = std::tuple<std::int32_t, std::int32_t, std::int16_t>;

std::vector<Letto> leggi(FormatoPacchetti f, const std::string& byte) {
    DecodificaTavoletta d(f);
    std::vector<Letto> v;
    Campione c;
    for (const char b : byte)
        if (d.prendi(static_cast<std::uint8_t>(b), c)) v.emplace_back(c.x, c.y, c.bottone);
    return v;
}

std::string binario(std::int32_t x, std::int32_t y, int bottone) {
    const auto b = [](int v) { return static_cast<char>(v); };
    return {b(0x80 | bottone << 2 | x >> 14), b(x >> 7 & 127), b(x & 127), b(y >> 14), b(y >> 7 & 127), b(y & 127)};
}

struct Caso {
    const char* perche;
    std::string byte;
    std::vector<Letto> attesi;
};

void prova(FormatoPacchetti f, const std::vector<Caso>& casi) {
    for (const Caso& c : casi) EXPECT_EQ(leggi(f, c.byte), c.attesi) << c.perche;
}

}   // namespace

TEST(TavolettaPacchetti, CommaSeparatedText) {
    prova(FormatoPacchetti::virgole,
          {
              {"CR LF", "12345,06789,1\r\n", {{12345, 6789, 1}}},
              {"CR alone, LF alone", "12345,06789,0\r00001,00002,2\n", {{12345, 6789, 0}, {1, 2, 2}}},
              {"buttons above 9", "0000,0000,:\r\n0000,0000,?\r\n", {{0, 0, 10}, {0, 0, 15}}},
              {"six digits, a blank before the button", "999999,999999, 3\r\n", {{999999, 999999, 3}}},
              {"parity in the eighth bit", "\xB1"s + "2345,0678" + "\xB9" + ",1" + "\x8D", {{12345, 6789, 1}}},
              {"a line whose beginning was cut", "45,06789,1\r\n12345,06789,1\r\n", {{12345, 6789, 1}}},
              {"two lines melted into one", "12345,06712345,06789,1\r\n12345,06789,1\r\n", {{12345, 6789, 1}}},
              {"letters, signs, points, missing and surplus fields",
               "12a45,06789,1\r-1234,06789,1\r123.4,067.8,1\r12345,06789\r12345,06789,\r12345,06789,1,1\r,,\r\r\n",
               {}},
              {"out of range: too few, too many digits, a button beyond the last",
               "123,456,1\r1234567,1234567,1\r12345,06789,@\r12345,06789,12\r",
               {}},
              {"noise longer than any line",
               std::string(5000, 'x') + "12345,06789,1\r\n12345,06789,1\r\n",
               {{12345, 6789, 1}}},
              {"zeros between packets are noise", "\0\0"s + "\r12345,06789,1\r", {{12345, 6789, 1}}},
          });
}

TEST(TavolettaPacchetti, FixedWidthText) {
    prova(
        FormatoPacchetti::larghezzaFissa,
        {
            {"with blanks", "12345 06789 1\r\n", {{12345, 6789, 1}}},
            {"without", "12345067891\r\n1234506789\r\n", {{12345, 6789, 1}, {12345, 6789, 0}}},
            {"a blank before the button only", "1234506789 ;\r\n", {{12345, 6789, 11}}},
            {"a blank between the coordinates only",
             "12345 06789\r\n12345 067892\r\n",
             {{12345, 6789, 0}, {12345, 6789, 2}}},
            {"four and six digits", "12340678 1\r\n123456 000001 2\r\n", {{1234, 678, 1}, {123456, 1, 2}}},
            {"cut in front, amid and behind", "345 06789 1\r12345 06\r12345 0678\r12345 06789 1\r", {{12345, 6789, 1}}},
            {"commas, letters, too many digits", "12345,06789,1\r12x45 06789 1\r1234567 1234567 1\r", {}},
            {"a lone blank, an empty line", " \r\r\n12345 \r", {}},
        });
}

TEST(TavolettaPacchetti, BinaryFindsItsPlaceByTheFirstByte) {
    const std::string intero = binario(65535, 40000, 15);
    prova(FormatoPacchetti::binario,
          {
              {"all bits in their places",
               intero + binario(1, 128, 0) + binario(16384, 16383, 31),
               {{65535, 40000, 15}, {1, 128, 0}, {16384, 16383, 31}}},
              {"the end of a packet before the first", intero.substr(2) + intero, {{65535, 40000, 15}}},
              {"a packet cut amid by the next", intero.substr(0, 4) + intero, {{65535, 40000, 15}}},
              {"noise without a first byte",
               "\x01\x7F hello"s + intero + "zzzzzzzzzz" + intero,
               {{65535, 40000, 15}, {65535, 40000, 15}}},
              {"out of reach",
               intero.substr(0, 3) + static_cast<char>(intero[3] | 0x40) + intero.substr(4) + intero,
               {{65535, 40000, 15}}},
              {"bits that no position has",
               intero.substr(0, 3) + static_cast<char>(intero[3] | 0x08) + intero.substr(4),
               {}},
          });
}

TEST(TavolettaPacchetti, AByteLostAnywhereCostsAtMostTwoPackets) {
    const std::string uno = binario(30000, 20000, 1), due = "30000,20000,1\r\n", tre = "30000 20000 1\r\n";
    const std::pair<FormatoPacchetti, std::string> formati[] = {
        {FormatoPacchetti::binario, uno}, {FormatoPacchetti::virgole, due}, {FormatoPacchetti::larghezzaFissa, tre}};
    for (const auto& [formato, pacchetto] : formati) {
        std::string flusso;
        for (int i = 0; i < 5; ++i) flusso += pacchetto;
        for (std::size_t via = 0; via < flusso.size(); ++via) {
            const auto letti = leggi(formato, flusso.substr(0, via) + flusso.substr(via + 1));
            EXPECT_GE(letti.size(), 3u) << via;
            // No place is ever invented; the button may be lost where the format lets it be left out.
            for (const auto& [x, y, b] : letti) {
                EXPECT_EQ(x, 30000) << via;
                EXPECT_EQ(y, 20000) << via;
                EXPECT_TRUE(b == 1 || b == 0) << via;
            }
        }
    }
}

TEST(TavolettaPacchetti, AHeldButtonActsOnce) {
    PressioneTasti p;
    EXPECT_EQ(p.premuto(0, 100), 0);
    EXPECT_EQ(p.premuto(1, 101), 1);
    for (std::uint32_t t = 102; t < 400; t += 6) EXPECT_EQ(p.premuto(1, t), 0) << t;
    EXPECT_EQ(p.premuto(2, 400), 2);   // another button without a release
    EXPECT_EQ(p.premuto(0, 401), 0);
    EXPECT_EQ(p.premuto(2, 402), 2);
    EXPECT_EQ(p.premuto(2, 440), 2);   // point mode: nothing was sent in between
}
