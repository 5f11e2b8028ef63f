// Where the parts of the drawing's window lie: the palette on the left, the toolbar on top, the coordinate line and the
// operation now running at the foot, the scroll bars. Pixels, window-local, Y down.
#pragma once

#include <array>
#include <cstdint>

#include "platform/Types.h"

namespace tessaro {

extern std::int16_t hToolbar;   // height of the toolbar's strip, 32

inline constexpr std::int32_t latoCella = 32;          // a cell of the palette, and so the width of its strip
inline constexpr std::int32_t barraScorrimento = 15;   // what a scroll bar takes off the view
inline constexpr std::int32_t fineOperazione = 148;    // the operation at the foot ends, and the coordinate line begins
inline constexpr std::int32_t fineRiga = 390;          // the coordinate line ends, and the scroll bar begins

// Cells of the palette from the top down. Their order is that of the help list 1102, whose entry is the cell plus 1.
enum CellaPalette : std::uint8_t {
    cellaFreccia,
    cellaDigita,
    cellaMuovi,
    cellaLucido,   // upper half next, lower half previous
    cellaSegmento,
    cellaPolilinea,
    cellaCerchio,
    cellaArco,
    cellaTesto,
    cellaMarker,
    cellaCalcolatrice,
    cellaImmagineAttacchi,
    cellaImmagineMesh,
    numCelle,   // also: no cell
};
inline constexpr std::int32_t fondoCelle = numCelle * latoCella;

CellaPalette CellaSotto(Point p);               // numCelle outside
Rect RettangoloCella(CellaPalette c);           // for numCelle the place below the last
std::int32_t IconaCella(CellaPalette c);        // as it stands: circle and arc have another with CurvePerPunti
std::int32_t IconaAccesa(std::int32_t icona);   // its lit form
bool CellaAccesa(CellaPalette c);               // by mode and tool in force
// Why the cell cannot act now: string of list 9433, 0 when it can.
std::int16_t PercheSpenta(CellaPalette c);
// Which half of cellaLucido: 1 upper, -1 lower, 0 the pixel between them.
std::int32_t MetaLucido(Point p);
inline constexpr Rect numeroNelLucido{106, 7, 117, 23};   // where the current sheet's number stands

// The foot of the window. They follow its height, and are empty without a window.
Rect RigaCoordinate();
Rect RigaOperazione();
// Kept: a click counts one pixel above and one to the right of what the line shows.
bool NellaRigaCoordinate(Point p);

}   // namespace tessaro
