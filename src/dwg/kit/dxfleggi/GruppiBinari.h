// Groups of a binary DXF file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/FileABlocchi.h"

namespace tessaro {

// The 22 bytes with which a binary DXF begins.
inline constexpr std::string_view firmaBinaria{"AutoCAD Binary DXF\r\n\x1A\0", 22};

class GruppiBinari : private FileABlocchi {
public:
    GruppiBinari();          // behind the signature
    bool prossimo(int& c);   // code and value; false at the end, which `guasto` tells from damage

    enum class Tipo : std::uint8_t { testo, reale, intero, niente };
    Tipo tipo = Tipo::niente;
    std::string testo;
    double reale = 0;
    std::int64_t intero = 0;
    bool guasto = false, fermato = false;
    std::int64_t contati = 0;   // bytes taken

private:
    bool byte(std::uint8_t& b);
    bool numero(int byteSuoi, std::uint64_t& v);   // little-endian
    bool fineTesto();
    bool valore(int c);

    std::int64_t dimensione = 0;
    bool codiciLarghi = false;   // of two bytes: from R13 on
    bool primo = true;
};

}   // namespace tessaro
