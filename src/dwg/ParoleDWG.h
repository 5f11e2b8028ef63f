// What the bridge says to people, list 9153.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

enum class ParolaDWG : std::int16_t {
    salvaDWG = 1,
    salvaDXF,
    diverse,   // entities: ^0 meant, ^1 found
    entita,    // entity ^0 differs in ^1
    strato,    // the layer
    colore,
    linea,
    spessore,
    geometria,
    classe,
    scritta,
    avanzaLettura,
    senzaImmagine,   // a dimension whose block is not in the file
    coloriOltre,     // ^0 entities whose colour found no place in the table
    troppiInserti,   // they come to more than the drawing can hold
    pianiUniti,      // the elements of ^0 layers share sheets
};
std::string Parola(ParolaDWG p, std::string_view p0 = {}, std::string_view p1 = {});

}   // namespace tessaro
