// Maps that are damaged, hostile, or have control points instead of a place: the drawing stays whole, and the process that
// tries the file first is the one that falls.
#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <unistd.h>

#include "maps/Gdal.h"
#include "maps/Mappe.h"
#include "maps/Prova.h"
#include "maps/SistemaRiferimento.h"
#include "model/Estensioni.h"
#include "model/Unita.h"
#include "platform/Process.h"
#include "registration/TabellaPunti.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"
#include "support/Invarianti.h"

using namespace tessaro;
using namespace prova;

namespace {

namespace fs = std::filesystem;

// A folder of its own, gone at the end.
struct Cartella {
    fs::path dove = fs::temp_directory_path() / ("tessaro-guasti-" + std::to_string(getpid()));
    Cartella() { fs::create_directories(dove); }
    ~Cartella() { fs::remove_all(dove); }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;
    [[nodiscard]] std::string file(const std::string& nome) const { return (dove / nome).string(); }
};

std::string leggi(const fs::path& p) {
    std::ifstream f(p, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), {}};
}
void scrivi(const fs::path& p, const std::string& s) { std::ofstream(p, std::ios::binary) << s; }

// A grey TIFF of 8 by 6 pixels; `conti` are its tie points, six numbers each, and `scala` its pixel's size when not 0.
std::string tiff(const std::vector<double>& conti, double scala) {
    constexpr std::uint32_t w = 8, h = 6, cornice = 8 + w * h;
    std::string s("II*\0\0\0\0\0", 8), coda;
    s[4] = static_cast<char>(cornice);
    for (std::uint32_t i = 0; i < w * h; ++i) s += static_cast<char>(5 * i);
    struct Voce {
        std::uint16_t tag, tipo;
        std::uint32_t quanti, valore;
    };
    std::vector<Voce> voci = {{256, 3, 1, w}, {257, 3, 1, h}, {258, 3, 1, 8}, {259, 3, 1, 1},    {262, 3, 1, 1},
                              {273, 4, 1, 8}, {277, 3, 1, 1}, {278, 3, 1, h}, {279, 4, 1, w * h}};
    const std::uint32_t dopo = cornice + 2 + 12 * static_cast<std::uint32_t>(voci.size() + 1 + (scala > 0)) + 4;
    const auto doppi = [&](std::uint16_t tag, const std::vector<double>& v) {
        voci.push_back({tag, 12, static_cast<std::uint32_t>(v.size()), dopo + static_cast<std::uint32_t>(coda.size())});
        for (const double d : v)
            for (int i = 0; i < 8; ++i) coda += static_cast<char>(std::bit_cast<std::uint64_t>(d) >> (8 * i) & 0xFF);
    };
    if (scala > 0) doppi(33550, {scala, scala, 0});
    doppi(33922, conti);
    const auto intero = [&s](std::uint32_t v, int byte) {
        for (int i = 0; i < byte; ++i) s += static_cast<char>(v >> (8 * i) & 0xFF);
    };
    intero(static_cast<std::uint32_t>(voci.size()), 2);
    for (const Voce& v : voci) {
        intero(v.tag, 2);
        intero(v.tipo, 2);
        intero(v.quanti, 4);
        intero(v.valore, 4);
    }
    intero(0, 4);
    return s + coda;
}

const std::vector<double> quattroConti = {0, 0, 0, 1000, 5000, 0, 8, 0, 0, 1080, 5001, 0,
                                          8, 6, 0, 1081, 4940, 0, 0, 6, 0, 1001, 4939, 0};

// Cut, a byte turned over, a run of noise: what happens to files.
std::string guasta(std::string s, std::mt19937& sorte) {
    if (s.empty()) return s;
    switch (sorte() % 3) {
    case 0: return s.substr(0, sorte() % s.size());
    case 1:
        for (int i = 0; i < 4; ++i) s[sorte() % s.size()] = static_cast<char>(sorte());
        return s;
    default: {
        const std::size_t da = sorte() % s.size(), n = std::min<std::size_t>(s.size() - da, 1 + sorte() % 64);
        for (std::size_t i = 0; i < n; ++i) s[da + i] = static_cast<char>(sorte());
        return s;
    }
    }
}

#define SENZA_GDAL()                                                                                                   \
    if (CaricaGdal() == nullptr) GTEST_SKIP() << "GDAL is not installed"

}   // namespace

TEST(MappeGuaste, WhateverIsWrongWithAFileTheDrawingStaysWhole) {
    SENZA_GDAL();
    const Cartella c;
    fogliovuoto(200);
    segmento(100, 100, 500, 700);
    Memorizza(tTesto, 500, 700, 0, 0, 0, 0, 1, 2, 0, PStr255("muro"));
    Memorizza(tPoligono, 100, 100, 5, 0, 0, 3, 2, 3, 4, PStr255(""));
    Memorizza(tVertice, 200, 100, 6, 0, 0, 0, 2, 3, 4, PStr255(""));
    Memorizza(tVertice, 200, 300, 6, 0, 0, 0, 2, 3, 4, PStr255(""));
    for (const char* const nome : {"m.gpkg", "m.shp", "m.geojson"}) ScriviMappa(FSMakeFSSpec(c.file(nome)));
    scrivi(c.file("m.tif"), tiff({0, 0, 0, 1000, 5000, 0}, 0.5));
    std::vector<fs::path> interi;
    for (const auto& f : fs::directory_iterator(c.dove)) interi.push_back(f.path());
    std::sort(interi.begin(), interi.end());
    ASSERT_GE(interi.size(), 6U) << "the shapefile has parts";
    std::mt19937 sorte(5);
    int letti = 0, provati = 0;
    for (const fs::path& p : interi) {
        const std::string intero = leggi(p);
        for (int giro = 0; giro < 5; ++giro) {
            scrivi(p, guasta(intero, sorte));
            // Parts of a shapefile are opened by the part with the shapes.
            const bool raster = p.extension() == ".tif";
            const fs::path apri = raster || p.extension() == ".gpkg" || p.extension() == ".geojson"
                                      ? p
                                      : fs::path(p).replace_extension(".shp");
            fogliovuoto(200);
            AzzeraEstensioni();
            bottoni[9351] = bottoni[9352] = 1;
            if (raster)
                LeggiRaster(FSMakeFSSpec(apri.string()));
            else
                LeggiMappa(FSMakeFSSpec(apri.string()));
            ++provati;
            letti += indElem > 2;
            ASSERT_EQ(guastoFigure(), "") << p << ", damage " << giro;
            ASSERT_EQ(guastoSelezione(), "") << p << ", damage " << giro;
        }
        scrivi(p, intero);
    }
    EXPECT_GT(letti, 0) << "some damage is of no account";
    EXPECT_LT(letti, provati);
}

TEST(MappeGuaste, WhatBringsTheLibraryDownTakesAnotherProcess) {
    SENZA_GDAL();
    if (ProgrammaProprio().empty()) GTEST_SKIP() << "the program itself is not built";
    const Cartella c;
    scrivi(c.file("m.geojson"), R"({"type":"Point","coordinates":[1,2]})");
    fogliovuoto();
    bottoni[9351] = bottoni[9352] = 1;
    setenv("TESSARO_GDAL", TESSARO_BREAKDOWN, 1);   // of the other process: this one has its library already
    LeggiMappa(FSMakeFSSpec(c.file("m.geojson")));
    unsetenv("TESSARO_GDAL");
    EXPECT_EQ(indElem, 2);
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
    EXPECT_NE(avvisi[0].testo.find("GDAL breaks down"), std::string::npos) << avvisi[0].testo;
    EXPECT_TRUE(ProvaFile(FSMakeFSSpec(c.file("m.geojson")), Prova::vettori)) << "and a good one passes";
}

TEST(MappeGuaste, ARasterWithControlPointsAloneBringsThemToTheTable) {
    SENZA_GDAL();
    const Cartella c;
    scrivi(c.file("p.tif"), tiff(quattroConti, 0));
    fogliovuoto();
    AzzeraEstensioni();
    LeggiRaster(FSMakeFSSpec(c.file("p.tif")));
    ASSERT_EQ(indElem, 3) << (avvisi.empty() ? "" : avvisi.back().testo);
    const auto& pict = Elem(3).pict;
    const TabellaPunti& t = LaTabella();
    ASSERT_EQ(t.righe.size(), 4U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(t.righe[i].foglio.x, pict.x + pict.larghezza * quattroConti[6 * i] / 8, 1e-9);
        EXPECT_NEAR(t.righe[i].foglio.y, pict.y + pict.altezza * quattroConti[6 * i + 1] / 6, 1e-9);
        EXPECT_EQ(t.righe[i].reale.x, quattroConti[6 * i + 3]);
        EXPECT_EQ(t.righe[i].reale.y, quattroConti[6 * i + 4]);
    }
    EXPECT_FALSE(Elem(2).att.coordReali) << "the person chooses the method";
    AzzeraEstensioni();
}
