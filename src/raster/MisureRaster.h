// Sizes and places of the raster job in hand, worked out once and read by its steps. They mean nothing outside a job.
// Boxes and corners are on the sheet, tenths of a millimetre, Y down; rasters are counted in their own pixels.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Types.h"

namespace tessaro {

struct Tela;
struct Piano;

// Pixels per typographic point, of the result and of the source as it is drawn for the job; above 0.
extern double coeffRisoluzione, coeffRisoluzioneSrc;
extern std::int16_t risoluzioneSrc;   // points per inch of that source, truncated
extern double rapportoDimensione;     // the larger of the two size ratios of result to source
extern std::int16_t numQudrilateri;   // pieces of the whole job, for its progress; 1 but for meshes

extern double x1PictBase, y1PictBase, x2PictBase, y2PictBase;   // the whole picture
extern double x1Pict, y1Pict, x2Pict, y2Pict;                   // source part in use
extern double x1PosPict, y1PosPict, x2PosPict, y2PosPict;   // the same, relative to the picture when cut at the source
extern double x1Pict2, y1Pict2, x2Pict2, y2Pict2;           // result
extern double x1Trasf, y1Trasf, x2Trasf, y2Trasf, x3Trasf, y3Trasf, x4Trasf, y4Trasf;   // corners as they are mapped

extern std::int32_t larghBitMap, altBitMap;   // result raster, pixels; 0 or less: no result
extern std::uint32_t mapSizeX, mapSizeY;      // source raster, pixels
extern Rect rectGW, rectGW2;                  // source raster, result raster
extern Rect pictRect;                         // part of the source that is walked
extern Rect destRect;                         // result at 72 to the inch

// The source is drawn that much denser than the result, so that pixels thrown forward leave no holes.
inline constexpr double densita = 1.8;

// The result's raster, the larger ratio and the source's density, from the result's box and the two ratios.
void CalcolaMisure(double ratioX, double ratioY);
// Fills the ...PictBase box from a picture element.
void BaseDi(const elemento& pict);
// Fills mapSize and the four rectangles from the boxes; of the whole picture, or of what a cut at the source leaves.
void MisuraRaster(bool alSorgente);
// The source raster has an area that can be walked: no side is 0 or beyond what rectangles hold.
bool SorgentePossibile();
// Where source pixels lie and which result pixel a place belongs to, for a walk into `risultato`.
Piano PianoDelLavoro(const Tela& risultato);
// Bytes that the job asks for: the result and a strip of the source.
std::int64_t MemoriaChiesta();

// Whole numbers as the jobs cut them: towards zero; no number is 0, what does not fit the nearest bound.
std::int64_t Troncato(double v);
std::int32_t Troncato32(double v);

}   // namespace tessaro
