// What we hand to other programs, on the clipboard or in a drag, in the toolkit's terms. For the files of platform/qt only.
#pragma once

#include <QImage>
#include <QMimeData>

#include <algorithm>
#include <map>
#include <string>

#include "platform/qt/Interno.h"
#include "platform/Scrap.h"

namespace tessaro {

// Forms are made when they are asked for, once.
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

}   // namespace tessaro
