// Constraints: which switches exclude which, where the directions lead, and which point attracts.
#include <gtest/gtest.h>

#include <cmath>

#include "display/Zoom.h"
#include "model/Cursore.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"
#include "tools/Aggancio.h"
#include "tools/CursoreVincolato.h"

using namespace tessaro;
using namespace prova;

TEST(CursoreVincolato, SwitchesThatExcludeEachOtherChangeOver) {
    const auto& s = statoCursore;
    MettiOrizzontale();
    EXPECT_TRUE(s.bloccaY && !s.bloccaX);
    MettiVerticale();
    EXPECT_TRUE(s.bloccaX && !s.bloccaY);
    MettiOrizzontale();
    EXPECT_TRUE(s.bloccaY && !s.bloccaX);
    MettiOrizzontale();
    EXPECT_TRUE(!s.bloccaY && !s.bloccaX);
    MettiParallelo();
    MettiPerpendicolare();
    EXPECT_TRUE(s.perpendicolare && !s.parallelo);
    MettiParallelo();
    EXPECT_TRUE(s.parallelo && !s.perpendicolare);
    MettiParallelo();
    EXPECT_FALSE(s.parallelo);
}

TEST(CursoreVincolato, LockingAnAxisTakesTheCursorOntoTheFirstPoint) {
    Xini = 10;
    Yini = 20;
    xcurs = 50;
    ycurs = 60;
    MettiOrizzontale();
    EXPECT_EQ(ycurs, 60);   // no figure is in progress
    MettiOrizzontale();
    Azione = sPrimoPunto;
    MettiOrizzontale();
    EXPECT_EQ(ycurs, 20);
    MettiVerticale();
    EXPECT_EQ(xcurs, 10);
}

TEST(CursoreVincolato, TakingZNeedsAttaching) {
    MettiAttaccoZ();
    EXPECT_TRUE(statoCursore.attaccoPunto && statoCursore.attaccoZ);
    MettiAttaccoPt();
    EXPECT_TRUE(!statoCursore.attaccoPunto && !statoCursore.attaccoZ);
    EXPECT_EQ(debug, 0);
    MettiAttaccoPt();
    EXPECT_TRUE(statoCursore.attaccoPunto);
    EXPECT_EQ(debug, 1);
}

TEST(CursoreVincolato, DirectionsProjectOntoTheLineThroughTheFirstPoint) {
    fogliovuoto();
    const double lati[][4] = {{0, 0, 100, 0}, {0, 0, 0, 100}, {50, 0, 50, -80}, {0, 0, 30, 40}, {7, 9, -500, 33}};
    for (const auto& l : lati) {
        segmento(l[0], l[1], l[2], l[3]);
        const double n = std::hypot(l[2] - l[0], l[3] - l[1]), ux = (l[2] - l[0]) / n, uy = (l[3] - l[1]) / n;
        Xini = 200;
        Yini = -100;
        const double x = 731, y = 288, lungo = (x - Xini) * ux + (y - Yini) * uy;
        Xfine = x;
        Yfine = y;
        Parallelo();
        EXPECT_NEAR(Xfine, Xini + lungo * ux, 1e-9);
        EXPECT_NEAR(Yfine, Yini + lungo * uy, 1e-9);
        Xfine = x;
        Yfine = y;
        Perpendicolare();
        EXPECT_NEAR(Xfine, x - lungo * ux, 1e-9);
        EXPECT_NEAR(Yfine, y - lungo * uy, 1e-9);
    }
}

TEST(CursoreVincolato, TheGridSnapsAndRemembersTheRawPosition) {
    griglia.passoX = 100;
    griglia.passoY = 25;
    double x = 149.9, y = -12.5;
    AttaccaGriglia(x, y);
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, -25);
    EXPECT_EQ(griglia.grezzoX, 149.9);
    EXPECT_EQ(griglia.grezzoY, -12.5);
}

TEST(CursoreVincolato, EveryKindOfPointAttractsByItsOwnSwitchAndIsToldByItsKind) {
    fogliovuoto();
    CambiaScala(1);
    statoCursore.attaccoPunto = 1;
    AzzeraVisioneGraf();
    segmento(1000, 1000, 1200, 1000);
    segmento(1040, 900, 1040, 1060);
    polilinea({{2000, 1000}, {2000, 1300}});
    marker(1500, 1500);
    cerchio(3000, 1000, 200);
    Azione = sPrimoPunto;
    Xini = 1170;
    Yini = 1500;
    struct Caso {
        TipoAggancio tipo;
        double daX, daY, x, y;
    };
    for (const Caso& c : {Caso{agEstremo, 1006, 1007, 1000, 1000}, Caso{agVertice, 1995, 1003, 2000, 1000},
                          Caso{agMarker, 1503, 1496, 1500, 1500}, Caso{agCentro, 3004, 996, 3000, 1000},
                          Caso{agIncrocio, 1046, 1005, 1040, 1000}, Caso{agMezzo, 1104, 997, 1100, 1000},
                          Caso{agPiede, 1175, 1006, 1170, 1000}, Caso{agMezzo, 1992, 1155, 2000, 1150}}) {
        SCOPED_TRACE(c.tipo);
        agganciAttivi = static_cast<std::uint8_t>(~BitAggancio(c.tipo));
        EXPECT_NE(CercaAggancio(c.daX, c.daY).tipo, c.tipo);
        agganciAttivi = BitAggancio(c.tipo);
        const Aggancio a = CercaAggancio(c.daX, c.daY);
        EXPECT_EQ(a.tipo, c.tipo);
        EXPECT_NEAR(a.punto.x, c.x, 1e-9);
        EXPECT_NEAR(a.punto.y, c.y, 1e-9);
        EXPECT_EQ(CercaAggancio(c.daX + 12, c.daY + 12).tipo, agNessuno);   // 10 pixels reach no further
    }
    // A larger reach takes what the usual one leaves; kinds that always attracted go before nearer ones of the others.
    agganciAttivi = 0xFF;
    distanzaAggancio = 50;
    EXPECT_EQ(CercaAggancio(1038, 1001).tipo, agEstremo);
    distanzaAggancio = 10;
    EXPECT_EQ(CercaAggancio(1038, 1001).tipo, agIncrocio);
    VisioneGraf.visibile[0] = 0;   // the others are not looked for where nothing is seen
    EXPECT_EQ(CercaAggancio(1038, 1001).tipo, agNessuno);
    EXPECT_EQ(CercaAggancio(std::nan(""), 1000).tipo, agNessuno);
}

TEST(CursoreVincolato, TheEarliestRecordInReachAttracts) {
    fogliovuoto();
    ZetaCorrente = 4;
    CambiaScala(1);   // and so 10 pixels of reach are 10 units
    struct Agganciato {
        double x, y, z;
    };
    const auto aggancia = [](double x, double y) {
        double z = -1;
        AttaccaCursore(x, y, z);
        return Agganciato{x, y, z};
    };
    marker(109, 100, 7);
    segmento(100, 101, 300, 300, 8, 9);
    EXPECT_EQ(aggancia(100, 100).x, 100);   // attaching is off: only Z is set
    EXPECT_EQ(aggancia(100, 100).z, 4);
    statoCursore.attaccoPunto = 1;
    EXPECT_EQ(aggancia(100, 100).x, 109);   // not the nearest: the first
    EXPECT_EQ(aggancia(100, 100).z, 4);
    EXPECT_EQ(aggancia(99, 100).y, 101);   // at 10 exactly the marker is out of reach
    statoCursore.attaccoZ = 1;
    EXPECT_EQ(aggancia(302, 301).z, 9);
    EXPECT_EQ(aggancia(500, 500).z, 4);

    cerchio(600, 600, 3);   // curves and texts do not attract
    testo(620, 620, "x");
    EXPECT_EQ(aggancia(601, 601).x, 601);
    EXPECT_EQ(aggancia(621, 621).x, 621);

    // A vertex offers the record behind it first: here the second vertex wins over the first.
    polilinea({{1000, 1000}, {1100, 1000}, {1105, 1000}});
    EXPECT_EQ(aggancia(1102, 1000).x, 1105);
    EXPECT_EQ(aggancia(1000, 1001).x, 1000);
    // What lies parked above the last record is no record.
    segmento(2000, 2000, 2100, 2100);
    --indElem;
    EXPECT_EQ(aggancia(2001, 2000).x, 2001);

    griglia.attiva = 1;   // with the grid the unsnapped position is what is compared
    griglia.grezzoX = 301;
    griglia.grezzoY = 299;
    EXPECT_EQ(aggancia(5000, 5000).x, 300);
}

TEST(CursoreVincolato, ASegmentIsPutInOrder) {
    const double casi[][8] = {{5, 1, 2, 9, 2, 9, 5, 1},
                              {2, 9, 5, 1, 2, 9, 5, 1},
                              {3, 9, 3.0003, 1, 3, 1, 3.0003, 9},
                              {3.0003, 1, 3, 9, 3.0003, 1, 3, 9}};
    for (const auto& c : casi) {
        double x1 = c[0], y1 = c[1], x2 = c[2], y2 = c[3];
        RaddrizzaSegm(x1, y1, x2, y2);
        EXPECT_EQ(x1, c[4]);
        EXPECT_EQ(y1, c[5]);
        EXPECT_EQ(x2, c[6]);
        EXPECT_EQ(y2, c[7]);
    }
}
