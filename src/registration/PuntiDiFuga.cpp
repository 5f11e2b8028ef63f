// The construction by vanishing points. Source and target are measured alike but for the centre they take and a few
// asymmetries that results depend on; those stand where they happen.
#include <cmath>

#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "registration/Solutori.h"
#include "text/Conversione.h"

namespace tessaro {

constinit std::uint8_t deformProspettica = 1;

namespace {

struct Retta {
    Coppia a, b;
};

// True when the lines are parallel; the crossing is then (0, 0).
bool incrocio(const Retta& r, const Retta& s, Coppia& p) {
    return IntersRette(r.a.x, r.a.y, r.b.x, r.b.y, s.a.x, s.a.y, s.b.x, s.b.y, p.x, p.y);
}

void incrocioOErrore(const Retta& r, const Retta& s, Coppia& p, std::int16_t errore, ErroriIncontrati& incontrati) {
    if (incrocio(r, s, p)) incontrati.aggiungi(errore);
}

double lontananza(const Coppia& a, const Coppia& b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    return std::sqrt(dx * dx + dy * dy);
}

double attraverso(const Coppia& base, double angolo, const Coppia& p) {
    return DistRetta(base.x, base.y, angolo, p.x, p.y);
}

double direzione(const Coppia& da, const Coppia& a) {
    double distanza = 0, angolo = 0;
    CartPolar(da.x, da.y, a.x, a.y, distanza, angolo, orientCorrente);
    return angolo;
}

// --- preparation

using Quadrilatero = std::array<Coppia, 4>;

void puntiDiFuga(const Quadrilatero& q, Coppia& fuga1, std::uint8_t& par1, Coppia& fuga2, std::uint8_t& par2) {
    par1 = incrocio({q[0], q[1]}, {q[2], q[3]}, fuga1);
    par2 = incrocio({q[0], q[3]}, {q[1], q[2]}, fuga2);
}

// One axis of a quadrilateral: what is measured, and the fields of the record that hold it.
struct Asse {
    double &origine, &lunghezza, &centro, &angolo;
};

// Sides P1 P2 and P3 P4 parallel: measured from the one to the other by their direction.
void misuraParallelo1(const Quadrilatero& q, const Coppia& c, Asse a) {
    a.angolo = direzione(q[1], q[0]);
    a.origine = 0;
    a.lunghezza = attraverso(q[1], a.angolo, q[2]);
    a.centro = attraverso(c, a.angolo, q[2]);
}

// Sides P1 P4 and P2 P3 parallel.
void misuraParallelo2(const Quadrilatero& q, const Coppia& c, Asse a) {
    a.angolo = direzione(q[3], q[0]);
    a.origine = 0;
    a.lunghezza = attraverso(q[3], a.angolo, q[2]);
    a.centro = attraverso(c, a.angolo, q[2]);
}

// Along the side `da`-`a`; the line from the centre to the vanishing point cuts it at m.
void misuraFuga(const Coppia& da, const Coppia& a, const Retta& dalCentro, Coppia& m, Asse asse, std::int16_t errore,
                ErroriIncontrati& incontrati) {
    asse.origine = 0;
    asse.lunghezza = lontananza(da, a);
    incrocioOErrore(dalCentro, {da, a}, m, errore, incontrati);
    asse.centro = lontananza(da, m);
}

Asse asse1(Att4Pt& r) { return {r.o1, r.len1, r.mid1, r.ang1}; }
Asse asse2(Att4Pt& r) { return {r.o2, r.len2, r.mid2, r.ang2}; }
Asse asse1d(Att4Pt& r) { return {r.o1d, r.len1d, r.mid1d, r.ang1d}; }
Asse asse2d(Att4Pt& r) { return {r.o2d, r.len2d, r.mid2d, r.ang2d}; }

void assiSorgente(Att4Pt& r, const Coppia& centro, const ErroriPrep& errori, ErroriIncontrati& incontrati) {
    if (r.par1) {
        misuraParallelo1(r.src, centro, asse1(r));
    } else {
        misuraFuga(r.src[0], r.src[3], {centro, r.fuga1}, r.srcC, asse1(r), errori.asse1, incontrati);
    }
    if (r.par2) {
        misuraParallelo2(r.src, centro, asse2(r));
    } else {
        misuraFuga(r.src[2], r.src[3], {centro, r.fuga2}, r.srcC, asse2(r), errori.asse2, incontrati);
    }
}

// `centro` is what parallel branches measure; it may be r.dstC itself, which the first axis then overwrites.
void assiDestinazione(Att4Pt& r, const Coppia& centro, const Coppia& centroFuga, const ErroriPrep& errori,
                      ErroriIncontrati& incontrati) {
    if (r.par1d) {
        misuraParallelo1(r.dst, centro, asse1d(r));
    } else {
        misuraFuga(r.dst[0], r.dst[3], {centroFuga, r.fuga1d}, r.dstC, asse1d(r), errori.asse1d, incontrati);
    }
    if (r.par2d) {
        misuraParallelo2(r.dst, centro, asse2d(r));
    } else {
        misuraFuga(r.dst[2], r.dst[3], {centroFuga, r.fuga2d}, r.dstC, asse2d(r), errori.asse2d, incontrati);
    }
}

// The scale of an axis, and by how much a plain scale would miss the centre, spread over its two sides.
void rapporti(double len, double mid, double lend, double midd, double& k, double& d, double& r, double& t) {
    k = lend / len;
    d = midd - k * mid;
    r = d / mid;
    t = d / (len - mid);
}

void calcolaRapporti(Att4Pt& r) {
    rapporti(r.len1, r.mid1, r.len1d, r.mid1d, r.k1, r.d1, r.r1, r.t1);
    rapporti(r.len2, r.mid2, r.len2d, r.mid2d, r.k2, r.d2, r.r2, r.t2);
}

void tutteLeFughe(Att4Pt& r) {
    puntiDiFuga(r.src, r.fuga1, r.par1, r.fuga2, r.par2);
    puntiDiFuga(r.dst, r.fuga1d, r.par1d, r.fuga2d, r.par2d);
}

Coppia incrocioDiagonali(const Quadrilatero& q, std::int16_t errore, ErroriIncontrati& incontrati) {
    Coppia c;
    incrocioOErrore({q[0], q[2]}, {q[1], q[3]}, c, errore, incontrati);
    return c;
}

}   // namespace

ErroriIncontrati PreparaQuattro(Att4Pt& r, const ErroriPrep& errori) {
    ErroriIncontrati incontrati;
    tutteLeFughe(r);
    const Coppia centro = incrocioDiagonali(r.src, errori.diagonaliSrc, incontrati);
    const Coppia centroD = incrocioDiagonali(r.dst, errori.diagonaliDst, incontrati);
    assiSorgente(r, centro, errori, incontrati);
    assiDestinazione(r, centroD, centroD, errori, incontrati);
    calcolaRapporti(r);
    return incontrati;
}

ErroriIncontrati PreparaCinque(Att4Pt& r, const ErroriPrep& errori) {
    ErroriIncontrati incontrati;
    tutteLeFughe(r);
    const Coppia centro = r.srcC;   // aside: the axes write their crossings there
    assiSorgente(r, centro, errori, incontrati);
    // Kept: no such copy on this side, and the lines to vanishing points start at the source's global point.
    assiDestinazione(r, r.dstC, {xAttacco5, yAttacco5}, errori, incontrati);
    calcolaRapporti(r);
    return incontrati;
}

// --- mapping

namespace {

using Due = MappaFuga::Due;
using Scelta = MappaFuga::Scelta;

Scelta quali(bool primo, bool secondo) { return Scelta{primo ? -1 : 0, secondo ? -1 : 0}; }

Due assoluto(Due v) { return v < 0 ? -v : v; }

// Two parabolas through 0, the centre and the length, joined at the centre with the slope K of the plain scale.
Due curvaDuePezzi(const MappaFuga::Assi& a, Due p) {
    const auto [L, M, K, R, T, S] = a;
    const Due piana = K * p + R * p, oltre = K * p + S - (p - M) * T;
    const Due prima = piana + R * (M - p) / M * p;
    const Due dopo = oltre + (L - p) * T * (p - M) / (L - M);
    if (L[0] > 0 && L[1] > 0) return M > p ? prima : dopo;   // both lengths, as a rule
    return L > 0 ? (M > p ? prima : dopo) : (p > M ? piana : oltre);
}

// The lines a-b, as IntersRette asks for them.
MappaFuga::Rette rettePer(Due ax, Due ay, Due bx, Due by) { return {ay - by, bx - ax, ax * by - bx * ay}; }

constexpr double parallele = 1e-6;   // lines whose determinant is below do not cross, and their crossing is (0, 0)

// The far point of a line along parallel sides.
Coppia passoLungo(double angolo) {
    constexpr double lontano = 1000000;
    Coppia p;
    PolarCart(0, 0, angolo, lontano, p.x, p.y, orientCorrente);
    return p;
}

}   // namespace

MappaFuga::MappaFuga(const Att4Pt& r)
    : orient(orientCorrente), assi{{r.len1, r.len2}, {r.mid1, r.mid2}, {r.k1, r.k2},
                                   {r.r1, r.r2},     {r.t1, r.t2},     {r.d1, r.d2}} {
    const auto &p = r.src, &q = r.dst;
    par = quali(r.par1, r.par2);
    fugaX = Due{r.fuga1.x, r.fuga2.x};
    fugaY = Due{r.fuga1.y, r.fuga2.y};
    inizioX = Due{p[0].x, p[2].x};
    inizioY = Due{p[0].y, p[2].y};
    lati = rettePer(inizioX, inizioY, Due{p[3].x, p[3].x}, Due{p[3].y, p[3].y});
    base = p[1];
    cosP = Due{std::cos(r.ang1), -std::cos(r.ang2)};   // Kept: both from P2, though axis 2 was measured from P4
    senP = Due{std::sin(r.ang1), -std::sin(r.ang2)};
    destinazione(r, q);
}

void MappaFuga::destinazione(const Att4Pt& r, const std::array<Coppia, 4>& q) {
    pard = quali(r.par1d, r.par2d);
    fugadX = Due{r.fuga1d.x, r.fuga2d.x};
    fugadY = Due{r.fuga1d.y, r.fuga2d.y};
    const Coppia lungo1 = passoLungo(r.ang1d), lungo2 = passoLungo(r.ang2d);
    lungoX = Due{lungo1.x, lungo2.x};
    lungoY = Due{lungo1.y, lungo2.y};
    const Due lati1X{q[0].x, q[2].x}, lati1Y{q[0].y, q[2].y}, lend{r.len1d, r.len2d};
    iniziodX = pard ? Due{q[1].x, q[3].x} : lati1X;   // Kept: Q4 gives X and Q2 gives Y
    iniziodY = pard ? Due{q[1].y, q[1].y} : lati1Y;
    passodX = pard ? Due{std::cos(r.ang1d), std::cos(r.ang2d)} : (q[3].x - lati1X) / lend;
    passodY = pard ? Due{std::sin(r.ang1d), std::sin(r.ang2d)} : (q[3].y - lati1Y) / lend;
}

Due MappaFuga::posizioni(double x, double y) const {
    const Rette r = rettePer(Due{x, x}, Due{y, y}, fugaX, fugaY);
    const Due D = lati.dy * r.dx - r.dy * lati.dx;
    const Scelta cadute = assoluto(D) < parallele;
    const Due mX = cadute ? Due{} : (lati.dx * r.k - lati.k * r.dx) / D;
    const Due mY = cadute ? Due{} : (lati.k * r.dy - lati.dy * r.k) / D;
    const Due dx = mX - inizioX, dy = mY - inizioY, quadrato = dx * dx + dy * dy;
    const Due d{std::sqrt(quadrato[0]), std::sqrt(quadrato[1])}, verso{dx[0], dy[1]};
    const Due lungoLati = verso < 0 ? -d : d;
    const Due attraverso = (x - base.x) * cosP - (y - base.y) * senP;
    return par ? attraverso : lungoLati;
}

void MappaFuga::operator()(bool curva, double& x, double& y) const {
    const Due p = posizioni(x, y), e = curva ? curvaDuePezzi(assi, p) : p * assi.k;
    const Due sulLatoX = iniziodX + passodX * e, sulLatoY = iniziodY + passodY * e;
    const Rette r = rettePer(pard ? sulLatoX : fugadX, pard ? sulLatoY : fugadY, pard ? sulLatoX + lungoX : sulLatoX,
                             pard ? sulLatoY + lungoY : sulLatoY);
    const double D = r.dy[1] * r.dx[0] - r.dy[0] * r.dx[1];
    if (std::fabs(D) < parallele) {
        x = y = 0;
        return;
    }
    const Due incrocio = Due{r.dx[1] * r.k[0] - r.k[1] * r.dx[0], r.k[1] * r.dy[0] - r.dy[1] * r.k[0]} / D;
    x = incrocio[0];
    y = incrocio[1];
}

void TrasformaFuga(const Att4Pt& r, bool curva, double& x, double& y) {
    const MappaFuga mappa(r);
    mappa(curva, x, y);
}

// --- the free solver

ErroriIncontrati PrepAtt4pt() { return PreparaQuattro(att4Pt, {23, 24, 23, 23, 24, 24}); }

void Traf4Pt(double& x, double& y) { TrasformaFuga(att4Pt, true, x, y); }

namespace {
const VoceStato righe[] = {voce<deformProspettica>("deformProspettica")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
