// Dropping the drawing at a real place with the pointer: the sheet's corner takes it and the scale stays.
#include <gtest/gtest.h>

#include "digitising/Attacchi.h"
#include "digitising/GeoRiferimento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

TEST(GeoRiferimento, TheCornerTakesThePointAndTheScaleStays) {
    fogliovuoto();
    yfoglio = 29.7;
    YFDecimi = 2970;
    decimiUnita = 1000;
    Scaladis = 1000;
    CalcolaRapporti();
    XFVisual = 1512345.25;
    YFVisual = 4994321.5;
    ParGeoRefer(1);
    EXPECT_TRUE(Elem(2).att.coordReali);
    EXPECT_EQ(Elem(2).att.x1, 1512345.25);
    EXPECT_EQ(Elem(2).att.x2, 1513345.25);   // 10 centimetres of paper are 1000 units
    EXPECT_EQ(Elem(2).att.y2, 4994321.5);
    EXPECT_EQ(Elem(1).att.x2, 1000);
    EXPECT_EQ(XA2, 1000);
    EXPECT_EQ(YA1, 2970);
    EXPECT_NEAR(rappvid, 1, 1e-12);
    EXPECT_NEAR(Scaladis, 1000, 1e-9);
    double x = 0, y = 0;
    DigiToReal(0, 2970, x, y);
    EXPECT_NEAR(x, 1512345.25, 1e-6);
    EXPECT_NEAR(y, 4994321.5, 1e-6);
    DigiToReal(0, 1970, x, y);
    EXPECT_NEAR(y, 4995321.5, 1e-3);   // up the sheet is north
}
