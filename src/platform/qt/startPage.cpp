// The start page: what to do while no drawing is open. Its buttons are items of the File menu and of the recent drawings,
// so it says what the menus say and does what they do. It also lies over the untouched drawing that the program begins
// with, until the first action.
#include <QBoxLayout>
#include <QFrame>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>

#include "platform/Menus.h"
#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

constexpr std::int16_t menuFile = 2, vNuovo = 1, vApri = 2, vEsempio = 19;
constexpr std::int16_t menuRecenti = 9480, ultimoRecente = 10;
constexpr std::int16_t listaPagina = 9480;   // 1 heading, 2 to 4 what to do, 5 heading of the recent drawings
constexpr int margine = 32, distanza = 24, larghezzaRighe = 620;   // logical pixels

class Pagina : public QFrame {
public:
    explicit Pagina(QWidget* padre) : QFrame(padre) {
        setAutoFillBackground(true);
        auto* tutto = new QVBoxLayout(this);
        tutto->setContentsMargins(margine, margine, margine, margine);
        tutto->setSpacing(distanza);
        tutto->addStretch(1);
        tutto->addWidget(titolo(), 0, Qt::AlignHCenter);
        auto* righe = new QVBoxLayout;
        righe->setSpacing(distanza / 2);
        for (std::int16_t i = 2; i <= 4; ++i) righe->addWidget(riga(i), 0, Qt::AlignHCenter);
        tutto->addLayout(righe);
        auto* sotto = new QHBoxLayout;
        sotto->setSpacing(distanza);
        sotto->addStretch(1);
        sotto->addLayout(comandi());
        sotto->addLayout(recenti());
        sotto->addStretch(1);
        tutto->addLayout(sotto);
        tutto->addStretch(2);
    }
    void prendiFuoco() { primo->setFocus(Qt::OtherFocusReason); }
    bool sopra = false;   // over an untouched drawing

private:
    QPushButton* primo = nullptr;

    QLabel* titolo() {
        auto* t = new QLabel(daMac(GetIndString(listaPagina, 1)), this);
        QFont f = t->font();
        f.setPointSizeF(f.pointSizeF() * 2);
        t->setFont(f);
        return t;
    }

    QLabel* riga(std::int16_t i) {
        auto* t = new QLabel(daMac(GetIndString(listaPagina, i)), this);
        t->setTextFormat(Qt::PlainText);
        t->setWordWrap(true);
        t->setFixedSize(larghezzaRighe, t->heightForWidth(larghezzaRighe));
        return t;
    }

    QPushButton* bottone(std::int16_t menu, std::int16_t item) {
        auto* b =
            new QPushButton(daMac(GetMenuItemText(menu, item)).replace(QLatin1Char('&'), QStringLiteral("&&")), this);
        b->setAutoDefault(true);   // Return presses it, as Space does
        b->setMinimumWidth(b->fontMetrics().horizontalAdvance(b->text()) + 2 * distanza);
        QObject::connect(b, &QPushButton::clicked, this, [menu, item] {
            // The drawing that lies under the page is the new one.
            if (IsMenuItemEnabled(menu, item)) accodaMenu(menu, item, 0);
            togliPagina();
        });
        return b;
    }

    QBoxLayout* comandi() {
        auto* colonna = new QVBoxLayout;
        colonna->setSpacing(distanza / 3);
        primo = bottone(menuFile, vNuovo);
        colonna->addWidget(primo);
        colonna->addWidget(bottone(menuFile, vApri));
        if (IsMenuItemEnabled(menuFile, vEsempio)) colonna->addWidget(bottone(menuFile, vEsempio));
        colonna->addStretch(1);
        return colonna;
    }

    QBoxLayout* recenti() {
        auto* colonna = new QVBoxLayout;
        colonna->setSpacing(0);
        if (IsMenuItemEnabled(menuRecenti, 1)) {
            auto* t = new QLabel(daMac(GetIndString(listaPagina, 5)), this);
            t->setForegroundRole(QPalette::PlaceholderText);
            colonna->addWidget(t);
        }
        for (std::int16_t i = 1; i <= ultimoRecente; ++i) {
            if (!IsMenuItemEnabled(menuRecenti, i)) continue;
            auto* b = bottone(menuRecenti, i);
            b->setFlat(true);
            b->setStyleSheet(QStringLiteral("text-align: left; padding: 4px"));
            colonna->addWidget(b);
        }
        colonna->addStretch(1);
        return colonna;
    }
};

Pagina* pagina = nullptr;

void poni(bool sopra) {
    togliPagina();
    if (telaio() == nullptr) return;
    pagina = new Pagina(telaio()->centralWidget());
    pagina->sopra = sopra;
    if (sopra) pagina->setFrameShape(QFrame::StyledPanel);
    disponiPagina();
    pagina->show();
    pagina->raise();
    pagina->prendiFuoco();
}

}   // namespace

void mostraPagina() { poni(false); }

void ShowStartPage() {
    if (finestraAperta() != nullptr) poni(true);
}

void disponiPagina() {
    if (pagina == nullptr) return;
    const QRect tutto = pagina->parentWidget()->rect();
    QRect posto = tutto;
    if (pagina->sopra) {
        posto.setSize(pagina->sizeHint().boundedTo(tutto.size()));
        posto.moveCenter(tutto.center());
    }
    pagina->setGeometry(posto);
}

void togliPagina() {
    if (pagina == nullptr) return;
    pagina->hide();
    pagina->deleteLater();   // one of its buttons may be at work
    pagina = nullptr;
    if (foglio() != nullptr) foglio()->setFocus();
}

}   // namespace tessaro
