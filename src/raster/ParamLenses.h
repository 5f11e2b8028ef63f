// The settings file of the lens table.
#pragma once

#include "raster/Lenti.h"

namespace tessaro {

// The table as the file holds it. False, and the table untouched, when the file is missing or not whole.
bool LeggiParamLenses(TavolaLenti& tavola);
void ScriviParamLenses(const TavolaLenti& tavola);   // failures show their message

}   // namespace tessaro
