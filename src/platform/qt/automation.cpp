// What a script may do to the toolkit: input enters at window level, as the desktop's does, stamped with the script's
// clock. Nothing here calls the core.
#include "platform/Automation.h"

#include <QApplication>
#include <QImage>
#include <QMenuBar>
#include <QPainter>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

// The toolkit's own doors for tests; it exports them without a public header.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button, QEvent::Type type,
                                      Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers mods,
                                    const QString& text, bool autorep, ushort count);
QT_END_NAMESPACE

namespace tessaro {

namespace {

constinit Qt::MouseButtons premuti = Qt::NoButton;

int stampo() { return static_cast<int>(std::int64_t{TickCount()} * 1000 / 60) + 1; }

QWidget* contenuto() { return foglio() != nullptr ? foglio() : telaio()->centralWidget(); }

void inietta(QEvent::Type tipo, Qt::MouseButton bottone, Point dove, std::uint16_t modifiers) {
    if (!conFinestre()) return;
    QWindow* w = telaio()->windowHandle();
    if (w == nullptr) return;
    const QPointF locale = contenuto()->mapTo(telaio(), QPointF(dove.h, dove.v));
    qt_handleMouseEvent(w, locale, w->mapToGlobal(locale), premuti, bottone, tipo, modificatoriQt(modifiers), stampo());
}

struct TastoDelCopione {
    std::uint8_t mac;
    Qt::Key qt;
    const char* testo;
};
constexpr TastoDelCopione tasti[] = {
    {13, Qt::Key_Return, "\r"},   {3, Qt::Key_Enter, "\r"},      {9, Qt::Key_Tab, "\t"},  {8, Qt::Key_Backspace, "\b"},
    {27, Qt::Key_Escape, "\x1b"}, {28, Qt::Key_Left, ""},        {29, Qt::Key_Right, ""}, {30, Qt::Key_Up, ""},
    {31, Qt::Key_Down, ""},       {127, Qt::Key_Delete, "\x7f"},
};

}   // namespace

std::int32_t AutoDepth() { return annidamento(); }

void AutoAdvance(std::uint32_t ticks) {
    avanzaOrologio(ticks);
    sveglia();
}

void AutoMove(Point content, std::uint16_t modifiers) { inietta(QEvent::MouseMove, Qt::NoButton, content, modifiers); }

void AutoPress(Point content, std::uint16_t modifiers) {
    const auto bottone = (modifiers & controlKey) != 0 ? Qt::RightButton : Qt::LeftButton;
    premuti = bottone;
    inietta(QEvent::MouseButtonPress, bottone, content, modifiers);
}

void AutoRelease(Point content, std::uint16_t modifiers) {
    const auto bottone = premuti.testFlag(Qt::RightButton) ? Qt::RightButton : Qt::LeftButton;
    premuti = Qt::NoButton;
    inietta(QEvent::MouseButtonRelease, bottone, content, modifiers);
}

void AutoWheel(std::int32_t axis, std::int32_t steps, std::uint16_t modifiers) {
    if (!conFinestre() || telaio()->windowHandle() == nullptr) return;
    constexpr int angoloPasso = 120;
    QPoint angolo = axis == 0 ? QPoint(0, steps * angoloPasso) : QPoint(steps * angoloPasso, 0);
    if ((modifiers & optionKey) != 0) angolo = angolo.transposed();   // as the toolkit delivers it under Alt
    const Point dove = GetMouse();
    const QPointF locale = contenuto()->mapTo(telaio(), QPointF(dove.h, dove.v));
    QWheelEvent e(locale, telaio()->mapToGlobal(locale), QPoint(), angolo, premuti, modificatoriQt(modifiers),
                  Qt::NoScrollPhase, false);
    e.setTimestamp(static_cast<quint64>(stampo()));
    QCoreApplication::sendEvent(telaio()->windowHandle(), &e);
}

void iniettaTasto(QWidget* finestra, std::uint8_t macRoman, std::uint16_t modifiers) {
    QWindow* w = finestra == nullptr ? nullptr : finestra->window()->windowHandle();
    if (w == nullptr) return;
    const Qt::KeyboardModifiers m = modificatoriQt(modifiers);
    const auto* speciale =
        std::find_if(std::begin(tasti), std::end(tasti), [macRoman](const auto& t) { return t.mac == macRoman; });
    QString testo;
    int tasto = 0;
    if (speciale != std::end(tasti)) {
        testo = QString::fromLatin1(speciale->testo);
        tasto = speciale->qt;
    } else {
        const char c = static_cast<char>(macRoman);
        testo = daMac(std::string_view(&c, 1));
        tasto = testo.isEmpty() ? 0 : testo.at(0).toUpper().unicode();
        if (m.testFlag(Qt::ControlModifier) || m.testFlag(Qt::MetaModifier)) testo.clear();
    }
    qt_handleKeyEvent(w, QEvent::KeyPress, tasto, m, testo, false, 1);
    qt_handleKeyEvent(w, QEvent::KeyRelease, tasto, m, testo, false, 1);
}

void AutoKey(std::uint8_t macRoman, std::uint16_t modifiers) {
    if (conFinestre()) iniettaTasto(telaio(), macRoman, modifiers);
}

void AutoPost(const EventRecord& e) {
    if (e.what == EventKind::highLevel && e.classe == "quit") return accodaQuit();
    accoda(e);
}

void AutoResize(std::int32_t width, std::int32_t height) { adattaTelaio(width, height); }

void AutoActivate(bool active) {
    if (conFinestre()) attivaProgramma(active);
}

void AutoGoAway() {
    if (conFinestre()) telaio()->close();
}

bool AutoQueueEmpty() { return codaVuota(); }

// The frame with every other window of ours laid over it at its place; modal ones lie over the others, the one in use on top.
bool AutoScreenshot(std::string_view path) {
    if (!conFinestre()) return false;
    mostraDisegnato();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QPixmap figura = telaio()->grab();
    QPainter p(&figura);
    QWidgetList finestre = QApplication::topLevelWidgets();
    const QWidget* davanti = QApplication::activeModalWidget();
    const auto quota = [davanti](const QWidget* w) { return w == davanti ? 2 : w->isModal() ? 1 : 0; };
    std::stable_sort(finestre.begin(), finestre.end(),
                     [quota](const QWidget* a, const QWidget* b) { return quota(a) < quota(b); });
    for (QWidget* w : finestre) {
        if (w == telaio() || !w->isVisible() || w->windowType() == Qt::ToolTip) continue;
        p.drawPixmap(w->geometry().topLeft() - telaio()->geometry().topLeft(), w->grab());
    }
    p.end();
    return figura.save(daUtf8(path), "PNG");
}

std::string AutoWindowTitle() {
    const Finestra* f = finestraAperta();
    return f == nullptr ? std::string{} : MacToUtf8(f->titolo) + (f->cambiata ? " *" : "");
}

}   // namespace tessaro
