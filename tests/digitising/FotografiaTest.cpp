// A photograph from its file to the plane it shows: a grid of dots as a known camera sees it, imported, painted, its dots
// found in the painted pixels, registered by the four outermost, and the others read back.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "display/Disegno.h"
#include "model/Cursore.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "raster/Immagini.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr std::int32_t larga = 900, alta = 700;   // pixels of the photograph
constexpr int colonne = 9, righe = 6;             // dots
constexpr double passo = 100;                     // between dots, plane units
constexpr double raggio = 5;                      // of a dot, pixels

Coppia piano(int i, int j) { return {i * passo, j * passo}; }

// Focal length 1100 pixels, aimed at the grid's middle from 1400 units away, turned about all three axes.
Coppia fotografa(const Coppia& p) {
    const double x = p.x - 400, y = p.y - 250;
    const double x1 = std::cos(0.15) * x - std::sin(0.15) * y, y1 = std::sin(0.15) * x + std::cos(0.15) * y;
    const double x2 = std::cos(0.45) * x1, z2 = -std::sin(0.45) * x1;
    const double y3 = std::cos(-0.35) * y1 - std::sin(-0.35) * z2, z3 = std::sin(-0.35) * y1 + std::cos(-0.35) * z2;
    return {larga / 2 + 1100 * x2 / (1400 + z3), alta / 2 + 1100 * y3 / (1400 + z3)};
}

void metti32(std::string& s, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) s.push_back(static_cast<char>(v >> 8 * i));
}

// A bitmap file of 254 dots an inch, a pixel a sheet unit: white with dots whose rims are as grey as they cover.
std::string fotografia() {
    std::vector<double> nero(static_cast<std::size_t>(larga) * alta);
    for (int j = 0; j < righe; ++j) {
        for (int i = 0; i < colonne; ++i) {
            const Coppia c = fotografa(piano(i, j));
            for (auto y = static_cast<int>(c.y - raggio - 2); y < c.y + raggio + 2; ++y)
                for (auto x = static_cast<int>(c.x - raggio - 2); x < c.x + raggio + 2; ++x)
                    nero[static_cast<std::size_t>(y) * larga + static_cast<std::size_t>(x)] =
                        std::clamp(raggio + 0.5 - std::hypot(x + 0.5 - c.x, y + 0.5 - c.y), 0.0, 1.0);
        }
    }
    std::string s = "BM";
    for (const std::uint32_t v : {54U + larga * alta * 3U, 0U, 54U, 40U, std::uint32_t{larga}, std::uint32_t{alta},
                                  1U | 24U << 16, 0U, larga * alta * 3U, 10000U, 10000U, 0U, 0U})
        metti32(s, v);
    for (int y = alta - 1; y >= 0; --y)   // from the bottom; a row is a whole number of words
        for (int x = 0; x < larga; ++x)
            s.append(3, static_cast<char>(
                            255 * (1 - nero[static_cast<std::size_t>(y) * larga + static_cast<std::size_t>(x)])));
    return s;
}

// The middle of the dark pixels round a place, sheet units: how a person would place a point on a dot.
Coppia puntoDipinto(const RasterPort& porta, const Coppia& circa) {
    double peso = 0, sx = 0, sy = 0;
    for (auto y = static_cast<std::int32_t>(circa.y) - 12; y <= circa.y + 12; ++y) {
        for (auto x = static_cast<std::int32_t>(circa.x) - 12; x <= circa.x + 12; ++x) {
            const double scuro = 255 - static_cast<double>(porta.pixel(x, y) & 0xFF);
            peso += scuro;
            sx += scuro * (x + 0.5);
            sy += scuro * (y + 0.5);
        }
    }
    return {sx / peso, sy / peso};
}

}   // namespace

TEST(Fotografia, KnownPlacesComeBackFromAPictureOfAKnownCamera) {
    fogliovuoto();
    scalavid = 1;
    OrigX = OrigY = 0;
    AggiornaTolleranze();
    xcurs = ycurs = 0;
    const auto file = std::filesystem::temp_directory_path() / ("tessaro-foto-" + std::to_string(::getpid()) + ".bmp");
    std::ofstream(file, std::ios::binary) << fotografia();
    ASSERT_TRUE(ImportaImmagine(FSMakeFSSpec(file.string())));
    std::filesystem::remove(file);
    ASSERT_NEAR(Elem(indElem).pict.larghezza, larga, 1e-9);
    RasterPort porta(larga, alta, 1);
    SetPort(&porta);
    ClipRect(porta.portRect);
    Disegna();

    const std::array<std::pair<int, int>, 4> angoli{
        {{0, righe - 1}, {0, 0}, {colonne - 1, 0}, {colonne - 1, righe - 1}}};
    for (std::int16_t n = 1; n <= 4; ++n) {
        const auto [i, j] = angoli[static_cast<std::size_t>(n - 1)];
        const Coppia c = puntoDipinto(porta, fotografa(piano(i, j)));
        AssegnaAttacco(n, c.x, c.y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1), piano(i, j).x, piano(i, j).y);
    }
    attaccoAttivo.PreparaAttacco();
    EXPECT_EQ(GuastoAttacchi(attaccoAttivo.lavoro.src), 0);
    double peggiore = 0;
    for (int j = 0; j < righe; ++j) {
        for (int i = 0; i < colonne; ++i) {
            Coppia p = puntoDipinto(porta, fotografa(piano(i, j)));
            attaccoAttivo.Traf4Pt(p.x, p.y);
            peggiore = std::max(peggiore, std::hypot(p.x - piano(i, j).x, p.y - piano(i, j).y));
        }
    }
    SetPort(nullptr);
    EXPECT_LT(peggiore, 0.005 * passo);   // dots are found to a few hundredths of a pixel
    RecordProperty("worst_of_a_step", std::to_string(peggiore / passo));
    EXPECT_TRUE(avvisi.empty());
}
