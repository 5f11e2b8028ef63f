// What stands over the drawing: the highlight of the selection, which changes with selection and view, and what follows
// the pointer (cross, rubber band, outline of a move, rubber rectangle). Both are drawn from the state, each onto an
// overlay of the window, and shown xor'd over the drawing. Nothing is drawn a second time to take it off, so no order of
// events leaves any of it behind.
#pragma once

#include <array>
#include <cstdint>

#include "model/Elemento.h"
#include "platform/Types.h"

namespace tessaro {

// The cross, the rubber band of the figure in progress, or both are stale: they are drawn afresh before the window is
// shown next. The names are those of the time when they were drawn here and now.
void Croce();
void Elastico();
void SospendiAz();
// The highlight is stale: the selection, or what is selected, has changed.
void DisegnaSelezione();
void DisegnaRettSel();
// Everything over the drawing is stale: the drawing has been painted anew.
void VeliStantii();

// Draws what is stale, or what stands otherwise than it was drawn. Called before anything is put on the screen.
void AggiornaVeli();
// The view has moved by (dh, dv) pixels since AggiornaVeli last drew, and the drawing with it: the highlight goes along, and
// only what came into the view is drawn.
void ScorriVeli(std::int32_t dh, std::int32_t dv);

// --- what tools show for a while
extern Rect rettangoloElastico;   // rubber rectangle, pixels of the window; empty while there is none
struct
    LatiElastici {   // rubber lines from the fixed points to the cursor, while a vertex or a point of a mesh is dragged
    std::array<puntot, 4> fissi{};
    std::int32_t quanti = 0;
};
extern LatiElastici latiElastici;

// --- the drawing itself, on the current port, in xor
void DipingiEvidenza();    // the selection; in pointer mode 2 also the marks of the move
void DipingiPuntatore();   // all that follows the pointer
// --- and in copy, in coloreEvidenza
void DipingiColore();   // the selection: a band along it and its grips
void DipingiBanda();    // the band alone
// Record i as selected.
void DisegnaLineaSel(std::int32_t i);
void DisegnaPolySel(std::int32_t i);
void DisegnaCerchioSel(std::int32_t i);
void DisegnaArcoSel(std::int32_t i);
void DisegnaTestoSel(std::int32_t i);
void DisPictSel(std::int32_t i);
void DisegnaMeshSelezionata(std::int32_t oggetto);   // oMeshOrigine or oMeshDestinazione

}   // namespace tessaro
