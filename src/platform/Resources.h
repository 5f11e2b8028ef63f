// Texts that people read, by list and number, in the language in force.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaro {

std::string GetIndString(std::int16_t list, std::int16_t index);   // Mac Roman; empty when there is none
// A file compiled into the program, by its path below resources/; empty when there is none.
std::string ResourceFile(std::string_view path);

// Mac Roman to UTF-8 and back; characters outside the set become '?'. The one place where the two meet.
std::string MacToUtf8(std::string_view macRoman);
std::string Utf8ToMac(std::string_view utf8);

}   // namespace tessaro
