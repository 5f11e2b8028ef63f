// Clicks in the palette strip and in the coordinate line. The tests run in order; the first that accepts ends the chain.
#include <array>

#include "digitising/PuntiDigitati.h"
#include "display/Disposizione.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/LucidiClassi.h"
#include "editing/Sposta.h"
#include "editing/TestoSelezione.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Lucidi.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "model/Voci.h"
#include "platform/Events.h"
#include "raster/raster.h"
#include "shell/Calcolatrice.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

bool opzione = false;   // Option held at the click

void freccia() { CambiaModo(mSelezione); }
void digita() { CambiaModo(mDigitazione); }

void muovi() {
    if (Puntosel.attiva) {
        CambiaModo(mSpostamento);
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
void segmento() { strumentoDaCapo(opSegmento); }
void polilinea() { PrendiStrumento(opPolilinea); }

void curva(std::int32_t operazione) {
    if (opzione) PrendiCurve(!CurvePerPunti);
    PrendiStrumento(operazione);
}
void cerchio() { curva(opCerchio); }
void arco() { curva(opArco); }

void testo() {
    if (Puntosel.attiva) {
        PoniTesti(1);
        return;
    }
    strumentoDaCapo(opTesto);
}
void marker() { strumentoDaCapo(opMarker); }

// A point by typing, for the tools that take points.
void puntoDigitato() {
    const bool conPunti = operazCorrente == opSegmento || operazCorrente == opPolilinea || operazCorrente == opMarker
                          || operazCorrente == opCerchio || operazCorrente == opArco;
    if (!conPunti) return;
    if (opzione) {
        IngressoPolare();
    } else {
        IngressoVertici();
    }
}

// The coordinate line flashes, then asks: while moving for the deltas, else for a point.
void clicRigaCoordinate() {
    if (Modalita != mDigitazione && Modalita != mSpostamento) return;
    Rect riga = RigaCoordinate();
    --riga.top;
    InvertRect(riga);
    Delay(static_cast<std::int32_t>(GetDblTime() / 3));
    InvertRect(riga);
    if (Modalita == mSpostamento) {
        Sposta();
        InvalFinestra();
    } else {
        puntoDigitato();
    }
}

void perPuntiDiControllo() { TrasformaPictSel(voci::immagine::conAttacchi); }
void perMesh() { TrasformaPictSel(voci::immagine::conMesh); }

// The halves act while the whole cell stays as it is: it has no lit form.
void lucido() {
    if (opzione) {
        ParamLucidi();
    } else if (const std::int32_t passo = MetaLucido(EventPoint); passo != 0) {
        cambiaFoglio(static_cast<std::int16_t>(passo));
    }
}

// By CellaPalette.
constexpr std::array<void (*)(), numCelle> azioni{freccia, digita, muovi, lucido, segmento,         polilinea,
                                                  cerchio, arco,   testo, marker, ApriCalcolatrice, perPuntiDiControllo,
                                                  perMesh};

void clicCella(CellaPalette c) {
    if (c == cellaLucido) {
        lucido();
        return;
    }
    const std::int32_t icona = IconaCella(c);
    if (TrackIcon(RettangoloCella(c), icona, IconaAccesa(icona))) azioni[c]();
}

}   // namespace

void Do_Tessaro3D() {
    opzione = (KeyModifiers() & optionKey) != 0;
    if (NellaRigaCoordinate(EventPoint)) {
        clicRigaCoordinate();
    } else if (const CellaPalette c = CellaSotto(EventPoint); c != numCelle) {
        clicCella(c);
    }
    DrawPallette();
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
}

}   // namespace tessaro
