// What follows a change of the sheet's control points.
#pragma once

namespace tessaro {

// The similarity in force and the previewed live transformation, made anew: what is wrong is told, and what shows the
// preview is repainted.
void TrasformazioniCambiate();
void AttacchiCambiati();   // the copies of points 1 and 2 first

}   // namespace tessaro
