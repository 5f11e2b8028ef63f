// Clicks in the palette strip and in the coordinate line. The tests run in order; the first that accepts ends the chain.
#include <array>

#include "digitising/PuntiDigitati.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/LucidiClassi.h"
#include "editing/Sposta.h"
#include "editing/Testi.h"
#include "model/Attributi.h"
#include "model/Figura.h"
#include "model/Lucidi.h"
#include "model/Selezione.h"
#include "model/Vista.h"
#include "platform/Events.h"
#include "shell/Calcolatrice.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

constexpr std::int32_t lato = 32;   // a palette cell, pixels
constexpr std::int32_t sinistraRiga = 148, destraRiga = 390;

bool opzione = false;   // Option held at the click

void freccia() { CambiaModo(0); }
void digita() { CambiaModo(1); }

void muovi() {
    if (Puntosel.attiva) {
        CambiaModo(2);
    } else {
        SysBeep(30);
    }
}

void cambiaFoglio(std::int16_t passo) {
    VisioneGraf.lucidoCorrente = static_cast<std::int16_t>((VisioneGraf.lucidoCorrente + 100 + passo) % 100);
    if (VisioneGraf.grigiaAltri || VisioneGraf.soloCorrente) InvalFinestra();
}

// Ends the figure also when its own tool is taken again.
void strumentoDaCapo(std::int32_t operazione) {
    FineFigura();
    PrendiStrumento(operazione);
}
void segmento() { strumentoDaCapo(0); }
void polilinea() { PrendiStrumento(1); }

void curva(std::int32_t operazione) {
    if (opzione) PrendiCurve(!CurvePerPunti);
    PrendiStrumento(operazione);
}
void cerchio() { curva(5); }
void arco() { curva(6); }

void testo() {
    if (Puntosel.attiva) {
        PoniTesti(1);
        return;
    }
    strumentoDaCapo(2);
}
void marker() { strumentoDaCapo(3); }

// A point by typing, for the tools that take points.
void puntoDigitato() {
    const bool conPunti =
        operazCorrente == 0 || operazCorrente == 1 || operazCorrente == 3 || operazCorrente == 5 || operazCorrente == 6;
    if (!conPunti) return;
    if (opzione) {
        IngressoPolare();
    } else {
        IngressoVertici();
    }
}

// The coordinate line flashes, then asks: while moving for the deltas, else for a point.
void clicRigaCoordinate() {
    if (Modalita != 1 && Modalita != 2) return;
    const Rect riga = SetRect(sinistraRiga, myViewRect.bottom, destraRiga, GetPortBounds(theWindow).bottom);
    InvertRect(riga);
    Delay(static_cast<std::int32_t>(GetDblTime() / 3));
    InvertRect(riga);
    if (Modalita == 2) {
        Sposta();
        InvalFinestra();
    } else {
        puntoDigitato();
    }
}

// The commands behind these cells are not built yet.
void nonAncora() { SysBeep(30); }

struct Cella {
    std::int32_t alto, basso;   // pixels from the window's top, basso excluded
    std::int32_t icona;
    void (*azione)();
};
// The sheet cell's two halves leave a pixel between them.
constexpr std::array celle{
    Cella{0, 32, 13, freccia},
    Cella{32, 64, 14, digita},
    Cella{64, 96, 15, muovi},
    Cella{96, 111, 16, [] { cambiaFoglio(1); }},
    Cella{112, 128, 16, [] { cambiaFoglio(-1); }},
    Cella{128, 160, 17, segmento},
    Cella{160, 192, 18, polilinea},
    Cella{192, 224, 19, cerchio},
    Cella{224, 256, 20, arco},
    Cella{256, 288, 21, testo},
    Cella{288, 320, 22, marker},
    Cella{320, 352, 23, ApriCalcolatrice},
    Cella{352, 384, 24, nonAncora},
    Cella{384, 416, 25, nonAncora},
};

std::int32_t iconaDi(const Cella& c) {
    const bool perPunti = CurvePerPunti && (c.icona == 19 || c.icona == 20);
    return perPunti ? c.icona + 100 : c.icona;
}

void clicCella(const Cella& c) {
    if (c.icona == 16) {
        // The halves act while the whole cell stays as it is: it has no lit form.
        if (opzione) {
            ParamLucidi();
        } else {
            c.azione();
        }
        return;
    }
    const std::int32_t icona = iconaDi(c);
    if (TrackIcon(SetRect(0, c.alto, lato, c.basso), icona, icona + 10000)) c.azione();
}

bool nellaRigaCoordinate(Point p) {
    return p.h >= sinistraRiga && p.h <= destraRiga && p.v >= myViewRect.bottom
           && p.v < GetPortBounds(theWindow).bottom;
}

}   // namespace

void Do_Tessaro3D() {
    opzione = (KeyModifiers() & optionKey) != 0;
    if (nellaRigaCoordinate(EventPoint)) {
        clicRigaCoordinate();
    } else if (EventPoint.h >= 0 && EventPoint.h < lato) {
        for (const Cella& c : celle) {
            if (EventPoint.v < c.alto || EventPoint.v >= c.basso) continue;
            clicCella(c);
            break;
        }
    }
    DrawPallette();
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
}

}   // namespace tessaro
