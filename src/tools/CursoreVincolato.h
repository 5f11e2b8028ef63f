// Constraints of the cursor: locked axes, grid, attachment to points, directions parallel or perpendicular to the last
// side, and the elevation of new points.
#pragma once

#include <cstdint>

#include "model/PreferenzeVista.h"

namespace tessaro {

// The switches of menu 112, each with its tick; those that exclude one another turn the other off.
void MettiParallelo();
void MettiPerpendicolare();
void MettiOrizzontale();
void MettiVerticale();
void MettiAttaccoPt();
void MettiAttaccoZ();
void Perpendicolare();                                  // moves Xfine, Yfine
void Parallelo();                                       // the same, along the last side
void AttaccaCursore(double& x, double& y, double& z);   // onto the point that CercaAggancio finds
void CambiaAggancio(TipoAggancio tipo);                 // a kind of points attracts, or does no more
void AttaccaGriglia(double& x, double& y);   // to the nearest crossing of the grid; the raw place is kept for attaching
void PoniZeta();                             // dialog 2007
// Orders the ends: left to right, of an upright one by ascending y.
void RaddrizzaSegm(double& x1, double& y1, double& x2, double& y2);
void AttivaGriglia();     // menu 112 item 7: the snap's switch
void SpuntaVincoli();     // ticks of menu 112 from the state
void ModificaGriglia();   // dialog 150

extern std::uint8_t debug;   // copy of the attach-to-points switch

}   // namespace tessaro
