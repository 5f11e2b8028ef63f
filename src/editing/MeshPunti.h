// The two rectification meshes under the pointer: picked by their lines, edited by their nodes.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Events.h"

namespace tessaro {

// A click on a line of a mesh of at least 2 by 2 nodes selects it, the source mesh before the destination mesh.
bool SelezionaMesh(const EventRecord& event, const puntot& point);
void AggRettSelMesh();   // the selection's box from the nodes of the mesh that Puntosel names
// A click on the selected mesh's nodes: a double click asks for coordinates, else the node is dragged. True when one was
// near; the first by rows, then columns, wins.
bool MuoviNodoMesh(const EventRecord& event, const puntot& point);
// Drags node (riga, colonna) of that mesh, with rubber lines to its neighbours. It stays when the button was held no longer
// than half the double-click time; the undo is armed all the same.
void SpostaPuntoMesh(std::int32_t riga, std::int32_t colonna);

}   // namespace tessaro
