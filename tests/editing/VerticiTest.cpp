// Vertices taken out and put in, where a full store, other polylines and stale summaries could do harm; conversions.
#include "editing/Vertici.h"
#include "display/Sovrapposto.h"

#include "../display/Scena.h"
#include "editing/Conversioni.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "support/Avvisi.h"
#include "text/Conversione.h"

using namespace tessaro;
using namespace prova;

namespace {

void tieni(std::int32_t n, std::int32_t oggetto) {
    Puntosel.oggetto = oggetto;
    Puntosel.indice = n;
    Puntosel.attiva = 1;
    Puntosel.numSel = 1;
    Elem(n).selezionato = 1;
}
// Long after the last click; the button is up again at once.
bool tocca(double x, double y, std::uint16_t modificatori = 0) {
    EventRecord e;
    e.modifiers = modificatori;
    e.when = Tempo + 1000;
    return MuoviPunto(e, puntot{x, y, 0});
}
void controllaPolilinea(std::int32_t testa, std::int16_t n) {
    ASSERT_EQ(Elem(testa).tipo, tPoligono);
    EXPECT_EQ(Elem(testa).poli.numVertici, n);
    for (std::int32_t i = 1; i <= n; ++i) {
        EXPECT_EQ(Elem(testa + i).tipo, tVertice);
        EXPECT_EQ(Elem(testa + i).vert.distanzaTesta, i);
    }
}

}   // namespace

TEST(Vertici, RemovingKeepsThePolylinesBehindAndTheAttributesOfTheHead) {
    const Scena s;
    const std::int32_t a = polilinea({{10, 10}, {50, 10}, {50, 50}, {10, 50}});
    polilinea({{60, 60}, {90, 60}, {90, 90}});
    Elem(a).poli.colore = 5;
    tieni(a, oPoligono);
    annullamento = aSposta;
    EXPECT_TRUE(tocca(10, 10, optionKey));
    controllaPolilinea(a, 2);
    controllaPolilinea(a + 3, 2);
    EXPECT_EQ(Elem(a).poli.x, 50);
    EXPECT_EQ(Elem(a).poli.y, 10);
    EXPECT_EQ(Elem(a).poli.colore, 5);
    EXPECT_EQ(annullamento, aNiente);
    EXPECT_TRUE(tocca(50, 50, optionKey));
    controllaPolilinea(a, 1);
    EXPECT_TRUE(tocca(10, 50, optionKey));   // the last side stays, the click is taken
    controllaPolilinea(a, 1);
    controllaPolilinea(a + 2, 2);
    EXPECT_EQ(indElem, a + 4);
}

TEST(Vertici, InsertingDoublesThePointAndStopsAtAFullStore) {
    const Scena s;
    fogliovuoto(9);
    const std::int32_t a = polilinea({{10, 10}, {50, 10}}), b = polilinea({{60, 60}, {90, 60}});
    tieni(a, oPoligono);
    EXPECT_TRUE(tocca(10, 10, cmdKey));
    controllaPolilinea(a, 2);
    controllaPolilinea(b + 1, 1);
    EXPECT_EQ(Elem(a + 1).vert.x, 10);
    EXPECT_EQ(Elem(a + 2).vert.x, 50);
    EXPECT_TRUE(tocca(50, 10, cmdKey));
    controllaPolilinea(a, 3);
    EXPECT_EQ(Elem(a + 3).vert.x, 50);
    EXPECT_TRUE(tocca(50, 10, cmdKey));
    controllaPolilinea(a, 4);
    ASSERT_EQ(indElem, maxElementi);
    EXPECT_TRUE(tocca(50, 10, cmdKey));
    controllaPolilinea(a, 4);
    controllaPolilinea(b + 3, 1);
    EXPECT_EQ(annullamento, aElemento);
}

TEST(Vertici, ASummaryThatOutlivesItsRecordCatchesNothing) {
    const Scena s;
    const std::int32_t a = segmento(10, 10, 50, 10);
    tieni(a, oPoligono);   // says polyline, is a segment
    EXPECT_FALSE(tocca(10, 10));
    Puntosel.indice = 1000;
    EXPECT_FALSE(tocca(10, 10));
    Puntosel.indice = -5;
    EXPECT_FALSE(tocca(10, 10));
    for (const std::int32_t oggetto : {oTesto, oPict, oMeshOrigine, oMeshDestinazione}) {
        tieni(a, oggetto);
        EXPECT_FALSE(tocca(10, 10));
    }
    tieni(a, oSegmento);
    EXPECT_FALSE(tocca(15, 10));   // five pixels are no longer near
    EXPECT_TRUE(tocca(14.9, 10));
    EXPECT_EQ(Elem(a).segm.x1, 10);
}

TEST(Conversioni, AnArcEndsWhereItEndsAndAPolylineGivesItsSides) {
    const Scena s;
    orientCorrente = orientAzimut;
    NumLatiPoligono = 3;
    const std::int32_t a = arco(100, 100, 50, 0, 90);
    TrasformaPoligono(a - 1);
    controllaPolilinea(a + 1, 4);
    EXPECT_EQ(Elem(a + 1).poli.x, Elem(a + 2).poli.x);
    EXPECT_EQ(Elem(a + 1).poli.y, 50);
    EXPECT_NEAR(Elem(a + 5).vert.x, 150, 1e-4);
    EXPECT_NEAR(Elem(a + 5).vert.y, 100, 1e-4);
    EXPECT_EQ(Elem(a).tipo, tArco);
    tieni(a + 1, oPoligono);
    TrasformaSegmentiSel();
    EXPECT_EQ(indElem, a + 9);
    EXPECT_EQ(Elem(a + 9).segm.x2, Elem(a + 5).vert.x);
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(inizioAggiunta, a + 5);
    EXPECT_EQ(prova::suoni, 0);
    tieni(a, oArco);
    TrasformaSegmentiSel();
    EXPECT_EQ(indElem, a + 9);
    EXPECT_EQ(annullamento, aNiente);
    EXPECT_EQ(prova::suoni, 1);
}

// The button is up again at once: neither point moves, nothing is drawn on the drawing, no rubber line stays.
TEST(Trascinamento, AShortPressMovesNothingAndLeavesNothingBehind) {
    Scena s;
    myViewRect = s.porta.portRect;
    s.pulisci();
    EventPoint = GetMouse();   // the pointer is where another test left it: it does not move
    double x = 50, y = 40;
    SpostaVertice(10, 40, 50, 70, x, y);
    SpostaLinea(10, 40, x, y);
    EXPECT_EQ(s.quanti(bianco), 100 * 80);
    EXPECT_EQ(latiElastici.quanti, 0);
    EXPECT_EQ(x, 50);
    EXPECT_EQ(y, 40);
}
