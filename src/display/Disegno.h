// Painting the drawing: the sheet frame, the elements in record order, control points, selection; and the primitives
// that are also the rubber band when the pen is xor.
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Types.h"

namespace tessaro {

void Disegna();
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
void DisPict(std::int32_t index);   // stands in raster/
void faiFoglio();
void DisegnaMesh();
struct Mesh;
void DisegnaRete(const Mesh& m);   // its rows, then its columns, in the pen of the moment
void DisegnaMeshSelezionata(std::int32_t oggetto);
void DisegnaAref();
void DisegnaMarker(std::int16_t forma, std::int32_t h, std::int32_t v);
void DisegnaSelezione();   // xor: a second call removes it
void DisegnaRettSel();
void DisegnaLineaSel(std::int32_t i);
void DisegnaPolySel(std::int32_t i);
void DisegnaCerchioSel(std::int32_t i);
void DisegnaArcoSel(std::int32_t i);
void DisegnaTestoSel(std::int32_t i);
void DisPictSel(std::int32_t i);
void PenSizeLaser(std::int16_t size);
void CommBegin();
void CommEnd();
void PennaAttuale();   // the pen back from the ...Attuale globals and spessore

// Cursor crosses, all xor.
void dis_cursor(const double& x, const double& y);    // 8 pixels, pen 1
void Dis_Cursor2(const double& x, const double& y);   // 4 pixels
void Dis_CursSel(const double& x, const double& y);   // 8 pixels, pen 2
// The cross of the moment: the small one between the two clicks of a move, else the large one, at xcurs, ycurs.
void Croce();
// Toggles the cross and the rubber band of the figure in progress: a second call puts them back.
void SospendiAz();
// Toggles only the rubber band of the figure in progress (segment, circle or arc).
void Elastico();

}   // namespace tessaro
