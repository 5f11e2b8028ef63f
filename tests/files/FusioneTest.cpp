// Merging a drawing into the open one: what is fitted, what is refused, and what a merge leaves alone.
#include "files/Disco.h"

#include <algorithm>

#include "model/Annulla.h"
#include "model/Colori.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "model/Registrazione.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

// Messages of failures. What the live transformation says of its own points at the end of a reading does not count.
std::ptrdiff_t guasti() {
    const auto visti = numeriAvvisi();
    return std::count(visti.begin(), visti.end(), std::int16_t{9101});
}

// The open drawing: one segment, control points at (0, 0) and (100, 0), registered 1:1 at choice.
void aperto(bool conPunti, bool registrato) {
    fogliovuoto(50);
    attaccoAttivo.tipo = 0;   // the live transformation asks for two points only
    segmento(7, 7, 8, 8);
    if (conPunti) {
        Elem(1).att1.x2 = XA2 = 100;
        Elem(1).att1.y1 = Elem(1).att1.y2 = YA1 = YA2 = 50;
    }
    Elem(2).att.coordReali = registrato;
    if (registrato) {
        Elem(2).att.x1 = 0;
        Elem(2).att.y1 = 0;
        Elem(2).att.x2 = 100;
        Elem(2).att.y2 = 0;
        CalcTransfC();
    }
}

// The incoming one, twice as large and turned by a quarter: its points lie at (10, 10) and (10, 210).
Byte entrante(bool conPunti, bool registrato) {
    Byte uno = attacco1(6);
    if (conPunti) uno.f64(10, 28).f64(10, 36).f64(10, 52).f64(210, 60);
    Byte due = attacco2(registrato);
    due.f64(0, 28).f64(0, 36).f64(100, 52).f64(0, 60);
    Byte b = intestazione(12);
    b.byte(uno).byte(due).byte(rSegmento(10, 10, 10, 210));
    b.byte(record(tCerchio).f64(10, 28).f64(110, 36).f64(20, 44));
    b.byte(record(tArco).f64(10, 28).f64(10, 36).f64(2, 44).f64(90, 52).f64(45, 60));
    b.byte(rPict(3, "abc"));
    return b.byte(Blocchi{}.perVersione(12)), b;
}

}   // namespace

TEST(Fusione, SheetPointsCarryTheIncomingDrawingOver) {
    aperto(true, false);
    const std::int32_t prima = indElem;
    leggiByte(entrante(true, false), 51);
    EXPECT_EQ(guasti(), 0);
    ASSERT_EQ(indElem, prima + 4);   // the reserved records are not added
    const auto& s = Elem(prima + 1).segm;
    EXPECT_NEAR(s.x1, 0, 1e-5);
    EXPECT_NEAR(s.y1, 50, 1e-5);
    EXPECT_NEAR(s.x2, 100, 1e-5);
    EXPECT_NEAR(s.y2, 50, 1e-5);
    EXPECT_NEAR(Elem(prima + 2).cerc.cx, 50, 1e-5);
    EXPECT_NEAR(Elem(prima + 2).cerc.raggio, 10, 1e-5);
    EXPECT_NEAR(Elem(prima + 3).arco.angoloInizio, 0, 1e-4);
    EXPECT_EQ(Elem(prima + 3).arco.ampiezza, 45.0);
    EXPECT_EQ(Elem(prima + 4).pict.larghezza, 300.0);   // a picture moves and keeps its size
    EXPECT_EQ(PictBytes(Elem(prima + 4).pict.maniglia), "abc");
    EXPECT_EQ(VisioneGraf.lucidoCorrente, 0);   // the open drawing's own settings stay
    EXPECT_EQ(XA2, 100);
}

TEST(Fusione, RealCoordinatesCarryItOverWhenBothAreRegistered) {
    for (const std::int16_t item : std::initializer_list<std::int16_t>{53, 32}) {
        aperto(true, true);
        const std::int32_t prima = indElem;
        leggiByte(entrante(true, true), item);
        ASSERT_EQ(indElem, prima + 4);
        EXPECT_NEAR(Elem(prima + 1).segm.x1, 0, 1e-5);
        EXPECT_NEAR(Elem(prima + 1).segm.y1, 50, 1e-5);
        EXPECT_NEAR(Elem(prima + 1).segm.x2, 100, 1e-5);
        EXPECT_NEAR(Elem(prima + 2).cerc.raggio, 10, 1e-5);
        EXPECT_EQ(VisioneGraf.lucidoCorrente, 0);
    }
}

TEST(Fusione, WithoutASimilarityTheElementsComeAsTheyAreAndTheSettingsToo) {
    struct Caso {
        std::int16_t item;
        bool puntiAperto, realeAperto, puntiEntrante, realeEntrante;
    };
    constexpr Caso casi[] = {
        {53, true, false, true, true},
        {53, true, true, true, false},
        {51, false, false, true, false},
        {51, true, false, false, false},
    };
    for (const Caso& c : casi) {
        AzzeraStato();
        aperto(c.puntiAperto, c.realeAperto);
        const std::int32_t prima = indElem;
        leggiByte(entrante(c.puntiEntrante, c.realeEntrante), c.item);
        ASSERT_EQ(indElem, prima + 4);
        EXPECT_EQ(Elem(prima + 1).segm.y2, 210.0);
        EXPECT_EQ(VisioneGraf.lucidoCorrente, 3);
    }
}

TEST(Fusione, WhatCannotBeFittedIsRefusedWhole) {
    for (const std::int16_t item : std::initializer_list<std::int16_t>{2, 52, 33, 34}) {
        AzzeraStato();
        aperto(true, false);
        const elemento primo = Elem(3);
        leggiByte(entrante(true, false), item);
        EXPECT_EQ(indElem, 3);
        EXPECT_EQ(std::memcmp(&primo, &Elem(3), sizeof primo), 0);
        EXPECT_EQ(VisioneGraf.lucidoCorrente, 0);
    }
}

TEST(Fusione, FourPointsCarryFiguresByTheirPointsAndBringTheFilesView) {
    for (const std::int16_t item : std::initializer_list<std::int16_t>{52, 33, 34}) {
        AzzeraStato();
        aperto(true, false);
        Elem(2).att.quattroPunti = 1;
        const double punti[4][2] = {{0, 1000}, {0, 0}, {2000, 0}, {2000, 1000}};
        for (std::int16_t n = 1; n <= 4; ++n) AssegnaAttacco(n, punti[n - 1][0], punti[n - 1][1]);
        Byte uno = attacco1(5), due = attacco2(false);   // a square of 100 from the origin
        uno.f64(0, 28).f64(100, 36).f64(0, 52).f64(0, 60).f64(100, 44).f64(0, 68);
        due.f64(100, 44).f64(100, 68).u8(1, 77);
        Byte b = intestazione(12);
        b.byte(uno).byte(due).byte(rSegmento(25, 25, 100, 50));
        b.byte(record(tCerchio).f64(50, 28).f64(50, 36).f64(20, 44));
        b.byte(rPict(3, "abc")).byte(Blocchi{}.perVersione(12));
        leggiByte(b, item);
        ASSERT_EQ(indElem, 6);
        EXPECT_NEAR(Elem(4).segm.x1, 500, 1e-3);
        EXPECT_NEAR(Elem(4).segm.y1, 250, 1e-3);
        EXPECT_NEAR(Elem(4).segm.x2, 2000, 1e-3);
        EXPECT_NEAR(Elem(4).segm.y2, 500, 1e-3);
        EXPECT_NEAR(Elem(5).cerc.cx, 1000, 1e-3);
        EXPECT_EQ(Elem(5).cerc.raggio, 20.0);
        EXPECT_EQ(Elem(6).pict.x, 0.0);   // by a similarity that nobody has built
        EXPECT_EQ(VisioneGraf.lucidoCorrente, 3);
        EXPECT_EQ(coloriPresenti, 2);
        EXPECT_EQ(arrColori[1].rgb, (RGBColor{40000, 2, 1}));
        EXPECT_EQ(Scaladis, 500);
        EXPECT_EQ(rappvid, 5);   // 500 over 100 tenths a unit
        EXPECT_EQ(XFDecimi, 8410);
        EXPECT_EQ(meshOrigine.nx, 2);
        EXPECT_EQ(LeggiAttacco(3).x, 2000);   // the open drawing's own control points stay
    }
}

TEST(Fusione, OnAnEmptyDrawingTheFileReplacesIt) {
    fogliovuoto(50);
    leggiByte(entrante(true, false), 51);
    EXPECT_EQ(indElem, 6);
    EXPECT_EQ(XA1, 10);
    EXPECT_EQ(Elem(3).segm.y2, 210.0);
}

TEST(Fusione, AMergeThatFailsLeavesTheOpenDrawingAsItWas) {
    const Byte intero = entrante(true, false);
    for (std::size_t n = 0; n < 19 + 6 * 84 + 7; n += 7) {
        AzzeraStato();
        aperto(true, false);
        avvisi.clear();
        const std::int64_t memoria = PictMemory();
        leggiByte(std::string_view(intero).substr(0, n), 51);
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101}) << n;
        EXPECT_EQ(indElem, 3) << n;
        EXPECT_EQ(Elem(3).segm.x1, 7.0);
        EXPECT_EQ(XA2, 100);
        EXPECT_EQ(PictMemory(), memoria);
        EXPECT_EQ(uscita, 1);
    }
}

TEST(Fusione, AFullStoreTakesNothing) {
    aperto(true, false);
    maxElementi = indElem;
    leggiByte(entrante(true, false), 51);
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(guasti(), 1);
}
