// What Escape gives up, from the innermost thing outwards.
#include "shell/Rinuncia.h"

#include <iterator>

#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "editing/Scelta.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Figura.h"
#include "model/Percorso.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "platform/Windows.h"
#include "shell/Modi.h"

namespace tessaro {

namespace {

bool percorso() {
    if (Azione != sPercorso) return false;
    Azione = sFermo;
    RisCalc.numPunti = 0;
    InvalFinestra();
    return true;
}

bool figura() {
    if (!FiguraInCorso()) return false;
    FineFigura();
    return true;
}

bool mezzoSpostamento() {
    if (Modalita != mSpostamento || !Sposta2ndClick) return false;
    Sposta2ndClick = 0;
    DisegnaSelezione();
    InvalFinestra();
    return true;
}

// Back to the arrow. A control point that is not pointed any more leaves a tool that draws.
bool attrezzo() {
    if (Modalita == mSelezione) return false;
    CambiaModo(mSelezione);
    if (operazCorrente >= opOrigine1) operazCorrente = opSegmento;
    SetCursor(arrowCursor);
    DrawPallette();
    return true;
}

bool selezione() {
    if (!Puntosel.attiva) return false;
    NessunaSelezione();
    DisegnaSelezione();
    return true;
}

constexpr bool (*daDentro[])() = {percorso, figura, mezzoSpostamento, attrezzo, selezione};

}   // namespace

bool Rinuncia() {
    if (noWindow) return false;
    for (bool (*rinuncia)() : daDentro)
        if (rinuncia()) return true;
    return false;
}

}   // namespace tessaro
