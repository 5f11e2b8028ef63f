// Decimal text to the nearest double, in every locale.
#pragma once

#include <string_view>

namespace tessaro {

// The number that s begins with: sign, digits, point, exponent; nothing else is known. used: the characters it took,
// 0 when there is no number, and then 0. Beyond the range of a double: infinity or 0, with the sign.
double DoubleDaTesto(std::string_view s, std::size_t& used);

}   // namespace tessaro
