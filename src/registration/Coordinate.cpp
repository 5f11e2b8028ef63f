// The chain between sheet and real coordinates, and the similarities behind it.
#include "registration/Coordinate.h"

#include <cmath>

#include "model/Archivio.h"
#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "registration/TabellaPunti.h"
#include "text/Conversione.h"

namespace tessaro {

void Tracoord(const TransfRec& t, const double& x, const double& y, double& outX, double& outY) {
    const double dx = x - t.x1, dy = y - t.y1;   // both before any result is written: the results may be x and y
    outX = t.deltaX + ((t.rot11 * dx + t.rot12 * dy) * t.ingr + t.x1);
    outY = t.deltaY + ((t.rot21 * dx + t.rot22 * dy) * t.ingr + t.y1);
}

void DigiToReal(const double& x, const double& y, double& outX, double& outY) {
    if (const MappaPunti* m = MappaInVigore()) {
        const Coppia r = (*m)({x, y});
        outX = r.x;
        outY = r.y;
        return;
    }
    if (Elem(2).att.coordReali) {
        Tracoord(TransfCoord, x, y, outX, outY);
        return;
    }
    const double reale = rappvid * (YFDecimi - y);
    outX = rappvid * x;
    outY = reale;
}

void DigiToRealExt(const double& x, const double& y, double& outX, double& outY) { DigiToReal(x, y, outX, outY); }

void RealToDigi(const double& X, const double& Y, double& x, double& y) {
    // Where the mapping folds over there is no way back: the similarity that it bends says where.
    Coppia foglio;
    if (const MappaPunti* m = MappaInVigore(); m != nullptr && m->Inversa({X, Y}, foglio)) {
        x = foglio.x;
        y = foglio.y;
        return;
    }
    if (Elem(2).att.coordReali) {
        Tracoord(TransfInvert, X, Y, x, y);
        return;
    }
    const double giu = YFDecimi - Y / rappvid;
    x = X / rappvid;
    y = giu;
}

double CoordAng(const double& x1, const double& y1, const double& x2, const double& y2) {
    const double dx = x2 - x1, dy = y2 - y1;
    double a = 0;
    if (dx != 0) {
        a = std::atan(dy / dx);
    } else if (dy != 0) {
        a = static_cast<double>(Pig) / 2 * (std::fabs(dy) / dy);
    }
    return x1 > x2 ? a + Pig : a;
}

namespace {

// Source points, shift and enlargement: what all similarities share. The Z values stay as they are.
void puntiSimilitudine(TransfRec& t, const Coppia& da1, const Coppia& da2, const Coppia& a1, const Coppia& a2) {
    t.x1 = da1.x;
    t.y1 = da1.y;
    t.x2 = da2.x;
    t.y2 = da2.y;
    t.deltaX = a1.x - da1.x;
    t.deltaY = a1.y - da1.y;
    t.ingr = Distanza(a1.x, a1.y, a2.x, a2.y) / Distanza(da1.x, da1.y, da2.x, da2.y);
}

// A rotation with the Y axis turned over: from Y down to Y up and back. It is its own inverse.
void rotazioneRibaltata(TransfRec& t, double a) {
    t.rot11 = std::cos(a);
    t.rot12 = -std::sin(a);
    t.rot21 = -std::sin(a);
    t.rot22 = -std::cos(a);
}

}   // namespace

void CalcTransfC() {
    const auto& foglio = Elem(1).att;
    const auto& reali = Elem(2).att;
    const Coppia s1{foglio.x1, foglio.y1}, s2{foglio.x2, foglio.y2};
    const Coppia r1{reali.x1, reali.y1}, r2{reali.x2, reali.y2};
    // The sheet's Y runs down, so its angle is taken on negated Y.
    const double a = CoordAng(s1.x, -s1.y, s2.x, -s2.y) - CoordAng(r1.x, r1.y, r2.x, r2.y);
    puntiSimilitudine(TransfCoord, s1, s2, r1, r2);
    rotazioneRibaltata(TransfCoord, a);
    puntiSimilitudine(TransfInvert, r1, r2, s1, s2);
    rotazioneRibaltata(TransfInvert, a);
}

void CalcTransfFogli(TransfRec& t, const Coppia& i1, const Coppia& i2, const Coppia& b1, const Coppia& b2) {
    const double a = CoordAng(b1.x, b1.y, b2.x, b2.y) - CoordAng(i1.x, i1.y, i2.x, i2.y);
    puntiSimilitudine(t, i1, i2, b1, b2);
    t.rot11 = std::cos(a);
    t.rot12 = -std::sin(a);
    t.rot21 = std::sin(a);
    t.rot22 = std::cos(a);
}

namespace {

void trasformaPunto(const TransfRec& t, f64& x, f64& y) {
    double nuovoX = x, nuovoY = y;
    Tracoord(t, nuovoX, nuovoY, nuovoX, nuovoY);
    x = nuovoX;
    y = nuovoY;
}

// Degrees by which `t` turns. The matrix holds the angle to the last digit but not its full turns: those come from the
// reference points, as CalcTransfFogli measured them.
double rotazioneGradi(const TransfRec& t) {
    constexpr double giro = 2 * 3.14159265358979323846;
    double x1 = t.x1, y1 = t.y1, x2 = t.x2, y2 = t.y2;
    Tracoord(t, x1, y1, x1, y1);
    Tracoord(t, x2, y2, x2, y2);
    const double misurata = CoordAng(x1, y1, x2, y2) - CoordAng(t.x1, t.y1, t.x2, t.y2);
    const double matrice = std::atan2(t.rot21, t.rot11);
    return RadToAng(matrice + giro * std::round((misurata - matrice) / giro), gradSessadecimali);
}

}   // namespace

void TrasformaElemento(elemento& e, const TransfRec& t) {
    PerPunti(e, [&t](f64& x, f64& y) { trasformaPunto(t, x, y); });
    if (e.tipo == tCerchio) e.cerc.raggio = e.cerc.raggio * t.ingr;
    if (e.tipo != tArco) return;
    e.arco.raggio = e.arco.raggio * t.ingr;
    e.arco.angoloInizio += rotazioneGradi(t);
}

}   // namespace tessaro
