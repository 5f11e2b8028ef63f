// The arithmetic of zooms and scrolls, and what a scroll repaints.
#include "display/Zoom.h"
#include "display/Disegno.h"
#include "display/Disposizione.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/PreferenzeVista.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/Automation.h"
#include "Scena.h"

using namespace tessaro;
using namespace prova;

namespace {

void vistaCoerente() {
    EXPECT_EQ(OrigX, PageCorner.h - 32);
    EXPECT_EQ(OrigY, PageCorner.v - hToolbar);
    EXPECT_DOUBLE_EQ(diffCerca, 5 / scalavid);
    EXPECT_DOUBLE_EQ(DiffSelez, 4 / scalavid);
    EXPECT_DOUBLE_EQ(ScalaTesto, scalavid * DecPunto);
    EXPECT_EQ(GetControlValue(HScroll), PageCorner.h);
    EXPECT_EQ(GetControlValue(VScroll), PageCorner.v);
}

// The pointer as the events have told it.
void puntaA(Point p) {
    EventRecord e;
    e.where = p;
    AutoPost(e);
    do WaitNextEvent(e, 0);
    while (!AutoQueueEmpty());
}

}   // namespace

TEST(Zoom, EachKindSetsScaleAndCorner) {
    struct Caso {
        std::int16_t tipo;
        double scala;
        std::int32_t h, v;
    };
    const double reale = 72.0 / 254;
    const auto centrato = [](double f, double valore, double misura) {
        return static_cast<std::int32_t>(std::round(valore * f) + std::round(misura * (f - 1) / 2));
    };
    const auto fisso = [&](std::int16_t tipo, double scala) {
        return Caso{tipo, scala, centrato(scala, 100, 1000), centrato(scala, 50, 600)};
    };
    const double tutto = 985.0 / 5100;   // a segment reaches from -100 to 5000 on a sheet of 4200 by 2970
    for (const Caso& c : {Caso{1, 585 / 29.7 / 100, 0, 0}, fisso(2, reale), fisso(3, reale * 2), fisso(4, reale * 4),
                          fisso(5, reale / 2), fisso(6, reale / 4), Caso{7, 2, 700, 400}, Caso{8, 0.5, -200, -125},
                          Caso{10, tutto, -26, -7}}) {
        SCOPED_TRACE(c.tipo);
        const FinestraProva finestra;
        segmento(-100, 10, 5000, 20);
        FinestraProva::vedi(1, 100, 50);
        FaiZoom(c.tipo);
        EXPECT_NEAR(scalavid, c.scala, 1e-12);
        EXPECT_EQ(PageCorner.h, c.h);
        EXPECT_EQ(PageCorner.v, c.v);
        vistaCoerente();
        EXPECT_GE(GetControlMaximum(HScroll), arrotonda32(scalavid * XFDecimi));
    }
}

TEST(Zoom, UnknownKindsAndNoWindowChangeNothing) {
    const double prima = scalavid;
    FaiZoom(7);
    EXPECT_EQ(scalavid, prima);
    const FinestraProva finestra;
    FaiZoom(0);
    FaiZoom(12);
    EXPECT_EQ(scalavid, prima);
}

TEST(Zoom, TheExtentsZoomStopsAtThreeAndPlusDoesNot) {
    const FinestraProva finestra;
    XFDecimi = YFDecimi = 50;
    FaiZoom(10);
    EXPECT_EQ(scalavid, 3.0);
    FaiZoom(7);
    EXPECT_EQ(scalavid, 6.0);
}

TEST(Zoom, DoublingWithoutEndKeepsTheCentreAndEveryNumberInBounds) {
    const FinestraProva finestra;
    FinestraProva::vedi(0.25, 900, 500);
    const auto centroX = [] { return (PageCorner.h + 500.0) / scalavid; };
    const double prima = centroX();
    for (int i = 0; i < 60; ++i) {
        FaiZoom(7);
        ASSERT_NEAR(centroX(), prima, 4 / 0.25);
        vistaCoerente();
    }
    EXPECT_LE(scalavid, 20000);
    EXPECT_GT(scalavid, 1000);
    EXPECT_LT(std::abs(PageCorner.h), 1000000001);
    for (int i = 0; i < 100; ++i) FaiZoom(8);
    EXPECT_GT(scalavid, 0);
    vistaCoerente();
    // Far beside the sheet the scale gives way before the scroll position overflows.
    FinestraProva::vedi(1, 600000000, 0);
    FaiZoom(7);
    EXPECT_LE(scalavid, 2);
    EXPECT_LE(PageCorner.h, 1000000000);
}

TEST(Zoom, AScaleThatIsNoneIsRefused) {
    CambiaScala(0.5);
    for (const double s : {0.0, -1.0, std::nan(""), HUGE_VAL}) CambiaScala(s);
    EXPECT_EQ(scalavid, 0.5);
}

TEST(Zoom, ExtentsHoldTheSheetAndWhatIsShown) {
    const FinestraProva finestra;
    cerchio(5000, 100, 50);
    polilinea({{10, -300}, {20, 10}});
    VisioneGraf.lucidoCorrente = 5;
    marker(-900, 10);
    VisioneGraf.visibile[5] = 0;
    segmento(std::nan(""), 1, HUGE_VAL, 1);
    const RettSel prima = rettSel;
    double xmax = 0, ymax = 0, xmin = 0, ymin = 0, dx = 0, dy = 0;
    ContrMaxMin(xmax, ymax, xmin, ymin, dx, dy);
    EXPECT_EQ(xmin, 0);
    EXPECT_EQ(ymin, -300);
    EXPECT_EQ(xmax, 5050);
    EXPECT_EQ(ymax, YFDecimi);
    EXPECT_EQ(dx, 5050);
    EXPECT_EQ(dy, YFDecimi + 300.0);
    EXPECT_EQ(rettSel.xmin, prima.xmin);
}

TEST(Zoom, WhatLiesUnderThePointerStaysThere) {
    const FinestraProva finestra;
    FinestraProva::vedi(1, 100, 50);
    const auto sotto = [](Point p) {
        puntot r;
        VidToReal(p, r);
        return r;
    };
    const Point p{myViewRect.top + 60, myViewRect.left + 700};
    void (*const modi[])() = {[] { DoMouseWheelMoved(cmdKey, 0, 1); },
                              [] { DoMouseWheelMoved(cmdKey, 0, -3); },
                              [] { ZoomAlPuntatore(7); },
                              [] { ZoomAlPuntatore(8); },
                              [] { Pizzica(1.1); },
                              [] {
                                  rotellaIngrandisce = 1;   // the wheel alone zooms, with Ctrl it scrolls
                                  DoMouseWheelMoved(0, 0, 2);
                                  rotellaIngrandisce = 0;
                              }};
    for (const auto modo : modi) {
        puntaA(p);
        const puntot prima = sotto(p);
        const double scala = scalavid;
        modo();
        EXPECT_NE(scalavid, scala);
        EXPECT_NEAR(sotto(p).x, prima.x, 1 / scalavid);
        EXPECT_NEAR(sotto(p).y, prima.y, 1 / scalavid);
        vistaCoerente();
    }
    for (const double f : {0.0, -1.0, std::nan(""), 1e9}) {
        const double scala = scalavid;
        Pizzica(f);
        EXPECT_EQ(scalavid, scala);
    }
}

TEST(Zoom, TheViewShowsWhatIsDrawnWithoutTheSheet) {
    const FinestraProva finestra;
    segmento(1000, 1000, 1200, 1100);
    polilinea({{1100, 1300}, {1000, 900}});
    FaiZoom(11);
    EXPECT_GT(scalavid, 1);
    for (const auto& [x, y] : {std::pair{1000.0, 900.0}, std::pair{1200.0, 1300.0}}) {
        EXPECT_TRUE(PtInRect({static_cast<std::int32_t>(YVidD(y)), static_cast<std::int32_t>(XVidD(x))}, myViewRect));
    }
    vistaCoerente();
    indElem = 2;   // nothing is drawn: the sheet
    FaiZoom(11);
    EXPECT_EQ(PageCorner.h, 0);
    EXPECT_NEAR(scalavid, 585 / 29.7 / 100, 1e-12);
}

TEST(Zoom, ADraggedViewGoesBesideTheSheetAndScrollsOnFromThere) {
    const FinestraProva finestra;
    FinestraProva::vedi(1, 0, 0);
    SpingiVista(150, 90);
    EXPECT_EQ(PageCorner.h, -150);
    EXPECT_EQ(PageCorner.v, -90);
    vistaCoerente();
}

TEST(Zoom, TheWheelZoomsAboutTheCentreAndScrollsBySteps) {
    const FinestraProva finestra;
    FinestraProva::vedi(1, 100, 50);
    puntaA({0, 0});   // outside the view
    DoMouseWheelMoved(cmdKey, 0, 1);
    EXPECT_DOUBLE_EQ(scalavid, 1.2);
    EXPECT_EQ(PageCorner.h, 220);
    EXPECT_EQ(PageCorner.v, 120);
    EXPECT_EQ(NewDis, 1);
    DoMouseWheelMoved(cmdKey, 0, 0);
    EXPECT_DOUBLE_EQ(scalavid, 1.2);
    DoMouseWheelMoved(cmdKey, 0, -1);
    EXPECT_DOUBLE_EQ(scalavid, 1.0);
    FinestraProva::vedi(1, 1000, 1000);
    DoMouseWheelMoved(0, 0, -2);
    EXPECT_EQ(PageCorner.v, 1080);
    DoMouseWheelMoved(optionKey, 1, 1);
    EXPECT_EQ(PageCorner.h, 600);
    vistaCoerente();
}

TEST(Zoom, AScrollRepaintsOnlyTheStripThatItUncovers) {
    FinestraProva finestra(200, 100);
    FinestraProva::vedi(1, 500, 500);
    segmento(400, 660, 900, 660);   // a row below the view, which scrolling brings up
    RGBForeColor({0, 65535, 0});
    PenNormal();
    PaintRect(myViewRect);
    ScrollWindow(0, 70);
    const auto colore = [&](std::int32_t h, std::int32_t v) { return finestra.porta().pixel(h, v); };
    const std::int32_t alto = myViewRect.top, riga = 660 - OrigY;
    EXPECT_EQ(colore(100, alto + 29), 0xFF00FF00);
    EXPECT_EQ(colore(100, alto + 30), bianco);
    EXPECT_EQ(colore(100, riga), nero);
    EXPECT_EQ(OrigY, 570 - hToolbar);
    EXPECT_EQ(GetPort()->clip.box(), GetPortBounds(theWindow));
}

TEST(Zoom, ScrollingOnBesideTheSheetStartsFromWhereTheViewIs) {
    const FinestraProva finestra;
    FinestraProva::vedi(1, -200, -100);
    ScrollWindow(0, 40);
    EXPECT_EQ(PageCorner.v, -60);
    EXPECT_EQ(PageCorner.h, -200);
}

TEST(Zoom, TheTabletsOriginFollowsTheViewWhenTiedToIt) {
    const FinestraProva finestra;
    FinestraProva::vedi(0.5, 1000, 600);
    ScrollWindow(20, 0);
    EXPECT_EQ(XtabFin, 0);
    RifTablet = 0;
    ScrollWindow(12, 0);
    EXPECT_EQ(XtabFin, (1032 - 32) * 2);
}
