// The export to DWG and DXF: the choice of the target and version.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::int16_t tipoFileEsportato;          // 1 DWG, 2 DXF, 3 the program's own DXF; the dialog
extern std::int16_t fileType;                   // 0 DWG, 1 DXF; left alone by target 3
extern std::int16_t outVer;                     // version number of the file, 29 newest to 16 oldest
extern std::int16_t itemDWGDXF, itemVersione;   // radio items that stand selected

// The command: asks for target and version, then writes; a cancel ends it.
void EsportaDWG();
// Dialog 1097; false when it was cancelled.
bool OpzioniEsportazione();

}   // namespace tessaro
