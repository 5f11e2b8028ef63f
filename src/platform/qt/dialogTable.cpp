// Tables in dialogs: rows of cells under a heading, to be read, or with columns that are edited in place. The first text of
// an item is its heading, cells everywhere are parted by tabs.
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>

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

namespace {

const char* const proprietaModificabili = "modificabili";
const char* const proprietaSpunte = "spunte";

bool modificabile(const QTableWidget& w, int colonna) {
    return w.property(proprietaModificabili).toList().contains(colonna + 1);
}
bool spunta(const QTableWidget& w, int colonna) { return w.property(proprietaSpunte).toInt() == colonna + 1; }

// A hand's change goes to the program, which shows the row anew.
void raccogli(FinestraDialogo& d, QTableWidget& w, std::int16_t item, const FormaTabella& forma) {
    QVariantList quali;
    for (const int c : forma.modificabili) quali << c;
    w.setProperty(proprietaModificabili, quali);
    w.setProperty(proprietaSpunte, forma.spunte);
    QObject::connect(&w, &QTableWidget::itemChanged, d.quadro, [&d, item](const QTableWidgetItem* c) {
        VoceDialogo* v = voceDi(&d, item);
        if (v == nullptr) return;
        const bool segno = spunta(*c->tableWidget(), c->column());
        CellaDialogo cella;
        cella.riga = static_cast<std::int16_t>(c->row() + 1);
        cella.colonna = static_cast<std::int16_t>(c->column() + 1);
        cella.macRoman = segno ? (c->checkState() == Qt::Checked ? "1" : "0") : aMac(c->text());
        v->celle.push_back(std::move(cella));
        colpisci(d, item);
    });
    QObject::connect(&w, &QTableWidget::currentCellChanged, d.quadro,
                     [&d, item, sceglie = forma.sceglie](int riga, int, int prima, int) {
                         VoceDialogo* v = voceDi(&d, item);
                         if (v == nullptr || riga == prima) return;
                         v->valore = riga + 1;
                         if (sceglie) colpisci(d, item);
                     });
}

}   // namespace

QWidget* creaTabella(FinestraDialogo& d, std::int16_t item, const FormaTabella& forma) {
    const std::vector<int>& caratteri = forma.caratteri;
    auto* w = new QTableWidget(0, static_cast<int>(caratteri.size()), d.quadro);
    w->setEditTriggers(forma.modificabili.empty() ? QAbstractItemView::NoEditTriggers
                                                  : QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                                                        | QAbstractItemView::AnyKeyPressed);
    if (forma.sceglie) w->setSelectionMode(QAbstractItemView::SingleSelection);
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
    if (forma.spunte > 0) w->horizontalHeader()->setSectionResizeMode(forma.spunte - 1, QHeaderView::Fixed);
    int larga = 2 * w->frameWidth();
    for (std::size_t i = 0; i < caratteri.size(); ++i) {
        const int colonna = w->fontMetrics().horizontalAdvance(QLatin1Char('0')) * caratteri[i] + 2 * margineCella;
        w->setColumnWidth(static_cast<int>(i), colonna);
        larga += colonna;
    }
    w->setMinimumWidth(larga);
    w->setProperty("righe", forma.righe);
    raccogli(d, *w, item, forma);
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

// A table without rows is not shown, unless a hand fills it.
void righeTabella(const VoceDialogo& v, int quante) {
    QTableWidget* w = tabellaDi(v);
    if (w == nullptr) return;
    const QSignalBlocker zitta(w);
    w->setRowCount(quante);
    w->setVisible((quante > 0 || !w->property(proprietaModificabili).toList().isEmpty()) && !v.nascosta);
    scegliRigaTabella(v);
}

void scegliRigaTabella(const VoceDialogo& v) {
    QTableWidget* w = tabellaDi(v);
    if (w == nullptr || w->currentRow() == v.valore - 1) return;
    const QSignalBlocker zitta(w);
    if (v.valore < 1 || v.valore > w->rowCount()) {
        w->setCurrentItem(nullptr);
        return;
    }
    w->setCurrentCell(v.valore - 1, std::max(w->currentColumn(), 0));
}

bool modificaCella(const VoceDialogo& v, int riga, int colonna, const QString& testo) {
    QTableWidget* w = tabellaDi(v);
    QTableWidgetItem* c = w == nullptr ? nullptr : w->item(riga, colonna);
    if (c == nullptr) return false;
    if (spunta(*w, colonna)) {
        c->setCheckState(testo == QLatin1String("0") ? Qt::Unchecked : Qt::Checked);
    } else if (modificabile(*w, colonna)) {
        c->setText(testo);
    } else {
        return false;
    }
    return true;
}

void rigaTabella(const VoceDialogo& v, int n, const QString& testo) {
    QTableWidget* w = tabellaDi(v);
    if (w == nullptr || n < 0 || n >= w->rowCount()) return;
    const QSignalBlocker zitta(w);
    const QStringList celle = testo.split(QLatin1Char('\t'));
    for (int i = 0; i < w->columnCount(); ++i) {
        QTableWidgetItem* c = w->item(n, i);
        if (c == nullptr) {
            c = new QTableWidgetItem;
            c->setTextAlignment(allineamento(*w));
            Qt::ItemFlags stato = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
            if (modificabile(*w, i)) stato |= Qt::ItemIsEditable;
            if (spunta(*w, i)) stato |= Qt::ItemIsUserCheckable;
            c->setFlags(stato);
            w->setItem(n, i, c);
        }
        if (spunta(*w, i)) {
            c->setCheckState(celle.value(i) == QLatin1String("1") ? Qt::Checked : Qt::Unchecked);
        } else {
            c->setText(celle.value(i));
        }
    }
}

std::string testoTabella(const VoceDialogo& v) {
    const QTableWidget* w = tabellaDi(v);
    QStringList righe;
    for (int n = 0; w != nullptr && n < w->rowCount(); ++n) {
        QStringList celle;
        for (int i = 0; i < w->columnCount(); ++i) {
            const QTableWidgetItem* c = w->item(n, i);   // none in a row that was never filled
            const bool segno = c != nullptr && spunta(*w, i);
            const QString segnata = QLatin1String(segno && c->checkState() == Qt::Checked ? "x" : "");
            celle << (c == nullptr ? QString() : segno ? segnata : c->text());
        }
        righe << celle.join(QStringLiteral(" | "));
    }
    return righe.join(QLatin1Char('\n')).toStdString();
}

bool GetDialogItemEdit(DialogPtr d, std::int16_t item, CellaDialogo& cella) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr || v->celle.empty()) return false;
    cella = std::move(v->celle.front());
    v->celle.pop_front();
    return true;
}

}   // namespace tessaro
