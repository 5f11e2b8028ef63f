// Circles and arcs through points: they are the circles that the points were taken from, and run the way they were
// clicked.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "model/Archivio.h"
#include "tools/Curve.h"

using namespace tessaro;

namespace {

// On the circle, `gradi` clockwise from straight up; Y runs down.
puntot sul(const puntot& c, double r, double gradi) {
    const double a = gradi * 0.017453292519943295;
    return {c.x + r * std::sin(a), c.y - r * std::cos(a), 0};
}

}   // namespace

TEST(Curve, ThreePointsOfACircleGiveItBack) {
    const puntot centri[] = {{0, 0, 0}, {2100, 1485, 0}, {-350, 12, 0}, {4.1e6, -7.3e6, 0}};
    const double angoli[][3] = {{10, 100, 200}, {200, 100, 10}, {350, 20, 95},
                                {1, 3, 6},      {45, 135, 225}, {10, 170, 300}};
    for (const puntot& c : centri)
        for (const double r : {5.0, 800.0, 20000.0})
            for (const auto& a : angoli) {
                puntot centro;
                double raggio = 0;
                CerchioTre(sul(c, r, a[0]), sul(c, r, a[1]), sul(c, r, a[2]), centro, raggio);
                // Short chords far from the origin cost digits: what a coordinate's last bit is worth at this radius.
                const double luogo = std::max({std::fabs(c.x), std::fabs(c.y), r});
                const double esatto = luogo * 1e-15 * 4e4 + 1e-6;
                EXPECT_NEAR(centro.x, c.x, esatto) << r << " " << a[0];
                EXPECT_NEAR(centro.y, c.y, esatto) << r << " " << a[0];
                EXPECT_NEAR(raggio, r, esatto) << r << " " << a[0];
            }
}

TEST(Curve, VerticalAndLevelChordsAreNoExceptionWhereTheRuleSaysSo) {
    puntot centro;
    double raggio = 0;
    CerchioTre({0, 0, 0}, {0, 10, 0}, {10, 10, 0}, centro, raggio);   // first chord vertical, second level
    EXPECT_NEAR(centro.x, 5, 1e-12);
    EXPECT_NEAR(centro.y, 5, 1e-12);
    CerchioTre({10, 10, 0}, {4, 2, 0}, {4, 10, 0}, centro, raggio);   // second chord vertical
    EXPECT_NEAR(centro.x, 7, 1e-12);
    EXPECT_NEAR(centro.y, 6, 1e-12);
    EXPECT_NEAR(raggio, 5, 1e-12);
}

TEST(Curve, PointsOfOneLineAreNoCurveAndTwoOfOneHeightAre) {
    const puntot terne[][3] = {
        {{0, 0, 0}, {1, 1, 0}, {2, 2, 0}}, {{3, 3, 0}, {3, 3, 0}, {3, 3, 0}}, {{0, 5, 0}, {10, 5, 0}, {20, 5, 0}}};
    for (const auto& t : terne) {
        puntot centro;
        double raggio = 0;
        std::int16_t inizio = 0, ampiezza = 0;
        ArcoTre(t[0], t[1], t[2], centro, raggio, inizio, ampiezza);
        EXPECT_FALSE(std::isfinite(raggio));
        EXPECT_FALSE(CurvaVera(t[0], t[1], t[2]));
    }
    // A level first chord, a level second one, and neither: the same circle about (5, 5).
    const puntot a{2, 9, 0}, b{8, 9, 0}, c{5, 10, 0};
    for (const auto& t : {std::array{a, b, c}, std::array{c, a, b}, std::array{a, c, b}}) {
        puntot centro;
        double raggio = 0;
        CerchioTre(t[0], t[1], t[2], centro, raggio);
        EXPECT_NEAR(centro.x, 5, 1e-12);
        EXPECT_NEAR(centro.y, 5, 1e-12);
        EXPECT_NEAR(raggio, 5, 1e-12);
        EXPECT_TRUE(CurvaVera(t[0], t[1], t[2]));
    }
}

TEST(Curve, AnArcRunsFromTheFirstToTheSecondPointThroughTheThird) {
    const struct {
        double da, a, per;
        std::int16_t inizio, ampiezza;
    } casi[] = {
        {0, 90, 45, 0, 90},      // clockwise
        {0, 90, 180, 0, -270},   // the other way round
        {350, 20, 5, 350, 30},   // across straight up
        {350, 20, 180, 350, -330},  {20, 350, 180, 20, 330},
        {20, 350, 5, 20, -30},      {100, 99, 300, 100, 359},   // almost a full turn
        {200, 201, 300, 200, -359},
    };
    for (const puntot& c : {puntot{0, 0, 0}, puntot{512345.25, 194321.5, 0}})
        for (const auto& k : casi) {
            SCOPED_TRACE(testing::Message() << k.da << " to " << k.a << " through " << k.per);
            const double r = 300;
            puntot centro;
            double raggio = 0;
            std::int16_t inizio = -1, ampiezza = -1;
            ArcoTre(sul(c, r, k.da), sul(c, r, k.a), sul(c, r, k.per), centro, raggio, inizio, ampiezza);
            EXPECT_EQ(inizio, k.inizio);
            EXPECT_EQ(ampiezza, k.ampiezza);
            EXPECT_NEAR(raggio, r, 1e-3);
        }
}
