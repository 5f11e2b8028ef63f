// The live transformation's preview of the selected picture.
#pragma once

namespace tessaro {

// Lays the picture over the current raster port, where the transformation would take it; nothing without a preview, a
// selected picture or pixels to draw on.
void DisegnaAnteprimaPict();

}   // namespace tessaro
