// Bands of any kind as pixels of eight bits a colour.
#include "maps/RasterLetto.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "maps/SistemaGdal.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"

namespace tessaro {

namespace {

constexpr int righeInsieme = 256;

std::uint32_t opaco(int r, int v, int b) {
    return 0xFF000000U | static_cast<std::uint32_t>(r) << 16 | static_cast<std::uint32_t>(v) << 8
           | static_cast<std::uint32_t>(b);
}

// A colour laid on white paper.
int suBianco(int c, int alfa) { return (c * alfa + 255 * (255 - alfa) + 127) / 255; }

}   // namespace

bool RasterLetto::apri(const FSSpec& file) {
    ds.poni(g.GDALOpenEx(file.percorso.c_str(), gdal::soloRaster, driverRaster, nullptr, nullptr));
    if (ds == nullptr || g.GDALGetRasterCount(ds) < 1) return false;
    w = g.GDALGetRasterXSize(ds);
    h = g.GDALGetRasterYSize(ds);
    return w > 0 && h > 0;
}

bool RasterLetto::posto(Mondo& m, std::string& sistema) const {
    std::array<double, 6> s{};
    if (g.GDALGetGeoTransform(ds, s.data()) != 0) return false;
    m = {s[1], s[2], s[0] + (s[1] + s[2]) / 2, s[4], s[5], s[3] + (s[4] + s[5]) / 2};
    const double area = m.a * m.e - m.b * m.d;
    if (!std::isfinite(m.c + m.f) || !std::isfinite(area) || area == 0) return false;
    sistema = DefinizioneDi(g, g.GDALGetSpatialRef(ds));
    return true;
}

std::vector<RasterLetto::Punto> RasterLetto::punti(std::string& sistema) const {
    constexpr int massimi = 100000;
    std::vector<Punto> v;
    const gdal::ControlPoint* const p = g.GDALGetGCPs(ds);
    const int n = p == nullptr ? 0 : std::min(g.GDALGetGCPCount(ds), massimi);
    for (int i = 0; i < n; ++i)
        if (std::isfinite(p[i].pixel + p[i].line + p[i].x + p[i].y))
            v.push_back({p[i].id == nullptr ? "" : p[i].id, p[i].pixel, p[i].line, p[i].x, p[i].y});
    sistema = DefinizioneDi(g, g.GDALGetGCPSpatialRef(ds));
    return v;
}

// What is no byte is stretched from the least to the greatest of what the file holds.
RasterLetto::Banda RasterLetto::banda(int n) const {
    constexpr double passi = 255;
    Banda b;
    b.banda = g.GDALGetRasterBand(ds, n);
    b.byte = g.GDALGetRasterDataType(b.banda) == gdal::pixelByte;
    int dato = 0;
    const double vuoto = g.GDALGetRasterNoDataValue(b.banda, &dato);
    b.conVuoto = dato != 0;
    b.vuoto = vuoto;
    std::array<double, 2> estremi{};
    if (b.byte || g.GDALComputeRasterMinMax(b.banda, 1, estremi.data()) != 0) return b;
    b.minimo = estremi[0];
    const double ampiezza = estremi[1] - estremi[0];
    b.passo = std::isfinite(ampiezza) && ampiezza > 0 ? passi / ampiezza : 1;
    return b;
}

bool RasterLetto::righe(const Banda& b, int y, int n, std::vector<std::uint8_t>& out) {
    const std::size_t quanti = static_cast<std::size_t>(w) * static_cast<std::size_t>(n);
    out.assign(quanti, 255);
    if (b.byte) return g.GDALRasterIO(b.banda, gdal::legge, 0, y, w, n, out.data(), w, n, gdal::pixelByte, 0, 0) == 0;
    std::vector<double> v(quanti);
    if (g.GDALRasterIO(b.banda, gdal::legge, 0, y, w, n, v.data(), w, n, gdal::pixelDouble, 0, 0) != 0) return false;
    for (std::size_t i = 0; i < quanti; ++i) {
        const bool vuoto = !std::isfinite(v[i]) || (b.conVuoto && v[i] == b.vuoto);
        if (!vuoto) out[i] = static_cast<std::uint8_t>(std::clamp((v[i] - b.minimo) * b.passo + 0.5, 0.0, 255.0));
    }
    return true;
}

bool RasterLetto::palette(gdal::Oggetto banda, std::vector<RGBColor>& colori) const {
    const gdal::Oggetto tavola = g.GDALGetRasterColorTable(banda);
    if (tavola == nullptr) return false;
    colori.assign(256, RGBColor{0xFFFF, 0xFFFF, 0xFFFF});
    const int n = std::min(g.GDALGetColorEntryCount(tavola), 256);
    for (int i = 0; i < n; ++i) {
        gdal::ColorEntry c{};
        if (g.GDALGetColorEntryAsRGB(tavola, i, &c) == 0) continue;
        const auto canale = [&c](short v) {
            const int alfa = std::clamp<int>(c.c4, 0, 255);
            return static_cast<std::uint16_t>(suBianco(std::clamp<int>(v, 0, 255), alfa) * 257);
        };
        colori[static_cast<std::size_t>(i)] = {canale(c.c1), canale(c.c2), canale(c.c3)};
    }
    return true;
}

void RasterLetto::unaBanda(Immagine& im) {
    im.depth = 8;
    if (palette(g.GDALGetRasterBand(ds, 1), im.palette)) return;
    for (std::uint32_t i = 0; i < 256; ++i) {
        const auto grigio = static_cast<std::uint16_t>(i * 257);
        im.palette.push_back({grigio, grigio, grigio});
    }
}

bool RasterLetto::leggi(Immagine& im, bool& fermato) {
    const int bande = g.GDALGetRasterCount(ds);
    const auto cosa = [this](int n) { return g.GDALGetRasterColorInterpretation(g.GDALGetRasterBand(ds, n)); };
    im.width = w;
    im.height = h;
    const auto tutti = static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
    const bool grigio = bande < 3;
    const int alfa = grigio ? (bande == 2 ? 2 : 0) : (bande >= 4 && cosa(4) == gdal::bandaAlfa ? 4 : 0);
    std::vector<Banda> lette;
    for (int n = 1; n <= (grigio ? 1 : 3); ++n) lette.push_back(banda(n));
    if (alfa != 0) lette.push_back(banda(alfa));
    if (grigio) {
        unaBanda(im);
        im.indices.assign(tutti, 255);
    } else {
        im.depth = 32;
        im.pixels.assign(tutti, opaco(255, 255, 255));
    }
    bool bene = true;
    std::array<std::vector<std::uint8_t>, 4> fila;
    const bool tavola = grigio && g.GDALGetRasterColorTable(lette[0].banda) != nullptr;
    for (int y = 0; y < h; y += righeInsieme) {
        const int n = std::min(righeInsieme, h - y);
        bool buone = true;
        for (std::size_t i = 0; i < lette.size(); ++i) buone = righe(lette[i], y, n, fila[i]) && buone;
        bene = bene && buone;
        const std::size_t da = static_cast<std::size_t>(y) * static_cast<std::size_t>(w);
        const std::size_t quanti = static_cast<std::size_t>(n) * static_cast<std::size_t>(w);
        for (std::size_t i = 0; i < quanti && buone; ++i) {
            const int a = alfa != 0 ? fila[lette.size() - 1][i] : 255;
            const bool vuoto = lette[0].byte && lette[0].conVuoto && !tavola && grigio && fila[0][i] == lette[0].vuoto;
            if (grigio)
                im.indices[da + i] = tavola  ? fila[0][i]
                                     : vuoto ? 255
                                             : static_cast<std::uint8_t>(suBianco(fila[0][i], a));
            else
                im.pixels[da + i] = opaco(suBianco(fila[0][i], a), suBianco(fila[1][i], a), suBianco(fila[2][i], a));
        }
        fermato = !ProgressStep(static_cast<double>(y + n) / h) || escapePressed();
        if (fermato) return false;
    }
    return bene;
}

}   // namespace tessaro
