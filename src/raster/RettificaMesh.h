// Rectification by the two meshes: each cell of the source mesh goes to its cell of the destination mesh.
#pragma once

#include "model/Archivio.h"
#include "model/Elemento.h"

namespace tessaro {

// Control and destination points and what was prepared from them, put aside for the walk of the cells and back again.
void SaveAttachPoints();
void RestoreAttachPoints();
// The cell of row r and column c, from 0: its corners as control and destination points, prepared, and as the cut polygon.
void PreparaCella(int r, int c);
// Both meshes are there, as large as each other and with an extent; else one of the errors 34 to 38 of list 9999 is shown.
bool VerificaMesh();
void CalcolaVerticiMesh(const elemento& pict);   // boxes and sizes
bool PictureToPixMapMesh(PicHandle pict);        // the job; false: nothing was added
bool MeshMorbida(PicHandle pict);                // the same smooth: same boxes, same places

}   // namespace tessaro
