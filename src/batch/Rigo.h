// What a command prints: named values, as one JSON object a line or as lines of `name: value`. Both are the same in every
// language and locale; units stand in the names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "batch/Chiamata.h"

namespace tessaro {

class Rigo {
public:
    explicit Rigo(const Chiamata& c) : json(c.ha("json")) {}
    // One value under its name, which tells its unit; values keep the order of the calls.
    Rigo& testo(std::string_view nome, std::string_view utf8);
    // JSON has the shortest digits that read back, and null for what is not finite; a line has twelve digits.
    Rigo& numero(std::string_view nome, double v);
    Rigo& intero(std::string_view nome, std::int64_t v);
    Rigo& vero(std::string_view nome, bool v);
    Rigo& elenco(std::string_view nome, const std::vector<std::string>& utf8);   // left out when it is empty
    void stampa() const;                                                         // the values below each other
    void stampaRiga() const;                                                     // side by side, for rows of a table

private:
    struct Valore {
        std::string nome, json, scritto;
    };
    bool json;
    std::vector<Valore> valori;
};

// Takes standard output for the commands' own lines; what else would be printed there goes nowhere. Once, before all.
void PrendiUscita();
void ChiudiUscita();

// `v` at most so many decimals, without zeros behind them.
std::string Decimali(double v, int decimali);
// The suffix of names for the unit in force: "_m", "_mm2" and so on; "_u" for the free unit.
std::string Unita(int potenza = 1);

}   // namespace tessaro
