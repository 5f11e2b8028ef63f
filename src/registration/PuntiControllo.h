// The control points of the sheet as they are stored: points 1 to 3 in record 1 and 4 in record 2, where the Z fields are
// not needed for Z, and point 5 in globals of its own. Sheet units.
#pragma once

#include <array>
#include <cstdint>

#include "model/Registrazione.h"
#include "registration/Solutori.h"

namespace tessaro {

void AssegnaAttacco(std::int16_t n, const double& x, const double& y);   // stores point 1 to 5, nothing more
Coppia LeggiAttacco(std::int16_t n);                                     // point 1 to 5
void CopiePunti12();                                                     // XA1, YA1, XA2, YA2 from the records
// After a change of source points: the similarity in force and, while it is previewed, the live transformation. True
// when the preview has changed with them, and the drawing is to be repainted; `errori` is what its preparation
// met.
[[nodiscard]] bool AggiornaTrasformazioni(ErroriIncontrati& errori);
// What is wrong with points 1 to 4 as an error number: 32 two coincide (closer than 0.001 on both axes), 33 they are not
// in the order lower left, upper left, upper right, lower right; 0 nothing. Coincidence alone, or both.
std::int16_t GuastoCoincidenti(const std::array<Coppia, 4>& punti);
std::int16_t GuastoAttacchi(const std::array<Coppia, 4>& punti);

}   // namespace tessaro
