// Raster files written through the toolkit's writers, with their resolution.
#include <algorithm>
#include <cmath>

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include "platform/Dialogs.h"
#include "platform/Images.h"

namespace tessaro {

namespace {

constexpr double parteGiaFatta = 0.5;   // of the work that its callers did before: making the pixels

// Memory that a writer fills, as long as the person wants it. How much it will be is guessed from a band of rows.
class MemoriaSeguita : public QBuffer {
    qint64 attesi;

public:
    explicit MemoriaSeguita(QByteArray& dove, qint64 quanti) : QBuffer(&dove), attesi(std::max<qint64>(quanti, 1)) {}

protected:
    qint64 writeData(const char* dati, qint64 n) override {
        const double parte = std::min(1.0, static_cast<double>(pos()) / static_cast<double>(attesi));
        return ProgressStep(parteGiaFatta + (1 - parteGiaFatta) * parte) ? QBuffer::writeData(dati, n) : -1;
    }
};

bool scrivi(QIODevice& dove, FormatoImmagine formato, const QImage& im) {
    const char* const nomi[] = {"png", "tiff", "jpeg"};
    dove.open(QIODevice::WriteOnly);
    QImageWriter scrittore(&dove, nomi[static_cast<int>(formato)]);
    if (formato == FormatoImmagine::jpeg) scrittore.setQuality(92);
    if (formato == FormatoImmagine::tiff) scrittore.setCompression(1);   // LZW: every reader of the field knows it
    return scrittore.write(im);
}

qint64 bytesAttesi(FormatoImmagine formato, const QImage& im) {
    constexpr int parti = 32, minime = 1024;   // rows of an image that is worth the guess
    if (im.height() < minime) return im.sizeInBytes() / 4;
    const int n = im.height() / parti;
    const QImage banda(im.constScanLine((im.height() - n) / 2), im.width(), n, im.bytesPerLine(), im.format());
    QByteArray provati;
    QBuffer memoria(&provati);
    return scrivi(memoria, formato, banda) ? provati.size() * parti : im.sizeInBytes() / 4;
}

}   // namespace

bool EncodeImage(FormatoImmagine formato, const PixMap& pixels, double dpiX, double dpiY, std::string& bytes) {
    constexpr double pollice = 0.0254;   // metres
    const Rect& r = pixels.bounds;
    if (EmptyRect(r) || pixels.base == nullptr) return false;
    QImage im(reinterpret_cast<const uchar*>(pixels.base), r.right - r.left, r.bottom - r.top, pixels.rowPixels * 4,
              QImage::Format_RGB32);
    if (im.isNull()) return false;
    im.setDotsPerMeterX(static_cast<int>(std::lround(dpiX / pollice)));
    im.setDotsPerMeterY(static_cast<int>(std::lround(dpiY / pollice)));
    QByteArray fatti;
    MemoriaSeguita memoria(fatti, bytesAttesi(formato, im));
    if (!scrivi(memoria, formato, im) || ProgressStopped()) return false;
    bytes.assign(fatti.constData(), static_cast<std::size_t>(fatti.size()));
    return true;
}

}   // namespace tessaro
