// Opening a picture's pixels, and drawing it in strips.
#include "raster/Sorgente.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "bitmap/PerRighe.h"
#include "bitmap/Piramide.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Compressa.h"
#include "platform/pict/Pict.h"
#include "platform/pict/RighePict.h"

namespace tessaro {

namespace {

struct FontePict final : FonteRighe {
    Piramide piramide;
    FonteRighe* intera;
    explicit FontePict(std::string_view pict) : piramide(pict), intera(piramide.intera()) {
        if (intera == nullptr) return;
        width = intera->width;
        height = intera->height;
        buchi = intera->buchi;
    }
    void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) override {
        intera->riga(y, x0, x1, out);
    }
};

std::unique_ptr<FonteRighe> spacchettata(FonteRighe& da) {
    auto f = std::make_unique<FonteTela>();
    f->width = da.width;
    f->height = da.height;
    f->buchi = da.buchi;
    f->pixel.resize(static_cast<std::size_t>(da.width) * static_cast<std::size_t>(da.height));
    for (std::int32_t y = 0; y < da.height; ++y)
        da.riga(y, 0, da.width, f->pixel.data() + std::ptrdiff_t(y) * da.width);
    return f;
}

}   // namespace

void FonteTela::riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) {
    const std::uint32_t* da = pixel.data() + std::ptrdiff_t(y) * width;
    std::copy(da + x0, da + x1, out);
}

std::unique_ptr<FonteRighe> ApriFonte(std::string_view pict, std::int64_t memoria) {
    try {
        auto f = std::make_unique<FontePict>(pict);
        if (f->intera == nullptr) return nullptr;
        if (f->piramide.specie() == Piramide::Specie::righe && std::int64_t(f->width) * f->height * 4 <= memoria)
            return spacchettata(*f);
        return f;
    } catch (const std::bad_alloc&) { return nullptr; }
}

Sorgente::Sorgente(std::string_view pict, std::int64_t larghezza, std::int64_t altezza, std::int16_t bit,
                   std::int64_t memoria)
    : bytes(pict), largo(static_cast<std::int32_t>(larghezza)), alto(static_cast<std::int32_t>(altezza)),
      fonte(ApriFonte(pict, memoria)), forma(FormatoPer(bit, fonte.get())) {
    ImmagineCompressa c;
    buona = fonte != nullptr || (VociPict(pict).valido() && !SolaCompressa(pict, c));
}

Sorgente::~Sorgente() = default;

// A picture of figures is played anew for each strip: fewer and larger ones.
// One thread works best on what its cache holds; several are given enough to be worth their start.
std::int64_t Sorgente::pixelPerStriscia() const {
    if (!fonte) return 24 << 20;
    return Fili() > 1 ? 1 << 20 : 1 << 16;
}

void Sorgente::metti(std::int32_t y, std::int32_t da, std::int32_t a, const std::uint32_t* pixel) {
    std::uint8_t* riga = striscia.data() + std::int64_t(y - cima) * byteRiga;
    forma->codifica(pixel, a - da, riga + std::int64_t(da - sinistra) * forma->byte());
}

bool Sorgente::disegna(std::int32_t top, std::int32_t n, std::int32_t left, std::int32_t right) {
    cima = top;
    sinistra = left;
    byteRiga = std::int64_t(right - left) * forma->byte();
    try {
        striscia.resize(static_cast<std::size_t>(byteRiga * n));
        if (fonte == nullptr) {
            righeFigure(top, n, left, right);
        } else {
            righeRaster(top, n, left, right);
        }
    } catch (const std::bad_alloc&) { return false; }
    return true;
}

void Sorgente::righeRaster(std::int32_t top, std::int32_t n, std::int32_t left, std::int32_t right) {
    const Posa posa{0, 0, double(largo) / fonte->width, double(alto) / fonte->height};
    if (!riduttore || left != colonnaDa || right != colonnaA) {
        riduttore = std::make_unique<Riduttore>(*fonte, posa, left, right - left);
        colonnaDa = left;
        colonnaA = right;
    }
    const std::int32_t w = right - left;
    if (forma->bit == 32 && !fonte->buchi) {   // as they come
        riduttore->righe(top, n, reinterpret_cast<std::uint32_t*>(striscia.data()));
        return;
    }
    banco.resize(static_cast<std::size_t>(w) * static_cast<std::size_t>(n));
    riduttore->righe(top, n, banco.data());
    for (std::int32_t k = 0; k < n; ++k) metti(top + k, left, right, banco.data() + std::int64_t(k) * w);
}

void Sorgente::righeFigure(std::int32_t top, std::int32_t n, std::int32_t left, std::int32_t right) {
    RasterPort porto(right - left, n, 1);
    const GrafPtr prima = GetPort();
    SetPort(&porto);
    DrawPicture(bytes, Rect{-top, -left, alto - top, largo - left});
    SetPort(prima);
    for (std::int32_t k = 0; k < n; ++k)
        metti(top + k, left, right, porto.pixels() + std::ptrdiff_t(k) * porto.rowPixels());
}

bool Sorgente::intera(Tela& t) {
    if (!NuovaTela(t, largo, alto, *forma, false)) return false;
    const auto perVolta = static_cast<std::int32_t>(std::clamp<std::int64_t>(pixelPerStriscia() / largo, 1, alto));
    for (std::int32_t y = 0; y < alto; y += perVolta) {
        const std::int32_t n = std::min(perVolta, alto - y);
        if (!disegna(y, n, 0, largo)) return false;
        for (std::int32_t k = 0; k < n; ++k)
            std::memcpy(t.riga(y + k), riga(y + k), static_cast<std::size_t>(byteRiga));
    }
    return true;
}

}   // namespace tessaro
