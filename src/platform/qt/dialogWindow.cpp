// The window of a dialog: what its keys and its close box mean.
#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QRadioButton>
#include <QTimer>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

QList<QRadioButton*> gruppoDi(const QWidget& radio) {
    QList<QRadioButton*> gruppo = radio.window()->findChildren<QRadioButton*>();
    gruppo.removeIf([&radio](const QRadioButton* r) {
        return !r->isEnabled() || r->isHidden() || r->property(gruppoRadio) != radio.property(gruppoRadio);
    });
    return gruppo;
}

}   // namespace

// Tab comes to the chosen one, to the first where none is, and goes on behind the group; the arrows go from one to the other.
void tabNelGruppo(const QWidget& radio) {
    const QList<QRadioButton*> gruppo = gruppoDi(radio);
    const bool scelto = std::any_of(gruppo.begin(), gruppo.end(), [](const QRadioButton* r) { return r->isChecked(); });
    for (QRadioButton* r : gruppo)
        r->setFocusPolicy(r->isChecked() || (!scelto && r == gruppo.first()) ? Qt::StrongFocus : Qt::ClickFocus);
}

QuadroDialogo::QuadroDialogo(FinestraDialogo& dialogo, QWidget* padre) : QDialog(padre), d(dialogo) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

// Item 0 of a modeless dialog is its close box.
void QuadroDialogo::reject() { tasto(tastoEscape); }

bool QuadroDialogo::premeVoce(const QKeyEvent& e) {
    constexpr int premutoPer = 170;   // milliseconds, a third of a double click's time
    if (e.text().isEmpty() || (e.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    const auto v = d.tastiVoci.find(e.text().at(0).unicode());
    if (v == d.tastiVoci.end()) return false;
    const VoceDialogo* voce = voceDi(&d, v->second);
    if (auto* b = voce == nullptr ? nullptr : qobject_cast<QAbstractButton*>(voce->widget); b != nullptr) {
        b->setDown(true);
        QTimer::singleShot(premutoPer, b, [b] { b->setDown(false); });
    }
    colpisci(d, v->second);
    return true;
}

bool QuadroDialogo::frecciaRadio(QObject* o, int tasto) {
    const bool avanti = tasto == Qt::Key_Down || tasto == Qt::Key_Right;
    if (!avanti && tasto != Qt::Key_Up && tasto != Qt::Key_Left) return false;
    auto* questo = qobject_cast<QRadioButton*>(o);
    if (questo == nullptr) return false;
    const QList<QRadioButton*> gruppo = gruppoDi(*questo);
    const auto quanti = gruppo.size();
    if (quanti < 2) return true;
    QRadioButton* altro = gruppo.at((gruppo.indexOf(questo) + (avanti ? 1 : quanti - 1)) % quanti);
    altro->setFocus(Qt::TabFocusReason);
    altro->click();
    return true;
}

bool QuadroDialogo::eventFilter(QObject* o, QEvent* e) {
    if (e->type() != QEvent::KeyPress) return QDialog::eventFilter(o, e);
    return frecciaRadio(o, static_cast<QKeyEvent*>(e)->key()) || premeVoce(*static_cast<QKeyEvent*>(e));
}

void QuadroDialogo::keyPressEvent(QKeyEvent* e) {
    if (premeVoce(*e)) return;
    switch (e->key()) {
    case Qt::Key_Return: return tasto(tastoReturn);
    case Qt::Key_Enter: return tasto(tastoEnter);
    case Qt::Key_Escape: return d.strumento ? fuga() : tasto(tastoEscape);
    case Qt::Key_F1: return guidaDelDialogo(d.id);
    default: QDialog::keyPressEvent(e);
    }
}

void QuadroDialogo::closeEvent(QCloseEvent* e) {
    e->ignore();
    tasto(tastoEscape);
}

// What was typed and not yet handed over is handed over when the person turns to another window.
bool QuadroDialogo::event(QEvent* e) {
    if (e->type() == QEvent::WindowDeactivate) consegnaCampo();
    // A tool window's keys are the frame's too, but F1 means the section about this dialog.
    if (e->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(e)->key() == Qt::Key_F1) e->accept();
    return QDialog::event(e);
}

QLineEdit* QuadroDialogo::campoToccato() const {
    auto* campo = qobject_cast<QLineEdit*>(focusWidget());
    return campo != nullptr && campo->isModified() && campo->property(attoDelCampo).isValid() ? campo : nullptr;
}

void QuadroDialogo::consegnaCampo() {
    QLineEdit* campo = campoToccato();
    if (campo == nullptr) return;
    campo->setModified(false);
    colpisci(d, static_cast<std::int16_t>(campo->property(attoDelCampo).toInt()));
}

// In a tool window Escape takes back what is typed, and then goes back to the drawing; it closes nothing.
void QuadroDialogo::fuga() {
    if (QLineEdit* campo = campoToccato(); campo != nullptr) {
        const VoceDialogo* v = voceDi(&d, static_cast<std::int16_t>(campo->property(attoDelCampo).toInt()));
        campo->setText(v == nullptr ? QString() : daUtf8(v->grezzo));
        campo->selectAll();
    } else if (telaio() != nullptr) {
        telaio()->activateWindow();
    }
}

void QuadroDialogo::tasto(std::uint8_t macRoman) {
    if (d.nonModale && macRoman != tastoEscape && d.predefinita == 0) return;   // Return is a field's own there
    if (d.nonModale) return colpisci(d, macRoman == tastoEscape ? std::int16_t{0} : d.predefinita);
    d.tasti.push_back(macRoman);
    sveglia();
}

}   // namespace tessaro
