// Lines of a point list, fast: what LeggiRiga gives, as views into the blocks of the file's buffer.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "text/Conversione.h"
#include "text/Decimale.h"
#include "text/FileABlocchi.h"
#include "text/FileDati.h"

namespace tessaro {

// Reads the file `RefNum` from its present position on and keeps EndFile. A line is cut to 255 characters; LF before any character belongs to the line end before it; lines that begin with "!" are
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
            if (p == limite && !fineRiga(*p)) break;   // a longer one: byte by byte
            qui = p + 1;
            ++n;
            if (*inizio != '!') return {inizio, static_cast<std::size_t>(p - inizio)};
        }
        return rigaLenta(n);
    }

    // The next line when it is just plain numbers, one for each of `campi` (at most four), with tabs between them. Else
    // it is still to be read, and they are as they were.
    bool numeri(std::span<double* const> campi, std::int32_t& n) {
        if (cifreEstese == 0 || uscita != 0) return false;
        while (largo() && *qui == lf) ++qui;
        if (!largo() || campi.empty()) return false;
        std::array<double, 4> letti;
        const char* const limite = qui + massima;
        const char* p = qui;
        for (std::size_t i = 0; i < campi.size(); ++i) {
            p = RealeEsatto(i == 0 ? p : p + 1, limite, letti[i]);
            if (p == nullptr || p == limite) return false;
            if (i + 1 < campi.size() ? *p != tab : !fineRiga(*p)) return false;
        }
        for (std::size_t i = 0; i < campi.size(); ++i) *campi[i] = letti[i];
        qui = p + 1;
        ++n;
        return true;
    }
    [[nodiscard]] bool resta() const;   // there are bytes that no line took

private:
    std::string_view rigaLenta(std::int32_t& n);

    std::array<char, 256> raccolta;   // a line that lies across blocks
};

}   // namespace tessaro
