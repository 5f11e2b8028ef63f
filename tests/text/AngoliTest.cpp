// Angle systems, polar and Cartesian points, crossings of lines.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>

#include "text/Conversione.h"

using namespace tessaro;

namespace {

constexpr double pi = Pig;

TEST(Angoli, PiIsSinglePrecision) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(Pig), 0x40490FDBU);
    EXPECT_EQ(std::bit_cast<std::uint32_t>(DuePig), 0x40C90FDBU);
    EXPECT_EQ(CentRad(200), 3.1415927410125732421875);
    EXPECT_EQ(SeDecRad(180), 3.1415927410125732421875);
}

TEST(Angoli, PackedSexagesimalsAreDegreesMinutesSeconds) {
    const auto radianti = [](double g, double m, double s) { return pi * (3600 * g + 60 * m + s) / 648000; };
    for (const auto& [chiuso, atteso] : {std::pair{12.3045, radianti(12, 30, 45)},
                                         {10.20, radianti(10, 20, 0)},
                                         {-10.20, -radianti(10, 20, 0)},
                                         {0.0001, radianti(0, 0, 1)},
                                         {359.5959, radianti(359, 59, 59)},
                                         {12.304512, radianti(12, 30, 45.12)},
                                         {12.29599999, radianti(12, 30, 0)}})
        EXPECT_EQ(SeGesRad(chiuso), atteso) << chiuso;
}

// A whole minute must never come back as 59 or 60 seconds of its neighbour.
TEST(Angoli, EveryMinuteOfTheTurnSurvivesTheRoundTrip) {
    for (int g = 0; g < 360; ++g) {
        for (int m = 0; m < 60; ++m) {
            char atteso[40];
            std::snprintf(atteso, sizeof atteso, "%d.%02d00", g, m);
            PStr255 s;
            RToStr(RadSeGes(SeGesRad(g + m / 100.0)), 4, s);
            ASSERT_EQ(s.str(), atteso);
        }
    }
    EXPECT_NEAR(RadSeGes(SeGesRad(12.3045)), 12.3045, 1e-10);
    EXPECT_NEAR(RadSeGes(SeGesRad(-12.3045)), -12.3045, 1e-10);
}

TEST(Angoli, SystemsConvertThroughRadians) {
    EXPECT_NEAR(AngToSessad(100, gradCentesimali), 90, 1e-12);
    EXPECT_NEAR(AngToSessad(12.30, gradSessagesimali), 12.5, 1e-12);
    EXPECT_NEAR(SessadToAng(12.5, gradSessagesimali), 12.30, 1e-12);
    EXPECT_NEAR(SessadToAng(90, gradCentesimali), 100, 1e-12);
    EXPECT_EQ(AngToRad(90, 3), 0.0);
    EXPECT_EQ(RadToAng(1, -1), 0.0);
}

TEST(Angoli, TheSystemInUseCountsOnlyWhenShown) {
    const std::int32_t grado = gradCentesimali;
    std::int16_t tipo = 1;
    const auto* gradoPrima = gradInUso;
    const auto* tipoPrima = tipoAngoloInUso;
    gradInUso = &grado;
    tipoAngoloInUso = &tipo;
    EXPECT_NEAR(AngToAttuale(100), 90, 1e-12);
    EXPECT_NEAR(AttualeToAng(90), 100, 1e-12);
    tipo = 0;
    EXPECT_EQ(AngToAttuale(100), 100);
    gradInUso = gradoPrima;
    tipoAngoloInUso = tipoPrima;
}

TEST(Angoli, DirectionsOfBothOrientations) {
    struct Caso {
        double dx, dy, azimut, matematico;
    };
    const double m = double(PigMezzi), o = std::atan(1.0);
    for (const Caso& c : {Caso{1, 0, m, 0}, Caso{-1, 0, 3 * m, 2 * m}, Caso{0, 1, 0, m}, Caso{0, -1, 2 * m, 3 * m},
                          Caso{0, 0, 2 * m, 2 * m}, Caso{1, 1, o, o}, Caso{1, -1, pi - o, double(DuePig) - o},
                          Caso{-1, -1, pi + o, pi + o}, Caso{-1, 1, double(DuePig) - o, pi - o}}) {
        double dist = 0, ang = 0;
        CartPolar(10, 20, 10 + c.dx, 20 + c.dy, dist, ang, orientAzimut);
        EXPECT_DOUBLE_EQ(ang, c.azimut) << c.dx << " " << c.dy;
        EXPECT_DOUBLE_EQ(dist, std::hypot(c.dx, c.dy));
        CartPolar(10, 20, 10 + c.dx, 20 + c.dy, dist, ang, orientMatematico);
        EXPECT_DOUBLE_EQ(ang, c.matematico) << c.dx << " " << c.dy;
    }
}

TEST(Angoli, PolarPointsRunWithYDown) {
    double x = 0, y = 0;
    PolarCart(100, 100, 0, 10, x, y, orientAzimut);   // north is up the sheet
    EXPECT_NEAR(x, 100, 1e-9);
    EXPECT_NEAR(y, 90, 1e-9);
    PolarCart(100, 100, std::atan(1.0) * 2, 10, x, y, orientAzimut);
    EXPECT_NEAR(x, 110, 1e-9);
    EXPECT_NEAR(y, 100, 1e-9);
    PolarCart(100, 100, 0, 10, x, y, orientMatematico);
    EXPECT_NEAR(x, 90, 1e-9);
    EXPECT_NEAR(y, 100, 1e-9);
    x = y = 5;
    PolarCart(x, y, 0, 1, x, y, orientAzimut);   // the point may be moved in place
    EXPECT_NEAR(x, 5, 1e-12);
    EXPECT_NEAR(y, 4, 1e-12);
}

TEST(Angoli, LinesCrossOrAreParallel) {
    double x = 9, y = 9;
    EXPECT_FALSE(IntersRette(0, 0, 10, 10, 0, 10, 10, 0, x, y));
    EXPECT_DOUBLE_EQ(x, 5);
    EXPECT_DOUBLE_EQ(y, 5);
    EXPECT_FALSE(IntersRette(0, 2, 1, 2, 7, 0, 7, 1, x, y));   // beyond the ends too
    EXPECT_DOUBLE_EQ(x, 7);
    EXPECT_DOUBLE_EQ(y, 2);
    EXPECT_TRUE(IntersRette(0, 0, 1, 1, 5, 0, 6, 1, x, y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
    EXPECT_DOUBLE_EQ(DistRetta(1, 2, 0, 4, 9), 3);
}

}   // namespace
