// The walk in columns, each row asked before it is copied, so that a turned source is in the cache by then; and the two questions it is asked,
// four pixels at a time with the digits of the plain formulas.
#include "raster/Indietro.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "bitmap/PerRighe.h"

namespace tessaro {

namespace {

using Quattro = double __attribute__((vector_size(32)));
using Quattro64 = std::int64_t __attribute__((vector_size(32)));
using Quattro32 = std::int32_t __attribute__((vector_size(16)));
using Positivi = std::uint32_t __attribute__((vector_size(16)));

#define IN_LINEA inline __attribute__((always_inline))

// Rows of the result that are asked ahead of the one that is copied, so that their source is on its way to the cache.
constexpr std::int32_t anticipo = 4;
constexpr std::int32_t lineaCache = 64;   // bytes

struct RigaChiesta {
    std::array<std::uint32_t, bloccoIndietro> indici;
    Fonti fonti = Fonti::nessuna;
};

// Source lines and, for writing, those of the result.
template <class Pixel>
IN_LINEA void richiama(const RigaChiesta& r, const Pixel* da, Pixel* a, std::int32_t n) {
    if (r.fonti == Fonti::nessuna) return;
    constexpr auto perLinea = static_cast<std::int32_t>(lineaCache / sizeof(Pixel));
    for (std::int32_t i = 0; i < n; i += perLinea) __builtin_prefetch(a + i, 1);
    for (std::int32_t i = 0; i < n; i += perLinea / 2) {   // a turned row goes through lines at a slant
        const std::uint32_t k = r.indici[static_cast<std::size_t>(i)];
        if (k != nessunaFonte) __builtin_prefetch(da + k);
    }
}

template <class Pixel>
IN_LINEA void copia(const RigaChiesta& r, const Pixel* da, Pixel* a, std::int32_t n) {
    if (r.fonti == Fonti::tutte) {
        for (std::int32_t i = 0; i < n; ++i) a[i] = da[r.indici[static_cast<std::size_t>(i)]];
    } else if (r.fonti == Fonti::alcune) {
        for (std::int32_t i = 0; i < n; ++i) {
            const std::uint32_t k = r.indici[static_cast<std::size_t>(i)];
            if (k != nessunaFonte) a[i] = da[k];
        }
    }
}

// A column of the result, as wide as a block, from its first row down: neighbouring rows share their source's lines.
template <class Pixel>
void colonna(const Tela& src, Tela& dst, const RichiestaPixel& domanda, std::int32_t y0, std::int32_t y1,
             std::int32_t x, std::int32_t n) {
    std::array<RigaChiesta, anticipo> attese;
    const auto* da = reinterpret_cast<const Pixel*>(src.dati.get());
    const auto posto = [&](std::int32_t y) { return reinterpret_cast<Pixel*>(dst.riga(y)) + x; };
    for (std::int32_t y = y0; y < y1 + anticipo; ++y) {
        RigaChiesta& r = attese[static_cast<std::size_t>(y % anticipo)];
        if (y >= y0 + anticipo) copia(r, da, posto(y - anticipo), n);
        if (y >= y1) continue;
        r.fonti = domanda(y, x, n, r.indici.data());
        richiama(r, da, posto(y), n);
    }
}

void fascia(const Tela& src, Tela& dst, const RichiestaPixel& domanda, std::int32_t y0, std::int32_t y1) {
    const auto fai = src.byte == 1   ? colonna<std::uint8_t>
                     : src.byte == 2 ? colonna<std::uint16_t>
                                     : colonna<std::uint32_t>;
    for (std::int32_t x = 0; x < dst.larghezza; x += bloccoIndietro)
        fai(src, dst, domanda, y0, y1, x, std::min(bloccoIndietro, dst.larghezza - x));
}

}   // namespace

bool PercorriIndietro(const Tela& src, Tela& dst, const RichiestaPixel& domanda,
                      const std::function<bool(double)>& passo) {
    const auto perVolta = static_cast<std::int32_t>(
        std::clamp<std::int64_t>((4 << 20) / dst.larghezza / 128 * 128, 128, std::max(dst.altezza, 128)));
    for (std::int32_t y = 0; y < dst.altezza; y += perVolta) {
        const std::int32_t fine = std::min(dst.altezza, y + perVolta);
        perRighe(fine - y,
                 [&](std::int32_t da, std::int32_t a, std::int32_t) { fascia(src, dst, domanda, y + da, y + a); });
        if (!passo(double(fine) / dst.altezza)) return false;
    }
    return true;
}

namespace {

// Index of the source for columns and rows that are whole numbers held in doubles, where they lie inside.
IN_LINEA Positivi indice(Quattro colonna, Quattro riga, double larghezza, double altezza, std::uint32_t passo,
                         Quattro64& tutti) {
    const Quattro64 buono = (colonna > -1.0) & (colonna < larghezza) & (riga > -1.0) & (riga < altezza);
    const Quattro zero{};
    const auto c = __builtin_convertvector(buono ? colonna : zero, Quattro32);
    const auto r = __builtin_convertvector(buono ? riga : zero, Quattro32);
    tutti &= buono;
    return (reinterpret_cast<Positivi>(r) * passo + reinterpret_cast<Positivi>(c))
           | ~reinterpret_cast<Positivi>(__builtin_convertvector(buono, Quattro32));
}

// Room for whole fours is there.
IN_LINEA void scrivi(std::uint32_t* a, Positivi v) { std::memcpy(a, &v, sizeof v); }

IN_LINEA bool pieni(const Quattro64& t) { return (t[0] & t[1] & t[2] & t[3]) != 0; }

IN_LINEA Quattro colonneDa(std::int32_t primo) {
    const Quattro32 scala = {0, 1, 2, 3};
    return __builtin_convertvector(scala + primo, Quattro);
}

struct Sagoma {
    double larghezza, altezza;
    std::uint32_t passo;
};

IN_LINEA Fonti giro(const Giro& g, const Sagoma& t, std::int32_t y, std::int32_t x, std::int32_t n,
                    std::uint32_t* indici) {
    const double Y = double(g.oy) + y, sY = g.s * Y, cY = g.c * Y;
    const auto colonna = [&](std::int32_t k) { return sY + g.c * (double(g.ox) + x + k); };
    const auto riga = [&](std::int32_t k) { return cY - g.s * (double(g.ox) + x + k); };
    // Both run one way along a row, so that the ends speak for all between.
    const double c0 = colonna(0), c1 = colonna(n - 1), r0 = riga(0), r1 = riga(n - 1);
    if ((c0 <= -1 && c1 <= -1) || (c0 >= t.larghezza && c1 >= t.larghezza) || (r0 <= -1 && r1 <= -1)
        || (r0 >= t.altezza && r1 >= t.altezza))
        return Fonti::nessuna;
    if (std::min({c0, c1, r0, r1}) >= 0 && std::max(c0, c1) < t.larghezza && std::max(r0, r1) < t.altezza) {
        for (std::int32_t i = 0; i < n; i += 4) {
            const Quattro X = colonneDa(g.ox + x + i);
            const auto c = __builtin_convertvector(sY + g.c * X, Quattro32),
                       r = __builtin_convertvector(cY - g.s * X, Quattro32);
            scrivi(indici + i, reinterpret_cast<Positivi>(r) * t.passo + reinterpret_cast<Positivi>(c));
        }
        return Fonti::tutte;
    }
    Quattro64 tutti = {-1, -1, -1, -1};
    for (std::int32_t i = 0; i < n; i += 4) {
        const Quattro X = colonneDa(g.ox + x + i);
        scrivi(indici + i, indice(sY + g.c * X, cY - g.s * X, t.larghezza, t.altezza, t.passo, tutti));
    }
    return pieni(tutti) ? Fonti::tutte : Fonti::alcune;
}

// Half away from zero, of numbers that are not below 0.
IN_LINEA Quattro arrotondati(Quattro v) {
    const Quattro t = __builtin_convertvector(__builtin_convertvector(v, Quattro32), Quattro);
    const Quattro uno = {1, 1, 1, 1}, zero{};
    return t + ((v - t >= 0.5) ? uno : zero);
}

struct Lente {
    Sagoma t;
    std::int32_t cx, cy;
    // 1 - k (1 - a^2 / c^2) / 100 by column for the rows above and below the centre, by row for the columns beside it.
    std::vector<double> alto, basso, sinistra, destra;
};

IN_LINEA Fonti lente(const Lente& l, std::int32_t y, std::int32_t x, std::int32_t n, std::uint32_t* indici) {
    const bool sotto = y >= l.cy;
    const double dy = sotto ? y - l.cy : l.cy - y, verso = sotto ? 1 : -1;
    const double* perColonna = (sotto ? l.basso : l.alto).data() + x;
    const double aDestra = l.destra[static_cast<std::size_t>(y)], aSinistra = l.sinistra[static_cast<std::size_t>(y)];
    const double cx = l.cx, cy = l.cy;
    Quattro64 tutti = {-1, -1, -1, -1};
    for (std::int32_t i = 0; i < n; i += 4) {
        const Quattro dx = colonneDa(x + i) - cx, zero{};
        Quattro k;
        std::memcpy(&k, perColonna + i, sizeof k);
        const Quattro64 destra = dx >= zero;
        const Quattro ampio = destra ? dx : -dx;
        const Quattro fattore = destra ? zero + aDestra : zero + aSinistra;
        const Quattro lungo = arrotondati(ampio * fattore);
        const Quattro colonna = destra ? cx + lungo : cx - lungo;
        scrivi(indici + i,
               indice(colonna, cy + verso * arrotondati(dy * k), l.t.larghezza, l.t.altezza, l.t.passo, tutti));
    }
    return pieni(tutti) ? Fonti::tutte : Fonti::alcune;
}

Fonti giroBase(const Giro& g, const Sagoma& t, std::int32_t y, std::int32_t x, std::int32_t n, std::uint32_t* indici) {
    return giro(g, t, y, x, n, indici);
}
Fonti lenteBase(const Lente& l, std::int32_t y, std::int32_t x, std::int32_t n, std::uint32_t* indici) {
    return lente(l, y, x, n, indici);
}
#ifdef __x86_64__
__attribute__((target("avx2"))) Fonti giroLargo(const Giro& g, const Sagoma& t, std::int32_t y, std::int32_t x,
                                                std::int32_t n, std::uint32_t* indici) {
    return giro(g, t, y, x, n, indici);
}
__attribute__((target("avx2"))) Fonti lenteLarga(const Lente& l, std::int32_t y, std::int32_t x, std::int32_t n,
                                                 std::uint32_t* indici) {
    return lente(l, y, x, n, indici);
}
const bool largo = __builtin_cpu_supports("avx2");
const auto giroMigliore = largo ? giroLargo : giroBase;
const auto lenteMigliore = largo ? lenteLarga : lenteBase;
#else
const auto giroMigliore = giroBase;
const auto lenteMigliore = lenteBase;
#endif

Sagoma sagoma(const Tela& t) { return {double(t.larghezza), double(t.altezza), t.passo()}; }

double fattore(std::int32_t a, std::int32_t c, double k) {
    const double quadrato = c == 0 ? 1 : (double(a) * a) / (double(c) * c);
    return 1 - k * (1 - quadrato) / 100;
}

}   // namespace

RichiestaPixel RichiestaGiro(const Giro& g, const Tela& src) {
    return [g, t = sagoma(src)](std::int32_t y, std::int32_t x, std::int32_t n, std::uint32_t* indici) {
        return giroMigliore(g, t, y, x, n, indici);
    };
}

std::int32_t QuadraticInterpolation(std::int32_t a, std::int32_t b, std::int32_t c, const double& k) {
    if (c == 0) return 0;
    return static_cast<std::int32_t>(std::round(b * fattore(a, c, k)));
}

RichiestaPixel RichiestaLente(const Bombature& b, const Tela& src) {
    auto l = std::make_shared<Lente>();
    l->t = sagoma(src);
    l->cx = src.larghezza / 2;
    l->cy = src.altezza / 2;
    for (std::int32_t x = 0; x < src.larghezza + 3; ++x) {   // the last four reach beyond
        l->alto.push_back(l->cx == 0 ? 0 : fattore(x - l->cx, l->cx, b.alto));
        l->basso.push_back(l->cx == 0 ? 0 : fattore(x - l->cx, l->cx, b.basso));
    }
    for (std::int32_t y = 0; y < src.altezza; ++y) {
        l->sinistra.push_back(l->cy == 0 ? 0 : fattore(y - l->cy, l->cy, b.sinistra));
        l->destra.push_back(l->cy == 0 ? 0 : fattore(y - l->cy, l->cy, b.destra));
    }
    return [l](std::int32_t y, std::int32_t x, std::int32_t n, std::uint32_t* indici) {
        return lenteMigliore(*l, y, x, n, indici);
    };
}

}   // namespace tessaro
