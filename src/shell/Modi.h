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

extern std::int16_t attaccoCursor;   // cursor of pointer mode 6

}   // namespace tessaro
