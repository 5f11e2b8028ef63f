// Binary primitives: big-endian bytes on disk, values that come back, and silence after the first fault.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "text/EndianConvert.h"

using namespace tessaro;
using prova::FileProva;

namespace {

std::string ottetti(std::initializer_list<int> b) {
    std::string s;
    for (const int c : b) s += static_cast<char>(c);
    return s;
}

TEST(Disco, ValuesLieBigEndian) {
    FileProva f("", fsRdWrPerm);
    std::uint8_t c = 'c';
    scrivib(7);
    ScriviChar(c);
    scrivii(-2);
    scriviLong(0x01020304);
    scrivir(1.5);
    scriviS("ab");
    scriviSlong("xyz");
    scriviSlong("");
    writelnDisco("riga");
    EXPECT_EQ(f.contenuto(), ottetti({7, 'c', 0xFF, 0xFE, 1, 2,   3,   4,   0x3F, 0xF8, 0,   0,   0,   0,   0, 0,
                                      2, 'a', 'b',  0,    3, 'x', 'y', 'z', 0,    0,    'r', 'i', 'g', 'a', 13}));
}

TEST(Disco, ValuesComeBack) {
    const FileProva f(ottetti({7, 0xFF, 0xFE, 1, 2, 3, 4, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(leggib(), 7);
    EXPECT_EQ(leggii(), -2);
    EXPECT_EQ(leggiLong(), 0x01020304);
    EXPECT_EQ(leggir(), 1.5);
    EXPECT_EQ(uscita, 0);
}

TEST(Disco, AShortFileIsOneMessageAndThenZeros) {
    const FileProva f(ottetti({1, 2}));
    EXPECT_EQ(leggiLong(), 0);
    EXPECT_EQ(uscita, 1);
    EXPECT_EQ(leggii(), 0);
    EXPECT_EQ(leggir(), 0);
    EXPECT_EQ(prova::numeriAvvisi(), std::vector<std::int16_t>{1013});
}

TEST(Disco, ExtendedNumbersNarrowToDoubles) {
    struct Caso {
        std::array<std::uint8_t, 10> x;
        double v;
    };
    for (const Caso& c :
         {Caso{{0x3F, 0xFF, 0x80}, 1}, Caso{{0xC0, 0x00, 0xC0}, -3}, Caso{{}, 0}, Caso{{0x40, 0x0E, 0xFF, 0xFF}, 65535},
          Caso{{0x7F, 0xFF, 0x80}, HUGE_VAL}, Caso{{0x3F, 0xFB, 0xCC, 0xCC, 0xCC, 0xCC, 0xCC, 0xCC, 0xCC, 0xCD}, 0.1},
          Caso{{0x00, 0x01, 0x80}, 0}, Caso{{0xFF, 0xFF, 0x80}, -HUGE_VAL},
          Caso{{0x7F, 0xFF}, HUGE_VAL},         // infinite without its whole bit
          Caso{{0x40, 0x01, 0x40}, 2},          // not normalised
          Caso{{0x00, 0x00, 0x80}, 0},          // too small for a double
          Caso{{0x7F, 0xFE, 0x80}, HUGE_VAL},   // too large
          Caso{{0x3C, 0x01, 0x80}, 0x1p-1022}, Caso{{0x3B, 0xCD, 0x80}, 0x1p-1074},
          // One rounding: in two steps, to 53 bits first, the smaller of these would come out as the larger.
          Caso{{0x3B, 0xCD, 0xBF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, 0x1p-1074},
          Caso{{0x3B, 0xCD, 0xC0}, 0x1p-1073}})
        EXPECT_EQ(static_cast<double>(x80told(c.x)), c.v);
    EXPECT_TRUE(std::isnan(x80told({0x7F, 0xFF, 0xC0})));
}

TEST(Disco, SwapsTurnEachFieldInItsPlace) {
    if (std::endian::native != std::endian::little) GTEST_SKIP() << "nothing is swapped on this processor";
    EXPECT_EQ(EndiansFixed_BtoN(0x11223344), 0x22114433);   // not 0x44332211
    EXPECT_EQ(EndiansPoint_BtoN({0x0102, 0x0304}), (PointDisco{0x0201, 0x0403}));
    EXPECT_EQ(EndiansRect_NtoB({1, 2, 3, 4}), (RectDisco{0x100, 0x200, 0x300, 0x400}));
    EXPECT_EQ(EndiansRGB_BtoN({0x1234, 0xFFFF, 0x00FF}), (RGBColor{0x3412, 0xFFFF, 0xFF00}));
    EXPECT_EQ(std::bit_cast<std::uint32_t>(EndiansFloat_NtoB(1.0)), 0x0000803FU);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(EndiansDouble_NtoB(1.5)), 0x000000000000F83FU);
    std::uint32_t parole[] = {0x11223344, 0xAABBCCDD, 0x01020304};
    EndiansBitMapFlip_BtoN(8, 4, parole);
    EXPECT_EQ(parole[0], 0x44332211U);
    EXPECT_EQ(parole[1], 0xDDCCBBAAU);
    EXPECT_EQ(parole[2], 0x01020304U);
}

}   // namespace
