// The process's skeleton.
#pragma once
#include "platform/Types.h"
namespace tessaro {
int TessaroMain(int argc, char** argv);
void Initialize();
void CheckEvents();   // one event and one idle step
void SetupLimits();
void ApriPercorso(const char* pathUtf8);   // as the desktop's "odoc" does

extern Rect Screen;     // the desktop, pixels
extern Rect DragRect;   // where a window may be dragged
extern Rect GrowRect;   // how far it may grow

}   // namespace tessaro
