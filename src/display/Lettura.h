// The coordinate read-out at the foot of the view.
#pragma once
#include "text/PascalString.h"
namespace tessaro {
void SetDrawCoordCorr();          // computes and draws, when something changed or scriviSempreCoord is set
void RidisegnaLettura();          // the line as last shown, again; nothing before the first
extern PStr255 lineaCoordinate;   // the line as last shown
}   // namespace tessaro
