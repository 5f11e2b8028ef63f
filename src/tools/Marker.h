// One-click elements.
#pragma once
#include <cstdint>
namespace tessaro {
void FaiMarker();                             // at the cursor or the typed point
void DisplayScegliMark();                     // its radio of the current shape
void ScegliMarker();                          // dialog 2005
void CambiaMarkerSel(std::int16_t simbolo);   // the selected markers' shape; no undo
}   // namespace tessaro
