// The pointer's state machine: what a click in the drawing does by mode, tool and stage, and how the cursor follows.
#include "shell/Modi.h"

#include <cmath>
#include <cstdlib>

#include "dialogs/Errori.h"
#include "digitising/Attacchi.h"
#include "digitising/GeoRiferimento.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/Scelta.h"
#include "editing/SceltaPercorso.h"
#include "editing/Sposta.h"
#include "editing/TestoSelezione.h"
#include "editing/Vertici.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "shell/Calcolatrice.h"
#include "shell/Comandi.h"
#include "shell/MenuContesto.h"
#include "tools/Aggancio.h"
#include "tools/Costruzione.h"
#include "tools/CursoreVincolato.h"
#include "tools/FiguraInMano.h"
#include "tools/Marker.h"

namespace tessaro {

constinit std::int16_t attaccoCursor = 0;

namespace {

constinit Point LastPoint{};   // where the last click was, window-local; EventPoint is this one's

// --- mode 0: clicks select and edit

void clickScegliendo(const EventRecord& e, puntot& point) {
    VidToReal(EventPoint, point);
    if (CalcWindow) {
        ScegliPercorso(point);
        return;
    }
    if ((selezionePrec || Puntosel.attiva) && MuoviPunto(e, point)) return;
    ScegliElemento(e, point);
}

// --- mode 1: clicks make elements

bool doppioClick(const EventRecord& e) {
    return e.when - Tempo < GetDblTime() && std::abs(EventPoint.h - LastPoint.h) <= 1
           && std::abs(EventPoint.v - LastPoint.v) <= 1;
}

// A click on the first point of a polyline closes it, wherever a constraint would put the cursor.
bool clickDiChiusura() {
    puntot p;
    VidToReal(EventPoint, p);
    if (!SulPrimoPunto(p)) return false;
    ChiudiPolilinea();
    return true;
}

void clickLinea(const EventRecord& e) {
    if (clickDiChiusura()) {
        Tempo = e.when;
        return;
    }
    if (doppioClick(e)) {
        tabButton = bNessuno;
        if (Azione == sPrimoPunto || Azione == sPercorso) FineSegm();
    } else {
        tabButton = bContinua;
        PuntoDiLinea();
    }
    Tempo = e.when;
}

void clickCurva(const EventRecord& e) {
    tabButton = bContinua;
    PuntoDiCurva();
    Tempo = e.when;
}

void clickDigitando(const EventRecord& e) {
    switch (operazCorrente) {
    case opSegmento:
    case opPolilinea:
    case opCalcolatrice: clickLinea(e); break;
    case opTesto:
        tabButton = bNessuno;
        PoniTesti(0);
        break;
    case opMarker:
        tabButton = bMarker;
        FaiMarker();
        break;
    case opCerchio:
    case opArco: clickCurva(e); break;
    default: break;
    }
}

// --- mode 2: two clicks move the selection

void agganciaCursore() {
    Croce();
    AttaccaCursore(xcurs, ycurs, zcurs);
}

void clickSpostando() {
    if (!Sposta2ndClick) {
        agganciaCursore();
        Sposta2ndClick = 1;
        XSpost1 = xcurs;
        YSpost1 = ycurs;
        DisegnaSelezione();
        return;
    }
    agganciaCursore();
    Sposta2ndClick = 0;
    XSpost2 = xcurs;
    YSpost2 = ycurs;
    XDeltaSpost = XSpost2 - XSpost1;
    YDeltaSpost = YSpost2 - YSpost1;
    ZDeltaSpost = 0;
    SpostaSelezione();
    Ridisegna();
}

// --- mode 5: one click is where the first real point lies

void clickPostoReale() {
    DigiToReal(xcurs, ycurs, XFVisual, YFVisual);
    RealToDigi(Elem(2).att.x1, Elem(2).att.y1, XSpost1, YSpost1);
    XSpost2 = xcurs;
    YSpost2 = ycurs;
    XDeltaSpost = XSpost1 - XSpost2;
    YDeltaSpost = YSpost1 - YSpost2;
    ZDeltaSpost = 0;
    SpostaTutto();
    ParGeoRefer(1);
    Ridisegna();
}

// --- mode 6: one click records a control point

void clickAttacco() {
    const std::int32_t n = operazCorrente - opOrigine1;
    if (n >= 0 && n <= 4) {
        Attacco(static_cast<std::int16_t>(n + 1));
    } else if (n >= 5 && n <= 9) {
        AttaccoDin(static_cast<std::int16_t>(n - 4));
    }
}

// --- the cursor follows the pointer

std::int16_t cursoreDelModo() {
    switch (Modalita) {
    case mDigitazione: return DigitaCursor;
    case mSpostamento: return Sposta2ndClick ? Sposta2Cursor : Sposta1Cursor;
    case mFoglio: return SpFoglioCursor;
    case mAttacco: return attaccoCursor;
    default: return arrowCursor;
    }
}

// Shift locks the motion to the nearer axis through the first point.
void bloccaSuAsse(double& x, double& y) {
    if (std::fabs(x - Xini) > std::fabs(y - Yini)) {
        y = Yini;
    } else {
        x = Xini;
    }
}

}   // namespace

void CambiaModo(std::int32_t modo) {
    if (Modalita == mSpostamento && modo != mSpostamento) {
        if (Puntosel.multipla) DisegnaRettSel();
        if (Sposta2ndClick) InvalFinestra();   // the outline and the cross of its first click
        Sposta2ndClick = 0;
    }
    Modalita = modo;
    agganciato = {};
}

void PrendiStrumento(std::int32_t operazione) {
    if (operazione != operazCorrente) FineFigura();
    LasciaCalcolatrice();
    CambiaModo(mDigitazione);
    operazCorrente = operazione;
}

void PrendiCurve(bool perPunti) {
    if ((CurvePerPunti != 0) != perPunti && (operazCorrente == opCerchio || operazCorrente == opArco)) FineFigura();
    CurvePerPunti = perPunti;
    SpuntaCurve();
}

void CercaSelezione(EventRecord& e, puntot& point) {
    if (!PtInRect(EventPoint, myViewRect)) {
        MyControls();
        return;
    }
    if (e.modifiers & controlKey) {
        MenuContesto();
        return;
    }
    switch (Modalita) {
    case mSelezione: clickScegliendo(e, point); break;
    case mDigitazione: clickDigitando(e); break;
    case mSpostamento: clickSpostando(); break;
    case mFoglio: clickPostoReale(); break;
    case mAttacco: clickAttacco(); break;
    default: break;
    }
}

void SpostaDaPunto(double x, double y) {
    FineFigura();
    Modalita = mSpostamento;
    Sposta2ndClick = 1;
    xcurs = XSpost1 = x;
    ycurs = YSpost1 = y;
    Ridisegna();
    DrawPallette();
}

void DoMouseAction(EventRecord& e) {
    if (noWindow || e.window != theWindow) return;
    EventPoint = e.where;
    puntot punto;
    CercaSelezione(e, punto);
    LastPoint = EventPoint;
}

// A click outside the drawing area: scroll bars and buttons are the toolkit's own, the rest is the palette's.
void MyControls() {
    ClipRect(GetPortBounds(theWindow));
    Do_Tessaro3D();
    ClipRect(myViewRect);
}

void CheckMouse(bool shift) {
    if (noWindow || Modalita == mSelezione) return;
    const Point p = GetMouse();
    if (!PtInRect(p, myViewRect)) {
        SetCursor(arrowCursor);
        AggiornaAggancio(true);
        return;
    }
    SetCursor(cursoreDelModo());
    puntot reale;
    VidToReal(p, reale);
    if (griglia.attiva) AttaccaGriglia(reale.x, reale.y);
    double x = statoCursore.bloccaX ? xcurs : reale.x;
    double y = statoCursore.bloccaY ? ycurs : reale.y;
    if ((Modalita == mDigitazione || Modalita == mAttacco) && shift) {
        // Overrides the locked axes: the candidate is the free position held to the nearer axis.
        x = reale.x;
        y = reale.y;
        bloccaSuAsse(x, y);
    }
    if (x == xcurs && y == ycurs) {
        if (Modalita != mSpostamento) tabButton = bNessuno;
        AggiornaAggancio(false);
        SetDrawCoordCorr();
        return;
    }
    xcurs = x;
    ycurs = y;
    if (Modalita == mDigitazione) MuoviElastico();
    AggiornaAggancio(false);
    Croce();
    if (Modalita != mSpostamento) tabButton = bNessuno;
    scriviSempreCoord = 0;
    SetDrawCoordCorr();
}

namespace {
const VoceStato righe[] = {
    voce<attaccoCursor>("attaccoCursor"),
    voce<LastPoint>("LastPoint"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
