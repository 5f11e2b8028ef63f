// What digitisers send over a serial line, and how it is told apart from noise. Three formats cover the large digitisers
// of the past forty years, natively or as the emulation that most of them offer:
//
// Comma-separated text. X and Y as decimal counts without a sign, the same number of digits in both (4 to 6, by size and
// resolution of the digitiser), a comma, then one character for the button; CR, LF or both end the line, and blanks may
// stand before the button:
//     12345,06789,1 CR LF        x 12345, y 6789, button 1
// The button is the character's distance from '0': '0' none, '1' to '9' buttons 1 to 9, ':' to '?' buttons 10 to 15.
//
// Fixed-width text. The same without commas: X and Y of 4 to 6 digits each, with or without one blank between them, then,
// where the digitiser is set to send it, the button's character (behind a blank or not) and the line end:
//     12345 06789 1 CR LF        1234506789 CR LF
//
// Binary, six bytes. Bit 7 is set in the first byte of a packet and in no other, which is how a reader finds its place:
//     byte 1   1  B4 B3 B2 B1 B0 X15 X14      B: button, 0 none
//     byte 2   0  X13 ... X7
//     byte 3   0  X6 ... X0
//     byte 4   0  P  0  0  0  0  Y15 Y14      P: the cursor is out of reach, the position is stale
//     byte 5   0  Y13 ... Y7
//     byte 6   0  Y6 ... Y0
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tessaro {

struct Campione {
    std::int32_t x = 0, y = 0;   // counts, Y up, never negative
    std::int16_t bottone = 0;    // 0 none
};

enum class FormatoPacchetti : std::int16_t { virgole = 1, larghezzaFissa = 2, binario = 3 };

// One line of text, without its end; false when it is not a whole packet: a field is missing, has other characters than
// digits or another number of digits than its fellow.
bool LeggiVirgole(std::string_view riga, Campione& c);
bool LeggiLarghezzaFissa(std::string_view riga, Campione& c);

// Finds packets in a stream of bytes. Whatever is not a whole packet is dropped, and the next whole one is found.
class DecodificaTavoletta {
public:
    explicit DecodificaTavoletta(FormatoPacchetti f) : formato(f) {}
    // Takes one byte; true when it ends a packet, which then is in `c`.
    bool prendi(std::uint8_t byte, Campione& c);
    void azzera();   // what came before has nothing to do with what comes: a packet under way is forgotten

private:
    bool prendiTesto(std::uint8_t byte, Campione& c);
    bool prendiBinario(std::uint8_t byte, Campione& c);

    FormatoPacchetti formato;
    std::array<std::uint8_t, 24> raccolti{};   // of the line or packet under way; none is longer
    std::size_t quanti = 0;
    bool traboccato = false;   // the line is longer than any packet: dropped up to its end
};

// A digitiser that streams repeats a button as long as it is held; each press must act once.
class PressioneTasti {
public:
    // The button to act on, 0 while it is only held on. In point mode nothing is sent between two presses, so the same
    // button after a pause is a new press.
    std::int16_t premuto(std::int16_t bottone, std::uint32_t ticks);
    void azzera() { tenuto = 0; }

private:
    std::int16_t tenuto = 0;
    std::uint32_t ultimo = 0;   // ticks of the last sample
};

}   // namespace tessaro
