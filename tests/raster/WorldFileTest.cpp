// A raster file beside its world file lies where the drawing has it, to a millionth of a unit.
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "files/FileMondo.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "registration/Coordinate.h"

using namespace tessaro;

namespace {

class WorldFile : public testing::Test {
protected:
    void SetUp() override {
        AzzeraStato();
        ASSERT_TRUE(AllocaElementi(10));
        AzzeraArchivio();
    }
};

TEST_F(WorldFile, everyPixelIsWhereTheRegistrationHasIt) {
    // A sheet turned and enlarged, with the coordinates of a national grid.
    auto& foglio = Elem(1).att;
    auto& reale = Elem(2).att;
    foglio.x1 = 120;
    foglio.y1 = 3000.5;
    foglio.x2 = 4100.25;
    foglio.y2 = 900;
    reale.x1 = 1785432.123;
    reale.y1 = 4994321.456;
    reale.x2 = 1786011.789;
    reale.y2 = 4994876.012;
    reale.coordReali = 1;
    CalcTransfC();
    const PostoRaster posto{250.5, 410.25, 2000, 1500, 6100, 4575};
    Mondo riletto;
    ASSERT_TRUE(LeggiMondo(TestoMondo(MondoDi(posto)), riletto));
    for (const double riga : {0.0, 1000.0, 4574.0})
        for (const double colonna : {0.0, 17.0, 6099.0}) {
            double X = 0, Y = 0, x = 0, y = 0;
            riletto.pixel(colonna, riga, X, Y);
            DigiToReal(posto.x + (colonna + 0.5) / posto.width * posto.larghezza,
                       posto.y + (riga + 0.5) / posto.height * posto.altezza, x, y);
            EXPECT_NEAR(X, x, 1e-6);
            EXPECT_NEAR(Y, y, 1e-6);
        }
}

TEST_F(WorldFile, theFormsOfTheWildAreReadAndNonsenseIsNot) {
    struct Caso {
        const char* testo;
        bool buono;
    };
    constexpr Caso casi[] = {
        {"0.5\n0\n0\n-0.5\n100\n200\n", true},
        {"5e-1\r0,0\r0\r-.5\r+1.0E2\r200", true},
        {"  0.5 \r\n\r\n0\r\n0\r\n-0.5\r\n100\r\n200\r\nmore", true},
        {"0.5\n0\n0\n-0.5\n100\n", false},
        {"0.5\n0\n0\nx\n100\n200\n", false},
        {"0.5\n0\n0\n0\n100\n200\n", false},   // pixels without area
        {"nan\n0\n0\n-0.5\n100\n200\n", false},
        {"1e308\n0\n0\n-1e308\n100\n200\n", false},
        {"", false},
    };
    for (const Caso& c : casi) {
        Mondo m;
        ASSERT_EQ(LeggiMondo(c.testo, m), c.buono) << c.testo;
        if (!c.buono) continue;
        double X = 0, Y = 0;
        m.pixel(2, 4, X, Y);
        EXPECT_DOUBLE_EQ(X, 101) << c.testo;
        EXPECT_DOUBLE_EQ(Y, 198) << c.testo;
    }
}

TEST_F(WorldFile, itIsFoundByAnyOfItsNames) {
    const auto cartella = std::filesystem::temp_directory_path() / ("tessaro-mondi-" + std::to_string(::getpid()));
    struct Caso {
        const char *immagine, *mondo;
    };
    constexpr Caso casi[] = {{"a.png", "a.pgw"},  {"b.PNG", "b.PGW"},  {"c.tiff", "c.tfw"},
                             {"d.tif", "d.tifw"}, {"e.jpeg", "e.jgw"}, {"f.jpg", "f.wld"},
                             {"g.gif", "g.gfw"},  {"h.png", ""},       {"no suffix", ""}};
    for (const Caso& c : casi) {
        std::filesystem::create_directories(cartella);
        if (*c.mondo != 0) std::ofstream(cartella / c.mondo) << "1";
        const std::string trovato = TrovaMondo((cartella / c.immagine).string());
        EXPECT_EQ(trovato, *c.mondo == 0 ? "" : (cartella / c.mondo).string()) << c.immagine;
        std::filesystem::remove_all(cartella);
    }
    EXPECT_EQ(NomeMondo("/x/plan.TIF"), "/x/plan.tfw");
    EXPECT_EQ(NomeMondo("/x/plan.pict"), "");
}

}   // namespace
