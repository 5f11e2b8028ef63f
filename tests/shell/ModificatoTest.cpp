// Whether the drawing differs from its file.
#include "shell/Modificato.h"

#include <gtest/gtest.h>

#include "model/Lucidi.h"
#include "shell/Archivia.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

TEST(Modificato, OnlyWhatASaveWouldKeepCountsAndWhatIsTakenBackDoesNot) {
    ASSERT_TRUE(AllocaElementi(100));
    SetUpWindow();
    EXPECT_FALSE(DisegnoDiverso());
    segmento(1, 2, 3, 4);
    EXPECT_TRUE(DisegnoDiverso());
    SegnaSalvato();
    Elem(3).selezionato = 1;
    EXPECT_FALSE(DisegnoDiverso());
    Elem(3).segm.x1 += 10;
    EXPECT_TRUE(DisegnoDiverso());
    Elem(3).segm.x1 -= 10;
    EXPECT_FALSE(DisegnoDiverso());
    VisioneGraf.visibile[7] = 0;
    EXPECT_TRUE(DisegnoDiverso());
    VisioneGraf.visibile[7] = 1;
    SegnaDiverso();
    EXPECT_TRUE(DisegnoDiverso());
    SegnaSalvato();
    TuttoChiuso();   // without a question: no answer is there
    EXPECT_EQ(noWindow, 1);
}
