// The open file in the large blocks of its buffer, for readers that walk the bytes themselves.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tessaro {

// Goes on from the file's present position. The file stays the reader's own until it is done: no other file call on it.
class FileABlocchi {
protected:
    FileABlocchi();
    bool altroBlocco();   // false at the end, which EndFile tells, and after a fault, which IOERR2 does
    // Enough bytes lie ahead for any line and what may stand behind it: no look at the block's end is needed.
    [[nodiscard]] bool largo() const { return fine - qui > rigaLarga; }

    static constexpr char cr = 13, lf = 10, tab = 9;
    static constexpr std::ptrdiff_t massima = 255;   // characters of a line; of a longer one the rest is left out
    static constexpr std::ptrdiff_t rigaLarga = massima + 9;
    static bool fineRiga(char c) { return c == cr || c == lf; }

    const char* qui = nullptr;    // next byte of the block in hand
    const char* fine = nullptr;   // behind its last byte
    std::int64_t posizione = 0;   // in the file, of the byte at `fine`
};

}   // namespace tessaro
