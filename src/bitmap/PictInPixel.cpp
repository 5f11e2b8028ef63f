// Rows out of the raster, or of figures played on a port that stands where the rows are.
#include "bitmap/PictInPixel.h"

#include <algorithm>
#include <new>

#include "platform/pict/Pict.h"

namespace tessaro {

PictInPixel::PictInPixel(std::string_view pict) : bytes(pict), piramide(pict) {
    Rect frame;
    double x = 0, y = 0;
    if (soloRaster())
        propria = Misura{piramide.width(), piramide.height()};
    else if (PictFrame(pict, frame, x, y))
        propria = Misura{frame.right - frame.left, frame.bottom - frame.top};
    voluta = propria;
}

PictInPixel::~PictInPixel() = default;

bool PictInPixel::misura(std::int32_t w, std::int32_t h) {
    constexpr std::int32_t massimo = 1 << 28;
    if (w < 1 || h < 1 || w > massimo || h > massimo) return false;
    voluta = Misura{w, h};
    riduttore.reset();
    return true;
}

bool PictInPixel::righe(std::int32_t y, std::int32_t n, std::uint32_t* out) {
    if (y < 0 || n < 1 || n > voluta.height - y) return false;
    try {
        return soloRaster() ? righePixel(y, n, out) : righeFigure(y, n, out);
    } catch (const std::bad_alloc&) { return false; }
}

bool PictInPixel::righePixel(std::int32_t y, std::int32_t n, std::uint32_t* out) {
    const auto quanti = static_cast<std::size_t>(n) * static_cast<std::size_t>(voluta.width);
    if (!riduttore) {
        FonteRighe* fonte = piramide.intera();
        if (fonte == nullptr) {
            std::fill_n(out, quanti, 0xFFFFFFFFU);
            return false;
        }
        // The decoded size rules where it differs from the described one.
        if (voluta.width == propria.width && voluta.height == propria.height
            && (fonte->width != propria.width || fonte->height != propria.height))
            propria = Misura{fonte->width, fonte->height};
        const Posa posa{0, 0, double(voluta.width) / fonte->width, double(voluta.height) / fonte->height};
        riduttore.emplace(*fonte, posa, 0, voluta.width);
    }
    riduttore->righe(y, n, out);
    for (std::size_t i = 0; i < quanti; ++i)
        if (out[i] >> 24 == 0) out[i] = 0xFFFFFFFFU;
    return true;
}

bool PictInPixel::righeFigure(std::int32_t y, std::int32_t n, std::uint32_t* out) {
    if (!porto || porto->deviceWidth() != voluta.width || porto->deviceHeight() != n)
        porto = std::make_unique<RasterPort>(voluta.width, n, 1);
    const GrafPtr prima = GetPort();
    const Rect righe{y, 0, y + n, voluta.width};
    SetPort(porto.get());
    SetOrigin(0, y);
    ClipRect(righe);
    EraseRect(righe);
    const bool bene = DrawPicture(bytes, Rect{0, 0, voluta.height, voluta.width});
    SetPort(prima);
    const std::uint32_t* da = porto->pixels();
    for (std::int32_t i = 0; i < n; ++i)
        out = std::copy(da + i * porto->rowPixels(), da + i * porto->rowPixels() + voluta.width, out);
    return bene;
}

}   // namespace tessaro
