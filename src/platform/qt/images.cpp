// Decoding of raster images through the toolkit's readers: upright, in the depth of the file, without a second copy of
// great ones. Works without an application object.
#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <unordered_map>

#include "platform/Dialogs.h"
#include "platform/Images.h"
#include "platform/Memory.h"
#include "platform/qt/risoluzione.h"
#include "platform/qt/TestiQt.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr int maxLatoImmagine = 1 << 18;   // pixels: what no scanner passes; memory is asked besides

// Texts of list 9102: why a file cannot come in as a picture.
enum Motivo : std::int16_t {
    nonSiApre = 1,
    nonImmagine = 2,
    troppoGrande = 3,
    senzaMemoria = 4,
    danneggiata = 5,
    fermata = 9
};

bool rifiuta(std::string& reason, Motivo perche) {
    constexpr std::int16_t lista = 9102;
    reason = GetIndString(lista, perche);
    return false;
}

bool giraLati(QImageIOHandler::Transformations t) { return (t & QImageIOHandler::TransformationRotate90) != 0; }

void prepara(QImageReader& lettore, QIODevice* da) {
    // The readers' own limit is meant for web pages; sizes are checked before anything is decoded.
    QImageReader::setAllocationLimit(0);
    lettore.setDecideFormatFromContent(true);
    lettore.setAutoTransform(true);
    lettore.setDevice(da);
}

void risoluzione(const QByteArray& testa, bool girata, Immagine& im) {
    im.dpiX = im.dpiY = 72;
    RisoluzioneNelFile(std::string_view(testa.constData(), static_cast<std::size_t>(testa.size())), im.dpiX, im.dpiY);
    if (girata) std::swap(im.dpiX, im.dpiY);
}

// Memory for the pixels of one image, given back from the top while they are consumed.
class Banco {
public:
    explicit Banco(std::size_t n) : lungo(n) {
        base = mmap(nullptr, n, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (base == MAP_FAILED) throw std::bad_alloc();
    }
    ~Banco() { munmap(base, lungo); }
    Banco(const Banco&) = delete;
    Banco& operator=(const Banco&) = delete;
    [[nodiscard]] uchar* byte() const { return static_cast<uchar*>(base); }
    void rendiFino(std::size_t n) {
        constexpr std::size_t passo = 16 << 20;
        while (reso + passo <= n) {
            madvise(byte() + reso, passo, MADV_DONTNEED);
            reso += passo;
        }
    }

private:
    void* base = nullptr;
    std::size_t lungo, reso = 0;
};

std::uint32_t suBianco(QRgb p) {   // straight alpha
    const std::uint32_t a = static_cast<std::uint32_t>(qAlpha(p));
    if (a == 255) return p;
    const auto mischia = [a](int c) { return (static_cast<std::uint32_t>(c) * a + 255U * (255U - a) + 127U) / 255U; };
    return 0xFF000000U | mischia(qRed(p)) << 16 | mischia(qGreen(p)) << 8 | mischia(qBlue(p));
}

RGBColor colore16(QRgb p) {
    const auto c = [](int v) { return static_cast<std::uint16_t>(v * 257); };
    return RGBColor{c(qRed(p)), c(qGreen(p)), c(qBlue(p))};
}

void aIndici(QImage& img, Immagine& out) {
    out.palette.clear();
    if (img.format() == QImage::Format_Grayscale8) {
        for (int i = 0; i < 256; ++i) out.palette.push_back(colore16(qRgb(i, i, i)));
    } else {
        for (const QRgb c : img.colorTable()) out.palette.push_back(colore16(suBianco(c)));
    }
    out.depth = img.depth() == 1 ? 1 : 8;
    if (out.palette.empty()) out.palette = {colore16(qRgb(255, 255, 255)), colore16(qRgb(0, 0, 0))};
    const auto w = static_cast<std::size_t>(img.width());
    out.indices.resize(w * static_cast<std::size_t>(img.height()));
    const bool rovescia = img.format() == QImage::Format_MonoLSB;
    for (int y = 0; y < img.height(); ++y) {
        const uchar* da = img.constScanLine(y);
        std::uint8_t* a = out.indices.data() + w * static_cast<std::size_t>(y);
        if (out.depth == 8) {
            std::memcpy(a, da, w);
            continue;
        }
        for (std::size_t x = 0; x < w; ++x)
            a[x] = static_cast<std::uint8_t>((da[x / 8] >> (rovescia ? x % 8 : 7 - x % 8)) & 1);
    }
}

// Rows of an image of any deep format as 0xFFRRGGBB; formats that are not plain are turned a row at a time.
template <class F>
void perRiga(const QImage& img, const F& usa) {
    const QImage::Format f = img.format();
    const bool piana = f == QImage::Format_RGB32;
    const bool alfa = f == QImage::Format_ARGB32;
    std::vector<std::uint32_t> riga(static_cast<std::size_t>(img.width()));
    for (int y = 0; y < img.height(); ++y) {
        const uchar* da = img.constScanLine(y);
        if (piana || alfa) {
            std::memcpy(riga.data(), da, riga.size() * 4);
        } else {
            const QImage sola(da, img.width(), 1, img.bytesPerLine(), f);
            const QImage turned = sola.convertToFormat(QImage::Format_ARGB32);
            std::memcpy(riga.data(), turned.constScanLine(0), riga.size() * 4);
        }
        if (piana)
            for (auto& p : riga) p |= 0xFF000000U;
        else
            for (auto& p : riga) p = suBianco(p);
        usa(y, riga.data());
    }
}

bool conIndici(const QImage& img) {
    const QImage::Format f = img.format();
    return f == QImage::Format_Mono || f == QImage::Format_MonoLSB || f == QImage::Format_Grayscale8
           || (f == QImage::Format_Indexed8 && img.colorCount() > 0);
}

// Reads into `banco` where the reader takes a given image, else into memory of its own.
bool leggi(QImageReader& lettore, Banco* banco, QSize size, QImage& img) {
    if (banco != nullptr)
        img = QImage(banco->byte(), size.width(), size.height(), size.width() * 4, lettore.imageFormat());
    return lettore.read(&img) && !img.isNull();
}

bool eJpeg(const QByteArray& testa) { return testa.startsWith("\xFF\xD8"); }

// A JPEG whose own bytes can be kept: upright, of a coding that every reader knows, and it does decode.
bool jpegDaTenere(const QByteArray& tutto, QImageReader& lettore, QSize size) {
    const TestaJpeg t = LeggiTestaJpeg(std::string_view(tutto.constData(), static_cast<std::size_t>(tutto.size())));
    if (!t.valida || !t.comune || (t.componenti != 1 && t.componenti != 3)) return false;
    if (lettore.transformation() != QImageIOHandler::TransformationNone) return false;
    lettore.setScaledSize(QSize((size.width() + 7) / 8, (size.height() + 7) / 8));
    QImage prova;
    return lettore.read(&prova) && !prova.isNull();
}

// Size and resolution of an opened file. The reader is left ready to decode.
bool informa(QIODevice& file, QImageReader& lettore, Immagine& info, QSize& stored, std::string& reason) {
    constexpr qint64 testaLunga = 1 << 20;   // comments and profiles may stand in front of what is looked for
    prepara(lettore, &file);
    if (!lettore.canRead()) return rifiuta(reason, nonImmagine);
    stored = lettore.size();
    const bool girata = giraLati(lettore.transformation());
    const qint64 qui = file.pos();
    file.seek(0);
    const QByteArray testa = file.read(testaLunga);
    if (testa.startsWith("II") || testa.startsWith("MM")) {   // a directory of tags may stand anywhere
        auto* suDisco = qobject_cast<QFile*>(&file);
        const uchar* tutto = suDisco != nullptr ? suDisco->map(0, file.size()) : nullptr;
        risoluzione(tutto != nullptr ? QByteArray::fromRawData(reinterpret_cast<const char*>(tutto), file.size())
                                     : testa + file.readAll(),
                    girata, info);
    } else {
        risoluzione(testa, girata, info);
    }
    file.seek(qui);
    if (!stored.isValid()) return true;   // only decoding will tell
    if (stored.width() > maxLatoImmagine || stored.height() > maxLatoImmagine) return rifiuta(reason, troppoGrande);
    const std::int64_t bit = QImage::toPixelFormat(lettore.imageFormat()).bitsPerPixel();
    if (std::int64_t(stored.width()) * stored.height() * std::max<std::int64_t>(bit, 8) / 8 > CompactMem())
        return rifiuta(reason, senzaMemoria);
    info.width = girata ? stored.height() : stored.width();
    info.height = girata ? stored.width() : stored.height();
    return true;
}

// An image of at most 256 colours that its reader unpacked, back to indices. False when it has more.
bool reindicizza(const QImage& img, Immagine& out) {
    std::unordered_map<std::uint32_t, std::uint8_t> numeri;
    const auto w = static_cast<std::size_t>(img.width());
    out.indices.resize(w * static_cast<std::size_t>(img.height()));
    bool bastano = true;
    perRiga(img, [&](int y, const std::uint32_t* riga) {
        std::uint8_t* a = out.indices.data() + w * static_cast<std::size_t>(y);
        for (std::size_t x = 0; bastano && x < w; ++x) {
            const auto [posto, nuovo] = numeri.try_emplace(riga[x], static_cast<std::uint8_t>(out.palette.size()));
            if (nuovo) {
                bastano = out.palette.size() < 256;
                out.palette.push_back(colore16(riga[x]));
            }
            a[x] = posto->second;
        }
    });
    if (!bastano) {
        out.palette.clear();
        out.indices = {};
        return false;
    }
    out.depth = out.palette.size() <= 2 ? 1 : 8;
    return true;
}

bool consegna(QImage& img, bool gif, Immagine& out, RicevitoreRighe* righe, Banco* banco) {
    out.width = img.width();
    out.height = img.height();
    if (img.format() == QImage::Format_Grayscale16) img.convertTo(QImage::Format_Grayscale8);
    if (conIndici(img)) {
        aIndici(img, out);
        return true;
    }
    if (gif && reindicizza(img, out)) return true;   // the reader of this format always unpacks
    out.depth = 32;
    if (righe == nullptr)
        out.pixels.resize(static_cast<std::size_t>(out.width) * static_cast<std::size_t>(out.height));
    else
        righe->inizio(out);
    const bool nelBanco = banco != nullptr && img.constBits() == banco->byte();
    perRiga(img, [&](int y, const std::uint32_t* riga) {
        const auto w = static_cast<std::size_t>(out.width);
        if (righe == nullptr)
            std::copy(riga, riga + w, out.pixels.data() + w * static_cast<std::size_t>(y));
        else
            righe->riga(riga);
        if (nelBanco) banco->rendiFino(w * 4 * static_cast<std::size_t>(y));
    });
    return true;
}

bool decodifica(QIODevice& file, Immagine& out, std::string& reason, RicevitoreRighe* righe) {
    if (!file.open(QIODevice::ReadOnly)) return rifiuta(reason, nonSiApre);
    QImageReader lettore;
    QSize size;
    if (!informa(file, lettore, out, size, reason)) return false;
    if (lettore.format() == "jpeg") {
        const qint64 qui = file.pos();
        file.seek(0);
        const QByteArray tutto = file.readAll();
        file.seek(qui);
        QBuffer memoria;
        memoria.setData(tutto);
        memoria.open(QIODevice::ReadOnly);
        QImageReader prova;
        prepara(prova, &memoria);
        if (jpegDaTenere(tutto, prova, size)) {
            out.jpegBytes.assign(tutto.constData(), static_cast<std::size_t>(tutto.size()));
            return true;
        }
    }
    std::unique_ptr<Banco> banco;
    const bool gif = lettore.format() == "gif";
    const QImage::Format f = lettore.imageFormat();
    const bool dritta = lettore.transformation() == QImageIOHandler::TransformationNone;
    if (size.isValid() && dritta && (f == QImage::Format_RGB32 || f == QImage::Format_ARGB32))
        banco = std::make_unique<Banco>(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height())
                                        * 4);
    QImage img;
    if (!leggi(lettore, banco.get(), size, img)) return rifiuta(reason, danneggiata);
    if (img.width() > maxLatoImmagine || img.height() > maxLatoImmagine) return rifiuta(reason, troppoGrande);
    return consegna(img, gif, out, righe, banco.get());
}

// A decoder's claim against its bytes: the densest codings reach some thousand pixels a byte on blank images.
bool credibile(QSize s, std::size_t bytes) {
    constexpr std::int64_t sempre = 16 << 20, perByte = 10000;
    const std::int64_t n = std::int64_t(s.width()) * s.height();
    return s.width() > 0 && s.height() > 0 && s.width() <= 65535 && s.height() <= 65535
           && n <= std::max<std::int64_t>(sempre, static_cast<std::int64_t>(bytes) * perByte);
}

bool decodificaBytes(std::string_view bytes, std::int32_t reduce, Immagine& out, bool compact) {
    QByteArray vista = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer memoria(&vista);
    memoria.open(QIODevice::ReadOnly);
    QImageReader lettore;
    prepara(lettore, &memoria);
    QSize size = lettore.size();
    if (!lettore.canRead() || !credibile(size, bytes.size())) return false;
    risoluzione(vista.first(std::min<qsizetype>(vista.size(), 1 << 20)), giraLati(lettore.transformation()), out);
    if (reduce > 1 && eJpeg(vista)) {
        size = QSize((size.width() + reduce - 1) / reduce, (size.height() + reduce - 1) / reduce);
        lettore.setScaledSize(size);
    }
    const bool dritta = lettore.transformation() == QImageIOHandler::TransformationNone;
    QImage img;
    if (dritta && lettore.imageFormat() == QImage::Format_RGB32) {   // straight into its place
        out.pixels.resize(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()));
        img = QImage(reinterpret_cast<uchar*>(out.pixels.data()), size.width(), size.height(), size.width() * 4,
                     QImage::Format_RGB32);
    }
    if (!lettore.read(&img) || img.isNull()) return false;
    out.width = img.width();
    out.height = img.height();
    out.depth = 32;
    if (img.constBits() == reinterpret_cast<const uchar*>(out.pixels.data())) return true;
    if (compact && img.format() == QImage::Format_Grayscale8) {
        out.pixels = {};
        aIndici(img, out);
        return true;
    }
    out.pixels.resize(static_cast<std::size_t>(out.width) * static_cast<std::size_t>(out.height));
    perRiga(img, [&](int y, const std::uint32_t* riga) {
        std::copy(riga, riga + out.width, out.pixels.data() + std::ptrdiff_t(y) * out.width);
    });
    return true;
}

bool provaADecodificare(QIODevice& da, Immagine& out, std::string& reason, RicevitoreRighe* righe) {
    out = Immagine{};
    try {
        return decodifica(da, out, reason, righe);
    } catch (const std::bad_alloc&) {
        out = Immagine{};
        return rifiuta(reason, senzaMemoria);
    }
}

}   // namespace

namespace {

// A file that tells how far its reader is, and ends where the person stops it.
class FileSeguito : public QFile {
public:
    explicit FileSeguito(const QString& nome) : QFile(nome) { ProgressOpen(Utf8ToMac(testo("progress.picture"))); }
    ~FileSeguito() override { ProgressClose(); }
    FileSeguito(const FileSeguito&) = delete;
    FileSeguito& operator=(const FileSeguito&) = delete;
    bool fermato = false;

protected:
    qint64 readData(char* dati, qint64 massimo) override {
        const qint64 tutto = size();
        fermato = fermato || !ProgressStep(tutto > 0 ? static_cast<double>(pos()) / static_cast<double>(tutto) : 0);
        return fermato ? -1 : QFile::readData(dati, massimo);
    }
};

}   // namespace

bool DecodeImageFile(const FSSpec& spec, Immagine& out, std::string& reason, RicevitoreRighe* righe) {
    FileSeguito file(QString::fromStdString(spec.percorso));
    const bool letta = provaADecodificare(file, out, reason, righe) && !file.fermato;
    return letta || (file.fermato ? rifiuta(reason, fermata) : false);
}

bool DecodeImageData(std::string_view bytes, Immagine& out, std::string& reason, RicevitoreRighe* righe) {
    QByteArray vista = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer memoria(&vista);
    return provaADecodificare(memoria, out, reason, righe);
}

bool DecodeImageBytes(std::string_view bytes, std::int32_t reduce, Immagine& out, bool compact) {
    out = Immagine{};
    try {
        if (decodificaBytes(bytes, reduce, out, compact)) return true;
    } catch (const std::bad_alloc&) {
        // Falls through: an image that does not fit is one that cannot be decoded here.
    }
    out = Immagine{};
    return false;
}

}   // namespace tessaro
