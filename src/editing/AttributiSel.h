// Pen and area attributes of the selection. One element can be undone, several cannot; a selection without a suitable
// element beeps.
#pragma once

#include <cstdint>

namespace tessaro {

void CambiaColoreSel(std::int16_t colore);     // number in the colour table
void CambiaSpessSel(std::int16_t spessore);    // pixels, 1 to 9
void CambiaRetSel(std::int16_t pattern);       // pen pattern number
void CambiaRetAreaSel(std::int16_t pattern);   // area pattern number, 0 is no fill
// The symbol of markers, CambiaMarkerSel, stands with the dialog that chooses it; texts stand in a file of their own.

}   // namespace tessaro
