// What a repaint leaves on the pixels.
#include <random>

#include "display/Disegno.h"
#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "Scena.h"

using namespace tessaro;
using namespace prova;

TEST(Disegno, AThickSegmentIsCentredOnItsPoints) {
    const Scena s;
    spessore = 3;
    segmento(20, 30, 40, 30);
    Disegna();
    EXPECT_TRUE(s.e(19, 29, nero) && s.e(41, 31, nero) && s.e(30, 30, nero));
    EXPECT_TRUE(s.e(30, 28, bianco) && s.e(30, 32, bianco) && s.e(18, 30, bianco) && s.e(42, 30, bianco));
}

TEST(Disegno, APolygonIsNotClosedByItselfAndItsAreaIs) {
    const Scena s;
    NumAreaPat = 1;
    polilinea({{20, 20}, {60, 20}, {60, 60}});
    Disegna();
    EXPECT_TRUE(s.e(50, 30, nero));
    const Scena t;
    NumAreaPat = 0;
    polilinea({{20, 20}, {60, 20}, {60, 60}});
    Disegna();
    EXPECT_TRUE(t.e(40, 20, nero) && t.e(60, 40, nero));
    EXPECT_TRUE(t.e(40, 40, bianco));
}

TEST(Disegno, SheetsAreHiddenSingledOutOrVeiled) {
    const auto neri = [](auto imposta, bool suCarta) {
        Scena s;
        VisioneGraf.lucidoCorrente = 3;
        segmento(10, 20, 73, 20);
        VisioneGraf.lucidoCorrente = 0;
        segmento(10, 40, 73, 40);
        imposta();
        DisegnaPict = suCarta;
        Disegna();
        DisegnaPict = 0;
        int riga20 = 0, riga40 = 0;
        for (std::int32_t x = 10; x < 74; ++x) {
            riga20 += s.e(x, 20, nero);
            riga40 += s.e(x, 40, nero);
        }
        AzzeraVisioneGraf();
        return std::pair(riga20, riga40);
    };
    EXPECT_EQ(neri([] {}, false), std::pair(64, 64));
    EXPECT_EQ(neri([] { VisioneGraf.visibile[3] = 0; }, false), std::pair(0, 64));
    EXPECT_EQ(neri([] { VisioneGraf.soloCorrente = 1; }, false), std::pair(0, 64));
    const auto grigi = neri([] { VisioneGraf.grigiaAltri = 1; }, false);
    EXPECT_LT(grigi.first, 40);
    EXPECT_EQ(grigi.second, 64);
    // On paper a segment keeps its own pattern.
    EXPECT_EQ(neri([] { VisioneGraf.grigiaAltri = 1; }, true), std::pair(64, 64));
}

TEST(Disegno, AFilledFigureOfAnotherSheetIsVeiled) {
    Scena s;
    NumAreaPat = 1;
    VisioneGraf.lucidoCorrente = 3;
    cerchio(50, 40, 30);
    VisioneGraf.lucidoCorrente = 0;
    Disegna();
    const int pieni = s.quanti(nero);
    s.pulisci();
    VisioneGraf.grigiaAltri = 1;
    Disegna();
    EXPECT_LT(s.quanti(nero), pieni / 2);
    EXPECT_GT(s.quanti(nero), pieni / 20);
}

TEST(Disegno, NothingWrapsRoundAtAnyZoom) {
    struct Caso {
        const char* cosa;
        double scala;
        void (*fai)();
        int neri;   // black pixels of a view of 100 by 80; -1: at least one
    };
    for (const Caso& c : {
             Caso{"a point 65536 pixels away", 1, [] { marker(65536 + 50, 40); }, 0},
             {"a segment 2^32 pixels away", 1, [] { segmento(4294967296.0, 10, 4294967296.0 + 50, 10); }, 0},
             {"a segment through the view at the deepest zoom", 20000, [] { segmento(-1e9, 0.002, 1e9, 0.002); }, 100},
             {"a segment whose ends no port holds", 1, [] { segmento(-1e300, 40, 1e300, 40); }, 100},
             {"a filled polygon round the view", 20000,
              [] {
                  NumAreaPat = 1;
                  polilinea({{-1e8, -1e8}, {1e8, -1e8}, {1e8, 1e8}, {-1e8, 1e8}, {-1e8, -1e8}});
              },
              8000},
             {"the edge of a vast circle", 20000, [] { cerchio(0.0025, 5e7 + 0.002, 5e7); }, -1},
             {"a vast circle round the view", 20000, [] { cerchio(0, 0, 1e9); }, 0},
             {"a vast filled circle round the view", 20000,
              [] {
                  NumAreaPat = 1;
                  cerchio(0, 0, 1e6);
              },
              8000},
             {"the other half of a vast arc", 20000, [] { arco(0.0025, 5e7 + 0.002, 5e7, 90, 180); }, 0},
             {"no number", 1, [] { segmento(std::nan(""), 1, 50, 50); }, 0},
             {"an endless radius", 1, [] { cerchio(5, 5, HUGE_VAL); }, 0},
         }) {
        SCOPED_TRACE(c.cosa);
        const Scena s;
        Scena::scala(c.scala);
        NumAreaPat = 0;
        c.fai();
        Disegna();
        if (c.neri >= 0) {
            EXPECT_EQ(s.quanti(nero), c.neri);
        } else {
            EXPECT_GT(s.quanti(nero), 50);
            EXPECT_LT(s.quanti(nero), 300);
        }
    }
}

TEST(Disegno, PassingOverRecordsLosesNoPixel) {
    // The same drawing in one go and tile by tile: each tile's clip passes over other records.
    Scena s(240, 160);
    std::mt19937 caso(3);
    std::uniform_real_distribution<double> p(-30, 270), r(1, 60);
    for (int i = 0; i < 120; ++i) {
        spessore = static_cast<std::int16_t>(1 + i % 9);
        NumAreaPat = static_cast<std::int16_t>(i % 7 == 0 ? 5 : 0);
        NumPat = static_cast<std::int16_t>(1 + i % 5);
        switch (i % 5) {
        case 0: segmento(p(caso), p(caso), p(caso), p(caso)); break;
        case 1: marker(p(caso), p(caso), 0, 1 + i % 6); break;
        case 2: cerchio(p(caso), p(caso), r(caso)); break;
        case 3: arco(p(caso), p(caso), r(caso), i, 2 * i); break;
        default: polilinea({{p(caso), p(caso)}, {p(caso), p(caso)}, {p(caso), p(caso)}}); break;
        }
    }
    Disegna();
    const auto intero = s.immagine();
    ClipRect(s.porta.portRect);
    s.pulisci();
    for (std::int32_t v = 0; v < 160; v += 16)
        for (std::int32_t h = 0; h < 240; h += 16) {
            ClipRect(SetRect(h, v, h + 16, v + 16));
            Disegna();
        }
    EXPECT_EQ(s.immagine(), intero);
}

TEST(Disegno, AMarkerPaintedInXorLeavesTheNextElementInCopy) {
    const Scena s;
    marker(50, 40, 0, 6);
    segmento(40, 40, 60, 40);
    Disegna();
    for (std::int32_t x = 40; x <= 60; ++x) EXPECT_TRUE(s.e(x, 40, nero)) << x;
}

TEST(Disegno, ShapesOutsideTheListAndLoneVerticesDrawNothing) {
    const Scena s;
    marker(50, 40, 0, 7);
    marker(50, 40, 0, 0);
    Memorizza(tVertice, 50, 40, 0, 0, 0, 0, 1, 1, 1, "");
    Elem(indElem).tipo = 13;
    Disegna();
    EXPECT_EQ(s.quanti(nero), 0);
}

TEST(Disegno, ADamagedVertexCountStopsAtTheLastRecord) {
    const Scena s;
    const std::int32_t testa = polilinea({{20, 20}, {60, 20}});
    Elem(testa).poli.numVertici = 32767;
    Disegna();
    EXPECT_TRUE(s.e(40, 20, nero));
    Elem(testa).poli.numVertici = -5;
    Disegna();
}

TEST(Disegno, AHatchStaysInsideItsPolygon) {
    Scena s;
    const std::int32_t testa = polilinea({{20, 20}, {60, 20}, {60, 60}, {20, 60}, {20, 20}});
    Elem(testa).poli.tratteggio = 1;
    Elem(testa).poli.passoTratt = 0.05;   // five sheet units
    Disegna();
    int dentro = 0, fuori = 0;
    for (std::int32_t y = 0; y < 80; ++y)
        for (std::int32_t x = 0; x < 100; ++x)
            (x > 20 && x < 60 && y > 20 && y < 60 ? dentro : fuori) += s.e(x, y, nero);
    EXPECT_EQ(fuori, 160);   // the outline alone
    EXPECT_NEAR(dentro, 39 * 7, 39);
    s.pulisci();
    Elem(testa).poli.incrociato = 1;
    Disegna();
    EXPECT_GT(s.quanti(nero), 160 + dentro + 200);
    s.pulisci();
    VisioneGraf.mostraTratteggi = 0;
    Disegna();
    EXPECT_EQ(s.quanti(nero), 160);
    VisioneGraf.mostraTratteggi = 1;
    Elem(testa).poli.passoTratt = 1e-12;   // from a damaged record: given up, not drawn for ever
    Disegna();
}

namespace {

// One thing of each kind, all selected; true when that is a multiple selection.
void selezionaUno(std::int32_t indice, std::int32_t oggetto) {
    Puntosel.attiva = 1;
    Puntosel.multipla = 0;
    Puntosel.numSel = 1;
    Puntosel.oggetto = oggetto;
    Puntosel.indice = indice;
}

}   // namespace

TEST(DisegnoSelezione, DrawnTwiceItIsGoneWhateverIsSelected) {
    Scena s;
    const std::int32_t numeri[] = {segmento(10, 10, 80, 60),
                                   marker(50, 40),
                                   cerchio(40, 40, 25),
                                   arco(40, 40, 30, 10, 200),
                                   polilinea({{5, 5}, {70, 9}, {60, 70}}),
                                   testo(20, 30, "prova", 150)};
    const std::int32_t oggetti[] = {oSegmento, oMarker, oCerchio, oArco, oPoligono, oTesto};
    Elem(indElem).test.larghezza = 12;
    Disegna();
    const auto prima = s.immagine();
    for (std::size_t i = 0; i < std::size(numeri); ++i) {
        SCOPED_TRACE(oggetti[i]);
        selezionaUno(numeri[i], oggetti[i]);
        DipingiEvidenza();
        EXPECT_NE(s.immagine(), prima);
        DipingiEvidenza();
        EXPECT_EQ(s.immagine(), prima);
        Elem(numeri[i]).selezionato = 1;
    }
    Puntosel.multipla = 1;
    Modalita = mSpostamento;
    rettSel = RettSel{5, 5, 80, 70};
    XSpost2 = YSpost2 = 30;
    DipingiEvidenza();
    EXPECT_NE(s.immagine(), prima);
    DipingiEvidenza();
    EXPECT_EQ(s.immagine(), prima);
    // A summary that names a record that is gone is passed over.
    Puntosel.multipla = 0;
    Modalita = mSelezione;
    for (const std::int32_t n : {-1, 0, 1, 100000}) {
        Puntosel.indice = n;
        DipingiEvidenza();
        EXPECT_EQ(s.immagine(), prima);
    }
}

TEST(DisegnoSelezione, AnOddScrollBetweenDrawingItAndTakingItOffLeavesNothing) {
    Scena s;
    const std::int32_t n = segmento(30, 30, 60, 55);
    selezionaUno(n, oSegmento);
    Elem(n).selezionato = 1;
    s.pulisci();
    DipingiEvidenza();
    s.porta.scroll(s.porta.portRect, -3, 2);
    OrigX += 3;
    OrigY -= 2;
    DipingiEvidenza();
    EXPECT_EQ(s.quanti(bianco), 100 * 80);
}

TEST(DisegnoSelezione, TheRubberAndTheCrossComeOffAtTheSecondCall) {
    Scena s;
    xcurs = ycurs = 40;
    Xini = Yini = 10;
    Xfine = 70;
    Yfine = 50;
    spessore = 3;
    spess = 1;
    const auto prima = s.immagine();
    for (const std::int32_t azione : {0, 1, 5, 8})
        for (const std::int32_t strumento : {0, 5, 6}) {
            Azione = azione;
            operazCorrente = strumento;
            DipingiPuntatore();
            EXPECT_NE(s.immagine(), prima);
            DipingiPuntatore();
            EXPECT_EQ(s.immagine(), prima);
        }
}

TEST(Disegno, ATagStandsAtItsSidesMiddleAndTheLastVertexLooksAtTheNextElement) {
    Scena s(400, 300);
    const std::int32_t testa = polilinea({{20, 20}, {120, 20}, {120, 100}});
    segmento(320, 260, 380, 290);
    VisioneGraf.mostraAref = 1;
    const auto etichettato = [&](std::int32_t n, std::int32_t h, std::int32_t v) {
        const Aref prima = Elem(n).testa.aref;
        const auto vuoto = s.immagine();
        Elem(n).testa.aref = Aref{3, 'a', 'b', 'c'};
        DisegnaAref();
        Elem(n).testa.aref = prima;
        int vicini = 0, altri = 0;   // ink in the tag's box, and elsewhere
        const auto dopo = s.immagine();
        for (std::size_t i = 0; i < dopo.size(); ++i) {
            if (dopo[i] == vuoto[i]) continue;
            const auto x = static_cast<std::int32_t>(i % 400), y = static_cast<std::int32_t>(i / 400);
            (x >= h - 11 && x < h + 25 && y >= v - 8 && y <= v + 8 ? vicini : altri)++;
        }
        s.pulisci();
        return vicini > 8 && altri == 0;
    };
    EXPECT_TRUE(etichettato(testa + 1, 120, 60));    // the side to the last vertex
    EXPECT_TRUE(etichettato(testa + 2, 220, 180));   // from the last vertex to the segment's beginning
    EXPECT_TRUE(etichettato(testa + 3, 350, 275));
}
