// Menus that are pictures: patterns as a grid of cells, colours as rows of swatches with their names. One widget fills
// the menu; pointer and arrow keys move over its cells.
#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QWidgetAction>

#include <algorithm>

#include "model/Colori.h"
#include "model/Penna.h"
#include "platform/qt/Interno.h"
#include "platform/qt/Menu.h"
#include "platform/Quickdraw.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr int latoCella = 20, celleRiga = 5;         // of the pattern grid, logical pixels
constexpr int rigaColore = 14, largoCampione = 35;   // of a colour row, at least
constexpr std::int16_t retiniInTutto = 38;
constexpr std::int16_t menuArea = 105;
constexpr std::int16_t listaTitoli = 9140, titoloPenna = 3;

struct CellaMenu {
    QRect dove;
    std::int16_t voce = 0;     // 0: a label, not to be chosen
    std::int16_t numero = 0;   // of the pattern or colour that it shows; 0 none
    QString testo;
};

class MenuGrafico : public QWidget {
public:
    MenuGrafico(MenuDati& menu, const MenuDati& voci) : numeroMenu(menu.numero), retini(voci.griglia) {
        setMouseTracking(true);
        setFocusPolicy(Qt::StrongFocus);
        setAccessibleName(daUtf8(senzaMnemonico(menu.titolo)));
        if (retini) {
            disponiRetini(menu, voci);
        } else {
            disponiColori(voci);
        }
        sotto = std::max(corrente(), 0);
        setAccessibleDescription(sotto < static_cast<int>(celle.size()) ? cella(sotto).testo : QString());
    }

    QSize sizeHint() const override { return misura; }

    // Where the cell that is in force lies.
    QPoint centroCorrente() const {
        const int c = corrente();
        return c < 0 ? QPoint(0, 0) : cella(c).dove.center();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        for (int i = 0; i < static_cast<int>(celle.size()); ++i) {
            if (retini) {
                disegnaRetino(p, i);
            } else {
                disegnaColore(p, i);
            }
        }
    }
    void mouseMoveEvent(QMouseEvent* e) override { vai(cellaA(e->pos())); }
    void leaveEvent(QEvent*) override { update(); }
    void mouseReleaseEvent(QMouseEvent* e) override {
        const int i = cellaA(e->pos());
        if (i >= 0) scegli(i);
    }
    void keyPressEvent(QKeyEvent* e) override {
        const int passo = retini ? celleRiga : 1;
        switch (e->key()) {
        case Qt::Key_Left: return retini ? vai(sotto - 1) : e->ignore();
        case Qt::Key_Right: return retini ? vai(sotto + 1) : e->ignore();
        case Qt::Key_Up: return vai(sotto - passo);
        case Qt::Key_Down: return vai(sotto + passo);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space: return scegli(sotto);
        default: e->ignore();
        }
    }
    bool event(QEvent* e) override {
        if (e->type() == QEvent::ToolTip) {
            const int i = cellaA(static_cast<QHelpEvent*>(e)->pos());
            if (retini && i >= 0) QToolTip::showText(static_cast<QHelpEvent*>(e)->globalPos(), cella(i).testo, this);
            return true;
        }
        return QWidget::event(e);
    }

private:
    std::int16_t numeroMenu;
    bool retini;
    std::vector<CellaMenu> celle;
    QSize misura;
    int sotto = 0;   // cell under the pointer or the arrow keys

    const CellaMenu& cella(int i) const { return celle[static_cast<std::size_t>(i)]; }

    // Cell 0 is twice as wide: a label, and the choice of none where there is one.
    void disponiRetini(const MenuDati& menu, const MenuDati& voci) {
        const bool conNessuno = menu.numero == menuArea;
        const auto nome = [&voci](std::int16_t voce) {
            const auto v = voci.voci.find(voce);
            if (v == voci.voci.end()) return QString();
            const QString cenno = daUtf8(v->second.cenno);
            return daUtf8(v->second.testo) + (cenno.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(cenno));
        };
        const QString titolo = conNessuno ? nome(1) : daMac(GetIndString(listaTitoli, titoloPenna));
        celle.push_back({QRect(0, 0, 2 * latoCella, latoCella), static_cast<std::int16_t>(conNessuno), 0, titolo});
        for (std::int16_t n = 1; n <= retiniInTutto; ++n) {
            const int posto = n + 1;   // the double cell takes two places
            const auto voce = static_cast<std::int16_t>(conNessuno ? n + 1 : n);
            const QPoint angolo(posto % celleRiga * latoCella, posto / celleRiga * latoCella);
            celle.push_back({QRect(angolo, QSize(latoCella, latoCella)), voce, n, nome(voce)});
        }
        misura = QSize(celleRiga * latoCella, 8 * latoCella);
    }

    // Down the first column, then the next when the screen is full.
    void disponiColori(const MenuDati& voci) {
        const QFontMetrics caratteri = fontMetrics();
        const int alta = std::max(rigaColore, caratteri.height() + 3);
        int larga = 0;
        for (const auto& [n, v] : voci.voci) larga = std::max(larga, caratteri.horizontalAdvance(daUtf8(v.testo)));
        larga += 2 * rigaColore + largoCampione + caratteri.height();
        const int schermo = QGuiApplication::primaryScreen()->availableSize().height();
        const int perColonna = std::max(1, schermo * 4 / 5 / alta);
        int i = 0;
        for (const auto& [n, v] : voci.voci) {
            const QPoint angolo(i / perColonna * larga, i % perColonna * alta);
            celle.push_back({QRect(angolo, QSize(larga, alta)), n, n, daUtf8(v.testo)});
            ++i;
        }
        misura = QSize(((i - 1) / perColonna + 1) * larga, std::min(i, perColonna) * alta);
    }

    int corrente() const {
        const int voce = retini ? retinoCorrente(numeroMenu) : colorCorrente;
        for (int i = 0; i < static_cast<int>(celle.size()); ++i)
            if (cella(i).voce != 0 && cella(i).voce == voce) return i;
        return -1;
    }

    int cellaA(QPoint p) const {
        for (int i = 0; i < static_cast<int>(celle.size()); ++i)
            if (cella(i).voce != 0 && cella(i).dove.contains(p)) return i;
        return -1;
    }

    void vai(int i) {
        if (i < 0 || i >= static_cast<int>(celle.size()) || cella(i).voce == 0) return;
        sotto = i;
        setAccessibleDescription(cella(i).testo);
        update();
    }

    void scegli(int i) {
        const std::int16_t voce = cella(i).voce;
        if (voce == 0) return;
        sceltaVoce(numeroMenu, voce);
        while (QWidget* aperto = QApplication::activePopupWidget())
            if (!aperto->close()) break;
    }

    // As large as the label's cell lets it be.
    QFont caratterePer(const CellaMenu& c) const {
        QFont f = font();
        int alto = 11;
        do {
            f.setPixelSize(alto);
        } while (QFontMetrics(f).horizontalAdvance(c.testo) > c.dove.width() - 4 && --alto > 7);
        return f;
    }

    void disegnaRetino(QPainter& p, int i) const {
        const CellaMenu& c = cella(i);
        const QRect dentro = c.dove.adjusted(1, 1, -1, -1);
        if (c.numero == 0) {
            p.setFont(caratterePer(c));
            p.setPen(palette().color(QPalette::WindowText));
            p.drawText(c.dove, Qt::AlignCenter, c.testo);
        } else {
            p.fillRect(dentro, Qt::white);
            const Pattern& retino = GetIndPattern(c.numero);
            for (int y = 0; y < dentro.height(); ++y)
                for (int x = 0; x < dentro.width(); ++x)
                    if ((retino.pat[static_cast<std::size_t>(y % 8)] >> (7 - x % 8) & 1) != 0)
                        p.fillRect(dentro.x() + x, dentro.y() + y, 1, 1, Qt::black);
            cornice(p, dentro, 1, Qt::darkGray);
        }
        if (i == sotto && c.voce != 0 && (underMouse() || hasFocus()))
            cornice(p, dentro, 2, palette().color(QPalette::Highlight).lighter(150));
        if (i == corrente()) cornice(p, c.dove, 2, QColor(0, 0, 255));
    }

    void disegnaColore(QPainter& p, int i) const {
        const CellaMenu& c = cella(i);
        const bool scelta = i == sotto && (underMouse() || hasFocus());
        if (scelta) p.fillRect(c.dove, palette().color(QPalette::Highlight));
        const QColor testo = palette().color(scelta ? QPalette::HighlightedText : QPalette::WindowText);
        if (i == corrente()) {
            p.setBrush(testo);
            p.setPen(Qt::NoPen);
            p.setRenderHint(QPainter::Antialiasing);
            p.drawEllipse(QPointF(c.dove.left() + 8, c.dove.center().y() + 0.5), 3, 3);
            p.setRenderHint(QPainter::Antialiasing, false);
        }
        const QRect campione(c.dove.left() + rigaColore + 2, c.dove.top() + 2, largoCampione, c.dove.height() - 5);
        if (c.numero >= 1 && c.numero <= maxColori) {
            const RGBColor& rgb = arrColori[static_cast<std::size_t>(c.numero - 1)].rgb;
            p.fillRect(campione, QColor::fromRgba64(rgb.red, rgb.green, rgb.blue));
        }
        cornice(p, campione, 1, Qt::darkGray);
        p.setPen(testo);
        p.drawText(c.dove.adjusted(2 * rigaColore + largoCampione - 6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                   c.testo);
        p.setPen(palette().color(QPalette::Mid));
        p.drawLine(c.dove.bottomLeft(), c.dove.bottomRight());
    }

    static void cornice(QPainter& p, const QRect& r, int spessa, const QColor& colore) {
        for (int i = 0; i < spessa; ++i) {
            p.setPen(colore);
            p.setBrush(Qt::NoBrush);
            p.drawRect(r.adjusted(i, i, -i - 1, -i - 1));
        }
    }
};

MenuGrafico* graficoDi(const QMenu& q) {
    auto* a = q.actions().isEmpty() ? nullptr : qobject_cast<QWidgetAction*>(q.actions().front());
    return a == nullptr ? nullptr : static_cast<MenuGrafico*>(a->defaultWidget());
}

}   // namespace

void riempiGrafico(MenuDati& m, const MenuDati& voci) {
    QMenu* q = m.menu;
    q->clear();
    auto* a = new QWidgetAction(q);
    a->setDefaultWidget(new MenuGrafico(m, voci));
    q->addAction(a);
}

QPoint centroGrafico(const MenuDati& m) {
    const MenuGrafico* g = graficoDi(*m.menu);
    return g == nullptr ? QPoint() : g->centroCorrente();
}

}   // namespace tessaro
