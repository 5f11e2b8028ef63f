// The one file in use: the primitives of binary drawings and the line readers of text formats. All stop silently once
// `uscita` is set; faults go through IOERR2.
#pragma once

#include <array>
#include <cstdint>

#include "platform/Files.h"
#include "text/PascalString.h"

namespace tessaro {

extern std::int16_t RefNum;     // the open file
extern std::uint8_t EndFile;    // the end was met
extern std::int16_t numriga;    // lines read by ReadlnDisco; wraps at 16 bits
extern std::uint8_t rigapari;   // false while a line is a group code
extern std::uint8_t LF;         // 10
extern std::uint8_t uscita;     // first fatal fault of file work

// The message of a file error, `uscita` set, arrow cursor; anything outside -1..-523 passes silently.
void IOERR2(OSErr e);
extern void (*mostraErroreFile)(std::int16_t code);   // Messaggio; set by the dialogs at start

// --- binary, big-endian on disk. A read gives 0 once uscita is set.
std::uint8_t leggib();
std::int16_t leggii();
std::int32_t leggiLong();
double leggir();
std::array<std::uint8_t, 10> leggiExtended();                 // raw bytes of an 80-bit extended
long double x80told(const std::array<std::uint8_t, 10>& x);   // infinite and no numbers too; narrowing rounds once
void leggiBlocco(void* data, std::int32_t count);
void scrivib(std::uint8_t v);
void ScriviChar(std::uint8_t& v);
void scrivii(std::int16_t v);
void scriviLong(std::int32_t v);
void scrivir(const double& v);
void scriviBlocco(const void* data, std::int32_t count);
void scriviS(const PStr255& s);       // length byte and characters
void scriviSlong(const PStr255& s);   // 16-bit length, characters when there are any

// --- lines of at most 255 characters; longer ones go on in the next call
void LeggiRiga(PStr255& s, std::int32_t& n);   // "!" lines are skipped, n counts all
void ReadlnDisco(PStr255& s);                  // DXF: parity, padding of group codes
// The line itself, before that treatment: to CR, or to LF unless the byte before it was a CR. charprec is the reader's
// last byte, kept between calls; senzaTab leaves out tabs, and LF inside the line. False: uscita is set, s is empty.
bool RigaDisco(PStr255& s, std::uint8_t& charprec, bool senzaTab);
void AzzeraReadlnDisco();   // numriga 0, rigapari 1, no previous character
bool CercaStr(const PStr255& s);
void Salta(const PStr255& s);
void writeDisco(const PStr255& s);
void writelnDisco(const PStr255& s);   // and one CR

}   // namespace tessaro
