// An open file over the system's own calls: its buffer, and the new file beside the one that it will replace. For the files of
// platform/qt only.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Files.h"

namespace tessaro {

constexpr std::int64_t capienzaFile = 256 * 1024;   // of a file's buffer, bytes

OSErr erroreDi(int numero);   // of an errno

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
    ~FileAperto();   // drops a neighbour that took nobody's place

    [[nodiscard]] bool nelBuffer() const { return pos >= inizio && pos < inizio + presenti; }
    OSErr scriviDiretto(const char* dati, std::int64_t quanti, std::int64_t dove);
    OSErr svuota();   // writes what the buffer holds unwritten
    // Reads up to `quanti` bytes at `dove`; how many came, or -1 with errno set.
    [[nodiscard]] std::int64_t leggiDiretto(char* dati, std::int64_t quanti, std::int64_t dove) const;
    OSErr riempi();   // the buffer, from `pos` on
};

// Opens a regular file or a device; modo as open(2) has it. fnfErr for what would be waited for, and for folders.
OSErr apri(const std::string& percorso, int modo, int& fd);
// For writing all of it anew: beside its place, or on the spot where nothing can be put beside.
OSErr apriPerSostituire(const std::string& percorso, FileAperto& f);
// Writes what is left, and moves a new file to its place.
OSErr chiudi(FileAperto& f);

}   // namespace tessaro
