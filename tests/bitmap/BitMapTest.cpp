// The one-bit kernel against a slow reference that holds a bitmap as text, a character a pixel.
#include "bitmap/BitMap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "platform/pict/Pict.h"

namespace {

using namespace tessaro;

using Disegno = std::vector<std::string>;   // rows of '#' and '.'

BitMapPtr daDisegno(const Disegno& d) {
    BitMapPtr b(NewBitMap(static_cast<std::int16_t>(d.empty() ? 0 : d[0].size()), static_cast<std::int16_t>(d.size())));
    for (std::size_t y = 0; y < d.size(); ++y)
        for (std::size_t x = 0; x < d[y].size(); ++x)
            if (d[y][x] == '#') BitMapSet(b.get(), static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    return b;
}

Disegno comeDisegno(const BitMapPtr& b) {
    Disegno d;
    for (std::int32_t y = 0; b != nullptr && y < b->altezza(); ++y) {
        d.emplace_back();
        for (std::int32_t x = 0; x < b->larghezza(); ++x)
            d.back() += BitMapTest(b.get(), static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)) ? '#' : '.';
    }
    return d;
}

Disegno caso(std::mt19937& g, std::size_t w, std::size_t h) {
    Disegno d(h, std::string(w, '.'));
    for (std::string& r : d)
        for (char& c : r) c = g() % 3 == 0 ? '#' : '.';
    return d;
}

template <class Di>
Disegno nuovo(std::size_t w, std::size_t h, Di di) {
    Disegno d(h, std::string(w, '.'));
    for (std::size_t y = 0; y < h; ++y)
        for (std::size_t x = 0; x < w; ++x) d[y][x] = di(x, y);
    return d;
}

constexpr std::pair<std::size_t, std::size_t> misure[] = {{1, 1},   {1, 9},  {7, 3},  {8, 8},   {15, 16},
                                                          {16, 15}, {17, 1}, {33, 5}, {64, 31}, {31, 64}};

TEST(BitMap, RowsAreWholeWordsAndMirrorsAndQuarterTurnsAgreeWithTheReference) {
    std::mt19937 g(7);
    const BitMapPtr largo(NewBitMap(17, 2));
    EXPECT_EQ(largo->rowBytes, 4);
    for (const auto& [w, h] : misure) {
        SCOPED_TRACE(std::to_string(w) + " x " + std::to_string(h));
        const Disegno d = caso(g, w, h);
        const BitMapPtr b = daDisegno(d);
        const auto larga = w, alta = h;
        EXPECT_EQ(comeDisegno(BitMapPtr(RotateRight(b.get()))),
                  nuovo(h, w, [&](std::size_t x, std::size_t y) { return d[alta - 1 - x][y]; }));
        EXPECT_EQ(comeDisegno(BitMapPtr(RotateLeft(b.get()))),
                  nuovo(h, w, [&](std::size_t x, std::size_t y) { return d[x][larga - 1 - y]; }));
        EXPECT_EQ(comeDisegno(BitMapPtr(FlipVertical(b.get()))),
                  nuovo(w, h, [&](std::size_t x, std::size_t y) { return d[alta - 1 - y][x]; }));
        EXPECT_EQ(comeDisegno(BitMapPtr(FlipHorizontal(b.get()))),
                  nuovo(w, h, [&](std::size_t x, std::size_t y) { return d[y][larga - 1 - x]; }));
        const BitMapPtr quattro(RotateRight(BitMapPtr(RotateRight(BitMapPtr(RotateLeft(b.get())).get())).get()));
        EXPECT_TRUE(EqualBitMaps(BitMapPtr(RotateRight(b.get())).get(), quattro.get()));
        EXPECT_EQ(comeDisegno(BitMapPtr(DuplicateBitMap(b.get()))), d);
    }
}

TEST(BitMap, LogicIsByBitAndRefusesOtherBounds) {
    std::mt19937 g(11);
    const Disegno p = caso(g, 21, 6), q = caso(g, 21, 6);
    const BitMapPtr a = daDisegno(p), b = daDisegno(q), altra = daDisegno(caso(g, 20, 6));
    const auto due = [&](auto f) {
        return nuovo(21, 6,
                     [&](std::size_t x, std::size_t y) { return f(p[y][x] == '#', q[y][x] == '#') ? '#' : '.'; });
    };
    EXPECT_EQ(comeDisegno(BitMapPtr(BitMapAND(a.get(), b.get()))), due([](bool u, bool v) { return u && v; }));
    EXPECT_EQ(comeDisegno(BitMapPtr(BitMapOR(a.get(), b.get()))), due([](bool u, bool v) { return u || v; }));
    EXPECT_EQ(comeDisegno(BitMapPtr(BitMapXOR(a.get(), b.get()))), due([](bool u, bool v) { return u != v; }));
    EXPECT_EQ(comeDisegno(BitMapPtr(BitMapNOT(a.get()))), due([](bool u, bool) { return !u; }));
    EXPECT_EQ(BitMapAND(a.get(), altra.get()), nullptr);
    EXPECT_EQ(BitMapOR(nullptr, a.get()), nullptr);
    // What stands behind the right edge does not make two bitmaps differ.
    const BitMapPtr doppia(BitMapNOT(BitMapPtr(BitMapNOT(a.get())).get()));
    BitMapPtr sporca(DuplicateBitMap(a.get()));
    sporca->baseAddr[3] = static_cast<std::uint8_t>(sporca->baseAddr[3] | 1);
    EXPECT_TRUE(EqualBitMaps(a.get(), doppia.get()));
    EXPECT_TRUE(EqualBitMaps(a.get(), sporca.get()));
    BitMapToggle(sporca.get(), 20, 5);
    EXPECT_FALSE(EqualBitMaps(a.get(), sporca.get()));
}

TEST(BitMap, PaintAndLassoStopAtWalls) {
    const BitMapPtr b = daDisegno({"........", ".#####..", ".#...#..", ".#.#.#..", ".#####..", "......#."});
    EXPECT_EQ(comeDisegno(BitMapPtr(PaintBucketBitMap(b.get(), 2, 2))),
              (Disegno{"........", "........", "..###...", "..#.#...", "........", "........"}));
    EXPECT_EQ(comeDisegno(BitMapPtr(PaintBucketBitMap(b.get(), 1, 1))), Disegno(6, "........"));
    EXPECT_EQ(comeDisegno(BitMapPtr(LassoBitMap(b.get()))),
              (Disegno{"........", ".#####..", ".#####..", ".#####..", ".#####..", "......#."}));
    EXPECT_EQ(comeDisegno(BitMapPtr(TraceBitMap(daDisegno({"....", ".##.", "...."}).get()))),
              (Disegno{"####", "....", "####"}));
}

TEST(BitMap, FixedNumbersRoundToTheNearestHalvesUp) {
    EXPECT_EQ(FixRatio(1, 3), 21845);
    EXPECT_EQ(FixRatio(-2, 3), -43691);
    EXPECT_EQ(FixRatio(-7, 1), -7 * 65536);
    EXPECT_EQ(FixMul(98304, 98304), 147456);   // 1.5 x 1.5
    EXPECT_EQ(FixMul(1, 32768), 1);
    EXPECT_EQ(FixMul(-1, 32768), 0);
    EXPECT_EQ(FixRound(98304), 2);
    EXPECT_EQ(FixRound(-98304), -1);
    EXPECT_EQ(FixMul(1144, 90 * 65536), 102960);
    EXPECT_EQ(FracMul(65536, FracCos(0)), 65536);
    EXPECT_EQ(FracSin(102944), 1 << 30);   // pi / 2 to a 65536th
}

// The forward formula in the same fixed numbers, written out once more.
Point girato(double x, double y, int cx, int cy, Fixed gradi) {
    const Fixed rad = static_cast<Fixed>((std::int64_t{1144} * -gradi + 32768) >> 16);
    const auto c = std::llround(std::cos(rad / 65536.0) * 1073741824.0);
    const auto s = std::llround(std::sin(rad / 65536.0) * 1073741824.0);
    const auto per = [](double a, long long f) {
        return std::floor(a * 65536 * static_cast<double>(f) / 1073741824.0 + 0.5);
    };
    return Point{static_cast<int>(std::floor((per(y - cy, c) - per(x - cx, s)) / 65536 + cy + 0.5)),
                 static_cast<int>(std::floor((per(x - cx, c) + per(y - cy, s)) / 65536 + cx + 0.5))};
}

TEST(BitMap, TurnsByAnyAngleFollowTheFormula) {
    std::mt19937 g(3);
    for (int giro = 0; giro < 40; ++giro) {
        const std::size_t w = 1 + g() % 40, h = 1 + g() % 20;
        const int cx = static_cast<int>(g() % 9) - 4, cy = static_cast<int>(g() % 21);
        const Fixed gradi = static_cast<Fixed>((static_cast<int>(g() % 7200) - 3600) * 6553);
        SCOPED_TRACE(std::to_string(w) + " x " + std::to_string(h) + " at " + std::to_string(gradi / 65536.0));
        const Disegno d = caso(g, w, h);
        const BitMapPtr b = daDisegno(d);
        int left = 1 << 20, top = 1 << 20, right = -(1 << 20), bottom = -(1 << 20);
        for (const double y : {0.0, static_cast<double>(h)})
            for (const double x : {0.0, static_cast<double>(w)}) {
                const Point p = girato(x, y, cx, cy, gradi);
                left = std::min(left, p.h), right = std::max(right, p.h);
                top = std::min(top, p.v), bottom = std::max(bottom, p.v);
            }
        const auto larga = static_cast<std::size_t>(right - left), alta = static_cast<std::size_t>(bottom - top);
        Disegno avanti(alta, std::string(larga, '.'));
        for (std::size_t y = 0; y < h; ++y)
            for (std::size_t x = 0; x < w; ++x) {
                const Point p = girato(static_cast<double>(x), static_cast<double>(y), cx, cy, gradi);
                const bool cade = p.h >= left && p.h < right && p.v >= top && p.v < bottom;
                if (d[y][x] == '#' && cade)
                    avanti[static_cast<std::size_t>(p.v - top)][static_cast<std::size_t>(p.h - left)] = '#';
            }
        const Disegno indietro = nuovo(larga, alta, [&](std::size_t x, std::size_t y) {
            const Point p = girato(static_cast<double>(x) + left, static_cast<double>(y) + top, cx, cy, gradi);
            const bool viene = p.h >= 0 && p.v >= 0 && p.h < static_cast<int>(w) && p.v < static_cast<int>(h);
            return viene ? d[static_cast<std::size_t>(p.v)][static_cast<std::size_t>(p.h)] : '.';
        });
        Point angolo;
        const auto cx16 = static_cast<std::int16_t>(cx), cy16 = static_cast<std::int16_t>(cy);
        EXPECT_EQ(comeDisegno(BitMapPtr(RotateBitMap(b.get(), cx16, cy16, gradi, &angolo))), avanti);
        EXPECT_EQ(angolo, (Point{top, left}));
        EXPECT_EQ(comeDisegno(BitMapPtr(RotateBitMapDest(b.get(), cx16, cy16, gradi, &angolo))), indietro);
    }
}

TEST(BitMap, ATurnByNothingIsTheSameImageAndAFullOneHasNoHoles) {
    std::mt19937 g(5);
    const BitMapPtr b = daDisegno(caso(g, 30, 12));
    Point da;
    for (const auto gira : {RotateBitMap, RotateBitMapDest, RotateBitMapPiena})
        EXPECT_TRUE(EqualBitMaps(b.get(), BitMapPtr(gira(b.get(), 0, 9, 0, &da)).get()));
    // A black block stays black all over its inside at every angle.
    const BitMapPtr nero = daDisegno(Disegno(12, std::string(30, '#')));
    for (int gradi = 0; gradi < 360; gradi += 7) {
        const BitMapPtr r(RotateBitMapPiena(nero.get(), 0, 9, gradi * 65536, &da));
        const double t = gradi * M_PI / 180;
        for (double y = 1.5; y <= 10.5; ++y)
            for (double x = 1.5; x <= 28.5; ++x) {
                const double dx = x, dy = y - 9;
                const auto h = static_cast<std::int16_t>(std::floor(dx * std::cos(t) - dy * std::sin(t)) - da.h);
                const auto v = static_cast<std::int16_t>(std::floor(dx * std::sin(t) + dy * std::cos(t)) + 9 - da.v);
                ASSERT_TRUE(BitMapTest(r.get(), h, v)) << gradi << " degrees, " << x << ", " << y;
            }
    }
}

TEST(BitMap, DrawingIntoOneAndPicturesKeepEveryBit) {
    std::mt19937 g(9);
    for (const auto& [w, h] : misure) {
        const Disegno d = caso(g, w, h);
        BitMapPtr b = daDisegno(d);
        const PicHandle pict = BitMapToPICT(b.get());
        ASSERT_NE(pict, 0);
        EXPECT_EQ(comeDisegno(BitMapPtr(PICTToBitMap(pict))), d) << w << " x " << h;
        KillPicture(pict);
        BitMapPort* const p = NewBMP(b.get());
        EraseRect(Rect{0, 0, 1, 1});
        PlotBitMap(b.get(), 0, 1, srcOr);
        DisposeBMP(p);
        EXPECT_FALSE(BitMapTest(b.get(), 0, 0));
        for (std::size_t y = 1; y < h; ++y)
            for (std::size_t x = 0; x < w; ++x)
                EXPECT_EQ(BitMapTest(b.get(), static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)),
                          d[y][x] == '#' || d[y - 1][x] == '#');
    }
}

}   // namespace
