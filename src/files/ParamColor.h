// The settings file of the colour table.
#pragma once

#include "model/Colori.h"

namespace tessaro {

// The table as the file holds it. False, and the table untouched, when the file is missing or not whole.
bool LeggiParamColor(TavolaColori& tavola);
void ScriviParamColor(const TavolaColori& tavola);   // failures show their message

}   // namespace tessaro
