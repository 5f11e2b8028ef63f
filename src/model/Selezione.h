// The selection's summary and box. The selection itself is the `selezionato` byte of each record.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

// The state of the selection, whatever command ran last:
//   - attiva: a record is flagged, or a mesh is selected (oggetto 7, 8), and then no record is;
//   - numSel: how many records are flagged, multipla: more than one. An option-click counts a record once more;
//   - a flagged vertex stands under a flagged head;
//   - one thing alone (a polyline with or without its vertices): oggetto and indice name it;
//   - rettSel: the box of the flagged records on shown layers, empty without a selection.
// Commands that change flags or records end with RistabilisciSelezione.

enum ObjetT : std::int32_t {
    oMarker = 0,
    oSegmento = 1,
    oTesto = 2,
    oPoligono = 3,
    oPict = 4,
    oCerchio = 5,
    oArco = 6,
    oMeshOrigine = 7,
    oMeshDestinazione = 8,
};

struct PuntoselT {
    std::uint8_t attiva = 0;     // something is selected
    std::uint8_t multipla = 0;   // more than one: the records' bytes tell which
    std::int32_t numSel = 0;
    std::int32_t oggetto = 0;   // ObjetT of the last selected; Kept: no clearing touches it or indice
    std::int32_t indice = 3;    // record number; of a polyline the head
};
extern PuntoselT Puntosel;
// One element is selected, and it is an element: grids are selected too, and have no record.
bool UnSoloElemento();

// Bounding box in sheet units; empty is minimum 1e99, maximum -1e99.
struct RettSel {
    double xmin = 1e99, ymin = 1e99, xmax = -1e99, ymax = -1e99;
};
extern RettSel rettSel;

// Kept: widens a minimum or else a maximum, never both in one call; extents of a falling run of points depend on it.
void AggRettSel(const double& x, const double& y);
// The corners of a text's box: 0.7 of its height above the base line and 0.3 below, turned by its angle.
void AggRetSelTesto(const elemento& e);
void AzzeraRettSel();
void RifaiRettSel();   // the box from the flagged, shown records
// The kind of thing that a record of that type is, -1 for a vertex and what cannot be selected.
std::int32_t OggettoDi(std::uint8_t tipo);
// Restores the state told above from the flags: summary, name and box. A selected mesh stays, with no record flagged. One
// pass over the records.
void RistabilisciSelezione();
void AzzeraPuntosel();   // attiva, multipla, numSel together

}   // namespace tessaro
