// Where a step of the journal ends: when the event loop is reached after an event that may have changed the drawing.
#pragma once

#include "platform/Events.h"

namespace tessaro {

// What a hand or the desktop does. A pointer that moves, a repaint, a wheel or a scroll bar changes what is seen and
// nothing of the drawing: behind them nothing is compared.
[[nodiscard]] bool PuoCambiare(EventKind what);
void FinePasso(const EventRecord& e);

}   // namespace tessaro
