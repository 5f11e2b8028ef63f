// The commands of a script: one line does its work, or leaves steps for the next waits.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessaro {

// One line; `numero` counts from 1. Throws ErroreCopione. False for a line without a command.
bool EseguiRiga(std::string_view riga, std::int32_t numero);
// The next step that an earlier line has left (`item`); false when there is none.
bool EseguiSospeso();

}   // namespace tessaro
