// The process's skeleton.
#pragma once

#include <string>
#include <vector>

#include "platform/Types.h"

namespace tessaro {
int TessaroMain(int argc, char** argv);
void Initialize();
void CheckEvents();   // one event and one idle step
void SetupLimits();
void ApriPercorso(const char* pathUtf8);   // as the desktop's "odoc" does
// As the desktop's "pdoc" does: each drawing is opened and printed, with the page format and the printer that are kept or
// are the defaults. False when one was not opened or not printed, which was shown.
bool HandlePDOC(const std::vector<std::string>& percorsi);

extern Rect Screen;     // the desktop, pixels
extern Rect DragRect;   // where a window may be dragged
extern Rect GrowRect;   // how far it may grow

}   // namespace tessaro
