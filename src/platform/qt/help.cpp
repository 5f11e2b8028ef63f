// The user guide: a page of it is found beside the program and handed to the desktop's browser, or shown in a window of
// its own where there is none.
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

// The page in the language in use: beside the executable in a build folder, below share/doc where the program is
// installed. Empty when it is in neither.
QString pagina(std::string_view page) {
    const QString nome = QString::fromStdString(linguaInUso()) + QLatin1Char('/') + daMac(page);
    for (const char* cartella : {"/guide/", "/../share/doc/tessaro3d/"}) {
        const QFileInfo f(daUtf8(AppFolder()) + QLatin1String(cartella) + nome);
        if (f.isFile()) return f.canonicalFilePath();
    }
    return {};
}

QPointer<QDialog> finestraGuida;

void mostraDaSe(const QUrl& url) {
    constexpr int larga = 760, alta = 620;   // logical pixels
    if (finestraGuida == nullptr) {
        finestraGuida = new QDialog(QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                                                 : static_cast<QWidget*>(telaio()));
        finestraGuida->setAttribute(Qt::WA_DeleteOnClose);
        finestraGuida->setWindowTitle(daUtf8(testo("guide.title")));
        auto* testoGuida = new QTextBrowser;
        testoGuida->setAccessibleName(finestraGuida->windowTitle());
        testoGuida->setOpenExternalLinks(false);
        auto* tutto = new QVBoxLayout(finestraGuida);
        tutto->setContentsMargins(0, 0, 0, 0);
        tutto->addWidget(testoGuida);
        finestraGuida->resize(larga, alta);
    }
    auto* testoGuida = finestraGuida->findChild<QTextBrowser*>();
    testoGuida->setSource(url);
    finestraGuida->show();
    finestraGuida->raise();
    testoGuida->setFocus();
}

// A desktop without a browser says so by refusing; off screen there is none.
bool apri(const QUrl& url) {
    const bool fuoriSchermo = copione() != nullptr || QGuiApplication::platformName() == QLatin1String("offscreen");
    if (fuoriSchermo || !QDesktopServices::openUrl(url)) mostraDaSe(url);
    return true;
}

// The section about a dialog, from the list that stands beside the page: a line of number and anchor each.
QString sezioneDi(std::int16_t dialogo) {
    QFile elenco(pagina("dialogs.txt"));
    if (!elenco.open(QIODevice::ReadOnly)) return {};
    const QString voluto = QString::number(dialogo);
    for (const QString& riga : QString::fromUtf8(elenco.readAll()).split(QLatin1Char('\n')))
        if (riga.section(QLatin1Char(' '), 0, 0) == voluto) return riga.section(QLatin1Char(' '), 1);
    return {};
}

}   // namespace

bool HelpPageExists(std::string_view page) { return conFinestre() && !pagina(page).isEmpty(); }

bool AHGotoPage(std::string_view page) {
    const QString file = conFinestre() ? pagina(page) : QString();
    return !file.isEmpty() && apri(QUrl::fromLocalFile(file));
}

void guidaDelDialogo(std::int16_t dialogo) {
    const QString file = pagina("index.html");
    if (file.isEmpty()) return;
    QUrl url = QUrl::fromLocalFile(file);
    url.setFragment(sezioneDi(dialogo));
    apri(url);
}

}   // namespace tessaro
