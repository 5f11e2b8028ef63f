// When a tag wants to come out.
#include "display/palette.h"

#include "model/Vista.h"
#include "platform/Quickdraw.h"
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

TEST(Palette, TheKeywordOfALongReadingStandsAtTheFootAndLeavesThePortAsItWas) {
    const FinestraProva finestra;
    const auto scuri = [] {
        const auto& porta = dynamic_cast<const RasterPort&>(*GetPort());
        int n = 0;
        for (std::int32_t y = myViewRect.bottom + 1; y < porta.portRect.bottom; ++y)
            for (std::int32_t x = 0; x < 140; ++x) n += porta.pixel(x, y) != bianco;
        return n;
    };
    StrOperCorr = "";
    DrawOperazCorr();
    ASSERT_EQ(scuri(), 0);
    PenMode(patXor);
    PenSize(3, 3);
    StrOperCorr = "POLYLINE";
    DrawOperazCorr();
    EXPECT_GT(scuri(), 60);
    EXPECT_EQ(GetPort()->pen.pnMode, patXor);
    StrOperCorr = "";
    DrawOperazCorr();
    EXPECT_EQ(scuri(), 0);
}
