// The native drawing file: one big-endian stream, versions 0 to 12 read, 12 and 9 written.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Files.h"

namespace tessaro {

inline constexpr OSType tipoTS3D = tipoDi("TS3D"), tipoTSTD = tipoDi("TSTD"), creatoreTSC3 = tipoDi("TSC3");
extern OSType fType;   // type code of the next file created

extern void (*apriDisegno)();   // SetUpWindow, for a reading without a drawing; set by the shell at start
void leggidati();               // the open file into the drawing, or merged into it
void Scrividati();              // the drawing into the open file; ends the undo on offer
inline constexpr std::int16_t versioneNativa = 12;
void ScriviDisegno(std::int16_t versione);   // its bytes, nothing else
void TrasformaElemNtoB(elemento& e);         // native to disk order, in place
void TrasformaElemBtoN(elemento& e);         // disk to native; clears a picture's handle

// Did the last reading bring all that its file holds? Without, the drawing is no longer that file's.
extern bool lettoIntero;

}   // namespace tessaro
