// The three classifications of elements: sheet, category, set.
#pragma once

#include <cstdint>

namespace tessaro {

void ParamLucidi();                       // dialog 128: which sheets are shown, and what of them
void PoniLucido();                        // dialog 133: the sheet of the selection
void CambiaLucido(std::int16_t lucido);   // 0 to 99; a beep without selection; no undo

// 1 category, 2 set: dialog 132, for the selection or for new elements.
void PoniCateg_Insieme(std::int16_t quale);
// Stamps the value on the selection, texts excepted; a beep when nothing took it.
void CambiaClass(std::int16_t quale, std::int16_t valore);

}   // namespace tessaro
