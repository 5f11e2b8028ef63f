// Requests to the person that the desktop has windows of its own for: a file to read, a file to write, a colour.
#include <QColorDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QMainWindow>

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

QString cartellaRicordata() {
    QFile f(fileDellaCartella());
    if (f.open(QIODevice::ReadOnly)) {
        const QString nome = QString::fromUtf8(f.readAll()).trimmed();
        if (QDir(nome).exists()) return nome;
    }
    return QDir::homePath();
}

void ricordaCartella(const QString& file) {
    QFile f(fileDellaCartella());
    // A folder that cannot be remembered is no one's trouble.
    if (f.open(QIODevice::WriteOnly)) f.write(QFileInfo(file).absolutePath().toUtf8());
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

// Shows a request and waits for its end; true when it was accepted.
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

bool daCopione(bool salva, FSSpec& out) {
    std::string percorso;
    if (!copione()->file(salva, percorso)) return false;
    out = FSMakeFSSpec(percorso);
    return true;
}

bool daRichiesta(QFileDialog& richiesta, FSSpec& out) {
    if (!attendi(richiesta) || richiesta.selectedFiles().isEmpty()) return false;
    const QString file = richiesta.selectedFiles().constFirst();
    ricordaCartella(file);
    out = FSMakeFSSpec(file.toStdString());
    return true;
}

}   // namespace

bool NavGetFile(std::string_view prompt, std::int16_t types, FSSpec& out) {
    if (copione() != nullptr) return daCopione(false, out);
    if (!conFinestre()) return false;
    QFileDialog richiesta(padre(), daMac(prompt), cartellaRicordata());
    richiesta.setAcceptMode(QFileDialog::AcceptOpen);
    richiesta.setFileMode(QFileDialog::ExistingFile);
    richiesta.setNameFilters(filtri(types));
    return daRichiesta(richiesta, out);
}

// A file that is there already is asked about by the request itself.
bool NavPutFile(std::string_view prompt, std::string_view defaultName, FSSpec& out, std::int16_t types) {
    if (copione() != nullptr) return daCopione(true, out);
    if (!conFinestre()) return false;
    const QString nome = daMac(defaultName);
    const QString suffisso = QFileInfo(nome).suffix();
    QFileDialog richiesta(padre(), daMac(prompt), cartellaRicordata());
    richiesta.setAcceptMode(QFileDialog::AcceptSave);
    richiesta.setFileMode(QFileDialog::AnyFile);
    richiesta.setDefaultSuffix(suffisso.isEmpty() ? QLatin1String(suffissoDisegno) : suffisso);
    if (types != 0) specie(richiesta, types);
    richiesta.selectFile(nome);
    return daRichiesta(richiesta, out);
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
