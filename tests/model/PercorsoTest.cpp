// Measures of a path against sums made another way, also far from the origin.
#include "model/Percorso.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include "model/Unita.h"

using namespace tessaro;

namespace {

using Punti = std::vector<std::pair<double, double>>;

void misura(const Punti& p) {
    InizioPercorso(p.front().first, p.front().second, 0);
    for (std::size_t i = 1; i < p.size(); ++i) AggiungiAlPercorso(p[i].first, p[i].second, 0);
    Calcolo();
}

struct Attesa {
    long double area = 0, perimetro = 0, cx = 0, cy = 0;
};

// The trapezium rule in long double, about the first vertex; another formula than the triangles of the calculator.
Attesa trapezi(const Punti& p) {
    Attesa r;
    const auto x = [&](std::size_t i) { return static_cast<long double>(p[i % p.size()].first) - p[0].first; };
    const auto y = [&](std::size_t i) { return static_cast<long double>(p[i % p.size()].second) - p[0].second; };
    for (std::size_t i = 0; i < p.size(); ++i) {
        const long double dx = x(i + 1) - x(i), dy = y(i + 1) - y(i);
        r.area += dy * (x(i) + x(i + 1)) / 2;
        // Integrals of x^2/2 dy and -y^2/2 dx along the side: the moments by Green's theorem.
        r.cx += dy * (x(i) * x(i) + x(i) * x(i + 1) + x(i + 1) * x(i + 1)) / 6;
        r.cy -= dx * (y(i) * y(i) + y(i) * y(i + 1) + y(i + 1) * y(i + 1)) / 6;
        r.perimetro += std::sqrt(dx * dx + dy * dy);
    }
    r.cx /= r.area;
    r.cy /= r.area;
    r.area = std::fabs(r.area);
    return r;
}

Punti poligono(int lati, double raggio, double x0, double y0) {
    Punti p;
    for (int i = 0; i < lati; ++i) {
        const double a = 2 * std::numbers::pi * i / lati, r = raggio * (i % 3 == 0 ? 0.4 : 1.0 + 0.01 * i);
        p.emplace_back(x0 + r * std::cos(a), y0 + r * std::sin(a));
    }
    return p;
}

void uguali12(double visto, long double atteso) {
    EXPECT_NEAR(visto, static_cast<double>(atteso), std::fabs(static_cast<double>(atteso)) * 1e-12);
}

}   // namespace

TEST(Percorso, AreaPerimeterAndCentroidHoldTwelveDigitsAtNationalCoordinates) {
    const struct {
        int lati;
        double raggio, x, y;
    } casi[] = {{3, 10, 0, 0},
                {4, 250, 1654321.123, 4994321.456},
                {17, 37.5, 2512345.678, 5001234.567},
                {100, 1200, -987654.3, 8123456.7},
                {60, 0.5, 500000, 4649776.22}};
    for (const auto& c : casi) {
        SCOPED_TRACE(c.lati);
        Punti p = poligono(c.lati, c.raggio, c.x, c.y);
        const Attesa atteso = trapezi(p);
        for (int verso = 0; verso < 2; ++verso) {
            misura(p);
            uguali12(RisCalc.area, atteso.area);
            uguali12(RisCalc.perimetro, atteso.perimetro);
            if (verso == 0) {
                uguali12(RisCalc.baricentroX, atteso.cx);
                uguali12(RisCalc.baricentroY, atteso.cy);
            }
            std::reverse(p.begin() + 1, p.end());   // the other way round, from the same first point
        }
    }
}

TEST(Percorso, ARectangleGivesItsMomentsAndTheSameCentroidBothWaysRound) {
    const Punti orario{{10, 20}, {10, 24}, {16, 24}, {16, 20}}, antiorario{{10, 20}, {16, 20}, {16, 24}, {10, 24}};
    for (const Punti& p : {orario, antiorario}) {
        misura(p);
        EXPECT_DOUBLE_EQ(RisCalc.area, 24);
        EXPECT_DOUBLE_EQ(RisCalc.perimetro, 20);
        EXPECT_DOUBLE_EQ(RisCalc.baricentroX, 3);
        EXPECT_DOUBLE_EQ(RisCalc.baricentroY, 2);
        EXPECT_DOUBLE_EQ(std::fabs(RisCalc.momentoX), 48);   // summed with Y
        EXPECT_DOUBLE_EQ(std::fabs(RisCalc.momentoY), 72);
    }
}

TEST(Percorso, AnOpenLineHasItsLengthChordAndBearing) {
    orientCorrente = 1;
    InizioPercorso(100, 200, 5);
    AggiungiAlPercorso(103, 204, 6);
    AggiungiAlPercorso(103, 210, 9);
    Calcolo();
    EXPECT_DOUBLE_EQ(RisCalc.sviluppo, 11);
    EXPECT_DOUBLE_EQ(RisCalc.distanza, std::hypot(3, 10));
    EXPECT_NEAR(RisCalc.azimut, std::atan2(3, 10), 1e-12);
    EXPECT_EQ(RisCalc.deltaZ, 4);
    EXPECT_EQ(RisCalc.ultimoY, 210);
}

TEST(Percorso, OnePointMeasuresNothingAndHasNoCentroid) {
    InizioPercorso(7, 8, 9);
    Calcolo();
    EXPECT_EQ(RisCalc.area, 0);
    EXPECT_EQ(RisCalc.perimetro, 0);
    EXPECT_EQ(RisCalc.primoX, 7);
    EXPECT_EQ(RisCalc.ultimoZ, 9);
    EXPECT_TRUE(std::isnan(RisCalc.baricentroX));
}

TEST(Percorso, APathStopsAtAHundredPoints) {
    InizioPercorso(0, 0, 0);
    for (int i = 1; i < 150; ++i) AggiungiAlPercorso(i, 0, 0);
    Calcolo();
    EXPECT_EQ(RisCalc.numPunti, maxPuntiPercorso);
    EXPECT_EQ(RisCalc.ultimoX, 99);
    EXPECT_EQ(RisCalc.sviluppo, 99);
}
