// The window of the table of control points: modeless, beside the drawing. What is typed in it goes to the table of the
// drawing and is a step of the journal; the window follows the table whoever changes it.
#pragma once

#include "platform/Dialogs.h"

namespace tessaro {

inline constexpr std::int16_t dialogoPunti = 9300;

extern DialogPtr puntiDialog;   // null while it is closed

void ApriPunti();       // an open one comes to the front
void AggiornaPunti();   // shows what has changed; costs next to nothing when nothing did, or when it is closed
void ChiudiPunti();     // the preview goes with it, and the tool of table points is put away
void ColpoPunti(std::int16_t item);   // its items; 0 is the close box
// A click in the drawing with the tool of table points in hand: the row chosen, or the first without a place on the sheet,
// takes the cursor's; else a new row does. On the mark of a point it chooses the row, and drags the point while held.
void PuntoCliccato();

}   // namespace tessaro
