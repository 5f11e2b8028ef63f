// The document and its window: whether one is open, its names, its extent, the run of the program.
#pragma once

#include <cstdint>

#include "platform/Files.h"
#include "platform/Windows.h"
#include "text/PascalString.h"

namespace tessaro {

extern std::uint8_t noWindow;   // 1 when no drawing is open
extern std::uint8_t fine;       // nonzero ends the main loop
extern std::uint8_t inizio;     // 1 during start-up: settings load in silence
extern WindowPtr theWindow;
extern PStr255 NomeD, NomeLavoro;       // file name, window title
extern FSSpec myFSS;                    // the document's file
extern std::int16_t theItem;            // last menu item; request code of archivia
extern double Xmin, Ymin, Xmax, Ymax;   // extent, sheet units

}   // namespace tessaro
