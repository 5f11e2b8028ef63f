// The properties' window when things happen between the typing and the value's arrival.
#include "shell/Proprieta.h"

#include <gtest/gtest.h>

#include "editing/Scelta.h"
#include "model/Documento.h"
#include "model/Estensioni.h"
#include "model/NomiLucidi.h"
#include "model/Selezione.h"
#include "platform/Automation.h"
#include "platform/Menus.h"
#include "shell/Archivia.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr std::int16_t vTitolo = 1, vLucido = 4, vX = 28, vLunghezza = 40, vAvviso = 80;

// An open drawing with two segments, and the window beside it.
struct Proprieta : testing::Test {
    std::int32_t a = 0, b = 0;
    void SetUp() override {
        CreateMenus();
        ASSERT_TRUE(AllocaElementi(200));
        SetUpWindow();
        a = segmento(100, 100, 400, 500);
        b = segmento(600, 600, 700, 600);
        scegli(a);
        ApriProprieta();
    }
    void TearDown() override {
        ChiudiProprieta();
        indElem = 2;   // nothing to ask about
        TuttoChiuso();
    }
    static void scegli(std::int32_t quale) {
        for (std::int32_t n = 3; n <= indElem; ++n) Elem(n).selezionato = n == quale;
        RistabilisciSelezione();
    }
    static std::string mostra(std::int16_t item) { return GetDialogItemText(proprietaDialog, item); }
};

}   // namespace

TEST_F(Proprieta, AValueThatWasMeantForAnotherElementGoesNowhere) {
    const double x = Elem(b).segm.x1;
    SetDialogItemText(proprietaDialog, vX, "5");   // typed, and on its way
    scegli(b);
    ColpoProprieta(vX);
    EXPECT_EQ(double{Elem(b).segm.x1}, x);
    EXPECT_EQ(double{Elem(a).segm.x1}, 100);
    EXPECT_NE(mostra(vX), "5");   // the window shows the other one now
    // The same when the record itself went on changing, or is gone.
    SetDialogItemText(proprietaDialog, vX, "5");
    Elem(b).segm.y1 = 650;
    ColpoProprieta(vX);
    EXPECT_EQ(double{Elem(b).segm.x1}, x);
    indElem = 3;
    RistabilisciSelezione();
    ColpoProprieta(vX);
    EXPECT_EQ(mostra(vTitolo), "Nothing is selected.");
}

TEST_F(Proprieta, ItFollowsTheSelectionAndADrawingThatCloses) {
    EXPECT_EQ(mostra(vTitolo), "Segment");
    const std::string lungo = mostra(vLunghezza);
    scegli(b);
    AggiornaProprieta(false);   // nothing happened that may have changed it: not even looked at
    EXPECT_EQ(mostra(vLunghezza), lungo);
    AggiornaProprieta(true);
    EXPECT_NE(mostra(vLunghezza), lungo);
    SelezionaTutto();
    AggiornaProprieta(true);
    EXPECT_EQ(mostra(vTitolo), "2 elements: segments 2");
    indElem = 2;
    TuttoChiuso();
    AggiornaProprieta(false);
    EXPECT_EQ(mostra(vTitolo), "No drawing is open.");
    ColpoProprieta(vX);   // a late one
    SetUpWindow();
    AggiornaProprieta(false);
    EXPECT_EQ(mostra(vTitolo), "Nothing is selected.");
}

TEST_F(Proprieta, ARefusedValueSaysWhyAndTheNextGoodOneClearsIt) {
    SetDialogItemText(proprietaDialog, vLunghezza, "-3");
    ColpoProprieta(vLunghezza);
    EXPECT_EQ(suoni, 1);
    EXPECT_NE(mostra(vAvviso), "");
    EXPECT_EQ(double{Elem(a).segm.x2}, 400);
    SetDialogItemText(proprietaDialog, vLunghezza, "30");
    ColpoProprieta(vLunghezza);
    EXPECT_EQ(mostra(vAvviso), "");
    EXPECT_NE(double{Elem(a).segm.x2}, 400);
}

TEST_F(Proprieta, LayersAreCalledByTheirNames) {
    std::string detto;
    ASSERT_TRUE(AutoDialogDescribe(proprietaDialog, vLucido, detto));
    EXPECT_EQ(detto, "\"Layer 0\"");
    PoniNomeLucido(0, "Confini");
    AggiornaProprieta(true);
    ASSERT_TRUE(AutoDialogDescribe(proprietaDialog, vLucido, detto));
    EXPECT_EQ(detto, "\"0  Confini\"");
}
