// The undo command round a figure in progress and a selection.
#include "editing/AnnullaComando.h"

#include "../display/Scena.h"
#include "editing/Cancella.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "tools/Costruzione.h"

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
    Azione = sPrimoPunto;
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
    Azione = sPrimoPunto;
    Xini = 20;
    AnnullaUltima();
    EXPECT_EQ(indElem, ultimo);
    EXPECT_EQ(Xini, 20);
}

TEST(AnnullaComando, AMeasuredPathLosesAPointBehindTheKindsOwnAction) {
    const Scena s;
    segmento(1, 2, 11, 12);
    PoniAnnulla(aAggiunta);
    static std::int32_t visti = 0, passi = 0;
    visti = passi = 0;
    percorsoMisurato.indietro = [] {
        visti = indElem;
        ++passi;
    };
    AnnullaUltima();
    EXPECT_EQ(passi, 0);
    Azione = sPercorso;
    AnnullaUltima();
    EXPECT_EQ(passi, 1);
    EXPECT_EQ(visti, indElem);
    Azione = sFermo;
}

TEST(AnnullaComando, TheMenuSaysWhatComesBack) {
    const Scena s;
    CreateMenus();
    const auto dice = [](std::int16_t stringa) { return GetMenuItemText(3, 1) == GetIndString(128, stringa); };
    struct Caso {
        std::int32_t tipo;
        std::int16_t stringa;
    };
    for (const Caso& c : {Caso{aNiente, 6},
                          {aCancella, 1},
                          {2, 2},
                          {3, 3},
                          {4, 4},
                          {aSposta, 5},
                          {aAggiunta, 7},
                          {aElemento, 4},
                          {aMeshOrigine, 9},
                          {aMeshDestinazione, 10},
                          {aScalaPict, 11}}) {
        PoniAnnulla(c.tipo);
        EXPECT_TRUE(dice(c.stringa)) << c.tipo;
    }
    PoniAnnulla(aNiente);
    segmento(1, 2, 11, 12);
    SelezionaTutto();
    Puntosel.oggetto = oSegmento;
    Puntosel.indice = 3;
    CancellaSelezione();
    EXPECT_TRUE(dice(1));
    AnnullaUltima();
    EXPECT_TRUE(dice(8));   // not "addition": it puts the deletion back
    AnnullaUltima();
    EXPECT_TRUE(dice(1));
    segmento(1, 2, 11, 12);   // takes the offer off, but leaves the menu to who ends the figure
    EXPECT_EQ(annullamento, aNiente);
    EXPECT_TRUE(dice(1));
}
