// The one road of repaint. A change either asks for a repaint, which the next update event brings, or shows at once.
#pragma once

#include "platform/Types.h"

namespace tessaro {

void InvalWind();       // the whole window at the next update event: sets NewDis
void InvalFinestra();   // its synonym
// The drawing area here and now: cleared, drawn, what stands over it stale. Leaves the window as the current port, with the
// drawing area as its clip.
void Ridisegna();
// The same for a part of it that a scroll has cleared; its highlight goes with the scroll.
void RidisegnaParte(const Region& parte);

}   // namespace tessaro
