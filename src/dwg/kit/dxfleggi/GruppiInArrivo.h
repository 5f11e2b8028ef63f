// Groups of a DXF file as they come, ASCII or binary: a code, and a value to be taken as what the code says it is.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "exchange/RigheDxf.h"

namespace tessaro {

class GruppiBinari;

// Reads the open file RefNum from its start. Every group is first asked for, then its value taken once, in any of the
// forms; one that no form fits is 0, an empty text or, of a number, not a number.
class GruppiInArrivo {
public:
    GruppiInArrivo();
    ~GruppiInArrivo();
    GruppiInArrivo(const GruppiInArrivo&) = delete;
    GruppiInArrivo& operator=(const GruppiInArrivo&) = delete;

    bool prossimo();   // the next group's code into `codice`; false at the end of the file, and where it is damaged
    int codice = 0;

    // The value of the group in hand, once.
    double reale();
    std::int64_t intero();
    std::string_view testo();   // bytes of the file, valid until the next call
    void salta();               // when nobody wants it

    [[nodiscard]] bool danneggiato() const { return guasto; }   // a group code was none
    [[nodiscard]] bool fermato() const;                         // the person stopped the reading
    [[nodiscard]] std::int64_t dove() const;                    // line; of a binary file the byte

private:
    bool codiceAscii();

    std::unique_ptr<GruppiBinari> binari;   // null: ASCII
    RigheDxf righe;
    bool guasto = false;
};

}   // namespace tessaro
