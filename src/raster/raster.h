// The raster engine: pictures resampled through the live transformation, through meshes and against a lens, each stored
// as a new picture at its true place. The working values of a job are globals and mean nothing outside it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/Archivio.h"
#include "model/Elemento.h"
#include "platform/Types.h"

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

// --- sizes and places of a job; boxes on the sheet, tenths of a millimetre
extern double coeffRisoluzione, coeffRisoluzioneSrc;            // pixels per typographic point, of result and source
extern std::int16_t risoluzioneSrc;                             // points per inch of the source, truncated
extern double rapportoDimensione;                               // the larger of the two size ratios of result to source
extern double x1PictBase, y1PictBase, x2PictBase, y2PictBase;   // the whole picture
extern double x1Pict, y1Pict, x2Pict, y2Pict;                   // source part in use
extern double x1PosPict, y1PosPict, x2PosPict, y2PosPict;   // the same, relative to the picture when cut at the source
extern double x1Pict2, y1Pict2, x2Pict2, y2Pict2;           // result
extern double x1Trasf, y1Trasf, x2Trasf, y2Trasf, x3Trasf, y3Trasf, x4Trasf, y4Trasf;   // corners as they are mapped
extern std::int32_t larghBitMap, altBitMap;                                             // result raster, pixels
extern std::uint32_t mapSizeX, mapSizeY;                                                // source raster, pixels
extern Rect rectGW, rectGW2, pictRect,
    destRect;                         // source, result, part of the source walked, result at 72 to the inch
extern std::int16_t numQudrilateri;   // pieces of the whole job, for its progress
// The source is drawn that much denser than the result, so that pixels thrown forward leave no holes.
inline constexpr double densita = 1.8;

// --- rectification, menu 111: 1 by the control points, 2 by the meshes
void TrasformaPictSel(std::int16_t item);
// A picture by the control points with the choices in force, whole (poligono 0) or cut to the polyline with that head: the
// result is a new picture behind the last record. False, with a message shown, when there is none.
bool RettificaPict(const elemento& pict, std::int32_t poligono);
bool ScegliRisoluzione(double& res, std::uint8_t conPoligono);      // dialog 139; false: cancelled, nothing changed
void CalcolaVertici(const elemento& pict, std::int32_t poligono);   // poligono: its head's number, 0 for none
bool PictureToPixMap(PicHandle pict, bool taglio);                  // false: nothing was added
// The picture that the menu commands work on: the selection's last picture and last polyline. 0 for none.
struct Scelti {
    std::int32_t pict = 0, poligono = 0;
};
Scelti PictScelta();
// Sizes that all jobs work out alike from the result's box and the two ratios.
void CalcolaMisure(double ratioX, double ratioY);
void BaseDi(const elemento& pict);   // fills the ...PictBase box
// Whole numbers as the jobs cut them: towards zero; no number is 0, what does not fit the nearest bound.
std::int64_t Troncato(double v);
std::int32_t Troncato32(double v);

// --- what the jobs share
void MisuraRaster(bool alSorgente);   // mapSize, rectGW, rectGW2, pictRect, destRect; cut at the source or not
bool SorgentePossibile();             // the source raster has an area that can be walked
struct Tela;
struct Piano;
Piano PianoDelLavoro(const Tela& risultato);
std::int64_t MemoriaChiesta();   // bytes that the job in hand asks for

// --- optical correction, with the lens in use
bool ScegliRisoluzioneOttica(double& res, std::uint8_t& cancella);   // dialog 156
void CalcolaVerticiCorrezione(const elemento& pict);
bool PictureToPixMapCorrezione(PicHandle pict);

// --- the same results smooth: same boxes, same places
bool RettificaMorbida(PicHandle pict, bool taglio);
bool MeshMorbida(PicHandle pict);
bool CorrezioneMorbida(PicHandle pict);

// --- meshes
void SaveAttachPoints();   // control and destination points, and what was prepared from them
void RestoreAttachPoints();
// Control and destination points and the polygon of cell (r, c), prepared.
void PreparaCella(int r, int c);
bool VerificaMesh();   // errors 34 to 38 of list 9999
void CalcolaVerticiMesh(const elemento& pict);
bool PictureToPixMapMesh(PicHandle pict);

}   // namespace tessaro
