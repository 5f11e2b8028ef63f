// The blocks, in vectors of four. Lanes are doubles and nothing is reordered, so that every digit is that of the plain
// formula; compiled twice, the wider form runs where the processor has it.
#include "raster/Mappatura.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/MappaFoglio.h"

namespace tessaro {

namespace {

using Quattro = double __attribute__((vector_size(32)));
using Quattro64 = std::int64_t __attribute__((vector_size(32)));
using Quattro32 = std::int32_t __attribute__((vector_size(16)));
using Positivi = std::uint32_t __attribute__((vector_size(16)));

#define IN_LINEA inline __attribute__((always_inline))

struct Punti {
    Quattro x, y;
};

struct Simile {
    TransfRec t;
    double dy;
    Simile(const Mappatura& m, double y) : t(m.simile), dy(y - m.simile.y1) {}
    IN_LINEA void operator()(Punti& p) const {
        const Quattro dx = p.x - t.x1;
        p.x = t.deltaX + ((t.rot11 * dx + t.rot12 * dy) * t.ingr + t.x1);
        p.y = t.deltaY + ((t.rot21 * dx + t.rot22 * dy) * t.ingr + t.y1);
    }
};

struct Omografia {
    double a, c, d, f, g, by, ey, hy;
    Omografia(const Mappatura& m, double y)
        : a(m.coef[0]), c(m.coef[2]), d(m.coef[3]), f(m.coef[5]), g(m.coef[6]), by(m.coef[1] * y), ey(m.coef[4] * y),
          hy(m.coef[7] * y) {}
    IN_LINEA void operator()(Punti& p) const {
        const Quattro D = 1 + (g * p.x + hy);
        const Quattro X = ((a * p.x + by) + c) / D;
        const Quattro Y = ((d * p.x + ey) + f) / D;
        p = {X, Y};
    }
};

// A row of the net under a block, its nodes at hand by columns from the block's first one.
constexpr std::int32_t colonneFila = 64;
struct FilaRete {
    double x1, perPasso;
    std::int32_t da = 0, a = -1;   // columns of nodes
    double x[colonneFila], y[colonneFila];

    // False when the block leaves the net, or runs over more columns than there is room for.
    bool prendi(const ReteMappa& rete, const Piano& p, double yFila, std::int32_t h, std::int32_t n) {
        const double sinistra = p.x1PictBase + h * p.stepS, destra = p.x1PictBase + (h + n - 1) * p.stepS;
        if (!rete.dentro({sinistra, yFila}) || !rete.dentro({destra, yFila})) return false;
        x1 = rete.x1;
        perPasso = rete.perPasso;
        da = static_cast<std::int32_t>((sinistra - x1) * perPasso);
        a = static_cast<std::int32_t>((destra - x1) * perPasso) + 1;
        if (a - da >= colonneFila) return false;
        rete.fila(yFila, da, a, x, y);
        return true;
    }
};

struct Rete {
    const FilaRete& f;
    IN_LINEA void operator()(Punti& p) const {
        const Quattro u = (p.x - f.x1) * f.perPasso;
        const Quattro32 c = __builtin_convertvector(u, Quattro32);
        const Quattro parte = u - __builtin_convertvector(c, Quattro);
        Quattro x0{}, x1{}, y0{}, y1{};
        for (int k = 0; k < 4; ++k) {
            // Places behind the block's end are worked out with it, and dropped.
            const std::int32_t i = std::min(c[k], f.a - 1) - f.da;
            x0[k] = f.x[i];
            x1[k] = f.x[i + 1];
            y0[k] = f.y[i];
            y1[k] = f.y[i + 1];
        }
        p.x = x0 + parte * (x1 - x0);
        p.y = y0 + parte * (y1 - y0);
    }
};

// A block that lies inside from end to end: no pixel of it is looked at twice.
template <class Mappa>
IN_LINEA void bloccoInterno(const Mappa mappa, const Piano& p, std::int32_t h, std::int32_t n, std::uint32_t* indici) {
    const Quattro32 scala = {0, 1, 2, 3};
    for (std::int32_t i = 0; i < n; i += 4) {
        Punti q{p.x1PictBase + __builtin_convertvector(scala + (h + i), Quattro) * p.stepS, {}};
        mappa(q);
        const auto colonne = __builtin_convertvector((q.x - p.x1Pict2) * p.stepD, Quattro32);
        const auto righe = __builtin_convertvector((q.y - p.y1Pict2) * p.stepD, Quattro32);
        const Positivi indice = reinterpret_cast<Positivi>(righe) * p.passo + reinterpret_cast<Positivi>(colonne);
        std::memcpy(indici + i, &indice, sizeof indice);
    }
}

struct Limiti {
    double minimo, massimo;
    std::int32_t contati;
};

// Truncation takes what is above -1 into row or column 0.
template <class Mappa>
IN_LINEA Limiti blocco(const Mappa mappa, const Piano& p, std::int32_t h, std::int32_t n, std::uint32_t* indici) {
    const double larghezza = p.larghezza, altezza = p.altezza;
    Quattro minimo = {1e300, 1e300, 1e300, 1e300}, massimo = -minimo;
    Quattro64 dentro{};
    const Quattro32 scala = {0, 1, 2, 3};
    for (std::int32_t i = 0; i < n; i += 4) {
        const Quattro colonna = __builtin_convertvector(scala + (h + i), Quattro);
        Punti q{p.x1PictBase + colonna * p.stepS, {}};
        mappa(q);
        const Quattro u = (q.x - p.x1Pict2) * p.stepD, w = (q.y - p.y1Pict2) * p.stepD;
        const Quattro64 buono = (u > -1.0) & (u < larghezza) & (w > -1.0) & (w < altezza);
        const Quattro zero{};
        const Quattro ub = buono ? u : zero, wb = buono ? w : zero;
        minimo = (buono & (w < minimo)) ? w : minimo;
        massimo = (buono & (w > massimo)) ? w : massimo;
        dentro -= buono;
        const auto colonne = __builtin_convertvector(ub, Quattro32), righe = __builtin_convertvector(wb, Quattro32);
        const auto indice = reinterpret_cast<Positivi>(righe) * p.passo + reinterpret_cast<Positivi>(colonne);
        const Positivi scelto = indice | ~reinterpret_cast<Positivi>(__builtin_convertvector(buono, Quattro32));
        std::memcpy(indici + i, &scelto, sizeof scelto);
    }
    Limiti l{minimo[0], massimo[0], static_cast<std::int32_t>(dentro[0] + dentro[1] + dentro[2] + dentro[3])};
    for (int k = 1; k < 4; ++k) {
        l.minimo = std::min(l.minimo, minimo[k]);
        l.massimo = std::max(l.massimo, massimo[k]);
    }
    return l;
}

using Calcola = Limiti (*)(const Mappatura&, const Piano&, double, std::int32_t, std::int32_t, std::uint32_t*);
using CalcolaInterno = void (*)(const Mappatura&, const Piano&, double, std::int32_t, std::int32_t, std::uint32_t*);

void simileInternoBase(const Mappatura& m, const Piano& p, double y, std::int32_t h, std::int32_t n,
                       std::uint32_t* out) {
    bloccoInterno(Simile(m, y), p, h, n, out);
}
void omografiaInternaBase(const Mappatura& m, const Piano& p, double y, std::int32_t h, std::int32_t n,
                          std::uint32_t* out) {
    bloccoInterno(Omografia(m, y), p, h, n, out);
}
Limiti simileBase(const Mappatura& m, const Piano& p, double y, std::int32_t h, std::int32_t n, std::uint32_t* out) {
    return blocco(Simile(m, y), p, h, n, out);
}
Limiti omografiaBase(const Mappatura& m, const Piano& p, double y, std::int32_t h, std::int32_t n, std::uint32_t* out) {
    return blocco(Omografia(m, y), p, h, n, out);
}

Limiti reteBase(const FilaRete& f, const Piano& p, std::int32_t h, std::int32_t n, std::uint32_t* out) {
    return blocco(Rete{f}, p, h, n, out);
}
void reteInternaBase(const FilaRete& f, const Piano& p, std::int32_t h, std::int32_t n, std::uint32_t* out) {
    bloccoInterno(Rete{f}, p, h, n, out);
}

#ifdef __x86_64__
__attribute__((target("avx2"))) Limiti reteLarga(const FilaRete& f, const Piano& p, std::int32_t h, std::int32_t n,
                                                 std::uint32_t* out) {
    return blocco(Rete{f}, p, h, n, out);
}
__attribute__((target("avx2"))) void reteInternaLarga(const FilaRete& f, const Piano& p, std::int32_t h, std::int32_t n,
                                                      std::uint32_t* out) {
    bloccoInterno(Rete{f}, p, h, n, out);
}
__attribute__((target("avx2"))) Limiti simileLarga(const Mappatura& m, const Piano& p, double y, std::int32_t h,
                                                   std::int32_t n, std::uint32_t* out) {
    return blocco(Simile(m, y), p, h, n, out);
}
__attribute__((target("avx2"))) Limiti omografiaLarga(const Mappatura& m, const Piano& p, double y, std::int32_t h,
                                                      std::int32_t n, std::uint32_t* out) {
    return blocco(Omografia(m, y), p, h, n, out);
}
__attribute__((target("avx2"))) void simileInternoLargo(const Mappatura& m, const Piano& p, double y, std::int32_t h,
                                                        std::int32_t n, std::uint32_t* out) {
    bloccoInterno(Simile(m, y), p, h, n, out);
}
__attribute__((target("avx2"))) void omografiaInternaLarga(const Mappatura& m, const Piano& p, double y, std::int32_t h,
                                                           std::int32_t n, std::uint32_t* out) {
    bloccoInterno(Omografia(m, y), p, h, n, out);
}
const bool largo = __builtin_cpu_supports("avx2");
const auto rete = largo ? reteLarga : reteBase;
const auto reteInterna = largo ? reteInternaLarga : reteInternaBase;
const CalcolaInterno simileInterno = largo ? simileInternoLargo : simileInternoBase;
const CalcolaInterno omografiaInterna = largo ? omografiaInternaLarga : omografiaInternaBase;
const Calcola simile = largo ? simileLarga : simileBase, omografia = largo ? omografiaLarga : omografiaBase;
#else
const auto rete = reteBase;
const auto reteInterna = reteInternaBase;
const CalcolaInterno simileInterno = simileInternoBase, omografiaInterna = omografiaInternaBase;
const Calcola simile = simileBase, omografia = omografiaBase;
#endif

// Along a row both mappings run one way, as long as the horizon is not between the ends: a block whose ends lie well
// inside lies inside. A pixel of margin is far more than rounding can move.
bool estremiDentro(const Mappatura& m, const Piano& p, double y, std::int32_t h, std::int32_t n, EsitoBlocco& e) {
    double riga[2] = {0, 0};
    bool davanti[2] = {true, true};
    for (int k = 0; k < 2; ++k) {
        double x = p.x1PictBase + (k == 0 ? h : h + n - 1) * p.stepS, yy = y;
        if (m.specie == SpecieMappa::omografia) {
            davanti[k] = 1 + (m.coef[6] * x + m.coef[7] * y) > 0;
            TrasformaOmografia(m.coef, x, yy);
        } else {
            Tracoord(m.simile, x, yy, x, yy);
        }
        const double u = (x - p.x1Pict2) * p.stepD;
        riga[k] = (yy - p.y1Pict2) * p.stepD;
        if (!(u >= 1 && u < p.larghezza - 1.0 && riga[k] >= 1 && riga[k] < p.altezza - 1.0)) return false;
    }
    if (davanti[0] != davanti[1]) return false;
    e.prima = static_cast<std::int32_t>(std::min(riga[0], riga[1])) - 1;
    e.ultima = static_cast<std::int32_t>(std::max(riga[0], riga[1])) + 1;
    e.pieno = true;
    return true;
}

// Between the nodes of its row a place is a mean of two: a block whose nodes lie well inside lies inside.
bool nodiDentro(const FilaRete& f, const Piano& p, EsitoBlocco& e) {
    double minimo = 1e300, massimo = -1e300;
    for (std::int32_t k = 0; k <= f.a - f.da; ++k) {
        const double u = (f.x[k] - p.x1Pict2) * p.stepD, w = (f.y[k] - p.y1Pict2) * p.stepD;
        if (!(u >= 1 && u < p.larghezza - 1.0 && w >= 1 && w < p.altezza - 1.0)) return false;
        minimo = std::min(minimo, w);
        massimo = std::max(massimo, w);
    }
    e.prima = static_cast<std::int32_t>(minimo) - 1;
    e.ultima = static_cast<std::int32_t>(massimo) + 1;
    e.pieno = true;
    return true;
}

Limiti costruzione(const Piano& p, double y, std::int32_t h, std::int32_t n, std::uint32_t* indici) {
    Limiti l{1e300, -1e300, 0};
    for (std::int32_t i = 0; i < n; ++i) {
        double px = p.x1PictBase + (h + i) * p.stepS, py = y;
        attaccoAttivo.Traf4Pt(px, py);
        const double u = (px - p.x1Pict2) * p.stepD, w = (py - p.y1Pict2) * p.stepD;
        indici[i] = nessunPixel;
        if (!(u > -1.0 && u < p.larghezza && w > -1.0 && w < p.altezza)) continue;
        indici[i] = static_cast<std::uint32_t>(static_cast<std::int32_t>(w)) * p.passo
                    + static_cast<std::uint32_t>(static_cast<std::int32_t>(u));
        l.minimo = std::min(l.minimo, w);
        l.massimo = std::max(l.massimo, w);
        ++l.contati;
    }
    return l;
}

}   // namespace

Mappatura MappaturaAttiva() {
    Mappatura m;
    const std::int32_t tipo = TipoMappa();
    if (tipo == mappaPerMolti && mappaMolti->rete() != nullptr) {
        m.specie = SpecieMappa::rete;
        m.rete = mappaMolti->rete();
    } else if (tipo == 1 && deformProspettica != 0) {
        m.specie = SpecieMappa::omografia;
        m.coef = attaccoAttivo.coef;
    } else if (tipo == 0) {
        m.specie = SpecieMappa::similitudine;
        m.simile = attaccoAttivo.transf;
    }
    double x = 0, y = 0;
    attaccoAttivo.Traf4Pt(x, y);   // what it prepares on its first call is ready before threads ask
    return m;
}

EsitoBlocco IndiciBlocco(const Mappatura& m, const Piano& p, std::int32_t v, std::int32_t h, std::int32_t n,
                         std::uint32_t* indici) {
    const double y = p.y1PictBase + v * p.stepS;
    Limiti l{};
    EsitoBlocco tutto;
    // Whole fours; the last ones are told apart so that they do not count.
    const auto aQuattro = [&](const auto& f) {
        const std::int32_t interi = n & ~3;
        l = f(h, interi, indici);
        if (interi == n) return;
        std::uint32_t coda[4];
        (void)f(h + interi, 4, coda);
        for (std::int32_t k = interi; k < n; ++k) {
            const std::uint32_t i = indici[k] = coda[k - interi];
            if (i == nessunPixel) continue;
            const double riga = i / p.passo;
            l.minimo = std::min(l.minimo, riga);
            l.massimo = std::max(l.massimo, riga);
            ++l.contati;
        }
    };
    FilaRete fila;
    if (m.specie == SpecieMappa::rete && fila.prendi(*m.rete, p, y, h, n)) {
        if (nodiDentro(fila, p, tutto)) {
            reteInterna(fila, p, h, n, indici);
            return tutto;
        }
        aQuattro(
            [&](std::int32_t da, std::int32_t quanti, std::uint32_t* out) { return rete(fila, p, da, quanti, out); });
    } else if (m.specie == SpecieMappa::costruzione || m.specie == SpecieMappa::rete) {
        l = costruzione(p, y, h, n, indici);
    } else {
        const bool prospettiva = m.specie == SpecieMappa::omografia;
        if (estremiDentro(m, p, y, h, n, tutto)) {
            (prospettiva ? omografiaInterna : simileInterno)(m, p, y, h, n, indici);
            return tutto;
        }
        const Calcola f = prospettiva ? omografia : simile;
        aQuattro([&](std::int32_t da, std::int32_t quanti, std::uint32_t* out) { return f(m, p, y, da, quanti, out); });
    }
    EsitoBlocco e;
    if (l.contati == 0) return e;
    e.prima = static_cast<std::int32_t>(l.minimo);
    e.ultima = static_cast<std::int32_t>(l.massimo);
    e.pieno = l.contati == n;
    return e;
}

}   // namespace tessaro
