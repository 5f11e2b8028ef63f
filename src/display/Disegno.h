// Painting the drawing: the sheet frame, the elements in record order, control points; and the primitives that are also
// the rubber band when the pen is xor.
#pragma once

#include <cstdint>

#include "display/Sovrapposto.h"
#include "model/Elemento.h"
#include "platform/Types.h"

namespace tessaro {

void Disegna();                      // all that is seen, onto the current port within its clip
void DisegnaElementiSelezionati();   // the selected elements alone, as they are, without sheet and marks
// type 1, 6: x1 y1 x2 y2; 2: x y shape; 11: cx cy r; 12: cx cy r start sweep (degrees). Sheet units.
void fai(std::int16_t tipo, const double& a, const double& b, const double& c, const double& d, const double& e);
void faiGen(std::int16_t tipo, const double& a, const double& b, const double& c, const double& d, const double& e);
void FaiPoly(std::int32_t index);
void FaiPolyFill(std::int32_t index, std::uint8_t fill);
void FillCerchio(std::int32_t index, const double& cx, const double& cy, const double& r, const double& a,
                 const double& b);
void FillArco(std::int32_t index, const double& cx, const double& cy, const double& r, const double& inizio,
              const double& ampiezza);
void DisPict(std::int32_t index);
void faiFoglio();
void DisegnaMesh();
struct Mesh;
void DisegnaRete(const Mesh& m);   // its rows, then its columns, in the pen of the moment
void DisegnaMeshSelezionata(std::int32_t oggetto);
void DisegnaAref();
void DisegnaMarker(std::int16_t forma, std::int32_t h, std::int32_t v);
void PenSizeLaser(std::int16_t size);
void CommBegin();
void CommEnd();
// Sets the foreground from the colour table (1-based; outside the table black).
void ColoreDaTabella(std::int16_t numero);
void PennaAttuale();   // the pen back from the ...Attuale globals and spessore

extern double SpessorePenna;        // pen width for a printer, 2.5
extern std::uint8_t DisegnaPict;    // 1 while painting for a printer, a file or the clipboard
extern std::uint8_t StoStampando;   // 1 while printing

// The selected picture as the live transformation's preview shows it, over the drawing. Set by the raster engine at start.
extern void (*anteprimaImmagine)();

}   // namespace tessaro
