// Alerts: a message with its buttons, from resources. The first line of the text is the message, the others explain it.
#include <QGridLayout>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>

#include <cstdio>
#include <map>

#include "platform/Dialogs.h"
#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr int larghezza = 400;   // of an alert at least, logical pixels

enum class Segno : std::uint8_t { nessuno, stop, nota, cautela };

struct Bottone {
    std::string nome;        // button.NOME is its text
    bool soloNota = false;   // shown only when the alert is raised as a note
};

struct Avviso {
    Segno segno = Segno::nessuno;
    std::vector<Bottone> bottoni;   // by number, from 1
    std::int16_t predefinito = 1;
    std::int16_t fuga = 0;   // the button that Escape gives; 0: the default
};

Segno segnoDi(std::string_view nome) {
    if (nome == "stop") return Segno::stop;
    if (nome == "note") return Segno::nota;
    return nome == "caution" ? Segno::cautela : Segno::nessuno;
}

Avviso leggiAvviso(const RigaRisorsa& r) {
    Avviso a;
    if (r.parole.size() > 1) a.segno = segnoDi(r.parole[1]);
    for (std::size_t i = 2; i < r.parole.size(); ++i) {
        Bottone b{r.parole[i]};
        const auto numero = static_cast<std::int16_t>(i - 1);
        if (const auto condizione = b.nome.find('?'); condizione != std::string::npos) {
            b.soloNota = true;
            b.nome.resize(condizione);
        }
        if (b.nome.ends_with('*')) a.predefinito = numero;
        if (b.nome.ends_with('~')) a.fuga = numero;
        while (b.nome.ends_with('*') || b.nome.ends_with('~')) b.nome.pop_back();
        a.bottoni.push_back(std::move(b));
    }
    return a;
}

// An alert that no resource tells of still says something: its text, and one button.
const Avviso& avvisoDi(std::int16_t id) {
    static const std::map<int, Avviso> tutti = [] {
        std::map<int, Avviso> m;
        for (const RigaRisorsa& r : RigheRisorsa("alerts/alerts.txt"))
            m.insert_or_assign(numeroDi(r.parole[0], 0), leggiAvviso(r));
        return m;
    }();
    static const Avviso semplice{Segno::stop, {{"ok"}}, 1, 0};
    const auto i = tutti.find(id);
    return i == tutti.end() ? semplice : i->second;
}

// Whether a line lives by its parameters, and none of them was given.
bool senzaParametri(std::string_view riga) {
    bool neHa = false;
    for (std::size_t i = riga.find('^'); i + 1 < riga.size() && i != std::string_view::npos;
         i = riga.find('^', i + 1)) {
        const char c = riga[i + 1];
        if (c < '0' || c > '3') continue;
        if (!parametriTesto[static_cast<std::size_t>(c - '0')].empty()) return false;
        neHa = true;
    }
    return neHa;
}

// The text with its parameters. Lines that they leave empty go, and behind the first those that have none of theirs.
std::string completo(std::string_view s) {
    std::string esito;
    while (!s.empty()) {
        const auto fine = s.find('\n');
        const bool muta = !esito.empty() && senzaParametri(s.substr(0, fine));
        const std::string riga = muta ? std::string() : conParametri(s.substr(0, fine));
        if (riga.find_first_not_of(' ') != std::string::npos) {
            if (!esito.empty()) esito += '\n';
            esito += riga;
        }
        s.remove_prefix(fine == std::string_view::npos ? s.size() : fine + 1);
    }
    return esito;
}

QMessageBox::Icon icona(Segno s) {
    switch (s) {
    case Segno::stop: return QMessageBox::Critical;
    case Segno::nota: return QMessageBox::Information;
    case Segno::cautela: return QMessageBox::Warning;
    case Segno::nessuno: break;
    }
    return QMessageBox::NoIcon;
}

std::int16_t chiedi(const Avviso& a, const std::string& detto, Segno come) {
    const DialogPtr davanti = FrontDialog();
    QWidget* padre = davanti != nullptr ? static_cast<QWidget*>(davanti->quadro) : telaio();
    QMessageBox scatola(padre);
    const auto prima = detto.find('\n');
    scatola.setIcon(icona(come));
    scatola.setTextFormat(Qt::PlainText);
    scatola.setText(daUtf8(std::string_view(detto).substr(0, prima)));
    if (prima != std::string::npos) scatola.setInformativeText(daUtf8(std::string_view(detto).substr(prima + 1)));
    scatola.setWindowTitle(QStringLiteral("Tessaro 3D"));
    std::int16_t premuto = 0;
    for (std::size_t i = 0; i < a.bottoni.size(); ++i) {
        const Bottone& b = a.bottoni[i];
        const auto numero = static_cast<std::int16_t>(i + 1);
        if (b.soloNota && come != Segno::nota) continue;
        const bool predefinito = numero == a.predefinito;
        const auto ruolo = predefinito            ? QMessageBox::AcceptRole
                           : numero == a.fuga     ? QMessageBox::RejectRole
                           : a.bottoni.size() > 2 ? QMessageBox::DestructiveRole
                                                  : QMessageBox::RejectRole;
        QPushButton* bottone = scatola.addButton(daUtf8(testo("button." + b.nome)), ruolo);
        if (predefinito) scatola.setDefaultButton(bottone);
        if (numero == (a.fuga == 0 ? a.predefinito : a.fuga)) scatola.setEscapeButton(bottone);
        QObject::connect(bottone, &QPushButton::clicked, &scatola, [&premuto, numero] { premuto = numero; });
    }
    // The box goes by its buttons alone otherwise, and folds the text into a narrow column.
    if (auto* griglia = qobject_cast<QGridLayout*>(scatola.layout()); griglia != nullptr)
        griglia->addItem(new QSpacerItem(larghezza, 0), griglia->rowCount(), 0, 1, griglia->columnCount());
    const Annidato annidato;
    scatola.setWindowModality(Qt::ApplicationModal);
    scatola.show();
    scatola.activateWindow();
    while (premuto == 0 && scatola.isVisible() && waitStep(Attesa::popup, -1)) {}
    scatola.close();
    if (padre != nullptr && padre->isVisible()) padre->activateWindow();
    return premuto != 0  ? premuto
           : a.fuga == 0 ? a.predefinito
                         : a.fuga;   // a quit under way leaves by Escape's button
}

std::int16_t avverti(std::int16_t id, Segno come) {
    const Avviso& a = avvisoDi(id);
    const std::string detto = completo(testo("alert." + std::to_string(id)));
    if (copione() != nullptr) return copione()->avviso(id, detto, a.predefinito);
    if (!conFinestre()) return a.predefinito;
    if (AvvioInForza().muta) {
        std::fprintf(stderr, "%s\n", detto.c_str());
        return a.predefinito;
    }
    return chiedi(a, detto, come == Segno::nessuno ? a.segno : come);
}

}   // namespace

std::int16_t StopAlert(std::int16_t id) { return avverti(id, Segno::stop); }
std::int16_t StopAlertParam(std::int16_t id, std::string_view macRoman0) {
    const auto prima = parametriTesto;
    ParamText(macRoman0, "", "", "");
    const std::int16_t premuto = StopAlert(id);
    parametriTesto = prima;
    return premuto;
}
std::int16_t NoteAlert(std::int16_t id) { return avverti(id, Segno::nota); }
std::int16_t CautionAlert(std::int16_t id) { return avverti(id, Segno::cautela); }
std::int16_t Alert(std::int16_t id) { return avverti(id, Segno::nessuno); }

}   // namespace tessaro
