// The store: what a full array, long texts and reused slots do, and the slopes that constraints live on.
#include <gtest/gtest.h>

#include <cmath>

#include "model/Annulla.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

TEST(Archivio, AFullStoreDropsTheElementAndLeavesThePolylineAsItIs) {
    fogliovuoto(5);
    const auto testa = polilinea({{0, 0}, {10, 0}, {20, 0}});
    EXPECT_EQ(indElem, 5);
    PoniAnnulla(aAggiunta);
    Memorizza(tVertice, 30, 0, 0, 0, 0, 0, 1, 1, 1, "");
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(Elem(testa).poli.numVertici, 2);
    EXPECT_EQ(annullamento, aAggiunta);   // nothing happened, so the undo on offer stands
}

TEST(Archivio, ATextOfMoreThanFortyCharactersKeepsTheSlotsFortiethByte) {
    fogliovuoto();
    const std::string lunga(60, 'x');
    Elem(3).test.testo.fill('?');
    testo(0, 0, lunga.c_str());
    EXPECT_EQ(Elem(3).test.testo[0], 40);
    EXPECT_EQ(Elem(3).test.testo[39], 'x');
    EXPECT_EQ(Elem(3).test.testo[40], '?');
    const std::string giusta(40, 'y');
    testo(0, 0, giusta.c_str());
    EXPECT_EQ(Elem(4).test.testo[0], 40);
    EXPECT_EQ(Elem(4).test.testo[40], 'y');
}

TEST(Archivio, ASlotKeepsWhatItsNewTypeDoesNotWrite) {
    fogliovuoto();
    segmento(1, 2, 3, 4, 5, 6);
    --indElem;
    cerchio(7, 8, 9);
    EXPECT_EQ(Elem(3).cerc.raggio, 9.0);
    EXPECT_EQ(Elem(3).segm.z2, 6.0);
}

TEST(Archivio, NewElementsTakeSheetClassesAndPenOfTheMoment) {
    fogliovuoto();
    VisioneGraf.lucidoCorrente = 42;
    CategoriaCorrente = 7;
    InsiemeCorrente = 9;
    spessore = 3;
    NumPat = 23;
    colorCorrente = 4;
    NumAreaPat = 5;
    const auto p = polilinea({{1, 1}, {2, 2}});
    EXPECT_EQ(Elem(p).lucido, 42);
    EXPECT_EQ(Elem(p).testa.categoria, 7);
    EXPECT_EQ(Elem(p).testa.insieme, 9);
    EXPECT_EQ(Elem(p).poli.spessore, 3);
    EXPECT_EQ(Elem(p).poli.pattern, 23);
    EXPECT_EQ(Elem(p).poli.colore, 4);
    EXPECT_EQ(Elem(p).poli.patternArea, 5);
    EXPECT_EQ(Elem(p + 1).vert.distanzaTesta, 1);
}

TEST(Archivio, TheLastSideSetsTheSlopeOfTheConstraints) {
    struct Caso {
        double x2, y2;
        bool verticale;
        double m;
    };
    for (const Caso& c : {Caso{10, 5, false, 0.5}, {0, 5, true, 0}, {10, 0, false, 0}, {-4, 8, false, -2}}) {
        fogliovuoto();
        segmento(0, 0, c.x2, c.y2);
        EXPECT_EQ(statoCursore.verticale != 0, c.verticale);
        if (c.verticale) continue;
        EXPECT_DOUBLE_EQ(statoCursore.pendenza, c.m);
        EXPECT_DOUBLE_EQ(statoCursore.kPendenza, 1 / (1 + c.m * c.m));
        polilinea({{100, 100}, {100 + c.x2, 100 + c.y2}});
        EXPECT_DOUBLE_EQ(statoCursore.pendenza, c.m);
    }
}

// An import works the last side out once: what is left behind is as if each had been.
TEST(Archivio, APutOffSideLeavesTheSameDirection) {
    const auto lati = [] {
        fogliovuoto();
        segmento(0, 0, 3, 4);
        polilinea({{10, 10}, {20, 15}, {20, 40}});
        segmento(5, 5, 5, 9);   // upright: the slope of the one before stays
        return std::array{statoCursore.pendenza,  statoCursore.pendenza2,
                          statoCursore.kPendenza, static_cast<double>(statoCursore.verticale),
                          distprecedente,         angoloprecedente};
    };
    const auto attesi = lati();
    AzzeraStato();
    {
        const LatoRimandato rimanda;
        EXPECT_NE(lati(), attesi);
    }
    const auto rimandati = std::array{statoCursore.pendenza,  statoCursore.pendenza2,
                                      statoCursore.kPendenza, static_cast<double>(statoCursore.verticale),
                                      distprecedente,         angoloprecedente};
    EXPECT_EQ(rimandati, attesi);
    segmento(0, 0, 6, 8);
    EXPECT_DOUBLE_EQ(distprecedente, 10);
}

TEST(Archivio, RoundingGoesAwayFromZeroAndNamesWhatNaNGives) {
    EXPECT_EQ(arrotonda16(2.5), 3);
    EXPECT_EQ(arrotonda16(-2.5), -3);
    EXPECT_EQ(arrotonda16(1e9), 32767);
    EXPECT_EQ(arrotonda16(-1e9), -32768);
    EXPECT_EQ(arrotonda16(std::nan("")), 0);
    EXPECT_EQ(arrotonda32(-1e300), INT32_MIN);
    EXPECT_EQ(i16(40000), -25536);
}

TEST(Archivio, AnEmptyDrawingHasItsTwoReservedRecords) {
    fogliovuoto();
    segmento(1, 1, 2, 2);
    AzzeraArchivio();
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(Elem(1).tipo, tAttacco1);
    EXPECT_EQ(Elem(1).att1.conto, 1);
    EXPECT_EQ(Elem(2).tipo, tAttacco2);
    EXPECT_EQ(Elem(2).att.z1, 0.0);
    EXPECT_EQ(Elem(2).att.x2, 1.0);
    EXPECT_EQ(Elem(2).att.z2, 1.0);
    EXPECT_EQ(Elem(2).att.coordReali, 0);
}
