// Crosses on sheets of a generator: shrunk, askew, folded, stained and noisy, with figures drawn over them and some crosses
// missing.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "raster/Croci.h"

using namespace tessaro;

namespace {

constexpr double passo = 100;   // of the grid, metres

// A sheet of 8 by 5 crosses. Its ink is laid on with soft edges, so that a place between pixels shows in them.
class FoglioFinto {
    std::mt19937 sorte;
    std::uniform_real_distribution<double> uno{0, 1};
    std::normal_distribution<double> rumore{0, 1};
    double giro, scala, dx, dy, piega;

public:
    static constexpr int colonne = 8, righe = 5, braccio = 12;
    ImmagineGrigia im;
    std::vector<bool> mancante = std::vector<bool>(colonne * righe, false);

    FoglioFinto(unsigned seme, double sigma) : sorte(seme) {
        giro = 0.06 * (uno(sorte) - 0.5);
        scala = 1.7 + 0.1 * uno(sorte);
        dx = 120 + 20 * uno(sorte);
        dy = 100 + 20 * uno(sorte);
        piega = 3 + 3 * uno(sorte);
        im.larghezza = 1600;
        im.altezza = 1050;
        im.valori.assign(std::size_t(im.larghezza) * std::size_t(im.altezza), 228);
        macchie();
        particelle();
        for (int k = 0; k < 3; ++k) mancante[5 + std::size_t(uno(sorte) * 34)] = true;
        for (int k = 0; k < colonne * righe; ++k)
            if (!mancante[std::size_t(k)]) croce(dove(k % colonne, k / colonne));
        for (float& v : im.valori) v = std::clamp(v + float(sigma * rumore(sorte)), 0.0F, 255.0F);
    }

    [[nodiscard]] static Coppia reale(int i, int j) { return {5000 + passo * i, 8000 - passo * j}; }
    // Paper that has shrunk more along X, turned in the scanner, with a fold along the middle that draws both halves together.
    [[nodiscard]] Coppia dove(int i, int j) const {
        const double u = passo * i * scala * 0.993 + dx, v = passo * j * scala + dy;
        const double lontano = (u - 800) / 160;
        const double s = -piega * std::tanh(lontano), x = u + s, y = v + 0.4 * piega * std::exp(-lontano * lontano);
        return {x * std::cos(giro) - y * std::sin(giro), x * std::sin(giro) + y * std::cos(giro)};
    }

private:
    void inchiostro(int x, int y, double copre, double colore) {
        if (x < 0 || y < 0 || x >= im.larghezza || y >= im.altezza) return;
        float& v = im.valori[std::size_t(y) * std::size_t(im.larghezza) + std::size_t(x)];
        v = float(v + copre * (std::min(double(v), colore) - v));
    }
    void tratto(Coppia a, Coppia b, double largo, double colore) {
        const double l = std::hypot(b.x - a.x, b.y - a.y), ex = (b.x - a.x) / l, ey = (b.y - a.y) / l, m = largo + 2;
        for (int y = int(std::min(a.y, b.y) - m); y <= int(std::max(a.y, b.y) + m); ++y)
            for (int x = int(std::min(a.x, b.x) - m); x <= int(std::max(a.x, b.x) + m); ++x) {
                const double t = (x - a.x) * ex + (y - a.y) * ey, s = std::fabs((y - a.y) * ex - (x - a.x) * ey);
                const double fuori = std::max({s - largo / 2, -t, t - l});
                inchiostro(x, y, std::clamp(0.5 - fuori, 0.0, 1.0), colore);
            }
    }
    void croce(const Coppia& c) {
        const double a = giro;
        for (const double q : {a, a + 1.5707963267948966})
            tratto({c.x - braccio * std::cos(q), c.y - braccio * std::sin(q)},
                   {c.x + braccio * std::cos(q), c.y + braccio * std::sin(q)}, 2.2, 70);
    }
    void particelle() {
        for (int k = 0; k < 40; ++k) {
            const Coppia a{1600 * uno(sorte), 1050 * uno(sorte)};
            const double q = 6.283 * uno(sorte), l = 60 + 250 * uno(sorte);
            tratto(a, {a.x + l * std::cos(q), a.y + l * std::sin(q)}, 1.5 + uno(sorte), 60);
        }
        for (int k = 0; k < 120; ++k) {   // letters: short strokes at right angles
            const Coppia a{1600 * uno(sorte), 1050 * uno(sorte)};
            tratto(a, {a.x + 8, a.y}, 1.6, 60);
            tratto({a.x + 8 * uno(sorte), a.y}, {a.x + 8 * uno(sorte), a.y + 12}, 1.6, 60);
        }
    }
    void macchie() {
        for (int k = 0; k < 14; ++k) {
            const double cx = 1600 * uno(sorte), cy = 1050 * uno(sorte), r = 30 + 90 * uno(sorte),
                         forte = 30 + 60 * uno(sorte);
            for (int y = 0; y < im.altezza; ++y)
                for (int x = 0; x < im.larghezza; ++x) {
                    const double d = std::hypot(x - cx, y - cy) / r;
                    if (d < 1.1) inchiostro(x, y, std::clamp((1.1 - d) * 8, 0.0, 1.0), 228 - forte);
                }
        }
    }
};

}   // namespace

TEST(Croci, NearlyAllAreFoundToAThirdOfAPixelAndNoneThatIsNotThere) {
    int vere = 0, trovate = 0, precise = 0, false_ = 0;
    for (unsigned seme = 1; seme <= 8; ++seme) {
        const FoglioFinto f(seme, 12);
        std::mt19937 mano(seme);
        std::uniform_real_distribution<double> trema(-1.5, 1.5);
        RichiestaCroci r;
        r.realeA = FoglioFinto::reale(0, 0);
        r.realeB = FoglioFinto::reale(3, 0);
        r.pixelA = f.dove(0, 0);
        r.pixelB = f.dove(3, 0);
        for (Coppia* c : {&r.pixelA, &r.pixelB}) {
            c->x += trema(mano);
            c->y += trema(mano);
        }
        r.passoX = r.passoY = passo;
        r.braccio = FoglioFinto::braccio;
        for (const Croce& c : TrovaCroci(f.im, r)) {
            const int i = c.i, j = -c.j;
            const bool dentro = i >= 0 && j >= 0 && i < FoglioFinto::colonne && j < FoglioFinto::righe;
            const bool vera = dentro && !f.mancante[std::size_t(j * FoglioFinto::colonne + i)];
            vere += vera;
            if (!c.presa) continue;
            false_ += !vera;
            if (!vera) continue;
            ++trovate;
            const Coppia giusto = f.dove(i, j);
            precise += std::hypot(c.dove.x - giusto.x, c.dove.y - giusto.y) <= 0.3;
        }
    }
    EXPECT_GT(vere, 8 * 36);
    EXPECT_GE(trovate, vere * 98 / 100);
    EXPECT_GE(precise, vere * 98 / 100) << trovate << " found of " << vere;
    EXPECT_EQ(false_, 0);
}

TEST(Croci, WhatCannotBeAGridIsRefused) {
    const FoglioFinto f(1, 0);
    RichiestaCroci r;
    r.passoX = r.passoY = passo;
    r.pixelA = f.dove(0, 0);
    r.pixelB = f.dove(3, 0);
    r.realeA = FoglioFinto::reale(0, 0);
    r.realeB = r.realeA;
    EXPECT_TRUE(TrovaCroci(f.im, r).empty());   // one place
    r.realeB = FoglioFinto::reale(3, 0);
    r.passoX = 0.1;
    EXPECT_TRUE(TrovaCroci(f.im, r).empty());   // a grid finer than its crosses
    r.passoX = passo;
    r.pixelA = {400, 60};
    EXPECT_TRUE(TrovaCroci(f.im, r).empty());   // no cross there
    EXPECT_TRUE(TrovaCroci({}, r).empty());
}
