// Tablet samples: where they put the cursor, and what each of the sixteen buttons does.
#include <gtest/gtest.h>

#include <cmath>

#include "digitising/Tavoletta.h"
#include "digitising/TavolettaLettori.h"
#include "display/Disposizione.h"
#include "display/Lettura.h"
#include "display/Scena.h"
#include "display/Zoom.h"
#include "files/Disco.h"
#include "files/Impostazioni.h"
#include "model/Cursore.h"
#include "model/Percorso.h"
#include "model/Registrazione.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "platform/Menus.h"
#include "shell/Calcolatrice.h"
#include "support/Avvisi.h"
#include "tools/Costruzione.h"
#include "tools/CursoreVincolato.h"

using namespace tessaro;
using namespace prova;

namespace {

// A tablet of 4000 by 3000 sheet units, 40 counts to the millimetre, over a window.
struct Tavoletta : testing::Test {
    FinestraProva finestra;

    void SetUp() override {
        htav1 = 3000;
        btav1 = 4000;
        puntimm = 40;
        scalaX = scalaY = 1;
        ScalaTavoletta();
        TabAbilit = 1;
        Modalita = mDigitazione;
        CreateMenus();
    }
    void TearDown() override {
        ChiudiCalcolatrice();
        SpegniTavoletta();
        std::filesystem::remove(SettingsFolder() + "/Tavoletta");
    }
    static void campione(std::int32_t x, std::int32_t y, std::int16_t bottone) { CampioneTavoletta(x, y, bottone); }
};

}   // namespace

TEST_F(Tavoletta, CountsRunUpAndTheSheetRunsDown) {
    struct {
        std::int32_t xt, yt;
        double x, y;
    } const casi[] = {{0, 0, 0, 3000}, {0, 12000, 0, 0}, {4001, 1, 1000.25, 2999.75}, {-4, -4, -1, 3001}};
    for (const auto& c : casi) {
        Agg_cursore(c.xt, c.yt);
        EXPECT_EQ(xcurs, c.x);
        EXPECT_EQ(ycurs, c.y);
    }
    // The offset is added as it stands; the corrections of the two axes are their own.
    XtabFin = 100;
    YtabFin = -50;
    scalaX = 2;
    ScalaTavoletta();
    Agg_cursore(400, 400);
    EXPECT_EQ(xcurs, 100 + 200);
    EXPECT_EQ(ycurs, -50 + 3000 - 100);
}

TEST_F(Tavoletta, FrozenAxesAndTheGridHoldTheCursor) {
    Agg_cursore(4000, 4000);
    statoCursore.bloccaX = 1;
    Agg_cursore(8000, 8000);
    EXPECT_EQ(xcurs, 1000);
    EXPECT_EQ(ycurs, 1000);
    statoCursore.bloccaX = 0;
    statoCursore.bloccaY = 1;
    Agg_cursore(2000, 2000);
    EXPECT_EQ(xcurs, 500);
    EXPECT_EQ(ycurs, 1000);
    statoCursore.bloccaY = 0;
    griglia.attiva = 1;
    griglia.passoX = griglia.passoY = 100;
    double x = 612.5, y = 2362.5;
    AttaccaGriglia(x, y);
    Agg_cursore(2450, 2550);
    EXPECT_EQ(xcurs, x);
    EXPECT_EQ(ycurs, y);
}

TEST_F(Tavoletta, TheRubberBandFollowsAndNothingStaysBehind) {
    operazCorrente = opSegmento;
    campione(1000, 11000, 1);
    campione(2000, 10000, 0);
    const std::vector<std::uint32_t> prima(finestra.porta().pixels(),
                                           finestra.porta().pixels() + finestra.porta().rowPixels());
    EXPECT_EQ(Xfine, 500);
    EXPECT_EQ(Yfine, 500);
    campione(3000, 9000, 0);
    campione(2000, 10000, 0);
    EXPECT_EQ(prima, std::vector<std::uint32_t>(finestra.porta().pixels(),
                                                finestra.porta().pixels() + finestra.porta().rowPixels()));
    EXPECT_EQ(Xini, 250);
}

TEST_F(Tavoletta, ButtonsOneAndTwoTraceAPolylineAndEndIt) {
    operazCorrente = opPolilinea;
    campione(400, 11600, 2);   // nothing to end
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(Azione, sFermo);
    campione(400, 11600, 1);
    EXPECT_EQ(Azione, sPrimoPunto);
    campione(800, 11600, 1);
    campione(800, 11200, 0);
    campione(800, 11200, 2);
    EXPECT_EQ(Azione, sFermo);
    ASSERT_EQ(indElem, 5);
    EXPECT_EQ(Elem(3).tipo, tPoligono);
    EXPECT_EQ(Elem(3).poli.numVertici, 2);
    EXPECT_EQ(Elem(5).vert.x, 200);
    EXPECT_EQ(Elem(5).vert.y, 200);
}

TEST_F(Tavoletta, ButtonOneByToolAndStage) {
    // Three points of a circle: the third comes in stage 8.
    CurvePerPunti = 1;
    operazCorrente = opCerchio;
    campione(400, 11600, 1);
    campione(800, 11600, 1);
    EXPECT_EQ(Azione, sTerzoPunto);
    operazCorrente = opSegmento;
    campione(801, 11600, 1);   // a segment's point is no third point
    EXPECT_EQ(Azione, sTerzoPunto);
    operazCorrente = opCerchio;
    campione(800, 11200, 1);
    EXPECT_EQ(Azione, sFermo);
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).tipo, tCerchio);
    // Markers whatever the stage, by the tool and by button 3.
    operazCorrente = opMarker;
    campione(1000, 11000, 1);
    operazCorrente = opSegmento;
    campione(1200, 11000, 3);
    ASSERT_EQ(indElem, 5);
    EXPECT_EQ(Elem(4).mark.x, 250);
    EXPECT_EQ(Elem(5).mark.x, 300);
    // Tools without a row do nothing.
    for (const std::int32_t altro : {-1, 7, 12}) {
        operazCorrente = altro;
        campione(1300, 11000, 1);
        EXPECT_EQ(indElem, 5);
        EXPECT_EQ(Azione, sFermo);
    }
}

TEST_F(Tavoletta, ControlPointsAndReference) {
    campione(400, 11600, 4);
    campione(800, 11200, 5);
    EXPECT_EQ(Elem(1).att1.x1, 100);
    EXPECT_EQ(Elem(1).att1.y1, 100);
    EXPECT_EQ(Elem(1).att1.x2, 200);
    EXPECT_EQ(XA2, 200);
    FinestraProva::vedi(0.5, 250, 333);
    campione(0, 0, 14);
    EXPECT_EQ(XtabFin, (250 - 32) * 2);
    EXPECT_EQ(YtabFin, (333 - hToolbar) * 2);
    EXPECT_EQ(RifTablet, 0);
    EXPECT_TRUE(IsMenuItemChecked(6, 15));
    EXPECT_FALSE(IsMenuItemChecked(6, 14));
    campione(0, 0, 0);
    EXPECT_EQ(xcurs, 436);   // the tablet's corner is the view's
    campione(0, 0, 15);
    EXPECT_EQ(XtabFin, 0);
    EXPECT_EQ(YtabFin, 0);
    EXPECT_EQ(RifTablet, 1);
    EXPECT_TRUE(IsMenuItemChecked(6, 14));
}

TEST_F(Tavoletta, TheCalculatorsButtonsShowMeasuresTimesItsFactor) {
    RisCalc.area = 1;
    RisCalc.perimetro = 2;
    RisCalc.sviluppo = 3;
    RisCalc.baricentroX = 4;
    RisCalc.baricentroY = 5;
    RisCalc.momentoX = 6;
    RisCalc.momentoY = 7;
    RisCalc.fattore = 10;
    RisCalc.valore = -1;
    campione(0, 0, 8);
    EXPECT_EQ(RisCalc.valore, -1);   // it is closed
    campione(0, 0, 6);
    EXPECT_EQ(CalcWindow, 1);
    EXPECT_EQ(operazCorrente, opCalcolatrice);
    for (std::int16_t b = 7; b <= 13; ++b) {
        campione(0, 0, b);
        EXPECT_EQ(RisCalc.valore, (b - 6) * 10) << b;
    }
}

TEST_F(Tavoletta, OtherButtonsMoveTheCursorAndTheReadOutOnly) {
    rappvid = 1;
    for (const int b : {16, 31, 255, 32767, -1}) {
        AzzeraArchivio();
        scriviSempreCoord = 1;
        xcurs = 0;
        campione(888, 11600, static_cast<std::int16_t>(b));
        EXPECT_EQ(indElem, 2);
        EXPECT_EQ(Azione, sFermo);
        EXPECT_EQ(ycurs, 100);
        EXPECT_EQ(XVisualPrec, xcurs);
        EXPECT_EQ(scriviSempreCoord, 0);
    }
}

TEST_F(Tavoletta, NothingIsReadWhileReadingIsOff) {
    TabAbilit = 0;
    campione(444, 444, 3);
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(xtab, 0);
}

TEST_F(Tavoletta, APenKeepsItsPartsOfAPixel) {
    FinestraProva::vedi(3, 100, 200);
    for (const auto& [h, v] : {std::pair{300.0, 400.0}, {300.25, 400.75}, {301.0 / 3, 500.0 / 7}}) {
        PennaTavoletta(h, v, 0);
        EXPECT_NEAR(xcurs, (h + OrigX) / scalavid, 1e-9);
        EXPECT_NEAR(ycurs, (v + OrigY) / scalavid, 1e-9);
    }
    PennaTavoletta(NAN, 1e300, 3);   // no place at all
    EXPECT_EQ(indElem, 2);
    EXPECT_TRUE(PennaDigita(300, 300));
    EXPECT_FALSE(PennaDigita(5, 300));   // the palette
    Modalita = mSelezione;
    EXPECT_FALSE(PennaDigita(300, 300));
}

TEST_F(Tavoletta, AResolutionThatCannotBeDoesNotThrowTheCursorOffThePlane) {
    for (const double conteggi : {0.0, -40.0, double{INFINITY}, double{NAN}}) {
        puntimm = conteggi;
        ScalaTavoletta();
        PennaTavoletta(300, 200, 0);
        EXPECT_NEAR(xcurs, (300 + OrigX) / scalavid, 1e-9) << conteggi;
        EXPECT_NEAR(ycurs, (200 + OrigY) / scalavid, 1e-9) << conteggi;
    }
}

TEST_F(Tavoletta, SettingsComeBackAndBadLinesAreNamed) {
    lettoreScelto = 2;
    formatoTavoletta = 3;
    velbaud = 4;
    parity = 3;
    PortaTavIn = "/dev/ttyUSB0";
    puntimm = 39.37;
    ASSERT_TRUE(ScriviParTavoletta());
    AzzeraStato();
    LeggiParTavoletta();
    EXPECT_EQ(lettoreScelto, 2);
    EXPECT_EQ(puntimm, 39.37);
    EXPECT_EQ(PortaTavOut.str(), "/dev/ttyUSB0");
    const LineaSeriale l = LineaTavoletta();
    EXPECT_EQ(l.velocita, 9600);
    EXPECT_EQ(l.parita, LineaSeriale::Parita::pari);
    EXPECT_EQ(l.mezziStop, 2);

    metti(SettingsFolder() + "/Tavoletta",
          "# remark\r\nformat = 2\r\nspeed=6\nword = 7x\nnonsense\n\ncounts = nan\ncounts = 0.5\nstop = 3");
    LeggiParTavoletta();
    EXPECT_EQ(formatoTavoletta, 2);
    EXPECT_EQ(velbaud, 4);
    EXPECT_EQ(bitstop, 3);
    EXPECT_EQ(puntimm, 39.37);
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
    EXPECT_NE(avvisi[0].testo.find("3, 4, 5, 7, 8"), std::string::npos) << avvisi[0].testo;
}
