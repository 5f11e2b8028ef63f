// Icons of the palette and the toolbar: SVG drawings in the palette's text colour, drawn once a size and blended into the
// current port. Help tags stand here too.
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <QToolTip>

#include <map>
#include <tuple>
#include <vector>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

using Chiave = std::tuple<std::int32_t, int, int, QRgb>;   // icon, device width and height, text colour

QRgb coloreTesto() {
    return conFinestre() ? QGuiApplication::palette().color(QPalette::WindowText).rgb() : qRgb(0, 0, 0);
}

// Premultiplied pixels; a null image when there is no such icon.
const QImage& icona(std::int32_t id, int larga, int alta) {
    static std::map<Chiave, QImage> fatte;
    const QRgb testo = coloreTesto();
    const auto [voce, manca] = fatte.try_emplace(Chiave{id, larga, alta, testo});
    if (!manca) return voce->second;
    const std::string file = ResourceFile("icons/" + std::to_string(id) + ".svg");
    if (file.empty()) return voce->second;
    QByteArray svg = QByteArray::fromStdString(file);
    svg.replace("currentColor", QColor(testo).name().toLatin1());
    QSvgRenderer disegno(svg);
    QImage figura(larga, alta, QImage::Format_ARGB32_Premultiplied);
    figura.fill(Qt::transparent);
    QPainter p(&figura);
    disegno.render(&p, QRectF(0, 0, larga, alta));
    p.end();
    return voce->second = std::move(figura);
}

// The same pixel, mostly seen through.
QRgb pallido(QRgb p) {
    const auto parte = [](int v) { return v * 35 / 100; };
    return qRgba(parte(qRed(p)), parte(qGreen(p)), parte(qBlue(p)), parte(qAlpha(p)));
}

// One pixel of an icon over what the port shows.
std::uint32_t sopra(QRgb icona, std::uint32_t sotto) {
    const auto resto = static_cast<unsigned>(255 - qAlpha(icona));
    const auto misto = [resto](unsigned i, unsigned s) { return i + (s * resto + 127) / 255; };
    return 0xFF000000U | misto(icona >> 16 & 0xFF, sotto >> 16 & 0xFF) << 16
           | misto(icona >> 8 & 0xFF, sotto >> 8 & 0xFF) << 8 | misto(icona & 0xFF, sotto & 0xFF);
}

}   // namespace

bool PlotIconID(const Rect& r, std::int32_t id, bool pale) {
    const GrafPtr port = GetPort();
    const auto* raster = dynamic_cast<RasterPort*>(port);
    if (EmptyRect(r)) return false;
    const int ratio = port->ratio;
    const int larga = (r.right - r.left) * ratio;
    const int alta = (r.bottom - r.top) * ratio;
    const QImage& figura = icona(id, larga, alta);
    if (figura.isNull()) return false;
    if (raster == nullptr) return true;
    // The blended pixels go through CopyBits, so that clip and origin hold as for any drawing.
    std::vector<std::uint32_t> misti(static_cast<std::size_t>(larga) * static_cast<std::size_t>(alta), 0xFFFFFFFFU);
    const int sinistra = (r.left - port->origin.h) * ratio;
    const int cima = (r.top - port->origin.v) * ratio;
    const int larghezzaPorta = (port->portRect.right - port->portRect.left) * ratio;
    const int altezzaPorta = (port->portRect.bottom - port->portRect.top) * ratio;
    for (int y = 0; y < alta; ++y) {
        if (cima + y < 0 || cima + y >= altezzaPorta) continue;
        const auto* riga = reinterpret_cast<const QRgb*>(figura.constScanLine(y));
        const std::uint32_t* sotto = raster->pixels() + static_cast<std::ptrdiff_t>(cima + y) * raster->rowPixels();
        auto* dove = misti.data() + static_cast<std::ptrdiff_t>(y) * larga;
        for (int x = 0; x < larga; ++x) {
            const int h = sinistra + x;
            if (h >= 0 && h < larghezzaPorta) dove[x] = sopra(pale ? pallido(riga[x]) : riga[x], sotto[h]);
        }
    }
    const Rect tutta{0, 0, alta, larga};
    CopyBits(PixMap{misti.data(), larga, tutta}, tutta, r);
    return true;
}

void HMDisplayTag(WindowPtr w, const Rect& r, std::int16_t list, std::int16_t index) {
    if (w == nullptr || w->foglio == nullptr || copione() != nullptr) return;
    const QRect zona(r.left, r.top, r.right - r.left, r.bottom - r.top);
    const QString testo = daMac(GetIndString(list, index));
    if (!testo.isEmpty()) QToolTip::showText(w->foglio->mapToGlobal(zona.bottomRight()), testo, w->foglio, zona);
}

void HMHideTag() {
    if (conFinestre() && copione() == nullptr) QToolTip::hideText();
}

}   // namespace tessaro
