// Looking into the JSON that the program prints: the value at a path, and its comparison with a script's word.
#pragma once

#include <string>
#include <string_view>

namespace tessaro {

// The text of the value that a dotted path names: keys of objects, places of arrays from 0. False when there is none.
// An empty path is the whole.
bool JsonSotto(std::string_view json, std::string_view percorso, std::string_view& valore);

// A quoted value without its quotes and escapes; any other as it stands.
std::string JsonTesto(std::string_view valore);

// Numbers are equal within the tolerance, NaN with NaN; all else as text.
bool JsonUguale(std::string_view valore, std::string_view atteso, double tolleranza);

}   // namespace tessaro
