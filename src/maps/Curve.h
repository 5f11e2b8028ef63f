// Circles and arcs as the corners that the formats of maps want, and known again in what is read.
#pragma once

#include <vector>

#include "model/Elemento.h"

namespace tessaro {

// Corners of a circle or arc, from its start clockwise on the sheet, sheet units; the first and last lie on its ends, and
// a circle's last is its first. The sides lie within 0.05 sheet units of the curve, a two-hundredth of a millimetre.
std::vector<puntot> CurvaInPunti(const elemento& e);

struct Cerchio {
    double x = 0, y = 0, r = 0;
};
// The circle through all the corners (sheet units) of a ring or line; false when one lies off it by more than a millionth
// of the radius, or they are fewer than eight.
bool CerchioPer(const std::vector<puntot>& punti, Cerchio& c);
// An arc's start and sweep (degrees, clockwise from straight up) from its corners in either direction.
void ArcoPer(const std::vector<puntot>& punti, const Cerchio& c, double& inizio, double& ampiezza);

}   // namespace tessaro
