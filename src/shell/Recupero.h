// Recovery: what the journal's steps did to the drawing is appended to a file in the state folder as it happens. A program
// that dies leaves it behind, and the next start offers the drawing; a drawing that is closed or saved takes it away.
#pragma once

#include <cstdint>

namespace tessaro {

// Preferences: whether a recovery file is kept, 1, and after how long a rest what was appended is brought down to the
// disk, seconds, 1.
inline constexpr std::int16_t minimoRecupero = 1, massimoRecupero = 600;
extern std::uint8_t recuperoAttivo;
extern std::int16_t recuperoSecondi;
void PoniRecupero(std::uint8_t attivo);   // switched off the file goes; switched on it begins with the next step

void RicominciaRecupero();   // the drawing is what its file says: nothing to recover until a step is made
void FineRecupero();         // the drawing is closed, or the program ends well
// The loop is about to wait: a fault of the disk is told once; `fermo` (nothing came for a while) brings what was appended
// down to the disk.
void RecuperoARiposo(bool fermo);
bool RecuperoDaScaricare();   // something was appended and not brought down yet
void PreparaRecupero();       // listens to the journal from now on
void OffriRecupero();         // at the start: alert 9103 for each that was left, 1 opens it, 2 discards it

}   // namespace tessaro
