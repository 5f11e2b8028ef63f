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
}   // namespace tessaro
