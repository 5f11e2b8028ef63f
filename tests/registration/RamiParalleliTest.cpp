// Every branch of the construction by vanishing points: sides parallel or not on either axis of source and target, in
// both orientations of angles. The figures come from the formulas worked out apart from this program, in Python.
#include <gtest/gtest.h>

#include <cmath>

#include "dialogs/Errori.h"
#include "model/Unita.h"
#include "registration/Solutori.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

using Quad = std::array<Coppia, 4>;

constexpr Quad forme[] = {
    {{{500, 2500}, {900, 700}, {2600, 400}, {3300, 2800}}},    // no sides parallel
    {{{600, 2600}, {800, 600}, {2750, 1200}, {2600, 2700}}},   // P1 P2 and P3 P4
    {{{500, 2700}, {900, 800}, {2900, 600}, {3700, 2380}}},    // P1 P4 and P2 P3
    {{{400, 2500}, {800, 700}, {2800, 300}, {2400, 2100}}},    // both, and neither upright
};

Quad destinazione(std::size_t forma) {
    Quad q = forme[forma];
    for (Coppia& c : q) c = {c.x * 0.5 + 1200, c.y * 0.8 + 300};
    return q;
}

struct Caso {
    std::int32_t orientamento;
    std::size_t da, a;   // shapes
    Coppia punto;
    Coppia curva, piana, cinque;   // where it goes: four points by the curve, by the plain scale, five points
};
constexpr Caso casi[] = {
    {1, 0, 0, {1300, 1500}, {1850.0, 1500.0}, {1850.0, 1500.0}, {1578.0145, 1379.0227}},
    {1, 0, 1, {2700, 2300}, {2529.141, 2311.4587}, {2512.1063, 2222.1705}, {2666.7011, 2191.0836}},
    {1, 0, 2, {1300, 1500}, {1981.8558, 1433.2359}, {1886.3988, 1386.0484}, {1479.5143, 2085.9145}},
    {1, 0, 3, {2700, 2300}, {2604.0009, 2127.9992}, {2541.1066, 2008.9437}, {2663.3532, 1972.1191}},
    {1, 1, 0, {2700, 2300}, {2753.6218, 1811.1874}, {2791.1095, 2020.9978}, {2877.4934, 1966.6942}},
    {1, 1, 1, {1300, 1500}, {1941.8879, 1530.2097}, {1941.8879, 1530.2097}, {1990.6623, 1514.1543}},
    {1, 1, 2, {2700, 2300}, {2992.7676, 1879.2743}, {3046.9998, 2023.7411}, {3407.5437, 2699.2075}},
    {1, 1, 3, {1300, 1500}, {1998.7807, 1269.0808}, {1934.4437, 1248.493}, {1942.6833, 1205.8225}},
    {1, 2, 0, {1300, 1500}, {1751.4599, 1433.5331}, {1822.5482, 1459.6921}, {1585.7952, 1377.9662}},
    {1, 2, 1, {2700, 2300}, {2342.0967, 2347.3535}, {2401.2945, 2331.2617}, {2648.6451, 2347.8612}},
    {1, 2, 2, {1300, 1500}, {1856.8493, 1341.0958}, {1856.8493, 1341.0957}, {1504.3572, 1973.0693}},
    {1, 2, 3, {2700, 2300}, {2447.9016, 2143.1351}, {2444.2725, 2117.006}, {2654.8686, 2166.3582}},
    {1, 3, 0, {2700, 2300}, {3319.7569, 3010.666}, {3175.845, 2894.069}, {3889.5367, 3251.6177}},
    {1, 3, 1, {1300, 1500}, {1949.9178, 1727.4093}, {2016.7821, 1745.7275}, {2128.786, 1530.0458}},
    {1, 3, 2, {2700, 2300}, {3565.7652, 2787.3603}, {3545.8646, 2732.2691}, {4358.4214, 2637.3478}},
    {1, 3, 3, {1300, 1500}, {2022.0929, 1459.0698}, {2022.0928, 1459.0697}, {2067.7745, 1217.534}},
    {0, 0, 3, {2700, 2300}, {1412.7588, 539.7256}, {1538.1987, 705.6788}, {1426.1788, 461.9692}},
    {0, 1, 2, {2700, 2300}, {3175.9355, 937.0406}, {4788.0174, 1360.8193}, {3864.4074, 964.4586}},
    {0, 2, 1, {2700, 2300}, {1587.103, 1024.1463}, {1838.1186, 3834.6245}, {1655.5884, 1135.4139}},
    {0, 3, 0, {2700, 2300}, {2472.6808, -1145.6498}, {-2272.4265, -2956.533}, {2537.6585, -1169.7327}},
};

void atteso(const Att4Pt& r, bool curva, const Coppia& p, const Coppia& voluto, const char* modo) {
    double x = p.x, y = p.y;
    TrasformaFuga(r, curva, x, y);
    EXPECT_NEAR(x, voluto.x, 1e-3) << modo;
    EXPECT_NEAR(y, voluto.y, 1e-3) << modo;
}

}   // namespace

TEST(RamiParalleli, EveryBranchGivesTheFiguresOfTheFormulas) {
    constexpr ErroriPrep errori{25, 26, 25, 25, 26, 26};
    for (const Caso& c : casi) {
        SCOPED_TRACE(testing::Message() << c.da << " onto " << c.a << ", orientation " << c.orientamento);
        orientCorrente = c.orientamento;
        Att4Pt r;
        r.src = forme[c.da];
        r.dst = destinazione(c.a);
        ErroreAlert(PreparaQuattro(r, errori));
        EXPECT_EQ(r.par1 + 2 * r.par2, c.da);
        EXPECT_EQ(r.par1d + 2 * r.par2d, c.a);
        atteso(r, true, c.punto, c.curva, "curve");
        atteso(r, false, c.punto, c.piana, "plain scale");
        // Three centres apart: the record's source, the record's target, the global point.
        r.srcC = {1500, 1600};
        r.dstC = {1900, 1300};
        xAttacco5 = 1650;
        yAttacco5 = 1450;
        ErroreAlert(PreparaCinque(r, errori));
        atteso(r, true, c.punto, c.cinque, "five points");
    }
    EXPECT_TRUE(avvisi.empty());
}

// Where the target's sides slant, the two places that the formulas mix would show: by hundreds of units.
TEST(RamiParalleli, TheAsymmetriesAreThere) {
    Att4Pt r;
    r.src = forme[3];
    r.dst = forme[3];
    ErroreAlert(PreparaQuattro(r, {25, 26, 25, 25, 26, 26}));
    const double x2 = r.src[1].x, y2 = r.src[1].y;
    double x = x2, y = y2;
    TrasformaFuga(r, false, x, y);
    // P2 measures 0 on both axes, so its lines start at Q2 and at (Q4.x, Q2.y), along the mirrored directions.
    const auto pendenza = [](double a) { return -std::cos(a) / std::sin(a); };
    const double m1 = pendenza(r.ang1d), m2 = pendenza(r.ang2d);
    const double atteso = (m2 * r.dst[3].x - m1 * x2) / (m2 - m1);
    EXPECT_NEAR(x, atteso, 1e-6);
    EXPECT_NEAR(y, y2 + m1 * (atteso - x2), 1e-6);
}
