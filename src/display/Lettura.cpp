// The coordinate read-out: real position of the cursor, elevation, distance and angle from the last point.
#include "display/Lettura.h"

#include "model/Attributi.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

PStr255 lineaCoordinate("");

namespace {

constexpr std::int32_t larghezzaRiga = 390;

void disegnaRiga() {
    const Stato stato;
    const Rect porta = GetPortBounds(theWindow);
    ClipRect(porta);
    PenNormal();
    ForeColor(blackColor);
    BackColor(whiteColor);
    EraseRect(SetRect(0, myViewRect.bottom, larghezzaRiga, porta.bottom));
    MoveTo(0, myViewRect.bottom);
    LineTo(larghezzaRiga - 1, myViewRect.bottom);
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
    if (noWindow || (!TabAbilit && Modalita == 0 && !scriviSempreCoord)) return;
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
const VoceStato righe[] = {{"readout", VoceStato::speciale, nullptr, 0, [] { lineaCoordinate = ""; },
                            [] { return TestoJson(lineaCoordinate.str()); }}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
