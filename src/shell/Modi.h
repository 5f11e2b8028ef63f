// The pointer's state machine.
#pragma once
#include "model/Elemento.h"
#include "platform/Events.h"
#include <cstdint>
namespace tessaro {
void DoMouseAction(EventRecord& e);
void CercaSelezione(EventRecord& e, puntot& point);
void MyControls();
void CheckMouse(bool shift);
// Begins the second half of a move: the selection hangs at the pointer by the sheet point (x, y), repainted as it is now.
void SpostaDaPunto(double x, double y);
void Do_Tessaro3D();

// Takes pointer mode `modo`. Leaving the move gives up one that waits for its second click.
void CambiaModo(std::int32_t modo);
// Takes a tool that draws, and the digitising mode. Another tool than the one in force ends the figure in progress, and
// the path that the calculator traces is put away.
void PrendiStrumento(std::int32_t operazione);
// How circles and arcs are made from now on: through three points or by centre. A change gives up an open curve.
void PrendiCurve(bool perPunti);

extern std::int16_t attaccoCursor;   // cursor of pointer mode 6

}   // namespace tessaro
