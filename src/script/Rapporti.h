// What a script can ask to see, as JSON: records of the drawing, and the named globals.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessaro {

// Record n with `n`, `tipo` and the fields of its type by their own names. n is 1 to maxElementi.
std::string RecordJson(std::int32_t n);

// A global of the reset table, or readout, title, cursor, ticks; empty when there is none of that name.
std::string GlobaleJson(const std::string& nome);
// One object of the named ones; of all, by name, when none is named. A name that does not exist throws ErroreCopione.
std::string StatoJson(const std::vector<std::string>& nomi);
// The value at NAME, NAME.field or rec.N.field; throws ErroreCopione when there is none.
std::string ValoreDi(const std::string& percorso);

}   // namespace tessaro
