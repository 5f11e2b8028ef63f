// What the buttons of the table of control points do.
#pragma once

#include <cstdint>

namespace tessaro {

// The picture that pixels of control points are counted on: the selected one, else the only one of the drawing; 0 for none.
std::int32_t PictDeiPunti();

void ApriFilePunti();      // rows of a file go behind those that are there
void SalvaFilePunti();     // by the name's suffix
void AbbinaListaPunti();   // real coordinates by name
void PuntiDaMarker();
void ImpostaDaPunti(bool tutta);
void CopieDaPunti();
void TrovaCrociTabella();   // asks for the grid, looks in the picture, fills the table
void RaddrizzaDaPunti();

}   // namespace tessaro
