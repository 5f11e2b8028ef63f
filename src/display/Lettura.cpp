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

void SetDrawCoordCorr() {
    if (noWindow || (!TabAbilit && Modalita == mSelezione && !scriviSempreCoord)) return;
    double X = 0, Y = 0, d = 0, a = 0;
    const double Z = ZetaCorrente;
    DigiToReal(xcurs, ycurs, X, Y);
    CartPolar(lastX, lastY, xcurs, ycurs, d, a, orientCorrente);
    a = static_cast<double>(Pig) - a;
    if (a < 0) a += static_cast<double>(DuePig);
    d *= rappvid;
    a = AngToAttuale(RadToAng(a, gradCorrente));
    if (!scriviSempreCoord && X == XVisualPrec && Y == YVisualPrec && Z == ZVisualPrec) return;
    lineaCoordinate = PStr255("X:") + FormatReal(X, 10, 2) + "  Y:" + FormatReal(Y, 10, 2)
                      + "  Z:" + FormatReal(Z, 7, 2) + "  D:" + FormatReal(d, 8, 2) + "  A: " + FormatReal(a, 6, 2);
    if (theWindow) disegnaRiga();
    XVisualPrec = X;
    YVisualPrec = Y;
    ZVisualPrec = Z;
}

namespace {
const VoceStato righe[] = {voce<scriviSempreCoord>("scriviSempreCoord"),
                           voce<XVisualPrec>("XVisualPrec"),
                           voce<YVisualPrec>("YVisualPrec"),
                           voce<ZVisualPrec>("ZVisualPrec"),
                           {"readout", [] { lineaCoordinate = ""; }, [] { return TestoJson(lineaCoordinate.str()); }}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
