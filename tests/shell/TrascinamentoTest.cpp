// What the window takes of a drag, and what becomes of a dropped picture.
#include "shell/Trascinamento.h"

#include <gtest/gtest.h>

#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Unita.h"
#include "platform/pict/Pict.h"
#include "raster/InserisciPict.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

VociTrascinate file(const char* nome) {
    VoceTrascinata v;
    v.percorso = std::string("/somewhere/") + nome;
    return {v};
}

}   // namespace

TEST(Trascinamento, TheFirstItemTellsWhetherADropWouldBeTaken) {
    struct Caso {
        const char* nome;
        bool preso;
    };
    const Caso casi[] = {
        {"map.TS3D", true},    {"map.tc3d", true},  {".tc3d", true},
        {"a.DXF", true},       {"b.dxf.txt", true},   // a suffix anywhere in the name
        {"points.XYZ", true},  {"sheet.jpg", true}, {"old.pict", true},
        {"letter.odt", false}, {"abcd", false},     {"tc3d", false},   // four characters, whatever they are
        {"plan.Dxf", true},    {"README", false},
    };
    for (const Caso& c : casi) EXPECT_EQ(IsMyTypeAvailable(file(c.nome)), c.preso) << c.nome;
    EXPECT_TRUE(IsMyTypeAvailable({}));
    VoceTrascinata v;
    EXPECT_FALSE(IsMyTypeAvailable({v}));
    for (bool VoceTrascinata::*sapore : {&VoceTrascinata::interna, &VoceTrascinata::pict, &VoceTrascinata::testo}) {
        VoceTrascinata s;
        s.*sapore = true;
        EXPECT_TRUE(IsMyTypeAvailable({s}));
    }
    VociTrascinate due = file("letter.odt");
    due.push_back(file("map.TS3D").front());
    EXPECT_FALSE(IsMyTypeAvailable(due));   // the second does not count
}

TEST(Trascinamento, ADroppedPictureStandsAtTheCursorInItsOwnSize) {
    fogliovuoto(4);
    xcurs = 120;
    ycurs = 340;
    const std::vector<std::uint32_t> pixel(20 * 10, 0xFF336699U);
    const std::string dati = PictDaPixel(pixel.data(), 20, 10);
    MyInsertPICT(dati);
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).pict.x, 120.0);
    EXPECT_EQ(Elem(3).pict.y, 340.0);
    EXPECT_NEAR(Elem(3).pict.larghezza, 20 * DecPunto, 1e-9);
    EXPECT_NEAR(Elem(3).pict.altezza, 10 * DecPunto, 1e-9);
    EXPECT_EQ(PictBytes(Elem(3).pict.maniglia), dati);
    EXPECT_EQ(annullamento, aAggiunta);
    MyInsertPICT("no picture");
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{128});
    MyInsertPICT(std::string(512, '\0') + dati);   // with a file's header
    EXPECT_EQ(indElem, 4);
    MyInsertPICT(dati);   // no room: silent
    EXPECT_EQ(indElem, 4);
    EXPECT_EQ(numeriAvvisi().size(), 1U);
}
