// Lines and numbers of a DXF file, fast: the file is walked in the blocks of its buffer and a line is a view into them.
// A line is what ReadlnDisco gives: at most 255 characters, group codes padded to three.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/Types.h"

namespace tessaro {

// Reads the file `RefNum` from its present position on; keeps EndFile, numriga and rigapari as ReadlnDisco does. Silent
// once `uscita` is set: lines are empty then.
class RigheDxf {
public:
    RigheDxf();
    // The next line; valid until the next call.
    std::string_view riga();
    // Reads lines until one equals s. False at the end of the file.
    bool cerca(std::string_view s);
    // To the line behind a group 0 that equals s, or to the end of the file.
    void salta(std::string_view s);
    [[nodiscard]] bool finite() const;   // no line is to be had any more
    [[nodiscard]] std::int64_t lette() const { return contate; }
    [[nodiscard]] bool fermata() const { return fermataDaTastiera; }   // the person stopped the reading: it ends here

private:
    bool altroBlocco();   // false at the end, after a fault, or when the person stops the reading
    std::string_view rigaSpezzata(const char* inizio);
    std::string_view allineata(const char* p, std::size_t n);

    const char* qui = nullptr;     // next byte of the block in hand
    const char* fine = nullptr;    // behind its last byte
    std::int64_t posizione = 0;    // in the file, of the byte at `fine`
    std::int64_t dimensione = 0;   // of the file
    std::int64_t contate = 0;
    std::uint8_t prec = 0;   // last byte taken
    bool fermataDaTastiera = false;
    std::array<char, 256> raccolta;   // a line that lies across blocks, or is padded
};

// A group code line as one number: its three characters. Any other length gives 0.
constexpr std::uint32_t CodiceGruppo(std::string_view s) {
    if (s.size() != 3) return 0;
    const auto byte = [s](std::size_t i) { return std::uint32_t{static_cast<std::uint8_t>(s[i])}; };
    return byte(0) << 16 | byte(1) << 8 | byte(2);
}

// Equal but for the case of ASCII letters: what the comparison of strings comes to for the words of the format.
bool StessaParola(std::string_view a, std::string_view b);

// STRtoFP for a line of a file. What is no number is told by its alert and sets `uscita`; beyond the range of numbers
// it is 0 or 1e38, and no fault.
bool RealeDaRiga(std::string_view s, double& v);

enum class Intero : std::uint8_t { buono, fuoriLimiti, malformato };
// STRtoINT for a line of a file, silent. v is set when it is good.
Intero InteroDaRiga(std::string_view s, std::int16_t min, std::int16_t max, std::int16_t& v);

}   // namespace tessaro
