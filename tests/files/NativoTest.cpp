// The native file byte for byte: what a save writes, what each version brings, and the way there and back.
#include "editing/AttacchiCambiati.h"
#include "files/Disco.h"

#include <cmath>
#include <limits>

#include "files/Blocchi.h"
#include "model/Annulla.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/Registrazione.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"
#include "support/Avvisi.h"
#include "support/Tasti.h"

using namespace tessaro;
using namespace prova;

namespace {

// The state that the blocks of struct Blocchi describe.
void comeIBlocchi() {
    VisioneGraf = {};
    VisioneGraf.lucidoCorrente = 3;
    VisioneGraf.mostraTesti = 0;
    VisioneGraf.mostraTratteggi = 1;
    VisioneGraf.bloccaAltri = 1;
    VisioneGraf.visibile.fill(1);
    coloriPresenti = 2;
    arrColori[0] = {{4, 'N', 'e', 'r', 'o'}, {0, 0, 0}, 1};
    arrColori[1] = {{7, 'R', 'u', 'g', 'g', 'i', 'n', 'e'}, {40000, 2, 1}, 9};
    UnitaMCorrente = 1;
    decimiUnita = 100;
    Scaladis = 500;
    DataUltima = 7.5;
    Xfoglio = 84.1;
    XFDecimi = 8410;
    yfoglio = 59.4;
    YFDecimi = 5940;
    attaccoAttivo = ActiveAttach();
    attaccoAttivo.transf = {};
    attaccoAttivo.lavoro = {};
    attaccoAttivo.rotazione = 0;
    attaccoAttivo.modificato = 1;
    for (std::size_t i = 0; i < 5; ++i) {
        attaccoAttivo.xAtt[i] = 1000.0 + static_cast<double>(i);
        attaccoAttivo.yAtt[i] = 77;
    }
    meshOrigine.nx = meshDestinazione.nx = 2;
    meshOrigine.ny = meshDestinazione.ny = 3;
    for (int i = 0; i < 6; ++i) {
        meshOrigine.x[i / 2][i % 2] = 100.0 + i;
        meshOrigine.y[i / 2][i % 2] = -100.0 - i;
        meshDestinazione.x[i / 2][i % 2] = 900.0 + i;
        meshDestinazione.y[i / 2][i % 2] = -900.0 - i;
    }
}

Byte etichetta(Byte r, std::string_view s) { return r.u8(static_cast<unsigned>(s.size()), 10).byte(s, 11), r; }

}   // namespace

TEST(Nativo, ASaveWritesEveryTypeAndBlockByteForByte) {
    fogliovuoto();
    comeIBlocchi();
    xAttacco5 = 12.5;
    yAttacco5 = -3.25;
    OKAttacco5 = 1;
    Elem(1).att1.x1 = 101.5;
    Elem(1).att1.z2 = 202.25;
    Elem(2).att.x1 = 4994321.123;
    Elem(2).att.quattroPunti = 1;

    VisioneGraf.lucidoCorrente = 42;
    ArefSegmDef = {3, 'A', 'b', 'c'};
    spessore = 2;
    colorCorrente = 5;
    NumPat = 23;
    NumAreaPat = 7;
    CategoriaCorrente = 300;
    InsiemeCorrente = 9;
    segmento(1.5, 2.5, 3.5, 4.5, -1, 1e-300);
    marker(10, 20, 30, 6);
    const auto poli = polilinea({{1, 2}, {3, 4}});
    Elem(poli).poli.passoTratt = 0.5;
    Elem(poli).poli.angoloTratt = 1.25;
    Elem(poli).poli.tratteggio = 1;
    cerchio(7, 8, 9);
    arco(1, 2, 3, 45, 270);
    testo(5, 6, "Prova", 50);
    auto& t = Elem(indElem).test;
    t.larghezza = 321;
    std::memset(t.testo.data() + 6, 0, 35);
    t.riservato69 = t.riservato71 = 0;
    immagine(11, 12, 13, 14, "PICTDATA");
    Elem(indElem).pict.maniglia = NewPict("PICTDATA");
    Elem(indElem).pict.t.aref = {};
    const std::int32_t maniglia = Elem(indElem).pict.maniglia;
    VisioneGraf.lucidoCorrente = 3;

    const auto attributi = [](Byte r, std::size_t dove) {
        return r.i16(2, dove).i16(23, dove + 2).i16(5, dove + 4), r;
    };
    const auto classi = [](unsigned tipo) {
        Byte r = record(tipo, 42);
        if (tipo != tTesto) r.i16(300, 24).i16(9, 26);
        return r;
    };
    Byte atteso;
    atteso.i16(12).f64(12.5).f64(-3.25).u8(1);
    Byte r1(84), r2(84);
    r1.f64(101.5, 28).f64(202.25, 68).i32(10, 76);
    r2.u8(tAttacco2, 6).f64(4994321.123, 28).f64(1, 52).f64(1, 60).f64(1, 68).u8(1, 77);
    atteso.byte(r1).byte(r2);
    atteso.byte(attributi(etichetta(classi(tSegmento), "Abc"), 76)
                    .f64(1.5, 28)
                    .f64(2.5, 36)
                    .f64(-1, 44)
                    .f64(3.5, 52)
                    .f64(4.5, 60)
                    .f64(1e-300, 68));
    atteso.byte(attributi(classi(tMarker), 54).f64(10, 28).f64(20, 36).f64(30, 44).i16(6, 52));
    atteso.byte(attributi(classi(tPoligono), 72)
                    .f64(1, 28)
                    .f64(2, 36)
                    .f64(0.5, 52)
                    .f64(1.25, 60)
                    .u8(1, 68)
                    .i16(1, 70)
                    .i16(7, 78));
    atteso.byte(classi(tVertice).f64(3, 28).f64(4, 36).i32(1, 52));
    atteso.byte(attributi(classi(tCerchio), 52).f64(7, 28).f64(8, 36).f64(9, 44).i16(7, 58));
    atteso.byte(attributi(classi(tArco), 68).f64(1, 28).f64(2, 36).f64(3, 44).f64(45, 52).f64(270, 60).i16(7, 74));
    atteso.byte(classi(tTesto)
                    .i16(321, 8)
                    .i16(9, 10)
                    .f64(5, 12)
                    .f64(6, 20)
                    .u8(5, 28)
                    .byte("Prova", 29)
                    .i16(gFontID, 72)
                    .i16(9, 74)
                    .i16(5, 76)
                    .i16(50, 78));
    Byte p = classi(tPict).f64(11, 28).f64(12, 36).f64(13, 48).f64(14, 56);
    p.byte({reinterpret_cast<const char*>(&maniglia), 4}, 44);   // meaningless, as it lies in memory
    atteso.byte(p).i32(8).byte("PICTDATA");
    atteso.byte(Blocchi{}.perVersione(12));

    const std::string scritto = scriviByte();
    ASSERT_EQ(scritto.size(), atteso.size());
    for (std::size_t i = 0; i < atteso.size(); ++i) ASSERT_EQ(scritto[i], atteso[i]) << "byte " << i;

    // The older generation's file differs by its version word alone.
    const std::string vecchio = scriviByte(41);
    EXPECT_EQ(vecchio.substr(0, 2), std::string("\0\x09", 2));
    EXPECT_EQ(vecchio.substr(2), scritto.substr(2));
    EXPECT_EQ(annullamento, aNiente);
}

TEST(Nativo, WhatIsWrittenComesBack) {
    fogliovuoto();
    comeIBlocchi();
    OKAttacco5 = 1;
    xAttacco5 = 5;
    segmento(1, 2, 3, -1e300);
    const auto testaPoli = polilinea({{1, 2}, {3, 4}, {5, 6}});
    testo(5, 6, "Caff\x8E", 33);
    arco(1, 2, 3, 4, 5);
    Elem(indElem).arco.patternArea = 38;
    immagine(11, 12, 13, 14, std::string(300000, 'x'));
    immagine(21, 22, 23, 24, "");
    const std::int32_t quanti = indElem;
    const std::vector<elemento> prima(ArrElementi, ArrElementi + quanti);
    const std::string primo = scriviByte();

    AzzeraArchivio();
    VisioneGraf = {};
    coloriPresenti = 0;
    Scaladis = decimiUnita = DataUltima = Xfoglio = yfoglio = 0;
    meshOrigine.nx = meshOrigine.ny = 0;
    leggiByte(primo);
    EXPECT_TRUE(avvisi.empty());
    ASSERT_EQ(indElem, quanti);
    EXPECT_EQ(Elem(testaPoli).poli.numVertici, 2);
    EXPECT_EQ(PictBytes(Elem(quanti - 1).pict.maniglia), std::string(300000, 'x'));
    EXPECT_EQ(PictBytes(Elem(quanti).pict.maniglia), "");
    for (std::int32_t n = 3; n <= quanti; ++n) {
        elemento a = prima[static_cast<std::size_t>(n - 1)], b = Elem(n);
        if (a.tipo == tPict) a.pict.maniglia = b.pict.maniglia = 0;
        EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0) << "record " << n;
    }
    // Record 1 holds what its two 16-bit fields make of the count.
    EXPECT_EQ(Elem(1).att1.conto, quanti << 16);
    EXPECT_EQ(coloriPresenti, 2);
    EXPECT_EQ(arrColori[1].rgb, (RGBColor{40000, 2, 1}));
    EXPECT_EQ(Scaladis, 500);
    EXPECT_EQ(meshDestinazione.y[2][1], -905.0);
    EXPECT_TRUE(attaccoAttivo.GetModificato());
}

// Reading prepares the live transformation anew: what it prepares is what was saved.
TEST(Nativo, ADrawingWithALiveTransformationIsSavedAgainByteForByte) {
    constexpr double punti[4][2] = {{500, 2500}, {900, 700}, {2600, 400}, {3300, 2800}};
    for (std::int32_t tipo = 0; tipo <= 2; ++tipo) {
        AzzeraStato();
        fogliovuoto();
        for (std::int16_t n = 1; n <= 4; ++n) AssegnaAttacco(n, punti[n - 1][0], punti[n - 1][1]);
        AttacchiCambiati();
        xAttacco5 = 1700;
        yAttacco5 = 1500;
        OKAttacco5 = 1;
        attaccoAttivo.tipo = tipo;
        attaccoAttivo.radioTipo = static_cast<std::int16_t>(tipo + 27);
        attaccoAttivo.SetModificato(1);
        attaccoAttivo.PreparaAttacco();
        double x = 1234, y = 987;
        attaccoAttivo.Traf4Pt(x, y);
        segmento(1, 2, 3, 4);
        const std::string primo = scriviByte();

        AzzeraStato();
        fogliovuoto();
        leggiByte(primo);
        EXPECT_EQ(scriviByte(), primo) << tipo;
        double u = 1234, v = 987;   // the coefficients, which no file holds, are there again
        attaccoAttivo.Traf4Pt(u, v);
        EXPECT_EQ(u, x) << tipo;
        EXPECT_EQ(v, y) << tipo;
    }
}

TEST(Nativo, AnEmptyDrawingIsTwoRecords) {
    fogliovuoto();
    const std::string scritto = scriviByte();
    EXPECT_EQ(scritto.substr(19 + 76, 4), std::string("\0\0\0\2", 4));
    leggiByte(scritto);
    EXPECT_EQ(indElem, 2);
}

TEST(Nativo, ACurrentSheetAboveNinetyNineIsZeroOnBothWays) {
    fogliovuoto();
    VisioneGraf.lucidoCorrente = 120;
    EXPECT_EQ(scriviByte().substr(19 + 2 * 84, 2), std::string(2, '\0'));
    Blocchi b;
    for (const int lucido : {100, 120, -1}) {
        b.lucido = lucido;
        AzzeraArchivio();
        leggiByte(disegno(12, {}, b));
        EXPECT_EQ(VisioneGraf.lucidoCorrente, 0) << lucido;
    }
}

TEST(Nativo, ALegacyRecordIsTurnedWholeOnTheWayInOnly) {
    const Byte disco = record(tVecchio13, 7).f64(2.5, 28).i32(0x01020304, 76);
    elemento e;
    std::memcpy(&e, disco.data(), sizeof e);
    TrasformaElemBtoN(e);
    EXPECT_EQ(e.att.x1, 2.5);
    EXPECT_EQ(e.att1.conto, 0x01020304);
    TrasformaElemNtoB(e);
    const auto* byte = reinterpret_cast<const unsigned char*>(&e);
    EXPECT_EQ(byte[1], 7);   // the common field is turned
    double x = 0;
    std::memcpy(&x, byte + 28, sizeof x);
    EXPECT_EQ(x, 2.5);   // the others lie as in memory
}

struct CasoVersione {
    int versione;
    bool blocca, area, unita, attacco, mesh;
};

TEST(Nativo, EachVersionBringsWhatItAddedAndLeavesTheRest) {
    constexpr CasoVersione casi[] = {
        {5, false, false, false, false, false}, {6, false, false, false, false, false},
        {7, true, false, false, false, false},  {8, true, true, false, false, false},
        {9, true, true, true, false, false},    {10, true, true, true, false, false},
        {11, true, true, true, true, false},    {12, true, true, true, true, true},
        {13, true, true, true, true, true},
    };
    for (const CasoVersione& c : casi) {
        SCOPED_TRACE(c.versione);
        AzzeraStato();
        fogliovuoto();
        Scaladis = 1234;
        attaccoAttivo.Azzera();
        attaccoAttivo.SetModificato(1);
        Blocchi blocchi;
        const std::vector<Byte> elementi{
            record(tCerchio).f64(4, 44).i16(5, 58),
            record(tArco).f64(4, 44).i16(5, 74),
            rTesta(1, 1, 1).i16(5, 78),
            rVertice(2, 2, 1),
            record(tTesto).u8(1, 28).byte("A", 29).i16(77, 78),
            rPict(3, "abc"),
        };
        // What stands behind the blocks of its version is not looked at.
        leggiByte(disegno(c.versione, elementi, blocchi) + std::string(5, '\x7F'));
        EXPECT_TRUE(avvisi.empty());
        ASSERT_EQ(indElem, 8);
        EXPECT_EQ(VisioneGraf.lucidoCorrente, 3);
        EXPECT_EQ(VisioneGraf.bloccaAltri, c.blocca);
        EXPECT_EQ(coloriPresenti, 2);
        EXPECT_EQ(arrColori[1].penna, 9);
        EXPECT_EQ(Elem(3).cerc.patternArea, c.area ? 5 : 0);
        EXPECT_EQ(Elem(4).arco.patternArea, c.area ? 5 : 0);
        EXPECT_EQ(Elem(5).poli.patternArea, c.area ? 5 : 0);
        EXPECT_EQ(Elem(7).test.angolo, c.area ? 77 : 100);
        EXPECT_EQ(PictBytes(Elem(8).pict.maniglia), "abc");
        EXPECT_EQ(Scaladis, c.unita ? 500 : 1234);
        EXPECT_EQ(DataUltima, c.unita ? 7.5 : 0);
        EXPECT_EQ(XFDecimi, c.unita ? 8410 : 4200);
        if (c.unita) { EXPECT_EQ(rappvid, 5.0); }
        EXPECT_EQ(attaccoAttivo.GetModificato(), c.attacco);
        double x = 0, y = 0;
        attaccoAttivo.GetAttacco(2, x, y);
        EXPECT_EQ(x, c.attacco ? 1001 : 1000);
        EXPECT_EQ(meshOrigine.ny, c.mesh ? 3 : 0);
        if (c.mesh) { EXPECT_EQ(meshOrigine.x[2][0], 104.0); }
    }
}

TEST(Nativo, ACountBelowVersionEightIsSixteenBitsWithoutASign) {
    fogliovuoto(70000);
    Byte b = intestazione(7);
    b.byte(attacco1(40002, 7)).byte(attacco2());
    for (int i = 0; i < 40000; ++i) b.byte(record(tMarker).f64(i, 28));
    leggiByte(b.byte(Blocchi{}.perVersione(7)));
    EXPECT_TRUE(avvisi.empty());
    ASSERT_EQ(indElem, 40002);
    EXPECT_EQ(Elem(40002).mark.x, 39999.0);
}

TEST(Nativo, ARegisteredDrawingTakesItsScaleFromItsPoints) {
    fogliovuoto();
    Byte b = intestazione(12);
    b.byte(attacco1(2).f64(100, 28).f64(100, 36).f64(300, 52).f64(100, 60));
    b.byte(attacco2(true).f64(0, 28).f64(0, 36).f64(50, 52).f64(0, 60));
    leggiByte(b.byte(Blocchi{}.perVersione(12)));
    EXPECT_EQ(rappvid, 0.25);
    EXPECT_EQ(Scaladis, 25);
    EXPECT_EQ(XA2, 300);
}

TEST(Nativo, EscFermaLAperturaESalvaNonSostituisceIlFile) {
    fogliovuoto(60000);
    const std::vector<Byte> lati(50000, rSegmento(1, 2, 3, 4));
    const Byte file = disegno(12, lati);
    premiEsc();
    leggiByte(file);
    EXPECT_GT(indElem, 2);
    EXPECT_LT(indElem, 50002);
    EXPECT_EQ(Elem(indElem).tipo, tSegmento);
    EXPECT_FALSE(lettoIntero);
    fogliovuoto(60000);
    leggiByte(file);
    EXPECT_EQ(indElem, 50002);
    EXPECT_TRUE(lettoIntero);
}
