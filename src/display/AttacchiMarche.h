// The marks of the control points: source points in the pen of the moment, destination points of the live
// transformation in blue.
#pragma once

#include <cstdint>
#include <string>

#include "model/Registrazione.h"

namespace tessaro {

// One mark each, at the sheet position of its globals; the fifth with its dot.
void DisAttacco1();
void DisAttacco2();
void DisAttacco3();
void DisAttacco4();
void DisAttacco5();
void DisAttaccoDin(std::int16_t n);   // destination point 1 to 5, in the pen of the moment
void DisAttacchiDin();                // those that the mode uses, in colour 409
// What stands beside the number of a mark, such as the residual while the report is open; Mac Roman, empty for nothing. Set by
// the shell.
extern std::string (*accantoAllaMarca)(std::int16_t n, bool destinazione);
bool AttaccoDato(std::int16_t n);        // has control point 1 to 5 been given?
bool DestinazioneData(std::int16_t n);   // the same for its destination
// The mark of point n (1 to 5) with its number at a sheet position, in the colour of the moment, outlined in white.
void DisMarcaAttacco(std::int16_t n, const double& x, const double& y);
// The black dot that goes with mark 5, at the centre that a solver holds.
void DisCentroAttacco(const Coppia& centro);

}   // namespace tessaro
