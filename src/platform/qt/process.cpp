// Processes on the toolkit's own class.
#include "platform/Process.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <unistd.h>

namespace tessaro {

namespace {

constexpr int battito = 100;   // ms between two looks at a running program

QString testo(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// Megabytes that a process holds; 0 where the system does not tell.
std::int64_t memoria(qint64 pid) {
    QFile f(QStringLiteral("/proc/%1/statm").arg(pid));
    if (!f.open(QIODevice::ReadOnly)) return 0;
    const QList<QByteArray> campi = f.readAll().split(' ');
    constexpr std::int64_t pagina = 4096;
    return campi.size() > 1 ? campi[1].toLongLong() * pagina / (1024 * 1024) : 0;
}

EsitoProcesso segui(QProcess& p, const ChiamataProcesso& c) {
    QElapsedTimer tempo;
    tempo.start();
    while (!p.waitForFinished(battito)) {
        if (p.state() == QProcess::NotRunning) break;
        if (c.continua && !c.continua()) return EsitoProcesso::fermato;
        if (tempo.hasExpired(qint64{1000} * c.secondi)) return EsitoProcesso::lento;
        if (memoria(p.processId()) > c.megabyte) return EsitoProcesso::grande;
    }
    return p.exitStatus() == QProcess::NormalExit ? EsitoProcesso::finito : EsitoProcesso::caduto;
}

std::string ultimaRiga(const QByteArray& scritto) {
    const QList<QByteArray> righe = scritto.trimmed().split('\n');
    constexpr int lunga = 200;
    return righe.isEmpty() ? std::string() : righe.last().trimmed().left(lunga).toStdString();
}

}   // namespace

FineProcesso EseguiProcesso(const ChiamataProcesso& c) {
    FineProcesso f;
    const QString programma = QStandardPaths::findExecutable(testo(c.programma));
    if (programma.isEmpty()) {
        f.esito = EsitoProcesso::manca;
        return f;
    }
    QProcess p;
    QStringList argomenti;
    for (const std::string& a : c.argomenti) argomenti << testo(a);
    p.setStandardOutputFile(testo(c.uscita), QIODevice::Truncate);
    p.setStandardInputFile(QProcess::nullDevice());
    p.start(programma, argomenti);
    if (!p.waitForStarted()) {
        f.esito = EsitoProcesso::manca;
        return f;
    }
    f.esito = segui(p, c);
    if (p.state() != QProcess::NotRunning) {
        p.kill();
        p.waitForFinished();
    }
    f.stato = p.exitCode();
    f.detto = ultimaRiga(p.readAllStandardError());
    return f;
}

std::string FileDelProgramma(const std::string& nome) {
    const QDir qui(QCoreApplication::applicationDirPath());
    for (const char* dove : {".", "..", "../share/tessaro3d", "../.."})
        if (const QString f = qui.absoluteFilePath(QString::fromLatin1(dove) + QLatin1Char('/') + testo(nome));
            QFileInfo::exists(f))
            return QDir::cleanPath(f).toStdString();
    return {};
}

std::string ProgrammaProprio() {
    const QString nome = QStringLiteral("tessaro3d"), qui = QCoreApplication::applicationFilePath();
    return QFileInfo(qui).fileName() == nome ? qui.toStdString() : FileDelProgramma(nome.toStdString());
}

void EndAfter(int seconds) { alarm(seconds > 0 ? static_cast<unsigned int>(seconds) : 0); }

FileTemporaneo::FileTemporaneo() {
    QTemporaryFile f(QDir::temp().filePath(QStringLiteral("tessaro3d-XXXXXX")));
    f.setAutoRemove(false);
    if (f.open()) dove = f.fileName().toStdString();
}

FileTemporaneo::~FileTemporaneo() {
    if (!dove.empty()) QFile::remove(testo(dove));
}

}   // namespace tessaro
