// What all line readers share: where a line ends, what is left out of it, and the cut at 255 characters. A reader feeds
// it bytes one at a time from whatever source it has.
#pragma once

#include <cstdint>

#include "text/PascalString.h"

namespace tessaro {

enum class FineRiga : std::uint8_t {
    cr,            // CR alone; LF is a character
    crOLf,         // CR, or LF; an LF before any character belongs to the line end before it
    crOLfDopoCr,   // CR, or LF unless the byte before it was CR
};

// Collects one line into a string of 255 characters.
class RaccoltaRiga {
public:
    RaccoltaRiga(PStr255& s, FineRiga fine, std::uint8_t precedente = 0, bool senzaTab = false)
        : p(s.Lengthp()), regola(fine), prec(precedente), senzaTabELf(senzaTab) {
        p[0] = 0;
    }
    // True when the line is complete; the byte has been taken.
    bool prendi(std::uint8_t c);
    // From a file a line is a line: what follows its 255th character is read and left out.
    void taglia() { spezza = false; }
    [[nodiscard]] std::uint8_t ultimo() const { return prec; }
    [[nodiscard]] bool iniziata() const { return presi; }

private:
    [[nodiscard]] bool finisceCon(std::uint8_t c) const;
    [[nodiscard]] bool daTralasciare(std::uint8_t c) const;

    unsigned char* p;
    FineRiga regola;
    std::uint8_t prec;
    bool senzaTabELf;
    bool spezza = true;   // the 255th character ends the line: the rest is the next one's
    bool presi = false;   // a byte of the line came, or its end: not just the LF of the line before
};

}   // namespace tessaro
