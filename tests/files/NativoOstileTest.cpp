// Files that are cut off, damaged or made to do harm: each ends in a message, and what is then in memory can be walked.
#include "files/Disco.h"

#include "model/Colori.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr std::int16_t guasto = 9101;

// All that the program relies on when it walks a drawing.
void sanoDaPercorrere() {
    ASSERT_GE(indElem, 2);
    ASSERT_LE(indElem, maxElementi);
    for (std::int32_t n = 3; n <= indElem; ++n) {
        const elemento& e = Elem(n);
        if (e.tipo == tPoligono) {
            ASSERT_GE(e.poli.numVertici, 0);
            ASSERT_LE(n + e.poli.numVertici, indElem);
        }
        if (e.tipo == tVertice) {
            const std::int32_t suaTesta = n - e.vert.distanzaTesta;
            ASSERT_GE(suaTesta, 3);
            ASSERT_LE(suaTesta, n);
            ASSERT_LE(suaTesta + Elem(suaTesta).poli.numVertici, indElem);
        }
        if (e.tipo == tTesto) { ASSERT_LE(e.test.testo[0], 40); }
    }
    ASSERT_GE(coloriPresenti, 0);
    ASSERT_LE(coloriPresenti, maxColori);
    ASSERT_LE(meshOrigine.nx, 100);
    ASSERT_LE(meshOrigine.ny, 100);
}

Byte campione(int versione) {
    return disegno(versione, {rSegmento(1, 2, 3, 4), rPict(6, "PICTUR"), rTesta(1, 1, 2), rVertice(2, 2, 1),
                              rVertice(3, 3, 2), record(tTesto).u8(2, 28).byte("Hi", 29)});
}

}   // namespace

TEST(NativoOstile, AFileCutOffAnywhereSaysSoAndKeepsWholeElements) {
    fogliovuoto(50);
    for (const int versione : {5, 12}) {
        const Byte intero = campione(versione);
        const std::size_t primoElemento = 19 + 2 * 84;
        for (std::size_t n = 0; n < intero.size(); ++n) {
            SCOPED_TRACE(std::to_string(versione) + " cut at " + std::to_string(n));
            AzzeraStato();
            avvisi.clear();
            leggiByte(std::string_view(intero).substr(0, n));
            ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{guasto});
            sanoDaPercorrere();
            if (n < primoElemento) {
                EXPECT_EQ(indElem, 2);
                EXPECT_EQ(uscita, 1);
            }
            if (n >= primoElemento + 84) {
                EXPECT_GE(indElem, 3);
                EXPECT_EQ(Elem(3).segm.x2, 3.0);
            }
        }
    }
}

TEST(NativoOstile, WhatAFileClaimsIsHeldAgainstWhatItHas) {
    struct Caso {
        const char* che;
        Byte byte;
        std::int32_t restano;   // indElem after it
    };
    const auto conConto = [](std::int64_t conto) {
        Byte b = campione(12);
        return b.i32(conto, 19 + 76), b;
    };
    const auto immagine = [](std::int64_t lunghezza) {
        return disegno(12, {rSegmento(1, 2, 3, 4), rPict(lunghezza, "PICTUR")});
    };
    Byte senzaTipi = conConto(1000000);
    senzaTipi.u8(7, 19 + 6);
    Blocchi colori, mesh;
    for (int i = 0; i < 301; ++i) colori.colori.push_back({"x", {1, 2, 3, 4}});
    mesh.nx = 101;
    mesh.ny = 1;
    const Caso casi[] = {
        {"a text file", Byte().byte(std::string(4000, '#')), 2},
        {"nothing", Byte(), 2},
        {"zeros", Byte(4000), 2},
        {"a count of 0", conConto(0), 2},
        {"a count of 1", conConto(1), 2},
        {"a negative count", conConto(-5), 2},
        {"a huge count of no drawing", senzaTipi, 2},
        {"a picture of negative length", immagine(-1), 3},
        {"a picture longer than the file", immagine(0x7FFFFFFF), 3},
        {"too many colours", disegno(12, {rSegmento(1, 2, 3, 4)}, colori), 3},
        {"a mesh too wide", disegno(12, {rSegmento(1, 2, 3, 4)}, mesh), 3},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.che);
        AzzeraStato();
        fogliovuoto(50);
        avvisi.clear();
        leggiByte(c.byte);
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{guasto});
        EXPECT_EQ(indElem, c.restano);
        sanoDaPercorrere();
    }
}

TEST(NativoOstile, AHugeCountOfADrawingGivesWhatTheFileHas) {
    fogliovuoto(50);
    Byte b = intestazione(12);
    b.byte(attacco1(0x7FFFFFFF)).byte(attacco2());
    for (int i = 0; i < 5; ++i) b.byte(rSegmento(i, 0, 0, 0));
    leggiByte(b);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{guasto});
    EXPECT_EQ(indElem, 7);
    EXPECT_EQ(Elem(7).segm.x1, 4.0);
}

TEST(NativoOstile, MoreElementsThanTheStoreHoldsAreClippedAloud) {
    fogliovuoto(6);
    std::vector<Byte> molti{rTesta(1, 1, 9)};
    for (int i = 1; i <= 9; ++i) molti.push_back(rVertice(i, i, i));
    leggiByte(disegno(12, molti));
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{guasto});
    EXPECT_NE(avvisi[0].testo.find("10 elements"), std::string::npos);
    EXPECT_NE(avvisi[0].testo.find("only 4"), std::string::npos);
    EXPECT_EQ(indElem, 6);
    EXPECT_EQ(Elem(3).poli.numVertici, 3);   // the head counts no vertex that is not there
    sanoDaPercorrere();
}

TEST(NativoOstile, DamagedPolylinesAndTextsAreMendedOnce) {
    struct Caso {
        const char* che;
        std::vector<Byte> elementi;
        std::int16_t vertici;   // of the head in record 3, -1 when there is none
    };
    const Caso casi[] = {
        {"a count too large", {rTesta(0, 0, 30000), rVertice(1, 1, 1), rSegmento(0, 0, 0, 0)}, 1},
        {"a count below zero", {rTesta(0, 0, -2), rVertice(1, 1, 1), rVertice(2, 2, 2)}, 2},
        {"a head at the end", {rTesta(0, 0, 1)}, 0},
        {"a vertex that points before the drawing", {rTesta(0, 0, 1), rVertice(1, 1, 999999)}, 1},
        {"a vertex that points behind itself", {rTesta(0, 0, 1), rVertice(1, 1, -7)}, 1},
        {"a vertex whose head is a segment", {rTesta(0, 0, 0), rSegmento(1, 1, 1, 1), rVertice(1, 1, 1)}, 0},
        {"a vertex alone", {rVertice(1, 1, 1).i16(30000, 70)}, -1},
        {"a text of 255 characters", {record(tTesto).u8(255, 28)}, -1},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.che);
        AzzeraStato();
        fogliovuoto(50);
        avvisi.clear();
        leggiByte(disegno(12, c.elementi));
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{guasto});
        EXPECT_EQ(indElem, 2 + static_cast<std::int32_t>(c.elementi.size()));
        if (c.vertici >= 0) { EXPECT_EQ(Elem(3).poli.numVertici, c.vertici); }
        sanoDaPercorrere();
        // Mended is mended: saved and read again there is nothing to say.
        avvisi.clear();
        const std::string scritto = scriviByte();
        AzzeraArchivio();
        leggiByte(scritto);
        EXPECT_TRUE(avvisi.empty());
    }
}

TEST(NativoOstile, ADrawingWithOneWrongByteNeverHarms) {
    fogliovuoto(50);
    const Byte intero = campione(12);
    constexpr char valori[] = {'\x7F', '\xFF', '\x80', '\x0A'};
    for (std::size_t n = 0; n < 19 + 8 * 84 + 200; ++n) {
        Byte b = intero;
        b[n] = valori[n / 3 % std::size(valori)];
        AzzeraStato();
        leggiByte(b);
        sanoDaPercorrere();
        ASSERT_FALSE(HasFatalFailure()) << n;
    }
}
