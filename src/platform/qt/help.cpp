// The user guide: a page of it is found beside the program and handed to the desktop.
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/qt/Interno.h"
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

}   // namespace

bool HelpPageExists(std::string_view page) { return conFinestre() && !pagina(page).isEmpty(); }

bool AHGotoPage(std::string_view page) {
    const QString file = conFinestre() ? pagina(page) : QString();
    return !file.isEmpty() && QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

}   // namespace tessaro
