// Lists in dialogs: rows of a colour and a text, one of them chosen.
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QStyle>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constexpr int campioneLargo = 28, campioneAlto = 14;   // logical pixels

QListWidget* elencoDi(const VoceDialogo* v) { return v == nullptr ? nullptr : qobject_cast<QListWidget*>(v->widget); }

QIcon campione(const RGBColor& c, qreal ratio) {
    QPixmap p(qRound(campioneLargo * ratio), qRound(campioneAlto * ratio));
    p.setDevicePixelRatio(ratio);
    p.fill(QColor::fromRgba64(c.red, c.green, c.blue));
    QPainter pittore(&p);
    pittore.setPen(Qt::black);
    pittore.drawRect(0, 0, campioneLargo - 1, campioneAlto - 1);
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
    const int riga = std::max(w->fontMetrics().height(), campioneAlto) + 4;
    w->setFixedHeight(righe * riga + 2 * w->frameWidth());
    w->setMinimumWidth(w->fontMetrics().averageCharWidth() * caratteri + campioneLargo
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
    const QListWidget* w = elencoDi(voceDi(d, item));
    QListWidgetItem* riga = w == nullptr ? nullptr : w->item(row - 1);
    if (riga == nullptr) return;
    riga->setText(daMac(macRoman));
    riga->setIcon(campione(colour, w->devicePixelRatioF()));
}

}   // namespace tessaro
