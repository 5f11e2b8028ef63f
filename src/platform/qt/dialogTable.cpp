// Tables in dialogs: rows of cells under a heading, to be read only. The first text of an item is its heading, cells
// everywhere are parted by tabs.
#include <QHeaderView>
#include <QTableWidget>

#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constexpr int margineCella = 6, margineRiga = 4;   // logical pixels

QTableWidget* tabellaDi(const VoceDialogo& v) { return qobject_cast<QTableWidget*>(v.widget); }

// Numbers line up at the right; a single column is words.
Qt::Alignment allineamento(const QTableWidget& w) {
    return Qt::AlignVCenter | (w.columnCount() == 1 ? Qt::AlignLeft : Qt::AlignRight);
}

// As high as its heading and the rows it is made for.
void misura(QTableWidget& w) {
    const int testata = w.horizontalHeader()->isHidden() ? 0 : w.horizontalHeader()->sizeHint().height();
    const int righe = w.property("righe").toInt();
    w.setFixedHeight(testata + righe * w.verticalHeader()->defaultSectionSize() + 2 * w.frameWidth());
}

}   // namespace

QWidget* creaTabella(FinestraDialogo& d, int righe, const std::vector<int>& caratteri) {
    auto* w = new QTableWidget(0, static_cast<int>(caratteri.size()), d.quadro);
    w->setEditTriggers(QAbstractItemView::NoEditTriggers);
    w->setSelectionBehavior(QAbstractItemView::SelectRows);
    w->setShowGrid(false);
    w->setAlternatingRowColors(true);
    w->setWordWrap(false);
    w->setTabKeyNavigation(false);
    w->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    w->verticalHeader()->hide();
    w->verticalHeader()->setDefaultSectionSize(w->fontMetrics().height() + margineRiga);
    w->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);   // what is wider is shared
    w->horizontalHeader()->setHighlightSections(false);
    w->horizontalHeader()->setDefaultAlignment(allineamento(*w));
    w->horizontalHeader()->hide();
    if (caratteri.size() > 1) w->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Fixed);
    int larga = 2 * w->frameWidth();
    for (std::size_t i = 0; i < caratteri.size(); ++i) {
        const int colonna = w->fontMetrics().horizontalAdvance(QLatin1Char('0')) * caratteri[i] + 2 * margineCella;
        w->setColumnWidth(static_cast<int>(i), colonna);
        larga += colonna;
    }
    w->setMinimumWidth(larga);
    w->setProperty("righe", righe);
    misura(*w);
    return w;
}

void mostraTestata(const VoceDialogo& v, const QString& testo) {
    QTableWidget* w = tabellaDi(v);
    if (w == nullptr) return;
    w->setHorizontalHeaderLabels(testo.split(QLatin1Char('\t')));
    w->horizontalHeader()->setVisible(!testo.isEmpty());
    misura(*w);
}

// A table without rows is not shown.
void righeTabella(const VoceDialogo& v, int quante) {
    QTableWidget* w = tabellaDi(v);
    if (w == nullptr) return;
    w->setRowCount(quante);
    w->setVisible(quante > 0 && !v.nascosta);
}

void rigaTabella(const VoceDialogo& v, int n, const QString& testo) {
    QTableWidget* w = tabellaDi(v);
    if (w == nullptr || n < 0 || n >= w->rowCount()) return;
    const QStringList celle = testo.split(QLatin1Char('\t'));
    for (int i = 0; i < w->columnCount(); ++i) {
        QTableWidgetItem* c = w->item(n, i);
        if (c == nullptr) {
            c = new QTableWidgetItem;
            c->setTextAlignment(allineamento(*w));
            w->setItem(n, i, c);
        }
        c->setText(celle.value(i));
    }
}

std::string testoTabella(const VoceDialogo& v) {
    const QTableWidget* w = tabellaDi(v);
    QStringList righe;
    for (int n = 0; w != nullptr && n < w->rowCount(); ++n) {
        QStringList celle;
        for (int i = 0; i < w->columnCount(); ++i) {
            const QTableWidgetItem* c = w->item(n, i);   // none in a row that was never filled
            celle << (c == nullptr ? QString() : c->text());
        }
        righe << celle.join(QStringLiteral(" | "));
    }
    return righe.join(QLatin1Char('\n')).toStdString();
}

}   // namespace tessaro
