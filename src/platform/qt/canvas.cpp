// The widget of the drawing window's content: it shows the port's pixels, without a copy where no overlay lies over them,
// and turns the pointer, the wheel and drops into records.
#include <QApplication>
#include <QDragEnterEvent>
#include <QGestureEvent>
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <cmath>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {
Point pixel(QPointF p) {
    return Point{static_cast<std::int32_t>(std::floor(p.y())), static_cast<std::int32_t>(std::floor(p.x()))};
}
constexpr int angoloPasso = 120;   // eighths of a degree in a step of the wheel

// Does an overlay lie over some of r?
bool velata(const Finestra& f, const QRect& r) {
    const Rect area{r.top(), r.left(), r.bottom() + 1, r.right() + 1};
    return std::any_of(f.veli.begin(), f.veli.end(), [&](const VeloFinestra& v) {
        return std::any_of(v.coperto.parti.begin(), v.coperto.parti.end(),
                           [&](const Rect& parte) { return !EmptyRect(SectRect(parte, area)); });
    });
}
}   // namespace

Foglio::Foglio(QWidget* parent, Finestra& f) : QWidget(parent), finestra(f) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setTabletTracking(true);
    setAcceptDrops(true);
    grabGesture(Qt::PinchGesture);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void Foglio::paintEvent(QPaintEvent* e) {
    const RasterPort& porta = *finestra.porta;
    const int ratio = porta.ratio;
    const int larga = porta.portRect.right - porta.portRect.left;
    const int alta = porta.portRect.bottom - porta.portRect.top;
    const QImage vista(reinterpret_cast<const uchar*>(porta.pixels()), porta.deviceWidth(), porta.deviceHeight(),
                       static_cast<qsizetype>(porta.rowPixels()) * 4, QImage::Format_RGB32);
    QPainter p(this);
    for (const QRect& r : e->region()) {
        const QRect dentro = r.intersected(QRect(0, 0, larga, alta));
        if (dentro != r) p.fillRect(r, Qt::white);
        if (dentro.isEmpty()) continue;
        const QRect sua(dentro.x() * ratio, dentro.y() * ratio, dentro.width() * ratio, dentro.height() * ratio);
        if (velata(finestra, dentro)) {
            componi(finestra, DeviceRect{sua.left(), sua.top(), sua.right() + 1, sua.bottom() + 1}, conVeli);
            p.drawImage(dentro, QImage(reinterpret_cast<const uchar*>(conVeli.data()), sua.width(), sua.height(),
                                       static_cast<qsizetype>(sua.width()) * 4, QImage::Format_RGB32));
        } else {
            p.drawImage(dentro, vista, sua);
        }
    }
    disegnaEvidenza(p, *this);
    if (static_cast<int>(ScreenRatio()) == ratio) return;
    // The window came to a screen of another density. Not here: the port must not change under a paint.
    QTimer::singleShot(0, this, [this] {
        if (adattaPorta(finestra, width(), height())) InvalWindowRect(&finestra, finestra.porta->portRect);
    });
}

void Foglio::resizeEvent(QResizeEvent*) {
    if (!adattaPorta(finestra, width(), height())) return;
    EventRecord r;
    r.what = EventKind::grow;
    r.where = Point{height(), width()};
    accoda(std::move(r));
}

void Foglio::accodaPuntatore(EventKind what, QPointF where, Qt::KeyboardModifiers m, std::uint16_t extra, ulong stamp) {
    EventRecord r;
    r.what = what;
    r.where = pixel(where);
    r.modifiers = static_cast<std::uint16_t>(modificatori(m) | extra);
    r.when = tickDi(stamp);
    accoda(std::move(r));
}

void Foglio::premi(QMouseEvent* e) {
    const bool medio = e->button() == Qt::MiddleButton;
    if (e->button() != Qt::LeftButton && e->button() != Qt::RightButton && !medio) return;
    if (premuto != Qt::NoButton) {
        if (e->button() != premuto && e->buttons().testFlag(premuto)) return;   // a second button is no second press
        lascia();                                                               // the release went to a pop-up
    }
    premuto = e->button();
    const std::uint16_t extra = static_cast<std::uint16_t>(premuto == Qt::RightButton ? controlKey : 0);
    accodaPuntatore(EventKind::nullEvent, e->position(), e->modifiers(), extra, e->timestamp());
    accodaPuntatore(medio ? EventKind::middleDown : EventKind::mouseDown, e->position(), e->modifiers(), extra,
                    e->timestamp());
}

void Foglio::mousePressEvent(QMouseEvent* e) { premi(e); }
void Foglio::mouseDoubleClickEvent(QMouseEvent* e) { premi(e); }   // the core tells double clicks by its own rule

void Foglio::mouseReleaseEvent(QMouseEvent* e) {
    if (e->button() != premuto) return;
    premuto = Qt::NoButton;
    accodaPuntatore(EventKind::mouseUp, e->position(), e->modifiers(), 0, e->timestamp());
}

void Foglio::mouseMoveEvent(QMouseEvent* e) {
    accodaPuntatore(EventKind::nullEvent, e->position(), e->modifiers(), 0, e->timestamp());
}

void Foglio::leaveEvent(QEvent*) {
    // Under a script the pointer is where the script put it.
    if (copione() != nullptr || premuto != Qt::NoButton) return;
    accodaPuntatore(EventKind::nullEvent, QPointF(-32000, -32000), QGuiApplication::keyboardModifiers(), 0, 0);
}

void Foglio::lascia() {
    if (premuto == Qt::NoButton) return;
    premuto = Qt::NoButton;
    EventRecord r;
    r.what = EventKind::mouseUp;
    r.where = GetMouse();
    r.modifiers = KeyModifiers();
    accoda(std::move(r));
}

void Foglio::wheelEvent(QWheelEvent* e) {
    // The toolkit turns the wheel sideways under Alt; here Alt scrolls faster and keeps the axis.
    const QPoint angolo = e->modifiers().testFlag(Qt::AltModifier) ? e->angleDelta().transposed() : e->angleDelta();
    e->accept();
    const auto passi = [](int& resto, int nuovo) {
        if ((resto < 0) != (nuovo < 0)) resto = 0;   // a turn the other way starts afresh
        resto += nuovo;
        const int interi = resto / angoloPasso;
        resto -= interi * angoloPasso;
        return interi;
    };
    const int verticali = angolo.y() == 0 ? 0 : passi(restoRotella.ry(), angolo.y());
    const int orizzontali = angolo.x() == 0 ? 0 : passi(restoRotella.rx(), angolo.x());
    const auto metti = [&](std::uint32_t asse, int delta) {
        if (delta == 0) return;
        EventRecord r;
        r.what = EventKind::wheel;
        r.message = (asse << 16) | static_cast<std::uint16_t>(delta);
        r.where = pixel(e->position());
        r.modifiers = modificatori(e->modifiers());
        r.when = tickDi(e->timestamp());
        accoda(std::move(r));
    };
    metti(0, verticali);
    metti(1, orizzontali);
}

void Foglio::dragEnterEvent(QDragEnterEvent* e) {
    if (traccia(FaseDrag::entra, e->mimeData())) e->acceptProposedAction();
}

void Foglio::dragMoveEvent(QDragMoveEvent* e) {
    if (!traccia(FaseDrag::dentro, e->mimeData())) return e->ignore();
    e->acceptProposedAction();
    accodaPuntatore(EventKind::nullEvent, e->position(), e->modifiers(), 0, 0);
}

void Foglio::dragLeaveEvent(QDragLeaveEvent*) { traccia(FaseDrag::esce, nullptr); }

void Foglio::dropEvent(QDropEvent* e) {
    const bool accettato = traccia(FaseDrag::dentro, e->mimeData());
    traccia(FaseDrag::esce, nullptr);
    if (!accettato) return;
    e->acceptProposedAction();
    accodaPuntatore(EventKind::nullEvent, e->position(), e->modifiers(), 0, 0);
    accodaLasciate(e->mimeData(), pixel(e->position()), modificatori(e->modifiers()));
}

void Foglio::pizzica(double fattore, QPointF dove, Qt::KeyboardModifiers m) {
    constexpr double uno = 65536, massimo = 16;
    if (!(fattore > 1 / massimo) || !(fattore < massimo)) return;
    EventRecord r;
    r.what = EventKind::pinch;
    r.message = static_cast<std::uint32_t>(std::lround(fattore * uno));
    r.where = pixel(dove);
    r.modifiers = modificatori(m);
    accoda(std::move(r));
}

bool Foglio::event(QEvent* e) {
    if (e->type() == QEvent::UngrabMouse) lascia();
    if (e->type() == QEvent::NativeGesture) {   // a touch pad tells how much the scale grows with each event
        const auto* g = static_cast<QNativeGestureEvent*>(e);
        if (g->gestureType() == Qt::ZoomNativeGesture) {
            pizzica(1 + g->value(), g->position(), g->modifiers());
            return true;
        }
    }
    if (e->type() == QEvent::Gesture) {   // a touch screen tells the factor since the last one
        auto* gesti = static_cast<QGestureEvent*>(e);
        if (const auto* g = static_cast<QPinchGesture*>(gesti->gesture(Qt::PinchGesture)); g != nullptr) {
            gesti->accept();
            pizzica(g->scaleFactor(), mapFromGlobal(g->hotSpot()), QGuiApplication::keyboardModifiers());
            return true;
        }
    }
    // The strips are drawn in the desktop's colours.
    if (e->type() == QEvent::PaletteChange) InvalWindowRect(&finestra, finestra.porta->portRect);
    return QWidget::event(e);
}

// The controls lie on the content: the pointer is followed over them too, and their wheel is the content's.
bool Foglio::eventFilter(QObject* o, QEvent* e) {
    const auto* sopra = static_cast<QWidget*>(o);
    if (e->type() == QEvent::MouseMove) {
        const auto* m = static_cast<QMouseEvent*>(e);
        accodaPuntatore(EventKind::nullEvent, sopra->mapTo(this, m->position()), m->modifiers(), 0, m->timestamp());
    }
    if (e->type() == QEvent::Wheel) {
        e->ignore();   // goes on to the parent
        return true;
    }
    return false;
}

bool Foglio::focusNextPrevChild(bool) { return false; }   // Tab is a key like any other

}   // namespace tessaro
