// What comes in lies in the sheet when the person wants it there, and is to be seen.
#include "shell/Arrivo.h"

#include <gtest/gtest.h>

#include <cmath>

#include "../display/Scena.h"
#include "editing/BloccoImmagini.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "registration/Coordinate.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

void foto(double x, double y, double larga, double alta) {
    elemento e{};
    e.tipo = tPict;
    e.pict.x = x;
    e.pict.y = y;
    e.pict.larghezza = larga;
    e.pict.altezza = alta;
    Elem(++indElem) = e;
}

bool inVista(double x, double y) {
    return PtInRect({static_cast<std::int32_t>(YVidD(y)), static_cast<std::int32_t>(XVidD(x))}, myViewRect);
}

}   // namespace

TEST(Arrivo, ThingsFarFromTheSheetKeepTheirCoordinatesAndComeIntoIt) {
    for (const std::int16_t bottone : {std::int16_t{1}, std::int16_t{2}}) {
        SCOPED_TRACE(bottone);
        const FinestraProva finestra;
        FinestraProva::vedi(0.2, 0, 0);
        avvisi.clear();
        bottoni[9401] = bottone;
        constexpr double reali[][2] = {{1523400.25, 4994321.123}, {1523900.5, 4994800}};
        {
            const Arrivo arrivo;
            for (const auto& r : reali) {
                double x = 0, y = 0;
                RealToDigi(r[0], r[1], x, y);
                marker(x, y);
            }
        }
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9401});
        EXPECT_EQ(Elem(2).att.coordReali != 0, bottone == 2);
        for (int i = 0; i < 2; ++i) {
            const auto& m = Elem(3 + i).mark;
            double X = 0, Y = 0;
            DigiToReal(m.x, m.y, X, Y);
            EXPECT_NEAR(X, reali[i][0], 1e-4);
            EXPECT_NEAR(Y, reali[i][1], 1e-4);
            EXPECT_TRUE(inVista(m.x, m.y));
            const bool nelFoglio = m.x >= 0 && m.x <= XFDecimi && m.y >= 0 && m.y <= YFDecimi;
            EXPECT_EQ(nelFoglio, bottone == 2);
        }
        if (bottone == 2) { EXPECT_NEAR(ScalaRotonda(Scaladis * (1 - 1e-9)), Scaladis, 1e-6); }
    }
}

TEST(Arrivo, ADrawingThatHasSomethingIsAskedNothingAndTheViewGoesThere) {
    const FinestraProva finestra;
    FinestraProva::vedi(0.2, 0, 0);
    marker(100, 100);
    {
        const Arrivo arrivo;
        marker(90000, 90000);
    }
    EXPECT_TRUE(avvisi.empty());
    EXPECT_TRUE(inVista(90000, 90000));
    const double scala = scalavid;
    {
        const Arrivo arrivo;   // what is to be seen already moves nothing
        marker(90001, 90001);
    }
    EXPECT_EQ(scalavid, scala);
}

TEST(Arrivo, APictureLiesInTheSheetWhichMayGrow) {
    struct Caso {
        double x, y, larga, alta;
        std::int16_t bottone;
        double dovex, dovey;
        std::int16_t foglio;
        bool chiesto;
    };
    for (const Caso& c :
         {Caso{1000, 1000, 800, 600, 1, 1000, 1000, 4200, false},
          Caso{4000, 2900, 800, 600, 1, 3400, 2370, 4200, false}, Caso{1000, 1000, 5000, 600, 1, 0, 1000, 4200, true},
          Caso{1000, 1000, 5000, 600, 2, 0, 1000, 5000, true}, Caso{1000, 1000, 50000, 600, 2, 0, 1000, 4200, false}}) {
        SCOPED_TRACE(c.larga);
        AzzeraStato();
        const FinestraProva finestra;
        FinestraProva::vedi(0.2, 0, 0);
        avvisi.clear();
        bottoni[9400] = c.bottone;
        {
            const Arrivo arrivo;
            foto(c.x, c.y, c.larga, c.alta);
        }
        EXPECT_EQ(Elem(3).pict.x, c.dovex);
        EXPECT_EQ(Elem(3).pict.y, c.dovey);
        EXPECT_EQ(XFDecimi, c.foglio);
        EXPECT_EQ(Xfoglio * 100, c.foglio);
        EXPECT_EQ(!avvisi.empty(), c.chiesto);
        // It can be picked until the first drawing tool is taken.
        EXPECT_EQ(immaginiBloccate, 0);
        ScansioneInUso();
        EXPECT_EQ(immaginiBloccate, 1);
    }
}

TEST(Arrivo, RoundScales) {
    const double casi[][2] = {{1, 1},        {1.01, 1.5}, {1900, 2000}, {2000, 2000}, {2000.0001, 2500},
                              {7600, 10000}, {0.03, 0.04}};
    for (const auto& c : casi) EXPECT_NEAR(ScalaRotonda(c[0]), c[1], 1e-9 * c[1]);
}
