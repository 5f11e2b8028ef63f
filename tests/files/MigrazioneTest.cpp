// Drawings of the first versions: other record shapes, 80-bit reals, heads brought within bounds.
#include "files/Disco.h"

#include "files/Migrazione.h"
#include "model/Lucidi.h"
#include "model/Registrazione.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

Byte vecchio102(unsigned tipo, int lucido = 4) {
    Byte r(102);
    return r.i16(lucido, 0).i16(1, 8).i32(tipo, 10).i16(2, 14).i16(5, 30).i16(6, 32), r;
}

std::vector<Byte> riservati102(int conto) {
    Byte uno = vecchio102(tAttacco1), due = vecchio102(tAttacco2);
    for (std::size_t i = 0; i < 6; ++i) uno.f80(10.0 + static_cast<double>(i), 34 + 10 * i);
    uno.i16(conto, 94);
    due.f80(1, 64).u8(1, 95);
    return {uno, due};
}

Byte disegno102(int versione, const std::vector<Byte>& elementi) {
    Byte b;
    b.i16(versione);
    if (versione == 4) b.f80(7.25).f80(-8.5).u8(1);
    for (const Byte& r : riservati102(static_cast<int>(elementi.size()) + 2)) b.byte(r);
    for (const Byte& r : elementi) b.byte(r);
    return b.byte(Blocchi{}.perVersione(versione)), b;
}

}   // namespace

TEST(Migrazione, AVersionThreeDrawingBringsEveryTypeToItsPlace) {
    fogliovuoto();
    const std::vector<Byte> elementi{
        vecchio102(1).f80(1.5, 34).f80(-2.5, 44).f80(3, 54).f80(4, 64).f80(5, 74).f80(6, 84).i16(3, 94).i16(9, 96).i32(
            205, 98),
        vecchio102(2).f80(1e10, 34).f80(2, 44).f80(3, 54).i16(4, 64).i16(5, 66).i16(6, 68).i32(409, 70),
        vecchio102(7)
            .f80(1, 34)
            .f80(2, 44)
            .f80(0.5, 64)
            .f80(0.25, 74)
            .u8(1, 84)
            .u8(1, 85)
            .i16(1, 86)
            .i16(2, 88)
            .i16(3, 90)
            .i32(999, 92),
        vecchio102(8).f80(8, 34).f80(9, 44).f80(10, 54).i32(1, 64),
        Byte(102)
            .i16(4, 0)
            .i32(9, 10)
            .i16(120, 14)
            .i16(12, 16)
            .f80(3.5, 18)
            .f80(4.5, 28)
            .u8(2, 38)
            .byte("Hi", 39)
            .u8(5, 80)
            .i16(20, 82)
            .i16(12, 84)
            .i32(69, 86),
        vecchio102(10).f80(1, 34).f80(2, 44).f80(30, 58).f80(40, 68).i32(3).byte("abc"),
    };
    leggiByte(disegno102(3, elementi));
    EXPECT_TRUE(avvisi.empty());
    ASSERT_EQ(indElem, 8);
    const auto& s = Elem(3).segm;
    EXPECT_EQ(s.x1, 1.5);
    EXPECT_EQ(s.y1, -2.5);
    EXPECT_EQ(s.z2, 6.0);
    EXPECT_EQ(s.pattern, 9);
    EXPECT_EQ(s.colore, 2);
    EXPECT_EQ(Elem(3).lucido, 4);
    EXPECT_EQ(s.t.linea, 2);
    EXPECT_EQ(s.t.categoria, 5);
    EXPECT_EQ(s.t.insieme, 6);
    EXPECT_EQ(Elem(4).mark.x, 1e10);
    EXPECT_EQ(Elem(4).mark.forma, 4);
    EXPECT_EQ(Elem(4).mark.colore, 4);
    EXPECT_EQ(Elem(5).poli.angoloTratt, 0.25);
    EXPECT_EQ(Elem(5).poli.incrociato, 1);
    EXPECT_EQ(Elem(5).poli.numVertici, 1);
    EXPECT_EQ(Elem(5).poli.colore, 1);   // an unknown colour is black
    EXPECT_EQ(Elem(6).vert.distanzaTesta, 1);
    EXPECT_EQ(Elem(6).vert.z, 10.0);
    EXPECT_EQ(Elem(7).test.larghezza, 120);
    EXPECT_EQ(Elem(7).test.altezza, 12);
    EXPECT_EQ(Elem(7).test.y, 4.5);
    EXPECT_EQ(Elem(7).test.testo[2], 'i');
    EXPECT_EQ(Elem(7).test.stile, 5);
    EXPECT_EQ(Elem(7).test.colore, 7);
    EXPECT_EQ(Elem(7).test.angolo, 100);
    EXPECT_EQ(Elem(8).pict.altezza, 40.0);
    EXPECT_EQ(PictBytes(Elem(8).pict.maniglia), "abc");
    EXPECT_EQ(XA1, 10);
    EXPECT_EQ(Elem(1).att1.z2, 15.0);
    EXPECT_EQ(Elem(2).att.quattroPunti, 1);
    EXPECT_EQ(VisioneGraf.lucidoCorrente, 3);
    EXPECT_EQ(OKAttacco5, 0);
}

TEST(Migrazione, VersionFourAddsPointFive) {
    fogliovuoto();
    leggiByte(disegno102(4, {vecchio102(2).f80(5, 34)}));
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(xAttacco5, 7.25);
    EXPECT_EQ(yAttacco5, -8.5);
    EXPECT_EQ(OKAttacco5, 1);
}

TEST(Migrazione, HeadsComeWithinTheirBounds) {
    struct Caso {
        int lucido, campo4, linea, etichetta, categoria;
        int vLucido, vCampo4, vLinea, vEtichetta, vCategoria;
    };
    constexpr Caso casi[] = {
        {120, 128, 10, 20, 128, 0, 1, 1, 'T', 1},
        {-1, 0, 0, 14, 0, 0, 1, 1, 'T', 1},
        {99, 127, 9, 13, 127, 99, 127, 9, 13, 127},
    };
    for (const Caso& c : casi) {
        elemento_Ext v;
        const Byte b = vecchio102(1, c.lucido)
                           .i16(c.campo4, 8)
                           .i16(c.linea, 14)
                           .u8(static_cast<unsigned>(c.etichetta), 16)
                           .i16(c.categoria, 30)
                           .i16(c.categoria, 32);
        std::memcpy(v.byte.data(), b.data(), b.size());
        elemento e;
        TrasformaExtDoub(v, e);
        TrasformaElemBtoN(e);
        EXPECT_EQ(e.lucido, c.vLucido);
        EXPECT_EQ(e.riservato4, c.vCampo4);
        EXPECT_EQ(e.testa.linea, c.vLinea);
        EXPECT_EQ(e.testa.aref[0], c.vEtichetta);
        EXPECT_EQ(e.testa.categoria, c.vCategoria);
        EXPECT_EQ(e.testa.insieme, c.vCategoria);
    }
    // A reserved record's head is not taken over at all.
    elemento_Ext v;
    const Byte b = vecchio102(0, 55);
    std::memcpy(v.byte.data(), b.data(), b.size());
    elemento e;
    TrasformaExtDoub(v, e);
    TrasformaElemBtoN(e);
    EXPECT_EQ(e.lucido, 0);
    EXPECT_EQ(e.testa.categoria, 0);
    EXPECT_EQ(std::memcmp(e.testa.aref.data(), "Tessaro 3D\0CON", 14), 0);
}

TEST(Migrazione, TheEldestRecordsTellTheirTypeByTheirFirstWord) {
    Oldelemento v;
    Byte b(68);
    b.f80(1, 0).f80(2.5, 10).f80(3.5, 20).f80(4.5, 30).f80(5.5, 40).f80(6.5, 50).i16(7, 60).i16(8, 62).i32(273, 64);
    b.u8(1, 3);   // type 1, and a byte of the first real
    std::memcpy(v.byte.data(), b.data(), b.size());
    elemento e;
    TrasformaOldNew(v, e);
    TrasformaElemBtoN(e);
    EXPECT_EQ(e.tipo, tSegmento);
    EXPECT_EQ(e.segm.y1, 2.5);
    EXPECT_EQ(e.segm.z1, 3.5);
    EXPECT_EQ(e.segm.x2, 4.5);
    EXPECT_EQ(e.segm.z2, 6.5);
    EXPECT_EQ(e.segm.spessore, 7);
    EXPECT_EQ(e.segm.colore, 5);
    EXPECT_EQ(e.lucido, 0);
    EXPECT_EQ(e.testa.linea, 1);
    EXPECT_EQ(e.testa.categoria, 0);

    b.u8(9, 3);   // a type that did not exist: the head alone
    std::memcpy(v.byte.data(), b.data(), b.size());
    TrasformaOldNew(v, e);
    EXPECT_EQ(e.tipo, tTesto);
    const std::string coda(reinterpret_cast<const char*>(&e) + 28, 56);
    EXPECT_EQ(coda, std::string(56, '\0'));
}

TEST(Migrazione, AVersionOneDrawingClearsTheSecondFlagOfRecordTwo) {
    for (const int versione : {0, 1, 2}) {
        AzzeraStato();
        fogliovuoto();
        Byte uno(68), due(68), segm(68);
        uno.i16(3, 60);
        due.u8(4, 3).u8(1, 60).u8(1, 61);
        segm.u8(1, 3).f80(9, 10);
        Byte b;
        leggiByte(b.i16(versione).byte(uno).byte(due).byte(segm));
        EXPECT_TRUE(avvisi.empty());
        ASSERT_EQ(indElem, 3) << versione;
        EXPECT_EQ(Elem(3).segm.y1, 9.0);
        EXPECT_EQ(Elem(2).att.coordReali, 1);
        EXPECT_EQ(Elem(2).att.quattroPunti, versione == 2);
    }
}
