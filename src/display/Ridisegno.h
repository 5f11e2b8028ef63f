// The one road of repaint. A change either asks for a repaint, which the next update event brings, or shows at once.
#pragma once

#include "platform/Types.h"

namespace tessaro {

void InvalWind();       // the whole window at the next update event: sets NewDis
void InvalFinestra();   // its synonym
// The drawing area here and now: cleared, drawn, what stands over it stale. Leaves the window as the current port, with the
// drawing area as its clip.
void Ridisegna();
// After a zoom from the view told by its old scale and origin: of a large drawing the picture that stands there is scaled and
// shown at once, and the repaint asked for gives way to further steps of the wheel.
void AnteprimaZoom(double scalaPrima, std::int32_t origXPrima, std::int32_t origYPrima);
extern std::int32_t sogliaAnteprimaZoom;   // records from which on a drawing is large; 20,000
// The same for a part of it that a scroll has cleared; its highlight goes with the scroll.
void RidisegnaParte(const Region& parte);

}   // namespace tessaro
