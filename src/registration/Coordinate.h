// The chain between sheet coordinates (tenths of a millimetre, Y down) and real ones (the user's unit, Y up), and the
// similarities that a registration or a merge defines.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "model/Registrazione.h"

namespace tessaro {

// out = delta + (rot * (p - (x1, y1)) * ingr + (x1, y1)). Source and result may be the same variables.
void Tracoord(const TransfRec& t, const double& x, const double& y, double& outX, double& outY);
void DigiToReal(const double& x, const double& y, double& outX, double& outY);      // sheet to real
void DigiToRealExt(const double& x, const double& y, double& outX, double& outY);   // the same, for exchange formats
void RealToDigi(const double& X, const double& Y, double& x, double& y);            // real to sheet
// Rebuilds TransfCoord and TransfInvert from records 1 and 2. Coincident points give an infinite ingr, as it stands.
void CalcTransfC();
// Direction of the line, radians, with the 32-bit pi: atan(dy/dx), plus pi when x1 > x2.
double CoordAng(const double& x1, const double& y1, const double& x2, const double& y2);

// Pure rotation, enlargement and shift that takes I1, I2 to B1, B2 (both Y down): the similarity of merges.
void CalcTransfFogli(TransfRec& t, const Coppia& i1, const Coppia& i2, const Coppia& b1, const Coppia& b2);
// Carries a merged element over by the similarity `t` (circles and arcs scale, an arc's start turns), in place.
void TrasformaElemento(elemento& e, const TransfRec& t);

}   // namespace tessaro
