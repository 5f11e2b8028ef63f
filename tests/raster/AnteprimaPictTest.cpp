// The preview of a picture under the live transformation: half transparent where it would land, and nothing stored.
#include <gtest/gtest.h>

#include "Banco.h"
#include "display/Disegno.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "raster/AnteprimaPict.h"

using namespace prova;

namespace {

using AnteprimaPict = BancoRaster;

TEST_F(AnteprimaPict, theSelectedPictureIsLaidWhereItWouldLand) {
    const SenzaTraccia muto;
    Pixels rosso{40, 30, std::vector<std::uint32_t>(1200, 0xFFFF0000U)};
    const std::int32_t n = mettiPict(rosso, 10, 10, 40, 30);
    OrigX = OrigY = 0;
    scalavid = 1;
    RasterPort porta(400, 300, 2);
    SetPort(&porta);
    const auto a = [&porta](int x, int y) { return porta.pixel(2 * x, 2 * y); };
    attaccoAttivo.tipo = 1;
    preparaAttacco({{{10, 40}, {10, 10}, {50, 10}, {50, 40}}}, {{{100, 200}, {110, 100}, {250, 90}, {260, 220}}});
    const auto disegna = [] {
        EraseRect(Rect{0, 0, 300, 400});
        DisegnaAnteprimaPict();
    };
    disegna();
    EXPECT_EQ(a(180, 150), 0xFFFFFFFFU) << "no preview is on";
    attaccoAttivo.SetModificato(1);
    disegna();
    EXPECT_EQ(a(180, 150), 0xFFFFFFFFU) << "nothing is selected";
    seleziona(n, oPict);
    disegna();
    EXPECT_EQ(a(180, 150), 0xFFFE7F7FU) << "half of the red over the white";
    EXPECT_EQ(a(120, 190), 0xFFFE7F7FU);
    EXPECT_EQ(a(90, 150), 0xFFFFFFFFU);
    EXPECT_EQ(a(280, 150), 0xFFFFFFFFU);
    ClipRect(Rect{0, 0, 300, 150});
    EraseRect(Rect{0, 0, 300, 150});
    DisegnaAnteprimaPict();
    EXPECT_EQ(a(140, 150), 0xFFFE7F7FU) << "inside the clip";
    EXPECT_EQ(indElem, n);
    SetPort(nullptr);
}

}   // namespace
