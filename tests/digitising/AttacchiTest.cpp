// Control points: what a selection feeds, what the checks refuse, and the shift to positive coordinates.
#include <gtest/gtest.h>

#include "digitising/Attacchi.h"
#include "editing/SpostaXY.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vincoli.h"
#include "platform/Automation.h"
#include "platform/Resources.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "shell/Archivia.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"
#include "text/Conversione.h"

using namespace tessaro;
using namespace prova;

namespace {

void seleziona(std::int32_t n, std::int32_t oggetto) {
    Puntosel.attiva = 1;
    Puntosel.multipla = 0;
    Puntosel.numSel = 1;
    Puntosel.oggetto = oggetto;
    Puntosel.indice = n;
}

void attesoPunto(std::int16_t n, double x, double y) {
    SCOPED_TRACE(n);
    EXPECT_EQ(LeggiAttacco(n).x, x);
    EXPECT_EQ(LeggiAttacco(n).y, y);
}

constexpr std::array<Coppia, 4> buoni{{{500, 2500}, {500, 500}, {3500, 500}, {3500, 2500}}};

}   // namespace

TEST(Attacchi, EachPointHasItsPlaceInTheReservedRecords) {
    fogliovuoto();
    for (std::int16_t n = 1; n <= 5; ++n) AssegnaAttacco(n, n * 10, n * 10 + 1);
    const auto *r1 = reinterpret_cast<const unsigned char*>(&Elem(1)),
               *r2 = reinterpret_cast<const unsigned char*>(&Elem(2));
    const auto a = [](const unsigned char* r, int dove) {
        double v = 0;
        std::memcpy(&v, r + dove, 8);
        return v;
    };
    EXPECT_EQ(a(r1, 28), 10);
    EXPECT_EQ(a(r1, 36), 11);
    EXPECT_EQ(a(r1, 52), 20);
    EXPECT_EQ(a(r1, 60), 21);
    EXPECT_EQ(a(r1, 44), 30);
    EXPECT_EQ(a(r1, 68), 31);
    EXPECT_EQ(a(r2, 44), 40);
    EXPECT_EQ(a(r2, 68), 41);
    EXPECT_EQ(xAttacco5, 50);
    EXPECT_EQ(yAttacco5, 51);
    EXPECT_EQ(Elem(2).att.quattroPunti, 0);   // it sets no flag and no copy
    EXPECT_EQ(XA1, 0);
}

TEST(Attacchi, ASelectionFeedsThePointsFromTheOneNamedOn) {
    fogliovuoto();
    const auto m = marker(7, 8), s = segmento(1, 2, 3, 4), p = polilinea({{10, 1}, {20, 2}, {30, 3}, {40, 4}, {50, 5}}),
               t = testo(90, 91, "x");
    const struct {
        const char* caso;
        std::int32_t record, oggetto;
        std::int16_t n;
        bool preso;
        std::array<double, 5> x;   // of points 1 to 5 afterwards; -1 untouched
    } casi[] = {
        {"marker", m, oMarker, 3, true, {-1, -1, 7, -1, -1}},
        {"segment at 1", s, oSegmento, 1, true, {1, 3, -1, -1, -1}},
        {"segment at 4 reaches the centre", s, oSegmento, 4, true, {-1, -1, -1, 1, 3}},
        {"segment at 5 gives its start alone", s, oSegmento, 5, true, {-1, -1, -1, -1, 1}},
        {"polyline at 1 stops at 4", p, oPoligono, 1, true, {10, 20, 30, 40, -1}},
        {"polyline at 3", p, oPoligono, 3, true, {-1, -1, 10, 20, -1}},
        {"polyline at 5", p, oPoligono, 5, true, {-1, -1, -1, -1, 10}},
        {"a vertex speaks for its polyline", p + 2, oPoligono, 2, true, {-1, 10, 20, 30, -1}},
        {"a kind without effect keeps the cursor out", s, oMeshOrigine, 1, true, {-1, -1, -1, -1, -1}},
        {"text leaves it to the cursor", t, oTesto, 1, false, {-1, -1, -1, -1, -1}},
        {"a number out of the drawing", 99, oMarker, 1, false, {-1, -1, -1, -1, -1}},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.caso);
        seleziona(c.record, c.oggetto);
        for (std::int16_t n = 1; n <= 5; ++n) {
            AssegnaAttacco(n, -1, -1);
            attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1), -1, -1);
        }
        EXPECT_EQ(AttaccoSelezionato(c.n), c.preso);
        SetAttacco(c.n, 777, 888);
        for (std::int16_t n = 1; n <= 5; ++n) {
            EXPECT_EQ(LeggiAttacco(n).x, c.x[static_cast<std::size_t>(n - 1)]) << "point " << n;
            double x = 0, y = 0;
            attaccoAttivo.GetAttacco(n, x, y);
            EXPECT_EQ(x, !c.preso && n == c.n ? 777 : c.x[static_cast<std::size_t>(n - 1)]) << "destination " << n;
        }
    }
    Puntosel.multipla = 1;
    seleziona(m, oMarker);
    Puntosel.multipla = 1;
    EXPECT_FALSE(AttaccoSelezionato(1));
}

TEST(Attacchi, NamingAPointKeepsCopiesFlagsAndRegistrationInStep) {
    fogliovuoto();
    Elem(2).att.x1 = 0;
    Elem(2).att.y1 = 0;
    Elem(2).att.x2 = 100;
    Elem(2).att.y2 = 0;
    Elem(2).att.coordReali = 1;
    const auto metti = [](std::int16_t n, double x, double y) {
        xcurs = x;
        ycurs = y;
        Attacco(n);
    };
    metti(1, 500, 2500);
    metti(2, 1500, 2500);
    EXPECT_EQ(XA1, 500);
    EXPECT_EQ(XA2, 1500);
    EXPECT_EQ(YA2, 2500);
    double x = 0, y = 0;
    DigiToReal(1000, 2500, x, y);
    EXPECT_NEAR(x, 50, 1e-9);
    EXPECT_NEAR(y, 0, 1e-9);
    EXPECT_EQ(Elem(2).att.quattroPunti, 0);
    metti(3, 1500, 1000);
    EXPECT_EQ(Elem(2).att.quattroPunti, 1);
    EXPECT_EQ(OKAttacco5, 0);
    metti(5, 1000, 1800);
    EXPECT_EQ(OKAttacco5, 1);

    XDigit = 640;   // typed: neither cursor nor selection counts
    YDigit = 650;
    ZDigit = 12;
    seleziona(marker(1, 1), oMarker);
    IntroDigitale = 1;
    Attacco(4);
    attesoPunto(4, 640, 650);
    EXPECT_EQ(zcurs, 12);
    EXPECT_EQ(IntroDigitale, 0);
    EXPECT_EQ(xcurs, 1000);
}

TEST(Attacchi, AClickSnapsToAPointInReach) {
    fogliovuoto();
    marker(1003, 998, 5);
    statoCursore.attaccoPunto = 1;
    xcurs = 1000;
    ycurs = 1000;
    Attacco(1);
    attesoPunto(1, 1003, 998);
    EXPECT_EQ(xcurs, 1000);
    AttaccoDin(2);
    EXPECT_EQ(attaccoAttivo.xAtt[1], 1003);
}

TEST(Attacchi, AMarkRepaintsItsPlaceAndThatOfPoint4ThePlaceOf3) {
    ASSERT_TRUE(AllocaElementi(100));
    SetUpWindow();
    const auto ridipinge = [](std::int16_t n, double x3, double x4) {
        AssegnaAttacco(3, x3, 500);
        AssegnaAttacco(4, x4, 900);
        for (EventRecord e; !AutoQueueEmpty();) WaitNextEvent(e, 0);   // a new window's own
        FlushEvents();
        BeginUpdate(theWindow);
        XDigit = n == 3 ? x3 : x4;
        YDigit = n == 3 ? 500 : 900;
        IntroDigitale = 1;
        Attacco(n);
        return !AutoQueueEmpty();
    };
    constexpr double inVista = 600, fuori = 20000;
    EXPECT_FALSE(ridipinge(4, fuori, inVista));
    EXPECT_TRUE(ridipinge(4, inVista, fuori));
    EXPECT_TRUE(ridipinge(3, inVista, fuori));
    attaccoAttivo.SetXYAtt(1, 700, 700);   // a destination point: where its mark was, and where it is
    FlushEvents();
    BeginUpdate(theWindow);
    XDigit = fuori;
    IntroDigitale = 1;
    AttaccoDin(2);
    EXPECT_FALSE(AutoQueueEmpty());
    indElem = 2;
    FlushEvents();
    TuttoChiuso();
}

TEST(Attacchi, TheCheckRefusesCoincidenceFirstAndThenOrder) {
    const struct {
        const char* caso;
        std::array<Coppia, 4> p;
        std::int16_t guasto, coincidenti;
    } casi[] = {
        {"a good quadrilateral", buoni, 0, 0},
        {"equal coordinates pass", {{{500, 500}, {500, 400}, {500, 300}, {500, 500.5}}}, 0, 0},
        {"1 and 4 coincide", {{{500, 500}, {500, 400}, {900, 400}, {500.0005, 500.0005}}}, 32, 32},
        {"close in X alone", {{{500, 500}, {500.0005, 499.998}, {900, 400}, {900, 500}}}, 0, 0},
        {"1 right of 4", {{{4000, 2500}, {500, 500}, {3500, 500}, {3500, 2500}}}, 33, 0},
        {"2 right of 3", {{{500, 2500}, {3600, 500}, {3500, 500}, {3500, 2500}}}, 33, 0},
        {"2 below 1", {{{500, 2500}, {500, 2600}, {3500, 500}, {3500, 2500}}}, 33, 0},
        {"3 below 4", {{{500, 2500}, {500, 500}, {3500, 2600}, {3500, 2500}}}, 33, 0},
        {"a new drawing", {{{0, 0}, {0, 0}, {0, 0}, {0, 1}}}, 32, 32},
    };
    for (const auto& c : casi) {
        EXPECT_EQ(GuastoAttacchi(c.p), c.guasto) << c.caso;
        EXPECT_EQ(GuastoCoincidenti(c.p), c.coincidenti) << c.caso;
    }
}

TEST(Attacchi, TheVerdictIsToldInWords) {
    fogliovuoto();
    VerificaAttacchi();
    for (std::int16_t n = 1; n <= 4; ++n) AssegnaAttacco(n, buoni[n - 1U].x, buoni[n - 1U].y);
    VerificaAttacchi();
    AssegnaAttacco(1, 500, 100);
    VerificaAttacchi();
    attaccoAttivo.xAtt[0] = 5000;   // destination points may stand in any order
    VerificaDestinazione();
    EXPECT_EQ(prova::numeriAvvisi(), (std::vector<std::int16_t>{999, 147, 999, 147}));
}

TEST(Attacchi, AllPointsComeFromTheSelectionAtOnce) {
    fogliovuoto();
    const auto due = polilinea({{100, 900}, {100, 100}}), cinque = polilinea({{1, 9}, {2, 8}, {3, 7}, {4, 6}, {5, 5}}),
               s = segmento(11, 12, 13, 14), m = marker(1, 1);
    AssegnaAttacco(3, -3, -3);
    AssegnaAttacco(4, -4, -4);
    TrasformaPuntiOrigine();   // nothing selected: nothing, and silently
    EXPECT_EQ(prova::suoni, 0);
    attesoPunto(1, 0, 0);

    seleziona(due, oPoligono);
    TrasformaPuntiOrigine();
    attesoPunto(1, 100, 900);
    attesoPunto(2, 100, 100);
    attesoPunto(3, -3, -3);
    EXPECT_EQ(Elem(2).att.quattroPunti, 0);
    EXPECT_EQ(XA2, 100);

    seleziona(cinque, oPoligono);
    TrasformaPuntiOrigine();
    TrasformaPuntiDestinazione();
    attesoPunto(4, 4, 6);
    EXPECT_EQ(Elem(2).att.quattroPunti, 1);
    EXPECT_EQ(attaccoAttivo.xAtt, (std::array<double, 5>{1, 2, 3, 4, 1500}));

    seleziona(s, oSegmento);
    TrasformaPuntiOrigine();
    attesoPunto(2, 13, 14);
    attesoPunto(3, 3, 7);

    seleziona(m, oMarker);
    TrasformaPuntiOrigine();
    seleziona(s, oSegmento);
    Puntosel.multipla = 1;
    TrasformaPuntiOrigine();
    TrasformaPuntiDestinazione();
    EXPECT_EQ(prova::suoni, 3);
    attesoPunto(1, 11, 12);
}

TEST(Attacchi, TheDrawingIsMovedOntoPositiveCoordinatesWhenAsked) {
    fogliovuoto();
    const auto s = segmento(-5, 10, 20, 30, 1, 2), c = cerchio(100, -300, 5), p = polilinea({{40, 50}, {60, -70}}),
               t = testo(7, 8, "x");
    AssegnaAttacco(1, 3, 4);
    AssegnaAttacco(3, 30, 31);
    AssegnaAttacco(4, 40, 41);
    Elem(2).att.x1 = 900;   // real coordinates stay
    SpostaXY();
    EXPECT_EQ(prova::numeriAvvisi(), std::vector<std::int16_t>{3011});
    EXPECT_EQ(Elem(s).segm.x1, -5.0);   // the default leaves everything

    prova::bottoni[3011] = 2;
    SpostaXY();
    EXPECT_EQ(Elem(s).segm.x1, 1.0);   // by 6; circles and polylines do not count for the extent
    EXPECT_EQ(Elem(s).segm.y1, 10.0);
    EXPECT_EQ(Elem(s).segm.x2, 26.0);
    EXPECT_EQ(Elem(s).segm.z1, 1.0);
    EXPECT_EQ(Elem(c).cerc.cx, 106.0);
    EXPECT_EQ(Elem(c).cerc.cy, -300.0);
    EXPECT_EQ(Elem(c).cerc.raggio, 5.0);
    EXPECT_EQ(Elem(p + 1).vert.x, 66.0);
    EXPECT_EQ(Elem(t).test.x, 13.0);
    attesoPunto(1, 9, 4);
    attesoPunto(3, 30, 31);   // points 3 and 4 count only when they have been given
    attesoPunto(4, 40, 41);
    EXPECT_EQ(Elem(2).att.x1, 900.0);
    EXPECT_EQ(XA1, 9);

    Elem(2).att.quattroPunti = 1;
    AssegnaAttacco(4, 40, -9);
    SpostaXY();
    attesoPunto(4, 40, 1);
    attesoPunto(3, 30, 41);

    prova::avvisi.clear();
    SpostaXY();
    EXPECT_TRUE(prova::avvisi.empty());   // nothing negative is left to ask about
}
