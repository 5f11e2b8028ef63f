// Where a step of the journal ends: when the event loop is reached after an event that may have changed the drawing.
#pragma once

#include "platform/Events.h"

namespace tessaro {

void FinePasso(const EventRecord& e, bool campione);   // campione: a sample of the tablet was taken in this round

}   // namespace tessaro
