// Lists in dialogs: rows of a number, a colour and a text, one of them chosen.
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constexpr int campioneLargo = 28, campioneAlto = 14;   // logical pixels
constexpr int ariaRiga = 8, ariaNumero = 6;            // above and below together; on each side of the number

QListWidget* elencoDi(const VoceDialogo* v) { return v == nullptr ? nullptr : qobject_cast<QListWidget*>(v->widget); }

int largoNumero(const QFontMetrics& m) { return m.horizontalAdvance(QStringLiteral("000")) + 2 * ariaNumero; }

// The row's number stands before its colour, outside the text, which is the name alone.
class RigaNumerata : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& o, const QModelIndex& i) const override {
        return QStyledItemDelegate::sizeHint(o, i) + QSize(largoNumero(o.fontMetrics), ariaRiga);
    }
    void paint(QPainter* p, const QStyleOptionViewItem& o, const QModelIndex& i) const override {
        QStyleOptionViewItem nome = o;
        const int largo = largoNumero(o.fontMetrics);
        if (o.widget != nullptr) o.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &o, p, o.widget);
        const bool attiva = (o.state & QStyle::State_Active) != 0;
        const bool scelta = (o.state & QStyle::State_Selected) != 0;
        p->setPen(o.palette.color(attiva ? QPalette::Active : QPalette::Inactive,
                                  scelta ? QPalette::HighlightedText : QPalette::Text));
        p->drawText(QRect(o.rect.left(), o.rect.top(), largo - ariaNumero, o.rect.height()),
                    Qt::AlignRight | Qt::AlignVCenter, QString::number(i.row() + 1));
        nome.rect.setLeft(o.rect.left() + largo);
        QStyledItemDelegate::paint(p, nome, i);
    }
};

QIcon campione(const RGBColor& c, qreal ratio) {
    QPixmap p(qRound(campioneLargo * ratio), qRound(campioneAlto * ratio));
    p.setDevicePixelRatio(ratio);
    p.fill(Qt::gray);   // the frame is seen on light and dark ground
    QPainter pittore(&p);
    pittore.fillRect(1, 1, campioneLargo - 2, campioneAlto - 2, QColor::fromRgba64(c.red, c.green, c.blue));
    pittore.end();
    QIcon figura(p);
    figura.addPixmap(p, QIcon::Selected);   // the chosen row shows its colour untinted
    return figura;
}

}   // namespace

QWidget* creaElenco(FinestraDialogo& d, std::int16_t item, int righe, int caratteri) {
    auto* w = new QListWidget(d.quadro);
    w->setUniformItemSizes(true);
    w->setIconSize(QSize(campioneLargo, campioneAlto));
    w->setItemDelegate(new RigaNumerata(w));
    const int riga = std::max(w->fontMetrics().height(), campioneAlto) + ariaRiga;
    w->setFixedHeight(righe * riga + 2 * w->frameWidth());
    w->setMinimumWidth(w->fontMetrics().averageCharWidth() * caratteri + campioneLargo + largoNumero(w->fontMetrics())
                       + w->style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    QObject::connect(w, &QListWidget::currentRowChanged, d.quadro, [this_ = &d, item](int i) {
        VoceDialogo* v = voceDi(this_, item);
        if (v == nullptr || i < 0 || v->valore == i + 1) return;   // the program's own change
        v->valore = i + 1;
        colpisci(*this_, item);
    });
    return w;
}

void scegliRiga(const VoceDialogo& v) {
    QListWidget* w = elencoDi(&v);
    if (w == nullptr || w->currentRow() == v.valore - 1) return;
    w->setCurrentRow(v.valore - 1);
}

int righeElenco(const VoceDialogo& v) {
    const QListWidget* w = elencoDi(&v);
    return w == nullptr ? 0 : w->count();
}

std::string rigaScelta(const VoceDialogo& v) {
    const QListWidget* w = elencoDi(&v);
    const QListWidgetItem* riga = w == nullptr ? nullptr : w->item(v.valore - 1);
    return riga == nullptr ? std::string() : riga->text().toStdString();
}

void SetDialogItemRows(DialogPtr d, std::int16_t item, std::int16_t count) {
    if (const VoceDialogo* v = voceDi(d, item); v != nullptr && v->tipo == TipoVoce::tabella)
        return righeTabella(*v, count);
    if (const VoceDialogo* v = voceDi(d, item); v != nullptr && v->tipo == TipoVoce::griglia)
        return righeGriglia(*v, count);
    QListWidget* w = elencoDi(voceDi(d, item));
    if (w == nullptr) return;
    const QSignalBlocker zitto(w);
    while (w->count() > count) delete w->takeItem(w->count() - 1);
    while (w->count() < count) w->addItem(QString());
    scegliRiga(*voceDi(d, item));
}

void SetDialogItemRow(DialogPtr d, std::int16_t item, std::int16_t row, std::string_view macRoman,
                      const RGBColor& colour) {
    if (const VoceDialogo* v = voceDi(d, item); v != nullptr && v->tipo == TipoVoce::tabella)
        return rigaTabella(*v, row - 1, daMac(macRoman));
    if (const VoceDialogo* v = voceDi(d, item); v != nullptr && v->tipo == TipoVoce::griglia)
        return rigaGriglia(*v, row - 1, daMac(macRoman));
    const QListWidget* w = elencoDi(voceDi(d, item));
    QListWidgetItem* riga = w == nullptr ? nullptr : w->item(row - 1);
    if (riga == nullptr) return;
    riga->setText(daMac(macRoman));
    riga->setIcon(campione(colour, w->devicePixelRatioF()));
}

}   // namespace tessaro
