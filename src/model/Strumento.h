// The tool in hand: pointer mode, tool, stage of the figure in progress and the points that it has so far.
#pragma once

#include <cstdint>

namespace tessaro {

extern std::int32_t Modalita;             // pointer mode: 0 select 1 digitise 2 move 5 move sheet 6 attach; 0 at start
extern std::int32_t operazCorrente;       // tool 0..6, 7..11 origin point, 12..16 destination point; 0
extern std::int32_t Azione;               // stage of the figure in progress: 0, 1, 5, 8
extern std::int16_t tabButton;            // 0 none, 1 point and go on, 2 point and end, 3 marker
extern std::uint8_t CurvePerPunti;        // circles and arcs through three points, 0
extern std::uint8_t ContinuaPoligono;     // a polyline is in progress
extern std::uint8_t IntroDigitale;        // the next point is XDigit, YDigit, ZDigit
extern double XDigit, YDigit, ZDigit;     // typed point: sheet units, Z as typed
extern std::uint8_t CalcWindow;           // the calculator is open
extern double Xini, Yini, Zinizio;        // first point of the figure in progress
extern double Xfine, Yfine;               // moving end of its rubber band
extern double lastX, lastY;               // last point stored: origin of the D and A read-outs
extern double xprecedente, yprecedente;   // last point in real coordinates
extern double angoloprecedente, distprecedente;        // last side: radians, sheet units
extern double XSpost1, YSpost1, XSpost2, YSpost2;      // move: first and second click, -10000
extern double XDeltaSpost, YDeltaSpost, ZDeltaSpost;   // last move, sheet units
extern std::uint8_t Sposta2ndClick;                    // a move waits for its second click

}   // namespace tessaro
