// Buffer and errors of an open file. A file that is replaced is written beside its place and moved over it when all went well.
#include "platform/qt/FileAperto.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

struct ErroreSistema {
    int numero;
    OSErr codice;
};
constexpr ErroreSistema errori[] = {
    {ENOSPC, dskFulErr}, {EDQUOT, dskFulErr}, {EFBIG, dskFulErr},       {EACCES, permErr}, {EPERM, permErr},
    {EROFS, wPrErr},     {ENOENT, fnfErr},    {ENOTDIR, fnfErr},        {EISDIR, fnfErr},  {ENODEV, nsvErr},
    {ENXIO, nsvErr},     {EEXIST, dupFNErr},  {ENAMETOOLONG, bdNamErr}, {ELOOP, bdNamErr}, {EBUSY, fBsyErr},
    {ETXTBSY, fBsyErr},  {EMFILE, tmfoErr},   {ENFILE, tmfoErr},
};

// A pipe or a socket would be waited for; a folder is no file.
bool leggibile(const struct stat& s) { return S_ISREG(s.st_mode) || S_ISCHR(s.st_mode) || S_ISBLK(s.st_mode); }

}   // namespace

OSErr erroreDi(int numero) {
    for (const ErroreSistema& e : errori)
        if (e.numero == numero) return e.codice;
    return ioErr;
}

FileAperto::~FileAperto() {
    if (fd >= 0) ::close(fd);
    if (!vicino.empty()) ::unlink(vicino.c_str());
}

OSErr FileAperto::scriviDiretto(const char* dati, std::int64_t quanti, std::int64_t dove) {
    while (quanti > 0) {
        const ssize_t n = ::pwrite(fd, dati, static_cast<std::size_t>(quanti), dove);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            if (guasto == noErr) guasto = n == 0 ? OSErr{dskFulErr} : erroreDi(errno);
            return guasto;
        }
        dati += n;
        dove += n;
        quanti -= n;
    }
    return noErr;
}

OSErr FileAperto::svuota() {
    const bool daScrivere = sporco;
    sporco = false;
    const std::int64_t n = presenti;
    if (!daScrivere) return noErr;
    presenti = 0;
    return scriviDiretto(buffer.data(), n, inizio);
}

std::int64_t FileAperto::leggiDiretto(char* dati, std::int64_t quanti, std::int64_t dove) const {
    std::int64_t letti = 0;
    while (letti < quanti) {
        const ssize_t n = ::pread(fd, dati + letti, static_cast<std::size_t>(quanti - letti), dove + letti);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return -1;
        if (n == 0) break;
        letti += n;
    }
    return letti;
}

OSErr FileAperto::riempi() {
    if (const OSErr e = svuota(); e != noErr) return e;
    buffer.resize(static_cast<std::size_t>(capienzaFile));
    inizio = pos;
    presenti = 0;
    const std::int64_t n = leggiDiretto(buffer.data(), capienzaFile, pos);
    if (n < 0) return erroreDi(errno);
    presenti = n;
    return noErr;
}

OSErr apri(const std::string& percorso, int modo, int& fd) {
    fd = ::open(percorso.c_str(), modo | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd < 0) return erroreDi(errno);
    struct stat s {};
    if (::fstat(fd, &s) == 0 && leggibile(s)) return noErr;
    ::close(fd);
    fd = -1;
    return fnfErr;
}

namespace {

// The file that a path stands for, through its symbolic links, also when the last one leads to nothing yet.
std::string senzaLegami(std::string percorso) {
    namespace fs = std::filesystem;
    for (int passi = 0; passi < 40; ++passi) {
        std::error_code e;
        const fs::path legame = fs::read_symlink(percorso, e);
        if (e) break;
        percorso = (legame.is_absolute() ? legame : fs::path(percorso).parent_path() / legame).string();
    }
    return percorso;
}

mode_t maschera() {
    const mode_t m = ::umask(0);
    ::umask(m);
    return m;
}

// Makes the new file beside `percorso`: an open descriptor, or -1 with errno set.
int creaVicino(const std::string& percorso, std::string& vicino) {
    const std::filesystem::path p(percorso);
    const std::string nome = RadiceVicino(p.filename().string()) + "XXXXXX";
    std::string modello = (p.has_parent_path() ? p.parent_path() / nome : std::filesystem::path(nome)).string();
    const int fd = ::mkostemp(modello.data(), O_CLOEXEC);
    if (fd >= 0) vicino = modello;
    return fd;
}

OSErr apriSulPosto(const std::string& percorso, FileAperto& f) {
    f.sulPosto = true;
    return apri(percorso, O_WRONLY, f.fd);
}

// The present file's mode and, where the system lets us, its owner.
void comeIlVecchio(int fd, const struct stat& vecchio) {
    [[maybe_unused]] const int proprietario = ::fchown(fd, vecchio.st_uid, vecchio.st_gid);
    ::fchmod(fd, vecchio.st_mode & 07777);
}

OSErr apriVicino(const std::string& percorso, FileAperto& f) {
    struct stat vecchio {};
    const bool esiste = ::stat(percorso.c_str(), &vecchio) == 0;
    if (esiste && S_ISDIR(vecchio.st_mode)) return fnfErr;
    // A device, and a file that has other names, are what they are: only their content can be replaced.
    if (esiste && (!S_ISREG(vecchio.st_mode) || vecchio.st_nlink > 1)) return apriSulPosto(percorso, f);
    if (esiste && ::access(percorso.c_str(), W_OK) != 0) return errno == EACCES ? OSErr{fLckdErr} : erroreDi(errno);
    TogliViciniVecchi(percorso);
    f.fd = creaVicino(percorso, f.vicino);
    if (f.fd < 0) {
        const int perche = errno;
        const bool cartellaChiusa = perche == EACCES || perche == EPERM;
        return esiste && cartellaChiusa ? apriSulPosto(percorso, f) : erroreDi(perche);
    }
    if (esiste)
        comeIlVecchio(f.fd, vecchio);
    else
        ::fchmod(f.fd, 0666 & ~maschera());
    f.bersaglio = percorso;
    return noErr;
}

// The folder's entry is to survive a power cut too; a system that cannot promise it is not asked twice.
void fissaCartella(const std::string& percorso) {
    const std::string cartella = std::filesystem::path(percorso).parent_path().string();
    const int fd = ::open(cartella.empty() ? "." : cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

OSErr mettiAlPosto(FileAperto& f) {
    if (::fsync(f.fd) != 0 && errno != EINVAL) return erroreDi(errno);
    if (::rename(f.vicino.c_str(), f.bersaglio.c_str()) != 0) return erroreDi(errno);
    f.vicino.clear();
    fissaCartella(f.bersaglio);
    return noErr;
}

}   // namespace

OSErr apriPerSostituire(const std::string& percorso, FileAperto& f) { return apriVicino(senzaLegami(percorso), f); }

OSErr chiudi(FileAperto& f) {
    OSErr e = f.svuota();
    if (e == noErr) e = f.guasto;
    if (e == noErr && f.sulPosto) {
        // A device has no length to cut.
        if (::ftruncate(f.fd, f.pos) != 0 && errno != EINVAL) e = erroreDi(errno);
    }
    if (e == noErr && !f.vicino.empty()) e = mettiAlPosto(f);
    const int fd = std::exchange(f.fd, -1);
    if (::close(fd) != 0 && e == noErr && errno != EINTR) e = erroreDi(errno);
    return e;
}

}   // namespace tessaro
