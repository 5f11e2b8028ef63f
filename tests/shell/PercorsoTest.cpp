// The path that the calculator traces, on the screen.
#include "model/Percorso.h"
#include "../display/Scena.h"
#include "display/Disegno.h"
#include "model/Cursore.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"
#include "registration/Coordinate.h"
#include "shell/Calcolatrice.h"

using namespace tessaro;
using namespace prova;

namespace {

void punto(double x, double y) {
    double X = 0, Y = 0;
    DigiToReal(x, y, X, Y);
    if (RisCalc.numPunti == 0) {
        InizioPercorso(X, Y, 0);
    } else {
        AggiungiAlPercorso(X, Y, 0);
    }
}

// Ink at a sheet position that is one pixel a unit.
bool segnato(FinestraProva& f, double x, double y) {
    return f.porta().pixel(static_cast<int>(XVidD(x)), static_cast<int>(YVidD(y))) == nero;
}

}   // namespace

TEST(PercorsoSulloSchermo, ARepaintKeepsItsSidesAndAStepBackTakesTheLastOneOff) {
    FinestraProva f;
    FinestraProva::vedi(1, 0, 0);
    XFDecimi = YFDecimi = 900;
    punto(100, 100);
    punto(300, 100);
    punto(300, 300);
    CalcWindow = 1;
    Azione = sPercorso;
    operazCorrente = opCalcolatrice;
    xcurs = Xini = Xfine = 500;
    ycurs = Yini = Yfine = 400;
    const auto lati = [&f] { return std::pair(segnato(f, 200, 100), segnato(f, 300, 200)); };
    ClipRect(myViewRect);
    EraseRect(myViewRect);
    Disegna();
    EXPECT_EQ(lati(), std::pair(true, true));
    IndietroPercorso();
    EXPECT_EQ(RisCalc.numPunti, 2);
    EXPECT_EQ(lati(), std::pair(true, false));
    EXPECT_EQ(std::pair(Xini, Yini), std::pair(300.0, 100.0));   // the rubber band hangs on the point before
    // Another thing under way: nothing of the path.
    Azione = sFermo;
    EraseRect(myViewRect);
    Disegna();
    EXPECT_EQ(lati(), std::pair(false, false));
    CalcWindow = 0;
}
