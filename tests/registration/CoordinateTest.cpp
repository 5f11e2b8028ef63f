// The chain between sheet and real coordinates: known registrations recover known points, and merges carry elements.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "support/Foglio.h"
#include "text/Conversione.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr double grado = 0.017453292519943295;

// The real point of a sheet point, by definition: turned by `angolo` and scaled about the sheet's origin after its Y
// axis is turned up, then shifted.
struct Terreno {
    double angolo, scala, x0, y0;
    [[nodiscard]] Coppia reale(Coppia s) const {
        const double c = std::cos(angolo * grado), n = std::sin(angolo * grado), u = s.x, v = -s.y;
        return {x0 + scala * (c * u - n * v), y0 + scala * (n * u + c * v)};
    }
};

void registra(Coppia s1, Coppia s2, Coppia r1, Coppia r2) {
    auto& foglio = Elem(1).att;
    auto& reali = Elem(2).att;
    foglio.x1 = s1.x;
    foglio.y1 = s1.y;
    foglio.x2 = s2.x;
    foglio.y2 = s2.y;
    reali.x1 = r1.x;
    reali.y1 = r1.y;
    reali.x2 = r2.x;
    reali.y2 = r2.y;
    reali.coordReali = 1;
    CalcTransfC();
}

constexpr Coppia punti[] = {{0, 0}, {4200, 0}, {0, 2970}, {4200, 2970}, {1234.5, 678.9}, {-300, 5000}};

}   // namespace

TEST(Coordinate, WithoutARegistrationTheSheetsLowerLeftIsTheOrigin) {
    fogliovuoto();
    rappvid = 0.25;
    double X = 9, Y = 9;
    DigiToReal(0, YFDecimi, X, Y);
    EXPECT_EQ(X, 0);
    EXPECT_EQ(Y, 0);
    double x = 400, y = 2570;
    DigiToReal(x, y, x, y);   // in place
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, 100);
    RealToDigi(x, y, x, y);
    EXPECT_EQ(x, 400);
    EXPECT_EQ(y, 2570);
}

TEST(Coordinate, ARegistrationRecoversEveryPointAndBack) {
    fogliovuoto();
    const struct {
        const char* caso;
        Terreno t;
        Coppia s1, s2;
        double tolleranza;   // of the baseline's length in real units
    } casi[] = {
        {"level", {0, 0.1, 0, 0}, {500, 2500}, {3500, 2500}, 1e-9},
        {"turned", {33, 0.1, 1000, -2000}, {500, 2500}, {3500, 2300}, 1e-9},
        {"far ground", {-17.5, 0.0254, 512345.678, 4994321.123}, {500, 2500}, {3500, 500}, 1e-9},
        {"vertical, point 1 below", {0, 2, 10, 20}, {500, 2500}, {500, 400}, 1e-9},
        {"vertical, point 1 above", {0, 2, 10, 20}, {500, 400}, {500, 2500}, 1e-9},
        {"leftward in both", {12, 1, -5, 7}, {3500, 500}, {400, 900}, 1e-9},
        // Where the two directions stand on different branches the 32-bit pi shows: 9e-8 of a radian.
        {"leftward on the ground only", {180, 0.1, 0, 0}, {500, 2500}, {3500, 2400}, 2e-7},
        {"vertical on the ground only", {90, 0.1, 0, 0}, {500, 2500}, {3500, 2500}, 2e-7},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.caso);
        registra(c.s1, c.s2, c.t.reale(c.s1), c.t.reale(c.s2));
        const double base = c.t.scala * std::hypot(c.s2.x - c.s1.x, c.s2.y - c.s1.y);
        const double esatto = std::max(base, std::hypot(c.t.x0, c.t.y0)) * c.tolleranza;
        EXPECT_NEAR(TransfCoord.ingr, c.t.scala, c.t.scala * 1e-11);
        for (const Coppia& p : punti) {
            const Coppia voluto = c.t.reale(p);
            double x = 0, y = 0;
            DigiToReal(p.x, p.y, x, y);
            EXPECT_NEAR(x, voluto.x, esatto);
            EXPECT_NEAR(y, voluto.y, esatto);
            RealToDigi(x, y, x, y);
            EXPECT_NEAR(x, p.x, 1e-5);
            EXPECT_NEAR(y, p.y, 1e-5);
        }
    }
}

TEST(Coordinate, TheReferencePointStaysAndResultsMayBeTheSource) {
    TransfRec t;
    t.rot11 = 0;
    t.rot12 = -1;
    t.rot21 = 1;
    t.rot22 = 0;
    t.ingr = 3;
    t.x1 = 100;
    t.y1 = 50;
    double x = 100, y = 50;
    Tracoord(t, x, y, x, y);
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, 50);
    x = 110;
    y = 50;
    Tracoord(t, x, y, y, x);   // even crossed over
    EXPECT_EQ(y, 100);
    EXPECT_EQ(x, 80);
}

TEST(Coordinate, DirectionsCarryThe32BitPi) {
    const double pi32 = 3.1415927410125732;
    EXPECT_EQ(CoordAng(0, 0, 5, 0), 0);
    EXPECT_EQ(CoordAng(5, 0, 0, 0), pi32);
    EXPECT_EQ(CoordAng(3, 1, 3, 9), pi32 / 2);
    EXPECT_EQ(CoordAng(3, 9, 3, 1), -pi32 / 2);
    EXPECT_EQ(CoordAng(3, 9, 3, 9), 0);
    EXPECT_EQ(CoordAng(0, 0, 2, 2), std::atan(1.0));
    EXPECT_EQ(CoordAng(2, 2, 0, 0), std::atan(1.0) + pi32);
}

TEST(Coordinate, CoincidentControlPointsEndInNoNumberAndNoCrash) {
    fogliovuoto();
    registra({500, 500}, {500, 500}, {0, 0}, {100, 0});
    EXPECT_TRUE(std::isinf(TransfCoord.ingr));
    double x = 0, y = 0;
    DigiToReal(600, 700, x, y);
    EXPECT_FALSE(std::isfinite(x));
    DigiToReal(500, 500, x, y);
    EXPECT_TRUE(std::isnan(x));
}

TEST(Coordinate, AMergeCarriesEachKindByItsPoints) {
    fogliovuoto();
    // A quarter turn (clockwise on the sheet), twice the size: (100, 100) goes to (1000, 500).
    TransfRec t;
    CalcTransfFogli(t, {100, 100}, {300, 100}, {1000, 500}, {1000, 900});
    const auto atteso = [](double x, double y) { return Coppia{1000 - 2 * (y - 100), 500 + 2 * (x - 100)}; };
    const auto vicino = [&](double x, double y, double daX, double daY) {
        const Coppia p = atteso(daX, daY);
        EXPECT_NEAR(x, p.x, 1e-3);
        EXPECT_NEAR(y, p.y, 1e-3);
    };
    EXPECT_NEAR(t.ingr, 2, 1e-12);

    const auto s = segmento(100, 100, 300, 150, 7, 8), m = marker(10, 20, 3), c = cerchio(200, 100, 40),
               a = arco(200, 300, 50, 30, 120), p = polilinea({{1, 2}, {3, 4}}), w = testo(60, 70, "abc"),
               i = immagine(5, 6, 300, 200, "dati");
    const elemento primaSegm = Elem(s), primaImm = Elem(i);
    for (std::int32_t n = 3; n <= indElem; ++n) TrasformaElemento(Elem(n), t);

    vicino(Elem(s).segm.x1, Elem(s).segm.y1, 100, 100);
    vicino(Elem(s).segm.x2, Elem(s).segm.y2, 300, 150);
    EXPECT_EQ(Elem(s).segm.z1, 7.0);
    EXPECT_EQ(Elem(s).segm.z2, 8.0);
    EXPECT_EQ(std::memcmp(&Elem(s), &primaSegm, 28), 0);
    vicino(Elem(m).mark.x, Elem(m).mark.y, 10, 20);
    EXPECT_EQ(Elem(m).mark.z, 3.0);
    vicino(Elem(p).poli.x, Elem(p).poli.y, 1, 2);
    vicino(Elem(p + 1).vert.x, Elem(p + 1).vert.y, 3, 4);
    vicino(Elem(w).test.x, Elem(w).test.y, 60, 70);
    EXPECT_EQ(Elem(w).test.angolo, 100);
    vicino(Elem(i).pict.x, Elem(i).pict.y, 5, 6);
    EXPECT_EQ(
        std::memcmp(reinterpret_cast<const char*>(&Elem(i)) + 44, reinterpret_cast<const char*>(&primaImm) + 44, 20),
        0);
    vicino(Elem(c).cerc.cx, Elem(c).cerc.cy, 200, 100);
    EXPECT_NEAR(Elem(c).cerc.raggio, 80, 1e-9);
    vicino(Elem(a).arco.cx, Elem(a).arco.cy, 200, 300);
    EXPECT_NEAR(Elem(a).arco.raggio, 100, 1e-9);
    EXPECT_NEAR(Elem(a).arco.angoloInizio, 120, 1e-9);
    EXPECT_EQ(Elem(a).arco.ampiezza, 120.0);
}
