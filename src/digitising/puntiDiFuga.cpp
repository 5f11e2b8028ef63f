// The construction by vanishing points. Source and target are measured alike but for the centre they take and a few
// asymmetries that results depend on; those stand where they happen.
#include <cmath>

#include "dialogs/Errori.h"
#include "digitising/solutori.h"
#include "model/Attributi.h"
#include "model/TabellaStato.h"
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

void incrocioOErrore(const Retta& r, const Retta& s, Coppia& p, std::int16_t errore) {
    if (incrocio(r, s, p) && errore != 0) ErroreAlert(errore);
}

double lontananza(const Coppia& a, const Coppia& b) { return Distanza(a.x, a.y, b.x, b.y); }

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
void misuraFuga(const Coppia& da, const Coppia& a, const Retta& dalCentro, Coppia& m, Asse asse, std::int16_t errore) {
    asse.origine = 0;
    asse.lunghezza = lontananza(da, a);
    incrocioOErrore(dalCentro, {da, a}, m, errore);
    asse.centro = lontananza(da, m);
}

Asse asse1(Att4Pt& r) { return {r.o1, r.len1, r.mid1, r.ang1}; }
Asse asse2(Att4Pt& r) { return {r.o2, r.len2, r.mid2, r.ang2}; }
Asse asse1d(Att4Pt& r) { return {r.o1d, r.len1d, r.mid1d, r.ang1d}; }
Asse asse2d(Att4Pt& r) { return {r.o2d, r.len2d, r.mid2d, r.ang2d}; }

void assiSorgente(Att4Pt& r, const Coppia& centro, const ErroriPrep& errori) {
    if (r.par1) {
        misuraParallelo1(r.src, centro, asse1(r));
    } else {
        misuraFuga(r.src[0], r.src[3], {centro, r.fuga1}, r.srcC, asse1(r), errori.asse1);
    }
    if (r.par2) {
        misuraParallelo2(r.src, centro, asse2(r));
    } else {
        misuraFuga(r.src[2], r.src[3], {centro, r.fuga2}, r.srcC, asse2(r), errori.asse2);
    }
}

// `centro` is what parallel branches measure; it may be r.dstC itself, which the first axis then overwrites.
void assiDestinazione(Att4Pt& r, const Coppia& centro, const Coppia& centroFuga, const ErroriPrep& errori) {
    if (r.par1d) {
        misuraParallelo1(r.dst, centro, asse1d(r));
    } else {
        misuraFuga(r.dst[0], r.dst[3], {centroFuga, r.fuga1d}, r.dstC, asse1d(r), errori.asse1d);
    }
    if (r.par2d) {
        misuraParallelo2(r.dst, centro, asse2d(r));
    } else {
        misuraFuga(r.dst[2], r.dst[3], {centroFuga, r.fuga2d}, r.dstC, asse2d(r), errori.asse2d);
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

Coppia incrocioDiagonali(const Quadrilatero& q, std::int16_t errore) {
    Coppia c;
    incrocioOErrore({q[0], q[2]}, {q[1], q[3]}, c, errore);
    return c;
}

}   // namespace

void PreparaQuattro(Att4Pt& r, const ErroriPrep& errori) {
    tutteLeFughe(r);
    const Coppia centro = incrocioDiagonali(r.src, errori.diagonaliSrc);
    const Coppia centroD = incrocioDiagonali(r.dst, errori.diagonaliDst);
    assiSorgente(r, centro, errori);
    assiDestinazione(r, centroD, centroD, errori);
    calcolaRapporti(r);
}

void PreparaCinque(Att4Pt& r, const ErroriPrep& errori) {
    tutteLeFughe(r);
    const Coppia centro = r.srcC;   // aside: the axes write their crossings there
    assiSorgente(r, centro, errori);
    // Kept: no such copy on this side, and the lines to vanishing points start at the source's global point.
    assiDestinazione(r, r.dstC, {xAttacco5, yAttacco5}, errori);
    calcolaRapporti(r);
}

// --- mapping

namespace {

// Two parabolas through 0, the centre and the length, joined at the centre with the slope K of the plain scale.
double curvaDuePezzi(double p, double L, double M, double K, double R, double T, double S) {
    if (L > 0) {
        if (M > p) return K * p + R * p + R * (M - p) / M * p;
        return (K * p + S - (p - M) * T) + (L - p) * T * (p - M) / (L - M);
    }
    if (p > M) return R * p + K * p;
    return K * p + S - (p - M) * T;
}

double posizione1(const Att4Pt& r, const Coppia& p) {
    if (r.par1) return attraverso(r.src[1], r.ang1, p);
    Coppia m;
    incrocio({p, r.fuga1}, {r.src[0], r.src[3]}, m);
    const double d = lontananza(r.src[0], m);
    return m.x - r.src[0].x < 0 ? -d : d;
}

double posizione2(const Att4Pt& r, const Coppia& p) {
    if (r.par2) return -attraverso(r.src[1], r.ang2, p);   // Kept: from P2, though the length was measured from P4
    Coppia m;
    incrocio({p, r.fuga2}, {r.src[2], r.src[3]}, m);
    const double d = lontananza(r.src[2], m);
    return m.y - r.src[2].y < 0 ? -d : d;
}

// A line long enough to be one, from a point in a direction.
Retta rettaDa(const Coppia& da, double angolo) {
    constexpr double lontano = 1000000;
    Retta s{da, {}};
    PolarCart(da.x, da.y, angolo, lontano, s.b.x, s.b.y, orientCorrente);
    return s;
}

Coppia lungoLato(const Coppia& da, const Coppia& a, double lunghezza, double e) {
    return {da.x + (a.x - da.x) / lunghezza * e, da.y + (a.y - da.y) / lunghezza * e};
}

Retta rettaTarget1(const Att4Pt& r, double e) {
    const auto& q = r.dst;
    if (!r.par1d) return {r.fuga1d, lungoLato(q[0], q[3], r.len1d, e)};
    return rettaDa({q[1].x + std::cos(r.ang1d) * e, q[1].y + std::sin(r.ang1d) * e}, r.ang1d);
}

Retta rettaTarget2(const Att4Pt& r, double e) {
    const auto& q = r.dst;
    if (!r.par2d) return {r.fuga2d, lungoLato(q[2], q[3], r.len2d, e)};
    // Kept: Q4 gives X and Q2 gives Y.
    return rettaDa({q[3].x + std::cos(r.ang2d) * e, q[1].y + std::sin(r.ang2d) * e}, r.ang2d);
}

}   // namespace

void TrasformaFuga(const Att4Pt& r, bool curva, double& x, double& y) {
    const double p1 = posizione1(r, {x, y}), p2 = posizione2(r, {x, y});
    const double e1 = curva ? curvaDuePezzi(p1, r.len1, r.mid1, r.k1, r.r1, r.t1, r.d1) : p1 * r.k1;
    const double e2 = curva ? curvaDuePezzi(p2, r.len2, r.mid2, r.k2, r.r2, r.t2, r.d2) : p2 * r.k2;
    Coppia dove;
    incrocio(rettaTarget1(r, e1), rettaTarget2(r, e2), dove);
    x = dove.x;
    y = dove.y;
}

// --- the free solver

void PrepAtt4pt() { PreparaQuattro(att4Pt, {23, 24, 23, 23, 24, 24}); }

void Traf4Pt(double& x, double& y) { TrasformaFuga(att4Pt, true, x, y); }

namespace {
const VoceStato righe[] = {{"deformProspettica", VoceStato::u8, &deformProspettica, 1}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
