// Picking: the hit test under a click, the tests by shape, selection by rectangle and as a whole, and clearing it.
#pragma once

#include <cstdint>

#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "platform/Events.h"

namespace tessaro {

// A click in pointer mode 0, `point` in sheet units. The caller has tried the grips of the selection.
void ScegliElemento(const EventRecord& event, const puntot& point);
// Of all that lies under `point` the next one below what is selected alone (the one above it with `indietro`), round and
// round; the topmost when nothing of it is selected. False when nothing lies there.
bool ScegliSotto(const puntot& point, bool indietro);
// Selects the topmost thing under `point` alone, unless what lies there is selected already. False when nothing lies there.
bool ScegliPerMenu(const puntot& point);
bool Sellinea(const puntot& p, const double& x1, const double& y1, const double& x2, const double& y2);
bool SelCerchio(const puntot& p, const double& cx, const double& cy, const double& r);
bool SelArco(const puntot& p, const double& cx, const double& cy, const double& r, const double& start,
             const double& sweep);
bool SelPict(const puntot& p, const double& x0, const double& y0, const double& x1, const double& y1);
bool SelTesto(const puntot& p, std::int32_t index);
bool SelTesto(const puntot& p, const elemento& e);
bool Destra2(const double& a, const double& b, const double& c, const double& d, const double& e, const double& f);
void TogliSelezione();
void NessunaSelezione();
// Flags what lies inside a pixel rectangle; true when anything lay inside, selected before or not.
bool SelezionaRect(const Rect& rect);
void SelezionaTutto();   // everything shown, vertex records too; Shift keeps what was selected
// Containment in the rectangle xyzLT to xyzRB, sheet units, strict on all sides.
extern puntot xyzLT, xyzRB;
bool PuntoInRect(const double& x, const double& y);
bool SegmentoInRect(const double& x1, const double& y1, const double& x2, const double& y2);
bool PolyInRect(std::int32_t index);
bool CerchioInRect(const double& cx, const double& cy, const double& r);
// The same in pixels.
bool PictInRect(std::int32_t index, const Rect& rect);
bool TestoInRect(std::int32_t index, const Rect& rect);

extern std::uint8_t selezionePrec;   // the last selection was single and TogliSelezione took it off
extern std::uint32_t Tempo;          // ticks of the last digitising click

// Drags the selection out of the window; true when another program took it. Set by the shell at start.
extern bool (*trascinaFuori)();

}   // namespace tessaro
