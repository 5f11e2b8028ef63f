// Pictures that lie still: while they are locked, no click, rectangle or Select All takes one.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::uint8_t immaginiBloccate;   // 0 at the start of each drawing; Edit > Lock Pictures shows it

void CambiaBloccoImmagini();   // the command: locks them, and lets go of those that are selected; or unlocks them
// A scan has come in: it will be locked when the first drawing tool is taken, so that until then it can be picked, scaled and
// turned.
void ScansioneArrivata();
void ScansioneInUso();         // a drawing tool has been taken: locks what ScansioneArrivata announced
void AzzeraBloccoImmagini();   // a new drawing

}   // namespace tessaro
