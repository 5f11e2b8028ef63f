// Regions, scrolling, pixel copies, text and the dirty region of the raster port.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "platform/Fonts.h"
#include "platform/paint/RasterPort.h"
#include "support/PixelDiff.h"

namespace tessaro::prova {
namespace {

TEST(PaintRegion, UnionsAndCutsHoldEachPixelExactlyOnce) {
    std::mt19937 random(3);
    std::uniform_int_distribution<std::int32_t> place(0, 24), size(1, 12), choice(0, 3);
    for (int round = 0; round < 100; ++round) {
        Region region;
        std::vector<bool> pixels(40 * 40);
        for (int step = 0; step < 12; ++step) {
            const std::int32_t left = place(random), top = place(random);
            const Rect r = SetRect(left, top, left + size(random), top + size(random));
            const std::int32_t what = choice(random);
            if (what == 0) region.subtract(r);
            if (what == 3 && step > 6) region.intersect(InsetRect(r, -8, -8));
            if (what == 1 || what == 2) region.add(r);
            for (std::int32_t v = 0; v < 40; ++v) {
                for (std::int32_t h = 0; h < 40; ++h) {
                    const auto i = static_cast<std::size_t>(v * 40 + h);
                    const bool in = PtInRect(Point{v, h}, r);
                    if (what == 0 && in) pixels[i] = false;
                    if (what == 3 && step > 6 && !PtInRect(Point{v, h}, InsetRect(r, -8, -8))) pixels[i] = false;
                    if ((what == 1 || what == 2) && in) pixels[i] = true;
                }
            }
        }
        for (std::int32_t v = 0; v < 40; ++v) {
            for (std::int32_t h = 0; h < 40; ++h) {
                int holders = 0;
                for (const Rect& part : region.parti) holders += PtInRect(Point{v, h}, part) ? 1 : 0;
                ASSERT_EQ(holders, pixels[static_cast<std::size_t>(v * 40 + h)] ? 1 : 0) << h << "," << v;
            }
        }
    }
}

// Every pixel tells where it was.
void number(RasterPort& port) {
    for (std::int32_t i = 0; i < port.deviceWidth() * port.deviceHeight(); ++i)
        port.pixels()[i] = 0xFF000000U + static_cast<std::uint32_t>(i);
}

TEST(PaintPort, AScrollMovesWhatTheClipHoldsAndGivesBackWhatItUncovers) {
    Region torn = Region::of(SetRect(4, 3, 20, 30));
    torn.add(SetRect(12, 20, 40, 34));
    const Rect r = SetRect(2, 2, 38, 32);
    for (const std::int32_t ratio : {1, 2}) {
        for (const Region& clip : {Region::of(SetRect(0, 0, 48, 40)), torn}) {
            for (const Point by :
                 {Point{0, 15}, Point{-7, 3}, Point{9, -11}, Point{-3, 0}, Point{100, 0}, Point{0, 0}}) {
                RasterPort port(48, 40, ratio);
                const Corrente current(port);
                number(port);
                SetClip(clip);
                port.sporco.clear();
                const Region uncovered = ScrollRect(r, by.h, by.v);
                const auto moves = [&](std::int32_t h, std::int32_t v) {
                    return PtInRect(Point{v, h}, r) && clip.contains(Point{v, h});
                };
                ASSERT_TRUE(agrees(port,
                                   [&](std::int32_t x, std::int32_t y) {
                                       const auto was = [&](std::int32_t px, std::int32_t py) {
                                           return 0xFF000000U
                                                  + static_cast<std::uint32_t>(py * port.deviceWidth() + px);
                                       };
                                       const std::int32_t h = x / ratio, v = y / ratio;
                                       if (!moves(h, v)) return was(x, y);
                                       const bool filled = moves(h - by.h, v - by.v);
                                       EXPECT_EQ(uncovered.contains(Point{v, h}), !filled);
                                       return filled ? was(x - by.h * ratio, y - by.v * ratio) : bianco;
                                   }))
                    << by.h << "," << by.v << " ratio " << ratio;
                for (const Rect& part : uncovered.parti) EXPECT_TRUE(moves(part.left, part.top));
            }
        }
    }
}

TEST(PaintPort, PixelsAreCopiedEnlargedAndReducedWhereTheyAreVisible) {
    std::vector<std::uint32_t> checks(16 * 12);
    for (std::uint32_t i = 0; i < checks.size(); ++i) checks[i] = 0xFF000000U + i * 0x010203U;
    const PixMap bits{checks.data(), 16, SetRect(0, 0, 16, 12)};
    const auto source = [&](std::int64_t x, std::int64_t y) { return checks[static_cast<std::size_t>(y * 16 + x)]; };
    RasterPort port(48, 40, 1);
    const Corrente current(port);

    CopyBits(bits, SetRect(2, 1, 12, 9), SetRect(-3, 35, 7, 43));
    EXPECT_TRUE(agrees(port, [&](std::int32_t x, std::int32_t y) {
        return x < 7 && y >= 35 ? source(x + 5, y - 34) : bianco;
    })) << "same size, over the port's edge";

    EraseRect(port.portRect);
    CopyBits(bits, SetRect(0, 0, 16, 12), SetRect(5, 2, 5 + 40, 2 + 30));
    EXPECT_TRUE(agrees(port, [&](std::int32_t x, std::int32_t y) {
        const bool in = x >= 5 && x < 45 && y >= 2 && y < 32;
        return in ? source((2 * (x - 5) + 1) * 16 / 80, (2 * (y - 2) + 1) * 12 / 60) : bianco;
    })) << "enlarged by five halves";

    // Pixel 7 of 16 over a destination of two thousand million: the port shows that one alone.
    CopyBits(bits, SetRect(0, 0, 16, 12), SetRect(-1000000000, -1000000000, 1000000000, 1000000000));
    EXPECT_TRUE(agrees(port, [&](std::int32_t, std::int32_t) { return source(8, 6); }));

    EraseRect(port.portRect);
    CopyBits(bits, SetRect(-16, 0, 32, 12), SetRect(0, 0, 48, 12));
    EXPECT_TRUE(agrees(port, [&](std::int32_t x, std::int32_t y) {
        return x >= 16 && x < 32 && y < 12 ? source(x - 16, y) : bianco;
    })) << "only source pixels that exist";

    // Reducing: a 3 by 3 grid of columns black, white, white becomes an even grey whatever the phase.
    std::vector<std::uint32_t> columns(90 * 60);
    for (std::size_t i = 0; i < columns.size(); ++i) columns[i] = i % 3 == 0 ? nero : bianco;
    EraseRect(port.portRect);
    CopyBits(PixMap{columns.data(), 90, SetRect(0, 0, 90, 60)}, SetRect(0, 0, 90, 60), SetRect(0, 0, 30, 20));
    EXPECT_TRUE(agrees(port, [&](std::int32_t x, std::int32_t y) { return x < 30 && y < 20 ? 0xFFAAAAAAU : bianco; }));

    // By a factor that is no whole number, the mean brightness stays and white stays white.
    const std::vector<std::uint32_t> white(90 * 60, bianco);
    PaintRect(port.portRect);
    CopyBits(PixMap{white.data(), 90, SetRect(0, 0, 90, 60)}, SetRect(0, 0, 90, 60), SetRect(0, 0, 37, 23));
    EXPECT_TRUE(agrees(port, [&](std::int32_t x, std::int32_t y) { return x < 37 && y < 23 ? bianco : nero; }));
    CopyBits(PixMap{columns.data(), 90, SetRect(0, 0, 90, 60)}, SetRect(0, 0, 90, 60), SetRect(0, 0, 37, 23));
    double sum = 0;
    for (std::int32_t x = 0; x < 37; ++x) sum += port.pixel(x, 10) & 0xFFU;
    EXPECT_NEAR(sum / 37, 170, 0.5);
}

TEST(PaintPort, FarApartChangesStayApartAndNothingTouchedIsLeftOut) {
    RasterPort port(800, 600, 2);
    const Corrente current(port);
    port.sporco.clear();
    PenSize(2, 2);
    MoveTo(10, 10);
    LineTo(18, 14);
    MoveTo(760, 590);
    LineTo(765, 580);
    const Region dirty = port.PrendiSporco();
    EXPECT_TRUE(port.sporco.empty());
    std::int32_t area = 0;
    for (const Rect& part : dirty.parti) area += (part.right - part.left) * (part.bottom - part.top);
    EXPECT_LT(area, 400);
    for (std::int32_t y = 0; y < port.deviceHeight(); ++y)
        for (std::int32_t x = 0; x < port.deviceWidth(); ++x)
            ASSERT_TRUE(port.pixel(x, y) == bianco || dirty.contains(Point{y / 2, x / 2})) << x << "," << y;
}

TEST(PaintPort, TextLiesInItsBoxMovesThePenAndXorTakesItOffAgain) {
    for (const std::int32_t ratio : {1, 2}) {
        RasterPort port(200, 60, ratio);
        const Corrente current(port);
        TextFont(3);
        TextSize(18);
        MoveTo(10, 40);
        DrawString("Particella");
        const std::int32_t width = StringWidth("Particella");
        EXPECT_EQ(GetPen().h, 10 + width);
        // Widths are those of the unhinted outlines: in Liberation Sans this word is about 4.2 ems.
        EXPECT_NEAR(width, 4.2 * 18, 8);
        std::int32_t inked = 0;
        for (std::int32_t y = 0; y < port.deviceHeight(); ++y) {
            for (std::int32_t x = 0; x < port.deviceWidth(); ++x) {
                if (port.pixel(x, y) == bianco) continue;
                ++inked;
                ASSERT_TRUE(PtInRect(Point{y / ratio, x / ratio}, SetRect(9, 24, 12 + width, 47))) << x << "," << y;
            }
        }
        EXPECT_GT(inked, 200 * ratio);
        EraseRect(port.portRect);
        TextMode(2);
        for (int i = 0; i < 2; ++i) {
            MoveTo(10, 40);
            DrawString("Particella");
        }
        EXPECT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return bianco; }));
        PaintRect(port.portRect);
        TextMode(srcCopy);
        MoveTo(10, 40);
        DrawString("Particella");
        EXPECT_EQ(port.pixel(11 * ratio, 42 * ratio), bianco) << "the ground is white";
        EXPECT_EQ(port.pixel(8 * ratio, 30 * ratio), nero);
    }
}

TEST(PaintFonts, FamiliesAndNumbersFindEachOther) {
    const std::vector<std::string> families = FontFamilies();
    ASSERT_FALSE(families.empty());
    std::set<std::int16_t> numbers;
    for (const std::string& name : families) {
        EXPECT_EQ(name.find(" ["), std::string::npos) << "the maker is no part of a name";
        const std::int16_t number = GetFNum(name);
        EXPECT_TRUE(number >= 1024 && number <= 16383) << name;
        EXPECT_TRUE(numbers.insert(number).second) << name << " shares its number";
        EXPECT_EQ(GetFontName(number), name);
    }
    EXPECT_EQ(GetFNum("No such family"), 0);
    EXPECT_EQ(TextWidth(4, 10, 0, "iiii"), TextWidth(4, 10, 0, "WWWW")) << "font 4 has one width for all letters";
    EXPECT_LT(TextWidth(20, 24, 0, "iiii"), TextWidth(20, 24, 0, "WWWW"));
}

}   // namespace
}   // namespace tessaro::prova
