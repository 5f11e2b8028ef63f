// Cursors by resource number: the system's own for the common shapes, SVG drawings with a hot spot for the others, drawn
// at the screen's density.
#include <QApplication>
#include <QCursor>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <map>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constinit std::int16_t corrente = arrowCursor;

struct CursoreDiSistema {
    std::int16_t numero;
    Qt::CursorShape forma;
};
constexpr CursoreDiSistema diSistema[] = {
    {0, Qt::ArrowCursor}, {2, Qt::CrossCursor}, {4, Qt::WaitCursor}, {9401, Qt::ClosedHandCursor}};

// The hot spot stands in the drawing as a comment: <!-- hot H V -->, in the drawing's units.
QPoint puntoCaldo(const QByteArray& svg, QSize misura) {
    static const QRegularExpression forma(QStringLiteral("<!--\\s*hot\\s+(\\d+)\\s+(\\d+)\\s*-->"));
    const auto trovato = forma.match(QString::fromUtf8(svg));
    if (!trovato.hasMatch()) return {misura.width() / 2, misura.height() / 2};
    return {trovato.captured(1).toInt(), trovato.captured(2).toInt()};
}

QCursor fai(std::int16_t numero, int ratio) {
    const std::string file = ResourceFile("cursors/" + std::to_string(numero) + ".svg");
    if (file.empty()) {
        for (const auto& s : diSistema)
            if (s.numero == numero) return s.forma;
        return Qt::CrossCursor;
    }
    const QByteArray svg = QByteArray::fromStdString(file);
    QSvgRenderer disegno(svg);
    const QSize misura = disegno.defaultSize();
    QPixmap figura(misura * ratio);
    figura.fill(Qt::transparent);
    {
        QPainter p(&figura);
        disegno.render(&p, QRectF(QPointF(0, 0), QSizeF(misura) * ratio));
    }
    figura.setDevicePixelRatio(ratio);
    const QPoint caldo = puntoCaldo(svg, misura);
    return QCursor(figura, caldo.x(), caldo.y());
}

}   // namespace

void azzeraCursore() {
    if (foglio() == nullptr) return;
    static std::map<std::pair<std::int16_t, int>, QCursor> fatti;
    const int ratio = static_cast<int>(ScreenRatio());
    auto trovato = fatti.find({corrente, ratio});
    if (trovato == fatti.end()) trovato = fatti.emplace(std::pair{corrente, ratio}, fai(corrente, ratio)).first;
    foglio()->setCursor(trovato->second);
}

void SetCursor(std::int16_t resource) {
    if (corrente == resource) return;
    corrente = resource;
    azzeraCursore();
}

std::int16_t CurrentCursor() { return corrente; }

}   // namespace tessaro
