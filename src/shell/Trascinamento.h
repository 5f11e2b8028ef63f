// Files dragged onto the drawing.
#pragma once

#include "platform/Events.h"

namespace tessaro {

// The files of a drop, one after the other, each by its kind: a drawing is merged, a DXF or a point list read, any other
// file taken for a picture and put at the cursor. What cannot be read is told, and the next file has its turn.
void MyReceiveHandler(const EventRecord& e);

}   // namespace tessaro
