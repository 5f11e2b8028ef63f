// The DWG writer.
#pragma once

#include "dwg/kit/OdVersioni.h"

namespace tessaro {

// Writes the whole file; see OdScrittore. What the classes of the export make is written (lines, points, circles, arcs,
// texts, polylines of all three kinds), entities of other classes are left out. eUserBreak when stopped.
OdError ScriviDwg(const OdDbDatabase& db, const OdDbDwgVersion& versione, OdWrFileBuf& file,
                  OdDbHostAppProgressMeter& meter);

}   // namespace tessaro
