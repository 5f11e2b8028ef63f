// The figure in progress, and the door before whatever stores records of its own or takes another tool.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

// True from the first point of a figure to its last. A path that the calculator measures stores nothing and is none.
bool FiguraInCorso();

// Ends the figure in progress: what is stored of it stays, with its undo; a lone first point or the open stage of a curve
// is given up. Nothing happens without one.
void FineFigura();
extern std::int32_t
    figureConcluse;   // how many it has ended: by this the journal keeps what came behind the door apart

// The door of what stores records of its own: ends the figure in progress, and the undo of what is stored next begins at
// indElem.
void CominciaAggiunta();

// True when a vertex stored now stands behind its own polyline's last one, with room in the head's 16-bit count.
bool VerticeSegue();

// A polyline in progress with at least two sides, whose end is the last record: it can be closed.
bool PuoChiudere();
// Is p (sheet units) on the first point of a polyline that can be closed? Within diffCerca on either axis: a click there closes
// it.
bool SulPrimoPunto(const puntot& p);

// Set by who shows the rubber band: the figure that it stood for is over. Null where nothing is shown.
extern void (*figuraFinita)();

}   // namespace tessaro
