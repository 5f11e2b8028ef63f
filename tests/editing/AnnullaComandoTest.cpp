// The undo command round a figure in progress and a selection.
#include "editing/AnnullaComando.h"

#include "../display/Scena.h"
#include "model/Annulla.h"
#include "model/Selezione.h"

using namespace tessaro;
using namespace prova;

TEST(AnnullaComando, AFigureGoesComesBackAndDropsTheSelection) {
    const Scena s;
    segmento(1, 1, 2, 2);
    inizioAggiunta = indElem;
    const std::int32_t testa = polilinea({{10, 10}, {20, 20}, {30, 10}});
    PoniAnnulla(aAggiunta);
    AnnullaUltima();
    EXPECT_EQ(indElem, testa - 1);
    Elem(3).selezionato = 1;
    Puntosel.attiva = 1;
    AnnullaUltima();
    EXPECT_EQ(indElem, testa + 2);
    EXPECT_FALSE(Puntosel.attiva);
    EXPECT_FALSE(Elem(3).selezionato);
    AnnullaUltima();
    EXPECT_EQ(indElem, testa - 1);
}

TEST(AnnullaComando, ASegmentInProgressGoesBackToTheStartOfTheOneBefore) {
    const Scena s;
    segmento(1, 2, 11, 12, 3);
    segmento(11, 12, 40, 50, 8);
    Azione = 1;
    Xini = 40;
    Yini = 50;
    AnnullaUltima();
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(Xini, 11);
    EXPECT_EQ(Yini, 12);
    EXPECT_EQ(Zinizio, 8);
    // The kind's own action comes first: the addition goes, then the segment below it.
    inizioAggiunta = indElem;
    segmento(11, 12, 60, 60);
    PoniAnnulla(aAggiunta);
    AnnullaUltima();
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(Xini, 1);
    AnnullaUltima();   // nothing below: the reserved records stay
    EXPECT_GE(indElem, 2);
}

TEST(AnnullaComando, APolylineInProgressIsNotTakenApart) {
    const Scena s;
    polilinea({{10, 10}, {20, 20}});
    const std::int32_t ultimo = indElem;
    Azione = 1;
    Xini = 20;
    AnnullaUltima();
    EXPECT_EQ(indElem, ultimo);
    EXPECT_EQ(Xini, 20);
}
