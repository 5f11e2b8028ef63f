// Pictures asked back pixel by pixel: the lens and the rotation against the plain formulas, and the table of lenses.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "Banco.h"
#include "model/Registrazione.h"
#include "raster/Correzione.h"
#include "raster/Indietro.h"
#include "raster/Lenti.h"
#include "raster/NuovaImmagine.h"
#include "raster/pictrot.h"
#include "support/Avvisi.h"

using namespace prova;

namespace {

using Indietro = BancoRaster;

Tela telaAcaso(std::int32_t w, std::int32_t h, std::int16_t bit, std::uint32_t seme) {
    const auto f = FormatoPer(bit, nullptr);
    Tela t;
    EXPECT_TRUE(NuovaTela(t, w, h, *f, true));
    std::mt19937 sorte(seme);
    for (std::int64_t i = 0; i < t.rowBytes * h; ++i)
        t.dati[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(sorte());
    return t;
}

void uguali(const Tela& a, const Tela& b, const std::string& che) {
    for (std::int32_t y = 0; y < a.altezza; ++y)
        for (std::int64_t i = 0; i < std::int64_t(a.larghezza) * a.byte; ++i)
            ASSERT_EQ(a.riga(y)[i], b.riga(y)[i]) << che << " pixel " << i / a.byte << "," << y;
}

void copiaPixel(const Tela& src, std::int64_t sx, std::int64_t sy, Tela& dst, std::int32_t x, std::int32_t y) {
    if (sx < 0 || sx >= src.larghezza || sy < 0 || sy >= src.altezza) return;
    const auto b = static_cast<std::size_t>(src.byte);
    std::memcpy(dst.riga(y) + static_cast<std::size_t>(x) * b,
                src.riga(static_cast<std::int32_t>(sy)) + static_cast<std::size_t>(sx) * b, b);
}

TEST_F(Indietro, aTurnedPictureIsThatOfThePlainLoop) {
    std::mt19937 sorte(5);
    std::uniform_real_distribution<double> angoli(-7, 7);
    for (int giro = 0; giro < 40; ++giro) {
        const double quarti[] = {0, 1.5707963267948966, 3.141592653589793, 0.7853981633974483};
        const double angolo = giro < 4 ? quarti[giro] : angoli(sorte);
        const std::int16_t bit = BitDi(static_cast<std::int16_t>(giro % 3 + 1));
        const Tela src = telaAcaso(37 + giro * 7, 300 - giro * 5, bit, 1);
        const auto f = FormatoPer(bit, nullptr);
        Tela avuta, attesa;
        const Giro g{std::cos(angolo), std::sin(angolo), -150 + giro, -200};
        ASSERT_TRUE(NuovaTela(avuta, 520, 410, *f, true) && NuovaTela(attesa, 520, 410, *f, true));
        filiRaster = 1 + giro % 2;
        ASSERT_TRUE(PercorriIndietro(src, avuta, RichiestaGiro(g, src), [](double) { return true; }));
        for (std::int32_t v = 0; v < attesa.altezza; ++v)
            for (std::int32_t h = 0; h < attesa.larghezza; ++h) {
                const double X = g.ox + h, Y = g.oy + v;
                copiaPixel(src, static_cast<std::int64_t>(std::trunc(g.s * Y + g.c * X)),
                           static_cast<std::int64_t>(std::trunc(g.c * Y - g.s * X)), attesa, h, v);
            }
        uguali(avuta, attesa, "angle " + std::to_string(angolo));
    }
}

TEST_F(Indietro, theLensIsThatOfThePlainLoopAndNoLensIsTheSource) {
    const Bombature lenti[] = {{0, 0, 0, 0}, {10, 10, 10, 10}, {-12.5, 7, 50, -50}, {3, -4, 0.37, 25}};
    for (const Bombature& k : lenti)
        for (const auto& [w, h] : {std::pair{301, 200}, {64, 65}, {1, 7}, {9, 1}, {257, 3}}) {
            const Tela src = telaAcaso(w, h, 32, 3);
            const auto f = FormatoPer(32, nullptr);
            Tela avuta, attesa;
            ASSERT_TRUE(NuovaTela(avuta, w, h, *f, true) && NuovaTela(attesa, w, h, *f, true));
            ASSERT_TRUE(PercorriIndietro(src, avuta, RichiestaLente(k, src), [](double) { return true; }));
            const std::int32_t cx = w / 2, cy = h / 2;
            for (std::int32_t r = 0; r < h; ++r)
                for (std::int32_t c = 0; c < w; ++c) {
                    const std::int32_t dx = c - cx, dy = r - cy;
                    const std::int32_t sr = r >= cy ? cy + QuadraticInterpolation(dx, dy, cx, k.basso)
                                                    : cy - QuadraticInterpolation(dx, cy - r, cx, k.alto);
                    const std::int32_t sc = c >= cx ? cx + QuadraticInterpolation(dy, dx, cy, k.destra)
                                                    : cx - QuadraticInterpolation(dy, cx - c, cy, k.sinistra);
                    copiaPixel(src, sc, sr, attesa, c, r);
                }
            uguali(avuta, attesa, std::to_string(w) + "x" + std::to_string(h));
            if (k.destra == 0 && w > 1 && h > 1) uguali(avuta, src, "no lens");
        }
}

TEST_F(Indietro, theLawScalesTheAxisAndLeavesTheCorner) {
    struct Caso {
        std::int32_t a, b, c;
        double k;
        std::int32_t atteso;
    };
    for (const Caso& q : {Caso{0, 100, 200, 10, 90},
                          {200, 100, 200, 10, 100},
                          {-200, 100, 200, 10, 100},
                          {100, 100, 200, 10, 93},
                          {0, 5, 200, 10, 5},
                          {0, 15, 200, 10, 14},
                          {0, 0, 200, 50, 0},
                          {0, 100, 0, 10, 0},
                          {0, 100, 200, -50, 150}})
        EXPECT_EQ(QuadraticInterpolation(q.a, q.b, q.c, q.k), q.atteso) << q.a << " " << q.b << " " << q.k;
}

TEST_F(Indietro, aLensReadOffAMeshTellsHowFarItsSidesLeaveTheCorners) {
    // Left and right sides bow outwards by 5 in a width of 200; rows run along X, and the first column lies below.
    faiMesh(meshOrigine, 3, 3, [](int r, int c) {
        return Coppia{100.0 * r + (c == 1 ? (r - 1) * 5 : 0), 300 - 100.0 * c};
    });
    const Bombature b = DallaMesh(meshOrigine);
    EXPECT_DOUBLE_EQ(b.sinistra, -5);
    EXPECT_DOUBLE_EQ(b.destra, -5);
    EXPECT_DOUBLE_EQ(b.alto, 0);
    EXPECT_DOUBLE_EQ(b.basso, 0);
    faiMesh(meshOrigine, 2, 2, [](int, int c) { return Coppia{7, 100.0 * c}; });
    EXPECT_FALSE(std::isfinite(DallaMesh(meshOrigine).sinistra));
}

TEST_F(Indietro, aQuarterTurnChangesTheSidesAndKeepsTheCorner) {
    const std::int32_t n = mettiPict(pixelAcaso(20, 10, 3), 50, 60, 720, 360);
    tPictRot p;
    p.pictIn = Elem(n).pict.maniglia;
    p.larghezza = 7.2;
    p.altezza = 3.6;
    p.risoluzione = 72;
    struct Caso {
        double angolo;
        std::int32_t w, h;
        double cmW, cmH;
    };
    for (const Caso& c : {Caso{0, 201, 100, 7.2, 3.6}, {1.5707963267948966, 100, 201, 3.6, 7.2}}) {
        tPictRot q = p;
        q.angolo = c.angolo;
        RuotaImmagine(&q);
        ASSERT_NE(q.pictOut, 0);
        const Pixels r = pixelDelPict(q.pictOut);
        EXPECT_EQ(r.w, c.w) << "28 points a centimetre";
        EXPECT_EQ(r.h, c.h);
        EXPECT_NEAR(q.larghezza, c.cmW, 1e-9);
        EXPECT_NEAR(q.altezza, c.cmH, 1e-9);
    }
    p.colori = 1;
    RuotaImmagine(&p);
    for (const std::uint32_t c : pixelDelPict(p.pictOut).p) EXPECT_TRUE(c == 0xFFFFFFFFU || c == 0xFF000000U);
}

TEST_F(Indietro, aCorrectionThatMemoryCannotHoldLeavesTheDrawing) {
    const std::int32_t n = mettiPict(pixelAcaso(20, 10, 3), 0, 0, 1e8, 1e8);
    coeffRisoluzione = 4;
    CalcolaVerticiCorrezione(Elem(n));
    EXPECT_FALSE(PictureToPixMapCorrezione(Elem(n).pict.maniglia));
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{128});
    EXPECT_EQ(indElem, n);
}

TEST_F(Indietro, colourDepthsKeepWhatTheyCan) {
    Pixels pochi{16, 16, {}};
    for (std::uint32_t i = 0; i < 256; ++i) pochi.p.push_back(0xFF000000U | (i % 250 * 0x10305U & 0xFFFFFF));
    const std::string pict = PictDaPixel(pochi.p.data(), 16, 16);
    const auto fonte = ApriFonte(pict);
    const auto f = FormatoPer(8, fonte.get());
    std::vector<std::uint8_t> indici(256);
    std::vector<std::uint32_t> avuti(256);
    f->codifica(pochi.p.data(), 256, indici.data());
    f->decodifica(indici.data(), 256, avuti.data());
    std::size_t diversi = 0;
    for (std::size_t i = 0; i < 256; ++i) diversi += avuti[i] != pochi.p[i];
    EXPECT_EQ(diversi, 0U) << "a palette's colours stay";
    EXPECT_EQ(f->colori[f->bianco()], 0xFFFFFFFFU);
}

}   // namespace
