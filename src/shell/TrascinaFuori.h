// The selection dragged to another program.
#pragma once

namespace tessaro {

// Drags a picture of the selection, or of the whole sheet, out of the window while the button is held, as PICT, as PNG and,
// for a file manager, as a PNG file. True when another program took it. What cannot be drawn beeps.
bool MyDoStartDrag();

}   // namespace tessaro
