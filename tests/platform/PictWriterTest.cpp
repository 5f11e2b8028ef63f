// Nothing is lost on the way into a stored picture: rasters of every depth, and drawings recorded and played again.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Fonts.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Pict.h"
#include "platform/pict/RighePict.h"
#include "platform/pict/Scrittore.h"

using namespace tessaro;

namespace {

std::uint32_t caso(std::uint32_t& stato) { return stato = stato * 1664525U + 1013904223U; }

std::vector<std::uint32_t> letti(const std::string& pict) {
    RighePict r;
    if (!r.apri(pict)) return {};
    std::vector<std::uint32_t> tutti(static_cast<std::size_t>(r.width()) * static_cast<std::size_t>(r.height()));
    for (std::int32_t y = 0; y < r.height(); ++y) r.riga(y, 0, r.width(), tutti.data() + std::ptrdiff_t(y) * r.width());
    return tutti;
}

// The widths where something changes: unpacked rows, counts of one and two bytes, strips.
constexpr std::int32_t larghezze[] = {1, 2, 7, 8, 50, 62, 64, 66, 100, 201, 249, 4095, 4096, 9000, 17000};

TEST(PictWriter, deepPixelsComeBackExactly) {
    std::uint32_t stato = 1;
    for (const std::int32_t w : larghezze) {
        std::vector<std::uint32_t> pixel(static_cast<std::size_t>(w) * 3);
        for (std::size_t i = 0; i < pixel.size(); ++i) {   // runs and noise in turn
            if (i / 200 % 2 == 0 || i % 40 == 0)
                pixel[i] = 0xFF000000U | caso(stato) >> 8;
            else
                pixel[i] = pixel[i - 1];
        }
        EXPECT_EQ(letti(PictDaPixel(pixel.data(), w, 3)), pixel) << "width " << w;
    }
}

TEST(PictWriter, indicesComeBackWithTheirColours) {
    std::uint32_t stato = 2;
    for (const std::int16_t depth : {std::int16_t{1}, std::int16_t{8}}) {
        std::vector<RGBColor> palette;
        for (int i = 0; i < (depth == 1 ? 2 : 256); ++i) palette.push_back(coloreDi(0xFF000000U | caso(stato) >> 8));
        for (const std::int32_t w : larghezze) {
            std::vector<std::uint8_t> indici(static_cast<std::size_t>(w) * 3);
            std::vector<std::uint32_t> pixel(indici.size());
            for (std::size_t i = 0; i < indici.size(); ++i) {
                indici[i] = static_cast<std::uint8_t>((caso(stato) >> 24) & (depth == 1 ? 1U : 255U));
                pixel[i] = pixelDi(palette[indici[i]]);
            }
            EXPECT_EQ(letti(PictDaIndici(indici.data(), palette, w, 3, depth)), pixel) << depth << " " << w;
        }
    }
}

TEST(PictWriter, noRowPassesTheOpcodesLimit) {
    const std::vector<std::uint32_t> pixel(30000 * 2, 0xFF123456U);
    const std::string p = PictDaPixel(pixel.data(), 30000, 2);
    VociPict voci(p);
    Voce v;
    std::int32_t coperti = 0;
    while (voci.prossima(v)) {
        if (!OpcodeBits(v.op)) continue;
        BitsTesta t;
        Lettore l(v.dati);
        ASSERT_TRUE(LeggiBitsTesta(l, v.op, t));
        EXPECT_LE(t.rowBytes, 0x3FFF);
        coperti += t.larghezza();
    }
    EXPECT_TRUE(voci.finito());
    EXPECT_EQ(coperti, 30000);
}

TEST(PictWriter, aJpegBeyondSixteenBitsOfFrameKeepsItsPixels) {
    EXPECT_TRUE(PictDaJpeg("x", 65536, 10, 72, 72).empty());   // more than its own format can say
    const std::string p = PictDaJpeg("bytes", 65535, 20001, 600, 600);
    ImmagineCompressa c;
    ASSERT_TRUE(SolaCompressa(p, c));
    EXPECT_EQ(c.width, 65535);
    EXPECT_EQ(c.height, 20001);
    double larghi = 0, alti = 0;
    ASSERT_TRUE(PictPunti(p, larghi, alti));
    EXPECT_NEAR(larghi, 65535 * 72.0 / 600, 0.5);
    EXPECT_NEAR(alti, 20001 * 72.0 / 600, 0.5);
}

TEST(PictWriter, aJpegKeepsItsOwnBytes) {
    const std::string jpeg = "\xFF\xD8 not looked into \xFF\xD9!";
    const std::string p = PictDaJpeg(jpeg, 640, 480, 300, 300);
    PictRaster r;
    ASSERT_TRUE(PictSoloRaster(p, r));
    EXPECT_TRUE(r.jpeg);
    EXPECT_EQ(r.data, jpeg);
    ImmagineCompressa c;
    ASSERT_TRUE(SolaCompressa(p, c));
    EXPECT_EQ(c.width, 640);
    EXPECT_EQ(c.height, 480);
}

// What is drawn by `disegna`, and the same by way of a recorded picture.
template <class F>
void ugualeRegistrato(const F& disegna) {
    const Rect r{0, 0, 120, 160};
    RasterPort dritto(r.right, r.bottom, 1), registrato(r.right, r.bottom, 1);
    SetPort(&dritto);
    disegna();
    SetPort(&registrato);
    OpenPicture(r);
    disegna();
    const std::string p = ClosePicture();
    EXPECT_EQ(GetPort(), &registrato);
    EXPECT_TRUE(DrawPicture(p, r));
    SetPort(nullptr);
    const std::size_t n = static_cast<std::size_t>(r.right) * static_cast<std::size_t>(r.bottom);
    const auto diversi =
        std::mismatch(dritto.pixels(), dritto.pixels() + n, registrato.pixels()).first - dritto.pixels();
    EXPECT_EQ(static_cast<std::size_t>(diversi), n)
        << "first difference at " << diversi % r.right << ", " << diversi / r.right;
}

TEST(PictRecorder, figuresWithTheirPensComeBackAsDrawn) {
    ugualeRegistrato([] {
        ForeColor(redColor);
        PenSize(3, 2);
        MoveTo(5, 5);
        LineTo(150, 60);
        PenNormal();
        RGBForeColor(RGBColor{0x1234, 0x8000, 0xFFFF});
        FrameOval(Rect{10, 10, 60, 90});
        PenPat(qdGray);
        PaintRect(Rect{30, 100, 80, 150});
        FillArc(Rect{60, 10, 110, 60}, 30, 200, qdLtGray);
        PenMode(patXor);
        PenPat(qdBlack);
        PaintOval(Rect{20, 80, 70, 130});
        OpenPoly();
        MoveTo(90, 80);
        LineTo(150, 90);
        LineTo(100, 115);
        LineTo(90, 80);
        const Polygon p = ClosePoly();
        FillPoly(p, qdDkGray);
        PenMode(patCopy);
        FramePoly(p);
    });
}

TEST(PictRecorder, clipsTextAndPixelsComeBackAsDrawn) {
    ugualeRegistrato([] {
        Region clip = Region::of(Rect{0, 0, 60, 160});
        clip.subtract(Rect{20, 20, 40, 60});
        SetClip(clip);
        PaintRect(Rect{10, 10, 70, 150});
        ClipRect(Rect{0, 0, 120, 160});
        MoveTo(10, 90);
        TextFont(3);
        TextSize(14);
        TextFace(bold);
        DrawString("Mappale 12");
        std::vector<std::uint32_t> pixel(20 * 20);
        for (std::size_t i = 0; i < pixel.size(); ++i) pixel[i] = 0xFF000000U | static_cast<std::uint32_t>(i * 65793);
        const Rect tutto{0, 0, 20, 20};
        CopyBits(PixMap{pixel.data(), 20, tutto}, tutto, Rect{70, 100, 90, 120});
        CopyBits(PixMap{pixel.data(), 20, tutto}, Rect{0, 0, 10, 10}, Rect{95, 100, 115, 140});
    });
}

TEST(PictRecorder, aPictureInAPictureKeepsItsFullResolution) {
    std::uint32_t stato = 7;
    std::vector<std::uint32_t> pixel(400 * 300);
    for (auto& p : pixel) p = 0xFF000000U | caso(stato) >> 8;
    const std::string scansione = PictDaPixel(pixel.data(), 400, 300);
    OpenPicture(Rect{0, 0, 30, 40});
    DrawPicture(scansione, Rect{0, 0, 30, 40});
    EXPECT_EQ(letti(ClosePicture()), pixel);
}

TEST(PictRecorder, nothingOpenGivesNothing) { EXPECT_TRUE(ClosePicture().empty()); }

}   // namespace
