// The import of a point list as a person asks for it: the file's first lines shown as a table, what parts and names its
// columns guessed from them, and then read.
#pragma once

#include <cstdint>

#include "exchange/FormaElenco.h"

namespace tessaro {

enum class StesuraElenco : std::uint8_t {
    tavola,
    valorePerRiga,
    puntoPerRiga
};   // the last two as TipoForm and DatoP say

struct ScelteElenco {
    StesuraElenco stesura = StesuraElenco::tavola;
    FormaElenco forma;
};
extern ScelteElenco ultimoElenco;   // what was read last; its columns are offered for a file of the same shape

// Behind the layout in "FormParD", once a table was read: 'E', a byte 1, stesura, separa, virgolaDecimale, conTesta, quante, the eight columns.
void ScriviScelteElenco();   // to the open settings file
void LeggiScelteElenco();    // from it; what is missing or out of range leaves ultimoElenco alone

// The reader for the open file: dialog 9431, then the rows. A script that has no answer for the dialog reads the layout that
// is in force.
void ImportaElenco();

// Rows of a table into markers behind the last record, and the report. Rows that have no number where one belongs are left
// out and counted. Number and code become the tag, cut where it is full.
void LeggiElenco(const FormaElenco& forma);

}   // namespace tessaro
