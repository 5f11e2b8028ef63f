// The geometry of circles and arcs: centre, radius and angles from three points.
#include "tools/Curve.h"

#include <algorithm>
#include <cmath>

#include "model/Archivio.h"
#include "model/Vista.h"
#include "platform/Quickdraw.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

// Slope of the perpendicular bisector of a and b.
double asse(const puntot& a, const puntot& b) { return -1 / ((b.y - a.y) / (b.x - a.x)); }

// Direction of p from the centre: clockwise from straight up, radians, as arcs are drawn.
double direzione(const puntot& centro, const puntot& p) {
    double distanza = 0, angolo = 0;
    CartPolar(centro.x, -centro.y, p.x, -p.y, distanza, angolo, orientAzimut);
    return angolo;
}

std::int16_t gradi(double radianti) { return arrotonda16(RadToAng(radianti, gradSessadecimali)); }

}   // namespace

// The centre is where the perpendicular bisectors of p1-p2 and p2-p3 cross. A bisector of two points of one height is
// upright: the points then change places, so that it comes second. Points of one line give infinities or NaN; nothing is
// drawn of these, and CurvaVera refuses them.
void CerchioTre(const puntot& p1, const puntot& p2, const puntot& p3, puntot& centro, double& raggio) {
    if (p1.y == p2.y && p2.y != p3.y) {
        CerchioTre(p3, p2, p1, centro, raggio);
        raggio = Distanza(p1.x, p1.y, centro.x, centro.y);
        return;
    }
    const double m1 = asse(p1, p2), mx1 = (p1.x + p2.x) / 2, my1 = (p1.y + p2.y) / 2;
    double cx = 0;
    if (p3.y == p2.y) {
        cx = (p3.x + p2.x) / 2;
    } else {
        const double m2 = asse(p2, p3), mx2 = (p2.x + p3.x) / 2, my2 = (p2.y + p3.y) / 2;
        cx = (m1 * mx1 - m2 * mx2 + my2 - my1) / (m1 - m2);
    }
    centro.x = cx;
    centro.y = (cx - mx1) * m1 + my1;
    raggio = Distanza(p1.x, p1.y, centro.x, centro.y);
}

bool CurvaVera(const puntot& p1, const puntot& p2, const puntot& p3) {
    constexpr double parte = 1e-9;   // of the longest side: far below a pixel, far above rounding
    const double ab = Distanza(p1.x, p1.y, p2.x, p2.y), bc = Distanza(p2.x, p2.y, p3.x, p3.y),
                 ca = Distanza(p3.x, p3.y, p1.x, p1.y);
    const double lato = std::max({ab, bc, ca});
    const double area = (p2.x - p1.x) * (p3.y - p1.y) - (p3.x - p1.x) * (p2.y - p1.y);
    return std::fabs(area) > parte * lato * lato;   // false for what is not finite too
}

void ArcoTre(const puntot& p1, const puntot& p2, const puntot& p3, puntot& centro, double& raggio, std::int16_t& inizio,
             std::int16_t& ampiezza) {
    inizio = 0;
    ampiezza = 360;
    CerchioTre(p1, p2, p3, centro, raggio);
    CalcAngolo(p1, p2, p3, centro, raggio, inizio, ampiezza);
}

// From p1 to p2 through p3: when p3 is not met on the clockwise way, the sweep is negative and runs the other way.
void CalcAngolo(const puntot& p1, const puntot& p2, const puntot& p3, const puntot& centro, const double& /*raggio*/,
                std::int16_t& inizio, std::int16_t& ampiezza) {
    const double a1 = direzione(centro, p1);
    double a2 = direzione(centro, p2), a3 = direzione(centro, p3);
    if (a2 < a1) a2 += DuePig;
    if (a3 < a1) a3 += DuePig;
    ampiezza = gradi(a2 - a1);
    if (a3 > a2) ampiezza = i16(ampiezza - 360);
    inizio = gradi(a1);
}

// An older form of the circle, by the scroll corner alone: without the palette's and the toolbar's offsets.
void grafcerchio2(const puntot& centro, const double& raggio) {
    const auto pixel = [](double v, std::int32_t angolo) {
        return std::int32_t{arrotonda16(std::round(scalavid * v) - angolo)};
    };
    FrameOval(SetRect(pixel(centro.x - raggio, PageCorner.h), pixel(centro.y - raggio, PageCorner.v),
                      pixel(centro.x + raggio, PageCorner.h), pixel(centro.y + raggio, PageCorner.v)));
}

}   // namespace tessaro
