// The texts of a script's faults: entries of a string list, with ^0 and ^1 for what they name.
#pragma once

#include <cstdint>
#include <string>

namespace tessaro {

inline constexpr std::int16_t listaCopione = 9110;

enum class Avviso : std::int16_t {
    opzioneIgnota = 1,     // ^0 is no option
    opzioneSenzaValore,    // option ^0 wants a value
    opzioneValore,         // option ^0 cannot be ^1
    copioneIlleggibile,    // the script ^0 cannot be read
    virgolette,            // a quote is not closed
    barra,                 // \^0 is no escape
    comandoIgnoto,         // ^0 is no command
    parole,                // wrong number of words behind ^0
    numero,                // ^0 is no number
    luogo,                 // ^0 is no place
    tasto,                 // ^0 is no key
    passo,                 // ^0 is no step of a dialog
    nonCostruito,          // ^0 is not built
    vocesenzaEffetto,      // menu ^0 item ^1 does not exist or is disabled
    menuIgnoto,            // there is no menu ^0
    nomeIgnoto,            // there is no global named ^0
    recordIgnoto,          // there is no record ^0
    diverso,               // ^0, expected ^1
    dialogoInatteso,       // dialog ^0 opened and no answer waits for it
    dialogoDiverso,        // dialog ^0 opened, the answer is for ^1
    dialogoAperto,         // dialog ^0 is still open behind its last step
    dialogoPassiRimasti,   // dialog ^0 closed with steps left
    dialogoVoce,           // dialog ^0 cannot do the step ^1
    dialogoAssente,        // dialog ^0 is not open
    avvisoDiverso,         // alert ^0 opened, the answer is for ^1
    fileInatteso,          // a file is asked for and no answer waits for it
    popupInatteso,         // a pop-up menu opened and no answer waits for it
    coloreInatteso,        // a colour is asked for and no answer waits for it
    rispostaRimasta,       // this answer was left over
    fineAnnidata,          // the script ended inside a nested loop
    fineAnticipata,        // the program ended before this line
    figura,                // the picture ^0 cannot be written
    disegnoAssente,        // no drawing is open
    stampaInattesa,        // the print dialog opened and no answer waits for it
    cartaInattesa,         // the page set-up opened and no answer waits for it
    senzaDisegno,          // option ^0 wants a drawing to print
    unSoloDisegno,         // option ^0 prints one drawing
};

std::string TestoAvviso(Avviso quale, const std::string& p0 = {}, const std::string& p1 = {});   // UTF-8

// A fault of the script or of what it drives; ends the run with this status.
struct ErroreCopione {
    int stato = 1;
    std::string testo;
};
[[noreturn]] void sbaglia(Avviso quale, const std::string& p0 = {}, const std::string& p1 = {});

}   // namespace tessaro
