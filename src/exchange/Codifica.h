// Which characters the bytes of a text file mean. Text inside the program is Mac Roman; files come in three kinds.
#pragma once

#include <cstdint>

#include "text/PascalString.h"

namespace tessaro {

enum class Codifica : std::uint8_t { macRoman, cp1252, utf8 };

// Looks through the open file from its present position to its end and puts the position back, behind the mark of
// UTF-8 where one stands. UTF-8 when every byte decodes so; else by line ends and letters: CR alone is Mac Roman, and of
// the others those with more bytes where CP1252 has its accented letters than where Mac Roman has its own are CP1252.
Codifica RiconosciCodifica();
// A line as it was read becomes Mac Roman; characters outside that set become "?".
void InMacRoman(PStr255& riga, Codifica codifica);

}   // namespace tessaro
