// Where dialogs beside the drawing stand: at first where they cover the least, then where the person left them.
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

QString chiavePosto(const FinestraDialogo& d) { return QStringLiteral("dialogs/%1").arg(d.id); }

// Where the person left it the last time.
bool alSuoPosto(const FinestraDialogo& d, QWidget& quadro) {
    if (copione() != nullptr) return false;
    const QVariant dove = QSettings(fileDelTelaio(), QSettings::IniFormat).value(chiavePosto(d));
    if (!dove.isValid()) return false;
    QList<QRect> schermi;
    for (const QScreen* s : QGuiApplication::screens()) schermi << s->availableGeometry();
    quadro.move(postoVisibile(QRect(dove.toPoint(), quadro.size()), schermi).topLeft());
    return true;
}

constexpr int titoloFinestra = 32, dalBordo = 16;   // logical pixels

std::int64_t area(const QRect& r) { return r.isEmpty() ? 0 : std::int64_t{r.width()} * r.height(); }

// The room that a modeless dialog takes at a place, with its title. A tool window has rows that come and go with the selection:
// it may reach down to the frame's foot.
QRect ingombro(const FinestraDialogo& d, QRect dove, const QRect& cornice) {
    if (d.strumento) dove.setBottom(std::max(dove.bottom(), cornice.bottom() - dalBordo));
    return dove.adjusted(0, -titoloFinestra, 0, 0);
}

// The first place of a modeless dialog: at a corner of the frame, or beside it where the screen has room, so that it covers the
// least of the other ones and of the drawing's middle; the first of the list among equals.
QPoint primoPosto(const FinestraDialogo& d, QSize misura, const QMainWindow& cornice,
                  const QList<const FinestraDialogo*>& altri) {
    constexpr int dallAlto = 96, dallaPalette = 56;   // below the toolbar, beside the palette
    const QRect f = cornice.geometry();
    const QRect schermo = cornice.screen() == nullptr ? f : cornice.screen()->availableGeometry().united(f);
    QRect mezzo(0, 0, f.width() / 5, f.height() / 5);
    mezzo.moveCenter(f.center());
    const int destra = f.right() - misura.width() - dalBordo, sinistra = f.left() + dallaPalette;
    const int alto = f.top() + dallAlto, basso = f.bottom() - misura.height() - dalBordo;
    const QPoint posti[] = {
        {destra, alto}, {f.right() + dalBordo, alto}, {destra, basso}, {sinistra, basso}, {sinistra, alto}};
    QPoint migliore = posti[0];
    std::int64_t meno = -1;
    for (const QPoint& p : posti) {
        if (d.strumento && p.y() != alto) continue;
        const QPoint q(std::max(p.x(), schermo.left()), std::max(p.y(), schermo.top() + titoloFinestra));
        const QRect qui = ingombro(d, QRect(q, misura), f);
        std::int64_t coperto = area(qui.intersected(mezzo)) + 4 * (area(qui) - area(qui.intersected(schermo)));
        for (const FinestraDialogo* a : altri)
            coperto += 2 * area(qui.intersected(ingombro(*a, a->quadro->geometry(), f)));
        if (meno >= 0 && coperto >= meno) continue;
        meno = coperto;
        migliore = q;
    }
    return migliore;
}

constexpr const char* proprietaPosto = "tessaroPosto";   // of a window that stands at its first place: that place

// Still where it was put, but for what a window manager adds round it.
bool alPrimoPosto(const QWidget& quadro) {
    constexpr int cornice = 48;   // logical pixels
    const QVariant primo = quadro.property(proprietaPosto);
    return primo.isValid() && (quadro.pos() - primo.toPoint()).manhattanLength() < cornice;
}

}   // namespace

// A place that nobody chose is none to come back to: the next time others may stand there.
void ricordaPosto(const FinestraDialogo& d) {
    if (copione() != nullptr || !d.nonModale || d.quadro == nullptr || alPrimoPosto(*d.quadro)) return;
    QSettings(fileDelTelaio(), QSettings::IniFormat).setValue(chiavePosto(d), d.quadro->pos());
}

void mettiAlPosto(const FinestraDialogo& d, QWidget& quadro, const QList<const FinestraDialogo*>& altri) {
    const QMainWindow* cornice = telaio();
    if (cornice == nullptr) return;
    quadro.adjustSize();
    if (alSuoPosto(d, quadro)) return;
    const QPoint dove = primoPosto(d, quadro.size(), *cornice, altri);
    quadro.setProperty(proprietaPosto, dove);
    quadro.move(dove);
}

}   // namespace tessaro
