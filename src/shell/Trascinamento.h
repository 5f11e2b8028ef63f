// Pictures, drawings and files dragged over the drawing and onto it.
#pragma once

#include "platform/Drags.h"
#include "platform/Events.h"

namespace tessaro {

void InstallDragHandlers();   // a drawing's window opened
void RemoveDragHandlers();    // it closed

// By the first item alone: pictures, texts and a drag of the window's own are taken, files by their kind or their name.
bool IsMyTypeAvailable(const VociTrascinate& voci);
bool MyTrackingHandler(FaseDrag messaggio, const VociTrascinate& voci);

// The items of a drop, one after the other: of each the first flavour that it has settles it. A file is a drawing (merged),
// a DXF or a point list (read), or it is taken for a picture and put at the cursor. What cannot be read is told, and the
// next item has its turn.
void MyReceiveHandler(const EventRecord& e);

}   // namespace tessaro
