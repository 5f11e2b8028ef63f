// Pixels from sheet units, the selection's box and the derived scales.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "display/Disegno.h"
#include "model/Colori.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

TEST(Vista, PixelsRoundAndWrapAtSixteenBits) {
    scalavid = 0.5;
    OrigX = -32;
    OrigY = 10;
    EXPECT_EQ(XVid(101), 51 + 32);
    EXPECT_EQ(YVid(101), 51 - 10);
    EXPECT_EQ(XVid(80000), i16(40000 + 32));
    EXPECT_EQ(XVidD(80000), 40032.0);
    EXPECT_LT(XVidD(std::nan("")), -1e12);
    EXPECT_EQ(XVid(std::numeric_limits<double>::infinity()), 32767);
    puntot p{0, 0, 7};
    VidToReal(Point{-10, -32}, p);
    EXPECT_EQ(p.x, -128.0);
    EXPECT_EQ(p.y, 0.0);
    EXPECT_EQ(p.z, 7.0);
}

TEST(Vista, ALoneOrFallingPointMovesOnlyTheMinimum) {
    AggRettSel(5, 6);
    EXPECT_EQ(rettSel.xmax, -1e99);
    AggRettSel(4, 2);
    EXPECT_EQ(rettSel.xmin, 4);
    EXPECT_EQ(rettSel.ymax, -1e99);
    AggRettSel(9, 1);
    EXPECT_EQ(rettSel.xmax, 9);
    EXPECT_EQ(rettSel.ymin, 1);
}

TEST(Vista, ATextsBoxFollowsItsAngle) {
    scalavid = 1;
    AggiornaTolleranze();
    struct Caso {
        std::int16_t angolo;
        double xmin, ymin, xmax, ymax;   // in points of a text 10 wide and 10 high at the origin
    };
    // 150 centesimal runs down at half a right angle.
    const double r = std::sqrt(0.5);
    for (const Caso& c : {Caso{100, 0, -7, 10, 3},
                          {200, -3, 0, 7, 10},
                          {300, -10, -3, 0, 7},
                          {0, -7, -10, 3, 0},
                          {150, -3 * r, -7 * r, 17 * r, 13 * r}}) {
        elemento e{};
        e.test.x = 0;
        e.test.y = 0;
        e.test.larghezza = 10;
        e.test.altezza = 10;
        e.test.angolo = c.angolo;
        AzzeraRettSel();
        AggRetSelTesto(e);
        EXPECT_NEAR(rettSel.xmin / DecPunto, c.xmin, 1e-5) << c.angolo;
        EXPECT_NEAR(rettSel.ymin / DecPunto, c.ymin, 1e-5) << c.angolo;
        EXPECT_NEAR(rettSel.xmax / DecPunto, c.xmax, 1e-5) << c.angolo;
        EXPECT_NEAR(rettSel.ymax / DecPunto, c.ymax, 1e-5) << c.angolo;
    }
}

TEST(Vista, AnAttachmentOverridesTheTypedScale) {
    fogliovuoto();
    Scaladis = 2000;
    decimiUnita = 10000;
    CalcolaRapporti();
    EXPECT_DOUBLE_EQ(rappvid, 0.2);
    Elem(1).att.x1 = 0;
    Elem(1).att.x2 = 1000;
    Elem(2).att.x1 = 500;
    Elem(2).att.x2 = 800;
    Elem(2).att.y2 = 0;
    Elem(2).att.coordReali = 1;
    CalcolaRapporti();
    EXPECT_DOUBLE_EQ(rappvid, 0.3);
    EXPECT_DOUBLE_EQ(Scaladis, 3000);
    EXPECT_FLOAT_EQ(RappPunti, static_cast<float>(0.3 * 254 / 72));
}

TEST(Vista, AColourOutsideTheTableIsBlack) {
    arrColori[2].rgb = RGBColor{1, 2, 3};
    ColoreDaTabella(3);
    EXPECT_EQ(GetPort()->foreground, (RGBColor{1, 2, 3}));
    for (const std::int16_t n : {std::int16_t{0}, std::int16_t{8}, std::int16_t{-3}, std::int16_t{32000}}) {
        ColoreDaTabella(n);
        EXPECT_EQ(GetPort()->foreground, RGBColor{}) << n;
    }
}
