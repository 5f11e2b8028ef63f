// The coordinate line's text, and when it is worked out at all.
#include "display/Lettura.h"

#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "Scena.h"

using namespace tessaro;
using namespace prova;

TEST(Lettura, ShowsRealPlaceElevationDistanceAndAngleInTheirColumns) {
    const Scena s;
    noWindow = 0;   // a drawing is open, without a window to show the line in
    Modalita = mDigitazione;
    rappvid = 0.1;
    lastX = 100;
    lastY = 2970;
    xcurs = 100;
    ycurs = 2970 - 50;   // five units to the north of the last point
    ZetaCorrente = 12.345;
    SetDrawCoordCorr();
    EXPECT_EQ(lineaCoordinate.str(), "X:     10.00  Y:      5.00  Z:  12.35  D:    5.00  A:   0.00");
    EXPECT_EQ(YVisualPrec, 5.0);

    // Nothing of X, Y, Z moved: the line stays, unless it is asked for always.
    lastX = 0;
    SetDrawCoordCorr();
    EXPECT_EQ(lineaCoordinate.str().substr(41), "    5.00  A:   0.00");
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
    EXPECT_NE(lineaCoordinate.str().substr(41), "    5.00  A:   0.00");

    // In the selecting mode the cursor does not count.
    scriviSempreCoord = 0;
    Modalita = mSelezione;
    xcurs = 300;
    const std::string prima = lineaCoordinate.str();
    SetDrawCoordCorr();
    EXPECT_EQ(lineaCoordinate.str(), prima);
    noWindow = 1;
}
