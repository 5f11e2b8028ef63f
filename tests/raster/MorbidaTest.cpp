// Smooth results: nearer to the truth than the told form, without holes and halos; and what pictures of planes show once
// they are rectified, found in the result's pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "Banco.h"
#include "platform/Files.h"
#include "platform/Images.h"
#include "raster/Correzione.h"
#include "raster/Immagini.h"
#include "raster/Lenti.h"
#include "raster/Morbida.h"
#include "raster/RettificaMesh.h"
#include "support/Incrocio.h"

using namespace prova;

namespace {

using Morbidezza = BancoRaster;

std::uint32_t grigio(double v) {
    const auto g = static_cast<std::uint32_t>(std::lround(std::min(255.0, std::max(0.0, v))));
    return 0xFF000000U | g * 0x10101U;
}
struct Grigi {
    const Pixels& p;
    double operator()(int x, int y) const {
        if (x < 0 || y < 0 || x >= p.w || y >= p.h) return 255;
        return p.at(x, y) & 0xFF;
    }
};

// A picture whose grey is a function of the sheet, a pixel a unit of `lato`.
template <class F>
Pixels dipingi(std::int32_t w, std::int32_t h, F f) {
    Pixels q{w, h, {}};
    for (std::int32_t y = 0; y < h; ++y)
        for (std::int32_t x = 0; x < w; ++x) q.p.push_back(grigio(f(x, y)));
    return q;
}

Pixels rettifica(std::int32_t n, bool liscia) {
    morbida = liscia;
    CalcolaVertici(Elem(n), 0);
    EXPECT_TRUE(PictureToPixMap(Elem(n).pict.maniglia, false));
    return pixelDelPict(Elem(indElem).pict.maniglia);
}

TEST_F(Morbidezza, itIsNearerToTheTruthThanTheToldFormAtEveryRatio) {
    const SenzaTraccia muto;
    const auto onde = [](double x, double y) { return 128 + 60 * std::sin(x / 3.1) + 50 * std::cos(y / 2.7 + x / 9); };
    const std::int32_t n =
        mettiPict(dipingi(160, 120, [&](int x, int y) { return onde(x + 0.5, y + 0.5); }), 0, 0, 160, 120);
    for (const double k : {0.8, 1.0, 1.7, 4.0}) {
        attaccoAttivo.tipo = 1;
        const Quad src{{{0, 120}, {0, 0}, {160, 0}, {160, 120}}};
        const Quad dst{{{-4 * k, 118 * k}, {5 * k, 3 * k}, {155 * k, -2 * k}, {163 * k, 121 * k}}};
        preparaAttacco(dst, src);
        const Coefficienti indietro = attaccoAttivo.coef;
        preparaAttacco(src, dst);
        coeffRisoluzione = DecPunto;   // a result pixel a sheet unit
        double errore[2] = {0, 0};
        for (const bool liscia : {false, true}) {
            const Pixels r = rettifica(n, liscia);
            double somma = 0, quanti = 0;
            for (std::int32_t y = 0; y < r.h; ++y)
                for (std::int32_t x = 0; x < r.w; ++x) {
                    double u = x1Pict2 + x + 0.5, v = y1Pict2 + y + 0.5;
                    TrasformaOmografia(indietro, u, v);
                    if (u < 4 || v < 4 || u > 156 || v > 116) continue;
                    const double e = (r.at(x, y) & 0xFF) - onde(u, v);
                    if (liscia) { EXPECT_LT(std::fabs(e), 60) << k << ": a hole at " << x << "," << y; }
                    somma += e * e;
                    ++quanti;
                }
            errore[liscia] = std::sqrt(somma / quanti);
        }
        std::printf("ratio %.1f: error of grey, root mean square: told %.2f, smooth %.2f\n", k, errore[0], errore[1]);
        EXPECT_LT(errore[1], errore[0] * 0.6) << k;
    }
}

TEST_F(Morbidezza, anEdgeHasNoHaloAndAShrunkPictureIsItsMean) {
    const std::int32_t n =
        mettiPict(dipingi(100, 80, [](int x, int y) { return x + y / 3 < 60 ? 60 : 200; }), 0, 0, 100, 80);
    attaccoAttivo.tipo = 0;
    for (const double k : {0.3, 1.0, 2.9}) {
        const double c = std::cos(0.4) * k, s = std::sin(0.4) * k;
        preparaAttacco(0, {{{0, 0}, {100, 0}, {0, 0}, {0, 0}}}, {{{0, 0}, {100 * c, 100 * s}, {0, 0}, {0, 0}}});
        coeffRisoluzione = DecPunto;
        for (const std::uint32_t p : rettifica(n, true).p) {
            const auto g = static_cast<int>(p & 0xFF);
            EXPECT_TRUE(g == 255 || (g >= 60 - 4 && g <= 200 + 4)) << g << " at ratio " << k;
        }
    }
    const std::int32_t m =
        mettiPict(dipingi(400, 400, [](int x, int y) { return (x + y) % 2 ? 255 : 0; }), 0, 0, 400, 400);
    preparaAttacco(0, {{{0, 0}, {100, 0}, {0, 0}, {0, 0}}}, {{{0, 0}, {25, 0}, {0, 0}, {0, 0}}});
    for (const std::uint32_t p : rettifica(m, true).p) EXPECT_NEAR(static_cast<int>(p & 0xFF), 127.5, 3);
}

TEST_F(Morbidezza, cutsAndConstructionsKeepToTheToldPlaces) {
    const SenzaTraccia muto;
    const auto onde = [](double x, double y) { return 128 + 100 * std::sin(x / 9) * std::cos(y / 8); };
    for (int caso = 0; caso < 5; ++caso) {
        SetUp();
        const std::int32_t n = mettiPict(dipingi(200, 160, onde), 0, 0, 200, 160);
        attaccoAttivo.tipo = caso == 4 ? 2 : 1;
        deformProspettica = caso != 3;
        xAttacco5 = 100;
        yAttacco5 = 80;
        attaccoAttivo.SetXYAtt(4, 105, 88);
        preparaAttacco({{{0, 160}, {0, 0}, {200, 0}, {200, 160}}}, {{{3, 158}, {8, 12}, {190, 3}, {207, 171}}});
        coeffRisoluzione = DecPunto;
        tipoTaglio = caso == 2 ? 2 : 1;
        const std::int32_t p =
            caso == 1 || caso == 2 ? mettiPolilinea({{40, 30}, {160, 40}, {150, 140}, {90, 90}, {50, 130}}) : 0;
        const std::uint8_t modo = deformProspettica;
        Pixels r[2];
        for (const bool liscia : {false, true}) {
            morbida = liscia;
            deformProspettica = modo;
            CalcolaVertici(Elem(n), p);
            ASSERT_TRUE(PictureToPixMap(Elem(n).pict.maniglia, p != 0));
            r[liscia] = pixelDelPict(Elem(indElem).pict.maniglia);
        }
        ASSERT_EQ(r[0].w, r[1].w);
        ASSERT_EQ(r[0].h, r[1].h);
        std::size_t lontani = 0;
        for (std::size_t i = 0; i < r[0].p.size(); ++i)
            lontani += std::abs(static_cast<int>(r[0].p[i] & 0xFF) - static_cast<int>(r[1].p[i] & 0xFF)) > 30;
        EXPECT_LT(lontani, r[0].p.size() / 40) << "case " << caso;   // the rims alone
    }
}

// --- truth

// The told form shows what it takes up to a pixel of the result too far up and left, and in whole pixels: it is asked for
// seven pixels a source pixel, the smooth one for one.
double finezza(bool liscia) { return liscia ? 1 : 7; }

// The told form repeats whole source pixels, whose own edges a detector takes for the board's: the mean over about one.
Pixels senzaBlocchi(const Pixels& p, int raggio) {
    Pixels q = p;
    for (const bool perRiga : {true, false}) {
        const Pixels da = q;
        for (std::int32_t y = 0; y < p.h; ++y)
            for (std::int32_t x = 0; x < p.w; ++x) {
                int somma = 0;
                for (int k = -raggio; k <= raggio; ++k) {
                    const int u = std::clamp(perRiga ? x + k : x, 0, p.w - 1),
                              v = std::clamp(perRiga ? y : y + k, 0, p.h - 1);
                    somma += static_cast<int>(da.at(u, v) & 0xFF);
                }
                q.p[static_cast<std::size_t>(y) * static_cast<std::size_t>(p.w) + static_cast<std::size_t>(x)] =
                    grigio(double(somma) / (2 * raggio + 1));
            }
    }
    return q;
}

// The crossing near a place of the sheet, found in the result's pixels; of a told one, in their means over 2 `blocco` + 1.
Coppia trovato(const Pixels& r, Coppia posto, int raggio, double k, int blocco = 0) {
    const auto p = static_cast<int>(raggio * k), lato = 2 * (p + 20);
    const Coppia qui{(posto.x - x1Pict2) * k - 0.5, (posto.y - y1Pict2) * k - 0.5};
    const int x0 = static_cast<int>(qui.x) - lato / 2, y0 = static_cast<int>(qui.y) - lato / 2;
    Pixels pezzo{lato, lato, {}};
    for (int y = 0; y < lato; ++y)
        for (int x = 0; x < lato; ++x)
            pezzo.p.push_back(r.at(std::clamp(x0 + x, 0, r.w - 1), std::clamp(y0 + y, 0, r.h - 1)));
    if (blocco > 0) pezzo = senzaBlocchi(pezzo, blocco);
    const Coppia t = incrocioVicino(Grigi{pezzo}, {qui.x - x0, qui.y - y0}, p);
    return {(t.x + x0 + 0.5) / k + x1Pict2, (t.y + y0 + 0.5) / k + y1Pict2};
}

// The homography of four points by Cramer's way of the unit square, apart from the program's own solver.
struct Omo {
    double m[9];
    static Omo quadrato(const Quad& q) {
        const double dx1 = q[1].x - q[2].x, dx2 = q[3].x - q[2].x, dx3 = q[0].x - q[1].x + q[2].x - q[3].x;
        const double dy1 = q[1].y - q[2].y, dy2 = q[3].y - q[2].y, dy3 = q[0].y - q[1].y + q[2].y - q[3].y;
        const double det = dx1 * dy2 - dx2 * dy1, g = (dx3 * dy2 - dx2 * dy3) / det, h = (dx1 * dy3 - dx3 * dy1) / det;
        return {{q[1].x - q[0].x + g * q[1].x, q[3].x - q[0].x + h * q[3].x, q[0].x, q[1].y - q[0].y + g * q[1].y,
                 q[3].y - q[0].y + h * q[3].y, q[0].y, g, h, 1}};
    }
    [[nodiscard]] Omo inversa() const {
        const double* a = m;
        return {{a[4] * a[8] - a[5] * a[7], a[2] * a[7] - a[1] * a[8], a[1] * a[5] - a[2] * a[4],
                 a[5] * a[6] - a[3] * a[8], a[0] * a[8] - a[2] * a[6], a[2] * a[3] - a[0] * a[5],
                 a[3] * a[7] - a[4] * a[6], a[1] * a[6] - a[0] * a[7], a[0] * a[4] - a[1] * a[3]}};
    }
    [[nodiscard]] Coppia operator()(Coppia p) const {
        const double w = m[6] * p.x + m[7] * p.y + m[8];
        return {(m[0] * p.x + m[1] * p.y + m[2]) / w, (m[3] * p.x + m[4] * p.y + m[5]) / w};
    }
};

struct Foto {
    const char* nome;
    int colonne, righe;   // of squares between the outermost inner crossings
    Quad angoli;          // lower left, upper left, upper right, lower right; about, in pixels
};

TEST_F(Morbidezza, theCrossingsOfPhotographedBoardsLieWhereAnIndependentHomographyPutsThem) {
    const char* dati = std::getenv("TESSARO_DATA");
    if (!dati || !std::filesystem::is_directory(std::string(dati) + "/photo")) {
        std::puts("no folder of real files (TESSARO_DATA): nothing tried");
        return;
    }
    constexpr Foto foto[] = {{"left01.jpg", 8, 5, {{{249, 254}, {244, 94}, {514, 87}, {510, 266}}}},
                             {"left02.jpg", 5, 8, {{{256, 357}, {251, 78}, {540, 133}, {438, 397}}}},
                             {"left03.jpg", 8, 5, {{{187, 257}, {277, 72}, {604, 168}, {545, 391}}}}};
    const SenzaTraccia muto;
    constexpr double lato = 40;   // of a square in the result, pixels
    for (const Foto& f : foto)
        for (const bool liscia : {false, true}) {
            SetUp();
            ASSERT_TRUE(ImportaImmagine(FSMakeFSSpec(std::string(dati) + "/photo/" + f.nome)));
            const std::int32_t n = indElem;
            auto& e = Elem(n).pict;
            const Pixels vista = pixelDelPict(e.maniglia);
            e.x = e.y = 0;   // a pixel a sheet unit
            e.larghezza = vista.w;
            e.altezza = vista.h;
            Quad angoli = f.angoli;
            for (Coppia& c : angoli) {
                c = incrocioVicino(Grigi{vista}, c);
                c = {c.x + 0.5, c.y + 0.5};   // its place, where pixel 0 reaches from 0 to 1
            }
            const double w = f.colonne * lato, h = f.righe * lato;
            const Quad tavola{{{0, h}, {0, 0}, {w, 0}, {w, h}}};
            attaccoAttivo.tipo = 1;
            preparaAttacco(angoli, tavola);
            coeffRisoluzione = DecPunto * finezza(liscia);
            const Pixels r = rettifica(n, liscia);
            const Omo a = Omo::quadrato(tavola), b = Omo::quadrato(angoli), bi = b.inversa();
            double massimo = 0;
            int quanti = 0;
            for (int j = 0; j <= f.righe; ++j)
                for (int i = 0; i <= f.colonne; ++i) {
                    // Where the source shows the crossing, and where that belongs.
                    const Omo ai = a.inversa();
                    const Coppia circa = b(ai({i * lato, j * lato}));
                    const Coppia visto = incrocioVicino(Grigi{vista}, {circa.x - 0.5, circa.y - 0.5}, 4);
                    const Coppia posto = a(bi({visto.x + 0.5, visto.y + 0.5}));
                    const Coppia t = trovato(r, posto, 8, finezza(liscia), liscia ? 0 : 4);
                    // Back in the source, where half a pixel counts.
                    const Coppia indietro = b(ai(t));
                    const double errore = std::hypot(indietro.x - visto.x - 0.5, indietro.y - visto.y - 0.5);
                    massimo = std::max(massimo, errore);
                    ++quanti;
                }
            std::printf("%s %s: %d crossings, largest error %.3f source pixels\n", f.nome, liscia ? "smooth" : "told",
                        quanti, massimo);
            EXPECT_LT(massimo, 0.5) << f.nome;
        }
}

// A board seen by a camera with a lens: every pixel of its picture asks the board, the mean of sixteen points.
TEST_F(Morbidezza, aSimulatedCamerasBoardComesOutStraightToHalfASourcePixel) {
    const SenzaTraccia muto;
    constexpr std::int32_t W = 480, H = 360;
    constexpr double quadro = 50;   // of a square on the sheet
    const Bombature k{-6, -5, -4, -6};
    const Quad tavola{{{0, 300}, {0, 0}, {400, 0}, {400, 300}}}, veduta{{{60, 320}, {80, 45}, {430, 20}, {405, 335}}};
    const Omo b = Omo::quadrato(tavola), ai = Omo::quadrato(veduta).inversa();
    const double cx = W / 2.0, cy = H / 2.0;
    const auto lente = [&](Coppia p) {   // from the straight picture to the bowed one
        const double dx = p.x - cx, dy = p.y - cy, a = 1 - dx * dx / (cx * cx), c = 1 - dy * dy / (cy * cy);
        return Coppia{cx + dx * (1 - (dx >= 0 ? k.destra : k.sinistra) / 100 * c),
                      cy + dy * (1 - (dy >= 0 ? k.basso : k.alto) / 100 * a)};
    };
    const auto raddrizza = [&](Coppia q) {
        Coppia p = q;
        for (int i = 0; i < 30; ++i) {
            const Coppia e = lente(p);
            p = {p.x + q.x - e.x, p.y + q.y - e.y};
        }
        return p;
    };
    const auto scacco = [&](Coppia s) {
        if (s.x < 0 || s.y < 0 || s.x > 400 || s.y > 300) return 160.0;
        return (static_cast<int>(s.x / quadro) + static_cast<int>(s.y / quadro)) % 2 ? 230.0 : 30.0;
    };
    const auto pixel = [&](int x, int y) {
        double somma = 0;
        for (int j = 0; j < 16; ++j) somma += scacco(b(ai(raddrizza({x + (j % 4 + 0.5) / 4, y + (j / 4 + 0.5) / 4}))));
        return somma / 16;
    };
    const std::int32_t n = mettiPict(dipingi(W, H, pixel), 0, 0, W, H);
    deformazioneOttica[0].valori = k;
    indiceLenteAttuale = 1;
    const auto peggiore = [&](const Pixels& r, double fine) {   // in source pixels
        double massimo = 0;
        for (int j = 1; j < 6; ++j)
            for (int i = 1; i < 8; ++i) {
                const Coppia posto{i * quadro, j * quadro};
                const Omo v = Omo::quadrato(veduta), ti = Omo::quadrato(tavola).inversa();
                const Coppia p = v(ti(posto)), q = v(ti(trovato(r, posto, 6, fine)));
                massimo = std::max(massimo, std::hypot(p.x - q.x, p.y - q.y));
            }
        return massimo;
    };
    // Once in one pass, smooth; once as told, the lens undone first and its result rectified.
    attaccoAttivo.tipo = 1;
    preparaAttacco(veduta, tavola);
    coeffRisoluzione = DecPunto;
    conLenteRettifica = 1;
    const double inUna = peggiore(rettifica(n, true), 1);
    morbida = 0;
    coeffRisoluzione = DecPunto * finezza(false);
    CalcolaVerticiCorrezione(Elem(n));
    ASSERT_TRUE(PictureToPixMapCorrezione(Elem(n).pict.maniglia));
    const std::int32_t diritta = indElem;
    Elem(diritta).pict.larghezza = W;
    Elem(diritta).pict.altezza = H;
    const double inDue = peggiore(rettifica(diritta, false), finezza(false));
    std::printf("simulated camera: largest error %.3f source pixels in one smooth pass, %.3f in two as told\n", inUna,
                inDue);
    EXPECT_LT(inUna, 0.5);
    EXPECT_LT(inDue, 0.5);
    conLenteRettifica = 0;
    coeffRisoluzione = DecPunto;
    EXPECT_GT(peggiore(rettifica(n, true), 1), 2) << "the lens matters";
}

TEST_F(Morbidezza, aMeshTakesAWarpOut) {
    const SenzaTraccia muto;
    const auto storto = [](Coppia p) {   // where the warped sheet shows the point p of the flat one
        return Coppia{20 + p.x + 6 * std::sin(p.y / 60), 15 + p.y + 5 * std::sin(p.x / 70)};
    };
    const auto piatto = [&](Coppia q) {
        Coppia p{q.x - 20, q.y - 15};
        for (int i = 0; i < 40; ++i) {
            const Coppia e = storto(p);
            p = {p.x + q.x - e.x, p.y + q.y - e.y};
        }
        return p;
    };
    const auto scacco = [](Coppia s) {
        return ((static_cast<int>(std::floor(s.x / 20)) + static_cast<int>(std::floor(s.y / 20))) & 1) ? 230.0 : 30.0;
    };
    const auto pixel = [&](int x, int y) {
        double somma = 0;
        for (int j = 0; j < 9; ++j) somma += scacco(piatto({x + (j % 3 + 0.5) / 3, y + (j / 3 + 0.5) / 3}));
        return somma / 9;
    };
    const std::int32_t n = mettiPict(dipingi(300, 250, pixel), 0, 0, 300, 250);
    faiMesh(meshOrigine, 6, 7, [&](int r, int c) { return storto({40.0 * r, 40.0 * c}); });
    faiMesh(meshDestinazione, 6, 7, [](int r, int c) { return Coppia{40.0 * r, 40.0 * c}; });
    attaccoAttivo.tipo = 1;
    for (const bool liscia : {false, true}) {
        morbida = liscia;
        coeffRisoluzione = DecPunto * finezza(liscia);
        CalcolaVerticiMesh(Elem(n));
        ASSERT_TRUE(PictureToPixMapMesh(Elem(n).pict.maniglia));
        const Pixels r = pixelDelPict(Elem(indElem).pict.maniglia);
        double aiNodi = 0, traNodi = 0;
        for (int j = 1; j < 10; ++j)
            for (int i = 1; i < 12; ++i) {
                const Coppia p{20.0 * i, 20.0 * j};
                const Coppia t = trovato(r, p, 4, finezza(liscia));
                const double e = std::hypot(t.x - p.x, t.y - p.y);
                double& quale = i % 2 == 0 && j % 2 == 0 ? aiNodi : traNodi;
                quale = std::max(quale, e);
            }
        std::printf("mesh, %s: largest error %.3f pixels at the nodes, %.3f between\n", liscia ? "smooth" : "told",
                    aiNodi, traNodi);
        EXPECT_LT(aiNodi, 0.5);
        EXPECT_LT(traNodi, 1);
    }
}

}   // namespace
