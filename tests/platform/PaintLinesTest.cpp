// Lines on the raster port against a slow reference that hangs the pen at every point of the path.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>
#include <set>
#include <utility>

#include "platform/paint/RasterPort.h"
#include "support/PixelDiff.h"

namespace tessaro::prova {
namespace {

using Insieme = std::set<std::pair<std::int64_t, std::int64_t>>;   // x, y

std::int64_t rounded(std::int64_t n, std::int64_t d) {   // floor(n / d + 1/2), n not negative
    return d == 0 ? 0 : (2 * n + d) / (2 * d);
}

// Every pixel that a pen w by h covers on its way, in device pixels.
Insieme swept(Point a, Point b, std::int64_t w, std::int64_t h, std::int64_t ratio = 1) {
    if (b.v < a.v) std::swap(a, b);
    const std::int64_t x0 = a.h * ratio, y0 = a.v * ratio, dx = b.h * ratio - x0, dy = b.v * ratio - y0;
    const std::int64_t adx = std::llabs(dx), sign = dx < 0 ? -1 : 1;
    Insieme pixels;
    for (std::int64_t k = 0; k <= std::max(adx, dy); ++k) {
        const std::int64_t x = x0 + sign * (adx >= dy ? k : rounded(k * adx, dy));
        const std::int64_t y = y0 + (adx >= dy ? rounded(k * dy, adx) : k);
        for (std::int64_t j = 0; j < h * ratio; ++j)
            for (std::int64_t i = 0; i < w * ratio; ++i) pixels.emplace(x + i, y + j);
    }
    return pixels;
}

Region tornClip() {
    Region clip = Region::of(SetRect(3, 4, 30, 19));
    clip.add(SetRect(25, 15, 44, 39));
    clip.subtract(SetRect(12, 8, 20, 13));
    return clip;
}

bool inClip(const Region& clip, std::int64_t x, std::int64_t y, std::int32_t ratio) {
    return clip.contains(Point{static_cast<std::int32_t>(y / ratio), static_cast<std::int32_t>(x / ratio)});
}

struct Linea {
    Point a, b;
    std::int32_t w, h;
};

// All octants, flat, upright and diagonal lines, dots, and ends outside the port, with several pens.
std::vector<Linea> linee() {
    std::vector<Linea> lines;
    for (const auto& [w, h] : {std::pair{1, 1}, {2, 2}, {3, 1}, {1, 4}, {5, 3}}) {
        for (int t = 0; t < 24; ++t) {
            const double angle = t * 0.2617993877991494;
            const Point far{20 + static_cast<std::int32_t>(std::lround(17 * std::sin(angle))),
                            22 + static_cast<std::int32_t>(std::lround(17 * std::cos(angle)))};
            lines.push_back(Linea{Point{20, 22}, far, w, h});
        }
        lines.push_back(Linea{Point{-9, -30}, Point{55, 70}, w, h});
        lines.push_back(Linea{Point{60, -3}, Point{-12, 45}, w, h});
        lines.push_back(Linea{Point{-5, 12}, Point{31, 12}, w, h});
        lines.push_back(Linea{Point{7, 60}, Point{7, -60}, w, h});
    }
    std::mt19937 random(7);
    std::uniform_int_distribution<std::int32_t> place(-20, 70), pen(1, 4);
    for (int i = 0; i < 100; ++i)
        lines.push_back(
            Linea{Point{place(random), place(random)}, Point{place(random), place(random)}, pen(random), pen(random)});
    return lines;
}

TEST(PaintLines, APenCoversItsWholeWayInsideATornClipAndXorTakesItOffAgain) {
    for (const std::int32_t ratio : {1, 2, 3}) {
        for (const bool torn : {false, true}) {
            for (const Linea& line : linee()) {
                RasterPort port(48, 40, ratio);
                const Corrente current(port);
                if (torn) SetClip(tornClip());
                PenSize(line.w, line.h);
                PenMode(patXor);
                const auto draw = [&](Point a, Point b) {
                    MoveTo(a.h, a.v);
                    LineTo(b.h, b.v);
                };
                draw(line.a, line.b);
                const Insieme pixels = swept(line.a, line.b, line.w, line.h, ratio);
                ASSERT_TRUE(agrees(port,
                                   [&](std::int32_t x, std::int32_t y) {
                                       return pixels.contains({x, y}) && inClip(port.clip, x, y, ratio) ? nero : bianco;
                                   }))
                    << line.a.h << "," << line.a.v << " to " << line.b.h << "," << line.b.v << " pen " << line.w
                    << " by " << line.h << " ratio " << ratio;
                draw(line.b, line.a);
                ASSERT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return bianco; }));
            }
        }
    }
}

TEST(PaintLines, PatternsStayWithThePortWhateverLineAndOriginAndModeAre) {
    const RGBColor red{0xFFFF, 0, 0}, green{0, 0xFFFF, 0};
    constexpr std::uint32_t rosso = 0xFFFF0000U, verde = 0xFF00FF00U, sotto = 0xFF0000FFU;
    struct Caso {
        std::int16_t mode;
        std::uint32_t set, clear;
    };
    const Caso cases[] = {{patCopy, rosso, verde},  {0, rosso, verde},        {patOr, rosso, sotto},
                          {1, rosso, sotto},        {patBic, verde, sotto},   {patXor, 0xFF00FF00U, sotto},
                          {2, 0xFF00FF00U, sotto},  {12, verde, rosso},       {13, sotto, rosso},
                          {14, sotto, 0xFF00FF00U}, {notPatBic, sotto, verde}};
    const Pattern& pattern = GetIndPattern(9);
    for (const std::int32_t ratio : {1, 2, 3}) {
        for (const Point origin : {Point{0, 0}, Point{-13, 5}}) {
            for (const Caso& one : cases) {
                RasterPort port(48, 40, ratio);
                const Corrente current(port);
                SetOrigin(origin.h, origin.v);
                RGBForeColor(RGBColor{0, 0, 0xFFFF});
                PaintRect(port.portRect);
                RGBForeColor(red);
                RGBBackColor(green);
                PenPat(pattern);
                PenMode(one.mode);
                const Linea lines[] = {{{2, 3}, {17, 40}, 1, 1}, {{39, 8}, {5, 1}, 1, 1}, {{30, 12}, {20, 70}, 3, 2}};
                Insieme pixels;
                for (const Linea& line : lines) {
                    PenSize(line.w, line.h);
                    MoveTo(line.a.h + origin.h, line.a.v + origin.v);
                    LineTo(line.b.h + origin.h, line.b.v + origin.v);
                    pixels.merge(swept(line.a, line.b, line.w, line.h, ratio));
                }
                ASSERT_TRUE(agrees(port,
                                   [&](std::int32_t x, std::int32_t y) {
                                       if (!pixels.contains({x, y})) return sotto;
                                       const std::int32_t h = x / ratio + origin.h, v = y / ratio + origin.v;
                                       const bool bit =
                                           (pattern.pat[static_cast<std::size_t>(v & 7)] >> (7 - (h & 7))) & 1;
                                       return bit ? one.set : one.clear;
                                   }))
                    << "mode " << one.mode << " ratio " << ratio;
            }
        }
    }
}

// The reference is an exact rational, row or column at a time, since the whole line would be billions of pixels.
TEST(PaintLines, EndsAtTheEdgeOfTheNumbersShowTheSamePixelsAsTheWholeLine) {
    constexpr std::int32_t low = INT32_MIN, high = INT32_MAX;
    const std::pair<Point, Point> lines[] = {
        {{low, low}, {high, high}},
        {{high, low}, {low, high}},
        {{-5, low}, {33, high}},
        {{low, 40}, {high, 7}},
        {{-1000000, -1300001}, {800000, 1040017}},
        {{20, 0}, {2000000021, 2000000001}},
        {{13, high}, {12, -3}},
        {{1999999, -77}, {-3, 33}},
    };
    for (const auto& [from, to] : lines) {
        for (const std::int32_t size : {1, 3}) {
            RasterPort port(48, 40, 1);
            const Corrente current(port);
            PenSize(size, size);
            PenMode(patXor);
            MoveTo(from.h, from.v);
            LineTo(to.h, to.v);
            Point a = from, b = to;
            if (b.v < a.v) std::swap(a, b);
            const std::int64_t adx = std::llabs(std::int64_t{b.h} - a.h), dy = std::int64_t{b.v} - a.v;
            const auto onPath = [&](std::int64_t x, std::int64_t y) {
                const std::int64_t along = b.h < a.h ? a.h - x : x - a.h, down = y - a.v;
                if (along < 0 || along > adx || down < 0 || down > dy) return false;
                const bool wide = adx >= dy;
                const __int128 k = wide ? along : down, side = wide ? down : along;
                const __int128 lungo = wide ? adx : dy, corto = wide ? dy : adx;
                return (2 * k * corto + lungo) / (2 * lungo) == side;
            };
            ASSERT_TRUE(agrees(port,
                               [&](std::int32_t x, std::int32_t y) {
                                   for (std::int32_t j = 0; j < size; ++j)
                                       for (std::int32_t i = 0; i < size; ++i)
                                           if (onPath(x - i, y - j)) return nero;
                                   return bianco;
                               }))
                << from.h << "," << from.v << " to " << to.h << "," << to.v << " pen " << size;
        }
    }
}

}   // namespace
}   // namespace tessaro::prova
