// Scroll bars and the panel of the drawing window, and the names of its parts for accessibility tools.
#include <QGuiApplication>
#include <QSignalBlocker>

#include <algorithm>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

ControlHandle nuovo(WindowPtr w, Controllo::Tipo tipo) {
    if (w == nullptr) return nullptr;
    auto c = std::make_unique<Controllo>();
    c->tipo = tipo;
    return w->controlli.emplace_back(std::move(c)).get();
}

void porta(Controllo& c) {
    c.valore = std::clamp(c.valore, c.minimo, std::max(c.minimo, c.massimo));
    QScrollBar* b = c.cursore();
    if (b == nullptr) return;
    const QSignalBlocker zitto(b);
    b->setRange(c.minimo, std::max(c.minimo, c.massimo));
    b->setSingleStep(c.linea);
    b->setPageStep(c.pagina);
    b->setValue(c.valore);
}

void mossoAMano(Controllo& c, int valore, bool vertical) {
    c.valore = valore;
    EventRecord e;
    e.what = EventKind::scroll;
    e.message = vertical ? 0 : 1;
    e.where = GetMouse();
    e.modifiers = modificatori(QGuiApplication::keyboardModifiers());
    accoda(std::move(e));
}

}   // namespace

ControlHandle NewScrollBar(WindowPtr w, bool vertical) {
    ControlHandle c = nuovo(w, Controllo::barra);
    if (c == nullptr || w->foglio == nullptr) return c;
    auto* b = new QScrollBar(vertical ? Qt::Vertical : Qt::Horizontal, w->foglio);
    b->setFocusPolicy(Qt::NoFocus);
    b->setMouseTracking(true);
    b->setContextMenuPolicy(Qt::PreventContextMenu);
    b->setCursor(Qt::ArrowCursor);
    b->installEventFilter(w->foglio);
    b->hide();
    QObject::connect(b, &QScrollBar::valueChanged, b, [c, vertical](int v) { mossoAMano(*c, v, vertical); });
    c->widget = b;
    porta(*c);
    return c;
}

ControlHandle NewPanel(WindowPtr w) {
    ControlHandle c = nuovo(w, Controllo::pannello);
    if (c == nullptr || w->foglio == nullptr) return c;
    c->widget = new QWidget(w->foglio);
    c->widget->setAutoFillBackground(true);
    c->widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    c->widget->hide();
    return c;
}

void MoveSizeControl(ControlHandle c, const Rect& r) {
    if (c == nullptr || c->widget == nullptr) return;
    c->widget->setGeometry(r.left, r.top, std::max(0, r.right - r.left), std::max(0, r.bottom - r.top));
}

void ShowControl(ControlHandle c) {
    if (c != nullptr && c->widget != nullptr) c->widget->show();
}

void HideControl(ControlHandle c) {
    if (c != nullptr && c->widget != nullptr) c->widget->hide();
}

void SetControlValue(ControlHandle c, std::int32_t value) {
    if (c == nullptr) return;
    c->valore = value;
    porta(*c);
}
std::int32_t GetControlValue(ControlHandle c) { return c == nullptr ? 0 : c->valore; }

void SetControlMinimum(ControlHandle c, std::int32_t value) {
    if (c == nullptr) return;
    c->minimo = value;
    porta(*c);
}
void SetControlMaximum(ControlHandle c, std::int32_t value) {
    if (c == nullptr) return;
    c->massimo = value;
    porta(*c);
}
std::int32_t GetControlMaximum(ControlHandle c) { return c == nullptr ? 0 : c->massimo; }

void SetControlSteps(ControlHandle c, std::int32_t line, std::int32_t page) {
    if (c == nullptr) return;
    c->linea = line;
    c->pagina = page;
    porta(*c);
}

void NameWindowPart(WindowPtr w, std::int32_t index, const Rect& r, std::string_view macRomanName) {
    if (w == nullptr || w->foglio == nullptr) return;
    QWidget*& parte = w->parti[index];
    if (macRomanName.empty()) {
        delete std::exchange(parte, nullptr);
        return;
    }
    if (parte == nullptr) {
        parte = new QWidget(w->foglio);   // paints nothing and takes no input: it only carries the name
        parte->setAttribute(Qt::WA_TransparentForMouseEvents);
        parte->show();
    }
    parte->setGeometry(r.left, r.top, r.right - r.left, r.bottom - r.top);
    parte->setAccessibleName(daMac(macRomanName));
}

}   // namespace tessaro
