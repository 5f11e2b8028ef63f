// Texts edited: the dialog of a text and its angle, and the menus of font, size and style.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "text/PascalString.h"

namespace tessaro {

// Dialog 131. With `suSelezione` and something selected the selection's texts are edited, else a new text is entered.
void PoniTesti(std::uint8_t suSelezione);
// String and angle of the selected texts. Beeps when there are none. Takes the undo off, as the menus below do.
void CambiaTesti(const PStr255& testo, std::int16_t angolo);

// A text's width and height on the sheet, after a change of what it says or how.
void MisuraTesto(elemento& e);

// Items of menus 100, 101 and 102: the selected texts, or without a selection the current value.
void CheckFontMac(std::int16_t item);
void CheckDimFMac(std::int16_t item);
void CheckStile(std::int16_t item);

// Asks for a size between `minimo` and `massimo` points, dialog 9100, with `proposta` in its field; 0 when it was
// cancelled.
std::int16_t ScegliDimFMac(std::int16_t massimo, std::int16_t minimo, std::int16_t proposta);

}   // namespace tessaro
