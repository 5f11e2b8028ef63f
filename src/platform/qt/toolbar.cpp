// The toolbar's buttons: real ones, without the focus, so that keys stay the drawing's. They lie on the content where the
// core puts them, in the colours of the desktop.
#include <QFrame>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>
#include <QToolButton>

#include <algorithm>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constexpr int latoIcona = 22;   // logical pixels
constexpr std::int16_t parteSpenta = 255, parteAccesa = 7;

// The colour of what is lit, that of the palette's lit icons, and of the drawing on it.
const QColor luce(0x2f, 0x6f, 0xd0), sullaLuce(Qt::white);

// An icon's drawing in one colour, at the densities that screens have.
void aggiungiFigure(QIcon& a, const QByteArray& svg, const QColor& colore, QIcon::Mode modo, QIcon::State stato) {
    QByteArray colorato = svg;
    colorato.replace("currentColor", colore.name().toLatin1());
    QSvgRenderer disegno(colorato);
    for (const int fittezza : {1, 2, 3}) {
        QPixmap p(latoIcona * fittezza, latoIcona * fittezza);
        p.fill(Qt::transparent);
        QPainter pittore(&p);
        disegno.render(&pittore, QRectF(0, 0, p.width(), p.height()));
        pittore.end();
        p.setDevicePixelRatio(fittezza);
        a.addPixmap(p, modo, stato);
    }
}

class BottoneBarra : public QToolButton {
public:
    BottoneBarra(std::int32_t disegno, QWidget* padre) : QToolButton(padre), icona(disegno) { rifai(); }

protected:
    void changeEvent(QEvent* e) override {
        QToolButton::changeEvent(e);
        if (e->type() == QEvent::PaletteChange) rifai();
    }
    // A lit button that is clicked stays lit until the core says otherwise.
    void nextCheckState() override {}
    // Styles show a checked button by a shade that is lost on a dark desktop; here it is lit like the palette's cells.
    void paintEvent(QPaintEvent* e) override {
        if (!isChecked()) return QToolButton::paintEvent(e);
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(isDown() ? luce.darker(120) : luce);
        p.drawRoundedRect(rect(), 4, 4);
        const QRect dove(QPoint((width() - iconSize().width()) / 2, (height() - iconSize().height()) / 2), iconSize());
        icon().paint(&p, dove, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled, QIcon::On);
    }

private:
    std::int32_t icona;   // 0: none

    // In the desktop's text colour; pale where it cannot be used, since a style's own paling hardly shows on dark.
    void rifai() {
        if (icona == 0) return;
        const QByteArray svg = QByteArray::fromStdString(ResourceFile("icons/" + std::to_string(icona) + ".svg"));
        const QColor testo = palette().color(QPalette::Active, QPalette::WindowText);
        const QColor fondo = palette().color(QPalette::Active, QPalette::Window);
        const auto spento = [](int t, int f) { return (2 * t + 3 * f) / 5; };
        const QColor pallido(spento(testo.red(), fondo.red()), spento(testo.green(), fondo.green()),
                             spento(testo.blue(), fondo.blue()));
        QIcon tutte;
        aggiungiFigure(tutte, svg, testo, QIcon::Normal, QIcon::Off);
        aggiungiFigure(tutte, svg, sullaLuce, QIcon::Normal, QIcon::On);
        aggiungiFigure(tutte, svg, pallido, QIcon::Disabled, QIcon::Off);
        aggiungiFigure(tutte, svg, pallido, QIcon::Disabled, QIcon::On);
        setIcon(tutte);
    }
};

QToolButton* bottoneDi(ControlHandle c) {
    return c != nullptr && c->tipo == Controllo::bottone ? static_cast<QToolButton*>(c->widget) : nullptr;
}

void premuto(std::int16_t index) {
    EventRecord e;
    e.what = EventKind::button;
    e.message = static_cast<std::uint16_t>(index);
    e.where = GetMouse();
    e.modifiers = modificatori(QGuiApplication::keyboardModifiers());
    accoda(std::move(e));
}

ControlHandle aggiungi(WindowPtr w, Controllo::Tipo tipo) {
    auto c = std::make_unique<Controllo>();
    c->tipo = tipo;
    return w->controlli.emplace_back(std::move(c)).get();
}

void vesti(QToolButton& b, const BottoneNuovo& come) {
    b.setFocusPolicy(Qt::NoFocus);
    b.setAutoRaise(true);
    b.setMouseTracking(true);
    b.setCursor(Qt::ArrowCursor);
    b.setIconSize(QSize(latoIcona - 4, latoIcona - 4));
    b.setText(daMac(come.titolo));
    b.setToolButtonStyle(come.titolo.empty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextOnly);
    b.setAccessibleName(daMac(come.nome));
    b.setAccessibleDescription(daMac(come.aiuto));
    const QString nome = daMac(come.nome).toHtmlEscaped();
    b.setToolTip(QStringLiteral("<b>%1</b><br>%2").arg(nome, daMac(come.aiuto).toHtmlEscaped()));
}

}   // namespace

ControlHandle NewToolbarButton(WindowPtr w, const BottoneNuovo& come) {
    if (w == nullptr) return nullptr;
    ControlHandle c = aggiungi(w, Controllo::bottone);
    if (w->foglio == nullptr) return c;
    auto* b = new BottoneBarra(come.icona, w->foglio);
    vesti(*b, come);
    b->installEventFilter(w->foglio);
    b->hide();
    QObject::connect(b, &QToolButton::clicked, b, [index = come.indice] { premuto(index); });
    c->widget = b;
    return c;
}

ControlHandle NewSeparator(WindowPtr w) {
    if (w == nullptr) return nullptr;
    ControlHandle c = aggiungi(w, Controllo::separatore);
    if (w->foglio == nullptr) return c;
    auto* linea = new QFrame(w->foglio);
    linea->setFrameShape(QFrame::VLine);
    linea->setFrameShadow(QFrame::Sunken);
    linea->setAttribute(Qt::WA_TransparentForMouseEvents);
    linea->hide();
    c->widget = linea;
    return c;
}

void HiliteControl(ControlHandle c, std::int16_t part) {
    if (c == nullptr || c->parte == part) return;
    c->parte = part;
    QToolButton* b = bottoneDi(c);
    if (b == nullptr) return;
    b->setEnabled(part != parteSpenta);
    b->setCheckable(part == parteAccesa);
    b->setChecked(part == parteAccesa);
    b->update();   // a button that is no longer checkable loses its light without a word
}

std::int16_t GetControlHilite(ControlHandle c) { return c == nullptr ? std::int16_t{0} : c->parte; }

void SetControlPicture(ControlHandle c, const GrafPort& figura) {
    QToolButton* b = bottoneDi(c);
    const auto* porta = dynamic_cast<const RasterPort*>(&figura);
    if (b == nullptr || porta == nullptr || porta->pixels() == nullptr) return;
    const QImage vista(reinterpret_cast<const uchar*>(porta->pixels()), porta->deviceWidth(), porta->deviceHeight(),
                       static_cast<qsizetype>(porta->rowPixels()) * 4, QImage::Format_RGB32);
    // Black needs an edge on a dark desktop, and on a light one it does no harm.
    const int orlo = porta->ratio;
    QPixmap p(vista.width() + 2 * orlo, vista.height() + 2 * orlo);
    p.fill(QColor(128, 128, 128, 160));
    QPainter(&p).drawImage(orlo, orlo, vista);
    p.setDevicePixelRatio(porta->ratio);
    b->setIconSize(p.deviceIndependentSize().toSize());
    b->setIcon(QIcon(p));
}

}   // namespace tessaro
