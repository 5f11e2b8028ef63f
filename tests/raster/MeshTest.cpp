// Rectification by meshes against the plain walk of every cell over the whole source, and the checks before it.
#include <gtest/gtest.h>

#include <random>

#include "Banco.h"
#include "digitising/Attacchi.h"
#include "model/Archivio.h"
#include "model/Selezione.h"
#include "raster/RettificaMesh.h"
#include "support/Avvisi.h"

using namespace prova;

namespace {

using MeshRaster = BancoRaster;

Coppia nodo(const Mesh& m, int r, int c) { return {m.x[r][c], m.y[r][c]}; }

// Each cell walks all of the source, and the polygon of six says which pixels are its own.
void ognicella(const Tela& src, Tela& dst) {
    for (int r = 0; r < meshOrigine.ny - 1; ++r)
        for (int c = 0; c < meshOrigine.nx - 1; ++c) {
            const int dr[] = {0, 0, 1, 1}, dc[] = {0, 1, 1, 0};
            for (std::int16_t i = 0; i < 4; ++i) {
                const Coppia s = nodo(meshOrigine, r + dr[i], c + dc[i]),
                             d = nodo(meshDestinazione, r + dr[i], c + dc[i]);
                AssegnaAttacco(static_cast<std::int16_t>(i + 1), s.x, s.y);
                attaccoAttivo.SetXYAtt(i, d.x, d.y);
                Xtaglio[static_cast<std::size_t>(i)] = s.x;
                Ytaglio[static_cast<std::size_t>(i)] = s.y;
            }
            Xtaglio[4] = Xtaglio[0];
            Ytaglio[4] = Ytaglio[0];
            ultimoTaglio = 5;
            attaccoAttivo.PreparaAttacco();
            cicloPiano(src, dst, true);
        }
}

TEST_F(MeshRaster, everyPixelIsThatOfThePlainWalk) {
    const SenzaTraccia muto;
    for (std::uint32_t giro = 0; giro < 12; ++giro) {
        SetUp();
        std::mt19937 sorte(giro);
        std::uniform_real_distribution<double> scarto(-9, 9);
        const std::int32_t n = mettiPict(pixelAcaso(60, 50, giro), 100, 50, 240, 200);
        const int nx = 2 + static_cast<int>(giro % 4), ny = 2 + static_cast<int>(giro % 3);
        faiMesh(meshOrigine, nx, ny, [&](int r, int c) {
            return Coppia{110 + 200.0 * r / (ny - 1) + scarto(sorte), 60 + 170.0 * c / (nx - 1) + scarto(sorte)};
        });
        faiMesh(meshDestinazione, nx, ny, [&](int r, int c) {
            return Coppia{400 + 230.0 * r / (ny - 1) + scarto(sorte), 80 + 190.0 * c / (nx - 1) + scarto(sorte)};
        });
        // What an earlier polygon left behind the cell's counts as a vertex of it.
        Xtaglio[5] = giro % 3 == 0 ? 0 : 150 + giro * 3;
        Ytaglio[5] = giro % 3 == 1 ? 0 : 120 + giro * 2;
        attaccoAttivo.tipo = giro % 5 == 4 ? 2 : 1;
        preparaAttacco({{{1, 2}, {3, 4}, {5, 4}, {7, 1}}}, {{{10, 20}, {30, 40}, {50, 41}, {70, 12}}});
        coeffRisoluzione = 72.0 / 72;
        bitColore = BitDi(static_cast<std::int16_t>(giro % 3 + 1));
        filiRaster = 1 + static_cast<std::int32_t>(giro % 2);
        CalcolaVerticiMesh(Elem(n));
        const double stantiaX = Xtaglio[5], stantiaY = Ytaglio[5];
        ASSERT_TRUE(PictureToPixMapMesh(Elem(n).pict.maniglia)) << giro;
        EXPECT_EQ(Xtaglio[5], stantiaX);
        EXPECT_EQ(Ytaglio[5], stantiaY);
        EXPECT_EQ(LeggiAttacco(3).x, 5) << "the control points are as before";
        double x = 0, y = 0;
        attaccoAttivo.GetAttacco(4, x, y);
        EXPECT_EQ(x, 70);
        const Pixels avuta = pixelDelPict(Elem(indElem).pict.maniglia);
        const Pixels attesa = giudica(Elem(n).pict.maniglia, [](const Tela& a, Tela& b) { ognicella(a, b); });
        ASSERT_EQ(differenza(avuta, attesa), "") << giro;
        EXPECT_NEAR(Elem(indElem).pict.x, x1Pict2, 1e-9);
    }
}

TEST_F(MeshRaster, aMeshOfOneNodePassesAndGivesABlankPicture) {
    const std::int32_t n = mettiPict(pixelAcaso(10, 10, 1), 0, 0, 100, 100);
    seleziona(n, oPict);
    faiMesh(meshOrigine, 1, 1, [](int, int) { return Coppia{10, 10}; });
    faiMesh(meshDestinazione, 1, 1, [](int, int) { return Coppia{20, 30}; });
    ASSERT_TRUE(VerificaMesh());
    coeffRisoluzione = 2;
    CalcolaVerticiMesh(Elem(n));
    ASSERT_TRUE(PictureToPixMapMesh(Elem(n).pict.maniglia));
    for (const std::uint32_t p : pixelDelPict(Elem(indElem).pict.maniglia).p) EXPECT_EQ(p, 0xFFFFFFFFU);
    EXPECT_DOUBLE_EQ(Elem(indElem).pict.x, 20);
}

TEST_F(MeshRaster, whatIsMissingIsSaid) {
    const std::int32_t n = mettiPict(pixelAcaso(4, 4, 1), 0, 0, 100, 100), p = mettiPolilinea({{0, 0}, {9, 0}, {9, 9}});
    const auto errore = [] {
        avvisi.clear();
        EXPECT_FALSE(VerificaMesh());
        return avvisi.size() == 1 && avvisi[0].id == 999 ? avvisi[0].testo : std::string();
    };
    const auto griglia = [](int r, int c) { return Coppia{10.0 * r, 10.0 * c}; };
    seleziona(n, oPict);
    EXPECT_NE(errore().find("no source mesh"), std::string::npos);
    faiMesh(meshOrigine, 3, 2, griglia);
    EXPECT_NE(errore().find("no destination mesh"), std::string::npos);
    faiMesh(meshDestinazione, 2, 3, griglia);
    EXPECT_NE(errore().find("differ"), std::string::npos);
    faiMesh(meshDestinazione, 3, 2, griglia);
    EXPECT_TRUE(VerificaMesh());
    seleziona(p, oPoligono);
    EXPECT_NE(errore().find("one element"), std::string::npos);
    Puntosel.multipla = 0;
    EXPECT_NE(errore().find("not a picture"), std::string::npos);
}

}   // namespace
