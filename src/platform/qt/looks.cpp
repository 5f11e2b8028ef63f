// How the program looks: the toolkit's style with outlines that show on dark, the dark colours, and whether the desktop is
// dark. The toolkit of today's stable desktops takes that from some of them only; the others tell it by their portal.
#include <QAbstractItemView>
#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <algorithm>

#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

bool eScura(const QPalette& p) { return p.color(QPalette::Window).lightness() < 128; }

// The style of the toolkit, where it leaves someone in the dark: it draws the edge of a box darker than its ground, which a
// dark ground does not show; a default button looks the same with the keys and without; tables and lists never tell.
class StileNostro : public QProxyStyle {
public:
    using QProxyStyle::polish;
    using QProxyStyle::QProxyStyle;
    using QProxyStyle::unpolish;

    void drawPrimitive(PrimitiveElement che, const QStyleOption* o, QPainter* p, const QWidget* w) const override {
        QProxyStyle::drawPrimitive(che, o, p, w);
        const bool fuoco = o->state.testFlag(State_HasFocus);
        if (che == PE_Frame && qobject_cast<const QAbstractItemView*>(w) != nullptr && w->hasFocus())
            return anello(*p, o->rect, o->palette.color(QPalette::Highlight), 2);
        const bool tondo = che == PE_IndicatorRadioButton, campo = che == PE_FrameLineEdit;
        if (!(tondo || campo || che == PE_IndicatorCheckBox) || !eScura(o->palette) || (campo && fuoco)) return;
        QColor orlo = o->palette.color(QPalette::WindowText);
        orlo.setAlpha(o->state.testFlag(State_Enabled) ? 130 : 60);
        anello(*p, o->rect, orlo, 1, tondo);
    }
    void drawControl(ControlElement che, const QStyleOption* o, QPainter* p, const QWidget* w) const override {
        QProxyStyle::drawControl(che, o, p, w);
        if (che == CE_PushButton && o->state.testFlag(State_HasFocus) && o->state.testFlag(State_KeyboardFocusChange))
            anello(*p, o->rect.adjusted(3, 3, -3, -3), o->palette.color(QPalette::Highlight), 1);
    }
    void polish(QWidget* w) override {
        QProxyStyle::polish(w);
        if (qobject_cast<QAbstractItemView*>(w) != nullptr) w->installEventFilter(this);
    }
    void unpolish(QWidget* w) override {
        w->removeEventFilter(this);
        QProxyStyle::unpolish(w);
    }
    // The frame around a table is drawn again with its focus; the toolkit draws its rows only.
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::FocusIn || e->type() == QEvent::FocusOut) static_cast<QWidget*>(o)->update();
        return QProxyStyle::eventFilter(o, e);
    }

private:
    static void anello(QPainter& p, const QRect& dove, const QColor& colore, int spesso, bool tondo = false) {
        const qreal mezzo = spesso / 2.0;
        const QRectF r = QRectF(dove).adjusted(mezzo, mezzo, -mezzo, -mezzo);
        p.save();
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(colore, spesso));
        p.setBrush(Qt::NoBrush);
        if (tondo) {
            p.drawEllipse(r);
        } else {
            p.drawRoundedRect(r, 2, 2);
        }
        p.restore();
    }
};

// A bus to ask at; looking for one must start none.
bool ceUnBus() {
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return true;
    const QString cartella = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !cartella.isEmpty() && QFileInfo::exists(cartella + QStringLiteral("/bus"));
}

// A value that the portal wraps, once or twice.
uint valore(QVariant v) {
    while (v.canConvert<QDBusVariant>()) v = v.value<QDBusVariant>().variant();
    return v.toUInt();
}

}   // namespace

// The colours that the toolkit's own style has on a dark desktop.
QPalette paletteScura() {
    const QColor fondo(0x32, 0x32, 0x32), base(0x24, 0x24, 0x24), testo(0xF0, 0xF0, 0xF0), spento(0x80, 0x80, 0x80);
    const QColor luce(0x30, 0x8C, 0xC6);
    QPalette p(testo, fondo, fondo.lighter(150), fondo.darker(160), fondo.lighter(120), testo, Qt::white, base, fondo);
    p.setColor(QPalette::AlternateBase, base.lighter(120));
    p.setColor(QPalette::Highlight, luce);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, luce.lighter(120));
    p.setColor(QPalette::LinkVisited, luce.lighter(150));
    p.setColor(QPalette::PlaceholderText, QColor(testo.red(), testo.green(), testo.blue(), 160));
    p.setColor(QPalette::ToolTipBase, fondo.lighter(130));
    p.setColor(QPalette::ToolTipText, testo);
    for (const auto che : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        p.setColor(QPalette::Disabled, che, spento);
    p.setColor(QPalette::Disabled, QPalette::Highlight, fondo.lighter(150));
    return p;
}

void vestiApplicazione() {
    constexpr int alfaNote = 160;   // the style's own, half, is too pale for running text
    if (QApplication::style()->name() != QLatin1String("fusion")) return;
    QApplication::setStyle(new StileNostro(QStringLiteral("Fusion")));
    QPalette p = QApplication::palette();
    QColor note = p.color(QPalette::PlaceholderText);
    note.setAlpha(std::max(note.alpha(), alfaNote));
    p.setColor(QPalette::PlaceholderText, note);
    QApplication::setPalette(p);
}

void seguiAspettoDelDesktop() {
    constexpr uint scuro = 1;
    const bool nostro = dynamic_cast<const StileNostro*>(QApplication::style()) != nullptr;
    if (!nostro || eScura(QGuiApplication::palette()) || !ceUnBus()) return;
    QDBusMessage domanda = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
    domanda << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
    auto* attesa = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(domanda), qApp);
    QObject::connect(attesa, &QDBusPendingCallWatcher::finished, attesa, [attesa] {
        const QDBusPendingReply<QDBusVariant> risposta = *attesa;
        if (risposta.isValid() && valore(QVariant::fromValue(risposta.value())) == scuro)
            QApplication::setPalette(paletteScura());
        attesa->deleteLater();
    });
}

}   // namespace tessaro
