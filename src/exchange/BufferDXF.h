// Groups of a DXF file on their way out: a line with the code, and a line with the value.
#pragma once

#include <cstdint>
#include <string_view>

#include "exchange/BufferRighe.h"

namespace tessaro {

class BufferDXF : public BufferRighe {
public:
    BufferDXF() : BufferRighe(true) {}   // other readers hang on CR alone

    // A whole group.
    void righe2(std::string_view codice, std::string_view valore) {
        riga(codice);
        riga(valore);
    }
    // Fixed notation.
    void reale(std::string_view codice, const double& v, std::int16_t decimali = 13) {
        riga(codice);
        numero(v, 1, decimali);
        fineRiga();
    }
    // Right-aligned to `larghezza`, 0 for none.
    void intero(std::string_view codice, std::int32_t n, std::int16_t larghezza = 0);
    // Groups 10, 20 and 30, or 11, 21 and 31.
    void punto(char indice, const double& x, const double& y, const double& z);
};

}   // namespace tessaro
