// The coordinate read-out: real position of the cursor, elevation, distance and angle from the last point.
#include "display/Lettura.h"

#include "display/Disposizione.h"

#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::uint8_t scriviSempreCoord = 0;
constinit double XVisualPrec = 0;
constinit double YVisualPrec = 0;
constinit double ZVisualPrec = 0;

PStr255 lineaCoordinate("");

namespace {

void disegnaRiga() {
    const Stato stato;
    const Rect porta = GetPortBounds(theWindow);
    ClipRect(porta);
    PenNormal();
    ForeColor(blackColor);
    BackColor(whiteColor);
    EraseRect(SetRect(0, myViewRect.bottom, fineRiga, porta.bottom));
    MoveTo(0, myViewRect.bottom);
    LineTo(fineRiga - 1, myViewRect.bottom);
    TextFont(4);
    TextSize(9);
    TextFace(0);
    TextMode(srcOr);
    MoveTo(4, porta.bottom - 4);
    DrawString(lineaCoordinate.view());
}

}   // namespace

void RidisegnaLettura() {
    if (theWindow && !lineaCoordinate.view().empty()) disegnaRiga();
}

namespace {

// The line for a place of the sheet, when it is another than the one shown or `sempre`.
void mostraPosto(double x, double y, bool sempre) {
    double X = 0, Y = 0, d = 0, a = 0;
    const double Z = ZetaCorrente;
    DigiToReal(x, y, X, Y);
    CartPolar(lastX, lastY, x, y, d, a, orientCorrente);
    a = static_cast<double>(Pig) - a;
    if (a < 0) a += static_cast<double>(DuePig);
    d *= rappvid;
    a = AngToAttuale(RadToAng(a, gradCorrente));
    if (!sempre && X == XVisualPrec && Y == YVisualPrec && Z == ZVisualPrec) return;
    lineaCoordinate = PStr255("X:") + FormatReal(X, 10, 2) + "  Y:" + FormatReal(Y, 10, 2)
                      + "  Z:" + FormatReal(Z, 7, 2) + "  D:" + FormatReal(d, 8, 2) + "  A: " + FormatReal(a, 6, 2);
    if (theWindow) disegnaRiga();
    XVisualPrec = X;
    YVisualPrec = Y;
    ZVisualPrec = Z;
}

// Where the pointer rests over the view in the selecting mode; outside the cursor's place is shown.
constinit Point letto{-1, -1};

}   // namespace

void SetDrawCoordCorr() {
    if (noWindow || (!TabAbilit && Modalita == mSelezione && !scriviSempreCoord)) return;
    puntot p{xcurs, ycurs, 0};
    if (Modalita == mSelezione && !TabAbilit && PtInRect(letto, myViewRect)) VidToReal(letto, p);
    mostraPosto(p.x, p.y, scriviSempreCoord != 0);
}

void LeggiPuntatore(Point p) {
    letto = p;
    if (noWindow || TabAbilit || Modalita != mSelezione || !PtInRect(p, myViewRect)) return;
    puntot reale;
    VidToReal(p, reale);
    mostraPosto(reale.x, reale.y, false);
}

namespace {
const VoceStato righe[] = {voce<scriviSempreCoord>("scriviSempreCoord"),
                           {"letto",
                            [] {
                                letto = {-1, -1};
                            }},
                           voce<XVisualPrec>("XVisualPrec"),
                           voce<YVisualPrec>("YVisualPrec"),
                           voce<ZVisualPrec>("ZVisualPrec"),
                           {"readout", [] { lineaCoordinate = ""; }, [] { return TestoJson(lineaCoordinate.str()); }}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
