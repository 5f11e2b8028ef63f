// Lays a dialog out as its resource tells: items in rows and blocks, by the toolkit, so that they survive fonts and languages.
#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>

#include "platform/qt/Dialogo.h"
#include "platform/qt/FabbricaVoci.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr int colonneGriglia = 4;   // the last one is empty and takes what room is left
constexpr int margine = 16;         // round the whole, logical pixels
constexpr int ariaTitolo = 96;      // of a window's title bar beside the title, logical pixels

// Where the next row or block goes.
struct Blocco {
    QBoxLayout* layout = nullptr;
    QGridLayout* griglia = nullptr;   // of the rows that follow each other
    int riga = 0;
};

class Costruttore {
public:
    Costruttore(FinestraDialogo& dialogo, QuadroDialogo* finestra)
        : d(dialogo), quadro(finestra), voci(dialogo, finestra) {
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
        ++voci.blocco;
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
    FabbricaVoci voci;

    // A group box has its layout already in place, another block is a layout to add.
    QBoxLayout* gruppo(const RigaRisorsa& r) {
        auto* box = new QGroupBox(daUtf8(testo(voci.chiave(r.parole.size() > 1 ? r.parole[1] : std::string()))));
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

    void metti(const RigaRisorsa& r) {
        const std::vector<Cella> c = celle(r);
        if (quadro == nullptr) {
            for (const Cella& cella : c) voci.crea(cella);
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
            QWidget* w = voci.crea(cella);
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
        for (const Cella& c : celle) fila->addWidget(voci.crea(c), 1);
    }

    // The desktop's own order: the roles say which stands where.
    void bottoni(const RigaRisorsa& r) {
        auto* scatola = quadro == nullptr ? nullptr : new QDialogButtonBox(quadro);
        for (const Cella& c : celle(r)) {
            QPushButton* w = voci.bottone(c);
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
