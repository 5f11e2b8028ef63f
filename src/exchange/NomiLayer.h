// What the layers are called in files of other programs.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "model/NomiLucidi.h"

namespace tessaro {

// Mac Roman, by layer: its name, with '_' for the characters that names of other programs must not hold; one without a name
// is `prefisso` and its number. No two are the same, case aside: of those that would be, the higher layer gets its number
// behind the name.
std::array<std::string, quantiLucidi> NomiLayer(std::string_view prefisso);

}   // namespace tessaro
