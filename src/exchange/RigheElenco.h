// Lines of a point list, fast: what LeggiRiga gives, as views into the blocks of the file's buffer.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "text/FileABlocchi.h"
#include "text/FileDati.h"

namespace tessaro {

// Reads the file `RefNum` from its present position on and keeps EndFile. At most 255 characters a line, a longer one
// goes on in the next; LF before any character belongs to the line end before it; lines that begin with "!" are
// skipped. Silent once `uscita` is set: lines are empty then.
class RigheElenco : private FileABlocchi {
public:
    // The next line, valid until the next call; n counts those skipped too.
    std::string_view riga(std::int32_t& n) {
        while (largo() && uscita == 0) {
            if (*qui == lf) {
                ++qui;
                continue;
            }
            const char* const inizio = qui;
            const char* const limite = inizio + massima;
            const char* p = inizio;
            while (p != limite && !fineRiga(*p)) ++p;
            qui = p == limite ? p : p + 1;
            ++n;
            if (*inizio != '!') return {inizio, static_cast<std::size_t>(p - inizio)};
        }
        return rigaLenta(n);
    }

    [[nodiscard]] bool resta() const;   // there are bytes that no line took

private:
    std::string_view rigaLenta(std::int32_t& n);

    std::array<char, 256> raccolta;   // a line that lies across blocks
};

}   // namespace tessaro
