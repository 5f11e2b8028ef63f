// The frame's own events: keys, closing, activation, and files dropped while no drawing is open.
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMimeData>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

struct TastoMac {
    int qt;
    std::uint8_t mac;
};
// Keys that have no character of their own in the toolkit's text, or another one.
constexpr TastoMac tastiSpeciali[] = {
    {Qt::Key_Return, 13}, {Qt::Key_Enter, 3}, {Qt::Key_Tab, 9},     {Qt::Key_Backtab, 9},   {Qt::Key_Backspace, 8},
    {Qt::Key_Escape, 27}, {Qt::Key_Left, 28}, {Qt::Key_Right, 29},  {Qt::Key_Up, 30},       {Qt::Key_Down, 31},
    {Qt::Key_Home, 1},    {Qt::Key_End, 4},   {Qt::Key_PageUp, 11}, {Qt::Key_PageDown, 12}, {Qt::Key_Delete, 127},
};

}   // namespace

std::uint8_t carattere(int qtKey, const QString& text, Qt::KeyboardModifiers m) {
    for (const auto& t : tastiSpeciali)
        if (t.qt == qtKey) return t.mac;
    // With Ctrl the text is a control character; the letter is what was meant.
    if (m.testFlag(Qt::ControlModifier) && qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
        return static_cast<std::uint8_t>('a' + (qtKey - Qt::Key_A));
    if (text.isEmpty() && qtKey >= Qt::Key_Space && qtKey <= Qt::Key_AsciiTilde)
        return static_cast<std::uint8_t>(qtKey);
    if (text.isEmpty() || !text.at(0).isPrint()) return 0;
    const std::string mac = aMac(text.left(text.at(0).isHighSurrogate() ? 2 : 1));
    return mac.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(mac[0]);
}

std::uint16_t modificatori(Qt::KeyboardModifiers m) {
    std::uint16_t r = 0;
    const bool ctrl = m.testFlag(Qt::ControlModifier);
    const bool alt = m.testFlag(Qt::AltModifier);
    if (m.testFlag(Qt::ShiftModifier)) r |= shiftKey;
    if (alt) r |= optionKey;
    // Window managers take Alt-click for themselves, so Ctrl with Alt is Option alone; Meta is Command beside it.
    if ((ctrl && !alt) || m.testFlag(Qt::MetaModifier)) r |= cmdKey;
    return r;
}

Qt::KeyboardModifiers modificatoriQt(std::uint16_t m) {
    Qt::KeyboardModifiers r;
    const bool option = (m & optionKey) != 0;
    if ((m & shiftKey) != 0) r |= Qt::ShiftModifier;
    if (option) r |= Qt::AltModifier;
    if ((m & cmdKey) != 0) r |= option ? Qt::MetaModifier : Qt::ControlModifier;
    return r;
}

Telaio::Telaio() {
    menuBar()->setNativeMenuBar(false);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void Telaio::accodaTasto(QKeyEvent* e) {
    EventRecord r;
    r.modifiers = modificatori(e->modifiers());
    r.when = tickDi(e->timestamp());
    r.where = GetMouse();
    r.message = carattere(e->key(), e->text(), e->modifiers());
    if (r.message != 0) r.what = e->isAutoRepeat() ? EventKind::autoKey : EventKind::keyDown;
    accoda(std::move(r));   // a bare modifier wakes the loop with a null event
}

// A key that an open menu, or the bar that the keyboard walks, has no use for comes up to here; it is no command.
void Telaio::keyPressEvent(QKeyEvent* e) {
    if (QApplication::activePopupWidget() == nullptr && !menuBar()->hasFocus()) accodaTasto(e);
}

void Telaio::keyReleaseEvent(QKeyEvent* e) {
    if (e->isAutoRepeat()) return;
    EventRecord r;
    r.modifiers = modificatori(QGuiApplication::queryKeyboardModifiers());
    if (copione() != nullptr) r.modifiers = modificatori(e->modifiers());
    if (r.modifiers == KeyModifiers()) return;
    r.where = GetMouse();
    accoda(std::move(r));
}

void Telaio::closeEvent(QCloseEvent* e) {
    e->ignore();
    if (finestraAperta() == nullptr) return accodaQuit();
    EventRecord r;
    r.what = EventKind::goAway;
    accoda(std::move(r));
}

bool Telaio::event(QEvent* e) {
    const bool attiva = e->type() == QEvent::WindowActivate;
    if (attiva || e->type() == QEvent::WindowDeactivate) {
        Finestra* f = finestraAperta();
        if (!attiva && f != nullptr && f->foglio != nullptr) f->foglio->lascia();
        if (f != nullptr) {
            EventRecord r;
            r.what = EventKind::activateEvt;
            r.modifiers = static_cast<std::uint16_t>(attiva ? activeFlag : 0);
            accoda(std::move(r));
        }
    }
    return QMainWindow::event(e);
}

void attivaProgramma(bool attivo) {
    Finestra* f = finestraAperta();
    if (!attivo && f != nullptr && f->foglio != nullptr) f->foglio->lascia();
    EventRecord r;
    r.what = EventKind::osEvt;
    r.message = (1U << 24) | (attivo ? 1U : 0U);
    accoda(std::move(r));
}

QStringList percorsiLocali(const QMimeData* dati) {
    QStringList r;
    for (const QUrl& u : dati->urls()) {
        if (!u.isLocalFile()) continue;
        // A browser names this machine in the address of a file.
        const bool qui = u.host() == QLatin1String("localhost") || u.host() == QSysInfo::machineHostName().toLower();
        r += qui ? u.path() : u.toLocalFile();
    }
    return r;
}

void accodaPercorsi(EventKind what, const char* classe, const QStringList& percorsi, Point where,
                    std::uint16_t modifiers) {
    EventRecord r;
    r.what = what;
    r.classe = classe;
    r.where = where;
    r.modifiers = modifiers;
    for (const QString& p : percorsi) r.percorsi.push_back(p.toStdString());
    accoda(std::move(r));
}

// Tab is a key of the drawing's, but for the fields of what stands beside it.
bool Telaio::focusNextPrevChild(bool avanti) {
    const QWidget* con = focusWidget();
    const Finestra* f = finestraAperta();
    if (con == nullptr || con == this || (f != nullptr && con == f->foglio)) return false;
    return QMainWindow::focusNextPrevChild(avanti);
}

void Telaio::dragEnterEvent(QDragEnterEvent* e) {
    if (!percorsiLocali(e->mimeData()).isEmpty()) e->acceptProposedAction();
}

// Without a drawing there is no sheet to drop on: the files are opened.
void Telaio::dropEvent(QDropEvent* e) {
    const QStringList percorsi = percorsiLocali(e->mimeData());
    if (percorsi.isEmpty() || finestraAperta() != nullptr) return;
    e->acceptProposedAction();
    accodaPercorsi(EventKind::highLevel, "odoc", percorsi, {}, modificatori(e->modifiers()));
}

}   // namespace tessaro
