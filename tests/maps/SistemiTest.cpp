// Reference systems: the drawing's entry, published points, the second read-out; and circles that were drawn by sides.
#include <gtest/gtest.h>

#include <algorithm>

#include "maps/Curve.h"
#include "maps/Proj.h"
#include "maps/SistemaRiferimento.h"
#include "model/Estensioni.h"
#include "platform/Resources.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

TEST(Sistemi, AnEntryOfAnyBytesIsReadOrIsNone) {
    fogliovuoto();
    AzzeraEstensioni();
    ASSERT_TRUE(PoniSistemi({"EPSG:3003", "EPSG:4326", ""}));
    const std::string buona(Estensione(estRiferimento));
    for (std::size_t n = 1; n < buona.size(); ++n) {
        PoniEstensione(estRiferimento, buona.substr(0, n));
        EXPECT_EQ(SistemaDelDisegno(), "") << n;
    }
    std::string lunga = buona;
    lunga[1] = lunga[2] = lunga[3] = lunga[4] = static_cast<char>(0xFF);   // a length beyond the end
    PoniEstensione(estRiferimento, lunga);
    EXPECT_EQ(SistemaDelDisegno(), "");
    PoniEstensione(estRiferimento, buona + "of a later version");
    EXPECT_EQ(SistemiDelDisegno().secondo, "EPSG:4326");
    ASSERT_TRUE(PoniSistemi({}));
    EXPECT_EQ(Estensione(estRiferimento), "") << "a drawing that names nothing has no entry";
}

// Guidance note 7-2 of the EPSG dataset prints these with two decimals.
TEST(Sistemi, PublishedPointsAreReproduced) {
    if (CaricaProj() == nullptr) GTEST_SKIP() << "PROJ is not installed";
    const struct {
        const char *da, *a;
        double lon, lat, E, N;
    } punti[] = {
        {"EPSG:4277", "EPSG:27700", 0.5, 50.5, 577274.99, 69740.50},       // Transverse Mercator
        {"EPSG:4267", "EPSG:32040", -96.0, 28.5, 2963503.91, 254759.80},   // Lambert, US feet
        {"EPSG:4289", "EPSG:28992", 6.0, 53.0, 196105.283, 557057.739},    // oblique stereographic
    };
    for (const auto& p : punti) {
        FraSistemi via;
        std::string motivo;
        double x = p.lon, y = p.lat;
        ASSERT_TRUE(via.prepara(p.da, p.a, motivo)) << p.a << motivo;
        ASSERT_TRUE(via.avanti(x, y));
        EXPECT_NEAR(x, p.E, 0.01) << p.a;
        EXPECT_NEAR(y, p.N, 0.01) << p.a;
        puntot q{x, y, 0};
        ASSERT_TRUE(via.indietro(&q, 1));
        EXPECT_NEAR(q.x, p.lon, 1e-9);
        EXPECT_NEAR(q.y, p.lat, 1e-9);
    }
    FraSistemi via;
    std::string motivo;
    EXPECT_FALSE(via.prepara("EPSG:3003", "no such system", motivo));
    EXPECT_NE(motivo.find("no such system"), std::string::npos);
    double x = 1e300, y = 0;
    ASSERT_TRUE(via.prepara("EPSG:4326", "EPSG:32632", motivo));
    EXPECT_FALSE(via.avanti(x, y));
}

TEST(Sistemi, NamesCodesAndTheSecondReadOut) {
    if (CaricaProj() == nullptr) GTEST_SKIP() << "PROJ is not installed";
    fogliovuoto();
    AzzeraEstensioni();
    SistemaTrovato s;
    for (const char* const testo : {"3003", " EPSG:3003 ", "Monte Mario / Italy zone 1"}) {
        ASSERT_TRUE(TrovaSistema(testo, s)) << testo;
        EXPECT_EQ(s.codice, "EPSG:3003") << testo;
    }
    EXPECT_FALSE(TrovaSistema("EPSG:5714", s)) << "heights alone";
    EXPECT_FALSE(TrovaSistema("", s));
    EXPECT_TRUE(StessoSistema("EPSG:4326", "OGC:CRS84")) << "but for the order of axes";
    EXPECT_FALSE(StessoSistema("EPSG:3003", "EPSG:3004"));
    EXPECT_EQ(FusoUTM(7.5, 45), "EPSG:32632");
    EXPECT_EQ(FusoUTM(-180, -10), "EPSG:32701");
    EXPECT_EQ(FusoUTM(180, 10), "EPSG:32660");
    EXPECT_EQ(LetturaSecondoSistema(1, 1), "");
    ASSERT_TRUE(PoniSistemi({"EPSG:32632", "EPSG:4326", ""}));
    EXPECT_EQ(TestoSistema(), "EPSG:32632 WGS 84 / UTM zone 32N");
    EXPECT_EQ(MacToUtf8(LetturaSecondoSistema(500000, 0)), "0\xC2\xB0"
                                                           "00'00.0000\" N  9\xC2\xB0"
                                                           "00'00.0000\" E");
    ASSERT_TRUE(PoniSistemi({"EPSG:32632", "EPSG:32633", ""}));
    EXPECT_EQ(LetturaSecondoSistema(500000, 0), "EPSG:32633  E -168881.689  N 0.000");
    EXPECT_EQ(LetturaSecondoSistema(1e300, 0), "");
}

TEST(Curve, CirclesAndArcsAreKnownAgainByTheirCorners) {
    fogliovuoto();
    for (const double r : {0.2, 30.0, 5000.0}) {
        std::vector<puntot> p = CurvaInPunti(Elem(cerchio(700, 800, r)));
        Cerchio c;
        ASSERT_TRUE(CerchioPer(p, c));
        EXPECT_NEAR(c.x, 700, 1e-9 * r + 1e-9);
        EXPECT_NEAR(c.y, 800, 1e-9 * r + 1e-9);
        EXPECT_NEAR(c.r, r, 1e-9 * r);
        p[3].x += 1e-3 * r;   // somebody moved a corner: a ring like any other
        EXPECT_FALSE(CerchioPer(p, c));
        for (const double ampiezza : {15.0, 90.0, 200.0, 350.0}) {
            std::vector<puntot> q = CurvaInPunti(Elem(arco(700, 800, r, 300, ampiezza)));
            for (int verso = 0; verso < 2; ++verso, std::reverse(q.begin(), q.end())) {
                double da = 0, quanto = 0;
                ASSERT_TRUE(CerchioPer(q, c));
                ArcoPer(q, c, da, quanto);
                EXPECT_NEAR(da, 300, 1e-6);
                EXPECT_NEAR(quanto, ampiezza, 1e-6);
            }
        }
    }
}
