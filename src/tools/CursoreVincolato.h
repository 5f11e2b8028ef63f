// Constraints of the cursor: locked axes, grid, attachment to points, directions parallel or perpendicular to the last
// side, and the elevation of new points.
#pragma once

#include <cstdint>

#include "model/PreferenzeVista.h"

namespace tessaro {

void MettiParallelo();
void MettiPerpendicolare();
void MettiOrizzontale();
void MettiVerticale();
void MettiAttaccoPt();
void MettiAttaccoZ();
void Perpendicolare();   // moves Xfine, Yfine
void Parallelo();
void AttaccaCursore(double& x, double& y, double& z);   // onto the point that CercaAggancio finds
void CambiaAggancio(TipoAggancio tipo);                 // a kind of points attracts, or does no more
void AttaccaGriglia(double& x, double& y);
void PoniZeta();   // dialog 2007
void RaddrizzaSegm(double& x1, double& y1, double& x2, double& y2);
void AttivaGriglia();     // menu 112 item 7: the snap's switch
void SpuntaVincoli();     // ticks of menu 112 from the state
void ModificaGriglia();   // dialog 150

extern std::uint8_t debug;   // copy of the attach-to-points switch

}   // namespace tessaro
