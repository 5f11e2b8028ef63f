// State files over plain descriptors: a lock on the file itself falls with the process, however it ends.
#include "platform/StateFiles.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <map>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Automation.h"
#include "platform/Files.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

struct Aperto {
    std::string percorso;
    std::int64_t letti = 0;
};
std::map<StateFile, Aperto> aperti;   // by descriptor, which is never 0 here

bool blocca(int fd) { return ::flock(fd, LOCK_EX | LOCK_NB) == 0; }

StateFile tieni(int fd, std::string_view percorso) {
    aperti.insert_or_assign(fd, Aperto{std::string(percorso), 0});
    return fd;
}

std::int64_t lunghezza(int fd) {
    struct stat s {};
    return ::fstat(fd, &s) == 0 ? std::int64_t{s.st_size} : 0;
}

}   // namespace

std::string StateFolder() {
    QString dove;
    if (AvvioInForza().script || !AvvioInForza().settings.empty() || !conFinestre()) {
        dove = daUtf8(SettingsFolder()) + QStringLiteral("/state");
    } else {
        dove = qEnvironmentVariable("XDG_STATE_HOME");
        if (!QDir::isAbsolutePath(dove)) dove = QDir::homePath() + QStringLiteral("/.local/state");
        dove += QStringLiteral("/tessaro3d");
    }
    QDir().mkpath(dove);
    return dove.toStdString();
}

std::vector<std::string> StateFiles(std::string_view suffix) {
    const QDir cartella(daUtf8(StateFolder()));
    std::vector<std::string> trovati;
    for (const QString& nome : cartella.entryList({QStringLiteral("*") + daUtf8(suffix)}, QDir::Files, QDir::Time))
        trovati.push_back(cartella.absoluteFilePath(nome).toStdString());
    return trovati;
}

std::int32_t ProcessNumber() { return ::getpid(); }

StateFile StateCreate(std::string_view path) {
    const std::string nome(path), provvisorio = nome + ".new";
    const int fd = ::open(provvisorio.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd <= 0) return 0;
    // Locked first, named then: another program never finds it free.
    if (blocca(fd) && ::rename(provvisorio.c_str(), nome.c_str()) == 0) return tieni(fd, path);
    ::unlink(provvisorio.c_str());
    ::close(fd);
    return 0;
}

StateFile StateTakeOver(std::string_view path) {
    const int fd = ::open(std::string(path).c_str(), O_RDWR | O_CLOEXEC);
    if (fd <= 0) return 0;
    if (blocca(fd)) return tieni(fd, path);
    ::close(fd);
    return 0;
}

bool StateAppend(StateFile f, const void* data, std::size_t bytes) {
    const std::int64_t prima = lunghezza(f);
    const auto* p = static_cast<const char*>(data);
    for (std::size_t scritti = 0; scritti < bytes;) {
        const auto n = ::pwrite(f, p + scritti, bytes - scritti, prima + static_cast<std::int64_t>(scritti));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            [[maybe_unused]] const int e = ::ftruncate(f, prima);   // what stays is told by its checksum
            return false;
        }
        scritti += static_cast<std::size_t>(n);
    }
    return true;
}

void StateFlush(StateFile f) {
    if (aperti.contains(f)) ::fdatasync(f);
}

std::size_t StateRead(StateFile f, void* data, std::size_t bytes) {
    const auto a = aperti.find(f);
    if (a == aperti.end()) return 0;
    std::size_t letti = 0;
    while (letti < bytes) {
        const auto n = ::pread(f, static_cast<char*>(data) + letti, bytes - letti, a->second.letti);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        letti += static_cast<std::size_t>(n);
        a->second.letti += n;
    }
    return letti;
}

std::int64_t StateLeft(StateFile f) {
    const auto a = aperti.find(f);
    return a == aperti.end() ? 0 : std::max<std::int64_t>(lunghezza(f) - a->second.letti, 0);
}

void StateClose(StateFile f, bool remove) {
    const auto a = aperti.find(f);
    if (a == aperti.end()) return;
    if (remove) ::unlink(a->second.percorso.c_str());   // before the lock falls
    ::close(f);
    aperti.erase(a);
}

}   // namespace tessaro
