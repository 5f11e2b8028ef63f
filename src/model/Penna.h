// The pen and what a new element takes from it: colour, patterns, width, marker, classes, elevation, default tags.
// ...Corrente is the user's choice, ...Attuale what the pen holds now (black xor while a rubber band is out).
#pragma once

#include <cstdint>

#include "model/Elemento.h"
#include "platform/Types.h"

namespace tessaro {

extern std::int16_t colorCorrente;                // 1-based colour number, 1; menus
extern std::int16_t colorAttuale;                 // 1; tools, rendering
extern std::int16_t NumPat;                       // pen pattern number, 1; keys and menus
extern Pattern PatCorrente, PatAttuale;           // black
extern std::int16_t NumAreaPat;                   // area pattern number, 0 is no fill; menus
extern Pattern PatAreaCorrente, PatAreaAttuale;   // white
extern std::int16_t spessore;                     // pen size in pixels 1..9, 1; keys and menus
// spessore / 2 toward zero: centres a thick pen; also rendering. One a thread: bands of a repaint are drawn at once.
extern constinit thread_local std::int16_t spess;
extern std::int16_t ModoCorrente, ModoAttuale;            // pen mode, 10
extern std::int16_t markerCorrente;                       // shape 1..6, 1; keys, dialog
extern std::int16_t LineaCorrente;                        // line type, 1; nothing changes it
extern std::int16_t CategoriaCorrente, InsiemeCorrente;   // classes 1..255, 1
extern double ZetaCorrente;                               // elevation of new points, user's unit, 1.0
extern Aref ArefSegmDef, ArefMarkerDef, ArefPolyDef, ArefCerchiDef, ArefArchiDef;   // default tags, empty

}   // namespace tessaro
