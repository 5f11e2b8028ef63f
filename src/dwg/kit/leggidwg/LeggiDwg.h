// The DWG reader: a helper process turns the file into a stream of groups, which the reader of DXF files takes.
#pragma once

#include "dwg/kit/OdVersioni.h"

namespace tessaro {

// See OdLettore. eHelperMissing names what to install, eHelperFailed what the helper said or what it took too much of,
// eBadDwgFile is a file that it could make nothing of.
OdError LeggiDwg(OdDbDatabase& db, const FSSpec& file, OdDbHostAppProgressMeter& meter);

}   // namespace tessaro
