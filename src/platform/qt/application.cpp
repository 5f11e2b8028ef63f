// The application object: started off screen for a script, with the screen's whole ratio, the person's language and
// settings folder, and the way out on a termination signal.
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTranslator>

#include <array>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/socket.h>
#include <unistd.h>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"
#include "platform/qt/TestiQt.h"
#include "platform/Tablet.h"

namespace tessaro {

void (*salvaRecupero)() = nullptr;

namespace {

Avvio questoAvvio;
constinit const Copione* ganci = nullptr;
// Plain: a program that leaves by exit must not take the toolkit apart behind its own statics.
constinit QApplication* applicazione = nullptr;
std::unique_ptr<QTemporaryDir> impostazioniDelCopione;

// A signal handler may only write; the event loop does the rest.
std::array<int, 2> condotto{-1, -1};
std::unique_ptr<QSocketNotifier> ascoltoSegnali;

void suSegnale(int numero) {
    const auto byte = static_cast<unsigned char>(numero);
    [[maybe_unused]] const auto scritti = ::write(condotto[0], &byte, 1);
}

void esciPerSegnale() {
    unsigned char numero = 0;
    if (::read(condotto[1], &numero, 1) != 1) return;
    if (salvaRecupero != nullptr) salvaRecupero();
    std::signal(numero, SIG_DFL);
    std::raise(numero);
}

void ascoltaSegnali() {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, condotto.data()) != 0) return;
    ascoltoSegnali = std::make_unique<QSocketNotifier>(condotto[1], QSocketNotifier::Read);
    QObject::connect(ascoltoSegnali.get(), &QSocketNotifier::activated, [] { esciPerSegnale(); });
    struct sigaction azione {};
    azione.sa_handler = suSegnale;
    azione.sa_flags = SA_RESTART;
    ::sigaction(SIGTERM, &azione, nullptr);
    ::sigaction(SIGINT, &azione, nullptr);
}

void smettiSegnali() {
    if (ascoltoSegnali == nullptr) return;
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    ascoltoSegnali.reset();
    ::close(condotto[0]);
    ::close(condotto[1]);
}

// What the toolkit says while it looks for a display. It ends in an abort without one: one line of ours instead.
QStringList dettoAllInizio;
void ascoltaInizio(QtMsgType tipo, const QMessageLogContext&, const QString& frase) {
    if (tipo != QtFatalMsg) {
        dettoAllInizio << frase;
        return;
    }
    if (questoAvvio.language.empty() && QLocale::system().language() == QLocale::Italian) questoAvvio.language = "it";
    std::fprintf(stderr, "tessaro3d: %s\n", testo("start.nodisplay").c_str());
    std::fflush(nullptr);
    std::_Exit(1);
}
void fineInizio() {
    qInstallMessageHandler(nullptr);
    for (const QString& frase : std::as_const(dettoAllInizio)) std::fprintf(stderr, "%s\n", qPrintable(frase));
    dettoAllInizio.clear();
}

// Before the application object: these are read when it is made.
void preparaAmbiente(const Avvio& a) {
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::Round);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    if (!a.script) {
        qInstallMessageHandler(ascoltaInizio);
        return;
    }
    // Standard error is the script's own: what the off-screen platform cannot do is no news there.
    qInstallMessageHandler([](QtMsgType tipo, const QMessageLogContext&, const QString& testo) {
        if (tipo == QtCriticalMsg || tipo == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(testo));
    });
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", QByteArray::number(a.ratio));
    qputenv("QT_QPA_PLATFORMTHEME", "");
    QGuiApplication::setDesktopSettingsAware(false);
}

// Pictures and timing of a script must not depend on the desktop it runs on.
void parificaCopione() {
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setPalette(questoAvvio.dark ? paletteScura() : QPalette(QColor(0xEF, 0xEF, 0xEF)));
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
}

// The toolkit's own requests, for files and colours, speak the program's language where its translations are installed.
void traduciRichieste() {
    auto* testi = new QTranslator(applicazione);
    if (testi->load(QStringLiteral("qtbase_") + QString::fromStdString(linguaInUso()),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(testi);
}

}   // namespace

const Avvio& avvio() { return questoAvvio; }
const Avvio& AvvioInForza() { return questoAvvio; }
const Copione* copione() { return ganci; }
void SetCopione(const Copione* c) { ganci = c; }
bool conFinestre() { return applicazione != nullptr; }

void StartToolbox(int& argc, char** argv, const Avvio& a) {
    questoAvvio = a;
    preparaAmbiente(a);
    applicazione = new QApplication(argc, argv);
    if (!a.script) fineInizio();
    QCoreApplication::setApplicationName(QStringLiteral("tessaro3d"));
    QGuiApplication::setDesktopFileName(QStringLiteral("tessaro3d"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    traduciRichieste();
    // Scanned sheets are large; sizes are checked before anything is decoded.
    QImageReader::setAllocationLimit(0);
    // Numbers in files and scripts have a point whatever the desktop says.
    std::setlocale(LC_NUMERIC, "C");
    std::signal(SIGXFSZ, SIG_IGN);   // a file-size limit is an error of the write that meets it, and no death
    if (a.script) parificaCopione();
    vestiApplicazione();
    RadioPerChiAscolta();
    if (a.dark && !a.script) QApplication::setPalette(paletteScura());
    if (!a.dark && !a.script) seguiAspettoDelDesktop();
    if (!a.script) ascoltaSegnali();
    QObject::connect(applicazione, &QGuiApplication::commitDataRequest, [](QSessionManager&) {
        if (salvaRecupero != nullptr) salvaRecupero();
    });
    QObject::connect(applicazione, &QGuiApplication::applicationStateChanged, [](Qt::ApplicationState stato) {
        if (copione() == nullptr) attivaProgramma(stato == Qt::ApplicationActive);
    });
    creaTelaio();
    if (!a.script) misuraAvvio();
}

void StopToolbox() {
    smettiSegnali();
    SerialClose();
    if (applicazione != nullptr) {
        distruggiTelaio();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    delete std::exchange(applicazione, nullptr);
    impostazioniDelCopione.reset();
}

void AutoExit(std::int32_t status) {
    std::fflush(nullptr);
    if (impostazioniDelCopione != nullptr) impostazioniDelCopione->remove();
    std::_Exit(status);
}

bool SenzaSchermo() {
    const auto vuota = [](const char* nome) { return qEnvironmentVariableIsEmpty(nome); };
    return vuota("DISPLAY") && vuota("WAYLAND_DISPLAY") && vuota("QT_QPA_PLATFORM");
}

std::string AppFolder() {
    if (conFinestre()) return QCoreApplication::applicationDirPath().toStdString();
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath().toStdString();
}

std::string cartellaImpostazioni() {
    QString dove = daUtf8(questoAvvio.settings);
    if (dove.isEmpty() && (questoAvvio.script || !conFinestre())) {
        if (impostazioniDelCopione == nullptr) impostazioniDelCopione = std::make_unique<QTemporaryDir>();
        return impostazioniDelCopione->path().toStdString();
    }
    if (dove.isEmpty()) dove = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(dove);
    return QDir(dove).absolutePath().toStdString();
}

std::string linguaInUso() {
    if (!questoAvvio.language.empty()) return questoAvvio.language;
    if (questoAvvio.script || !conFinestre()) return "en";
    if (const std::string scelta = linguaPreferita(); !scelta.empty()) return scelta;
    return QLocale::system().language() == QLocale::Italian ? "it" : "en";
}

}   // namespace tessaro
