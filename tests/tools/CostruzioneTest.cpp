// From clicks to elements: the stages of each tool, what ends a figure, and what one undo takes.
#include <gtest/gtest.h>

#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vincoli.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"
#include "support/Passi.h"
#include "tools/Costruzione.h"
#include "tools/Marker.h"

using namespace tessaro;
using namespace prova;

namespace {

enum : std::int16_t { doppio = 0, continua = 1, termina = 2 };

// The pointer moves there, the rubber band follows, and the button is pressed.
void clic(double x, double y, std::int16_t bottone = continua) {
    xcurs = x;
    ycurs = y;
    if (Azione == sPercorso || (Azione == sPrimoPunto && (operazCorrente < opTesto || CurvePerPunti))) FaiElemento(1);
    if (Azione == sPrimoPunto && operazCorrente >= opCerchio && !CurvePerPunti) FaiElemento(11);
    if (Azione == sTerzoPunto) FaiElemento(operazCorrente == opCerchio ? 11 : 12);
    tabButton = bottone;
    if (Azione == sFermo) {
        InitSegm();
    } else if (Azione == sTerzoPunto) {
        FineArcoRaggio();
    } else {
        FineSegm();
    }
}

void digita(double x, double y, double z, std::int16_t bottone = continua) {
    XDigit = x;
    YDigit = y;
    ZDigit = z;
    IntroDigitale = 1;
    tabButton = bottone;
    if (Azione == sFermo) {
        InitSegm();
    } else if (Azione == sTerzoPunto) {
        FineArcoRaggio();
    } else {
        FineSegm();
    }
}

void strumento(std::int32_t n, bool perPunti = false) {
    operazCorrente = n;
    CurvePerPunti = perPunti;
}

}   // namespace

TEST(Costruzione, ASegmentIsTwoClicksAndADoubleClickGivesItUp) {
    fogliovuoto();
    strumento(0);
    clic(100, 200);
    EXPECT_EQ(Azione, sPrimoPunto);
    EXPECT_EQ(indElem, 2);
    clic(300, 250);
    EXPECT_EQ(Azione, sFermo);
    ASSERT_EQ(indElem, 3);
    const auto& s = Elem(3).segm;
    EXPECT_EQ(s.x1, 100.0);
    EXPECT_EQ(s.y2, 250.0);
    EXPECT_EQ(s.z1, 1.0);   // the current elevation
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(inizioAggiunta, 2);
    EXPECT_EQ(lastX, 300);
    EXPECT_EQ(ModoAttuale, 8);

    clic(500, 500);
    clic(700, 700, doppio);
    EXPECT_EQ(Azione, sFermo);
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(annullamento, aNiente);
}

TEST(Costruzione, AFigureWithoutLengthIsIgnoredAndStaysInProgress) {
    fogliovuoto();
    for (const std::int32_t n : {0, 1, 5}) {
        SCOPED_TRACE(n);
        strumento(n);
        const std::int32_t prima = indElem;
        clic(100, 100);
        clic(100, 100);
        EXPECT_EQ(Azione, sPrimoPunto);
        EXPECT_EQ(indElem, prima);
        EXPECT_EQ(ModoAttuale, 10);   // still the rubber band's pen
        clic(130, 140);
        EXPECT_EQ(indElem, prima + (n == 1 ? 2 : 1));
        if (n == 1) clic(0, 0, doppio);
        EXPECT_EQ(Azione, sFermo);
    }
}

TEST(Costruzione, ADifferenceInElevationAloneIsALength) {
    fogliovuoto();
    strumento(0);
    digita(10, 10, 5);
    digita(10, 10, 6);
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).segm.z1, 5.0);
    EXPECT_EQ(Elem(3).segm.z2, 6.0);
    EXPECT_EQ(IntroDigitale, 0);
}

TEST(Costruzione, APolylinesUndoTakesAllItsSides) {
    fogliovuoto();
    segmento(0, 0, 1, 1);
    const ConGiornale g;
    strumento(1);
    clic(100, 100);
    finePasso();
    clic(200, 100);
    EXPECT_EQ(ContinuaPoligono, 1);
    EXPECT_EQ(annullamento, aNiente);   // armed when the polyline ends, not after each vertex
    finePasso();
    clic(200, 200);
    finePasso();
    clic(150, 250, doppio);
    EXPECT_EQ(Azione, sFermo);
    EXPECT_EQ(ContinuaPoligono, 0);
    ASSERT_EQ(indElem, 6);
    EXPECT_EQ(Elem(4).poli.numVertici, 2);
    EXPECT_EQ(Elem(6).vert.distanzaTesta, 2);
    EXPECT_EQ(Elem(6).vert.y, 200.0);
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(inizioAggiunta, 3);
    finePasso();
    AnnullaPasso();
    EXPECT_EQ(indElem, 3);
    RipetiPasso();
    EXPECT_EQ(indElem, 6);
    EXPECT_EQ(Azione, sFermo);
}

TEST(Costruzione, ATypedLastPointEndsThePolylineWithIt) {
    fogliovuoto();
    strumento(1);
    digita(10, 10, 1);
    digita(20, 10, 2);
    EXPECT_EQ(Xini, 20);
    EXPECT_EQ(Zinizio, 2);
    digita(20, 30, 3, termina);
    EXPECT_EQ(Azione, sFermo);
    EXPECT_EQ(ContinuaPoligono, 0);
    EXPECT_EQ(Elem(3).poli.numVertici, 2);
    EXPECT_EQ(Elem(3).poli.z, 1.0);
    EXPECT_EQ(Elem(5).vert.z, 3.0);
    EXPECT_EQ(annullamento, aAggiunta);
}

TEST(Costruzione, CirclesAndArcsAreStoredAtTheirLastClick) {
    fogliovuoto();
    NumAreaPat = 4;
    strumento(5);
    clic(1000, 1000);
    clic(1300, 1400);
    EXPECT_EQ(Azione, sFermo);
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).cerc.raggio, 500.0);
    EXPECT_EQ(Elem(3).cerc.patternArea, 4);

    strumento(6);   // by centre: the second click sets radius and start, the third only the sweep
    clic(2000, 1000);
    clic(2300, 1000);
    EXPECT_EQ(Azione, sTerzoPunto);
    EXPECT_EQ(indElem, 3);
    clic(2000, 9000);
    EXPECT_EQ(Azione, sFermo);
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(Elem(4).arco.raggio, 300.0);
    EXPECT_EQ(Elem(4).arco.angoloInizio, 90.0);
    EXPECT_EQ(Elem(4).arco.ampiezza, 90.0);

    clic(2000, 1000);   // backwards past the start: the sweep stays within a turn
    clic(2300, 1000);
    clic(2000, 500);
    EXPECT_EQ(Elem(5).arco.ampiezza, 270.0);

    strumento(5, true);
    clic(100, 600);
    clic(500, 200);
    EXPECT_EQ(Azione, sTerzoPunto);
    clic(900, 600);
    ASSERT_EQ(indElem, 6);
    EXPECT_NEAR(Elem(6).cerc.cx, 500, 1e-9);
    EXPECT_NEAR(Elem(6).cerc.cy, 600, 1e-9);
    EXPECT_NEAR(Elem(6).cerc.raggio, 400, 1e-9);

    strumento(6, true);
    clic(100, 600);
    clic(500, 200);
    clic(500, 1000);
    EXPECT_EQ(Elem(7).arco.angoloInizio, 270.0);
    EXPECT_EQ(Elem(7).arco.ampiezza, -270.0);
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(inizioAggiunta, 6);
}

TEST(Costruzione, AFullStoreBeepsAndTheToolsGoOn) {
    fogliovuoto(4);
    segmento(0, 0, 1, 1);
    strumento(1);
    clic(10, 10);
    clic(20, 10);   // the head fits, its vertex does not
    EXPECT_EQ(indElem, 4);
    EXPECT_EQ(Elem(4).poli.numVertici, 0);
    clic(30, 10, doppio);
    strumento(5);
    clic(10, 10);
    clic(20, 10);
    EXPECT_EQ(Azione, sFermo);
    EXPECT_EQ(indElem, 4);
    EXPECT_EQ(prova::suoni, 2);
}

TEST(Costruzione, AConstrainedSideEndsOnItsLineAndTheNextBeginsThere) {
    fogliovuoto();
    segmento(0, 0, 100, 100);
    statoCursore.perpendicolare = 1;
    strumento(1);
    clic(500, 500);
    clic(700, 540);   // onto the line through (500, 500) with slope -1
    ASSERT_EQ(indElem, 5);
    EXPECT_NEAR(Elem(5).vert.x, 580, 1e-9);
    EXPECT_NEAR(Elem(5).vert.y, 420, 1e-9);
    EXPECT_NEAR(xcurs, 580, 1e-9);
    EXPECT_EQ(Xini, xcurs);
}

TEST(Costruzione, AMeasuredPathIsHandedOnAndNotStored) {
    static std::vector<std::string> visti;
    visti.clear();
    fogliovuoto();
    rappvid = 1;
    YFDecimi = 0;
    const auto scrivi = [](const char* cosa, const puntot& p) {
        visti.push_back(cosa + std::to_string(static_cast<int>(p.x)) + "," + std::to_string(static_cast<int>(p.y)));
    };
    static auto annota = scrivi;
    percorsoMisurato = {[](const puntot& p) { annota("da ", p); }, [](const puntot& p) { annota("a ", p); },
                        [] { visti.emplace_back("misura"); }};
    CalcWindow = 1;
    strumento(4);
    clic(10, 10);
    EXPECT_EQ(Azione, sPercorso);
    clic(30, 10);
    clic(30, 40);
    EXPECT_EQ(Azione, sPercorso);
    clic(50, 50, doppio);
    EXPECT_EQ(Azione, sFermo);
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(visti, (std::vector<std::string>{"da 10,-10", "a 30,-10", "a 30,-40", "misura"}));
}

TEST(Costruzione, AMarkerStandsAtOnceAndLeavesTheReadOutsOrigin) {
    fogliovuoto();
    markerCorrente = 4;
    xcurs = 70;
    ycurs = 80;
    FaiMarker();
    digita(0, 0, 0);   // gives the typed point to a segment, for its place only
    Azione = sFermo;
    lastX = 5;
    XDigit = 1;
    YDigit = 2;
    ZDigit = 9;
    IntroDigitale = 1;
    FaiMarker();
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(Elem(3).mark.forma, 4);
    EXPECT_EQ(Elem(3).mark.z, 1.0);
    EXPECT_EQ(Elem(4).mark.x, 1.0);
    EXPECT_EQ(Elem(4).mark.z, 9.0);
    EXPECT_EQ(lastX, 5);
    EXPECT_EQ(inizioAggiunta, 3);
    EXPECT_EQ(annullamento, aAggiunta);
}
