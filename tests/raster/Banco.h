// Pictures, polylines and meshes for the tests of the raster engine, and the plain loop over every source pixel that
// judges it.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "bitmap/PerRighe.h"
#include "model/Archivio.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/pict/Pict.h"
#include "raster/Percorri.h"
#include "raster/raster.h"
#include "registration/attaccoDinamico.h"
#include "registration/gauss.h"
#include "support/Attacco.h"

namespace prova {

using namespace tessaro;

struct Pixels {
    std::int32_t w = 0, h = 0;
    std::vector<std::uint32_t> p;
    [[nodiscard]] std::uint32_t at(std::int32_t x, std::int32_t y) const {
        return p[static_cast<std::size_t>(y) * static_cast<std::size_t>(w) + static_cast<std::size_t>(x)];
    }
    friend bool operator==(const Pixels&, const Pixels&) = default;
};

inline Pixels pixelAcaso(std::int32_t w, std::int32_t h, std::uint32_t seme) {
    Pixels q{w, h, std::vector<std::uint32_t>(static_cast<std::size_t>(w) * static_cast<std::size_t>(h))};
    std::mt19937 sorte(seme);
    for (auto& c : q.p) c = 0xFF000000U | (sorte() & 0xFFFFFF);
    return q;
}

inline Pixels pixelDelPict(PicHandle h) {
    const auto fonte = ApriFonte(PictBytes(h));
    if (!fonte) return {};
    Pixels q{
        fonte->width, fonte->height,
        std::vector<std::uint32_t>(static_cast<std::size_t>(fonte->width) * static_cast<std::size_t>(fonte->height))};
    for (std::int32_t y = 0; y < q.h; ++y) fonte->riga(y, 0, q.w, q.p.data() + std::ptrdiff_t(y) * q.w);
    return q;
}

// A picture element with its corner and size on the sheet; its number.
inline std::int32_t mettiPict(const Pixels& q, double x, double y, double larghezza, double altezza) {
    Memorizza(tPict, x, y, 0, larghezza, altezza, 0, 1, 1, 1, PStr255(""));
    Elem(indElem).pict.maniglia = NewPict(PictDaPixel(q.p.data(), q.w, q.h));
    return indElem;
}

inline std::int32_t mettiPolilinea(const std::vector<Coppia>& punti) {
    Memorizza(tPoligono, punti[0].x, punti[0].y, 0, 0, 0, 0, 1, 1, 1, PStr255(""));
    const std::int32_t testa = indElem;
    for (std::size_t i = 1; i < punti.size(); ++i)
        Memorizza(tVertice, punti[i].x, punti[i].y, 0, 0, 0, 0, 1, 1, 1, PStr255(""));
    return testa;
}

inline void seleziona(std::int32_t n, std::int32_t oggetto) {
    Elem(n).selezionato = 1;
    Puntosel.attiva = 1;
    Puntosel.oggetto = oggetto;
    Puntosel.indice = n;
    Puntosel.multipla = ++Puntosel.numSel > 1;
}

// A mesh whose nodes `f` places.
template <class F>
void faiMesh(Mesh& m, int nx, int ny, F f) {
    m.nx = static_cast<std::int16_t>(nx);
    m.ny = static_cast<std::int16_t>(ny);
    for (int r = 0; r < ny; ++r)
        for (int c = 0; c < nx; ++c) {
            const Coppia p = f(r, c);
            m.x[r][c] = p.x;
            m.y[r][c] = p.y;
        }
}

// The walk as it is told, pixel by pixel, over the sizes and places that are in force.
inline void cicloPiano(const Tela& src, Tela& dst, bool taglio) {
    const double stepS = DecPunto / coeffRisoluzioneSrc, stepD = coeffRisoluzione / DecPunto;
    for (std::int32_t v = pictRect.top; v < pictRect.bottom; ++v) {
        for (std::int32_t h = pictRect.left; h < pictRect.right; ++h) {
            double x = x1PictBase + h * stepS, y = y1PictBase + v * stepS;
            if (taglio && tipoTaglio == 1 && !InternoPol(x, y)) continue;
            attaccoAttivo.Traf4Pt(x, y);
            const double dh = std::trunc((x - x1Pict2) * stepD), dv = std::trunc((y - y1Pict2) * stepD);
            if (!(dh >= 0 && dh < dst.larghezza && dv >= 0 && dv < dst.altezza)) continue;
            if (taglio && tipoTaglio == 2 && !InternoPol(x, y)) continue;
            const auto b = static_cast<std::size_t>(dst.byte);
            std::memcpy(dst.riga(static_cast<std::int32_t>(dv)) + static_cast<std::size_t>(dh) * b,
                        src.riga(v) + static_cast<std::size_t>(h) * b, b);
        }
    }
}

// Source drawn whole, result erased, `ciclo` run, and the result as colours.
template <class Ciclo>
Pixels giudica(PicHandle pict, Ciclo ciclo) {
    Sorgente sorgente(PictBytes(pict), std::max(mapSizeX, 1U), std::max(mapSizeY, 1U), bitColore);
    Tela src, dst;
    EXPECT_TRUE(sorgente.intera(src));
    EXPECT_TRUE(NuovaTela(dst, larghBitMap, altBitMap, sorgente.formato(), true));
    ciclo(src, dst);
    Pixels q{
        dst.larghezza, dst.altezza,
        std::vector<std::uint32_t>(static_cast<std::size_t>(dst.larghezza) * static_cast<std::size_t>(dst.altezza))};
    for (std::int32_t y = 0; y < q.h; ++y)
        sorgente.formato().decodifica(dst.riga(y), q.w, q.p.data() + std::ptrdiff_t(y) * q.w);
    return q;
}

// Place of the first pixel that differs, for a message; empty when none does.
inline std::string differenza(const Pixels& a, const Pixels& b) {
    if (a.w != b.w || a.h != b.h)
        return std::to_string(a.w) + "x" + std::to_string(a.h) + " against " + std::to_string(b.w) + "x"
               + std::to_string(b.h);
    for (std::size_t i = 0; i < a.p.size(); ++i)
        if ((a.p[i] ^ b.p[i]) << 8 != 0)
            return "pixel " + std::to_string(i % static_cast<std::size_t>(a.w)) + ","
                   + std::to_string(i / static_cast<std::size_t>(a.w));
    return {};
}

class BancoRaster : public testing::Test {
protected:
    void SetUp() override {
        AzzeraStato();
        ASSERT_TRUE(AllocaElementi(200));
        AzzeraArchivio();
    }
};

}   // namespace prova
