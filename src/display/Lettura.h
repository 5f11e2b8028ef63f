// The coordinate read-out at the foot of the view.
#pragma once
#include "platform/Types.h"
#include "text/PascalString.h"
namespace tessaro {
void SetDrawCoordCorr();   // computes and draws, when something changed or scriviSempreCoord is set
// In the selecting mode the cursor rests: the read-out shows the pointer's place instead, while it is over the view.
void LeggiPuntatore(Point p);
void RidisegnaLettura();          // the line as last shown, again; nothing before the first
extern PStr255 lineaCoordinate;   // the line as last shown

extern std::uint8_t scriviSempreCoord;                 // draw the read-out even when nothing changed
extern double XVisualPrec, YVisualPrec, ZVisualPrec;   // what the read-out last showed

}   // namespace tessaro
