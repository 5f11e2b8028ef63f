// What the title of the drawing's window shows beside its name.
#pragma once

#include "platform/Windows.h"

namespace tessaro {

// In the desktop's way: the drawing differs from its file.
void SetWindowModified(WindowPtr w, bool modified);

}   // namespace tessaro
