// Arming a kind of undo.
#include "model/Annulla.h"

#include <gtest/gtest.h>

#include <cmath>

#include "model/Strumento.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

TEST(Annulla, AMoveKeepsTheInverseDeltas) {
    fogliovuoto();
    XDeltaSpost = 3;
    YDeltaSpost = -4;
    ZDeltaSpost = 5;
    PoniAnnulla(aSposta);
    EXPECT_EQ(XDeltaSpost, -3);
    EXPECT_EQ(YDeltaSpost, 4);
    EXPECT_EQ(ZDeltaSpost, -5);
    ZDeltaSpost = 0;
    PoniAnnulla(aSposta);
    EXPECT_FALSE(std::signbit(ZDeltaSpost));   // "-0.000" would stand in the dialog
}

TEST(Annulla, AStepIsOfTheKindArmedLastAndTheNextOneOfNone) {
    fogliovuoto();
    PoniAnnulla(aAggiunta);
    PoniAnnulla(aElemento);
    EXPECT_EQ(TipoArmato(), aElemento);
    EXPECT_EQ(TipoArmato(), aNiente);   // a command that arms nothing is not taken for the one before
}
