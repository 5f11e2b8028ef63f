// Images in old movie codings inside a picture show what their coder meant, and damaged ones end.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/pict/Codifiche.h"

using namespace tessaro;

namespace {

using Pixel = std::vector<std::uint32_t>;
constexpr std::uint32_t bianco = 0xFFFFFFFFU, rosso = 0xFFFF0000U, blu = 0xFF0000FFU, verde = 0xFF00FF00U;

ImmagineCompressa fatta(std::uint32_t codice, std::int16_t depth, std::int32_t w, std::int32_t h,
                        const std::string& bytes) {
    ImmagineCompressa c;
    c.codice = codice;
    c.depth = depth;
    c.width = w;
    c.height = h;
    c.dati = bytes;
    return c;
}

std::string b(std::initializer_list<int> v) {
    std::string s;
    for (const int n : v) s.push_back(static_cast<char>(n));
    return s;
}

constexpr std::uint32_t rpza = 0x72707A61, rle = 0x726C6520, raw = 0x72617720;

TEST(PictCodecs, blocksOfOneOfFourAndOfSixteenColours) {
    // 16 by 4 pixels: one red block, one left open, one of red, blue and what lies between, one of sixteen colours.
    std::string bytes =
        b({0xE1, 0, 0, 0, 0xA0, 0x7C, 0x00, 0x80, 0xC0, 0x7C, 0x00, 0x00, 0x1F, 0x1B, 0x1B, 0x1B, 0x1B});
    bytes += b({0x03, 0xE0});   // the first of sixteen, green; the next has no high bit, so it is sixteen
    for (int i = 1; i < 16; ++i) bytes += b({0x00, 0x1F});
    Immagine im;
    ASSERT_TRUE(DecodificaAntica(fatta(rpza, 16, 16, 4, bytes), im));
    for (std::size_t y = 0; y < 4; ++y) {
        const std::uint32_t* r = im.pixels.data() + y * 16;
        EXPECT_EQ(r[0], rosso);
        EXPECT_EQ(r[7], bianco);
        EXPECT_EQ(r[8], blu);
        EXPECT_EQ(r[9], 0xFF5200A5U);   // 11 of 32 red, 21 blue
        EXPECT_EQ(r[10], 0xFFA50052U);
        EXPECT_EQ(r[11], rosso);
        EXPECT_EQ(r[12], y == 0 ? verde : blu);
    }
}

TEST(PictCodecs, runsOfPixels) {
    // Rows 1 and 2 of 4 by 4: skip one, two red, one blue as it stands; then four green.
    const std::string bytes = b({0,    0,    0, 0, 0, 8, 0, 1,    0,    0, 0,    2, 0,    0, 2,
                                 0xFE, 0xFF, 0, 0, 1, 0, 0, 0xFF, 0xFF, 1, 0xFC, 0, 0xFF, 0, 0xFF});
    Immagine im;
    ASSERT_TRUE(DecodificaAntica(fatta(rle, 24, 4, 4, bytes), im));
    const Pixel attesi{bianco, bianco, bianco, bianco, bianco, rosso,  rosso,  blu,
                       verde,  verde,  verde,  verde,  bianco, bianco, bianco, bianco};
    EXPECT_EQ(im.pixels, attesi);
}

TEST(PictCodecs, plainRowsAndWhatIsMissingOfThem) {
    Immagine im;
    ASSERT_TRUE(DecodificaAntica(fatta(raw, 24, 2, 2, b({255, 0, 0, 0, 0, 255, 1})), im));
    EXPECT_EQ(im.pixels, (Pixel{rosso, blu, bianco, bianco}));
    ASSERT_TRUE(DecodificaAntica(fatta(raw, 40, 3, 1, b({0, 255, 128})), im));   // greys
    EXPECT_EQ(im.pixels, (Pixel{bianco, 0xFF000000U, 0xFF7F7F7FU}));
}

TEST(PictCodecs, damagedBytesEnd) {
    std::uint32_t stato = 5;
    for (const std::uint32_t codice : {rpza, rle, raw})
        for (int giro = 0; giro < 300; ++giro) {
            std::string bytes;
            for (int i = 0; i < giro; ++i) {
                stato = stato * 1664525U + 1013904223U;
                bytes.push_back(static_cast<char>(stato >> 24));
            }
            for (const int depth : {8, 16, 24, 32}) {
                Immagine im;
                if (DecodificaAntica(fatta(codice, static_cast<std::int16_t>(depth), 37, 29, bytes), im)) {
                    EXPECT_EQ(im.pixels.size(), 37U * 29U);
                }
            }
        }
    Immagine im;
    EXPECT_FALSE(DecodificaAntica(fatta(rpza, 16, 65535, 65535, "a few bytes"), im));
    EXPECT_FALSE(DecodificaAntica(fatta(rle, 24, 65535, 65535, "a few bytes"), im));
    EXPECT_FALSE(DecodificaAntica(fatta(0x53565131, 24, 4, 4, "another coding"), im));
}

}   // namespace
