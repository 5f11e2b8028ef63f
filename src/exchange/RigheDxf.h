// Lines and numbers of a DXF file, fast: the file is walked in the blocks of its buffer and a line is a view into them.
// A line is what ReadlnDisco gives: its first 255 characters, group codes padded to three.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "text/Conversione.h"
#include "text/Decimale.h"
#include "text/FileABlocchi.h"
#include "text/FileDati.h"

namespace tessaro {

// A group code line as one number: its three characters. Any other length gives 0.
constexpr std::uint32_t CodiceGruppo(std::string_view s) {
    if (s.size() != 3) return 0;
    const auto byte = [s](std::size_t i) { return std::uint32_t{static_cast<std::uint8_t>(s[i])}; };
    return byte(0) << 16 | byte(1) << 8 | byte(2);
}

// Reads the file `RefNum` from its present position on; keeps EndFile, numriga and rigapari as ReadlnDisco does. Silent
// once `uscita` is set: lines are empty then.
class RigheDxf : private FileABlocchi {
public:
    RigheDxf();
    // The next line; valid until the next call.
    std::string_view riga() {
        if (!pronta()) return rigaLenta();
        const char* const inizio = qui;
        const char* const limite = inizio + massima;
        const char* p = inizio;
        while (p != limite && !fineRiga(*p)) ++p;
        conta();
        const auto n = static_cast<std::size_t>(p - inizio);
        if (p == limite && !fineRiga(*p)) return rigaTroppoLunga(inizio);
        oltre(p);
        if (*inizio == tab || (rigapari == 0 && n < 3)) return allineata(inizio, n);
        return {inizio, n};
    }
    // The next line as a group code.
    std::uint32_t codice() {
        if (!pronta()) return CodiceGruppo(rigaLenta());
        const char* const p = qui;
        if (*p == tab || fineRiga(*p) || fineRiga(p[1]) || fineRiga(p[2]) || !fineRiga(p[3]))
            return CodiceGruppo(riga());
        conta();
        oltre(p + 3);
        return CodiceGruppo({p, 3});
    }
    // The next line when it is a plain number; else it is still to be read, and v as it was.
    bool reale(double& v) {
        if (cifreEstese == 0 || !pronta()) return false;
        double letto = 0;
        const char* const limite = qui + massima;
        const char* const p = RealeEsatto(qui, limite, letto);
        if (p == nullptr || p == limite || !fineRiga(*p)) return false;
        v = letto;
        conta();
        oltre(p);
        return true;
    }
    // Reads lines until one equals s. False at the end of the file.
    bool cerca(std::string_view s);
    // To the line behind a group 0 that equals s, or to the end of the file.
    void salta(std::string_view s);
    [[nodiscard]] bool finite() const { return uscita != 0 || EndFile != 0; }   // no line is to be had any more
    [[nodiscard]] std::int64_t lette() const { return contate; }
    [[nodiscard]] bool fermata() const { return fermataDaTastiera; }   // the person stopped the reading: it ends here

private:
    // A whole line, and the byte behind its end, stand in the block; the LF of a line end that came before is passed.
    bool pronta() {
        if (!largo() || uscita != 0) return false;
        if (*qui == lf && prec == cr) {
            ++qui;
            prec = lf;
        }
        return true;
    }
    void conta() {
        ++contate;
        contaRigaDisco();
    }
    // Behind the line end at p; both bytes of a pair at once.
    void oltre(const char* p) {
        if (*p == cr && p[1] == lf) ++p;
        prec = *p;
        qui = p + 1;
    }
    static void contaRigaDisco() {
        numriga = static_cast<std::int16_t>(static_cast<std::uint16_t>(numriga) + 1U);
        rigapari = rigapari == 0 ? 1 : 0;
    }

    bool blocco();   // the next one; false at the end, after a fault, or when the person stops the reading
    std::string_view rigaLenta();
    std::string_view rigaTroppoLunga(const char* inizio);   // its first 255 characters; all of it is passed
    std::string_view allineata(const char* p, std::size_t n);

    std::int64_t dimensione = 0;   // of the file
    std::int64_t contate = 0;
    char prec = 0;   // last byte taken
    bool fermataDaTastiera = false;
    std::array<char, 256> raccolta;   // a line that lies across blocks, or is padded
};

// Equal but for the case of ASCII letters: what the comparison of strings comes to for the words of the format.
bool StessaParola(std::string_view a, std::string_view b);

// STRtoFP for a line of a file. What is no number is told by its alert and sets `uscita`; beyond the range of numbers
// it is 0 or 1e38, and no fault.
bool RealeDaRiga(std::string_view s, double& v);

enum class Intero : std::uint8_t { buono, fuoriLimiti, malformato };
// STRtoINT for a line of a file, silent. v is set when it is good.
Intero InteroDaRiga(std::string_view s, std::int16_t min, std::int16_t max, std::int16_t& v);

}   // namespace tessaro
