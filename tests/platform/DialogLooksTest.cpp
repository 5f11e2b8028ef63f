// Every dialog of the resources, in both languages: nothing is cut off at any size of type, every text can be read on light
// and on dark, every control has a name, is reached by Tab and shows its focus.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/Automation.h"
#include "platform/Dialogs.h"
#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"
#include "support/Avvisi.h"

namespace tessaro {
namespace {

// Every dialog in every language.
void perOgniDialogo(const std::function<void(const QDialog&, const std::string&)>& guarda) {
    SetCopione(nullptr);
    ParamText("V.9.0.3", "1499998", "1499998", "");
    for (const char* lingua : {"en", "it"}) {
        ScegliLingua(lingua);
        for (const std::string& file : FileRisorse("dialogs")) {
            const auto id = static_cast<std::int16_t>(numeroDi(std::filesystem::path(file).stem().string(), 0));
            const DialogPtr q = GetNewDialog(id);
            mostra(*q);
            guarda(*q->quadro, lingua + (" " + std::to_string(id)));
            DisposeDialog(q);
        }
    }
    ScegliLingua("en");   // the next test's language, and hooks
    prova::ganciDellaSuite();
}

// What shows a text of its own, folded texts apart.
QWidgetList scritte(const QDialog& d) {
    QWidgetList v;
    for (QWidget* w : d.findChildren<QWidget*>()) {
        const auto* scritta = qobject_cast<const QLabel*>(w);
        const bool bottone = qobject_cast<const QAbstractButton*>(w) != nullptr;
        if (w->isVisible() && (bottone || (scritta != nullptr && !scritta->wordWrap()))) v << w;
    }
    return v;
}

TEST(DialogLooks, NoTextOfADialogIsCutOffInEitherLanguageAtAnySizeOfType) {
    const QFont solito = QApplication::font();
    for (const double quanto : {1.0, 1.5, 2.0}) {
        QFont grande = solito;
        grande.setPointSizeF(solito.pointSizeF() * quanto);
        QApplication::setFont(grande);
        perOgniDialogo([quanto](const QDialog& d, const std::string& quale) {
            EXPECT_LE(d.width(), 1000 * quanto) << quale << " x" << quanto;
            EXPECT_LE(d.height(), 640 * quanto) << quale << " x" << quanto;
            for (const QWidget* w : scritte(d)) {
                EXPECT_GE(w->width(), w->sizeHint().width()) << quale << " x" << quanto;
                EXPECT_GE(w->height(), w->sizeHint().height()) << quale << " x" << quanto;
            }
        });
    }
    QApplication::setFont(solito);
}

constexpr double leggibile = 4.5;   // contrast of a text with its ground: WCAG 2.1, level AA

// Relative luminance of a colour over another, and the contrast of two: WCAG 2.1, "relative luminance" and "contrast
// ratio".
double luce(const QColor& c, const QColor& sotto) {
    const auto parte = [a = c.alphaF()](double sopra, double fondo) {
        const double v = sopra * a + fondo * (1 - a);
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * parte(c.redF(), sotto.redF()) + 0.7152 * parte(c.greenF(), sotto.greenF())
           + 0.0722 * parte(c.blueF(), sotto.blueF());
}
double contrasto(const QColor& testo, const QColor& fondo) {
    const double a = luce(testo, fondo), b = luce(fondo, fondo);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST(DialogLooks, EveryTextOfADialogCanBeReadOnLightAndOnDark) {
    const QPalette chiara = QApplication::palette();
    for (const QPalette& p : {chiara, paletteScura()}) {
        QApplication::setPalette(p);
        perOgniDialogo([](const QDialog& d, const std::string& quale) {
            for (const QWidget* w : scritte(d)) {
                const QPalette& sua = w->palette();
                const QColor fondo = sua.color(QPalette::Active, w->backgroundRole());
                EXPECT_GE(contrasto(sua.color(QPalette::Active, w->foregroundRole()), fondo), leggibile)
                    << quale << " " << w->accessibleName().toStdString();
            }
        });
    }
    QApplication::setPalette(chiara);
}

// What the Tab key should reach: whatever takes the focus, but for the parts of a larger control.
QWidgetList daRaggiungere(const QDialog& d) {
    QWidgetList v;
    for (QWidget* w : d.findChildren<QWidget*>()) {
        const bool parte = w->focusProxy() != nullptr || qobject_cast<QScrollArea*>(w) != nullptr
                           || w->objectName().startsWith(QLatin1String("qt_"));
        if (w->isVisible() && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus) != 0 && !parte) v << w;
    }
    return v;
}

// The picture of a control and of a rim around it, where a style may show the focus.
QImage figura(QWidget& w) {
    constexpr int orlo = 3;
    QWidget* f = w.window();
    return f->grab(QRect(w.mapTo(f, QPoint(0, 0)), w.size()).adjusted(-orlo, -orlo, orlo, orlo)).toImage();
}

TEST(DialogLooks, EveryControlOfADialogHasANameIsReachedByTabAndShowsItsFocus) {
    perOgniDialogo([](const QDialog& d, const std::string& quale) {
        const QWidgetList tutti = daRaggiungere(d);
        if (tutti.isEmpty()) return;
        QApplication::processEvents();
        tutti.front()->setFocus(Qt::TabFocusReason);
        tutti.front()->window()->setAttribute(Qt::WA_KeyboardFocusChange);   // as after the first Tab
        QWidgetList visti;
        for (qsizetype passi = 0; passi < 4 * tutti.size(); ++passi) {
            QWidget* ora = QApplication::focusWidget();
            ASSERT_NE(ora, nullptr) << quale;
            if (!visti.contains(ora)) visti << ora;
            QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
            const QImage acceso = figura(*ora);
            QApplication::sendEvent(ora, &tab);
            if (!tutti.contains(ora) || QApplication::focusWidget() == ora) continue;
            EXPECT_NE(figura(*ora), acceso) << quale << ": no focus is seen on a " << ora->metaObject()->className()
                                            << " " << ora->accessibleName().toStdString();
        }
        for (QWidget* w : tutti) {
            const std::string chi = std::string(w->metaObject()->className()) + " " + w->accessibleName().toStdString();
            EXPECT_TRUE(visti.contains(w)) << quale << ": Tab does not reach a " << chi;
            QAccessibleInterface* i = QAccessible::queryAccessibleInterface(w);
            if (i == nullptr) continue;
            EXPECT_FALSE(i->text(QAccessible::Name).isEmpty() && i->relations().isEmpty())
                << quale << ": no name for a " << chi;
        }
    });
}

}   // namespace
}   // namespace tessaro
