// Which characters the bytes of a text file mean. Text inside the program is Mac Roman; files come in three kinds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/PascalString.h"

namespace tessaro {

enum class Codifica : std::uint8_t { ascii, macRoman, cp1252, utf8 };

// Looks through the open file from its present position to its end and puts the position back, behind the mark of
// UTF-8 where one stands. ASCII when there is nothing else, UTF-8 when every byte decodes so; else by line ends and letters: CR alone is Mac Roman, and of
// the others those with more bytes where CP1252 has its accented letters than where Mac Roman has its own are CP1252.
Codifica RiconosciCodifica();
// A line as it was read becomes Mac Roman; characters outside that set become "?". The second gives the line itself
// where it is the same, else what it put into `spazio`, 255 characters at most.
void InMacRoman(PStr255& riga, Codifica codifica);
std::string_view InMacRoman(std::string_view riga, Codifica codifica, std::string& spazio);

}   // namespace tessaro
