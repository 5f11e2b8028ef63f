// Rows to pixel opcodes: units for sides beyond 16 bits, and the choice of colours at 8 bits.
#include "platform/pict/DaRighe.h"

#include <algorithm>

namespace tessaro {

namespace {

constexpr std::int32_t latiCubo = 6, passoCubo = 51, grigi = 40;   // 216 colours and 40 greys between theirs
constexpr std::size_t massimo = 0x7FFFFFFF;

std::uint8_t grigioEguale(std::int32_t i) { return static_cast<std::uint8_t>((i + 1) * 255 / (grigi + 1)); }

}   // namespace

const std::vector<RGBColor>& ColoriEguali() {
    static const std::vector<RGBColor> tutti = [] {
        std::vector<RGBColor> c;
        const auto lato = [](std::int32_t i) { return static_cast<std::uint16_t>(i * passoCubo * 257); };
        for (std::int32_t r = 0; r < latiCubo; ++r)
            for (std::int32_t g = 0; g < latiCubo; ++g)
                for (std::int32_t b = 0; b < latiCubo; ++b) c.push_back(RGBColor{lato(r), lato(g), lato(b)});
        for (std::int32_t i = 0; i < grigi; ++i) {
            const auto v = static_cast<std::uint16_t>(grigioEguale(i) * 257);
            c.push_back(RGBColor{v, v, v});
        }
        return c;
    }();
    return tutti;
}

std::uint8_t ColoreEguale(std::uint32_t pixel) {
    const auto r = static_cast<std::int32_t>((pixel >> 16) & 0xFF);
    const auto g = static_cast<std::int32_t>((pixel >> 8) & 0xFF);
    const auto b = static_cast<std::int32_t>(pixel & 0xFF);
    const auto scarto = [&](std::int32_t x, std::int32_t yy, std::int32_t z) {
        return (x - r) * (x - r) + (yy - g) * (yy - g) + (z - b) * (z - b);
    };
    const auto vicino = [](std::int32_t v) { return (v + passoCubo / 2) / passoCubo; };
    const std::int32_t cr = vicino(r), cg = vicino(g), cb = vicino(b);
    const std::int32_t medio = (r + g + b) / 3;
    const std::int32_t i = std::clamp((medio * (grigi + 1) + 127) / 255 - 1, 0, grigi - 1);
    const std::int32_t v = grigioEguale(i);
    if (scarto(v, v, v) < scarto(cr * passoCubo, cg * passoCubo, cb * passoCubo))
        return static_cast<std::uint8_t>(latiCubo * latiCubo * latiCubo + i);
    return static_cast<std::uint8_t>((cr * latiCubo + cg) * latiCubo + cb);
}

PictDaRighe::PictDaRighe(std::int32_t width, std::int32_t height, const FormaPict& f)
    : largo(width), alto(height), forma(f) {
    if (largo <= 0 || alto <= 0) return;
    const UnitaRaster u = UnitaPer(largo, alto);
    posto = PostoBits{Rect{0, 0, u.spazio.bottom * u.pixel, u.spazio.right * u.pixel}, u.spazio, forma.mode};
    if (EmptyRect(forma.frame)) {
        forma.frame = FramePer(largo, alto, forma.dpiX, forma.dpiY);
    } else {
        forma.dpiX = 72.0 * largo / (double(forma.frame.right) - forma.frame.left);
        forma.dpiY = 72.0 * alto / (double(forma.frame.bottom) - forma.frame.top);
    }
    scrittore.testa(forma.frame, u.spazio, forma.dpiX / u.pixel, forma.dpiY / u.pixel);
    if (forma.depth == 8)
        indici.reserve(static_cast<std::size_t>(largo) * static_cast<std::size_t>(alto));
    else
        corso = std::make_unique<PixelInCorso>(scrittore, largo, alto, posto, forma.depth);
}

void PictDaRighe::passaAEguali() {
    std::vector<std::uint8_t> nuovi;
    nuovi.reserve(colori.size());
    for (const RGBColor& c : colori) nuovi.push_back(ColoreEguale(pixelDi(c)));
    for (std::uint8_t& i : indici) i = nuovi[i];
    colori = ColoriEguali();
    numeri.clear();
    eguali = true;
}

void PictDaRighe::rigaIndici(const std::uint32_t* pixels) {
    std::uint32_t ultimo = 0;
    std::uint8_t numero = 0;
    for (std::int32_t x = 0; x < largo; ++x) {
        const std::uint32_t p = pixels[x] | 0xFF000000U;
        if (p != ultimo) {
            const auto trovato = eguali ? numeri.end() : numeri.find(p);
            if (!eguali && trovato == numeri.end() && colori.size() == 256) passaAEguali();
            if (eguali) {
                numero = ColoreEguale(p);
            } else if (trovato != numeri.end()) {
                numero = trovato->second;
            } else {
                numero = static_cast<std::uint8_t>(colori.size());
                numeri.emplace(p, numero);
                colori.push_back(coloreDi(p));
            }
            ultimo = p;
        }
        indici.push_back(numero);
    }
}

void PictDaRighe::riga(const std::uint32_t* pixels) {
    if (y >= alto || largo <= 0 || scrittore.bytes.size() > massimo) return;
    ++y;
    if (corso)
        corso->riga(pixels);
    else
        rigaIndici(pixels);
}

std::string PictDaRighe::fine() {
    if (largo <= 0 || alto <= 0) return {};
    if (y < alto) {
        const std::vector<std::uint32_t> bianca(static_cast<std::size_t>(largo), 0xFFFFFFFFU);
        while (y < alto && scrittore.bytes.size() <= massimo) riga(bianca.data());
    }
    if (!corso) ScriviIndici(scrittore, indici.data(), colori, largo, alto, colori.size() <= 2 ? 1 : 8, posto);
    indici = {};
    if (scrittore.bytes.size() > massimo) return {};
    return scrittore.fine();
}

}   // namespace tessaro
