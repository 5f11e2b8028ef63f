// What comes with real coordinates alone is laid on the sheet, and stays where it is in the field.
#include "shell/Generi.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

Coppia reale(double x, double y) {
    Coppia p;
    DigiToReal(x, y, p.x, p.y);
    return p;
}

// Elements at real coordinates, by the scale of an unregistered sheet.
void elementi(double X, double Y, double misura) {
    const auto x = [](double v) { return v / rappvid; };
    const auto y = [](double v) { return YFDecimi - v / rappvid; };
    const PStr255 niente("");
    Memorizza(tSegmento, x(X), y(Y), 0, x(X + misura), y(Y + misura / 2), 5, 1, 1, 1, niente);
    Memorizza(tCerchio, x(X + misura / 2), y(Y), misura / 4 / rappvid, 0, 0, 0, 1, 1, 1, niente);
    Memorizza(tTesto, x(X), y(Y), 0, 0, 0, 0, 0, 1, 0, PStr255("M"));
    Elem(5).test.dimensione = Elem(5).test.altezza = 40;
}

TEST(Generi, CioCheStaLontanoVaSulFoglioERestaInCampo) {
    struct Caso {
        double X, Y, misura, scala;   // metres; the denominator that comes of it
    };
    for (const Caso& c : {Caso{1520000.25, 4994321.125, 100, 1000}, Caso{-3000, 20, 880, 2500}, Caso{0, 0, 300000, 1e6},
                          Caso{5e6, 5e6, 0.5, 1000}}) {
        fogliovuoto();
        Elem(2).att.coordReali = 0;
        Scaladis = 1000;
        CalcolaRapporti();
        elementi(c.X, c.Y, c.misura);
        const double raggio = Elem(4).cerc.raggio * rappvid;
        PosaSulFoglio();
        EXPECT_EQ(Elem(2).att.coordReali, 1) << c.X;
        EXPECT_NEAR(Scaladis, c.scala, 1e-6 * c.scala) << c.X;
        for (std::int32_t n = 3; n <= indElem; ++n)
            PerEstremi(n, [n](double x, double y) {
                EXPECT_TRUE(x >= 0 && x <= XFDecimi && y >= 0 && y <= YFDecimi) << n << ": " << x << ", " << y;
            });
        const Coppia inizio = reale(Elem(3).segm.x1, Elem(3).segm.y1), fine = reale(Elem(3).segm.x2, Elem(3).segm.y2);
        const double preciso = 1e-12 * (std::fabs(c.X) + std::fabs(c.Y) + c.misura);
        EXPECT_NEAR(inizio.x, c.X, preciso);
        EXPECT_NEAR(inizio.y, c.Y, preciso);
        EXPECT_NEAR(fine.x - inizio.x, c.misura, preciso);
        EXPECT_NEAR(fine.y - inizio.y, c.misura / 2, preciso);
        EXPECT_EQ(Elem(3).segm.z2, 5);
        EXPECT_NEAR(Elem(4).cerc.raggio * rappvid, raggio, preciso);
        EXPECT_EQ(Elem(5).test.dimensione, std::max(1.0, std::round(40 * 1000 / c.scala)));
    }
}

TEST(Generi, CioCheStaSulFoglioORegistratoResta) {
    fogliovuoto();
    Elem(2).att.coordReali = 0;
    Scaladis = 1000;
    CalcolaRapporti();
    elementi(100, 100, 100);
    const elemento prima = Elem(3);
    PosaSulFoglio();
    EXPECT_EQ(Elem(2).att.coordReali, 0);
    EXPECT_EQ(std::memcmp(&prima, &Elem(3), sizeof prima), 0);
    elementi(1e6, 1e6, 100);
    Elem(2).att.coordReali = 1;
    PosaSulFoglio();
    EXPECT_EQ(std::memcmp(&prima, &Elem(3), sizeof prima), 0);
}

TEST(Generi, IlSuffissoInOgniFormaDiceIlGenere) {
    EXPECT_NE(GenereDi("/a.b/PIANTA.DXF"), nullptr);
    EXPECT_TRUE(GenereDi("x.Ts3d")->diCasa);
    EXPECT_EQ(GenereDi("dxf"), nullptr);
    EXPECT_EQ(GenereDi(""), nullptr);
    for (const GenereFile& g : GeneriDiFile()) EXPECT_TRUE(g.leggi != nullptr || g.scrivi != nullptr) << g.suffisso;
}

}   // namespace
