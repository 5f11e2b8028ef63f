// Failures as messages: numbered errors, file errors, and what went wrong where.
#pragma once

#include <cstdint>
#include <cstdio>
#include <span>
#include <string>

#include "platform/Files.h"
#include "text/FileDati.h"

namespace tessaro {

// String `code` of list 9999 in alert 999.
void ErroreAlert(std::int16_t code);
void ErroreAlert(std::span<const std::int16_t> codes);   // one after the other
// A file error: alert 1006 (-43), 1007 (-35), else 1013 with a string of list 130 or the number itself as ^0. ^1 is the
// file's name (`fileInLavoro`).
void Messaggio(std::int16_t code);

// The message of a field's code; alerts 1009 and 1010 tell the bound that was passed. Sets `uscita`.
void SbaglioCampo(std::int16_t code, const double& min, const double& max);

// A standard stream that failed is closed (and forgotten, if it is `out` or `inst`), its message shown, `uscita` set.
// IOERR3 looks at `out`.
void IOERR3();
void ioerrtext(std::FILE* f);

// Alert 128, the one message of pictures for memory, with how many bytes were asked for and are free. Without `byte`, or
// where there was enough, it says only what it always says: the picture may be empty.
void AvvisoMemoria(std::int64_t byte = 0);

// One failure on its way to the message that shows it or to a loss report.
struct Guasto {
    std::int16_t code = 0;      // a file error, or 0 when it is none
    std::string what;           // Mac Roman, what is wrong
    std::string where;          // the file, the record
    std::int64_t offset = -1;   // byte in the file, -1 when it has none
};
// Alert 9101 with what (else the words of the code), where (else `fileInLavoro`) and the offset's digits as ^0 to ^2.
void MostraGuasto(const Guasto& g);
// Where file work stands, for the messages of IOERR2: the file's name. Empty between jobs.
extern std::string fileInLavoro;

}   // namespace tessaro
