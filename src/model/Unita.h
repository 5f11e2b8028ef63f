// Units, angles, sheet and tablet sizes, and the scales that join them.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::int32_t gradCorrente;         // TipoGrad, 0 centesimal
extern std::int32_t orientCorrente;       // TipoOrient, 1 azimuth
extern std::int16_t tipoAngolo;           // 1: shown and typed in sexagesimal degrees; else in gradCorrente
extern std::int16_t UnitaMCorrente;       // 0 mm 1 cm 2 m 3 km 4 inch 5 foot 6 free
extern double Scaladis;                   // scale denominator
extern double decimiUnita;                // tenths of a millimetre per real unit at scale 1
extern double rappvid;                    // real units per sheet unit
extern float RappPunti;                   // real units per typographic point
extern double Xfoglio, yfoglio;           // sheet size, centimetres
extern std::int16_t XFDecimi, YFDecimi;   // sheet size, tenths of a millimetre
extern std::int16_t btav, htav;           // tablet size, tenths of a millimetre
extern double btav1, htav1;               // the same times the scale corrections
extern double scalaX, scalaY;             // tablet scale corrections, 1.0
extern double puntimm;                    // tablet counts per millimetre

inline constexpr double DecPollice = 254;       // sheet units per inch
inline constexpr double DecPunto = 3.5277777;   // sheet units per typographic point

// rappvid, RappPunti (and Scaladis under an attachment) from the values in force: by the distance of the real over the
// sheet control points when coordReali is set, else Scaladis / decimiUnita.
void CalcolaRapporti();

}   // namespace tessaro
