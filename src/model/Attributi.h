// The current attributes and drawing state: what a new element takes, what the pen holds, units, tool state and the
// names of the document. Plain globals; each line tells unit, default and who writes it.
#pragma once

#include <array>
#include <cstdint>

#include "model/Elemento.h"
#include "platform/Files.h"
#include "platform/Quickdraw.h"
#include "platform/Windows.h"
#include "text/PascalString.h"

namespace tessaro {

// --- pen: ...Corrente is the user's choice, ...Attuale what the pen holds now (black xor while a rubber band is out)
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
extern double SpessorePenna;                              // pen width for a printer, 2.5
extern std::int16_t markerCorrente;                       // shape 1..6, 1; keys, dialog
extern std::int16_t LineaCorrente;                        // line type, 1; nothing changes it
extern std::int16_t CategoriaCorrente, InsiemeCorrente;   // classes 1..255, 1
extern double ZetaCorrente;                               // elevation of new points, user's unit, 1.0
extern Aref ArefSegmDef, ArefMarkerDef, ArefPolyDef, ArefCerchiDef, ArefArchiDef;   // default tags, empty
extern elemento TrattCorrente;   // hatch template: type 7, hatch fields zero

// --- text
extern PStr255 gFontName;        // family name
extern std::int16_t gFontID;     // its number
extern std::int16_t gFontSize;   // points, 9
struct TxStyle {
    std::int16_t face = 0, riservato = 0, dimensione = 9;
};
extern TxStyle gTxStyle;
extern std::int16_t TheOldFontIt;   // ticked font item, 1
extern std::int16_t TheOldDimFIt;   // ticked size item, 2

// --- units, sheet and scales
extern std::int32_t gradCorrente;                 // TipoGrad, 0 centesimal
extern std::int32_t orientCorrente;               // TipoOrient, 1 azimuth
extern std::int16_t tipoAngolo;                   // 1: shown and typed in sexagesimal degrees; else in gradCorrente
extern std::int16_t UnitaMCorrente;               // 0 mm 1 cm 2 m 3 km 4 inch 5 foot 6 free
extern double Scaladis;                           // scale denominator
extern double decimiUnita;                        // tenths of a millimetre per real unit at scale 1
extern double decTessCont;                        // decimiUnita of the start settings file, for the free unit
extern double DataUltima;                         // reserved double of the files, kept as read, 0
extern double rappvid;                            // real units per sheet unit
extern float RappPunti;                           // real units per typographic point
extern double Xfoglio, yfoglio;                   // sheet size, centimetres
extern std::int16_t XFDecimi, YFDecimi;           // sheet size, tenths of a millimetre
extern double LargTav, AltTav;                    // tablet size, centimetres
extern std::int16_t btav, htav, htavp;            // tablet size, tenths of a millimetre
extern double btav1, htav1;                       // the same times the scale corrections
extern double scalaX, scalaY;                     // tablet scale corrections, 1.0
extern double puntimm;                            // tablet counts per millimetre
extern double corrXt, corrYt, scalaXt, scalaYt;   // sheet units per tablet count, raw and corrected
extern std::int16_t PlotPerCento;                 // 100

inline constexpr double DecPollice = 254;       // sheet units per inch
inline constexpr double DecPunto = 3.5277777;   // sheet units per typographic point
inline constexpr std::int16_t ParamLucidiDia = 128, ParamGrafDia = 2013;
inline constexpr RGBColor GrigioMedio{32000, 32000, 32000};
inline constexpr RGBColor GrigioChiaro{48000, 48000, 48000};
inline constexpr RGBColor GrigioMoltoChiaro{0xDDDD, 0xDDDD, 0xDDDD};

// --- tool and view state
extern std::int32_t Modalita;              // pointer mode: 0 select 1 digitise 2 move 5 move sheet 6 attach; 0 at start
extern std::int32_t operazCorrente;        // tool 0..6, 7..11 origin point, 12..16 destination point; 0
extern std::int32_t Azione;                // stage of the figure in progress: 0, 1, 5, 8
extern std::int16_t tabButton;             // 0 none, 1 point and go on, 2 point and end, 3 marker
extern std::uint8_t CurvePerPunti;         // circles and arcs through three points, 0
extern std::uint8_t ContinuaPoligono;      // a polyline is in progress
extern std::uint8_t IntroDigitale;         // the next point is XDigit, YDigit, ZDigit
extern double XDigit, YDigit, ZDigit;      // typed point: sheet units, Z as typed
extern std::uint8_t DisegnaPict;           // 1 while painting for a printer, a file or the clipboard
extern std::uint8_t StoStampando;          // 1 while printing
extern std::uint8_t NewDis;                // a full repaint is wanted at the next update
extern std::uint8_t scriviSempreCoord;     // draw the read-out even when nothing changed
extern std::uint8_t selezionePrec;         // the last selection was single and TogliSelezione took it off
extern std::uint8_t inserimentoRelativo;   // typed points are offsets, 1
extern std::uint8_t CalcWindow;            // the calculator is open
extern std::int32_t Operazione;            // its pending operation: 0 add 1 subtract 2 multiply 3 divide 4 none
extern std::uint8_t TabAbilit;             // tablet reading is on
extern std::uint8_t RifTablet;             // 1: the tablet's origin is the sheet's; 0: it follows the view
extern std::int16_t XtabFin, YtabFin;      // tablet origin, sheet units
extern double xcurs, ycurs, zcurs;         // cursor, sheet units; 1000, 1000, 0
extern double Xini, Yini, Zinizio;         // first point of the figure in progress
extern double Xfine, Yfine;                // moving end of its rubber band
extern double lastX, lastY;                // last point stored: origin of the D and A read-outs
extern double xprecedente, yprecedente;    // last point in real coordinates
extern double angoloprecedente, distprecedente;        // last side: radians, sheet units
extern double XVisualPrec, YVisualPrec, ZVisualPrec;   // what the read-out last showed
extern double XFVisual, YFVisual;                      // real position of a sheet move
extern double XSpost1, YSpost1, XSpost2, YSpost2;      // move: first and second click, -10000
extern double XDeltaSpost, YDeltaSpost, ZDeltaSpost;   // last move, sheet units
extern std::uint8_t Sposta2ndClick;                    // a move waits for its second click
extern Point PosBaseSpost;                             // pixel of the move's outline
extern double Xmin, Ymin, Xmax, Ymax;                  // extent, sheet units
extern std::uint32_t Tempo;                            // ticks of the last digitising click
extern Point EventPoint, LastPoint;                    // this and the last click, window-local
extern std::int16_t theItem;                           // last menu item; request code of archivia
extern std::uint8_t theChar;                           // last key
extern std::uint8_t debug;                             // copy of the attach-to-points switch

// --- the document and its window
extern std::uint8_t noWindow;   // 1 when no drawing is open
extern std::uint8_t fine;       // nonzero ends the main loop
extern std::uint8_t inizio;     // 1 during start-up: settings load in silence
extern WindowPtr theWindow;
extern ControlHandle VScroll, HScroll, panel;
extern Rect Screen, DragRect, GrowRect;
extern std::int16_t hToolbar;        // toolbar strip, pixels, 32
extern PStr255 NomeD, NomeLavoro;    // file name, window title
extern FSSpec myFSS;                 // the document's file
extern PStr63 StrOperCorr;           // operation now running, shown in the palette
extern std::int16_t attaccoCursor;   // cursor of pointer mode 6

// --- cursors by resource number
enum : std::int16_t {
    ClockCursor = 4,
    CroceCursor = 2,
    DigitaCursor = 128,
    spostaCursor = 10,
    Sposta1Cursor = 129,
    Sposta2Cursor = 130,
    AttaccaCursor = 131,
    AttaccaCursorZ = 132,
    SpFoglioCursor = 133,
};
inline constexpr std::array<std::int16_t, 5> origineCursor{134, 135, 136, 137, 138};
inline constexpr std::array<std::int16_t, 5> destinazioneCursor{140, 141, 142, 143, 144};

// --- saved drawing state: port, colour, origin, clip, pen and text. Every SaveStato needs its RestoreStato; both do
// nothing without a window. SaveStato leaves the port set to theWindow.
struct SaveRecord {
    GrafPtr port = nullptr;
    RGBColor colore, sfondo;
    Point origine;
    Region clip;
    PenState penna;
    TextState testo;
    bool valido = false;
};
void SaveStato(SaveRecord& s);
void RestoreStato(const SaveRecord& s);
// The pair as a scope.
class Stato {
    SaveRecord s;

public:
    Stato() { SaveStato(s); }
    ~Stato() { RestoreStato(s); }
    Stato(const Stato&) = delete;
    Stato& operator=(const Stato&) = delete;
};

// Sets the foreground from the colour table (1-based; outside the table black) or from a fixed colour.
void ColoreDaTabella(std::int16_t numero);

// rappvid, RappPunti (and Scaladis under an attachment) from the values in force: by the distance of the real over the
// sheet control points when coordReali is set, else Scaladis / decimiUnita.
void CalcolaRapporti();

}   // namespace tessaro
