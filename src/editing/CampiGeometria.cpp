// Each kind of element keeps its places under other names: a table of pointers to them, and the measures that follow.
#include "editing/CampiGeometria.h"

#include <algorithm>
#include <cmath>

#include "model/PuntiElemento.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr double pi = 3.14159265358979323846;

struct Posto {
    f64 *x = nullptr, *y = nullptr, *z = nullptr;   // sheet; null where the kind has none
};

Posto primoPosto(elemento& e) {
    switch (e.tipo) {
    case tSegmento: return {&e.segm.x1, &e.segm.y1, &e.segm.z1};
    case tMarker: return {&e.mark.x, &e.mark.y, &e.mark.z};
    case tPoligono:
    case tVertice: return {&e.poli.x, &e.poli.y, &e.poli.z};
    case tTesto: return {&e.test.x, &e.test.y, nullptr};
    case tPict: return {&e.pict.x, &e.pict.y, nullptr};
    case tCerchio: return {&e.cerc.cx, &e.cerc.cy, nullptr};
    case tArco: return {&e.arco.cx, &e.arco.cy, nullptr};
    default: return {};
    }
}

Posto secondoPosto(elemento& e) {
    if (e.tipo != tSegmento) return {};
    return {&e.segm.x2, &e.segm.y2, &e.segm.z2};
}

// The record of a polyline's vertex, or the element's own.
std::int32_t recordDi(std::int32_t n, std::int32_t vertice) {
    if (Elem(n).tipo != tPoligono) return n;
    return std::clamp(n + vertice, n, UltimoRecord(n));
}

struct Reale {
    double x = 0, y = 0;
};

Reale reale(double x, double y) {
    Reale r;
    DigiToReal(x, y, r.x, r.y);
    return r;
}

bool poniReale(const Posto& p, const Reale& r) {
    double x = 0, y = 0;
    RealToDigi(r.x, r.y, x, y);
    if (!std::isfinite(x) || !std::isfinite(y)) return false;
    *p.x = x;
    *p.y = y;
    return true;
}

// --- measures

double sviluppo(std::int32_t n) {
    double s = 0;
    for (std::int32_t i = n; i < UltimoRecord(n); ++i)
        s += Distanza(Elem(i).poli.x, Elem(i).poli.y, Elem(i + 1).poli.x, Elem(i + 1).poli.y);
    return s;
}

// Shoelace formula about the first point, so that far coordinates cost no digits.
double areaPoligono(std::int32_t n) {
    const double x0 = Elem(n).poli.x, y0 = Elem(n).poli.y;
    double doppia = 0;
    for (std::int32_t i = n; i < UltimoRecord(n); ++i) {
        const double ax = Elem(i).poli.x - x0, ay = Elem(i).poli.y - y0;
        const double bx = Elem(i + 1).poli.x - x0, by = Elem(i + 1).poli.y - y0;
        doppia += ax * by - ay * bx;
    }
    return std::fabs(doppia) / 2;
}

double lunghezza(std::int32_t n) {   // sheet units
    const elemento& e = Elem(n);
    switch (e.tipo) {
    case tSegmento: return Distanza(e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2);
    case tPoligono: return sviluppo(n);
    case tCerchio: return 2 * pi * std::fabs(e.cerc.raggio);
    case tArco: return std::fabs(e.arco.raggio) * std::fabs(e.arco.ampiezza) * pi / 180;
    default: return 0;
    }
}

double azimut(const elemento& e) {
    const Reale a = reale(e.segm.x1, e.segm.y1), b = reale(e.segm.x2, e.segm.y2);
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double radianti = orientCorrente == orientAzimut ? std::atan2(dx, dy) : std::atan2(dy, dx);
    const double giro = radianti < 0 ? radianti + 2 * pi : radianti;
    return AngToAttuale(RadToAng(giro, gradCorrente));
}

// The second end turns or slides about the first; lengths are real.
bool poniSecondaFine(elemento& e, double lungo, double angolo) {
    const Reale a = reale(e.segm.x1, e.segm.y1);
    const double r = AngToRad(AttualeToAng(angolo), gradCorrente);
    const double dx = orientCorrente == orientAzimut ? std::sin(r) : std::cos(r);
    const double dy = orientCorrente == orientAzimut ? std::cos(r) : std::sin(r);
    return poniReale(secondoPosto(e), {a.x + lungo * dx, a.y + lungo * dy});
}

bool poniLunghezza(elemento& e, double valore) {
    const Reale a = reale(e.segm.x1, e.segm.y1), b = reale(e.segm.x2, e.segm.y2);
    const double ora = std::hypot(b.x - a.x, b.y - a.y);
    if (ora == 0) return poniSecondaFine(e, valore, 0);   // of no direction: north
    const double f = valore / ora;
    return poniReale(secondoPosto(e), {a.x + (b.x - a.x) * f, a.y + (b.y - a.y) * f});
}

f64* raggioDi(elemento& e) { return e.tipo == tCerchio ? &e.cerc.raggio : e.tipo == tArco ? &e.arco.raggio : nullptr; }

// A length that a field of the record holds, in sheet units.
f64* lunghezzaDi(Campo c, elemento& e) {
    if (c == Campo::raggio) return raggioDi(e);
    if (e.tipo != tPict) return nullptr;
    return c == Campo::larghezza ? &e.pict.larghezza : c == Campo::altezza ? &e.pict.altezza : nullptr;
}

f64* angoloDi(Campo c, elemento& e) {   // degrees
    if (e.tipo != tArco) return nullptr;
    return c == Campo::inizio ? &e.arco.angoloInizio : c == Campo::ampiezza ? &e.arco.ampiezza : nullptr;
}

bool poniPosto(const Posto& p, char asse, double valore) {
    if (asse == 'z') {
        *p.z = valore;
        return true;
    }
    Reale r = reale(*p.x, *p.y);
    (asse == 'x' ? r.x : r.y) = valore;
    return poniReale(p, r);
}

double leggiPosto(const Posto& p, char asse) {
    if (asse == 'z') return *p.z;
    const Reale r = reale(*p.x, *p.y);
    return asse == 'x' ? r.x : r.y;
}

struct CampoPosto {
    Campo campo;
    Posto (*posto)(elemento&);
    char asse;
};
constexpr CampoPosto posti[] = {
    {Campo::x, primoPosto, 'x'},    {Campo::y, primoPosto, 'y'},    {Campo::z, primoPosto, 'z'},
    {Campo::x2, secondoPosto, 'x'}, {Campo::y2, secondoPosto, 'y'}, {Campo::z2, secondoPosto, 'z'},
};

const CampoPosto* postoDi(Campo c) {
    const auto* p = std::find_if(std::begin(posti), std::end(posti), [c](const CampoPosto& x) { return x.campo == c; });
    return p == std::end(posti) ? nullptr : p;
}

}   // namespace

bool HaGeometria(Campo c, std::uint8_t tipo, bool sola) {
    elemento e{};
    e.tipo = tipo;
    if (const CampoPosto* p = postoDi(c)) {
        if (tipo == tPoligono && !sola) return false;
        const Posto posto = p->posto(e);
        return (p->asse == 'z' ? posto.z : posto.x) != nullptr;
    }
    if (c == Campo::lunghezza) return tipo == tSegmento || tipo == tPoligono || tipo == tCerchio || tipo == tArco;
    if (c == Campo::azimut) return tipo == tSegmento;
    if (c == Campo::area) return tipo == tPoligono || tipo == tCerchio;
    return lunghezzaDi(c, e) != nullptr || angoloDi(c, e) != nullptr;
}

bool GeometriaScrivibile(Campo c, std::uint8_t tipo) {
    if (c == Campo::lunghezza) return tipo == tSegmento;
    return c != Campo::area;
}

double LeggiGeometria(Campo c, std::int32_t n, std::int32_t vertice) {
    elemento& e = Elem(n);
    if (const CampoPosto* p = postoDi(c)) return leggiPosto(p->posto(Elem(recordDi(n, vertice))), p->asse);
    if (c == Campo::lunghezza) return lunghezza(n) * rappvid;
    if (c == Campo::azimut) return azimut(e);
    if (c == Campo::area)
        return (e.tipo == tCerchio ? pi * e.cerc.raggio * e.cerc.raggio : areaPoligono(n)) * rappvid * rappvid;
    if (const f64* l = lunghezzaDi(c, e)) return *l * rappvid;
    if (const f64* a = angoloDi(c, e)) return AngToAttuale(SessadToAng(*a, gradCorrente));
    return 0;
}

bool PoniGeometria(Campo c, std::int32_t n, std::int32_t vertice, double valore) {
    elemento& e = Elem(n);
    if (const CampoPosto* p = postoDi(c)) return poniPosto(p->posto(Elem(recordDi(n, vertice))), p->asse, valore);
    if (c == Campo::lunghezza) return poniLunghezza(e, valore);
    if (c == Campo::azimut) {
        const double lungo = std::hypot(reale(e.segm.x2, e.segm.y2).x - reale(e.segm.x1, e.segm.y1).x,
                                        reale(e.segm.x2, e.segm.y2).y - reale(e.segm.x1, e.segm.y1).y);
        return poniSecondaFine(e, lungo, valore);
    }
    if (f64* l = lunghezzaDi(c, e)) {
        const double foglio = valore / rappvid;
        if (!std::isfinite(foglio)) return false;
        *l = foglio;
        return true;
    }
    f64* a = angoloDi(c, e);
    if (a == nullptr) return false;
    *a = AngToSessad(AttualeToAng(valore), gradCorrente);
    return true;
}

}   // namespace tessaro
