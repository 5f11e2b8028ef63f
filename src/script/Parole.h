// A script's line as words, numbers, places and dialog steps. Every function throws ErroreCopione on what it cannot read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

struct Parola {
    std::string testo;       // UTF-8, quotes and escapes resolved
    bool protetta = false;   // some of it stood in quotes: it is no keyword
};

// Words separated by blanks; a part in double quotes may hold blanks, with \" \\ \n inside. Empty for blank lines and
// for those that begin with #.
std::vector<Parola> Spezza(std::string_view riga);

// Takes `shift`, `option`, `command`, `control` off the line's end; modifier bits of Events.h.
std::uint16_t TogliModificatori(std::vector<Parola>& parole);

// A whole number within the bounds.
std::int32_t Intero(std::string_view s, std::int32_t min = INT32_MIN, std::int32_t max = INT32_MAX);
double Reale(std::string_view s);                 // also nan, inf, -inf
bool LeggiReale(std::string_view s, double& v);   // the same without the throw: false when it is none

// H,V is a pixel of the content; @X,Y a sheet position in tenths of a millimetre.
struct Luogo {
    bool foglio = false;
    double x = 0, y = 0;
};
Luogo LeggiLuogo(std::string_view s);

// One character, or a key's name, as its Mac Roman code.
std::uint8_t LeggiTasto(const std::string& utf8);

struct PassoDialogo {
    enum Tipo : std::uint8_t { testo, valore, clic, tasto, mostra, figura } tipo = clic;
    std::int16_t voce = 0;
    std::int32_t numero = 0;   // valore; tasto: its code
    std::string scritta;       // testo: UTF-8; figura: the path
    std::string origine;       // as it stands in the script
};
PassoDialogo LeggiPasso(const std::string& s);   // one step of `dialog` or `alert`

// Text between double quotes, with \" \\ and \n for line ends.
std::string TraVirgolette(std::string_view utf8);

}   // namespace tessaro
