// Mappings by many points against published tables, against GDAL on the same points, and against geometry of their own.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "registration/MoltiPunti.h"

using namespace tessaro;

namespace {

constexpr double piGreco = 3.14159265358979323846;

// Tables give Y upwards on both sides; a sheet's runs down.
PuntoNoto noto(double x, double y, double X, double Y) { return {{x, -y}, {X, Y}}; }

SoluzionePunti risolto(std::span<const PuntoNoto> punti, Metodo m) {
    SoluzionePunti s;
    const EsitoPunti e = RisolviPunti(punti, m, s);
    EXPECT_EQ(e.rifiuto, Rifiuto::nessuno);
    return s;
}

void vicini(const Coppia& a, double x, double y, double tolleranza) {
    EXPECT_NEAR(a.x, x, tolleranza);
    EXPECT_NEAR(a.y, y, tolleranza);
}

double gradiDi(double radianti) { return radianti * 180 / piGreco; }

// Fourteen points of a sheet that has shrunk unevenly.
const std::vector<PuntoNoto> quattordici = {
    {{412.3, 388.1}, {1655012.417, 4979821.902}},   {{2650.8, 401.7}, {1655236.204, 4979820.871}},
    {{4893.5, 377.4}, {1655460.611, 4979823.377}},  {{7101.2, 420.9}, {1655681.095, 4979818.950}},
    {{431.6, 2288.4}, {1655014.300, 4979631.768}},  {{2671.4, 2310.2}, {1655238.402, 4979629.871}},
    {{4880.1, 2295.5}, {1655459.218, 4979631.102}}, {{7122.7, 2270.3}, {1655683.344, 4979633.905}},
    {{398.8, 4195.2}, {1655011.115, 4979441.006}},  {{2633.0, 4211.7}, {1655234.498, 4979439.671}},
    {{4911.9, 4188.3}, {1655462.404, 4979441.830}}, {{7088.4, 4230.6}, {1655680.007, 4979437.615}},
    {{1520.2, 1333.3}, {1655123.240, 4979727.311}}, {{5999.9, 3260.7}, {1655571.190, 4979534.520}}};

}   // namespace

// C. D. Ghilani, Adjustment Computations, example 18.1: three points, two degrees of freedom.
TEST(MoltiPunti, TheTextbooksConformalTransformationComesOutToItsDigits) {
    const PuntoNoto punti[] = {noto(121.622, -128.066, 1049422.40, 51089.20),
                               noto(141.228, 187.718, 1049413.95, 49659.30),
                               noto(175.802, 135.728, 1049244.95, 49884.95)};
    const SoluzionePunti s = risolto(punti, Metodo::helmert);
    const ParametriMappa p = ParametriDi(s.mappa, {0, 0});
    EXPECT_NEAR(p.scala * std::cos(p.rotazione), -4.51249, 5e-6);
    EXPECT_NEAR(p.scala * std::sin(p.rotazione), -0.25371, 5e-6);
    vicini(p.origine, 1050003.715, 50542.131, 5e-4);
    EXPECT_EQ(s.gradi, 2);
    vicini(s.mappa({174.148, 120.262}), 1049187.361, 51040.629, 5e-4);
    vicini(s.mappa({513.520, 192.130}), 1047637.713, 51278.829, 5e-4);
    vicini(s.mappa({754.444, 67.706}), 1046582.113, 50656.241, 5e-4);
    vicini(s.mappa({972.788, -120.994}), 1045644.713, 49749.336, 5e-4);
}

// The sample of Geo-Linux-Calculations' geofindkey: northings first, so its turn runs the other way. Its printed differences
// are given less computed.
TEST(MoltiPunti, TheLocalGridsKeyComesOutToItsDigits) {
    const PuntoNoto punti[] = {noto(1334.71, 285.94, 83477.64, 47377.60), noto(563.67, -5197.34, 82557.14, 41916.51),
                               noto(4444.27, 1153.79, 86610.19, 48160.39), noto(-252.07, 2881.90, 81962.05, 50016.34)};
    const SoluzionePunti s = risolto(punti, Metodo::helmert);
    const ParametriMappa p = ParametriDi(s.mappa, {0, 0});
    EXPECT_NEAR(p.scala, 1.000160369835, 5e-13);
    EXPECT_NEAR(gradiDi(p.rotazione), -1.5635324426, 5e-11);
    vicini(p.origine, 82135.4073, 47128.1437, 5e-5);
    const double stampati[][2] = {{0.0024, 0.0008}, {0.0165, -0.0132}, {-0.0318, -0.0160}, {0.0129, 0.0283}};
    for (std::size_t i = 0; i < 4; ++i)
        vicini({-s.punti[i].residuo.x, -s.punti[i].residuo.y}, stampati[i][0], stampati[i][1], 5.1e-5);
}

// A village of the Greek cadastre, twelve points from the Hatt sheet's projection (brought over by PROJ to the grid of TM3)
// to their coordinates in it; results as the project hatt2tm3 keeps them: similarity to a thousandth of ppm and a
// ten-thousandth of a second, affinity likewise.
TEST(MoltiPunti, ACadastresSimilarityAndAffinityComeOutToTheirDigits) {
    const PuntoNoto punti[] = {{{159887.728977480, -736739.272841084}, {159888.702, 736744.476}},
                               {{159973.083192723, -736606.335138438}, {159973.964, 736611.664}},
                               {{159780.941398870, -736621.057048697}, {159781.925, 736626.378}},
                               {{160311.578310663, -736400.667464076}, {160312.523, 736406.113}},
                               {{159826.660870942, -736453.434415104}, {159827.647, 736458.800}},
                               {{160186.458009726, -736387.228396864}, {160187.401, 736392.744}},
                               {{159869.284249220, -736718.558587391}, {159870.290, 736723.760}},
                               {{160260.766712680, -736227.649058947}, {160261.670, 736233.160}},
                               {{160042.310150714, -736203.938085921}, {160043.120, 736209.400}},
                               {{160103.481801438, -736447.478785160}, {160104.330, 736452.960}},
                               {{160485.813747485, -736308.242457187}, {160486.760, 736313.740}},
                               {{160016.507272930, -736423.945271465}, {160017.500, 736429.370}}};
    const ParametriMappa p = ParametriDi(risolto(punti, Metodo::helmert).mappa, {0, 0});
    EXPECT_NEAR((1 - p.scala) * 1e6, 282.301, 0.001);
    EXPECT_NEAR(std::fabs(gradiDi(p.rotazione)) * 3600, 32.62638, 0.0001);
    vicini(p.origine, 162.5810, 187.9988, 0.001);
    const ParametriMappa a = ParametriDi(risolto(punti, Metodo::affine).mappa, {0, 0});
    EXPECT_NEAR((1 - a.scalaX) * 1e6, -34.448, 0.001);
    EXPECT_NEAR((1 - a.scalaY) * 1e6, 468.542, 0.001);
    vicini(a.origine, -162.072, 329.616, 0.001);
}

// What gdaltransform 3.6.2 prints for these points with -order 1, 2, 3 and -tps.
TEST(MoltiPunti, PolynomialsAndThinPlateAreGdals) {
    struct Atteso {
        Metodo metodo;
        Coppia a, b, c, d;
    };
    const Atteso attesi[] = {{Metodo::affine,
                              {1655071.1912409, 4979760.80144532},
                              {1655348.89957575, 4979638.53705508},
                              {1655621.17021971, 4979450.71850146},
                              {1655721.08674592, 4979846.06535305}},
                             {Metodo::secondo,
                              {1655071.19184439, 4979760.72968938},
                              {1655348.95165507, 4979638.54838256},
                              {1655621.17506807, 4979450.67166216},
                              {1655720.98401711, 4979846.14876361}},
                             {Metodo::terzo,
                              {1655071.19281043, 4979760.69866142},
                              {1655348.95809522, 4979638.53467453},
                              {1655621.19144153, 4979450.63642569},
                              {1655720.85030472, 4979846.3467505}},
                             {Metodo::lastra,
                              {1655071.19791506, 4979760.64080646},
                              {1655348.96740605, 4979638.57720317},
                              {1655621.19318634, 4979450.62187179},
                              {1655720.92443784, 4979846.08980034}}};
    for (const Atteso& a : attesi) {
        const MappaPunti m = risolto(quattordici, a.metodo).mappa;
        vicini(m({1000, 1000}), a.a.x, a.a.y, 1e-6);
        vicini(m({3777.25, 2222.5}), a.b.x, a.b.y, 1e-6);
        vicini(m({6500, 4100}), a.c.x, a.c.y, 1e-6);
        vicini(m({7500, 150}), a.d.x, a.d.y, 1e-6);
    }
}

// Four points define a perspective; more of an exact one change nothing, and its least squares are least.
TEST(MoltiPunti, APerspectiveIsFoundAgain) {
    const auto camera = [](double x, double y) {
        const double D = 1 + 3e-5 * x - 2e-5 * y;
        return Coppia{(0.4 * x - 0.1 * y + 300) / D, (0.05 * x - 0.45 * y + 9000) / D};
    };
    std::vector<PuntoNoto> punti;
    for (const double x : {0.0, 3000.0, 8000.0})
        for (const double y : {100.0, 4000.0, 6000.0}) punti.push_back({{x, y}, camera(x, y)});
    for (const std::size_t quanti : {std::size_t{9}, std::size_t{5}}) {
        const auto alcuni = std::span(punti).last(quanti);
        const SoluzionePunti s = risolto(alcuni, Metodo::proiettivo);
        EXPECT_EQ(s.gradi, 2 * static_cast<int>(quanti) - 8);
        vicini(s.mappa({5000, 2500}), camera(5000, 2500).x, camera(5000, 2500).y, 1e-7);
    }
    punti[4].reale.x += 2;
    const SoluzionePunti s = risolto(punti, Metodo::proiettivo);
    // The residuals' gradient vanishes: no small change of a point's mapping lowers the sum.
    double momento = 0;
    for (std::size_t i = 0; i < punti.size(); ++i) momento += s.punti[i].residuo.x;
    EXPECT_NEAR(s.sommaQuadrati, s.errore * s.errore * s.gradi, 1e-9);
    EXPECT_LT(s.sommaQuadrati, 4);
    EXPECT_LT(std::fabs(momento), 0.5);
}

TEST(MoltiPunti, EveryMappingIsTurnedRoundToABillionthOfTheSheet) {
    std::mt19937 sorte(4);
    std::uniform_real_distribution<double> dove(0, 8000);
    std::vector<PuntoNoto> punti;
    for (int i = 0; i < 40; ++i) {
        const double x = dove(sorte), y = dove(sorte);
        punti.push_back({{x, y}, {0.2 * x + 6 * std::sin(x / 2500), 900 - 0.2 * y + 5 * std::cos((x + y) / 3000)}});
    }
    for (std::uint8_t m = 0; m < numMetodi; ++m) {
        const MappaPunti mappa = risolto(punti, static_cast<Metodo>(m)).mappa;
        for (int i = 0; i < 200; ++i) {
            const Coppia p{dove(sorte), dove(sorte)};
            Coppia q;
            ASSERT_TRUE(mappa.Inversa(mappa(p), q));
            ASSERT_NEAR(std::hypot(q.x - p.x, q.y - p.y), 0, 8000 * 1e-9) << "method " << int(m);
        }
    }
}

// Leaving a point out by formula and in earnest is one.
TEST(MoltiPunti, ResidualsWithoutAPointAreThoseOfASolutionWithoutIt) {
    for (std::uint8_t m = 0; m < numMetodi; ++m) {
        const auto metodo = static_cast<Metodo>(m);
        const SoluzionePunti tutti = risolto(quattordici, metodo);
        for (std::size_t i = 0; i < quattordici.size(); ++i) {
            std::vector<double> pesi(quattordici.size(), 1);
            pesi[i] = 0;
            SoluzionePunti senza;
            ASSERT_TRUE(RisolviPunti(quattordici, metodo, senza, pesi));
            const double tolleranza = metodo == Metodo::proiettivo ? 0.01 : 1e-6;   // the projective's to first order
            vicini(tutti.punti[i].senza, senza.punti[i].residuo.x, senza.punti[i].residuo.y, tolleranza);
        }
    }
}

TEST(MoltiPunti, TooFewAndDegeneratePointsAreRefusedWithTheReason) {
    std::vector<PuntoNoto> riga, conica;
    for (int i = 0; i < 12; ++i) {
        riga.push_back({{100.0 * i, 50.0 * i}, {10.0 * i, -5.0 * i + 0.1 * (i % 2)}});
        const double a = 2 * piGreco * i / 12;
        conica.push_back({{3000 + 2000 * std::cos(a), 3000 + 2000 * std::sin(a)}, {std::cos(a), std::sin(a)}});
    }
    std::vector<PuntoNoto> doppio(quattordici), infinito(quattordici), reali(quattordici), quattro(quattordici);
    doppio[5].foglio = doppio[2].foglio;
    infinito[3].reale.x = std::nan("");
    for (PuntoNoto& p : reali) p.reale = {5, 5};
    quattro = {{{0, 0}, {0, 0}}, {{100, 0}, {10, 0}}, {{200, 0}, {20, 0}}, {{50, 90}, {5, 9}}};
    struct Caso {
        std::vector<PuntoNoto> punti;
        Metodo metodo;
        Rifiuto atteso;
    };
    const Caso casi[] = {{{quattordici.begin(), quattordici.begin() + 1}, Metodo::helmert, Rifiuto::pochi},
                         {{quattordici.begin(), quattordici.begin() + 9}, Metodo::terzo, Rifiuto::pochi},
                         {{}, Metodo::lastra, Rifiuto::pochi},
                         {riga, Metodo::affine, Rifiuto::allineati},
                         {riga, Metodo::lastra, Rifiuto::allineati},
                         {conica, Metodo::secondo, Rifiuto::malDisposti},
                         {quattro, Metodo::proiettivo, Rifiuto::malDisposti},
                         {doppio, Metodo::lastra, Rifiuto::foglioCoincidenti},
                         {{quattordici[0], quattordici[0]}, Metodo::helmert, Rifiuto::foglioCoincidenti},
                         {infinito, Metodo::helmert, Rifiuto::nonFiniti},
                         {reali, Metodo::affine, Rifiuto::realiCoincidenti}};
    for (const Caso& c : casi) {
        SoluzionePunti s;
        const EsitoPunti e = RisolviPunti(c.punti, c.metodo, s);
        EXPECT_EQ(e.rifiuto, c.atteso) << "method " << int(c.metodo) << ", " << c.punti.size() << " points";
        EXPECT_FALSE(s.mappa);
    }
    SoluzionePunti s;
    EXPECT_EQ(RisolviPunti(doppio, Metodo::lastra, s).punti, (std::vector<std::size_t>{2, 5}));
    EXPECT_TRUE(RisolviPunti(riga, Metodo::helmert, s));   // a line defines a similarity
}

TEST(MoltiPunti, ParametersTellShrinkageShearAndTurnOfTheSheet) {
    const double scalaX = 0.1998, scalaY = 0.1991, giro = 0.3, taglio = 0.002;
    std::vector<PuntoNoto> punti;
    for (const double x : {0.0, 5000.0, 9000.0})
        for (const double y : {0.0, 4000.0})
            punti.push_back({{x, y},
                             {700 + scalaX * x * std::cos(giro) - scalaY * y * std::cos(giro + taglio + piGreco / 2),
                              800 + scalaX * x * std::sin(giro) - scalaY * y * std::sin(giro + taglio + piGreco / 2)}});
    const ParametriMappa p = ParametriDi(risolto(punti, Metodo::affine).mappa, {100, 100});
    EXPECT_NEAR(p.scalaX, scalaX, 1e-12);
    EXPECT_NEAR(p.scalaY, scalaY, 1e-12);
    EXPECT_NEAR(p.rotazione, giro, 1e-12);
    EXPECT_NEAR(p.taglio, taglio, 1e-12);
    EXPECT_FALSE(p.specchiata);
    EXPECT_EQ(ScalaTonda(1991.3), 2000);
    EXPECT_EQ(ScalaTonda(980), 1000);
    EXPECT_EQ(ScalaTonda(2880), 0);
}
