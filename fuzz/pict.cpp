// Any bytes as a stored picture: it is played on a raster, taken as one raster, and played on the recorder.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bitmap/PictInPixel.h"
#include "platform/paint/RasterPort.h"
#include "platform/pict/Pict.h"
#include "platform/pict/RighePict.h"

using namespace tessaro;

namespace {

void leggiRighe(std::string_view bytes) {
    RighePict righe;
    if (!righe.apri(bytes)) return;
    std::vector<std::uint32_t> riga(static_cast<std::size_t>(righe.width()));
    for (const std::int32_t y : {0, righe.height() / 2, righe.height() - 1})
        righe.riga(y, 0, righe.width(), riga.data());
}

// Rows at another size than the picture's own, as the raster engine asks for them.
void leggiPixel(std::string_view bytes) {
    constexpr std::int32_t lato = 24, perVolta = 8;
    PictInPixel pixel(bytes);
    std::vector<std::uint32_t> righe(static_cast<std::size_t>(lato) * perVolta);
    if (!pixel.misura(lato, lato)) return;
    for (std::int32_t y = 0; y < lato; y += perVolta) pixel.righe(y, perVolta, righe.data());
}

}   // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr Rect vista{0, 0, 64, 96};
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Rect frame;
    double x = 0, y = 0;
    PictFrame(bytes, frame, x, y);
    PictRaster raster;
    PictSoloRaster(bytes, raster);
    leggiRighe(bytes);
    leggiPixel(bytes);
    static RasterPort porta(vista.right, vista.bottom, 1);
    SetPort(&porta);
    DrawPicture(bytes, vista);
    OpenPicture(vista);
    DrawPicture(bytes, vista);
    const std::string copia = ClosePicture();
    if (!VociPict(copia).valido()) __builtin_trap();   // what the recorder writes can be read
    DrawPicture(copia, vista);
    SetPort(nullptr);
    return 0;
}
