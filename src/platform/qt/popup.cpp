// Pop-up menus, and the small pictures that stand before patterns, thicknesses and colours in menus.
#include <QGuiApplication>
#include <QIcon>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

#include "model/Colori.h"
#include "model/Penna.h"
#include "platform/Menus.h"
#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/qt/Menu.h"
#include "platform/Quickdraw.h"

namespace tessaro {

namespace {

constexpr int lato = 16;        // of a figure, in logical pixels
constexpr int fittezza = 2;     // device pixels per logical pixel, so that dense screens show it sharp
constexpr int menuPenna = 20;   // pattern menus
constexpr int menuArea = 105;

// Eight by eight bits, twice in each direction.
void disegnaRetino(QPainter& p, std::int16_t numero) {
    const Pattern& retino = GetIndPattern(numero);
    p.fillRect(0, 0, lato, lato, Qt::white);
    for (int y = 0; y < lato; ++y)
        for (int x = 0; x < lato; ++x)
            if ((retino.pat[static_cast<std::size_t>(y % 8)] >> (7 - x % 8) & 1) != 0)
                p.fillRect(x, y, 1, 1, Qt::black);
}

void disegnaColore(QPainter& p, std::int16_t numero) {
    if (numero < 1 || numero > maxColori) return;
    const RGBColor& c = arrColori[static_cast<std::size_t>(numero - 1)].rgb;
    p.fillRect(0, 0, lato, lato, QColor::fromRgba64(c.red, c.green, c.blue));
}

}   // namespace

QIcon figuraVoce(FiguraVoce figura, std::int16_t numero) {
    QPixmap quadro(lato * fittezza, lato * fittezza);
    quadro.setDevicePixelRatio(fittezza);
    quadro.fill(Qt::transparent);
    QPainter p(&quadro);
    switch (figura) {
    case FiguraVoce::nessuna: return {};
    case FiguraVoce::retino: disegnaRetino(p, numero); break;
    case FiguraVoce::colore: disegnaColore(p, numero); break;
    case FiguraVoce::riga:
        p.fillRect(QRectF(0, (lato - numero) / 2.0, lato, numero),
                   QGuiApplication::palette().color(QPalette::WindowText));
        return quadro;
    }
    p.setPen(Qt::darkGray);
    p.drawRect(QRectF(0.25, 0.25, lato - 0.5, lato - 0.5));
    return quadro;
}

std::int16_t retinoCorrente(std::int16_t menu) {
    if (menu == menuPenna) return NumPat;
    return menu == menuArea ? static_cast<std::int16_t>(NumAreaPat + 1) : std::int16_t{0};
}

std::int16_t PopUpMenuSelect(std::int16_t menu, Point where, std::int16_t item) {
    MenuDati* m = menuDi(menu);
    if (m == nullptr) return 0;
    if (copione() != nullptr) {
        const std::int16_t scelto = copione()->popup();
        return scelto > 0 && IsMenuItemEnabled(menu, scelto) ? scelto : std::int16_t{0};
    }
    if (!conFinestre() || foglio() == nullptr) return 0;
    preparaMenu(*m);
    QMenu* q = m->menu;
    if (m->adatto)
        for (QAction* a : q->actions()) a->setVisible(a->isSeparator() || a->isEnabled());
    const auto& ordine = menuDelleVoci(menu)->ordine;   // one action each, in the same order
    const auto posto = std::find(ordine.begin(), ordine.end(), item) - ordine.begin();
    QAction* sotto = q->actions().value(static_cast<qsizetype>(posto));   // null behind the end
    const Annidato annidato;
    popupAperto = menu;
    sceltaPopup = 0;
    const QPoint dove = foglio()->mapToGlobal(QPoint(where.h, where.v));
    q->popup(m->griglia || m->campioni ? dove - centroGrafico(*m) : dove, sotto);
    while (q->isVisible() && waitStep(Attesa::popup, -1)) {}
    q->close();
    popupAperto = 0;
    // The pop-up took the release of the press that opened it.
    if (Finestra* f = finestraAperta(); f != nullptr && f->foglio != nullptr) f->foglio->lascia();
    return sceltaPopup;
}

}   // namespace tessaro
