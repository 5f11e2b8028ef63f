// The user guide: a page of it is found beside the program and handed to the desktop.
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "platform/qt/Interno.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

// Where an installed program keeps it, seen from the executable; empty when the page is not there.
QString pagina(std::string_view page) {
    const QFileInfo f(daUtf8(AppFolder()) + QStringLiteral("/../share/doc/tessaro3d/") + daMac(page));
    return f.isFile() ? f.canonicalFilePath() : QString();
}

}   // namespace

bool HelpPageExists(std::string_view page) { return conFinestre() && !pagina(page).isEmpty(); }

bool AHGotoPage(std::string_view page) {
    const QString file = conFinestre() ? pagina(page) : QString();
    return !file.isEmpty() && QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

}   // namespace tessaro
