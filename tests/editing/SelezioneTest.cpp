// What a click, a rectangle and "all" pick.
#include "editing/Scelta.h"

#include "../display/Scena.h"
#include "model/Lucidi.h"
#include "model/Strumento.h"
#include "model/Vincoli.h"

using namespace tessaro;
using namespace prova;

namespace {

// A click whose button is up again.
void clic(double x, double y, std::uint16_t modificatori = 0, std::uint32_t quando = 7) {
    EventRecord e;
    e.what = EventKind::mouseDown;
    e.modifiers = modificatori;
    e.when = quando;
    ScegliElemento(e, puntot{x, y, 0});
}

}   // namespace

TEST(Colpo, FourPixelsAlongAnAxisMissAndThreeHit) {
    struct Caso {
        double scala, x, y;
        bool colpito;
    };
    // A segment from (100, 100) to (200, 100) and one from (100, 200) to (200, 300).
    for (const Caso& c : {Caso{1, 150, 103, true},
                          {1, 150, 104, false},
                          {1, 203, 100, true},
                          {1, 204, 100, false},
                          {2, 150, 101.5, true},
                          {2, 150, 102, false},
                          {0.5, 150, 107, true},
                          // beside a diagonal the reach is measured along the axes too
                          {1, 151.4, 247.5, true},
                          {1, 151.6, 247.5, false}}) {
        const Scena s;
        Scena::scala(c.scala);
        const puntot p{c.x, c.y, 0};
        EXPECT_EQ(Sellinea(p, 100, 100, 200, 100) || Sellinea(p, 100, 200, 200, 300), c.colpito)
            << c.x << "," << c.y << " at " << c.scala;
    }
}

TEST(Colpo, CirclesArcsPicturesAndTexts) {
    const Scena s;
    EXPECT_TRUE(SelCerchio({153.9, 100, 0}, 100, 100, 50));
    EXPECT_FALSE(SelCerchio({154, 100, 0}, 100, 100, 50));
    EXPECT_FALSE(SelCerchio({100, 100, 0}, 100, 100, 50));
    EXPECT_TRUE(SelPict({10, 20, 0}, 10, 20, 30, 40));
    EXPECT_FALSE(SelPict({30.1, 20, 0}, 10, 20, 30, 40));

    struct Quarto {
        double x, y, inizio, ampiezza;
        bool colpito;
    };
    // 0 degrees is straight up, clockwise; the click lies 45 degrees to the right of that.
    const double d = 50 * std::sqrt(0.5);
    for (const Quarto& q : {Quarto{100 + d, 100 - d, 0, 90, true},
                            {100 + d, 100 + d, 0, 90, false},
                            {100 + d, 100 - d, 90, -90, true},
                            {100 - d, 100 - d, 90, -90, false},
                            {100 - d, 100 - d, 270, 90, true},
                            {100 + d, 100 - d, 300, 120, true}})
        EXPECT_EQ(SelArco({q.x, q.y, 0}, 100, 100, 50, q.inizio, q.ampiezza), q.colpito)
            << q.inizio << " " << q.ampiezza;

    struct Scritta {
        std::int16_t angolo;
        double dx, dy;
        bool colpito;
    };
    for (const Scritta& t : {Scritta{100, 50, -5, true},
                             {100, 50, 5, false},
                             {200, 5, 50, true},
                             {300, -50, 5, true},
                             {-100, -50, 5, true},
                             {0, -5, -50, true},
                             {0, 50, -5, false},
                             {150, 40, 36, true},
                             {150, 40, -36, false}}) {
        const std::int32_t n = testo(100, 100, "prova", t.angolo);
        Elem(n).test.larghezza = 30;
        Elem(n).test.altezza = 3;
        EXPECT_EQ(SelTesto({100 + t.dx, 100 + t.dy, 0}, n), t.colpito) << t.angolo;
    }
}

TEST(Clic, TheTopmostRecordWinsAndASideStandsForItsPolyline) {
    const Scena s;
    segmento(10, 10, 90, 10);
    const std::int32_t sopra = segmento(10, 10, 90, 10);
    const std::int32_t testa = polilinea({{10, 50}, {50, 70}, {50, 20}});
    clic(50, 10);
    EXPECT_EQ(Puntosel.indice, sopra);
    EXPECT_EQ(Puntosel.oggetto, oSegmento);
    EXPECT_EQ(Puntosel.numSel, 1);
    EXPECT_FALSE(Puntosel.multipla);
    EXPECT_EQ(Tempo, 7U);
    clic(30, 60);
    EXPECT_EQ(Puntosel.indice, testa);
    EXPECT_EQ(Puntosel.oggetto, oPoligono);
    EXPECT_TRUE(selezionePrec);
    EXPECT_FALSE(Elem(sopra).selezionato);
    EXPECT_EQ(statoCursore.pendenza, 0.5);
    EXPECT_EQ(statoCursore.kPendenza, 1 / 1.25);
    clic(50, 40);
    EXPECT_TRUE(statoCursore.verticale);
    EXPECT_EQ(statoCursore.pendenza, 0.5);
    EXPECT_EQ(rettSel.xmin, 10);
    EXPECT_EQ(rettSel.ymin, 20);
    EXPECT_EQ(rettSel.xmax, 50);
    EXPECT_EQ(rettSel.ymax, 70);
    clic(95, 75);
    EXPECT_FALSE(Puntosel.attiva);
    EXPECT_EQ(Puntosel.indice, testa);
}

TEST(Clic, ShiftAddsAndTakesAwayAndOptionGoesOnToMoving) {
    const Scena s;
    const std::int32_t a = segmento(10, 10, 90, 10), b = segmento(10, 30, 90, 30);
    clic(50, 10);
    clic(50, 30, shiftKey);
    EXPECT_EQ(Puntosel.numSel, 2);
    EXPECT_TRUE(Puntosel.multipla);
    clic(50, 30, shiftKey);
    EXPECT_FALSE(Elem(b).selezionato);
    EXPECT_EQ(Puntosel.numSel, 1);
    EXPECT_FALSE(Puntosel.multipla);
    EXPECT_EQ(Puntosel.indice, a);   // the one that is left
    clic(50, 10, shiftKey);
    EXPECT_FALSE(Puntosel.attiva);
    EXPECT_FALSE(Elem(a).selezionato);
    clic(50, 10);
    clic(50, 10, optionKey);
    EXPECT_EQ(Puntosel.numSel, 2);   // counted once more
    EXPECT_EQ(Modalita, mSpostamento);
}

TEST(Clic, SheetsAreReachedOnlyAsFarAsTheFilterLets) {
    const Scena s;
    const auto prova = [] {
        clic(50, 10);
        return Puntosel.attiva != 0;
    };
    VisioneGraf.lucidoCorrente = 4;
    segmento(10, 10, 90, 10);
    VisioneGraf.lucidoCorrente = 0;
    EXPECT_TRUE(prova());
    VisioneGraf.soloCorrente = 1;
    EXPECT_FALSE(prova());
    VisioneGraf.soloCorrente = 0;
    VisioneGraf.bloccaAltri = 1;
    EXPECT_FALSE(prova());
    EXPECT_FALSE(SelezionaRect(SetRect(0, 0, 100, 80)));
    SelezionaTutto();
    EXPECT_EQ(Puntosel.numSel, 1);   // "all" does not read the lock
    NessunaSelezione();
    VisioneGraf.bloccaAltri = 0;
    VisioneGraf.visibile[4] = 0;
    EXPECT_FALSE(prova());
}

TEST(Clic, AVertexWhoseHeadIsNoneSelectsNothing) {
    const Scena s;
    const std::int32_t testa = polilinea({{10, 10}, {90, 10}});
    for (const std::int32_t distanza : {0, -1, 1000, 2147483647}) {
        Elem(testa + 1).vert.distanzaTesta = distanza;
        clic(50, 10);
        EXPECT_FALSE(Puntosel.attiva) << distanza;
    }
}

TEST(RettangoloDiSelezione, TakesWhatLiesStrictlyInsideAndTheLastOneNamesIt) {
    const Scena s;
    segmento(10, 10, 30, 30);
    segmento(10, 10, 60, 30);   // sticks out
    marker(40, 20);             // on the edge
    const std::int32_t testa = polilinea({{12, 12}, {38, 12}, {20, 30}});
    arco(30, 20, 15, 0, 10);   // its whole circle would have to fit
    EXPECT_TRUE(SelezionaRect(SetRect(5, 5, 40, 40)));
    EXPECT_EQ(Puntosel.numSel, 2);
    EXPECT_EQ(Puntosel.indice, testa);
    EXPECT_FALSE(Elem(testa + 1).selezionato);
    EXPECT_TRUE(SelezionaRect(SetRect(5, 5, 40, 40)));   // again: inside still, none added
    EXPECT_EQ(Puntosel.numSel, 2);
}

TEST(SelezionaTuttoTest, CountsVerticesAndLeavesTheNamedObjectAlone) {
    const Scena s;
    const std::int32_t testa = polilinea({{12, 12}, {38, 12}, {20, 30}});
    testo(5, 5, "nascosto");
    VisioneGraf.mostraTesti = 0;
    SelezionaTutto();
    EXPECT_EQ(Puntosel.numSel, 3);
    EXPECT_TRUE(Elem(testa + 2).selezionato);
    EXPECT_FALSE(Elem(indElem).selezionato);
    EXPECT_EQ(Puntosel.indice, 3);
    EXPECT_EQ(rettSel.xmin, 12);
    TogliSelezione();
    EXPECT_FALSE(Elem(testa + 2).selezionato);
    EXPECT_FALSE(selezionePrec);
}
