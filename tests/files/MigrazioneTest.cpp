// Drawings of the first versions: other record shapes, 80-bit reals, heads brought within bounds.
#include "files/Disco.h"

#include <cmath>

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

namespace {

// The field of the new record at an offset, from the disk order that a conversion gives.
double f64Di(const elemento& e, std::size_t dove) {
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < 8; ++i) v = v << 8 | reinterpret_cast<const unsigned char*>(&e)[dove + i];
    return std::bit_cast<double>(v);
}
int i16Di(const elemento& e, std::size_t dove) {
    const auto* p = reinterpret_cast<const unsigned char*>(&e) + dove;
    return static_cast<std::int16_t>(p[0] << 8 | p[1]);
}

// Where the fields of a type stand in its old and in its new record.
struct Campi {
    unsigned tipo;
    std::vector<std::pair<std::size_t, std::size_t>> reali, corti, byte, colori;
};

// Every field holds a value of its own; each must be found at its new place, and the bytes of no other.
template <class Vecchio, class Converti>
void provaCampi(const Campi& c, Byte b, Converti converti) {
    SCOPED_TRACE("type " + std::to_string(c.tipo));
    for (const auto& [da, a] : c.reali) b.f80(1000.5 + static_cast<double>(da), da);
    for (const auto& [da, a] : c.corti) b.i16(300 + static_cast<int>(da), da);
    for (const auto& [da, a] : c.byte) b.u8(100 + static_cast<unsigned>(da), da);
    for (const auto& [da, a] : c.colori) b.i32(137, da);
    Vecchio v;
    if (sizeof v == 68) b.u8(c.tipo, 3);   // also a byte of the first real
    ASSERT_EQ(b.size(), sizeof v);
    std::memcpy(v.byte.data(), b.data(), b.size());
    elemento e;
    std::memset(reinterpret_cast<void*>(&e), 0x5A, sizeof e);
    converti(v, e);
    EXPECT_EQ(e.tipo, c.tipo);
    for (const auto& [da, a] : c.reali)
        if (sizeof v != 68 || da != 0) { EXPECT_EQ(f64Di(e, a), 1000.5 + static_cast<double>(da)) << da; }
    for (const auto& [da, a] : c.corti) EXPECT_EQ(i16Di(e, a), 300 + static_cast<int>(da)) << da;
    for (const auto& [da, a] : c.byte) EXPECT_EQ(reinterpret_cast<const unsigned char*>(&e)[a], 100 + da) << da;
    for (const auto& [da, a] : c.colori) EXPECT_EQ(i16Di(e, a), 6) << da;
}

}   // namespace

TEST(Migrazione, EveryFieldOfTheNewerRecordsGoesToItsPlace) {
    const std::vector<std::pair<std::size_t, std::size_t>> sei{{34, 28}, {44, 36}, {54, 44},
                                                               {64, 52}, {74, 60}, {84, 68}};
    const Campi campi[] = {
        {0, sei, {{94, 76}, {96, 78}}, {}, {}},
        {1, sei, {{94, 76}, {96, 78}}, {}, {{98, 80}}},
        {2, {{34, 28}, {44, 36}, {54, 44}}, {{64, 52}, {66, 54}, {68, 56}}, {}, {{70, 58}}},
        {4, sei, {{96, 78}}, {{94, 76}, {95, 77}}, {}},
        {5, {{34, 28}, {44, 36}, {54, 44}, {64, 52}}, {}, {}, {}},
        {7,
         {{34, 28}, {44, 36}, {54, 44}, {64, 52}, {74, 60}},
         {{86, 70}, {88, 72}, {90, 74}},
         {{84, 68}, {85, 69}},
         {{92, 76}}},
        {8, {{34, 28}, {44, 36}, {54, 44}}, {{64, 52}, {66, 54}}, {}, {}},   // a long, by its halves
        {9, {{18, 12}, {28, 20}}, {{14, 8}, {16, 10}, {82, 72}, {84, 74}}, {{38, 28}, {78, 68}, {80, 70}}, {{86, 76}}},
        {10, {{34, 28}, {44, 36}, {58, 48}, {68, 56}}, {{54, 44}, {56, 46}}, {}, {}},
    };
    for (const Campi& c : campi) provaCampi<elemento_Ext>(c, vecchio102(c.tipo), TrasformaExtDoub);
}

TEST(Migrazione, EveryFieldOfTheEldestRecordsGoesToItsPlace) {
    const std::vector<std::pair<std::size_t, std::size_t>> ordine{{0, 28},  {10, 36}, {20, 44},
                                                                  {30, 52}, {40, 60}, {50, 68}};
    const Campi campi[] = {
        {0, ordine, {{60, 76}, {62, 78}}, {}, {}},
        {1, ordine, {{60, 76}, {62, 78}}, {}, {{64, 80}}},
        {2, {{0, 28}, {10, 36}, {20, 44}}, {{30, 52}, {32, 54}, {34, 56}}, {}, {{36, 58}}},
        {4, ordine, {{62, 78}}, {{60, 76}, {61, 77}}, {}},
        {5, {{0, 28}, {10, 36}, {20, 44}, {30, 52}}, {}, {}, {}},
    };
    for (const Campi& c : campi) provaCampi<Oldelemento>(c, Byte(68), TrasformaOldNew);
}

TEST(Migrazione, ATypeThatDidNotExistKeepsItsHeadAsItStands) {
    elemento_Ext v;
    for (const unsigned tipo : {3U, 6U, 11U, 200U}) {
        const Byte b = vecchio102(tipo, 120).i16(900, 8).i16(77, 14).u8(20, 16).i16(-5, 30).i16(500, 32);
        std::memcpy(v.byte.data(), b.data(), b.size());
        elemento e;
        TrasformaExtDoub(v, e);
        EXPECT_EQ(i16Di(e, 0), 120);
        EXPECT_EQ(i16Di(e, 4), 900);
        EXPECT_EQ(i16Di(e, 8), 77);
        EXPECT_EQ(e.testa.aref[0], 20);
        EXPECT_EQ(i16Di(e, 24), -5);
        EXPECT_EQ(i16Di(e, 26), 500);
        EXPECT_EQ(f64Di(e, 28), 0);
    }
}

TEST(Migrazione, ColoursOfOldHaveTheirNumbers) {
    const std::pair<std::int32_t, int> colori[] = {{205, 2}, {69, 7}, {137, 6}, {273, 5}, {341, 3},
                                                   {409, 4}, {33, 1}, {30, 1},  {0, 1},   {-1, 1}};
    for (const auto& [vecchio, nuovo] : colori) EXPECT_EQ(ColOldToNew(vecchio), nuovo) << vecchio;
}

TEST(Migrazione, RealsOfEveryKindAreReadOrLeftOut) {
    struct Caso {
        const char* che;
        unsigned segno;
        std::uint64_t mantissa;
        double v;
    };
    const Caso casi[] = {
        {"denormal", 0x0000, 0x4000000000000000, 0.0},
        {"smallest double", 0x3BCD, 0x8000000000000000, 0x1p-1074},
        {"without its whole bit", 0x4001, 0x4000000000000000, 2.0},
        {"zero of a high exponent", 0x4500, 0, 0.0},
        {"negative zero", 0x8000, 0, -0.0},
    };
    for (const Caso& c : casi) {
        SCOPED_TRACE(c.che);
        AzzeraStato();
        fogliovuoto();
        Byte m = vecchio102(tMarker);
        m.numero(c.segno, 2, 34).numero(c.mantissa, 8, 36).f80(7, 44);
        leggiByte(disegno102(3, {m}));
        ASSERT_EQ(indElem, 3);
        EXPECT_EQ(Elem(3).mark.x, c.v);
        EXPECT_EQ(Elem(3).mark.y, 7.0);
    }
    // Infinite ones stay so through the conversion itself.
    elemento_Ext v;
    Byte b = vecchio102(tMarker);
    b.numero(0xFFFF, 2, 34).numero(std::uint64_t{1} << 63, 8, 36);
    std::memcpy(v.byte.data(), b.data(), b.size());
    elemento e;
    TrasformaExtDoub(v, e);
    EXPECT_EQ(f64Di(e, 28), -HUGE_VAL);
}

TEST(Migrazione, OldFilesThatWereCutOffKeepTheirWholeElements) {
    for (const int versione : {1, 2, 3, 4}) {
        Byte intero;
        std::size_t record = 102, inizio = versione == 4 ? 23 : 2;
        if (versione >= 3) {
            intero = disegno102(versione, {vecchio102(tMarker).f80(5, 34), vecchio102(tMarker).f80(6, 34)});
        } else {
            record = 68;
            Byte uno(68), due(68), m(68);
            uno.i16(4, 60);
            due.u8(4, 3);
            m.u8(2, 3).f80(5, 10);
            intero.i16(versione).byte(uno).byte(due).byte(m).byte(m);
        }
        for (std::size_t n = 0; n < inizio + 4 * record; n += 7) {
            SCOPED_TRACE(std::to_string(versione) + " cut at " + std::to_string(n));
            AzzeraStato();
            avvisi.clear();
            fogliovuoto(20);
            leggiByte(std::string_view(intero).substr(0, n));
            EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
            const auto interi = n < inizio + 2 * record ? 0 : (n - inizio - 2 * record) / record;
            EXPECT_EQ(indElem, 2 + static_cast<std::int32_t>(interi));
        }
    }
}

TEST(Migrazione, ACountOfSixteenBitsIsTakenWithoutItsSign) {
    constexpr std::int32_t molti = 40000;
    fogliovuoto(molti + 10);
    std::vector<Byte> elementi(molti - 2, vecchio102(tMarker));
    leggiByte(disegno102(3, elementi));
    EXPECT_EQ(indElem, molti);
}
