// Each kind of item: its data, and the widget that shows it and tells of hits.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <QSvgRenderer>
#include <QToolButton>

#include <algorithm>

#include "platform/qt/FabbricaVoci.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

constexpr int maxCampo = 255;        // characters of a field
constexpr int larghezzaTesto = 60;   // characters at which running text is folded
constexpr int latoFigura = 24;       // of a radio button's drawing, logical pixels
constexpr int ariaBottone = 14;      // on each side of a button's text, logical pixels

QPixmap figura(std::string_view nome, int lato, const QWidget& vicino) {
    QByteArray svg = QByteArray::fromStdString(ResourceFile("icons/" + std::string(nome) + ".svg"));
    svg.replace("currentColor", vicino.palette().color(QPalette::WindowText).name().toLatin1());
    const qreal ratio = vicino.devicePixelRatioF();
    QPixmap p(qRound(lato * ratio), qRound(lato * ratio));
    p.setDevicePixelRatio(ratio);
    p.fill(Qt::transparent);
    QPainter pittore(&p);
    QSvgRenderer(svg).render(&pittore, QRectF(0, 0, lato, lato));
    return p;
}

}   // namespace

std::string FabbricaVoci::chiave(const std::string& nome) const { return "dlg." + std::to_string(d.id) + "." + nome; }

void FabbricaVoci::conEtichetta(QWidget& w) {
    if (ultimaEtichetta == nullptr) return;
    ultimaEtichetta->setBuddy(&w);
    w.setAccessibleName(ultimaEtichetta->text());
    ultimaEtichetta = nullptr;
}

VoceDialogo& FabbricaVoci::voce(const Cella& c, TipoVoce tipo) {
    VoceDialogo v;
    v.tipo = tipo;
    v.grezzo = tipo == TipoVoce::campo ? std::string() : testo(chiave(c.nome));
    v.nascosta = c.riga->ha("hidden") || c.riga->ha("later");
    return d.voci.insert_or_assign(static_cast<std::int16_t>(numeroDi(c.nome, 0)), std::move(v)).first->second;
}

QWidget* FabbricaVoci::crea(const Cella& c) {
    QWidget* w = nullptr;
    if (c.tipo == "label" || c.tipo == "unit" || c.tipo == "static" || c.tipo == "note" || c.tipo == "heading")
        w = fisso(c);
    else if (c.tipo == "field")
        w = campo(c);
    else if (c.tipo == "check")
        w = acceso(c, TipoVoce::spunta, quadro == nullptr ? nullptr : new QCheckBox(quadro));
    else if (c.tipo == "radio")
        w = acceso(c, TipoVoce::radio, quadro == nullptr ? nullptr : new QRadioButton(quadro));
    else if (c.tipo == "popup")
        w = scelta(c);
    else if (c.tipo == "list")
        w = elenco(c);
    else if (c.tipo == "table")
        w = tabella(c);
    else if (c.tipo == "grid")
        w = griglia(c);
    else if (c.tipo == "slider")
        w = cursore(c);
    else if (c.tipo == "swatch")
        w = campione(c);
    else if (c.tipo == "button" || c.tipo == "default")
        w = bottone(c);
    else if (c.tipo == "canvas")
        w = tela(c);
    else if (c.tipo == "picture" && quadro != nullptr)
        w = immagine(c);
    return w;
}

QWidget* FabbricaVoci::registra(VoceDialogo& v, QWidget* w) {
    v.widget = w;
    applica(v);
    return w;
}

QWidget* FabbricaVoci::fisso(const Cella& c) {
    VoceDialogo senzaNumero;
    senzaNumero.grezzo = testo(chiave(c.nome));
    VoceDialogo& v = numeroDi(c.nome, 0) == 0 ? senzaNumero : voce(c, TipoVoce::testoFisso);
    if (quadro == nullptr) return nullptr;
    auto* w = new QLabel(quadro);
    w->setTextFormat(Qt::PlainText);
    registra(v, w);
    if (c.tipo == "label") {
        w->setAlignment(static_cast<Qt::Alignment>(quadro->style()->styleHint(QStyle::SH_FormLayoutLabelAlignment))
                        | Qt::AlignVCenter);
        ultimaEtichetta = w;
    }
    if (c.tipo == "note" || c.tipo == "static") {
        w->setWordWrap(w->sizeHint().width() > w->fontMetrics().averageCharWidth() * larghezzaTesto);
        if (w->wordWrap()) w->setMinimumWidth(w->fontMetrics().averageCharWidth() * larghezzaTesto);
    }
    if (c.riga->ha("wrap")) {   // what the program writes there may be long
        w->setWordWrap(true);
        w->setMinimumWidth(w->fontMetrics().averageCharWidth() * c.riga->numero("chars", larghezzaTesto));
    }
    if (c.tipo == "note") w->setForegroundRole(QPalette::PlaceholderText);
    if (c.tipo == "heading") {
        QFont f = w->font();
        f.setBold(true);
        f.setPointSizeF(f.pointSizeF() * 1.5);
        w->setFont(f);
    }
    return w;
}

// Room for a picture that the program draws; its text says to those who do not see it what it shows.
QWidget* FabbricaVoci::tela(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::figura);
    if (quadro == nullptr) return nullptr;
    auto* w = new QLabel(quadro);
    w->setFixedSize(c.riga->numero("width", 400), c.riga->numero("height", 300));
    w->setAlignment(Qt::AlignCenter);
    w->setAccessibleName(daUtf8(testo(chiave(c.nome))));
    return registra(v, w);
}

QWidget* FabbricaVoci::campo(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::campo);
    if (quadro == nullptr) return nullptr;
    auto* w = new QLineEdit(quadro);
    w->setMaxLength(maxCampo);
    const int caratteri = c.riga->numero("chars", 14);
    const int largo = w->fontMetrics().horizontalAdvance(QLatin1Char('0')) * (caratteri + 2);
    if (c.riga->ha("wide")) {
        w->setMinimumWidth(largo);
    } else {
        w->setFixedWidth(largo);
    }
    if (!c.riga->ha("text")) w->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (!c.riga->ha("hidden")) conEtichetta(*w);
    if (c.riga->ha("commit")) {
        w->setProperty(attoDelCampo, c.item());
        QObject::connect(w, &QLineEdit::editingFinished, quadro, [w, this_ = &d, n = c.item()] {
            if (!w->isModified()) return;   // nothing was typed
            w->setModified(false);
            colpisci(*this_, n);
        });
    } else {
        QObject::connect(w, &QLineEdit::textEdited, quadro, [this_ = &d, n = c.item()] { colpisci(*this_, n); });
    }
    if (d.nonModale) w->installEventFilter(quadro);
    return registra(v, w);
}

// The mark is the program's to change: what the toolkit flipped by itself goes back before the item counts as hit.
QWidget* FabbricaVoci::acceso(const Cella& c, TipoVoce tipo, QAbstractButton* w) {
    VoceDialogo& v = voce(c, tipo);
    if (w == nullptr) return nullptr;
    w->setAutoExclusive(false);
    if (tipo == TipoVoce::radio) {
        w->setProperty(gruppoRadio, blocco);
        w->installEventFilter(quadro);
    }
    if (const auto nome = c.riga->opzione("icon"); !nome.empty()) {
        w->setIcon(figura(nome, latoFigura, *w));
        w->setIconSize(QSize(latoFigura, latoFigura));
    }
    QObject::connect(w, &QAbstractButton::clicked, quadro, [this_ = &d, n = c.item()] {
        if (const VoceDialogo* questa = voceDi(this_, n); questa != nullptr) applica(*questa);
        colpisci(*this_, n);
    });
    return registra(v, w);
}

QWidget* FabbricaVoci::scelta(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::scelta);
    v.valore = 1;
    if (quadro == nullptr) return nullptr;
    auto* w = new QComboBox(quadro);
    conEtichetta(*w);
    QObject::connect(w, &QComboBox::activated, quadro, [this_ = &d, n = c.item()](int i) {
        if (VoceDialogo* questa = voceDi(this_, n); questa != nullptr) questa->valore = i + 1;
        colpisci(*this_, n);
    });
    return registra(v, w);
}

QWidget* FabbricaVoci::elenco(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::elenco);
    v.valore = 1;
    if (quadro == nullptr) return nullptr;
    QWidget* w = creaElenco(d, c.item(), c.riga->numero("rows", 10), c.riga->numero("chars", 24));
    conEtichetta(*w);
    return registra(v, w);
}

// A table shows headings of its own; its text is its name for those who do not see it, else the dialog's title is.
QWidget* FabbricaVoci::conNome(VoceDialogo& v, QWidget* w) {
    w->setAccessibleName(v.grezzo.empty() ? quadro->windowTitle() : daUtf8(v.grezzo));
    v.grezzo.clear();
    return registra(v, w);
}

// chars= the width of each column, with commas.
QWidget* FabbricaVoci::griglia(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::griglia);
    if (quadro == nullptr) return nullptr;
    const auto colonne = c.riga->opzione("columns");
    return conNome(v, creaGriglia(d, c.item(), c.riga->numero("rows", 5), daUtf8(colonne)));
}

QWidget* FabbricaVoci::tabella(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::tabella);
    if (quadro == nullptr) return nullptr;
    std::vector<int> colonne;
    for (std::string_view s = c.riga->opzione("chars"); !s.empty();) {
        const auto fine = std::min(s.find(','), s.size());
        colonne.push_back(numeroDi(s.substr(0, fine), 10));
        s.remove_prefix(std::min(fine + 1, s.size()));
    }
    return conNome(v, creaTabella(d, c.riga->numero("rows", 5), colonne));
}

QWidget* FabbricaVoci::cursore(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::cursore);
    v.valore = c.riga->numero("min", 0);
    if (quadro == nullptr) return nullptr;
    auto* w = new QSlider(Qt::Horizontal, quadro);
    w->setRange(c.riga->numero("min", 0), c.riga->numero("max", 100));
    w->setMinimumWidth(w->fontMetrics().averageCharWidth() * 30);
    QObject::connect(w, &QSlider::valueChanged, quadro, [this_ = &d, n = c.item()](int valore) {
        VoceDialogo* questa = voceDi(this_, n);
        if (questa == nullptr || questa->valore == valore) return;   // the program's own change
        questa->valore = valore;
        colpisci(*this_, n);
    });
    return registra(v, w);
}

QWidget* FabbricaVoci::campione(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::colore);
    if (quadro == nullptr) return nullptr;
    auto* w = new QToolButton(quadro);
    w->setIconSize(QSize(2 * latoFigura, latoFigura));
    w->setAccessibleName(daUtf8(v.grezzo));
    w->setToolTip(daUtf8(v.grezzo));
    QObject::connect(w, &QToolButton::clicked, quadro, [this_ = &d, n = c.item()] { colpisci(*this_, n); });
    return registra(v, w);
}

QWidget* FabbricaVoci::immagine(const Cella& c) const {
    auto* w = new QLabel(quadro);
    w->setPixmap(figura(c.nome, c.riga->numero("size", 64), *w));
    w->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    return w;
}

QPushButton* FabbricaVoci::bottone(const Cella& c) {
    VoceDialogo& v = voce(c, TipoVoce::bottone);
    if (v.grezzo.empty()) v.grezzo = testo(c.tipo == "default" ? "button.ok" : "button." + c.tipo);
    const std::int16_t n = c.item();
    if (c.tipo == "default") d.predefinita = n;
    if (c.tipo == "cancel") d.annulla = n;
    if (const auto tasti = c.riga->opzione("keys"); c.posto < tasti.size())
        d.tastiVoci.insert_or_assign(static_cast<unsigned char>(tasti[c.posto]), n);
    if (quadro == nullptr) return nullptr;
    auto* w = new QPushButton(quadro);
    w->setAutoDefault(false);
    w->setDefault(c.tipo == "default");
    QObject::connect(w, &QPushButton::clicked, quadro, [this_ = &d, n] { colpisci(*this_, n); });
    registra(v, w);
    w->setMinimumWidth(w->fontMetrics().horizontalAdvance(w->text()) + 2 * ariaBottone);
    return w;
}

}   // namespace tessaro
