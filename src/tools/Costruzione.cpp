// Figures from points: the first, the second and, for curves, the third; clicked or typed the same way. On the screen a
// rubber band in xor stands for the figure in progress: whatever Elastico would draw now is what is out.
#include "tools/Costruzione.h"

#include <cmath>

#include "display/Disegno.h"
#include "display/Elastico.h"
#include "display/Sovrapposto.h"
#include "display/Tratteggi.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "platform/Events.h"
#include "platform/Quickdraw.h"
#include "registration/Coordinate.h"
#include "tools/CursoreVincolato.h"
#include "tools/CurvaInCorso.h"
#include "tools/PennaFigura.h"

namespace tessaro {

constinit PercorsoMisurato percorsoMisurato{};

namespace {

// The cross goes out of the way and comes back only for points that the pointer gives: a typed one repaints anyway.
void croce(bool digitato) {
    if (!digitato) Croce();
}

void prendiDigitato() {
    Xfine = XDigit;
    Yfine = YDigit;
    zcurs = ZDigit;
}

void prendiCursore() {
    Xfine = xcurs;
    Yfine = ycurs;
}

void applicaVincolo() {
    if (statoCursore.perpendicolare) Perpendicolare();
    if (statoCursore.parallelo) Parallelo();
}

bool diversaDaInizio() { return Xfine != Xini || Yfine != Yini || zcurs != Zinizio; }

void ultimoPunto() {
    lastX = Xfine;
    lastY = Yfine;
}

void cursoreSullaFine() {
    xcurs = Xfine;
    ycurs = Yfine;
}

puntot inReale(double x, double y, double z) {
    puntot p{0, 0, z};
    DigiToReal(x, y, p.x, p.y);
    return p;
}

void misura() {
    if (percorsoMisurato.misura) percorsoMisurato.misura();
}

}   // namespace

void InitSegm() {
    const bool digitato = IntroDigitale != 0;
    if (digitato) {
        Xini = XDigit;
        Yini = YDigit;
        Zinizio = ZDigit;
    } else {
        Croce();
        Xini = xcurs;
        Yini = ycurs;
        if (!ContinuaPoligono) AttaccaCursore(Xini, Yini, zcurs);
        Zinizio = zcurs;
    }
    lastX = Xini;
    lastY = Yini;
    if (!ContinuaPoligono) {
        PoniAnnulla(aNiente);
        inizioAggiunta = indElem;
    }
    Xfine = Xini;
    Yfine = Yini;
    DigiToReal(Xini, Yini, xprecedente, yprecedente);
    PennaElastico();
    if (CalcWindow) {
        if (Azione == sFermo && percorsoMisurato.inizia) percorsoMisurato.inizia(inReale(Xini, Yini, Zinizio));
        Azione = sPercorso;
    } else {
        Azione = sPrimoPunto;
        if (StrumentoCurva()) {
            RaggioCorrente = 0;
            if (!CurvePerPunti) CentroCorrente = {Xini, Yini, 0};
        }
    }
    Elastico();   // a null one: the next move takes it off
    croce(digitato);
    IntroDigitale = 0;
}

namespace {

void secondoPunto(bool digitato) {
    if (digitato) {
        prendiDigitato();
        CurvaAlSecondoPunto();
        return;
    }
    Croce();
    Elastico();
    if (StrumentoCurva() && !CurvePerPunti) prendiCursore();
    AttaccaCursore(Xfine, Yfine, zcurs);
    CurvaAlSecondoPunto();
    ultimoPunto();
}

// Circles through points and arcs wait for a third point, with the curve so far as the rubber band.
void attendiTerzoPunto(bool digitato) {
    cursoreSullaFine();
    Azione = sTerzoPunto;
    Elastico();
    ultimoPunto();
    croce(digitato);
    IntroDigitale = 0;
}

void finisciPercorso() {
    if (percorsoMisurato.aggiungi) percorsoMisurato.aggiungi(inReale(Xfine, Yfine, zcurs));
    if (tabButton == bTermina) misura();
}

// The undo of what is stored next begins here, whatever was deleted or put in since the figure's first point.
void cominciaAggiunta() {
    PoniAnnulla(aNiente);
    inizioAggiunta = indElem;
}

void finisciSegmento() {
    cominciaAggiunta();
    Memorizza(tSegmento, Xini, Yini, Zinizio, Xfine, Yfine, zcurs, spessore, colorCorrente, NumPat, "");
    PoniAnnulla(aAggiunta);
    fai(tSegmento, Xini, Yini, Xfine, Yfine, 0);
}

void finisciCerchio() {
    cominciaAggiunta();
    const std::int32_t prima = indElem;
    Memorizza(tCerchio, Xini, Yini, RaggioCorrente, 0, 0, NumAreaPat, spessore, colorCorrente, NumPat, "");
    if (indElem > prima) FillCerchio(indElem, Xini, Yini, RaggioCorrente, 0, 0);
    PoniAnnulla(aAggiunta);
    fai(tCerchio, Xini, Yini, RaggioCorrente, 0, 0);
}

// A head for the next vertex, from the side's first point: of a new polyline, of one whose head counts no more vertices, or
// of one behind which something else was stored. The undo of a polyline that its head could not hold takes all of it.
void nuovaTesta() {
    const bool piena = ContinuaPoligono && IndicePolCorrente >= 3 && UltimoRecord(IndicePolCorrente) == indElem;
    if (!piena) cominciaAggiunta();
    const std::int32_t prima = indElem;
    Memorizza(tPoligono, Xini, Yini, Zinizio, 0, 0, NumAreaPat, spessore, colorCorrente, NumPat, "");
    if (indElem > prima) TratteggiaNuovo(indElem);
}

// Undo is armed when the polyline ends: it takes all sides.
void finisciLato() {
    if (!VerticeSegue()) nuovaTesta();
    const std::int32_t prima = indElem;
    Memorizza(tVertice, Xfine, Yfine, zcurs, 0, 0, 0, spessore, colorCorrente, NumPat, "");
    if (indElem > prima) FaiPoly(indElem - Elem(indElem).vert.distanzaTesta);
    ContinuaPoligono = 1;
    if (Puntosel.attiva && Elem(IndicePolCorrente).selezionato) RifaiRettSel();   // it was picked while it grew
    fai(tSegmento, Xini, Yini, Xfine, Yfine, 0);
}

void memorizzaFigura() {
    if (Azione == sPercorso) {
        finisciPercorso();
        fai(tSegmento, Xini, Yini, Xfine, Yfine, 0);
    } else if (operazCorrente == opSegmento) {
        finisciSegmento();
    } else if (operazCorrente == opCerchio) {
        finisciCerchio();
    } else if (operazCorrente == opPolilinea) {
        finisciLato();
    }
}

void proseguiOTermina() {
    if (tabButton == bTermina) {
        Azione = sFermo;
        return;
    }
    if (statoCursore.parallelo || statoCursore.perpendicolare) cursoreSullaFine();
    if (operazCorrente == opPolilinea || Azione == sPercorso) {
        InitSegm();
    } else if (Azione == sPrimoPunto) {
        Azione = sFermo;
    }
}

void abbandona() {
    if (Azione == sPercorso) misura();
    Azione = sFermo;
}

}   // namespace

void FineSegm() {
    if (Azione != sPrimoPunto && Azione != sPercorso) return;
    const bool digitato = IntroDigitale != 0;
    secondoPunto(digitato);
    if (StrumentoCurva() && Azione != sPercorso && !CerchioPerCentro() && (Xfine != Xini || Yfine != Yini)) {
        attendiTerzoPunto(digitato);
        return;
    }
    PennaDefinitiva();
    DigiToReal(Xfine, Yfine, xprecedente, yprecedente);
    const double fineX = Xfine, fineY = Yfine;   // the next side may begin before the end of this routine
    if (tabButton != bContinua && tabButton != bTermina) {
        abbandona();
    } else if (StrumentoCurva() && Azione != sPercorso ? Xfine != Xini || Yfine != Yini : diversaDaInizio()) {
        memorizzaFigura();
        proseguiOTermina();
    } else {
        // A figure without length stores nothing and goes on: its rubber band comes back.
        PennaElastico();
        if (!digitato) Elastico();
    }
    if (tabButton != bContinua) {
        if (ContinuaPoligono) PoniAnnulla(aAggiunta);
        ContinuaPoligono = 0;
    }
    croce(digitato);
    lastX = fineX;
    lastY = fineY;
    IntroDigitale = 0;
}

namespace {

void terzoPuntoPreso(bool digitato) {
    if (digitato) {
        prendiDigitato();
    } else {
        PenSize(spessore, spessore);
        Croce();
        Elastico();
        prendiCursore();
        AttaccaCursore(Xfine, Yfine, zcurs);
    }
    PuntoCurva3 = {Xfine, Yfine, 0};
}

void memorizzaCurva() {
    cominciaAggiunta();
    const puntot& c = CentroCorrente;
    const std::int32_t prima = indElem;
    if (operazCorrente == opArco) {
        Memorizza(tArco, c.x, c.y, RaggioCorrente, AngInizio, AmpiezzaAngCorrente, NumAreaPat, spessore, colorCorrente,
                  NumPat, "");
    } else {
        Memorizza(tCerchio, c.x, c.y, RaggioCorrente, 0, 0, NumAreaPat, spessore, colorCorrente, NumPat, "");
    }
    const bool entrata = indElem > prima;
    PoniAnnulla(aAggiunta);
    // Kept: with the centre form the arc is drawn whatever the tool.
    if (!CurvePerPunti || operazCorrente == opArco) {
        if (entrata) FillArco(indElem, c.x, c.y, RaggioCorrente, AngInizio, AmpiezzaAngCorrente);
        fai(tArco, c.x, c.y, RaggioCorrente, AngInizio, AmpiezzaAngCorrente);
    } else {
        if (entrata) FillCerchio(indElem, c.x, c.y, RaggioCorrente, 0, 0);
        fai(tCerchio, c.x, c.y, RaggioCorrente, 0, 0);
    }
}

}   // namespace

void FineArcoRaggio() {
    if (Azione != sTerzoPunto) return;
    const bool digitato = IntroDigitale != 0;
    terzoPuntoPreso(digitato);
    CurvaAlTerzoPunto();
    PennaDefinitiva();
    DigiToReal(xcurs, ycurs, xprecedente, yprecedente);
    if (!CurvaFattibile()) {   // the stage stays open for another third point
        SysBeep(30);
        PennaElastico();
        if (!digitato) Elastico();
        croce(digitato);
        IntroDigitale = 0;
        return;
    }
    if (diversaDaInizio()) memorizzaCurva();
    cursoreSullaFine();
    Azione = sFermo;
    ultimoPunto();
    croce(digitato);
    IntroDigitale = 0;
}

void FaiElemento(std::int16_t tipo) {
    Elastico();
    prendiCursore();
    applicaVincolo();
    CurvaFinoA({Xfine, Yfine, 0}, tipo);
    Elastico();
}

void PuntoDiLinea() {
    if (Azione == sFermo) {
        InitSegm();
    } else if (Azione == sPrimoPunto || Azione == sPercorso) {
        FineSegm();
    }
}

void PuntoDiCurva() {
    if (Azione == sFermo) {
        InitSegm();
    } else if (Azione == sPrimoPunto) {
        FineSegm();
    } else if (Azione == sTerzoPunto) {
        FineArcoRaggio();
    }
}

void MuoviElastico() {
    if (Azione == sPercorso) {
        FaiElemento(1);
    } else if (Azione == sTerzoPunto) {
        if (operazCorrente == opCerchio) FaiElemento(11);
        if (operazCorrente == opArco) FaiElemento(12);
    } else if (Azione == sPrimoPunto) {
        if (operazCorrente == opSegmento || operazCorrente == opPolilinea) {
            FaiElemento(1);
        } else if (operazCorrente == opCerchio || operazCorrente == opArco) {
            FaiElemento(CurvePerPunti ? 1 : 11);
        }
    }
}

namespace {

const VoceStato righe[] = {voce<percorsoMisurato>("percorsoMisurato")};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
