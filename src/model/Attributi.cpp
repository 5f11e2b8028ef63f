// The named globals of the drawing state with their start values, and the bracket round any drawing away from the
// normal pen state.
#include "model/Attributi.h"

#include <cmath>

#include "model/Archivio.h"
#include "model/Colori.h"
#include "model/TabellaStato.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::int16_t colorCorrente = 1, colorAttuale = 1, NumPat = 1, NumAreaPat = 0, spessore = 1;
constinit thread_local std::int16_t spess = 0;
constinit std::int16_t ModoCorrente = 10, ModoAttuale = 10, markerCorrente = 1, LineaCorrente = 1;
constinit std::int16_t CategoriaCorrente = 1, InsiemeCorrente = 1;
constinit Pattern PatCorrente{}, PatAttuale{}, PatAreaCorrente{}, PatAreaAttuale{};
constinit double SpessorePenna = 2.5, ZetaCorrente = 1.0;
constinit Aref ArefSegmDef{}, ArefMarkerDef{}, ArefPolyDef{}, ArefCerchiDef{}, ArefArchiDef{};
constinit elemento TrattCorrente{};

PStr255 gFontName("");
constinit std::int16_t gFontID = 0, gFontSize = 9, TheOldFontIt = 1, TheOldDimFIt = 2;
constinit TxStyle gTxStyle{};

constinit std::int32_t gradCorrente = 0, orientCorrente = 1;
constinit std::int16_t tipoAngolo = 1, UnitaMCorrente = 6;
constinit double Scaladis = 1000, decimiUnita = 10000, decTessCont = 10000, DataUltima = 0, rappvid = 0.1;
constinit float RappPunti = 0;
constinit double Xfoglio = 42, yfoglio = 29.7, LargTav = 42, AltTav = 30;
constinit std::int16_t XFDecimi = 4200, YFDecimi = 2970, btav = 4200, htav = 3000, htavp = 3000, PlotPerCento = 100;
constinit double btav1 = 4200, htav1 = 3000, scalaX = 1, scalaY = 1, puntimm = 40, corrXt = 0.25, corrYt = 0.25;
constinit double scalaXt = 0.25, scalaYt = 0.25;

constinit std::int32_t Modalita = 0, operazCorrente = 0, Azione = 0, Operazione = 0;
constinit std::int16_t tabButton = 0, XtabFin = 0, YtabFin = 0, theItem = 0;
constinit std::uint8_t CurvePerPunti = 0, ContinuaPoligono = 0, IntroDigitale = 0, DisegnaPict = 0, StoStampando = 0;
constinit std::uint8_t NewDis = 0, scriviSempreCoord = 0, selezionePrec = 0, inserimentoRelativo = 1, CalcWindow = 0;
constinit std::uint8_t TabAbilit = 0, RifTablet = 1, Sposta2ndClick = 0, theChar = 0, debug = 0;
constinit double XDigit = 0, YDigit = 0, ZDigit = 0, xcurs = 1000, ycurs = 1000, zcurs = 0;
constinit double Xini = 0, Yini = 0, Zinizio = 0, Xfine = 0, Yfine = 0, lastX = 0, lastY = 0;
constinit double xprecedente = 0, yprecedente = 0, angoloprecedente = 0, distprecedente = 0;
constinit double XVisualPrec = 0, YVisualPrec = 0, ZVisualPrec = 0, XFVisual = 0, YFVisual = 0;
constinit double XSpost1 = -10000, YSpost1 = -10000, XSpost2 = -10000, YSpost2 = -10000;
constinit double XDeltaSpost = 0, YDeltaSpost = 0, ZDeltaSpost = 0, Xmin = 0, Ymin = 0, Xmax = 300, Ymax = 300;
constinit Point PosBaseSpost{}, EventPoint{}, LastPoint{};
constinit std::uint32_t Tempo = 0;

constinit std::uint8_t noWindow = 1, fine = 0, inizio = 0;
constinit WindowPtr theWindow = nullptr;
constinit ControlHandle VScroll = nullptr, HScroll = nullptr, panel = nullptr;
constinit Rect Screen{}, DragRect{}, GrowRect{};
constinit std::int16_t hToolbar = 32, attaccoCursor = 0;
PStr255 NomeD(""), NomeLavoro("");
PStr63 StrOperCorr("");
FSSpec myFSS;

void SaveStato(SaveRecord& s) {
    s.valido = noWindow == 0 && theWindow != nullptr;
    if (!s.valido) return;
    s.port = GetPort();
    SetPortWindowPort(theWindow);
    const GrafPtr p = GetPort();
    s.colore = p->foreground;
    s.sfondo = p->background;
    s.origine = p->origin;
    s.clip = GetClip();
    s.penna = GetPenState();
    s.testo = p->text;
}

void RestoreStato(const SaveRecord& s) {
    if (!s.valido || noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    SetClip(s.clip);
    SetOrigin(s.origine.h, s.origine.v);
    SetPenState(s.penna);
    const GrafPtr p = GetPort();
    p->text = s.testo;
    RGBForeColor(s.colore);
    RGBBackColor(s.sfondo);
    SetPort(s.port);
}

void ColoreDaTabella(std::int16_t numero) {
    if (numero < 1 || numero > coloriPresenti || numero > maxColori) {
        ForeColor(blackColor);
        return;
    }
    RGBForeColor(arrColori[static_cast<std::size_t>(numero - 1)].rgb);
}

void CalcolaRapporti() {
    if (ArrElementi && Elem(2).att.coordReali) {
        const auto& foglio = Elem(1).att;
        const auto& reali = Elem(2).att;
        rappvid =
            Distanza(reali.x1, reali.y1, reali.x2, reali.y2) / Distanza(foglio.x1, foglio.y1, foglio.x2, foglio.y2);
        Scaladis = decimiUnita * rappvid;
    } else {
        rappvid = Scaladis / decimiUnita;
    }
    RappPunti = static_cast<float>(rappvid * 254 / 72);
}

namespace {

void azzeraPenna() {
    PatCorrente = PatAttuale = qdBlack;
    PatAreaCorrente = PatAreaAttuale = qdWhite;
    ArefSegmDef = ArefMarkerDef = ArefPolyDef = ArefCerchiDef = ArefArchiDef = Aref{};
    TrattCorrente = elemento{};
    TrattCorrente.tipo = tPoligono;
    gTxStyle = TxStyle{};
    // The angle system in force is read by the conversions, which stand below the model.
    gradInUso = &gradCorrente;
    tipoAngoloInUso = &tipoAngolo;
}

std::string puntoJson(const Point& p) { return "{\"v\":" + NumeroJson(p.v) + ",\"h\":" + NumeroJson(p.h) + "}"; }

const VoceStato righe[] = {
    {"penna", VoceStato::speciale, nullptr, 0, azzeraPenna, nullptr},
    {"colorCorrente", VoceStato::i16, &colorCorrente, 1},
    {"colorAttuale", VoceStato::i16, &colorAttuale, 1},
    {"NumPat", VoceStato::i16, &NumPat, 1},
    {"NumAreaPat", VoceStato::i16, &NumAreaPat, 0},
    {"spessore", VoceStato::i16, &spessore, 1},
    {"spess", VoceStato::i16, &spess, 0},
    {"ModoCorrente", VoceStato::i16, &ModoCorrente, 10},
    {"ModoAttuale", VoceStato::i16, &ModoAttuale, 10},
    {"SpessorePenna", VoceStato::f64, &SpessorePenna, 2.5},
    {"markerCorrente", VoceStato::i16, &markerCorrente, 1},
    {"LineaCorrente", VoceStato::i16, &LineaCorrente, 1},
    {"CategoriaCorrente", VoceStato::i16, &CategoriaCorrente, 1},
    {"InsiemeCorrente", VoceStato::i16, &InsiemeCorrente, 1},
    {"ZetaCorrente", VoceStato::f64, &ZetaCorrente, 1},
    {"gFontName", VoceStato::str255, &gFontName},
    {"gFontID", VoceStato::i16, &gFontID, 0},
    {"gFontSize", VoceStato::i16, &gFontSize, 9},
    {"TheOldFontIt", VoceStato::i16, &TheOldFontIt, 1},
    {"TheOldDimFIt", VoceStato::i16, &TheOldDimFIt, 2},
    {"gradCorrente", VoceStato::i32, &gradCorrente, 0},
    {"orientCorrente", VoceStato::i32, &orientCorrente, 1},
    {"tipoAngolo", VoceStato::i16, &tipoAngolo, 1},
    {"UnitaMCorrente", VoceStato::i16, &UnitaMCorrente, 6},
    {"Scaladis", VoceStato::f64, &Scaladis, 1000},
    {"decimiUnita", VoceStato::f64, &decimiUnita, 10000},
    {"decTessCont", VoceStato::f64, &decTessCont, 10000},
    {"DataUltima", VoceStato::f64, &DataUltima, 0},
    {"rappvid", VoceStato::f64, &rappvid, 0.1},
    {"RappPunti", VoceStato::f32, &RappPunti, 0.1 * 254 / 72},
    {"Xfoglio", VoceStato::f64, &Xfoglio, 42},
    {"yfoglio", VoceStato::f64, &yfoglio, 29.7},
    {"XFDecimi", VoceStato::i16, &XFDecimi, 4200},
    {"YFDecimi", VoceStato::i16, &YFDecimi, 2970},
    {"LargTav", VoceStato::f64, &LargTav, 42},
    {"AltTav", VoceStato::f64, &AltTav, 30},
    {"btav", VoceStato::i16, &btav, 4200},
    {"htav", VoceStato::i16, &htav, 3000},
    {"htavp", VoceStato::i16, &htavp, 3000},
    {"btav1", VoceStato::f64, &btav1, 4200},
    {"htav1", VoceStato::f64, &htav1, 3000},
    {"scalaX", VoceStato::f64, &scalaX, 1},
    {"scalaY", VoceStato::f64, &scalaY, 1},
    {"puntimm", VoceStato::f64, &puntimm, 40},
    {"corrXt", VoceStato::f64, &corrXt, 0.25},
    {"corrYt", VoceStato::f64, &corrYt, 0.25},
    {"scalaXt", VoceStato::f64, &scalaXt, 0.25},
    {"scalaYt", VoceStato::f64, &scalaYt, 0.25},
    {"PlotPerCento", VoceStato::i16, &PlotPerCento, 100},
    {"Modalita", VoceStato::i32, &Modalita, 0},
    {"operazCorrente", VoceStato::i32, &operazCorrente, 0},
    {"Azione", VoceStato::i32, &Azione, 0},
    {"Operazione", VoceStato::i32, &Operazione, 0},
    {"tabButton", VoceStato::i16, &tabButton, 0},
    {"CurvePerPunti", VoceStato::u8, &CurvePerPunti, 0},
    {"ContinuaPoligono", VoceStato::u8, &ContinuaPoligono, 0},
    {"IntroDigitale", VoceStato::u8, &IntroDigitale, 0},
    {"XDigit", VoceStato::f64, &XDigit, 0},
    {"YDigit", VoceStato::f64, &YDigit, 0},
    {"ZDigit", VoceStato::f64, &ZDigit, 0},
    {"DisegnaPict", VoceStato::u8, &DisegnaPict, 0},
    {"StoStampando", VoceStato::u8, &StoStampando, 0},
    {"NewDis", VoceStato::u8, &NewDis, 0},
    {"scriviSempreCoord", VoceStato::u8, &scriviSempreCoord, 0},
    {"selezionePrec", VoceStato::u8, &selezionePrec, 0},
    {"inserimentoRelativo", VoceStato::u8, &inserimentoRelativo, 1},
    {"CalcWindow", VoceStato::u8, &CalcWindow, 0},
    {"TabAbilit", VoceStato::u8, &TabAbilit, 0},
    {"RifTablet", VoceStato::u8, &RifTablet, 1},
    {"XtabFin", VoceStato::i16, &XtabFin, 0},
    {"YtabFin", VoceStato::i16, &YtabFin, 0},
    {"xcurs", VoceStato::f64, &xcurs, 1000},
    {"ycurs", VoceStato::f64, &ycurs, 1000},
    {"zcurs", VoceStato::f64, &zcurs, 0},
    {"Xini", VoceStato::f64, &Xini, 0},
    {"Yini", VoceStato::f64, &Yini, 0},
    {"Zinizio", VoceStato::f64, &Zinizio, 0},
    {"Xfine", VoceStato::f64, &Xfine, 0},
    {"Yfine", VoceStato::f64, &Yfine, 0},
    {"lastX", VoceStato::f64, &lastX, 0},
    {"lastY", VoceStato::f64, &lastY, 0},
    {"xprecedente", VoceStato::f64, &xprecedente, 0},
    {"yprecedente", VoceStato::f64, &yprecedente, 0},
    {"angoloprecedente", VoceStato::f64, &angoloprecedente, 0},
    {"distprecedente", VoceStato::f64, &distprecedente, 0},
    {"XVisualPrec", VoceStato::f64, &XVisualPrec, 0},
    {"YVisualPrec", VoceStato::f64, &YVisualPrec, 0},
    {"ZVisualPrec", VoceStato::f64, &ZVisualPrec, 0},
    {"XFVisual", VoceStato::f64, &XFVisual, 0},
    {"YFVisual", VoceStato::f64, &YFVisual, 0},
    {"XSpost1", VoceStato::f64, &XSpost1, -10000},
    {"YSpost1", VoceStato::f64, &YSpost1, -10000},
    {"XSpost2", VoceStato::f64, &XSpost2, -10000},
    {"YSpost2", VoceStato::f64, &YSpost2, -10000},
    {"XDeltaSpost", VoceStato::f64, &XDeltaSpost, 0},
    {"YDeltaSpost", VoceStato::f64, &YDeltaSpost, 0},
    {"ZDeltaSpost", VoceStato::f64, &ZDeltaSpost, 0},
    {"Sposta2ndClick", VoceStato::u8, &Sposta2ndClick, 0},
    {"Xmin", VoceStato::f64, &Xmin, 0},
    {"Ymin", VoceStato::f64, &Ymin, 0},
    {"Xmax", VoceStato::f64, &Xmax, 300},
    {"Ymax", VoceStato::f64, &Ymax, 300},
    {"PosBaseSpost", VoceStato::speciale, nullptr, 0, [] { PosBaseSpost = {}; },
     [] { return puntoJson(PosBaseSpost); }},
    {"EventPoint", VoceStato::speciale, nullptr, 0, [] { EventPoint = {}; }, [] { return puntoJson(EventPoint); }},
    {"LastPoint", VoceStato::speciale, nullptr, 0, [] { LastPoint = {}; }, [] { return puntoJson(LastPoint); }},
    {"Tempo", VoceStato::speciale, nullptr, 0, [] { Tempo = 0; }, [] { return NumeroJson(Tempo); }},
    {"theItem", VoceStato::i16, &theItem, 0},
    {"theChar", VoceStato::u8, &theChar, 0},
    {"debug", VoceStato::u8, &debug, 0},
    {"noWindow", VoceStato::u8, &noWindow, 1},
    {"fine", VoceStato::u8, &fine, 0},
    {"inizio", VoceStato::u8, &inizio, 0},
    {"hToolbar", VoceStato::i16, &hToolbar, 32},
    {"attaccoCursor", VoceStato::i16, &attaccoCursor, 0},
    {"NomeD", VoceStato::str255, &NomeD},
    {"NomeLavoro", VoceStato::str255, &NomeLavoro},
    {"StrOperCorr", VoceStato::str63, &StrOperCorr},
    {"myFSS", VoceStato::speciale, nullptr, 0, [] { myFSS = {}; }, nullptr},
};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
