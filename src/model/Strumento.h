// The tool in hand: pointer mode, tool, stage of the figure in progress and the points that it has so far.
#pragma once

#include <cstdint>

namespace tessaro {

// Pointer mode: what a click in the drawing does. 3 and 4 do nothing.
enum ModoPuntatore : std::int32_t {
    mSelezione = 0,     // picks and edits
    mDigitazione = 1,   // makes elements with the tool in hand
    mSpostamento = 2,   // two clicks move the selection
    mFoglio = 5,        // one click moves the sheet
    mAttacco = 6,       // one click records a control point
};
// Tools. Of the control points the first of each five has a name, the others follow it.
enum Attrezzo : std::int32_t {
    opSegmento = 0,
    opPolilinea = 1,
    opTesto = 2,
    opMarker = 3,
    opCalcolatrice = 4,   // the path is measured, not stored
    opCerchio = 5,
    opArco = 6,
    opOrigine1 = 7,         // to 11
    opDestinazione1 = 12,   // to 16
    opPuntoTabella = 17,    // a point of the table of control points
};
// Stages of the figure in progress.
enum Stadio : std::int32_t {
    sFermo = 0,        // nothing in progress
    sPrimoPunto = 1,   // a first point is down, the rubber band follows the cursor
    sPercorso = 5,     // the same, for the calculator's path
    sTerzoPunto = 8,   // circle or arc: the third point is awaited
};
// The button that ended an event: of the tablet, or as a click simulates it. 4 to 15 are the tablet's own commands.
enum BottonePunto : std::int16_t {
    bNessuno = 0,    // no figure goes on
    bContinua = 1,   // point and go on
    bTermina = 2,    // point and end
    bMarker = 3,
};

extern std::int32_t Modalita;                          // a ModoPuntatore, mSelezione at start
extern std::int32_t operazCorrente;                    // an Attrezzo, opSegmento
extern std::int32_t Azione;                            // a Stadio, sFermo
extern std::int16_t tabButton;                         // a BottonePunto, bNessuno
extern std::uint8_t CurvePerPunti;                     // circles and arcs through three points, 0
extern std::uint8_t ContinuaPoligono;                  // a polyline is in progress
extern std::uint8_t IntroDigitale;                     // the next point is XDigit, YDigit, ZDigit
extern double XDigit, YDigit, ZDigit;                  // typed point: sheet units, Z as typed
extern std::uint8_t CalcWindow;                        // the calculator is open
extern double Xini, Yini, Zinizio;                     // first point of the figure in progress
extern double Xfine, Yfine;                            // moving end of its rubber band
extern double lastX, lastY;                            // last point stored: origin of the D and A read-outs
extern double xprecedente, yprecedente;                // last point in real coordinates
extern double angoloprecedente, distprecedente;        // last side: radians, sheet units
extern double XSpost1, YSpost1, XSpost2, YSpost2;      // move: first and second click, -10000
extern double XDeltaSpost, YDeltaSpost, ZDeltaSpost;   // last move, sheet units
extern std::uint8_t Sposta2ndClick;                    // a move waits for its second click

}   // namespace tessaro
