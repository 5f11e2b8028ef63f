// Pixels go into a stored picture and come out of it whatever the raster's size, and however its rows are asked for.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "bitmap/PictInPixel.h"
#include "platform/pict/DaRighe.h"
#include "platform/pict/Pict.h"

using namespace tessaro;

namespace {

using Pixel = std::vector<std::uint32_t>;

std::uint32_t caso(std::uint32_t& stato) { return stato = stato * 1664525U + 1013904223U; }

Pixel rumore(std::int32_t w, std::int32_t h, std::uint32_t maschera = 0xFFFFFFU) {
    std::uint32_t stato = 7;
    Pixel p(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    for (std::size_t i = 0; i < p.size(); ++i)
        p[i] = i % 50 < 30 && i > 0 ? p[i - 1] : 0xFF000000U | ((caso(stato) >> 8) & maschera);
    return p;
}

std::string pict(const Pixel& p, std::int32_t w, std::int32_t h, const FormaPict& forma) {
    PictDaRighe r(w, h, forma);
    for (std::int32_t y = 0; y < h; ++y) r.riga(p.data() + std::ptrdiff_t(y) * w);
    return r.fine();
}

Pixel letti(const std::string& bytes, std::int32_t perVolta = 1 << 20) {
    PictInPixel p(bytes);
    Pixel out(static_cast<std::size_t>(p.width()) * static_cast<std::size_t>(p.height()));
    for (std::int32_t y = 0; y < p.height(); y += perVolta)
        EXPECT_TRUE(p.righe(y, std::min(perVolta, p.height() - y), out.data() + std::ptrdiff_t(y) * p.width()));
    return out;
}

struct Misure {
    std::int32_t w, h;
};
// Sides at and beyond what 16 bits can say, odd ones too, and the rows that are not packed.
constexpr Misure misure[] = {{1, 1},     {3, 5},     {64, 9},    {126, 4},   {4095, 3},  {8192, 2},
                             {32767, 2}, {32768, 2}, {40001, 3}, {70003, 2}, {2, 40001}, {65, 70001}};

TEST(PictInPixel, aRasterOfAnySizeComesBackExactly) {
    for (const auto [w, h] : misure) {
        const Pixel p = rumore(w, h);
        const std::string bytes = pict(p, w, h, {});
        const PictInPixel letto(bytes);
        EXPECT_TRUE(letto.soloRaster()) << w << " " << h;
        EXPECT_EQ(letto.width(), w);
        EXPECT_EQ(letto.height(), h);
        EXPECT_TRUE(letti(bytes) == p) << w << " by " << h;
    }
}

TEST(PictInPixel, fewerBitsKeepTheNearestColours) {
    for (const auto [w, h] : misure) {
        const Pixel pochi = rumore(w, h, 0x808040U);   // at most eight colours
        EXPECT_TRUE(letti(pict(pochi, w, h, {.depth = 8})) == pochi) << w << " by " << h;
        const Pixel tanti = rumore(w, h);
        const auto scarto = [&](std::int16_t depth) {
            const Pixel q = letti(pict(tanti, w, h, {.depth = depth}));
            EXPECT_EQ(q.size(), tanti.size());
            int peggio = 0;
            for (std::size_t i = 0; i < std::min(q.size(), tanti.size()); ++i)
                for (const int giu : {0, 8, 16})
                    peggio = std::max(peggio, std::abs(static_cast<int>((q[i] >> giu) & 255)
                                                       - static_cast<int>((tanti[i] >> giu) & 255)));
            return peggio;
        };
        EXPECT_LE(scarto(16), 5) << w << " by " << h;
        EXPECT_LE(scarto(8), 45) << w << " by " << h;
    }
}

TEST(PictInPixel, theFrameIsTheSizeForOthersAndNotThePixels) {
    const Pixel p = rumore(300, 200);
    const std::string bytes = pict(p, 300, 200, {.frame = Rect{0, 0, 48, 72}});
    Rect frame;
    double dpiX = 0, dpiY = 0;
    ASSERT_TRUE(PictFrame(bytes, frame, dpiX, dpiY));
    EXPECT_EQ(frame, (Rect{0, 0, 48, 72}));
    EXPECT_NEAR(dpiX, 300, 0.01);
    EXPECT_NEAR(dpiY, 300, 0.01);
    EXPECT_TRUE(letti(bytes) == p);
}

TEST(PictInPixel, rowsThatDidNotComeAreWhite) {
    PictDaRighe r(3, 2, {});
    const Pixel sola{0xFF010203U, 0xFF040506U, 0xFF070809U};
    r.riga(sola.data());
    const Pixel q = letti(r.fine());
    ASSERT_EQ(q.size(), 6U);
    EXPECT_EQ(q[0], sola[0]);
    EXPECT_EQ(q[5], 0xFFFFFFFFU);
    EXPECT_TRUE(PictDaRighe(0, 5, {}).fine().empty());
}

std::string figure() {
    OpenPicture(Rect{0, 0, 40, 60});
    ForeColor(redColor);
    PenSize(3, 2);
    MoveTo(2, 3);
    LineTo(55, 33);
    FrameOval(Rect{5, 10, 35, 50});
    FillArc(Rect{5, 10, 35, 50}, 20, 70, qdGray);
    return ClosePicture();
}

TEST(PictInPixel, stripsAreTheWhole) {
    const Pixel p = rumore(90, 70);
    for (const std::string& bytes : {pict(p, 90, 70, {}), pict(p, 90, 70, {.mode = bitsTrasparente}), figure()}) {
        for (const auto [w, h] : {Misure{90, 70}, Misure{161, 127}, Misure{33, 17}, Misure{1, 1}}) {
            const auto reso = [&](std::int32_t perVolta) {
                PictInPixel quella(bytes);
                Pixel out(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
                EXPECT_TRUE(quella.misura(w, h));
                for (std::int32_t y = 0; y < h; y += perVolta)
                    EXPECT_TRUE(quella.righe(y, std::min(perVolta, h - y), out.data() + std::ptrdiff_t(y) * w));
                return out;
            };
            const Pixel intera = reso(h);
            EXPECT_TRUE(reso(1) == intera) << w << " by " << h;
            EXPECT_TRUE(reso(13) == intera) << w << " by " << h;
        }
    }
}

TEST(PictInPixel, whatIsNoPictureSaysSo) {
    PictInPixel niente(std::string_view("not a picture"));
    std::uint32_t uno = 0;
    EXPECT_FALSE(niente.righe(0, 1, &uno));
    EXPECT_FALSE(niente.misura(0, 5));
}

}   // namespace
