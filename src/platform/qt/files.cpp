// The file calls over the system's own, through one buffer a file: small reads and writes cost a copy, large ones go
// straight. A file that is replaced is written beside its place and moved over it when all went well.
#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "platform/qt/Interno.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

constexpr std::int64_t capienza = 256 * 1024;   // of a file's buffer, bytes

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

OSErr erroreDi(int numero) {
    for (const ErroreSistema& e : errori)
        if (e.numero == numero) return e.codice;
    return ioErr;
}

// One open file. The buffer mirrors [inizio, inizio + presenti) of it; when `sporco`, that part is still to be written.
struct FileAperto {
    int fd = -1;
    std::int64_t pos = 0;
    std::vector<char> buffer;
    std::int64_t inizio = 0;
    std::int64_t presenti = 0;
    bool sporco = false;
    OSErr guasto = noErr;    // of the first write that failed
    std::string vicino;      // the new file beside the one that it will replace; empty for others
    std::string bersaglio;   // what it replaces
    bool sulPosto = false;   // replaced where it lies: cut to its new length at the close

    FileAperto() = default;
    FileAperto(const FileAperto&) = delete;
    FileAperto& operator=(const FileAperto&) = delete;
    ~FileAperto() {
        if (fd >= 0) ::close(fd);
        if (!vicino.empty()) ::unlink(vicino.c_str());
    }

    [[nodiscard]] bool nelBuffer() const { return pos >= inizio && pos < inizio + presenti; }

    OSErr scriviDiretto(const char* dati, std::int64_t quanti, std::int64_t dove) {
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

    OSErr svuota() {
        const bool daScrivere = sporco;
        sporco = false;
        const std::int64_t n = presenti;
        if (!daScrivere) return noErr;
        presenti = 0;
        return scriviDiretto(buffer.data(), n, inizio);
    }

    // Reads up to `quanti` bytes at `dove`; how many came, or -1 with errno set.
    [[nodiscard]] std::int64_t leggiDiretto(char* dati, std::int64_t quanti, std::int64_t dove) const {
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

    OSErr riempi() {
        if (const OSErr e = svuota(); e != noErr) return e;
        buffer.resize(static_cast<std::size_t>(capienza));
        inizio = pos;
        presenti = 0;
        const std::int64_t n = leggiDiretto(buffer.data(), capienza, pos);
        if (n < 0) return erroreDi(errno);
        presenti = n;
        return noErr;
    }
};

std::vector<std::unique_ptr<FileAperto>> aperti;   // by reference number, from 1

FileAperto* fileDi(std::int16_t refNum) {
    const auto i = static_cast<std::size_t>(refNum - 1);
    return refNum > 0 && i < aperti.size() ? aperti[i].get() : nullptr;
}

OSErr registra(std::unique_ptr<FileAperto> f, std::int16_t& refNum) {
    auto libero = std::find(aperti.begin(), aperti.end(), nullptr);
    if (libero == aperti.end()) {
        if (aperti.size() >= static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) return tmfoErr;
        libero = aperti.insert(aperti.end(), nullptr);
    }
    refNum = static_cast<std::int16_t>(libero - aperti.begin() + 1);
    *libero = std::move(f);
    return noErr;
}

std::unique_ptr<FileAperto> presiDa(std::int16_t refNum) {
    return fileDi(refNum) ? std::move(aperti[static_cast<std::size_t>(refNum - 1)]) : nullptr;
}

// A pipe or a socket would be waited for; a folder is no file.
bool leggibile(const struct stat& s) { return S_ISREG(s.st_mode) || S_ISCHR(s.st_mode) || S_ISBLK(s.st_mode); }

OSErr apri(const std::string& percorso, int modo, int& fd) {
    fd = ::open(percorso.c_str(), modo | O_CLOEXEC | O_NONBLOCK, 0666);
    if (fd < 0) return erroreDi(errno);
    struct stat s {};
    if (::fstat(fd, &s) == 0 && leggibile(s)) return noErr;
    ::close(fd);
    fd = -1;
    return fnfErr;
}

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

struct TipoSuffisso {
    const char* suffisso;
    OSType tipo, creatore;
};
constexpr TipoSuffisso tipi[] = {
    {"ts3d", tipoDi("TS3D"), tipoDi("TSC3")}, {"ts5", tipoDi("TS3D"), tipoDi("TSC3")},
    {"tc3d", tipoDi("TS3D"), tipoDi("TSC3")}, {"pict", tipoDi("PICT"), tipoDi("ttxt")},
    {"pct", tipoDi("PICT"), tipoDi("ttxt")},  {"fabra", tipoDi("ALBJ"), tipoDi("ALBG")},
    {"txt", tipoDi("TEXT"), tipoDi("ttxt")},  {"xyz", tipoDi("TEXT"), tipoDi("ttxt")},
    {"dxf", tipoDi("TEXT"), tipoDi("ttxt")},  {"cxf", tipoDi("TEXT"), tipoDi("ttxt")},
    {"asc", tipoDi("TEXT"), tipoDi("ttxt")},
};

std::string suffissoDi(const std::string& percorso) {
    std::string s = std::filesystem::path(percorso).extension().string();
    if (!s.empty()) s.erase(0, 1);
    for (char& c : s)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return s;
}

}   // namespace

FSSpec FSMakeFSSpec(std::string_view path) {
    if (path.empty()) return {};
    std::error_code e;
    const std::filesystem::path p = std::filesystem::absolute(std::filesystem::path(path), e);
    FSSpec spec;
    spec.percorso = e ? std::string(path) : p.string();
    spec.nome = Utf8ToMac(std::filesystem::path(spec.percorso).filename().string());
    return spec;
}

FSSpec FSMakeFSSpecIn(std::string_view folder, std::string_view name) {
    return FSMakeFSSpec((std::filesystem::path(folder) / name).string());
}

OSErr FSpGetFInfo(const FSSpec& spec, FInfo& info) {
    info = FInfo{};
    struct stat s {};
    if (::stat(spec.percorso.c_str(), &s) != 0) return erroreDi(errno);
    const std::string suffisso = suffissoDi(spec.percorso);
    for (const TipoSuffisso& t : tipi)
        if (suffisso == t.suffisso) info = {t.tipo, t.creatore};
    return noErr;
}

OSErr FSpCreate(const FSSpec& spec, OSType creator, OSType type) {
    (void)creator;   // told by the suffix
    (void)type;
    int fd = -1;
    const OSErr e = apri(spec.percorso, O_WRONLY | O_CREAT | O_EXCL, fd);
    if (fd >= 0) ::close(fd);
    return e;
}

OSErr FSpDelete(const FSSpec& spec) { return ::unlink(spec.percorso.c_str()) == 0 ? OSErr{noErr} : erroreDi(errno); }

OSErr FSpOpenDF(const FSSpec& spec, std::int8_t permission, std::int16_t& refNum) {
    static constexpr std::array<int, 4> modi{O_RDWR, O_RDONLY, O_WRONLY, O_RDWR};
    refNum = 0;
    if (permission < 0 || permission > fsRdWrPerm) return paramErr;
    auto f = std::make_unique<FileAperto>();
    OSErr e = apri(spec.percorso, modi[static_cast<std::size_t>(permission)], f->fd);
    // "Whatever is allowed" settles for reading.
    if (permission == fsCurPerm && (e == permErr || e == wPrErr)) e = apri(spec.percorso, O_RDONLY, f->fd);
    return e == noErr ? registra(std::move(f), refNum) : e;
}

OSErr FSpOpenReplacing(const FSSpec& spec, OSType creator, OSType type, std::int16_t& refNum) {
    (void)creator;
    (void)type;
    refNum = 0;
    auto f = std::make_unique<FileAperto>();
    const OSErr e = apriVicino(senzaLegami(spec.percorso), *f);
    return e == noErr ? registra(std::move(f), refNum) : e;
}

OSErr FSRead(std::int16_t refNum, std::int32_t& count, void* data) {
    const std::int64_t voluti = std::exchange(count, 0);
    FileAperto* f = fileDi(refNum);
    if (!f) return fnOpnErr;
    if (voluti < 0) return paramErr;
    auto* dove = static_cast<char*>(data);
    std::int64_t mancano = voluti;
    while (mancano > 0) {
        if (f->nelBuffer() && !f->sporco) {
            const std::int64_t n = std::min(mancano, f->inizio + f->presenti - f->pos);
            std::memcpy(dove, f->buffer.data() + (f->pos - f->inizio), static_cast<std::size_t>(n));
            dove += n;
            f->pos += n;
            mancano -= n;
            continue;
        }
        if (mancano < capienza) {
            if (const OSErr e = f->riempi(); e != noErr) return e;
            if (f->presenti == 0) break;
            continue;
        }
        if (const OSErr e = f->svuota(); e != noErr) return e;
        const std::int64_t n = f->leggiDiretto(dove, mancano, f->pos);
        if (n < 0) return erroreDi(errno);
        f->pos += n;
        mancano -= n;
        break;
    }
    count = static_cast<std::int32_t>(voluti - mancano);
    return mancano > 0 ? eofErr : noErr;
}

OSErr FSWrite(std::int16_t refNum, std::int32_t& count, const void* data) {
    const std::int64_t n = std::exchange(count, 0);
    FileAperto* f = fileDi(refNum);
    if (!f) return fnOpnErr;
    if (n < 0) return paramErr;
    if (f->guasto != noErr) return f->guasto;
    const bool segue = f->sporco && f->pos == f->inizio + f->presenti && f->presenti + n <= capienza;
    if (!segue) {
        if (const OSErr e = f->svuota(); e != noErr) return e;
        f->presenti = 0;
        f->inizio = f->pos;
    }
    if (n >= capienza) {
        if (const OSErr e = f->scriviDiretto(static_cast<const char*>(data), n, f->pos); e != noErr) return e;
    } else if (n > 0) {
        f->buffer.resize(static_cast<std::size_t>(capienza));
        std::memcpy(f->buffer.data() + f->presenti, data, static_cast<std::size_t>(n));
        f->presenti += n;
        f->sporco = true;
    }
    f->pos += n;
    count = static_cast<std::int32_t>(n);
    return noErr;
}

OSErr FSClose(std::int16_t refNum) {
    const auto f = presiDa(refNum);
    return f ? chiudi(*f) : OSErr{fnOpnErr};
}

// The destructor drops the new file; what a buffer held is not written.
void FSAbandon(std::int16_t refNum) { presiDa(refNum).reset(); }

OSErr GetFPos(std::int16_t refNum, std::int64_t& pos) {
    const FileAperto* f = fileDi(refNum);
    pos = f ? f->pos : 0;
    return f ? noErr : fnOpnErr;
}

OSErr SetFPos(std::int16_t refNum, std::int64_t pos) {
    FileAperto* f = fileDi(refNum);
    if (!f) return fnOpnErr;
    if (pos < 0) return posErr;
    // Within the buffer there is nothing to ask of the system.
    const bool dentro = !f->sporco && pos >= f->inizio && pos <= f->inizio + f->presenti;
    std::int64_t fine = pos;
    if (!dentro) {
        if (const OSErr e = GetEOF(refNum, fine); e != noErr) return e;
    }
    f->pos = std::min(pos, fine);
    return pos > fine ? eofErr : noErr;
}

OSErr GetEOF(std::int16_t refNum, std::int64_t& size) {
    size = 0;
    const FileAperto* f = fileDi(refNum);
    if (!f) return fnOpnErr;
    struct stat s {};
    if (::fstat(f->fd, &s) != 0) return erroreDi(errno);
    size = s.st_size;
    if (f->sporco) size = std::max(size, f->inizio + f->presenti);
    return noErr;
}

OSErr FSPeek(std::int16_t refNum, const char*& data, std::int64_t& size) {
    data = nullptr;
    size = 0;
    FileAperto* f = fileDi(refNum);
    if (!f) return fnOpnErr;
    if (!f->nelBuffer() || f->sporco) {
        if (const OSErr e = f->riempi(); e != noErr) return e;
    }
    if (!f->nelBuffer()) return eofErr;
    data = f->buffer.data() + (f->pos - f->inizio);
    size = f->inizio + f->presenti - f->pos;
    return noErr;
}

}   // namespace tessaro
