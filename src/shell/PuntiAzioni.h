// What the buttons of the table of control points do.
#pragma once

#include <cstdint>

namespace tessaro {

// The picture that pixels of control points are counted on: the selected one, else the only one of the drawing; 0 for none.
std::int32_t PictDeiPunti();

// Each of these asks for what it needs and tells what goes wrong; a cancelled request changes nothing.
void ApriFilePunti();              // rows of a file go behind those that are there
void SalvaFilePunti();             // by the name's suffix: .csv a list, else the .points of QGIS
void AbbinaListaPunti();           // real coordinates by name
void PuntiDaMarker();              // sheet places from the markers of a layer that is asked for
void ImpostaDaPunti(bool tutta);   // scale and real coordinates; the read-out by the whole mapping or its similarity
void CopieDaPunti();               // of the selection, through the mapping
void TrovaCrociTabella();          // asks for the grid, looks in the picture, fills the table
void RaddrizzaDaPunti();           // the selected picture, through the mapping

// The press on a point's mark in the drawing: the point follows the pointer while it is held, `mostra` is called at each of
// its places; Escape puts it back. Its row, from 1; 0 where there is no mark.
std::size_t TrascinaPuntoTabella(void (*mostra)());

}   // namespace tessaro
