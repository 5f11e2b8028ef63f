// The calculator: a modeless dialog whose display also takes the measures of a path.
#pragma once

#include <cstdint>

#include "platform/Dialogs.h"

namespace tessaro {

extern DialogPtr calcDialog;     // null while it is closed; CalcWindow says the same
extern std::uint8_t ModifCalc;   // the factor's field was touched and must be read again

void ApriCalcolatrice();     // the tool becomes the calculator's; an open one comes to the front
void ChiudiCalcolatrice();   // the dialog goes and its menu item loses the tick; the tool stays as it is
void LasciaCalcolatrice();   // the same, and the path is put away: another tool is about to be taken
// The close box: the path ends and the tool is the segment again.
void ChiusaCalcolatrice();
void DealwithDialogs(const EventRecord& event);   // a record of a modeless dialog
void MettiDisplay(const double& value, std::int16_t item);
void ponidisp(const double& value, std::string_view label);   // a value and its name into the display
void IndietroPercorso();   // one point back on the path that is traced, or on the finished one

extern std::int32_t Operazione;   // its pending operation: 0 add 1 subtract 2 multiply 3 divide 4 none

}   // namespace tessaro
