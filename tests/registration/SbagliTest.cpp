// Simulated sheets with planted slips: they are found, the right point is named, and good sheets are left in peace.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "registration/Sbagli.h"

using namespace tessaro;

namespace {

class Fogli {
    std::mt19937 sorte;
    std::normal_distribution<double> rumore{0, 1};
    std::uniform_real_distribution<double> uno{0, 1};

public:
    static constexpr double sigma = 0.05;   // of a coordinate
    explicit Fogli(unsigned seme) : sorte(seme) {}
    std::size_t quale(std::size_t n) { return sorte() % n; }
    double angolo() { return 6.283185307179586 * uno(sorte); }

    // Crosses of a grid near enough, at about 1 : 1,000, in a national grid.
    std::vector<PuntoNoto> foglio(int n) {
        std::vector<PuntoNoto> p;
        const double a = angolo(), k = 0.1 * (1 + 0.01 * uno(sorte)), c = k * std::cos(a), s = k * std::sin(a);
        const int colonne = static_cast<int>(std::ceil(std::sqrt(n)));
        for (int i = 0; i < n; ++i) {
            const double x = 1000 + (i % colonne) * 1200 + 100 * uno(sorte),
                         y = 1000 + (i / colonne) * 1200 + 100 * uno(sorte);
            p.push_back({{x, y},
                         {1654321.4 + c * x + s * y + sigma * rumore(sorte),
                          4979876.2 + s * x - c * y + sigma * rumore(sorte)}});
        }
        return p;
    }
};

}   // namespace

TEST(Sbagli, NineteenOfTwentySlipsOfEightStandardErrorsAreNamedAndGoodSheetsPass) {
    struct Caso {
        Metodo metodo;
        int punti;
    };
    constexpr Caso casi[] = {{Metodo::helmert, 9},  {Metodo::affine, 12}, {Metodo::proiettivo, 14},
                             {Metodo::secondo, 20}, {Metodo::terzo, 36},  {Metodo::lastra, 20}};
    for (const Caso& c : casi) {
        constexpr int prove = 80;   // bench/punti has thousands
        int nominati = 0, falsi = 0;
        double detto = 0;
        Fogli fogli(static_cast<unsigned>(c.punti) * 8 + static_cast<unsigned>(c.metodo));
        for (int i = 0; i < prove; ++i) {
            auto punti = fogli.foglio(c.punti);
            const EsameSbagli buono = CercaSbagli(punti, c.metodo);
            detto += buono.potenza / prove;
            falsi += !buono.punti.empty();
            const std::size_t k = fogli.quale(punti.size());
            const double a = fogli.angolo();
            punti[k].reale.x += 8 * Fogli::sigma * std::cos(a);
            punti[k].reale.y += 8 * Fogli::sigma * std::sin(a);
            const EsameSbagli e = CercaSbagli(punti, c.metodo);
            nominati += !e.punti.empty() && e.punti[0].punto == k;
        }
        EXPECT_GE(nominati, prove * 95 / 100) << "method " << int(c.metodo) << ", " << c.punti << " points";
        EXPECT_GE(detto, 0.95) << "method " << int(c.metodo);
        EXPECT_LT(falsi, prove * 8 / 100) << "method " << int(c.metodo) << ", " << c.punti << " points";
    }
}

// With fewer points no test could do it: how often it does is said beforehand, and is what comes out.
TEST(Sbagli, WhatTooFewPointsCanNameIsToldAsItComesOut) {
    struct Caso {
        Metodo metodo;
        int punti, bastano;   // the fewest and the most that these sheets are told to want
        int alMassimo;
    };
    constexpr Caso casi[] = {{Metodo::affine, 7, 9, 12},
                             {Metodo::proiettivo, 8, 11, 15},
                             {Metodo::secondo, 12, 15, 20},
                             {Metodo::terzo, 18, 22, 34}};
    for (const Caso& c : casi) {
        constexpr int prove = 120;
        double nominati = 0, detto = 0;
        Fogli fogli(static_cast<unsigned>(c.punti));
        for (int i = 0; i < prove; ++i) {
            auto punti = fogli.foglio(c.punti);
            const std::size_t k = fogli.quale(punti.size());
            const double a = fogli.angolo();
            punti[k].reale.x += 8 * Fogli::sigma * std::cos(a);
            punti[k].reale.y += 8 * Fogli::sigma * std::sin(a);
            const EsameSbagli e = CercaSbagli(punti, c.metodo);
            nominati += !e.punti.empty() && e.punti[0].punto == k;
            detto += e.potenza;
            EXPECT_LT(e.potenza, 0.95);
            EXPECT_GE(e.bastano, c.bastano) << "method " << int(c.metodo);
            EXPECT_LE(e.bastano, c.alMassimo) << "method " << int(c.metodo);
        }
        EXPECT_NEAR(nominati / prove, detto / prove, 0.12) << "method " << int(c.metodo);
    }
}

TEST(Sbagli, APointThatNothingChecksIsSaidToBeSo) {
    auto punti = Fogli(4).foglio(16);
    punti.push_back({{90000, 90000}, {1654321.4 + 9000, 4979876.2 - 9000}});
    const EsameSbagli e = CercaSbagli(punti, Metodo::secondo);
    EXPECT_EQ(e.scoperti, (std::vector<std::size_t>{16}));
    punti.resize(3);
    const EsameSbagli pochi = CercaSbagli(punti, Metodo::affine);
    EXPECT_FALSE(pochi.fatto);
    EXPECT_GT(pochi.bastano, 6);
}

TEST(Sbagli, EachSlipOfTheHandHasItsName) {
    using S = Slittamento;
    struct Caso {
        S causa;
        Coppia (*storpia)(Coppia);
    };
    const Caso casi[] = {{S::assiScambiati,
                          [](Coppia p) {
                              return Coppia{p.y, p.x};
                          }},
                         {S::unita,
                          [](Coppia p) {
                              return Coppia{p.x / 1000, p.y / 1000};
                          }},
                         {S::unita,
                          [](Coppia p) {
                              return Coppia{p.x / 0.3048, p.y / 0.3048};
                          }},
                         {S::segno,
                          [](Coppia p) {
                              return Coppia{-p.x, p.y};
                          }},
                         {S::decimali,
                          [](Coppia p) {
                              return Coppia{p.x, p.y * 10};
                          }},
                         {S::cifra,
                          [](Coppia p) {
                              return Coppia{p.x + 30000, p.y};
                          }},   // 1654321 as 1684321
                         {S::cifreScambiate,
                          [](Coppia p) {
                              return Coppia{p.x, p.y - 180000};
                          }},   // 4979876 as 4799876
                         {S::ignoto, [](Coppia p) {
                              return Coppia{p.x + 17.3, p.y - 4.4};
                          }}};
    Fogli fogli(3);
    for (const Caso& c : casi) {
        auto punti = fogli.foglio(14);
        const Coppia vero = punti[7].reale;
        punti[7].reale = c.storpia(vero);
        const EsameSbagli e = CercaSbagli(punti, Metodo::helmert);
        ASSERT_EQ(e.punti.size(), 1U);
        EXPECT_EQ(e.punti[0].punto, 7U);
        EXPECT_EQ(e.punti[0].causa, c.causa);
        EXPECT_NEAR(std::hypot(e.punti[0].proposta.x - vero.x, e.punti[0].proposta.y - vero.y), 0, 0.5);
        EXPECT_LT(e.accordo, 5 * Fogli::sigma);
    }
}

TEST(Sbagli, TwoPointsWithEachOthersCoordinatesNameEachOther) {
    auto punti = Fogli(9).foglio(15);
    std::swap(punti[3].reale, punti[11].reale);
    const EsameSbagli e = CercaSbagli(punti, Metodo::affine);
    ASSERT_EQ(e.punti.size(), 2U);
    for (const PuntoSbagliato& p : e.punti) {
        EXPECT_EQ(p.causa, Slittamento::puntiScambiati);
        EXPECT_EQ(p.punto + p.altro, 14U);
    }
}

TEST(Sbagli, ErrorsThatHideEachOtherAreFoundByTheRobustScale) {
    auto punti = Fogli(12).foglio(20);
    for (const std::size_t i : {1U, 2U, 6U, 7U})
        punti[i].reale.x += 40;   // a corner of the sheet taken one cross too far
    const EsameSbagli e = CercaSbagli(punti, Metodo::affine);
    ASSERT_EQ(e.punti.size(), 4U);
    EXPECT_LT(e.accordo, 5 * Fogli::sigma);
    SoluzionePunti s;
    std::vector<double> pesi;
    double scala = 0;
    ASSERT_TRUE(StimaRobusta(punti, Metodo::affine, s, pesi, scala));
    EXPECT_NEAR(scala, Fogli::sigma, 0.6 * Fogli::sigma);
    for (std::size_t i = 0; i < punti.size(); ++i)
        EXPECT_EQ(pesi[i] == 0, i == 1 || i == 2 || i == 6 || i == 7) << "point " << i;
}

TEST(Sbagli, AxesExchangedThroughoutAreSeenInEveryMethod) {
    auto punti = Fogli(5).foglio(14);
    EXPECT_FALSE(CercaSbagli(punti, Metodo::affine).tuttiScambiati);
    for (PuntoNoto& p : punti) std::swap(p.reale.x, p.reale.y);
    for (const Metodo m : {Metodo::helmert, Metodo::affine, Metodo::proiettivo, Metodo::secondo, Metodo::lastra})
        EXPECT_TRUE(CercaSbagli(punti, m).tuttiScambiati) << "method " << int(m);
}

TEST(Sbagli, AFoldedSheetUnderAThinPlateIsNoSlipAndASlipOnItIsOne) {
    std::vector<PuntoNoto> punti;
    for (int j = 0; j < 5; ++j)
        for (int i = 0; i < 8; ++i) {
            const double x = 500.0 * i, y = 500.0 * j, piega = 8 * std::tanh((x - 1750) / 350);
            punti.push_back({{x - piega, y + 4 * std::exp(-(x - 1750) * (x - 1750) / 120000)}, {0.2 * x, -0.2 * y}});
        }
    EXPECT_TRUE(CercaSbagli(punti, Metodo::lastra).punti.empty());
    punti[13].reale.x += 30;
    const EsameSbagli e = CercaSbagli(punti, Metodo::lastra);
    ASSERT_FALSE(e.punti.empty());
    EXPECT_EQ(e.punti[0].punto, 13U);
}
