// The fields of the selection: what a surveyor reads there is true, and what is typed is where it was typed for, on a
// sheet that is turned and scaled too.
#include "editing/CampiSelezione.h"

#include <cmath>

#include "../display/Scena.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "support/Passi.h"
#include "text/Conversione.h"
#include "tools/Costruzione.h"

using namespace tessaro;
using namespace prova;

namespace {

void scegli(std::initializer_list<std::int32_t> quali) {
    for (std::int32_t n = 3; n <= indElem; ++n) Elem(n).selezionato = 0;
    for (const std::int32_t n : quali) Elem(n).selezionato = 1;
    RistabilisciSelezione();
}

// Sheet and real coordinates turned by 36.87 degrees against each other, 2 real units to a sheet unit, far from 0.
void registrato() {
    auto& foglio = Elem(1).att;
    auto& reali = Elem(2).att;
    foglio.x1 = 100;
    foglio.y1 = 100;
    foglio.x2 = 400;
    foglio.y2 = 100;
    reali.x1 = 1650000;
    reali.y1 = 4990000;
    reali.x2 = 1650480;
    reali.y2 = 4990360;
    reali.coordReali = 1;
    CalcTransfC();
    CalcolaRapporti();
}

double valore(Campo c, std::int32_t vertice = 0) { return LeggiCampi(vertice)[c].numero; }

}   // namespace

TEST(CampiSelezione, WhatIsTypedIsReadBackOnATurnedSheetAndNothingElseMoves) {
    const Scena s;
    registrato();
    const std::int32_t n = segmento(100, 100, 250, 100);
    scegli({n});
    EXPECT_NEAR(valore(Campo::x), 1650000, 1e-6);
    EXPECT_NEAR(valore(Campo::x2), 1650240, 1e-6);
    EXPECT_NEAR(valore(Campo::lunghezza), 300, 1e-9);
    EXPECT_NEAR(valore(Campo::azimut), 53.130, 0.001);   // atan2(240, 180), degrees
    struct Dato {
        Campo campo;
        double valore;
    };
    for (const Dato& d : {Dato{Campo::x, 1650010},
                          {Campo::y, 4990020},
                          {Campo::z, 3.5},
                          {Campo::x2, 1650300},
                          {Campo::y2, 4990400},
                          {Campo::z2, -1}}) {
        const CampiSelezione prima = LeggiCampi(0);
        ASSERT_TRUE(PoniCampo(d.campo, d.valore, 0));
        for (const Campo c : {Campo::x, Campo::y, Campo::z, Campo::x2, Campo::y2, Campo::z2})
            EXPECT_NEAR(valore(c), c == d.campo ? d.valore : prima[c].numero, 1e-6);
    }
    ASSERT_TRUE(PoniCampo(Campo::azimut, 200, 0));
    ASSERT_TRUE(PoniCampo(Campo::lunghezza, 50, 0));
    EXPECT_NEAR(valore(Campo::lunghezza), 50, 1e-6);
    EXPECT_NEAR(valore(Campo::azimut), 200, 0.001);
    EXPECT_NEAR(valore(Campo::x), 1650010, 1e-6);   // it turned about its first end
    EXPECT_NEAR(valore(Campo::x2), 1650010 + 50 * std::sin(200 * M_PI / 180), 1e-3);
    EXPECT_NEAR(valore(Campo::y2), 4990020 + 50 * std::cos(200 * M_PI / 180), 1e-3);
}

TEST(CampiSelezione, MeasuresOfEveryKind) {
    const Scena s;
    const double r = rappvid;
    const std::int32_t p = polilinea({{0, 0}, {30, 0}, {30, 40}, {0, 40}, {0, 0}});
    const std::int32_t c = cerchio(500, 500, 100), a = arco(500, 500, 100, 0, -90);
    scegli({p});
    EXPECT_NEAR(valore(Campo::lunghezza), 140 * r, 1e-9);
    EXPECT_NEAR(valore(Campo::area), 1200 * r * r, 1e-9);
    EXPECT_EQ(LeggiCampi(0).vertici, 5);
    EXPECT_NEAR(valore(Campo::x, 1), 30 * r, 1e-9);
    EXPECT_NEAR(valore(Campo::x, 99), 0, 1e-9);   // the last one
    ASSERT_TRUE(PoniCampo(Campo::z, 7, 2));
    EXPECT_EQ(double{Elem(p + 2).vert.z}, 7);
    EXPECT_EQ(double{Elem(p + 1).vert.z}, 0);
    EXPECT_FALSE(PoniCampo(Campo::area, 5, 0));   // follows from the vertices
    EXPECT_FALSE(PoniCampo(Campo::lunghezza, 5, 0));
    scegli({c});
    EXPECT_NEAR(valore(Campo::area), M_PI * 1e4 * r * r, 1e-6);
    ASSERT_TRUE(PoniCampo(Campo::raggio, 50 * r, 0));
    EXPECT_NEAR(Elem(c).cerc.raggio, 50, 1e-9);
    scegli({a});
    EXPECT_NEAR(valore(Campo::lunghezza), 50 * M_PI * r, 1e-9);
    tipoAngolo = 0;   // gons
    EXPECT_NEAR(valore(Campo::ampiezza), -100, 1e-4);
    ASSERT_TRUE(PoniCampo(Campo::ampiezza, 50, 0));
    EXPECT_NEAR(Elem(a).arco.ampiezza, 45, 1e-4);
}

TEST(CampiSelezione, SeveralShowWhatTheyShareAndAllTakeWhatIsTyped) {
    const Scena s;
    const ConGiornale g;
    const std::int32_t a = segmento(0, 0, 30, 40), b = segmento(0, 0, 0, 50), m = marker(5, 5, 1), t = testo(9, 9, "x");
    Elem(b).segm.colore = 3;
    finePasso();
    scegli({a, b});
    CampiSelezione v = LeggiCampi(0);
    EXPECT_EQ(v[Campo::lucido].presenza, Presenza::uguale);
    EXPECT_EQ(v[Campo::colore].presenza, Presenza::diversi);
    EXPECT_EQ(v[Campo::x].presenza, Presenza::uguale);
    EXPECT_EQ(v[Campo::x2].presenza, Presenza::diversi);
    EXPECT_EQ(v[Campo::lunghezza].presenza, Presenza::somma);
    EXPECT_NEAR(v[Campo::lunghezza].numero, 100 * rappvid, 1e-9);
    EXPECT_TRUE(v[Campo::lunghezza].fisso);
    EXPECT_EQ(v.elementi, 2);
    ASSERT_TRUE(PoniCampo(Campo::colore, 5, 0));
    ASSERT_TRUE(PoniCampo(Campo::aref, "12/a"));
    finePasso();
    scegli({a, b, m, t});
    v = LeggiCampi(0);
    EXPECT_EQ(v[Campo::colore].presenza, Presenza::diversi);   // marker and text
    EXPECT_EQ(v[Campo::spessore].presenza, Presenza::manca);   // a text has none
    EXPECT_EQ(v[Campo::aref].presenza, Presenza::manca);
    EXPECT_EQ(v[Campo::x2].presenza, Presenza::manca);
    scegli({a, b, m});
    ASSERT_TRUE(PoniCampo(Campo::z, 12.5, 0));
    EXPECT_EQ(double{Elem(a).segm.z1}, 12.5);
    EXPECT_EQ(double{Elem(m).mark.z}, 12.5);
    EXPECT_EQ(double{Elem(a).segm.z2}, 0);
    finePasso();
    annulla();   // all of them in one step
    EXPECT_EQ(double{Elem(a).segm.z1}, 0);
    EXPECT_EQ(double{Elem(m).mark.z}, 1);
    annulla();
    EXPECT_EQ(std::int16_t{Elem(b).segm.colore}, 3);
    EXPECT_EQ(std::int16_t{Elem(a).segm.colore}, 1);
}

TEST(CampiSelezione, TextsAreMeasuredAgainAndTooLongOnesRefused) {
    const Scena s;
    const std::int32_t t = testo(9, 9, "a"), u = testo(9, 99, "b", 50);
    scegli({t, u});
    ASSERT_TRUE(PoniCampo(Campo::testo, "0123456789012345678901234567890123456789"));
    EXPECT_FALSE(PoniCampo(Campo::testo, "01234567890123456789012345678901234567890"));
    EXPECT_FALSE(PoniCampo(Campo::aref, "x"));   // texts have no tag
    EXPECT_EQ(int{Elem(u).test.testo[0]}, 40);
    const std::int16_t larga = Elem(t).test.larghezza;
    ASSERT_TRUE(PoniCampo(Campo::corpo, 24, 0));
    EXPECT_GT(std::int16_t{Elem(t).test.larghezza}, larga);
    EXPECT_EQ(std::int16_t{Elem(u).test.angolo}, 50);   // kept, of each its own
}

TEST(CampiSelezione, AFigureInProgressEndsBeforeItsPlacesChange) {
    const Scena s;
    operazCorrente = opPolilinea;
    const std::int32_t testa = polilinea({{0, 0}, {30, 0}, {30, 40}});
    ContinuaPoligono = 1;
    Azione = sPrimoPunto;
    IndicePolCorrente = testa;
    scegli({testa});
    ASSERT_TRUE(PoniCampo(Campo::x, 5, 2));
    EXPECT_FALSE(FiguraInCorso());
    EXPECT_EQ(int{Elem(testa).poli.numVertici}, 2);
    scegli({});
    EXPECT_FALSE(PoniCampo(Campo::x, 5, 2));
    EXPECT_EQ(LeggiCampi(0).elementi, 0);
}
