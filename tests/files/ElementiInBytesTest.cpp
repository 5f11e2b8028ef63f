// Elements as bytes for the clipboard: what goes out comes in, into a drawing with other colours; any bytes may come.
#include <gtest/gtest.h>

#include <random>

#include "files/ElementiInBytes.h"
#include "model/Colori.h"
#include "model/Estensioni.h"
#include "model/NomiLucidi.h"
#include "model/Selezione.h"
#include "support/Foglio.h"
#include "support/Invarianti.h"

using namespace tessaro;
using namespace prova;

namespace {

// A segment, a polyline of two sides, a picture; all selected.
void treCose() {
    fogliovuoto(50);
    ColoriPredefiniti();
    coloriPresenti = 7;
    Memorizza(tSegmento, 1, 2, 3, 4, 5, 6, 1, 2, 1, "");
    Memorizza(tPoligono, 10, 10, 0, 0, 0, 0, 1, 4, 1, "");
    Memorizza(tVertice, 20, 10, 0, 0, 0, 0, 1, 4, 1, "");
    Memorizza(tVertice, 20, 20, 0, 0, 0, 0, 1, 4, 1, "");
    Memorizza(tPict, 30, 30, 0, 5, 5, 0, 1, 1, 1, "");
    Elem(7).pict.maniglia = NewPict("a picture's bytes");
    for (const std::int32_t n : {3, 4, 7}) Elem(n).selezionato = 1;
    Elem(4).lucido = 12;
    RistabilisciSelezione();
}

}   // namespace

TEST(ElementiInBytes, WhatGoesOutComesInWithTheColoursOfTheOtherDrawing) {
    treCose();
    PoniNomeLucido(12, "Edifici");
    const std::string bytes = ElementiInBytes();
    AzzeraEstensioni();
    fogliovuoto(50);
    coloriPresenti = 1;   // black alone
    ASSERT_EQ(ElementiDaBytes(bytes), EsitoElementi::entrati);
    ASSERT_EQ(indElem, 7);
    EXPECT_EQ(guastoFigure(), "");
    EXPECT_EQ(Elem(3).segm.z2, 6.0);
    EXPECT_EQ(Elem(4).poli.numVertici, 2);
    EXPECT_EQ(Elem(6).vert.distanzaTesta, 2);
    EXPECT_EQ(PictBytes(Elem(7).pict.maniglia), "a picture's bytes");
    for (std::int32_t n = 3; n <= 7; ++n) EXPECT_EQ(Elem(n).selezionato, 0);
    // red and blue are new here, each once
    EXPECT_EQ(coloriPresenti, 3);
    EXPECT_EQ(Elem(3).segm.colore, 2);
    EXPECT_EQ(Elem(4).poli.colore, 3);
    EXPECT_EQ(NomeLucido(12), "Edifici");
}

TEST(ElementiInBytes, AFullDrawingTakesNoneOfThem) {
    treCose();
    const std::string bytes = ElementiInBytes();
    fogliovuoto(6);
    EXPECT_EQ(ElementiDaBytes(bytes), EsitoElementi::senzaPosto);
    EXPECT_EQ(indElem, 2);
}

TEST(ElementiInBytes, DamagedBytesLeaveADrawingThatIsWhole) {
    treCose();
    const std::string bytes = ElementiInBytes();
    std::mt19937 rng(7);
    for (int giro = 0; giro < 3000; ++giro) {
        fogliovuoto(50);
        std::string rotti = bytes;
        if (giro % 3 == 0) rotti.resize(rng() % rotti.size());
        for (auto i = rng() % 8; i > 0 && !rotti.empty(); --i) rotti[rng() % rotti.size()] = static_cast<char>(rng());
        ElementiDaBytes(rotti);
        ASSERT_LE(indElem, maxElementi);
        ASSERT_EQ(guastoFigure(true), "") << "round " << giro;
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
    }
}

TEST(NomiLucidi, AnyBytesOfTheEntryAreReadAsSomethingOrNothing) {
    fogliovuoto(10);
    PoniNomeLucido(3, "  Strade\t ");
    BloccaLucido(7, true);
    EXPECT_EQ(NomeLucido(3), "Strade");
    EXPECT_EQ(LucidoDiNome("STRADE"), 3);
    auto ordine = OrdineLucidi();
    std::swap(ordine[0], ordine[99]);
    PoniOrdineLucidi(ordine);
    const std::string buoni(Estensione(estLucidi));
    std::mt19937 rng(11);
    for (int giro = 0; giro < 2000; ++giro) {
        std::string rotti = buoni.substr(0, 1 + rng() % buoni.size());
        for (auto i = rng() % 5; i > 0; --i) rotti[rng() % rotti.size()] = static_cast<char>(rng());
        PoniEstensione(estLucidi, rotti);
        std::array<bool, quantiLucidi> visto{};
        for (const std::int16_t l : OrdineLucidi()) {
            ASSERT_TRUE(l >= 0 && l < quantiLucidi);
            ASSERT_FALSE(visto[static_cast<std::size_t>(l)]);
            visto[static_cast<std::size_t>(l)] = true;
            ASSERT_LE(NomeLucido(l).size(), maxNomeLucido);
        }
    }
    PoniEstensione(estLucidi, buoni);
    EXPECT_EQ(NomeLucido(3), "Strade");
    EXPECT_TRUE(LucidoBloccato(7));
    EXPECT_EQ(OrdineLucidi(), ordine);
}

TEST(NomiLucidi, AForeignLayerNeverLandsOnOneWithAnotherName) {
    fogliovuoto(10);
    EXPECT_EQ(AccogliLucido("Edifici", 4), 4);
    EXPECT_EQ(AccogliLucido("EDIFICI", 9), 4);
    Memorizza(tSegmento, 0, 0, 0, 1, 1, 0, 1, 1, 1, "");   // on layer 0, which has no name
    EXPECT_EQ(AccogliLucido("Strade", 4), 1);
    EXPECT_EQ(NomeLucido(1), "Strade");
    EXPECT_EQ(AccogliLucido("Acque", 0), 0);
    for (std::int16_t l = 0; l < quantiLucidi; ++l) PoniNomeLucido(l, "n" + std::to_string(l));
    EXPECT_EQ(AccogliLucido("Altro", 4), 4) << "there is no other place";
}
