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
void Do_Tessaro3D();
}   // namespace tessaro
