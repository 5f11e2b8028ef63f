// What the room of maps says to people, list 9350.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

enum class FraseMappe : std::int16_t {
    senzaGdal = 1,
    senzaProj,
    invitoScrivi,
    invitoLeggi,
    invitoScriviTiff,
    invitoLeggiRaster,
    avanzaScrittura,
    avanzaLettura,
    nienteDaScrivere,
    nonApre,          // ^0 what the library said
    nonScrive,        // ^0 what the library said
    diversoRiletto,   // ^0 meant, ^1 found
    curveInLati,      // ^0 circles and arcs
    senzaSistema,     // the drawing names none
    formaGenerale,    // what maps do not hold
    attributiPersi,   // ^0 "NAME (12), AREA (12)"
    altriAttributi,   // ^0 how many more
    sistemaPreso,     // ^0 the file's system is now the drawing's
    trasformati,      // ^0 from, ^1 to, ^2 accuracy
    accuratezza,      // ^0 metres
    accuratezzaIgnota,
    sistemaNonTrasf,   // ^0 why
    sistemaIgnoto,     // the file names none
    coordinateComeSono,
    lucidiUniti,   // ^0 layers
    coloriOltre,   // ^0 elements
    fermata,
    interrotta,         // ^0 what the library said
    cartella,           // the folder refuses
    tiffScritto,        // ^0 width, ^1 height, ^2 real size of a pixel
    rasterGrande,       // ^0 pixels
    rasterSenzaPosto,   // no georeference in it
    rasterGirato,
    sistemaNonTrovato,   // ^0 as typed
    sistemaNonReale,     // ^0 a system of heights or the like
    coordGeografiche,
    latLonNord,
    latLonSud,
    latLonEst,
    latLonOvest,
    nessunSistema,
    avanzaProva,
    provaCaduta,
    provaLenta,       // ^0 seconds
    provaGrande,      // ^1 megabytes
    puntiDelRaster,   // ^0 points, ^1 of them left out
};
// With ^0 to ^2 filled in; Mac Roman.
std::string Frase(FraseMappe f, std::string_view p0 = {}, std::string_view p1 = {}, std::string_view p2 = {});

}   // namespace tessaro
