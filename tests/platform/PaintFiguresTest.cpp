// Ovals, arcs, rectangles, regions and polygons on the raster port against slow references.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "platform/paint/RasterPort.h"
#include "support/PixelDiff.h"

namespace tessaro::prova {
namespace {

// Whether the middle of pixel (x, y) lies in the ellipse of the rectangle; an ellipse of two pixels across reaches the
// whole height of its rectangle all the same.
bool inEllipse(const Rect& r, std::int64_t x, std::int64_t y) {
    if (x < r.left || x >= r.right || y < r.top || y >= r.bottom) return false;
    const std::int64_t w = r.right - r.left, h = r.bottom - r.top;
    const std::int64_t u = 2 * x + 1 - r.left - r.right, v = 2 * y + 1 - r.top - r.bottom;
    return u * u * h * h + v * v * w * w <= w * w * h * h || std::llabs(u) <= 1;
}

bool inRing(const Rect& r, std::int32_t w, std::int32_t h, std::int64_t x, std::int64_t y) {
    if (!inEllipse(r, x, y)) return false;
    const bool deep =
        inEllipse(r, x - w, y) && inEllipse(r, x + w, y) && inEllipse(r, x, y - h) && inEllipse(r, x, y + h);
    return !(deep && inEllipse(InsetRect(r, w, h), x, y));
}

// Clockwise degrees from the top, on the circle that the rectangle stretches.
double angleOf(const Rect& r, std::int32_t x, std::int32_t y) {
    const double u = (2.0 * x + 1 - r.left - r.right) / (r.right - r.left);
    const double v = (2.0 * y + 1 - r.top - r.bottom) / (r.bottom - r.top);
    const double degrees = std::atan2(u, -v) * 57.29577951308232;
    return degrees < 0 ? degrees + 360 : degrees;
}

const Rect rettangoli[] = {SetRect(3, 4, 44, 36),   SetRect(10, 2, 17, 38),    SetRect(1, 10, 47, 15),
                           SetRect(5, 5, 30, 30),   SetRect(20, 20, 21, 21),   SetRect(9, 3, 11, 33),
                           SetRect(-20, 5, 25, 60), SetRect(-60, -70, 33, 25), SetRect(12, 1, 15, 39)};

TEST(PaintFigures, OvalsTouchEachPixelOnceWithAnyPen) {
    for (const Rect& r : rettangoli) {
        for (const auto& [w, h] : {std::pair{1, 1}, {2, 2}, {4, 1}, {1, 3}, {30, 30}}) {
            RasterPort port(48, 40, 1);
            const Corrente current(port);
            PenMode(patXor);
            PenSize(w, h);
            FrameOval(r);
            ASSERT_TRUE(agrees(port,
                               [&, penW = w, penH = h](std::int32_t x, std::int32_t y) {
                                   return inRing(r, penW, penH, x, y) ? nero : bianco;
                               }))
                << "pen " << w << " by " << h;
            FrameOval(r);
            PaintOval(r);
            ASSERT_TRUE(
                agrees(port, [&](std::int32_t x, std::int32_t y) { return inEllipse(r, x, y) ? nero : bianco; }));
        }
    }
}

TEST(PaintFigures, ArcsAreTheOvalsPixelsBetweenTheirAngles) {
    const std::pair<std::int32_t, std::int32_t> arcs[] = {{0, 90},   {90, 90},   {200, 100}, {350, 30},  {10, 180},
                                                          {45, 270}, {30, -120}, {0, 359},   {-77, 201}, {725, 41}};
    for (const Rect& r : rettangoli) {
        for (const auto& [start, sweep] : arcs) {
            for (const bool frame : {true, false}) {
                RasterPort port(48, 40, 1);
                const Corrente current(port);
                PenMode(patXor);
                PenSize(2, 2);
                const auto draw = [&, from = start, angle = sweep] {
                    return frame ? FrameArc(r, from, angle) : PaintArc(r, from, angle);
                };
                draw();
                const double first = sweep < 0 ? start + sweep : start;
                const double size = std::abs(sweep);
                ASSERT_TRUE(agrees(port,
                                   [&](std::int32_t x, std::int32_t y) {
                                       const bool figure = frame ? inRing(r, 2, 2, x, y) : inEllipse(r, x, y);
                                       double beyond = std::fmod(angleOf(r, x, y) - first + 7200, 360);
                                       const bool middle =
                                           2 * x + 1 == r.left + r.right && 2 * y + 1 == r.top + r.bottom;
                                       if (beyond > 360 - 1e-5) beyond = 0;   // both edges belong to the arc
                                       return figure && (middle || beyond <= size + 1e-5) ? nero : bianco;
                                   }))
                    << start << " sweep " << sweep << (frame ? " frame" : " paint");
                draw();
                ASSERT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return bianco; })) << start << "," << sweep;
            }
        }
    }
}

TEST(PaintFigures, ACircleOfAMillionPixelsShowsItsEdgeWhereItIs) {
    constexpr std::int32_t radius = 1'000'000;
    const Rect r = SetRect(20 - 2 * radius, 10 - radius, 20, 10 + radius);   // its rightmost point is near (20, 10)
    RasterPort port(48, 40, 1);
    const Corrente current(port);
    PenMode(patXor);
    FrameOval(r);
    // Within 30 rows of that point the edge leaves the upright by less than 30^2 / 2 radius, a fraction of a pixel.
    EXPECT_TRUE(agrees(port, [](std::int32_t x, std::int32_t) { return x == 19 ? nero : bianco; }));
    FrameOval(r);
    FrameArc(r, 0, 90);
    EXPECT_TRUE(agrees(port, [](std::int32_t x, std::int32_t y) { return x == 19 && y < 10 ? nero : bianco; }));
    const Rect everything = SetRect(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX);
    FrameArc(r, 0, 90);
    PaintOval(everything);
    EXPECT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return nero; }));
    FrameOval(everything);
    EXPECT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return nero; }));
}

TEST(PaintFigures, FramesOfRectanglesAndRegionsLieInsideAndCrossNothingTwice) {
    RasterPort port(48, 40, 2);
    const Corrente current(port);
    PenMode(patXor);
    PenSize(3, 2);
    const Rect r = SetRect(5, 6, 30, 25), inner = InsetRect(r, 3, 2);
    FrameRect(r);
    const auto ring = [&](std::int32_t x, std::int32_t y) {
        const Point p{y / 2, x / 2};
        return PtInRect(p, r) && !PtInRect(p, inner) ? nero : bianco;
    };
    EXPECT_TRUE(agrees(port, ring));
    Region split;   // the same rectangle in parts
    split.add(SetRect(5, 6, 20, 12));
    split.add(SetRect(11, 9, 30, 25));
    split.add(SetRect(5, 12, 12, 25));
    split.add(SetRect(20, 6, 30, 9));
    port.stdRgn(GrafVerb::frame, split, qdBlack);
    EXPECT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return bianco; }));
}

// Even-odd by the crossings left of the pixel's middle, in exact whole numbers.
bool inside(const Polygon& p, std::int64_t ratio, std::int64_t x, std::int64_t y) {
    bool in = false;
    for (std::size_t i = 0; i < p.punti.size(); ++i) {
        const Point a = p.punti[i], b = p.punti[(i + 1) % p.punti.size()];
        const std::int64_t ay = 2 * ratio * a.v, by = 2 * ratio * b.v, ax = 2 * ratio * a.h, bx = 2 * ratio * b.h;
        const std::int64_t py = 2 * y + 1, px = 2 * x + 1;
        if ((ay <= py) == (by <= py)) continue;
        // The middle is not left of the side: px >= ax + (py - ay)(bx - ax) / (by - ay).
        const std::int64_t left = (px - ax) * (by - ay), right = (py - ay) * (bx - ax);
        if (by > ay ? left >= right : left <= right) in = !in;
    }
    return in;
}

TEST(PaintFigures, PolygonsHoldThePixelsWhoseMiddlesAreInsideAndNeighboursTile) {
    std::mt19937 random(11);
    std::uniform_int_distribution<std::int32_t> place(-15, 60), sides(3, 9);
    for (int round = 0; round < 200; ++round) {
        const std::int32_t ratio = 1 + round % 2;
        RasterPort port(48, 40, ratio);
        const Corrente current(port);
        PenMode(patXor);
        Polygon p;
        for (int i = sides(random); i > 0; --i) p.punti.push_back(Point{place(random), place(random)});
        PaintPoly(p);
        ASSERT_TRUE(
            agrees(port, [&](std::int32_t x, std::int32_t y) { return inside(p, ratio, x, y) ? nero : bianco; }))
            << "round " << round;
        PaintPoly(p);
        // A fan of triangles round a point covers each pixel once.
        const Point middle{place(random), place(random)};
        const Polygon corners{{{-90, -90}, {-90, 150}, {150, 150}, {150, -90}}};
        for (std::size_t i = 0; i < 4; ++i) PaintPoly(Polygon{{middle, corners.punti[i], corners.punti[(i + 1) % 4]}});
        ASSERT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return nero; })) << "round " << round;
    }
}

TEST(PaintFigures, AFarPolygonAndARecordedOne) {
    RasterPort port(48, 40, 1);
    const Corrente current(port);
    // A diamond far larger than the port whose upper left side runs through it at 45 degrees: x + y = 40.
    constexpr std::int32_t far = 1'000'000'000;
    PaintPoly(Polygon{{{40 + far, -far}, {40 - far, far}, {far, far}, {far, -far + 40}}});
    EXPECT_TRUE(agrees(port, [](std::int32_t x, std::int32_t y) { return x + y + 1 >= 40 ? nero : bianco; }));

    EraseRect(port.portRect);
    OpenPoly();
    MoveTo(5, 5);
    LineTo(20, 5);
    LineTo(20, 15);
    LineTo(5, 15);
    const Polygon square = ClosePoly();
    EXPECT_TRUE(agrees(port, [](std::int32_t, std::int32_t) { return bianco; })) << "recording draws nothing";
    FramePoly(square);
    EXPECT_TRUE(agrees(port, [](std::int32_t x, std::int32_t y) {
        const bool open = ((y == 5 || y == 15) && x >= 5 && x <= 20) || (x == 20 && y >= 5 && y <= 15);
        return open ? nero : bianco;
    })) << "the fourth side is not drawn";
}

}   // namespace
}   // namespace tessaro::prova
