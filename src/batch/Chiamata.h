// What a command was called with, how it ends, and what it says when it does not end well.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

// The process's status. 1 and 2 are those of a script.
enum class Esito : std::uint8_t { fatto = 0, nonFatto = 1, nonLetto = 2, uso = 3 };

struct Chiamata {
    std::string comando;
    std::vector<std::string> file;                             // as they were typed
    std::map<std::string, std::string, std::less<>> opzioni;   // name without its dashes; a switch has an empty value
    [[nodiscard]] bool ha(std::string_view nome) const { return opzioni.find(nome) != opzioni.end(); }
    [[nodiscard]] std::string valore(std::string_view nome) const;   // empty when it was not given
};

// Sentences, list 9520, with ^0 and ^1 for what they name.
enum class Frase : std::int16_t {
    opzioneIgnota = 1,   // ^0
    senzaValore,         // ^0 the option
    valore,              // ^0 the option, ^1 what it cannot be
    quantiFile,          // ^0 the command
    nonSiLegge,          // a kind of file
    nonSiScrive,
    assente,   // not there, or not to be read
    stessoFile,
    senzaImmagine,
    rigaPunto,      // ^0 number of the line
    pochiPunti,     // ^0 wanted, ^1 there
    puntiFermi,     // all in one place
    oltreResiduo,   // ^0 the point that fits least, ^1 the limit
    nulla,          // nothing was written
    pieno,          // the drawing
    quadrilatero,   // four points that are none
    dialogo,        // ^0 number of a dialog that nobody can answer
    carta,          // ^0 no paper size
    nomePunto,      // ^0 a name twice
};
std::string Testo(Frase f, std::string_view p0 = {}, std::string_view p1 = {});   // UTF-8

// Says on standard error what is wrong, `dove` (a file, may be empty) before it; with --json an object with `error` on
// standard output too. Gives `e` back.
Esito Rifiuta(const Chiamata& c, Esito e, const std::string& dove, const std::string& perche);

// An option's value as a number between bounds. False, and said, when it is none; untouched when it was not given.
[[nodiscard]] bool Numero(const Chiamata& c, std::string_view nome, double min, double max, double& v);
// One of a list of words; `quale` is its place. As above.
[[nodiscard]] bool Parola(const Chiamata& c, std::string_view nome, const std::vector<std::string_view>& parole,
                          std::size_t& quale);

}   // namespace tessaro
