// What the toolbar's buttons do.
#pragma once

#include <cstdint>

namespace tessaro {

void isButtonToolbarPressed(std::uint32_t indice);   // a button was released inside; 0 to 29
// Pop-ups of the value buttons: the choice goes to the selection, or becomes the current value.
void MenuColori();
void MenuSpessori();
void MenuPatternPenna();
void MenuPatternArea();

void ApriGuida();   // the user guide, from its first page; a beep when it is not installed

}   // namespace tessaro
