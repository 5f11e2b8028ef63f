// Text, pictures and comments on a printed page.
#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "platform/Printing.h"
#include "platform/qt/Interno.h"
#include "platform/qt/PortaPagina.h"

namespace tessaro {

namespace {

std::int32_t grande(std::string_view dati, std::size_t dove, std::size_t byte) {
    if (dati.size() < dove + byte) return 0;
    std::int32_t v = static_cast<signed char>(dati[dove]);
    for (std::size_t i = 1; i < byte; ++i) v = v * 256 + static_cast<unsigned char>(dati[dove + i]);
    return v;
}
double fisso(std::string_view dati, std::size_t dove) { return grande(dati, dove, 4) / 65536.0; }

// Few colours, as drawn and reduced sheets have them: packing with loss would make them larger, and smear their lines.
bool pocheTinte(const QImage& fascia) {
    constexpr std::size_t poche = 256;
    std::unordered_set<QRgb> viste;
    QRgb ultima = 0;
    for (int y = 0; y < fascia.height(); ++y) {
        const auto* riga = reinterpret_cast<const QRgb*>(fascia.constScanLine(y));
        for (int x = 0; x < fascia.width(); ++x) {
            if (riga[x] == ultima) continue;
            ultima = riga[x];
            if (viste.insert(ultima).second && viste.size() > poche) return false;
        }
    }
    return true;
}

// Black and white alone: such a band goes out with a bit a pixel, without loss.
bool biancoENero(const QImage& fascia) {
    for (int y = 0; y < fascia.height(); ++y) {
        const auto* riga = reinterpret_cast<const QRgb*>(fascia.constScanLine(y));
        const auto colorato = [](QRgb p) { return (p & 0xFFFFFF) != 0 && (p & 0xFFFFFF) != 0xFFFFFF; };
        if (std::any_of(riga, riga + fascia.width(), colorato)) return false;
    }
    return true;
}

}   // namespace

// --- text

void PortaPagina::scrivi(const QString& scritta, double corpo) {
    const QFont fonte = FontePagina(text.txFont, text.txFace, corpo, finezza);
    const QColor colore = QColor::fromRgba64(foreground.red, foreground.green, foreground.blue);
    if (text.txMode == srcCopy) {
        const QFontMetricsF m(fonte);
        pittore.fillRect(QRectF(0, -m.ascent(), m.horizontalAdvance(scritta), m.height()),
                         QColor::fromRgba64(background.red, background.green, background.blue));
    }
    if ((text.txFace & (outlineFace | shadowFace)) == 0) {
        pittore.setFont(fonte);
        pittore.setPen(colore);
        larghezzaPenna = -1;
        return pittore.drawText(QPointF(0, 0), scritta);
    }
    // The ring around the letters, a pixel wide; a shadow drops it once more to the lower right.
    QPainterPath lettere;
    lettere.addText(0, 0, fonte, scritta);
    QPainterPathStroker contorno;
    contorno.setWidth(2 * finezza);
    contorno.setJoinStyle(Qt::RoundJoin);
    QPainterPath anello = contorno.createStroke(lettere).united(lettere);
    if ((text.txFace & shadowFace) != 0) anello = anello.united(anello.translated(finezza, finezza));
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(colore);
    pittore.drawPath(anello.subtracted(lettere));
}

void PortaPagina::stdText(std::string_view macRoman) {
    const double corpo = (text.txSize > 0 ? text.txSize : 12.0 * finezza) * (marca ? finezza : 1);
    const QString scritta = daMac(macRoman);
    const QPointF dove(x(pen.pnLoc.h), y(pen.pnLoc.v));
    const double lunga =
        QFontMetricsF(FontePagina(text.txFont, text.txFace, corpo, finezza)).horizontalAdvance(scritta);
    pen.pnLoc.h += static_cast<std::int32_t>(std::lround(lunga / (marca ? finezza : 1)));
    if (!pronta()) return;
    const QTransform prima = pittore.transform();
    if (inTestoGirato) {
        const QPointF perno = dove + centroTesto * finezza;
        pittore.translate(perno);
        pittore.rotate(angolo);
        pittore.translate(dove - perno);
    } else {
        pittore.translate(dove);
    }
    scrivi(scritta, corpo);
    pittore.setTransform(prima);
}

void PortaPagina::stdComment(std::int16_t kind, std::string_view data) {
    switch (kind) {
    case setLineWidth:
        if (const std::int32_t sotto = grande(data, 2, 2); sotto > 0 && data.size() >= 4)
            puntiPixel = std::max(0.0, static_cast<double>(grande(data, 0, 2)) / sotto);
        break;
    case textBegin:
        inTestoGirato = true;
        clipTesto = clip;
        angolo = data.size() >= 10 ? fisso(data, 6) : grande(data, 2, 2);
        centroTesto = {};
        break;
    case textCenter: centroTesto = QPointF(fisso(data, 4), fisso(data, 0)); break;
    case textEnd: inTestoGirato = false; break;
    case bitmapBegin: ++inBitmap; break;
    case bitmapEnd: inBitmap = std::max(0, inBitmap - 1); break;
    default: break;   // 130, 131, 140, 141 frame what the others say
    }
}

// --- pictures

// In bands, so that beside the picture's own pixels hardly anything is needed; each reaches one row into the next, so that
// no viewer shows a seam. What lies off the page is left out.
void PortaPagina::stdBits(const PixMap& bits, const Rect& src, const Rect& dst) {
    const Rect presi = SectRect(src, bits.bounds);
    if (EmptyRect(presi) || EmptyRect(dst) || !pronta()) return;
    const double sx = (static_cast<double>(dst.right) - dst.left) / (static_cast<double>(src.right) - src.left);
    const double sy = (static_cast<double>(dst.bottom) - dst.top) / (static_cast<double>(src.bottom) - src.top);
    const Rect visto = SectRect(SectRect(dst, portRect), clip.box());
    if (EmptyRect(visto)) return;
    const auto dentro = [](double p, std::int32_t min, std::int32_t max) {
        return static_cast<std::int32_t>(std::clamp(p, static_cast<double>(min), static_cast<double>(max)));
    };
    const Rect s{dentro(std::floor(src.top + (visto.top - dst.top) / sy) - 1, presi.top, presi.bottom),
                 dentro(std::floor(src.left + (visto.left - dst.left) / sx) - 1, presi.left, presi.right),
                 dentro(std::ceil(src.top + (visto.bottom - dst.top) / sy) + 1, presi.top, presi.bottom),
                 dentro(std::ceil(src.left + (visto.right - dst.left) / sx) + 1, presi.left, presi.right)};
    if (EmptyRect(s)) return;
    constexpr std::int32_t pixelFascia = 8 << 20;
    const std::int32_t largo = s.right - s.left, perFascia = std::max(2, pixelFascia / largo);
    for (std::int32_t v = s.top; v < s.bottom; v += perFascia) {
        const std::int32_t fine = std::min(s.bottom, v + perFascia + 1);
        const std::uint32_t* primo = bits.base + (v - bits.bounds.top) * bits.rowPixels + (s.left - bits.bounds.left);
        QImage fascia(reinterpret_cast<const uchar*>(primo), largo, fine - v, bits.rowPixels * 4, QImage::Format_RGB32);
        if (biancoENero(fascia))
            fascia = fascia.convertToFormat(QImage::Format_Mono, Qt::MonoOnly | Qt::ThresholdDither);
        const QRectF dove(dst.left + (s.left - src.left) * sx, dst.top + (v - src.top) * sy, largo * sx,
                          (fine - v) * sy);
        pittore.setRenderHint(QPainter::LosslessImageRendering,
                              !conPerdita || fascia.depth() == 1 || pocheTinte(fascia));
        pittore.drawImage(dove, fascia);
        pittore.setRenderHint(QPainter::LosslessImageRendering);
    }
}

}   // namespace tessaro
