// The devices that a tablet's samples come from: the bytes of a serial line, and the desktop's pens. The core asks; what
// is plugged in, cut off or refused is told in numbers, and the core finds the words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tessaro {

struct LineaSeriale {
    std::string porta;              // UTF-8, a device's name or path
    std::int32_t velocita = 9600;   // bits a second
    std::int16_t bit = 8;           // of a word, 5 to 8
    std::int16_t mezziStop = 2;     // stop bits in halves: 2, 3 or 4
    enum class Parita : std::uint8_t { nessuna, dispari, pari } parita = Parita::nessuna;
};

enum class GuastoSeriale : std::int16_t {
    nessuno,
    assente,        // there is no such port
    negata,         // in use by another program, or not for this person
    impostazioni,   // the port cannot do these line settings
    scollegata,     // the cable was pulled out, the device went
    lettura,        // anything else
};

std::vector<std::string> SerialPorts();   // device paths, UTF-8, as the system lists them
// Opens the one line. What arrives wakes WaitNextEvent; what arrives while a dialog or a drag runs is dropped, as a
// pointer's clicks are.
GuastoSeriale SerialOpen(const LineaSeriale& linea);
std::size_t SerialRead(std::uint8_t* data, std::size_t room);   // what has come, at most room bytes; never waits
bool SerialCut();                                               // bytes were dropped since this was last asked
GuastoSeriale SerialFault();                                    // what ended the line since it was opened
void SerialClose();                                             // safe at any time

// Pens of the desktop become records of kind `pen` where `vuole` wants them (a place in the window's content); elsewhere,
// and without `vuole`, they are a mouse.
void PenListen(bool (*vuole)(double h, double v));

}   // namespace tessaro
