// The clipboard on the toolkit's: forms are made when they are asked for.
#include "platform/Scrap.h"

#include <algorithm>
#include <map>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QUrl>

#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

class DatiNostri final : public QMimeData {
public:
    explicit DatiNostri(Sapori f) : forme(std::move(f)) {}
    [[nodiscard]] QStringList formats() const override {
        QStringList tutte;
        for (const Sapore& s : forme) tutte << QString::fromStdString(s.mime);
        return tutte;
    }
    [[nodiscard]] bool hasFormat(const QString& mime) const override { return formats().contains(mime); }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& mime, QMetaType type) const override {
        // Who asks for an image as such gets one of those that a reader knows.
        const QString voluta = mime == QLatin1String("application/x-qt-image") ? QStringLiteral("image/png") : mime;
        const auto s =
            std::find_if(forme.begin(), forme.end(), [&](const Sapore& x) { return voluta == daUtf8(x.mime); });
        if (s == forme.end()) return {};
        const auto [posto, nuovo] = fatte.try_emplace(s->mime);
        if (nuovo) posto->second = s->fai();
        const QByteArray bytes(posto->second.data(), static_cast<qsizetype>(posto->second.size()));
        if (type.id() == QMetaType::QImage) return QImage::fromData(bytes);
        return bytes;
    }

private:
    Sapori forme;
    mutable std::map<std::string, std::string> fatte;
};

const QMimeData* appunti() {
    if (!conFinestre()) return nullptr;
    return QGuiApplication::clipboard()->mimeData();
}

}   // namespace

bool PutScrap(const Sapori& forme) {
    if (!conFinestre() || forme.empty()) return false;
    QGuiApplication::clipboard()->setMimeData(new DatiNostri(forme));
    return true;
}

bool GetScrap(std::string_view mime, std::string& bytes) {
    const QMimeData* dati = appunti();
    const QString nome = QString::fromUtf8(mime.data(), static_cast<qsizetype>(mime.size()));
    if (dati == nullptr || !dati->hasFormat(nome)) return false;
    const QByteArray b = dati->data(nome);
    bytes.assign(b.constData(), static_cast<std::size_t>(b.size()));
    return !bytes.empty();
}

bool GetScrapImage(std::string& png) {
    const QMimeData* dati = appunti();
    if (dati == nullptr || !dati->hasImage()) return false;
    const auto im = qvariant_cast<QImage>(dati->imageData());
    if (im.isNull()) return false;
    QByteArray bytes;
    QBuffer memoria(&bytes);
    memoria.open(QIODevice::WriteOnly);
    if (!im.save(&memoria, "PNG", 100)) return false;   // the least effort: it is unpacked again at once
    png.assign(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return true;
}

std::vector<std::string> GetScrapFiles() {
    std::vector<std::string> tutti;
    const QMimeData* dati = appunti();
    if (dati == nullptr || !dati->hasUrls()) return tutti;
    for (const QUrl& u : dati->urls())
        if (u.isLocalFile()) tutti.push_back(u.toLocalFile().toStdString());
    return tutti;
}

}   // namespace tessaro
