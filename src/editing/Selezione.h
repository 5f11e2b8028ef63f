// Picking: the hit test under a click, the tests by shape, and clearing the selection.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "model/Selezione.h"
#include "platform/Events.h"

namespace tessaro {

// A click in pointer mode 0, `point` in sheet units. The caller has tried the grips of the selection.
void ScegliElemento(const EventRecord& event, const puntot& point);
bool Sellinea(const puntot& p, const double& x1, const double& y1, const double& x2, const double& y2);
bool SelCerchio(const puntot& p, const double& cx, const double& cy, const double& r);
bool SelArco(const puntot& p, const double& cx, const double& cy, const double& r, const double& start,
             const double& sweep);
bool SelPict(const puntot& p, const double& x0, const double& y0, const double& x1, const double& y1);
bool SelTesto(const puntot& p, std::int32_t index);
bool Destra2(const double& a, const double& b, const double& c, const double& d, const double& e, const double& f);
void TogliSelezione();
void NessunaSelezione();
void RifaiRettSel();   // the box from the flagged, shown records

}   // namespace tessaro
