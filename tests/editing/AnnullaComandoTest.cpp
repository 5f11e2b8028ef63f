// The undo command round a figure in progress and a selection.
#include "editing/AnnullaComando.h"

#include <tuple>
#include <vector>

#include "../display/Scena.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "support/Passi.h"
#include "text/PascalString.h"
#include "tools/Costruzione.h"

using namespace tessaro;
using namespace prova;

TEST(AnnullaComando, AFigureGoesAndComesBackAndWhatStaysKeepsItsSelection) {
    const Scena s;
    const ConGiornale g;
    segmento(1, 1, 2, 2);
    finePasso();
    const std::int32_t testa = polilinea({{10, 10}, {20, 20}, {30, 10}});
    PoniAnnulla(aAggiunta);
    finePasso();
    annulla();
    EXPECT_EQ(indElem, testa - 1);
    Elem(3).selezionato = 1;
    Puntosel = {1, 0, 1, oSegmento, 3};
    ripeti();
    EXPECT_EQ(indElem, testa + 2);
    EXPECT_EQ(Puntosel.indice, 3);
    EXPECT_TRUE(Elem(3).selezionato);
    Elem(3).selezionato = 0;
    Elem(testa).selezionato = 1;
    Puntosel = {1, 0, 1, oPoligono, testa};
    annulla();
    EXPECT_EQ(indElem, testa - 1);
    EXPECT_FALSE(Puntosel.attiva);   // what was selected is gone
    annulla();
    EXPECT_EQ(indElem, 2);
}

// Told of the undo with one level, where it took whatever was selected by then.
TEST(AnnullaComando, AMoveTakesBackWhatMovedAndNotWhatIsSelectedNow) {
    const Scena s;
    segmento(1, 1, 2, 2);
    segmento(5, 5, 6, 6);
    const ConGiornale g;
    Elem(3).segm.x1 = 100;
    PoniAnnulla(aSposta);
    finePasso();
    Elem(4).selezionato = 1;
    Puntosel = {1, 0, 1, oSegmento, 4};
    annulla();
    EXPECT_EQ(Elem(3).segm.x1, 1);
    EXPECT_EQ(Elem(4).segm.x1, 5);
    EXPECT_TRUE(Elem(4).selezionato);
    EXPECT_EQ(Puntosel.indice, 4);
    EXPECT_EQ(rettSel.xmin, 5);
}

TEST(AnnullaComando, AFigureInProgressGivesUpAPointATime) {
    struct Caso {
        std::int32_t strumento;
        std::int32_t punti;
    };
    for (const Caso& c : {Caso{1, 4}, {0, 1}, {5, 1}, {6, 2}}) {   // polyline, segment, circle, arc
        SCOPED_TRACE(c.strumento);
        const Scena s;
        const ConGiornale g;
        Modalita = mDigitazione;
        operazCorrente = c.strumento;
        marker(500, 500);
        finePasso();
        std::vector<std::tuple<std::int32_t, std::int32_t, double, double>> stati;
        const auto stato = [] { return std::tuple(Azione, indElem, Azione ? Xini : 0, Azione ? Yini : 0); };
        for (std::int32_t i = 0; i < c.punti; ++i) {
            stati.push_back(stato());
            xcurs = 100 + 10 * i;
            ycurs = 100 + 20 * (i % 2);
            tabButton = bContinua;
            MuoviElastico();
            c.strumento <= 1 ? PuntoDiLinea() : PuntoDiCurva();
            EXPECT_TRUE(finePasso());
        }
        for (std::size_t i = stati.size(); i-- > 0;) {
            annulla();
            EXPECT_EQ(stato(), stati[i]) << i;
        }
        annulla();   // and then the marker
        EXPECT_EQ(indElem, 2);
        for (std::int32_t i = 0; i < c.punti; ++i) ripeti();
        EXPECT_EQ(stato(), stati.back());
        Azione = sFermo;
        ContinuaPoligono = 0;
    }
}

TEST(AnnullaComando, WhatEndsAFigureAndStoresItsOwnIsAStepApart) {
    const Scena s;
    const ConGiornale g;
    Modalita = mDigitazione;
    operazCorrente = opPolilinea;
    for (const double x : {100, 200, 300}) {
        xcurs = x;
        tabButton = bContinua;
        MuoviElastico();
        PuntoDiLinea();
        ASSERT_TRUE(finePasso());
    }
    ASSERT_EQ(indElem, 5);
    CominciaAggiunta();
    marker(500, 500);
    PoniAnnulla(aAggiunta);
    finePasso();
    EXPECT_EQ(indElem, 6);
    annulla();
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(Azione, sFermo);
    annulla();
    EXPECT_EQ(indElem, 2);   // all its sides
    ripeti();
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(Azione, sFermo);   // finished, as it was
    EXPECT_EQ(annullamento, aAggiunta);
    ripeti();
    EXPECT_EQ(indElem, 6);
}

TEST(AnnullaComando, AFigureThatWasGivenUpLeavesNoStep) {
    const Scena s;
    const ConGiornale g;
    Modalita = mDigitazione;
    xcurs = 100;
    tabButton = bContinua;
    PuntoDiLinea();
    ASSERT_TRUE(finePasso());
    Azione = sFermo;
    finePasso();
    EXPECT_EQ(DaAnnullare(), nullptr);
}

TEST(AnnullaComando, AMeasuredPathLosesAPointAndTheDrawingNothing) {
    const Scena s;
    const ConGiornale g;
    segmento(1, 2, 11, 12);
    PoniAnnulla(aAggiunta);
    finePasso();
    static std::int32_t passi = 0;
    passi = 0;
    percorsoMisurato.indietro = [] { ++passi; };
    Azione = sPercorso;
    annulla();
    EXPECT_EQ(passi, 1);
    EXPECT_EQ(indElem, 3);
    Azione = sFermo;
    annulla();
    EXPECT_EQ(passi, 1);
    EXPECT_EQ(indElem, 2);
}

TEST(AnnullaComando, TheMenuNamesTheCommandInBothDirections) {
    const Scena s;
    CreateMenus();
    const ConGiornale g;
    AggiornaVociAnnulla();
    EXPECT_EQ(GetMenuItemText(3, voci::modifica::annulla), GetIndString(128, 6));
    EXPECT_FALSE(IsMenuItemEnabled(3, voci::modifica::ripeti));
    struct Caso {
        std::int32_t tipo;
        std::int16_t stringa;
    };
    for (const Caso& c : {Caso{aCancella, 1},
                          {aSposta, 5},
                          {aAggiunta, 7},
                          {aElemento, 4},
                          {aMeshOrigine, 9},
                          {aMeshDestinazione, 10},
                          {aScalaPict, 11}}) {
        segmento(1, 2, 11, 12);
        PoniAnnulla(c.tipo);
        finePasso();
        EXPECT_EQ(GetMenuItemText(3, voci::modifica::annulla), GetIndString(128, c.stringa)) << c.tipo;
        EXPECT_EQ(annullamento, c.tipo);
        annulla();
        EXPECT_EQ(GetMenuItemText(3, voci::modifica::ripeti), GetIndString(9170, c.stringa)) << c.tipo;
        EXPECT_TRUE(IsMenuItemEnabled(3, voci::modifica::ripeti));
        ripeti();
    }
    segmento(1, 2, 11, 12);
    NomePasso nome;
    nome.comando = "Bring to Front";
    ChiudiPasso(nome);
    AggiornaVociAnnulla();
    EXPECT_EQ(MacToUtf8(GetMenuItemText(3, voci::modifica::annulla)), "Undo “Bring to Front”");
}
