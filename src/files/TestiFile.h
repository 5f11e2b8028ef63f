// The words of file work: list 9120, with ^0 and ^1 filled in.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

enum class TestoFile : std::int16_t {
    nonDisegno = 1,
    troncato,          // ^0 elements could be read
    troncatoFusione,   // nothing was added
    troppi,            // ^0 in the file, room for ^1
    risanati,          // ^0 records
    colori,
    mesh,
    senzaSeguito,    // the blocks behind the elements are missing
    immagine,        // ^0 the element whose picture data is damaged
    pieno,           // no room for a single element
    tipoIgnoto,      // a file that is not of the kind asked for
    impostazioni,    // ^0 lines of the start settings that were refused
    scartati,        // ^0 records that are none
    unita,           // the file's unit, scale or sheet cannot be used
    registrazione,   // ^0 why the file's registration cannot be used
    senzaPunti,      // a merge without the points that it goes by
    campi,           // ^0 fields of a settings file that took their defaults
    estensioni,      // what stands behind the told end is cut off or damaged
    fermata,         // ^0 elements could be read before the person stopped it
    avanzaLettura,   // title of the progress
};

std::string TestoDi(TestoFile t, std::string_view p0 = {}, std::string_view p1 = {});   // Mac Roman

}   // namespace tessaro
