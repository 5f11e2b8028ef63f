// What a screen reader hears of a radio button. The toolkit takes one whose group the program keeps for a check box.
#include <QAccessible>
#include <QAccessibleWidget>
#include <QRadioButton>

#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

class RadioUdibile : public QAccessibleWidget {
public:
    explicit RadioUdibile(QRadioButton* b) : QAccessibleWidget(b, QAccessible::RadioButton), bottone(b) {}

    [[nodiscard]] QString text(QAccessible::Text quale) const override {
        const QString detto = QAccessibleWidget::text(quale);
        return quale == QAccessible::Name && detto.isEmpty() ? bottone->text().remove(QLatin1Char('&')) : detto;
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.checkable = true;
        s.checked = bottone->isChecked();
        s.focusable = bottone->isEnabled();   // by the arrows, where Tab passes it over
        return s;
    }
    [[nodiscard]] QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& che) override {
        if (che == pressAction())
            bottone->click();
        else
            QAccessibleWidget::doAction(che);
    }

private:
    QRadioButton* bottone;
};

QAccessibleInterface* udibile(const QString&, QObject* o) {
    auto* const r = qobject_cast<QRadioButton*>(o);
    return r == nullptr ? nullptr : new RadioUdibile(r);
}

}   // namespace

void RadioPerChiAscolta() { QAccessible::installFactory(udibile); }

}   // namespace tessaro
