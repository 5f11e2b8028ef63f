// The thin plate's sum in vectors of four, with a logarithm of its own: the library's takes a call a node.
#include "registration/Lastra.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace tessaro {

namespace {

using Quattro = double __attribute__((vector_size(32)));
using Quattro64 = std::int64_t __attribute__((vector_size(32)));

#define IN_LINEA inline __attribute__((always_inline))

IN_LINEA Quattro carica(const double* p) {
    Quattro q;
    std::memcpy(&q, p, sizeof q);
    return q;
}

// ln x for x > 0, not denormal: x = m 2^e with m in [sqrt(1/2), sqrt(2)), ln m = 2 artanh((m - 1) / (m + 1)), whose series is
// cut where its terms fall below 2^-53. Within 2 units of the last place of max(1, |ln x|).
IN_LINEA Quattro logaritmo(Quattro x) {
    constexpr std::int64_t radice = 0x3FE6A09E667F3BCD;   // the bits of sqrt(1/2)
    const auto bit = reinterpret_cast<Quattro64>(x);
    const Quattro64 esponente = (bit - radice) >> 52;
    const auto m = reinterpret_cast<Quattro>(bit - (esponente << 52));
    const Quattro e = __builtin_convertvector(esponente, Quattro);
    const Quattro s = (m - 1) / (m + 1), z = s * s;
    Quattro somma = z * (1.0 / 21) + 1.0 / 19;
    for (const double k : {17.0, 15.0, 13.0, 11.0, 9.0, 7.0, 5.0, 3.0}) somma = somma * z + 1.0 / k;
    constexpr double ln2 = 0.693147180559945309417;
    return e * ln2 + (2 * s + 2 * s * z * somma);
}

// r2 = 0 gives 0: the smallest normal number stands in, and the product is below all others.
IN_LINEA Quattro nucleo(Quattro r2) {
    constexpr double minimo = 2.2250738585072014e-308;
    const Quattro sotto = Quattro{minimo, minimo, minimo, minimo};
    return r2 * logaritmo(r2 > sotto ? r2 : sotto);
}

IN_LINEA Coppia somma(const double* u, const double* v, const double* px, const double* py, std::size_t n, double x,
                      double y) {
    Quattro X{}, Y{};
    for (std::size_t i = 0; i < n; i += bloccoLastra) {
        const Quattro du = carica(u + i) - x, dv = carica(v + i) - y;
        const Quattro f = nucleo(du * du + dv * dv);
        X += carica(px + i) * f;
        Y += carica(py + i) * f;
    }
    return {X[0] + X[1] + X[2] + X[3], Y[0] + Y[1] + Y[2] + Y[3]};
}

using Somme = Coppia (*)(const double*, const double*, const double*, const double*, std::size_t, double, double);

Coppia sommaBase(const double* u, const double* v, const double* px, const double* py, std::size_t n, double x,
                 double y) {
    return somma(u, v, px, py, n, x, y);
}
#ifdef __x86_64__
__attribute__((target("avx2"))) Coppia sommaLarga(const double* u, const double* v, const double* px, const double* py,
                                                  std::size_t n, double x, double y) {
    return somma(u, v, px, py, n, x, y);
}
const Somme somme = __builtin_cpu_supports("avx2") ? sommaLarga : sommaBase;
#else
const Somme somme = sommaBase;
#endif

}   // namespace

double NucleoLastra(double r2) { return r2 > 0 ? r2 * std::log(r2) : 0; }

Coppia SommaLastra(std::span<const double> u, std::span<const double> v, std::span<const double> pesoX,
                   std::span<const double> pesoY, double x, double y) {
    return somme(u.data(), v.data(), pesoX.data(), pesoY.data(), u.size(), x, y);
}

// d(r^2 ln r^2)/du = 2 du (ln r^2 + 1)
void DerivateLastra(std::span<const double> u, std::span<const double> v, std::span<const double> pesoX,
                    std::span<const double> pesoY, double x, double y, std::array<double, 4>& d) {
    for (std::size_t i = 0; i < u.size(); ++i) {
        const double du = x - u[i], dv = y - v[i], r2 = du * du + dv * dv;
        if (!(r2 > 0)) continue;
        const double k = 2 * (std::log(r2) + 1);
        d[0] += pesoX[i] * k * du;
        d[1] += pesoX[i] * k * dv;
        d[2] += pesoY[i] * k * du;
        d[3] += pesoY[i] * k * dv;
    }
}

}   // namespace tessaro
