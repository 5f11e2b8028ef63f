// The two standard streams of the older text formats and their line readers.
#pragma once

#include <cstdint>
#include <cstdio>

#include "text/PascalString.h"

namespace tessaro {

extern std::FILE* inst;   // read from; null when none is open
extern std::FILE* out;    // written to, and read by LeggiRigaC; null when none is open

// At most 255 characters a line; longer ones go on in the next call. Lines that begin with "!" are skipped. Once
// `uscita` is set they give empty lines. The end of the stream sets EndFile.
void LeggiStr(PStr255& s);                      // inst, to CR
void LeggiStr2(PStr255& s);                     // the same
void LeggiRigaC(PStr255& s, std::int32_t& n);   // out, to CR or LF; n counts all lines

}   // namespace tessaro
