// Keeping the drawing on positive coordinates.
#pragma once

namespace tessaro {

void SpostaXY();                                    // the whole drawing onto positive coordinates, after asking
void AggMinMax(const double& x, const double& y);   // widens Xmin, Ymin, Xmax, Ymax; sheet units

}   // namespace tessaro
