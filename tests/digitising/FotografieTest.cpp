// Photographs of a chessboard through a real lens: four of its crossings register the board, and the others are read
// back at their squares. The crossings are found in the pictures themselves, to parts of a pixel.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "platform/Images.h"
#include "support/Attacco.h"
#include "support/Foglio.h"
#include "support/Incrocio.h"

using namespace tessaro;
using namespace prova;

namespace {

struct Foto {
    const char* nome;
    int colonne, righe;   // of squares between the outermost inner crossings
    Quad angoli;          // lower left, upper left, upper right, lower right; whole pixels
};
constexpr Foto foto[] = {
    {"left01.jpg", 8, 5, {{{249, 254}, {244, 94}, {514, 87}, {510, 266}}}},
    {"left02.jpg", 5, 8, {{{256, 357}, {251, 78}, {540, 133}, {438, 397}}}},
    {"left03.jpg", 8, 5, {{{187, 257}, {277, 72}, {604, 168}, {545, 391}}}},
};

struct Grigi {
    Immagine i;
    [[nodiscard]] double operator()(int x, int y) const {
        const auto dove = static_cast<std::size_t>(y) * static_cast<std::size_t>(i.width) + static_cast<std::size_t>(x);
        if (i.depth == 32) return i.pixels[dove] & 0xFF;
        return i.palette[i.indices[dove]].blue >> 8;
    }
};

Coppia mappa(Coppia p) {
    attaccoAttivo.Traf4Pt(p.x, p.y);
    return p;
}

struct Errore {
    double medio, massimo;   // root mean square and largest, in squares
};
template <class Mappa>
Errore errore(const std::vector<Coppia>& sulla, const std::vector<Coppia>& vista, double lato, Mappa letta) {
    double quadrati = 0, massimo = 0;
    for (std::size_t i = 0; i < sulla.size(); ++i) {
        const Coppia p = letta(vista[i]);
        const double e = std::hypot(p.x - sulla[i].x, p.y - sulla[i].y) / lato;
        quadrati += e * e;
        massimo = std::max(massimo, e);
    }
    return {std::sqrt(quadrati / static_cast<double>(sulla.size())), massimo};
}

}   // namespace

TEST(Fotografie, FourCrossingsOfABoardReadBackTheOthers) {
    const char* dati = std::getenv("TESSARO_DATA");
    if (!dati || !std::filesystem::is_directory(std::string(dati) + "/photo")) {
        std::puts("no folder of real files (TESSARO_DATA): nothing tried");
        return;
    }
    constexpr double lato = 100;   // of a square on the board, sheet units
    for (const Foto& f : foto) {
        SCOPED_TRACE(f.nome);
        fogliovuoto();
        Grigi g;
        std::string motivo;
        ASSERT_TRUE(DecodeImageFile(FSMakeFSSpec(std::string(dati) + "/photo/" + f.nome), g.i, motivo)) << motivo;
        const std::string jpeg = g.i.jpegBytes;   // a photograph comes as it is stored
        ASSERT_TRUE(DecodeImageBytes(jpeg, 1, g.i));
        Quad angoli = f.angoli;
        for (Coppia& c : angoli) {
            const Coppia a = incrocioVicino(g, c);
            EXPECT_LT(std::hypot(a.x - c.x, a.y - c.y), 1.5);
            c = a;
        }
        const double w = f.colonne * lato, h = f.righe * lato;
        const Quad tavola{{{0, h}, {0, 0}, {w, 0}, {w, h}}};
        testing::internal::CaptureStderr();
        std::vector<Coppia> sulla, vista;   // a crossing on the board, and where it is seen: looked for near its place
        preparaAttacco(tavola, angoli);
        for (int r = 0; r <= f.righe; ++r) {
            for (int c = 0; c <= f.colonne; ++c) {
                sulla.push_back({c * lato, r * lato});
                vista.push_back(incrocioVicino(g, mappa(sulla.back())));
            }
        }
        preparaAttacco(angoli, tavola);
        (void)testing::internal::GetCapturedStderr();
        const Errore omografia = errore(sulla, vista, lato, mappa);
        const Errore curva = errore(sulla, vista, lato, [](Coppia p) {
            TrasformaFuga(attaccoAttivo.lavoro, true, p.x, p.y);
            return p;
        });
        std::printf(
            "%s: %zu crossings, error in squares, rms and largest: homography %.4f %.4f, two-piece curve %.4f %.4f\n",
            f.nome, sulla.size(), omografia.medio, omografia.massimo, curva.medio, curva.massimo);
        EXPECT_LT(omografia.massimo, 0.15);   // what the lens bends
        EXPECT_LT(curva.massimo, 0.15);
    }
}
