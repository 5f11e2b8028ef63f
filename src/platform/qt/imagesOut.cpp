// Raster files written through the toolkit's writers, with their resolution.
#include <cmath>

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include "platform/Images.h"

namespace tessaro {

bool EncodeImage(FormatoImmagine formato, const PixMap& pixels, double dpiX, double dpiY, std::string& bytes) {
    constexpr double pollice = 0.0254;   // metres
    const char* const nomi[] = {"png", "tiff", "jpeg"};
    const Rect& r = pixels.bounds;
    if (EmptyRect(r) || pixels.base == nullptr) return false;
    QImage im(reinterpret_cast<const uchar*>(pixels.base), r.right - r.left, r.bottom - r.top, pixels.rowPixels * 4,
              QImage::Format_RGB32);
    if (im.isNull()) return false;
    im.setDotsPerMeterX(static_cast<int>(std::lround(dpiX / pollice)));
    im.setDotsPerMeterY(static_cast<int>(std::lround(dpiY / pollice)));
    QByteArray fatti;
    QBuffer memoria(&fatti);
    memoria.open(QIODevice::WriteOnly);
    QImageWriter scrittore(&memoria, nomi[static_cast<int>(formato)]);
    if (formato == FormatoImmagine::jpeg) scrittore.setQuality(92);
    if (formato == FormatoImmagine::tiff) scrittore.setCompression(1);   // LZW: every reader of the field knows it
    if (!scrittore.write(im)) return false;
    bytes.assign(fatti.constData(), static_cast<std::size_t>(fatti.size()));
    return true;
}

}   // namespace tessaro
