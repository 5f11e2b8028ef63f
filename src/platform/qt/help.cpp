// The user guide: a page of it is found beside the program and handed to the desktop's browser, or shown in a window of
// our own where there is none.
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

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

// A desktop without a browser says so by refusing; off screen there is none.
bool apri(const QUrl& url) {
    const bool fuoriSchermo = copione() != nullptr || QGuiApplication::platformName() == QLatin1String("offscreen");
    if (fuoriSchermo || !QDesktopServices::openUrl(url)) mostraGuida(url);
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
