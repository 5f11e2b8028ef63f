// Where an export goes: the file request with the name that it offers, and the file's opening and close. What was there
// before is replaced only when all of the new file has been written.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Files.h"

namespace tessaro {

// Asks with string `invito` of list 129 behind `prima`, offers the document's name with `suffisso` (the suffix alone
// while it has none) and opens the answer as RefNum. False, with uscita set: cancelled, or told by IOERR2.
bool ApriScrittura(std::int16_t invito, std::string_view prima, std::string_view suffisso, FSSpec& file);
// The same with a prompt of one's own.
bool ApriTesto(std::string_view invito, std::string_view suffisso);
bool ApriTesto(std::string_view invito, std::string_view suffisso, FSSpec& file);
void ChiudiScrittura();   // drops the new file when uscita is set

}   // namespace tessaro
