// The file calls over the system's own, through one buffer a file: small reads and writes cost a copy, large ones go
// straight.
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

#include "platform/qt/FileAperto.h"
#include "platform/qt/Interno.h"
#include "platform/Resources.h"

namespace tessaro {

namespace {

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
    const OSErr e = apriPerSostituire(spec.percorso, *f);
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
        if (mancano < capienzaFile) {
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
    const bool segue = f->sporco && f->pos == f->inizio + f->presenti && f->presenti + n <= capienzaFile;
    if (!segue) {
        if (const OSErr e = f->svuota(); e != noErr) return e;
        f->presenti = 0;
        f->inizio = f->pos;
    }
    if (n >= capienzaFile) {
        if (const OSErr e = f->scriviDiretto(static_cast<const char*>(data), n, f->pos); e != noErr) return e;
    } else if (n > 0) {
        f->buffer.resize(static_cast<std::size_t>(capienzaFile));
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
