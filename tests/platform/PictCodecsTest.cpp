// Images in old movie codings inside a picture show what their coder meant, and damaged ones end.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/pict/Codifiche.h"

using namespace tessaro;

namespace {

using Pixel = std::vector<std::uint32_t>;
constexpr std::uint32_t bianco = 0xFFFFFFFFU, rosso = 0xFFFF0000U, blu = 0xFF0000FFU, verde = 0xFF00FF00U,
                        nero = 0xFF000000U;

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

constexpr std::uint32_t rpza = 0x72707A61, rle = 0x726C6520, raw = 0x72617720, smc = 0x736D6320, cvid = 0x63766964;

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

TEST(PictCodecs, runsOfFewBits) {
    // 16 by 2 of 4 bits: the first eight colours as they stand; then, behind a skip of eight, runs of the last one.
    Immagine im;
    const std::string quattro =
        b({0, 0, 0, 0, 0, 0, 1, 1, 0x01, 0x23, 0x45, 0x67, 0xFF, 2, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF});
    ASSERT_TRUE(DecodificaAntica(fatta(rle, 4, 16, 2, quattro), im));
    EXPECT_EQ(im.pixels[0], bianco);
    EXPECT_EQ(im.pixels[3], 0xFFDD0806U);
    EXPECT_EQ(im.pixels[7], 0xFF02ABEAU);
    EXPECT_EQ(im.pixels[8], bianco);
    EXPECT_EQ(im.pixels[16 + 7], bianco);
    EXPECT_EQ(im.pixels[16 + 8], nero);
    EXPECT_EQ(im.pixels[16 + 15], nero);
    // 4 greys, sixteen at a time
    ASSERT_TRUE(DecodificaAntica(fatta(rle, 34, 16, 1, b({0, 0, 0, 0, 0, 0, 1, 1, 0x1B, 0x1B, 0x1B, 0x1B, 0xFF})), im));
    EXPECT_EQ(im.pixels[4], bianco);
    EXPECT_EQ(im.pixels[5], 0xFFAAAAAAU);
    EXPECT_EQ(im.pixels[7], nero);
    // 32 by 2 of 1 bit: rows begin where a skip has its high bit
    const std::string uno = b({0, 0, 0, 0, 0, 0, 0x80, 1, 0xAA, 0x55, 0x81, 0xFE, 0xFF, 0xFF, 0, 0});
    ASSERT_TRUE(DecodificaAntica(fatta(rle, 1, 32, 2, uno), im));
    EXPECT_EQ(im.pixels[0], nero);
    EXPECT_EQ(im.pixels[1], bianco);
    EXPECT_EQ(im.pixels[8], bianco);
    EXPECT_EQ(im.pixels[15], nero);
    EXPECT_EQ(im.pixels[16], bianco);
    EXPECT_EQ(im.pixels[32 + 15], bianco);
    EXPECT_EQ(im.pixels[32 + 16], nero);
    EXPECT_EQ(im.pixels[32 + 31], nero);
}

TEST(PictCodecs, blocksOfIndicesWithColoursThatCameBefore) {
    // Of the system's 256: 35 red, 210 blue, 185 green, 0 white, 255 black.
    std::string bytes = b({0, 0, 0, 0, 0x60, 35, 0x20, 0x80, 35, 210, 0x80, 0x00, 0x90, 0, 0x00, 0x01, 0xE0});
    bytes += std::string(16, static_cast<char>(185)) + b({0x00, 0xA0, 0, 35, 210, 185, 0x1B, 0x1B, 0x1B, 0x1B});
    bytes += b({0xC0, 0, 35, 210, 185, 255, 5, 35, 210, 0x05, 0x39, 0x97, 0x77, 0x05, 0x37, 0x41});
    Immagine im;
    constexpr std::size_t w = 40;
    ASSERT_TRUE(DecodificaAntica(fatta(smc, 8, w, 4, bytes), im));
    const auto p = [&](std::size_t blocco, std::size_t i) { return im.pixels[i / 4 * w + blocco * 4 + i % 4]; };
    for (const std::size_t i : {0U, 7U, 15U}) {
        EXPECT_EQ(p(0, i), rosso);
        EXPECT_EQ(p(1, i), rosso) << "repeated";
        EXPECT_EQ(p(2, i), i == 0 ? blu : rosso) << "of two";
        EXPECT_EQ(p(3, i), i == 15 ? blu : rosso) << "the same two by their place";
        EXPECT_EQ(p(4, i), verde) << "of sixteen";
        EXPECT_EQ(p(5, i), bianco) << "left open";
    }
    const std::uint32_t quattro[] = {bianco, rosso, blu, verde};
    const std::uint32_t otto[] = {bianco, rosso, blu, verde, nero, 0xFFFFFF00U, rosso, blu};
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(p(6, i), quattro[i % 4]) << i;
        EXPECT_EQ(p(7, i), otto[i % 8]) << i;
        EXPECT_EQ(p(8, i), quattro[i % 4]) << "two blocks repeated " << i;
        EXPECT_EQ(p(9, i), otto[i % 8]) << i;
    }
}

TEST(PictCodecs, blocksOfVectorsOutOfTwoBooks) {
    const auto pezzo = [](int che, const std::string& dati) {
        return b({che, 0, 0, static_cast<int>(dati.size()) + 4}) + dati;
    };
    const std::string uno = pezzo(0x22, b({255, 255, 0, 0, 0, 0, 127, 127, 127, 127, 0, 64}));
    const std::string quattro = pezzo(0x20, b({0, 0, 0, 0, 0, 0, 255, 255, 255, 255, 0, 0}));
    // Two strips of 8 by 4; the second keeps the books of the first and has its second block left open.
    const auto striscia = [&](const std::string& dati) {
        return b({0x10, 0, 0, static_cast<int>(dati.size()) + 12, 0, 0, 0, 0, 0, 4, 0, 8}) + dati;
    };
    const std::string corpo = striscia(uno + quattro + pezzo(0x30, b({0x40, 0, 0, 0, 0, 0, 1, 1, 0})))
                              + striscia(pezzo(0x31, b({0x80, 0, 0, 0, 1})));
    Immagine im;
    ASSERT_TRUE(DecodificaAntica(fatta(cvid, 24, 8, 8, b({0, 0, 0, 0, 0, 8, 0, 8, 0, 2}) + corpo), im));
    const auto p = [&](std::size_t x, std::size_t y) { return im.pixels[y * 8 + x]; };
    EXPECT_EQ(p(0, 0), bianco);
    EXPECT_EQ(p(3, 1), bianco);
    EXPECT_EQ(p(0, 2), nero);
    EXPECT_EQ(p(3, 3), nero);
    EXPECT_EQ(p(4, 0), nero) << "of four vectors, the upper left";
    EXPECT_EQ(p(7, 1), bianco);
    EXPECT_EQ(p(4, 2), bianco);
    EXPECT_EQ(p(7, 3), nero);
    EXPECT_EQ(p(0, 4), 0xFFFF3F7FU);
    EXPECT_EQ(p(3, 7), 0xFFFF3F7FU);
    EXPECT_EQ(p(4, 4), bianco) << "left open";
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
    for (const std::uint32_t codice : {rpza, rle, raw, smc, cvid})
        for (int giro = 0; giro < 300; ++giro) {
            std::string bytes;
            for (int i = 0; i < giro; ++i) {
                stato = stato * 1664525U + 1013904223U;
                bytes.push_back(static_cast<char>(stato >> 24));
            }
            for (const int depth : {1, 4, 8, 16, 24, 32, 34, 40}) {
                Immagine im;
                if (DecodificaAntica(fatta(codice, static_cast<std::int16_t>(depth), 37, 29, bytes), im)) {
                    EXPECT_EQ(im.pixels.size(), 37U * 29U);
                }
            }
        }
    Immagine im;
    EXPECT_FALSE(DecodificaAntica(fatta(rpza, 16, 65535, 65535, "a few bytes"), im));
    EXPECT_FALSE(DecodificaAntica(fatta(rle, 24, 65535, 65535, "a few bytes"), im));
    EXPECT_FALSE(DecodificaAntica(fatta(smc, 8, 65535, 65535, "a few bytes"), im));
    EXPECT_FALSE(DecodificaAntica(fatta(cvid, 24, 65535, 65535, "a few bytes"), im));
    EXPECT_FALSE(DecodificaAntica(fatta(0x53565131, 24, 4, 4, "another coding"), im));
}

}   // namespace
