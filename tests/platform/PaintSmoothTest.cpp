// Smooth lines and rings: they cover what they should, whatever the order of their ends and the parts of a repaint, and
// touch nothing that is xor'd or runs along the pixels.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/paint/RasterPort.h"

using namespace tessaro;

namespace {

struct Porta {
    RasterPort port;
    GrafPtr before = GetPort();
    explicit Porta(bool smooth, std::int32_t ratio = 1) : port(120, 100, ratio) {
        port.smooth = smooth;
        SetPort(&port);
    }
    ~Porta() { SetPort(before); }
    Porta(const Porta&) = delete;
    Porta& operator=(const Porta&) = delete;

    void line(Point a, Point b) {
        MoveTo(a.h, a.v);
        LineTo(b.h, b.v);
    }
    // Pixels that black covers, shares added up.
    [[nodiscard]] double ink() const {
        double sum = 0;
        for (std::int32_t y = 0; y < port.deviceHeight(); ++y)
            for (std::int32_t x = 0; x < port.deviceWidth(); ++x) sum += 255.0 - (port.pixel(x, y) & 0xFFU);
        return sum / 255;
    }
    [[nodiscard]] bool same(const Porta& o) const {
        for (std::int32_t y = 0; y < port.deviceHeight(); ++y)
            for (std::int32_t x = 0; x < port.deviceWidth(); ++x)
                if (port.pixel(x, y) != o.port.pixel(x, y)) return false;
        return true;
    }
};

}   // namespace

TEST(Smooth, WhatRunsAlongThePixelsAndWhatIsXoredStaysAsItIs) {
    for (const std::int32_t ratio : {1, 2}) {
        Porta plain(false, ratio), smooth(true, ratio);
        for (Porta* p : {&plain, &smooth}) {
            SetPort(&p->port);
            PenSize(2, 2);
            p->line({10, 10}, {10, 90});
            p->line({20, 10}, {80, 10});
            p->line({50, 50}, {50, 50});
            PenMode(patXor);
            p->line({5, 5}, {70, 93});
            FrameOval(SetRect(30, 20, 80, 60));
        }
        EXPECT_TRUE(plain.same(smooth)) << ratio;
        smooth.line({5, 5}, {70, 93});
        FrameOval(SetRect(30, 20, 80, 60));
        PenMode(patCopy);
        EXPECT_FALSE(plain.same(smooth));
    }
}

TEST(Smooth, AStrokeCoversItsLengthTimesItsWidth) {
    for (const std::int32_t width : {1, 2, 5})
        for (const Point to : {Point{40, 110}, Point{95, 60}, Point{95, 110}, Point{12, 110}}) {
            Porta p(true);
            PenSize(static_cast<std::int16_t>(width), static_cast<std::int16_t>(width));
            p.line({10, 20}, to);
            const double length = std::hypot(to.h - 20.0, to.v - 10.0), w = width;
            EXPECT_NEAR(p.ink(), length * w + 3.14159 / 4 * w * w, 0.03 * length * w + 1) << to.h << ' ' << to.v;
            Porta q(true);
            PenSize(static_cast<std::int16_t>(width), static_cast<std::int16_t>(width));
            q.line(to, {10, 20});
            EXPECT_TRUE(p.same(q));
        }
}

TEST(Smooth, RingsAndTheirPartsCoverWhatTheyShould) {
    constexpr double pi = 3.14159265358979;
    for (const std::int32_t width : {1, 3}) {
        Porta p(true);
        PenSize(static_cast<std::int16_t>(width), static_cast<std::int16_t>(width));
        FrameOval(SetRect(10, 10, 90, 90));
        const double ring = pi * (40.0 * 40 - (40.0 - width) * (40 - width));
        EXPECT_NEAR(p.ink(), ring, 0.02 * ring);
        Porta q(true);
        PenSize(static_cast<std::int16_t>(width), static_cast<std::int16_t>(width));
        FrameArc(SetRect(10, 10, 90, 90), 30, -120);
        EXPECT_NEAR(q.ink(), ring / 3, 0.03 * ring);
        EXPECT_EQ(q.port.pixel(30, 80), 0xFFFFFFFFU);   // the lower left is no part of it
    }
}

TEST(Smooth, ARepaintInPartsIsTheRepaintOfTheWhole) {
    const auto draw = [](Porta& p) {
        p.line({-40, -30}, {300, 170});
        p.line({90, 3}, {2, 117});
        FrameOval(SetRect(-300, -280, 110, 95));
        FrameArc(SetRect(20, 20, 70, 90), 200, 300);
    };
    Porta whole(true);
    draw(whole);
    Porta parts(true);
    for (const Rect& r : {SetRect(0, 0, 37, 100), SetRect(37, 0, 120, 41), SetRect(37, 41, 120, 100)}) {
        ClipRect(r);
        draw(parts);
    }
    EXPECT_TRUE(whole.same(parts));
}
