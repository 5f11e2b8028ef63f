// Keys that a person presses while something runs.
#pragma once

#include "platform/Automation.h"

namespace prova {

inline void premiEsc() {
    tessaro::EventRecord e;
    e.what = tessaro::EventKind::keyDown;
    e.message = 27;
    tessaro::AutoPost(e);
}

}   // namespace prova
