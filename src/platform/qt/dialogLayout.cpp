// Makes a dialog from its resource: items in rows, laid out by the toolkit, so that they survive fonts and languages.
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSlider>
#include <QStyle>
#include <QSvgRenderer>
#include <QToolButton>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr int colonneGriglia = 4;    // the last one is empty and takes what room is left
constexpr int margine = 16;          // round the whole, logical pixels
constexpr int maxCampo = 255;        // characters of a field
constexpr int larghezzaTesto = 60;   // characters at which running text is folded
constexpr int latoFigura = 24;       // of a radio button's drawing, logical pixels
constexpr int ariaTitolo = 96;       // of a window's title bar beside the title, logical pixels
constexpr int ariaBottone = 14;      // on each side of a button's text, logical pixels

struct Cella {
    std::string tipo;
    std::string nome;          // item number or a name
    const RigaRisorsa* riga;   // its options
    std::size_t posto = 0;     // in the row, from 0
};

// Where the next row or block goes.
struct Blocco {
    QBoxLayout* layout = nullptr;
    QGridLayout* griglia = nullptr;   // of the rows that follow each other
    int riga = 0;
};

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

class Costruttore {
public:
    Costruttore(FinestraDialogo& dialogo, QuadroDialogo* finestra) : d(dialogo), quadro(finestra) {
        if (quadro == nullptr) return;
        auto* radice = new QVBoxLayout(quadro);
        radice->setSizeConstraint(QLayout::SetFixedSize);
        radice->setContentsMargins(margine, margine, margine, margine);
        radice->addStrut(quadro->fontMetrics().horizontalAdvance(quadro->windowTitle()) + ariaTitolo);
        pila.push_back({radice});
    }

    void riga(const RigaRisorsa& r) {
        const std::string& comando = r.parole[0];
        if (comando == "row") return metti(r);
        if (comando == "buttons") return bottoni(r);
        if (comando == "run") return serie(r);
        if (quadro == nullptr) return;
        ++blocco;
        if (comando == "scroll") apri(scorrevole(r));
        if (comando == "group") apri(gruppo(r));
        if (comando == "columns") apri(new QHBoxLayout);
        if (comando == "stack") apri(new QVBoxLayout);
        if (comando == "end" && pila.size() > 1) chiudi();
    }

private:
    FinestraDialogo& d;
    QuadroDialogo* quadro;
    std::vector<Blocco> pila;
    QLabel* ultimaEtichetta = nullptr;
    int blocco = 0;   // radio buttons of one block are one group

    std::string chiave(const std::string& nome) const { return "dlg." + std::to_string(d.id) + "." + nome; }

    // A group box has its layout already in place, another block is a layout to add.
    QBoxLayout* gruppo(const RigaRisorsa& r) {
        auto* box = new QGroupBox(daUtf8(testo(chiave(r.parole.size() > 1 ? r.parole[1] : std::string()))));
        auto* dentro = new QVBoxLayout(box);
        pila.back().layout->addWidget(box);
        return dentro;
    }
    // A list as high as `rows` of its own; what does not fit is scrolled to.
    QBoxLayout* scorrevole(const RigaRisorsa& r) {
        auto* area = new QScrollArea(quadro);
        auto* foglio = new QWidget(area);
        auto* dentro = new QVBoxLayout(foglio);
        const int spazio = quadro->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing);
        const int riga = QCheckBox(QStringLiteral("0"), quadro).sizeHint().height() + spazio;
        dentro->setContentsMargins(spazio, spazio / 2, spazio, spazio / 2);
        area->setWidgetResizable(true);
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->setFixedHeight(riga * r.numero("rows", 10) + 2 * area->frameWidth());
        area->setMinimumWidth(quadro->fontMetrics().averageCharWidth() * r.numero("chars", 20));
        area->viewport()->setBackgroundRole(QPalette::Base);
        foglio->setBackgroundRole(QPalette::Base);
        area->setWidget(foglio);
        pila.back().layout->addWidget(area);
        return dentro;
    }
    void apri(QBoxLayout* nuovo) {
        if (nuovo->parentWidget() == nullptr) pila.back().layout->addLayout(nuovo);
        pila.back().griglia = nullptr;
        pila.push_back({nuovo});
    }

    // Rows keep together at the top when the block beside is higher.
    void chiudi() {
        if (auto* verticale = qobject_cast<QVBoxLayout*>(pila.back().layout)) verticale->addStretch(1);
        pila.pop_back();
        pila.back().griglia = nullptr;
    }

    // `run check 3..102 text=layer first=0`: items of one kind under each other, each with its number in its text.
    void serie(const RigaRisorsa& r) {
        if (r.parole.size() < 3) return;
        const std::string& numeri = r.parole[2];
        const auto punti = numeri.find("..");
        const int primo = numeroDi(std::string_view(numeri).substr(0, punti), 0);
        const int ultimo =
            punti == std::string::npos ? primo : numeroDi(std::string_view(numeri).substr(punti + 2), primo);
        const int primoMostrato = r.numero("first", primo);
        RigaRisorsa una = r;
        for (int n = primo; n <= ultimo; ++n) {
            una.parole = {"row", r.parole[1], std::to_string(n)};
            metti(una);
            VoceDialogo& v = d.voci.at(static_cast<std::int16_t>(n));
            v.grezzo = testo("item." + std::string(r.opzione("text")));
            if (const auto dove = v.grezzo.find("^0"); dove != std::string::npos)
                v.grezzo.replace(dove, 2, std::to_string(primoMostrato + n - primo));
            applica(v);
        }
    }

    static std::vector<Cella> celle(const RigaRisorsa& r) {
        std::vector<Cella> v;
        bool nuova = true;
        for (std::size_t i = 1; i < r.parole.size(); ++i) {
            if (nuova && i + 1 < r.parole.size()) v.push_back({r.parole[i], r.parole[i + 1], &r, v.size()});
            nuova = r.parole[i] == "|";
        }
        return v;
    }

    VoceDialogo& voce(const Cella& c, TipoVoce tipo) {
        VoceDialogo v;
        v.tipo = tipo;
        v.grezzo = tipo == TipoVoce::campo ? std::string() : testo(chiave(c.nome));
        v.nascosta = c.riga->ha("hidden") || c.riga->ha("later");
        return d.voci.insert_or_assign(static_cast<std::int16_t>(numeroDi(c.nome, 0)), std::move(v)).first->second;
    }

    void metti(const RigaRisorsa& r) {
        const std::vector<Cella> c = celle(r);
        if (quadro == nullptr) {
            for (const Cella& cella : c) crea(cella);
            return;
        }
        if (std::all_of(c.begin(), c.end(), eBottone)) return affianca(c);
        Blocco& b = pila.back();
        if (b.griglia == nullptr) {
            b.griglia = new QGridLayout;
            b.griglia->setColumnStretch(colonneGriglia - 1, 1);
            b.layout->addLayout(b.griglia);
            b.riga = 0;
        }
        int colonna = 0;
        QHBoxLayout* conLaSua = nullptr;   // a field with its unit
        for (const Cella& cella : c) {
            QWidget* w = crea(cella);
            if (w == nullptr) continue;
            const bool finoInFondo = c.size() == 1 || (cella.posto + 1 == c.size() && r.ha("wide"));
            const bool conUnita = cella.posto + 1 < c.size() && c[cella.posto + 1].tipo == "unit";
            if (conUnita && cella.tipo == "field" && !r.ha("wide")) {   // a wider pop-up above must not part them
                conLaSua = new QHBoxLayout;
                conLaSua->addWidget(w);
                b.griglia->addLayout(conLaSua, b.riga, colonna, 1, 2);
                colonna += 2;
                continue;
            }
            if (cella.tipo == "unit" && conLaSua != nullptr) {
                conLaSua->addWidget(w, 1);
                conLaSua = nullptr;
                continue;
            }
            b.griglia->addWidget(w, b.riga, colonna, 1, finoInFondo ? colonneGriglia - colonna : 1);
            ++colonna;
        }
        ++b.riga;
    }

    static bool eBottone(const Cella& c) { return c.tipo == "button" || c.tipo == "default"; }

    // A row of nothing but buttons: equally wide, over the whole width of its block.
    void affianca(const std::vector<Cella>& celle) {
        auto* fila = new QHBoxLayout;
        pila.back().layout->addLayout(fila);
        pila.back().griglia = nullptr;
        for (const Cella& c : celle) fila->addWidget(crea(c), 1);
    }

    // Makes the item, and its widget when there is a window.
    QWidget* crea(const Cella& c) {
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

    QWidget* registra(VoceDialogo& v, QWidget* w) {
        v.widget = w;
        applica(v);
        return w;
    }

    QWidget* fisso(const Cella& c) {
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
    QWidget* tela(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::figura);
        if (quadro == nullptr) return nullptr;
        auto* w = new QLabel(quadro);
        w->setFixedSize(c.riga->numero("width", 400), c.riga->numero("height", 300));
        w->setAlignment(Qt::AlignCenter);
        w->setAccessibleName(daUtf8(testo(chiave(c.nome))));
        return registra(v, w);
    }

    QWidget* campo(const Cella& c) {
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
        if (ultimaEtichetta != nullptr && !c.riga->ha("hidden")) {
            ultimaEtichetta->setBuddy(w);
            w->setAccessibleName(ultimaEtichetta->text());
            ultimaEtichetta = nullptr;
        }
        if (c.riga->ha("commit")) {
            w->setProperty(attoDelCampo, item(c));
            QObject::connect(w, &QLineEdit::editingFinished, quadro, [w, this_ = &d, n = item(c)] {
                if (!w->isModified()) return;   // nothing was typed
                w->setModified(false);
                colpisci(*this_, n);
            });
        } else {
            QObject::connect(w, &QLineEdit::textEdited, quadro, [this_ = &d, n = item(c)] { colpisci(*this_, n); });
        }
        if (d.nonModale) w->installEventFilter(quadro);
        return registra(v, w);
    }

    // The mark is the program's to change: what the toolkit flipped by itself goes back before the item counts as hit.
    QWidget* acceso(const Cella& c, TipoVoce tipo, QAbstractButton* w) {
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
        QObject::connect(w, &QAbstractButton::clicked, quadro, [this_ = &d, n = item(c)] {
            if (const VoceDialogo* questa = voceDi(this_, n); questa != nullptr) applica(*questa);
            colpisci(*this_, n);
        });
        return registra(v, w);
    }

    QWidget* scelta(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::scelta);
        v.valore = 1;
        if (quadro == nullptr) return nullptr;
        auto* w = new QComboBox(quadro);
        if (ultimaEtichetta != nullptr) {
            ultimaEtichetta->setBuddy(w);
            w->setAccessibleName(ultimaEtichetta->text());
            ultimaEtichetta = nullptr;
        }
        QObject::connect(w, &QComboBox::activated, quadro, [this_ = &d, n = item(c)](int i) {
            if (VoceDialogo* questa = voceDi(this_, n); questa != nullptr) questa->valore = i + 1;
            colpisci(*this_, n);
        });
        return registra(v, w);
    }

    QWidget* elenco(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::elenco);
        v.valore = 1;
        if (quadro == nullptr) return nullptr;
        QWidget* w = creaElenco(d, item(c), c.riga->numero("rows", 10), c.riga->numero("chars", 24));
        if (ultimaEtichetta != nullptr) {
            ultimaEtichetta->setBuddy(w);
            w->setAccessibleName(ultimaEtichetta->text());
            ultimaEtichetta = nullptr;
        }
        return registra(v, w);
    }

    // A table shows headings of its own; its text is its name for those who do not see it, else the dialog's title is.
    QWidget* conNome(VoceDialogo& v, QWidget* w) {
        w->setAccessibleName(v.grezzo.empty() ? quadro->windowTitle() : daUtf8(v.grezzo));
        v.grezzo.clear();
        return registra(v, w);
    }

    // chars= the width of each column, with commas.
    QWidget* griglia(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::griglia);
        if (quadro == nullptr) return nullptr;
        const auto colonne = c.riga->opzione("columns");
        return conNome(v, creaGriglia(d, item(c), c.riga->numero("rows", 5), daUtf8(colonne)));
    }

    QWidget* tabella(const Cella& c) {
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

    QWidget* cursore(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::cursore);
        v.valore = c.riga->numero("min", 0);
        if (quadro == nullptr) return nullptr;
        auto* w = new QSlider(Qt::Horizontal, quadro);
        w->setRange(c.riga->numero("min", 0), c.riga->numero("max", 100));
        w->setMinimumWidth(w->fontMetrics().averageCharWidth() * 30);
        QObject::connect(w, &QSlider::valueChanged, quadro, [this_ = &d, n = item(c)](int valore) {
            VoceDialogo* questa = voceDi(this_, n);
            if (questa == nullptr || questa->valore == valore) return;   // the program's own change
            questa->valore = valore;
            colpisci(*this_, n);
        });
        return registra(v, w);
    }

    QWidget* campione(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::colore);
        if (quadro == nullptr) return nullptr;
        auto* w = new QToolButton(quadro);
        w->setIconSize(QSize(2 * latoFigura, latoFigura));
        w->setAccessibleName(daUtf8(v.grezzo));
        w->setToolTip(daUtf8(v.grezzo));
        QObject::connect(w, &QToolButton::clicked, quadro, [this_ = &d, n = item(c)] { colpisci(*this_, n); });
        return registra(v, w);
    }

    QWidget* immagine(const Cella& c) {
        auto* w = new QLabel(quadro);
        w->setPixmap(figura(c.nome, c.riga->numero("size", 64), *w));
        w->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
        return w;
    }

    QPushButton* bottone(const Cella& c) {
        VoceDialogo& v = voce(c, TipoVoce::bottone);
        if (v.grezzo.empty()) v.grezzo = testo(c.tipo == "default" ? "button.ok" : "button." + c.tipo);
        const std::int16_t n = item(c);
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

    // The desktop's own order: the roles say which stands where.
    void bottoni(const RigaRisorsa& r) {
        auto* scatola = quadro == nullptr ? nullptr : new QDialogButtonBox(quadro);
        for (const Cella& c : celle(r)) {
            QPushButton* w = bottone(c);
            if (w == nullptr) continue;
            const auto ruolo = c.tipo == "default"  ? QDialogButtonBox::AcceptRole
                               : c.tipo == "cancel" ? QDialogButtonBox::RejectRole
                               : c.tipo == "revert" ? QDialogButtonBox::ResetRole
                                                    : QDialogButtonBox::ActionRole;
            scatola->addButton(w, ruolo);
        }
        if (scatola == nullptr) return;
        pila.front().layout->addSpacing(quadro->style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing));
        pila.front().layout->addWidget(scatola);
    }

    static std::int16_t item(const Cella& c) { return static_cast<std::int16_t>(numeroDi(c.nome, 0)); }
};

}   // namespace

bool leggiDialogo(FinestraDialogo& d) {
    const auto righe = RigheRisorsa("dialogs/" + std::to_string(d.id) + ".dlg");
    if (righe.empty()) return false;
    d.nonModale = righe.front().ha("modeless");
    d.strumento = righe.front().ha("tool");
    if (d.quadro != nullptr && d.strumento) d.quadro->setWindowFlag(Qt::Tool);
    d.titolo = conParametri(testo("dlg." + std::to_string(d.id)));
    if (d.quadro != nullptr) d.quadro->setWindowTitle(daUtf8(d.titolo));
    Costruttore c(d, d.quadro);
    for (const RigaRisorsa& r : righe) c.riga(r);
    return true;
}

}   // namespace tessaro
