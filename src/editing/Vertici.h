// Grips of the selected thing: a click near a vertex or on a curve edits it instead of selecting.
#pragma once

#include <cstdint>
#include <span>

#include "model/Elemento.h"
#include "platform/Events.h"

namespace tessaro {

// A click in pointer mode 0, `point` in sheet units, on the thing that Puntosel names, selected still or not. True when
// the click was an edit and ends here.
bool MuoviPunto(const EventRecord& event, const puntot& point);
// On a double click asks for new coordinates; false when the click is none.
bool ModificaC(const EventRecord& event, double& x, double& y, double& z);
// Drag a point while the button is held, with a rubber line to one fixed end or to two neighbours or to any. The point stays when
// the button was held no longer than half the double-click time. Sheet units.
void SpostaLinea(const double& fixedX, const double& fixedY, double& movedX, double& movedY);
void TrascinaPunto(std::span<const puntot> neighbours, double& movedX, double& movedY);
void SpostaVertice(const double& prevX, const double& prevY, const double& nextX, const double& nextY, double& movedX,
                   double& movedY);

}   // namespace tessaro
