// Grids in dialogs: rows whose cells are changed in place, and that are dragged to another place. The toolkit's widget only
// shows; what the person did waits as a record until the program has asked for it, and the program fills the rows afresh.
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableWidget>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constexpr int margineCella = 8, margineRiga = 6;   // logical pixels
const QString segnoScelta = QStringLiteral("\u25CF");

enum class Colonna : std::uint8_t { testo, numero, scritta, valore, spunta, scelta };

Colonna colonnaDi(const QString& nome) {
    if (nome == QLatin1String("edit")) return Colonna::scritta;
    if (nome == QLatin1String("value")) return Colonna::valore;
    if (nome == QLatin1String("check")) return Colonna::spunta;
    if (nome == QLatin1String("radio")) return Colonna::scelta;
    return nome == QLatin1String("number") ? Colonna::numero : Colonna::testo;
}

class Griglia : public QTableWidget {
public:
    Griglia(FinestraDialogo& dialogo, std::int16_t voce, int righe, const QStringList& descrizione)
        : QTableWidget(0, static_cast<int>(descrizione.size()), dialogo.quadro), d(dialogo), item(voce),
          righeViste(righe) {
        setSelectionBehavior(QAbstractItemView::SelectRows);
        setSelectionMode(QAbstractItemView::SingleSelection);
        setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
        setShowGrid(false);
        setAlternatingRowColors(true);
        setWordWrap(false);
        setDragDropMode(QAbstractItemView::InternalMove);
        setDragDropOverwriteMode(false);
        verticalHeader()->hide();
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + margineRiga);
        horizontalHeader()->setHighlightSections(false);
        int larga = 2 * frameWidth() + 24;
        for (int i = 0; i < columnCount(); ++i) {
            const QStringList parti = descrizione.at(i).split(QLatin1Char(':'));
            colonne.push_back(colonnaDi(parti.at(0)));
            const int colonna =
                fontMetrics().horizontalAdvance(QLatin1Char('0')) * parti.value(1).toInt() + 2 * margineCella;
            setColumnWidth(i, colonna);
            larga += colonna;
            if (colonne.back() == Colonna::scritta) horizontalHeader()->setSectionResizeMode(i, QHeaderView::Stretch);
        }
        setMinimumWidth(larga);
        // Numbers are typed as into a sheet of figures: the first digit opens the cell, Return goes on to the next row.
        foglioDiNumeri = std::find(colonne.begin(), colonne.end(), Colonna::valore) != colonne.end();
        if (foglioDiNumeri) setEditTriggers(editTriggers() | QAbstractItemView::AnyKeyPressed);
        connect(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* c) { cambiata(*c); });
        connect(this, &QTableWidget::currentCellChanged, this, [this](int r, int, int, int) {
            if (VoceDialogo* v = voceDi(&d, item); v != nullptr && !riempiendo) v->valore = r + 1;
        });
        connect(this, &QTableWidget::cellClicked, this, [this](int r, int c) {
            if (colonne[static_cast<std::size_t>(c)] == Colonna::scelta) annuncia({corto(r + 1), corto(c + 1), 0, "1"});
        });
    }

    // As many rows as asked for, below a heading of however many lines.
    [[nodiscard]] QSize sizeHint() const override {
        return {minimumWidth(), horizontalHeader()->sizeHint().height()
                                    + righeViste * verticalHeader()->defaultSectionSize() + 2 * frameWidth() + 2};
    }

    void riga(int n, const QStringList& celle) {
        riempiendo = true;
        for (int i = 0; i < columnCount(); ++i) cella(n, i, celle.value(i));
        riempiendo = false;
    }

    void righe(int quante, int scelta) {
        riempiendo = true;
        setRowCount(quante);
        riempiendo = false;
        scegli(scelta);
    }

    // The row of the hand, from 1; 0 for none.
    void scegli(int n) {
        riempiendo = true;
        if (n < 1 || n > rowCount()) {
            setCurrentItem(nullptr);
        } else if (currentRow() != n - 1) {
            setCurrentCell(n - 1, std::max(currentColumn(), 0));
        }
        riempiendo = false;
    }

    [[nodiscard]] QString testoCella(int r, int c) const {
        const QTableWidgetItem* i = item_(r, c);
        if (i == nullptr) return {};
        switch (colonne[static_cast<std::size_t>(c)]) {
        case Colonna::spunta: return i->checkState() == Qt::Checked ? QStringLiteral("[x]") : QStringLiteral("[ ]");
        case Colonna::scelta: return i->text().isEmpty() ? QStringLiteral("-") : QStringLiteral("*");
        default: return i->text();
        }
    }

    // As the hand does it: types, ticks, chooses.
    bool cambia(int r, int c, const QString& testo) {
        QTableWidgetItem* i = item_(r, c);
        if (i == nullptr) return false;
        switch (colonne[static_cast<std::size_t>(c)]) {
        case Colonna::scritta:
        case Colonna::valore: i->setText(testo); return true;
        case Colonna::spunta: i->setCheckState(testo == QLatin1String("1") ? Qt::Checked : Qt::Unchecked); return true;
        case Colonna::scelta: Q_EMIT cellClicked(r, c); return true;
        default: return false;
        }
    }

    bool sposta(int da, int a) {
        if (da < 0 || a < 0 || da >= rowCount() || a >= rowCount()) return false;
        if (da != a) annuncia({corto(da + 1), 0, corto(a + 1), {}});
        return true;
    }

protected:
    void dropEvent(QDropEvent* e) override {
        const int da = currentRow();
        int a = indexAt(e->position().toPoint()).row();
        if (a < 0) a = rowCount() - 1;
        e->setDropAction(Qt::IgnoreAction);   // the rows are the program's to move
        e->accept();
        sposta(da, a);
    }
    // Tab passes over what cannot be changed.
    QModelIndex moveCursor(CursorAction azione, Qt::KeyboardModifiers m) override {
        const QModelIndex prima = currentIndex();
        QModelIndex i = QTableWidget::moveCursor(azione, m);
        if (!foglioDiNumeri || (azione != MoveNext && azione != MovePrevious)) return i;
        const int passo = azione == MoveNext ? 1 : -1, celle = rowCount() * columnCount();
        for (int k = 0; k < celle && i.isValid(); ++k) {
            if (i.flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) return i;
            const int n = (i.row() * columnCount() + i.column() + passo + celle) % celle;
            i = model()->index(n / columnCount(), n % columnCount());
        }
        return prima;
    }
    void closeEditor(QWidget* campo, QAbstractItemDelegate::EndEditHint come) override {
        QTableWidget::closeEditor(campo, come);
        if (foglioDiNumeri && come == QAbstractItemDelegate::SubmitModelCache && currentRow() + 1 < rowCount())
            setCurrentCell(currentRow() + 1, currentColumn());
    }
    void keyPressEvent(QKeyEvent* e) override {
        const bool apre = e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
        if (foglioDiNumeri && apre && state() != EditingState && (currentIndex().flags() & Qt::ItemIsEditable)) {
            editItem(currentItem());
            return;
        }
        const bool su = e->key() == Qt::Key_Up, giu = e->key() == Qt::Key_Down;
        if (!(e->modifiers() & Qt::AltModifier) || (!su && !giu)) return QTableWidget::keyPressEvent(e);
        const int a = currentRow() + (su ? -1 : 1);
        if (sposta(currentRow(), a)) setCurrentCell(a, std::max(currentColumn(), 0));
    }

private:
    FinestraDialogo& d;
    std::int16_t item;
    int righeViste;
    std::vector<Colonna> colonne;
    bool riempiendo = false;
    bool foglioDiNumeri = false;

    static std::int16_t corto(int n) { return static_cast<std::int16_t>(n); }
    [[nodiscard]] QTableWidgetItem* item_(int r, int c) const {
        return r < 0 || c < 0 || r >= rowCount() || c >= columnCount() ? nullptr : QTableWidget::item(r, c);
    }

    // Nothing of a cell is set that it has: one that is being typed in would take its old text back.
    static void poni(QTableWidgetItem& i, const QString& testo, Qt::ItemFlags flag, Qt::Alignment dove) {
        if (i.text() != testo) i.setText(testo);
        if (i.textAlignment() != static_cast<int>(dove)) i.setTextAlignment(dove);
        if (i.flags() != flag) i.setFlags(flag);
    }

    void cella(int r, int c, const QString& testo) {
        QTableWidgetItem* i = QTableWidget::item(r, c);
        if (i == nullptr) setItem(r, c, i = new QTableWidgetItem);
        const Qt::ItemFlags fermo = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled;
        constexpr Qt::Alignment sinistra = Qt::AlignVCenter | Qt::AlignLeft, destra = Qt::AlignVCenter | Qt::AlignRight;
        const bool acceso = testo == QLatin1String("1");
        switch (colonne[static_cast<std::size_t>(c)]) {
        case Colonna::spunta:
            poni(*i, {}, fermo | Qt::ItemIsUserCheckable, sinistra);
            i->setCheckState(acceso ? Qt::Checked : Qt::Unchecked);
            break;
        case Colonna::scelta: poni(*i, acceso ? segnoScelta : QString(), fermo, Qt::AlignCenter); break;
        case Colonna::scritta: poni(*i, testo, fermo | Qt::ItemIsEditable, sinistra); break;
        case Colonna::testo: poni(*i, testo, fermo, sinistra); break;
        case Colonna::valore: poni(*i, testo, fermo | Qt::ItemIsEditable, destra); break;
        case Colonna::numero: poni(*i, testo, fermo, destra); break;
        }
    }

    void cambiata(const QTableWidgetItem& c) {
        if (riempiendo) return;
        const Colonna k = colonne[static_cast<std::size_t>(c.column())];
        if (k == Colonna::scritta || k == Colonna::valore)
            annuncia({corto(c.row() + 1), corto(c.column() + 1), 0, aMac(c.text())});
        if (k == Colonna::spunta)
            annuncia({corto(c.row() + 1), corto(c.column() + 1), 0, c.checkState() == Qt::Checked ? "1" : "0"});
    }

    void annuncia(GridHit h) {
        VoceDialogo* v = voceDi(&d, item);
        if (v == nullptr) return;
        v->griglia.push_back(std::move(h));
        colpisci(d, item);
    }
};

Griglia* grigliaDi(const VoceDialogo& v) {
    return v.tipo == TipoVoce::griglia ? static_cast<Griglia*>(v.widget) : nullptr;
}

}   // namespace

QWidget* creaGriglia(FinestraDialogo& d, std::int16_t item, int righe, const QString& colonne) {
    auto* w = new Griglia(d, item, righe, colonne.split(QLatin1Char(',')));
    w->setMinimumHeight((righe + 1) * w->verticalHeader()->defaultSectionSize() + 2 * w->frameWidth());
    return w;
}

void testataGriglia(const VoceDialogo& v, const QString& testo) {
    if (Griglia* w = grigliaDi(v)) w->setHorizontalHeaderLabels(testo.split(QLatin1Char('\t')));
}

void righeGriglia(const VoceDialogo& v, int quante) {
    if (Griglia* w = grigliaDi(v)) w->righe(quante, v.valore);
}

void scegliRigaGriglia(const VoceDialogo& v) {
    if (Griglia* w = grigliaDi(v)) w->scegli(v.valore);
}

void rigaGriglia(const VoceDialogo& v, int n, const QString& testo) {
    if (Griglia* w = grigliaDi(v); w != nullptr && n >= 0 && n < w->rowCount())
        w->riga(n, testo.split(QLatin1Char('\t')));
}

std::string testoGriglia(const VoceDialogo& v) {
    const Griglia* w = grigliaDi(v);
    QStringList righe;
    for (int r = 0; w != nullptr && r < w->rowCount(); ++r) {
        QStringList celle;
        for (int c = 0; c < w->columnCount(); ++c) celle << w->testoCella(r, c);
        righe << celle.join(QStringLiteral(" | "));
    }
    return righe.join(QLatin1Char('\n')).toStdString();
}

// "ROW,COLUMN,TEXT", or "ROW>ROW" for a drag.
bool scriviGriglia(const VoceDialogo& v, const QString& testo) {
    Griglia* w = grigliaDi(v);
    if (w == nullptr) return false;
    if (const QStringList r = testo.split(QLatin1Char('>')); r.size() == 2)
        return w->sposta(r.at(0).toInt() - 1, r.at(1).toInt() - 1);
    const QStringList p = testo.split(QLatin1Char(','));
    return p.size() >= 3 && w->cambia(p.at(0).toInt() - 1, p.at(1).toInt() - 1, p.mid(2).join(QLatin1Char(',')));
}

bool GetGridHit(DialogPtr d, std::int16_t item, GridHit& out) {
    VoceDialogo* v = voceDi(d, item);
    if (v == nullptr || v->griglia.empty()) return false;
    out = std::move(v->griglia.front());
    v->griglia.pop_front();
    return true;
}

}   // namespace tessaro
