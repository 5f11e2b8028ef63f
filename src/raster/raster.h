// The raster engine's first door: what the person chooses, and the rectification of a picture through the live
// transformation. Every job stores its result as a new picture at its true place; the source stays.
#pragma once

#include <cstdint>

#include "model/Archivio.h"
#include "model/Elemento.h"
#include "raster/MisureRaster.h"

namespace tessaro {

// --- what the person chooses, kept between uses
extern double risoluzione;                     // of the result, points per inch, 49 to 999; 150
extern std::int16_t tipoPitc;                  // transfer of the stored pixels: 1 copy, 2 or, 3 transparent
extern std::int16_t tipoTaglio;                // with a polyline: 1 cut at the source, 2 at the destination
extern std::int16_t tipoTrasformazione;        // 1 plain, 2 perspective; 2
extern std::int16_t numeroColori, bitColore;   // depth selector 1, 2, 3, and its 8, 16, 32 bits; 3
extern std::uint8_t morbida;                   // smooth: results are asked back and interpolated; 0
extern std::uint8_t conLenteRettifica;         // a smooth rectification undoes the lens in use in the same pass; 0
inline std::int16_t BitDi(std::int16_t selettore) { return selettore == 1 ? 8 : selettore == 2 ? 16 : 32; }

// The command, menu 111: 1 by the control points, 2 by the meshes. What it needs and has not is beeped or said.
void TrasformaPictSel(std::int16_t item);
class MappaFoglio;
// The same for the mapping by many points: the selected picture, with the same dialog. The mapping is laid out on a grid.
void TrasformaPictMolti(MappaFoglio& molti);
// A picture by the control points with the choices in force, whole (poligono 0) or cut to the polyline with that head: the
// result is a new picture behind the last record. False, with a message shown, when there is none.
bool RettificaPict(const elemento& pict, std::int32_t poligono);
// The same by many points.
bool RettificaPictMolti(const elemento& pict, std::int32_t poligono, MappaFoglio& molti);
// Dialog 139; `conPoligono`: a cut can be chosen. False: cancelled, nothing changed.
bool ScegliRisoluzione(double& res, std::uint8_t conPoligono);
// Boxes and sizes of a picture through the live transformation; `poligono`: the head of what cuts it, 0 for none.
void CalcolaVertici(const elemento& pict, std::int32_t poligono);
// The job over them; `taglio`: cut as tipoTaglio says. False: nothing was added, which was said where memory lacked.
bool PictureToPixMap(PicHandle pict, bool taglio);
bool RettificaMorbida(PicHandle pict, bool taglio);   // the same smooth: same boxes, same places

// The picture that the menu commands work on: the selection's last picture and last polyline. 0 for none.
struct Scelti {
    std::int32_t pict = 0, poligono = 0;
};
Scelti PictScelta();

}   // namespace tessaro
