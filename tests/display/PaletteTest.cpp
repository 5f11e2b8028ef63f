// When a tag wants to come out.
#include "display/palette.h"

#include "Scena.h"

using namespace tessaro;
using namespace prova;

TEST(Palette, ATagComesOutAfterAHundredTicksOfRestAndIsNotAskedForInBetween) {
    const FinestraProva finestra;
    const Point cella{40, 10}, altra{80, 10}, disegno{200, 300};
    const Point riga{myViewRect.bottom + 5, 200};
    EXPECT_EQ(HelpTagControl(disegno, 0, 1), -1);
    EXPECT_EQ(HelpTagControl(cella, 10, 1), 101);
    EXPECT_EQ(HelpTagControl(cella, 110, 1), 1);
    EXPECT_EQ(HelpTagControl(cella, 111, 1), -1);            // out now
    EXPECT_EQ(HelpTagControl(Point{45, 12}, 500, 1), -1);    // still the same cell
    EXPECT_EQ(HelpTagControl(altra, 501, 1), 101);           // another cell starts to count again
    EXPECT_EQ(HelpTagControl(Point{81, 10}, 560, 1), 101);   // so does any motion
    EXPECT_EQ(HelpTagControl(riga, 600, 1), 101);
    EXPECT_EQ(HelpTagControl(riga, 600, 0), -1);
    EXPECT_EQ(HelpTagControl(Point{417, 10}, 700, 1), -1);   // below the last cell
}
