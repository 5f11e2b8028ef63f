// The marks of the control points: shapes of a few pixels around the point's pixel.
#include "display/AttacchiMarche.h"

#include <cmath>

#include "display/Disegno.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

namespace {

constexpr std::int32_t raggio = 2, codolo = 4, raggioCentro = 3;   // pixels

// False far outside every view, where whole pixels would not hold the shape.
bool pixelDi(const double& x, const double& y, Point& p) {
    constexpr double lontano = 1e6;
    const double h = XVidD(x), v = YVidD(y);
    if (!(std::fabs(h) < lontano) || !(std::fabs(v) < lontano)) return false;
    p = Point{static_cast<std::int32_t>(v), static_cast<std::int32_t>(h)};
    return true;
}

Rect attorno(Point p, std::int32_t r) { return SetRect(p.h - r, p.v - r, p.h + r, p.v + r); }

void linea(Point p, std::int32_t dh1, std::int32_t dv1, std::int32_t dh2, std::int32_t dv2) {
    MoveTo(p.h + dh1, p.v + dv1);
    LineTo(p.h + dh2, p.v + dv2);
}

void rombo(Point p) {
    MoveTo(p.h - raggio, p.v);
    LineTo(p.h, p.v - raggio);
    LineTo(p.h + raggio, p.v);
    LineTo(p.h, p.v + raggio);
    LineTo(p.h - raggio, p.v);
}

void codoliDiagonali(Point p) {
    linea(p, -raggio, -raggio, -codolo, -codolo);
    linea(p, raggio, -raggio, codolo, -codolo);
    linea(p, raggio, raggio, codolo, codolo);
    linea(p, -raggio, raggio, -codolo, codolo);
}

void codoliSugliAssi(Point p) {
    linea(p, -raggio, 0, -codolo, 0);
    linea(p, 0, -raggio, 0, -codolo);
    linea(p, raggio, 0, codolo, 0);
    linea(p, 0, raggio, 0, codolo);
}

void marca(std::int16_t n) {
    const Coppia c = LeggiAttacco(n);
    DisMarcaAttacco(n, c.x, c.y);
}

}   // namespace

void DisMarcaAttacco(std::int16_t n, const double& x, const double& y) {
    Point p;
    if (!pixelDi(x, y, p)) return;
    switch (n) {
    case 1: FrameRect(attorno(p, raggio)); break;
    case 2: rombo(p); break;
    case 3:
        FrameRect(attorno(p, raggio));
        codoliDiagonali(p);
        break;
    case 4:
        rombo(p);
        codoliSugliAssi(p);
        break;
    case 5:
        FrameOval(attorno(p, raggio));
        FrameOval(attorno(p, codolo));
        break;
    default: break;
    }
}

void DisCentroAttacco(const Coppia& centro) {
    Point p;
    if (!pixelDi(centro.x, centro.y, p)) return;
    const RGBColor prima = GetPort()->foreground;
    ForeColor(blackColor);
    PaintOval(attorno(p, raggioCentro));
    RGBForeColor(prima);
}

void DisAttacco1() { marca(1); }
void DisAttacco2() { marca(2); }
void DisAttacco3() { marca(3); }
void DisAttacco4() { marca(4); }

// Kept: the dot stands at the free solver's centre, which only merging by four points fills.
void DisAttacco5() {
    marca(5);
    DisCentroAttacco(att4Pt.srcC);
}

void DisAttaccoDin(std::int16_t n) {
    Coppia c;
    attaccoAttivo.GetAttacco(n, c.x, c.y);
    DisMarcaAttacco(n, c.x, c.y);
    if (n == 5) DisCentroAttacco(attaccoAttivo.lavoro.dstC);
}

void DisAttacchiDin() {
    constexpr std::int32_t quattroPt = 1, cinquePt = 2;
    const std::int32_t tipo = attaccoAttivo.GetTipo();
    ForeColor(blueColor);
    PenPat(qdBlack);
    PenSize(1, 1);
    PenSizeLaser(0);
    const std::int16_t ultimo = tipo == cinquePt ? 5 : tipo == quattroPt ? 4 : 2;
    for (std::int16_t n = 1; n <= ultimo; ++n) DisAttaccoDin(n);
    ForeColor(blackColor);
}

}   // namespace tessaro
