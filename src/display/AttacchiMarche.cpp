// The marks of the control points: a shape a point with its number, outlined in white so that it shows on any ground.
#include "display/AttacchiMarche.h"

#include <cmath>
#include <string>

#include "display/Disegno.h"
#include "model/Archivio.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

namespace {

constexpr std::int32_t raggio = 5, codolo = 9, raggioCentro = 3;   // pixels: a mark is 11 wide, with its ticks 19

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

void forma(std::int16_t n, Point p) {
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

// The number, and what stands beside it, to the right of the mark: white round the letters, so that any ground lets them be
// read.
void scritta(const std::string& testo, Point p, const RGBColor& colore) {
    TextFont(3);
    TextSize(11);
    TextFace(bold);
    TextMode(srcOr);
    const auto scrivi = [&](std::int32_t dh, std::int32_t dv) {
        MoveTo(p.h + codolo + 3 + dh, p.v - codolo + 4 + dv);
        DrawString(testo);
    };
    ForeColor(whiteColor);
    for (std::int32_t dh = -1; dh <= 1; ++dh)
        for (std::int32_t dv = -1; dv <= 1; ++dv) scrivi(dh, dv);
    RGBForeColor(colore);
    scrivi(0, 0);
    TextFace(0);
}

}   // namespace

std::string (*accantoAllaMarca)(std::int16_t n, bool destinazione) = nullptr;

namespace {

// White below, three pixels wide, and the mark of one pixel in the middle of it, in the colour of the moment.
void marcaConNumero(std::int16_t n, bool destinazione, const double& x, const double& y) {
    Point p;
    if (!pixelDi(x, y, p)) return;
    const PenState prima = GetPenState();
    const RGBColor colore = GetPort()->foreground;
    const TextState testo = GetPort()->text;
    PenNormal();
    PenSize(3, 3);
    ForeColor(whiteColor);
    forma(n, {p.v - 1, p.h - 1});
    PenSize(1, 1);
    RGBForeColor(colore);
    forma(n, p);
    std::string accanto = accantoAllaMarca ? accantoAllaMarca(n, destinazione) : std::string();
    if (!accanto.empty()) accanto.insert(0, "  ");
    scritta(std::to_string(n) + accanto, p, colore);
    GetPort()->text = testo;
    RGBForeColor(colore);
    SetPenState(prima);
}

}   // namespace

bool AttaccoDato(std::int16_t n) {
    const Coppia c = LeggiAttacco(n);
    const bool altrove = c.x != 0 || c.y != 0;
    switch (n) {
    case 1:
    case 2:
    case 3: return altrove;
    // At rest the fields of point 4 hold what a new drawing's record 2 does: (0, 1), in older ones (0, 0).
    case 4: return c.x != 0 || (c.y != 0 && c.y != 1.0);
    case 5: return OKAttacco5 != 0;
    default: return false;
    }
}

// What no one has given stands where the program has put it.
bool DestinazioneData(std::int16_t n) {
    static const ActiveAttach iniziale;
    const auto i = static_cast<std::size_t>(n - 1);
    if (n < 1 || i >= iniziale.xAtt.size()) return false;
    return attaccoAttivo.xAtt[i] != iniziale.xAtt[i] || attaccoAttivo.yAtt[i] != iniziale.yAtt[i];
}

void DisMarcaAttacco(std::int16_t n, const double& x, const double& y) { marcaConNumero(n, false, x, y); }

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
    marcaConNumero(n, true, c.x, c.y);
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
    for (std::int16_t n = 1; n <= ultimo; ++n) {
        if (DestinazioneData(n)) DisAttaccoDin(n);
    }
    ForeColor(blackColor);
}

}   // namespace tessaro
