// Requests to the person that the desktop has windows of its own for: a file to read, a file to write, a colour.
#include <QColorDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QMainWindow>
#include <QMap>

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/qt/Dialogo.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"

namespace tessaro {

namespace {

constexpr std::int16_t tipiImmagini = 301;
constexpr auto suffissoDisegno = "ts3d";
constexpr auto fileCartella = "last-folder";   // among the settings: the folder of the last request

QWidget* padre() {
    const DialogPtr davanti = FrontDialog();
    return davanti != nullptr && davanti->quadro != nullptr ? static_cast<QWidget*>(davanti->quadro) : telaio();
}

QString fileDellaCartella() { return daUtf8(cartellaImpostazioni()) + QLatin1Char('/') + QLatin1String(fileCartella); }

// A line a kind of file: its number, a tab, the folder. The first line, of kind 0, is of the last request of all.
QMap<int, QString> cartelle() {
    QMap<int, QString> tutte;
    QFile f(fileDellaCartella());
    if (!f.open(QIODevice::ReadOnly)) return tutte;
    for (const QString& riga : QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const auto tab = riga.indexOf(QLatin1Char('\t'));
        tutte[tab < 0 ? 0 : riga.left(tab).toInt()] = riga.mid(tab + 1);
    }
    return tutte;
}

QString cartellaRicordata(int specie) {
    const QMap<int, QString> tutte = cartelle();
    for (const int k : {specie, 0})
        if (const QString nome = tutte.value(k); !nome.isEmpty() && QDir(nome).exists()) return nome;
    return QDir::homePath();
}

void ricordaCartella(const QString& file, int specie) {
    QMap<int, QString> tutte = cartelle();
    tutte[0] = tutte[specie] = QFileInfo(file).absolutePath();
    QFile f(fileDellaCartella());
    if (!f.open(QIODevice::WriteOnly)) return;   // a folder that cannot be remembered is no one's trouble
    for (auto k = tutte.cbegin(); k != tutte.cend(); ++k)
        f.write(QByteArray::number(k.key()) + '\t' + k.value().toUtf8() + '\n');
}

// What is read and what is written of one sort are one kind.
int specieDi(int tipi) {
    constexpr int primaImmagine = 310, ultimaImmagine = 319;
    return tipi >= primaImmagine && tipi <= ultimaImmagine ? int{tipiImmagini} : tipi;
}

// The first kind that has the suffix, 0 for none.
int tipiDelSuffisso(const QString& suffisso) {
    for (const RigaRisorsa& r : RigheRisorsa("types.txt"))
        for (std::size_t i = 1; i < r.parole.size(); ++i)
            if (daUtf8(r.parole[i]) == suffisso) return numeroDi(r.parole[0], 0);
    return 0;
}

// Both cases: some desktops compare names as they stand.
QString filtro(const QString& nome, const QStringList& suffissi) {
    QStringList forme;
    for (const QString& s : suffissi) forme << QStringLiteral("*.") + s << QStringLiteral("*.") + s.toUpper();
    forme.removeDuplicates();
    return nome + QStringLiteral(" (") + forme.join(QLatin1Char(' ')) + QLatin1Char(')');
}

QStringList filtri(std::int16_t tipi) {
    QStringList v;
    for (const RigaRisorsa& r : RigheRisorsa("types.txt")) {
        if (numeroDi(r.parole[0], 0) != tipi) continue;
        QStringList suffissi;
        for (std::size_t i = 1; i < r.parole.size(); ++i) suffissi << daUtf8(r.parole[i]);
        if (tipi == tipiImmagini)
            for (const QByteArray& formato : QImageReader::supportedImageFormats())
                suffissi << QString::fromLatin1(formato);
        suffissi.removeDuplicates();
        v << filtro(daUtf8(testo("types." + r.parole[0])), suffissi);
    }
    v << daUtf8(testo("types.all")) + QStringLiteral(" (*)");
    return v;
}

// A save in one kind: its name with the one suffix.
QString filtroDelGenere(int genere, const QString& suffisso) {
    return filtro(daUtf8(testo("types." + std::to_string(genere))), {suffisso});
}

// The kinds of a save, one below the other; the chosen one's suffix takes the place of the name's.
void specie(QFileDialog& richiesta, std::int16_t prima) {
    QStringList nomi, suffissi;
    for (const RigaRisorsa& r : RigheRisorsa("types.txt")) {
        if (numeroDi(r.parole[0], 0) != prima + nomi.size() || r.parole.size() < 2) continue;
        QStringList suoi;
        for (std::size_t i = 1; i < r.parole.size(); ++i) suoi << daUtf8(r.parole[i]);
        nomi << filtro(daUtf8(testo("types." + r.parole[0])), suoi);
        suffissi << suoi.constFirst();
    }
    richiesta.setNameFilters(nomi);
    QObject::connect(&richiesta, &QFileDialog::filterSelected, &richiesta,
                     [&richiesta, nomi, suffissi](const QString& f) {
                         const auto quale = nomi.indexOf(f);
                         if (quale < 0 || richiesta.selectedFiles().isEmpty()) return;
                         const QFileInfo ora(richiesta.selectedFiles().constFirst());
                         richiesta.setDefaultSuffix(suffissi[quale]);
                         richiesta.selectFile(ora.completeBaseName() + QLatin1Char('.') + suffissi[quale]);
                     });
}

bool daCopione(bool salva, FSSpec& out) {
    std::string percorso;
    if (!copione()->file(salva, percorso)) return false;
    out = FSMakeFSSpec(percorso);
    return true;
}

bool daRichiesta(QFileDialog& richiesta, int specie, FSSpec& out) {
    if (!attendi(richiesta) || richiesta.selectedFiles().isEmpty()) return false;
    const QString file = richiesta.selectedFiles().constFirst();
    ricordaCartella(file, specie);
    out = FSMakeFSSpec(file.toStdString());
    return true;
}

}   // namespace

bool attendi(QDialog& richiesta) {
    const Annidato annidato;
    bool finita = false;
    QObject::connect(&richiesta, &QDialog::finished, &richiesta, [&finita] {
        finita = true;
        sveglia();
    });
    richiesta.setWindowModality(Qt::ApplicationModal);
    richiesta.show();
    while (!finita && waitStep(Attesa::popup, -1)) {}
    const bool accettata = finita && richiesta.result() == QDialog::Accepted;
    richiesta.hide();
    if (QWidget* sotto = padre(); sotto != nullptr && sotto->isVisible()) sotto->activateWindow();
    return accettata;
}

bool NavGetFile(std::string_view prompt, std::int16_t types, FSSpec& out) {
    if (copione() != nullptr) return daCopione(false, out);
    if (!conFinestre()) return false;
    const int specie = specieDi(types);
    QFileDialog richiesta(padre(), daMac(prompt), cartellaRicordata(specie));
    richiesta.setAcceptMode(QFileDialog::AcceptOpen);
    richiesta.setFileMode(QFileDialog::ExistingFile);
    richiesta.setNameFilters(filtri(types));
    return daRichiesta(richiesta, specie, out);
}

// A file that is there already is asked about by the request itself.
bool NavPutFile(std::string_view prompt, std::string_view defaultName, FSSpec& out, std::int16_t types) {
    if (copione() != nullptr) return daCopione(true, out);
    if (!conFinestre()) return false;
    const QString nome = daMac(defaultName);
    const QString suffisso = QFileInfo(nome).suffix();
    const int genere =
        types != 0 ? int{types} : tipiDelSuffisso(suffisso.isEmpty() ? QLatin1String(suffissoDisegno) : suffisso);
    QFileDialog richiesta(padre(), daMac(prompt), cartellaRicordata(specieDi(genere)));
    richiesta.setAcceptMode(QFileDialog::AcceptSave);
    richiesta.setFileMode(QFileDialog::AnyFile);
    richiesta.setDefaultSuffix(suffisso.isEmpty() ? QLatin1String(suffissoDisegno) : suffisso);
    if (types != 0)
        specie(richiesta, types);
    else if (genere != 0)
        richiesta.setNameFilters(
            {filtroDelGenere(genere, suffisso.isEmpty() ? QLatin1String(suffissoDisegno) : suffisso),
             daUtf8(testo("types.all")) + QStringLiteral(" (*)")});
    richiesta.selectFile(nome);
    return daRichiesta(richiesta, specieDi(genere), out);
}

bool GetColor(std::string_view macRomanPrompt, const RGBColor& before, RGBColor& after) {
    after = before;
    if (copione() != nullptr) return copione()->colore(after.red, after.green, after.blue);
    if (!conFinestre()) return false;
    const QColor prima = QColor::fromRgba64(before.red, before.green, before.blue);
    QColorDialog richiesta(prima, padre());
    richiesta.setWindowTitle(daMac(macRomanPrompt));
    if (!attendi(richiesta)) return false;
    const QColor scelto = richiesta.selectedColor();
    if (scelto == prima) return true;   // the 16 bits stay, which a chooser of 8 bits would round
    const QRgba64 c = scelto.rgba64();
    after = {c.red(), c.green(), c.blue()};
    return true;
}

}   // namespace tessaro
