// The circle or arc that is being drawn: what its centre, radius and angles are after each point. Only numbers; clicks, rubber
// band and storing are Costruzione's.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

extern puntot PuntoCurva1, PuntoCurva2, PuntoCurva3;   // points of a curve, sheet units
extern double AngInizCorrente;                         // start angle, radians

bool StrumentoCurva();     // circle or arc is the tool in use
bool CerchioPerCentro();   // the tool is the circle by centre and radius, done with two points
// The curve as the second point (Xfine, Yfine) leaves it; nothing for other tools.
void CurvaAlSecondoPunto();
// The curve as the third point (PuntoCurva3) leaves it.
void CurvaAlTerzoPunto();
// The curve that the rubber band shows with the pointer at p (sheet units); tipo as FaiElemento's: others change nothing.
void CurvaFinoA(const puntot& p, std::int16_t tipo);
// Can what the third point left be stored? False for points without a circle, and for a radius of zero or beyond numbers.
bool CurvaFattibile();

}   // namespace tessaro
