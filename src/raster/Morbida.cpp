// The samples: places of a block of result pixels, then one colour each.
#include "raster/Morbida.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "bitmap/PerRighe.h"

namespace tessaro {

namespace {

constexpr std::int32_t blocco = 64;     // result pixels whose footprint is taken as one
constexpr std::int32_t passoRete = 8;   // pixels between the places that are searched for

using Quattro = float __attribute__((vector_size(16)));
using Interi = std::int32_t __attribute__((vector_size(16)));
using Byte16 = std::uint8_t __attribute__((vector_size(16)));

#define IN_LINEA inline __attribute__((always_inline))

struct Punto {
    double u, v;
};
const double nessuno = std::numeric_limits<double>::quiet_NaN();

// The same law as QuadraticInterpolation, unrounded, over the half sides of the frame.
Punto conLente(const CampoInverso& k, Punto p) {
    const double cx = k.larghezza / 2, cy = k.altezza / 2, dx = p.u - cx, dy = p.v - cy;
    const double a = 1 - dx * dx / (cx * cx), b = 1 - dy * dy / (cy * cy);
    const double perV = (dy >= 0 ? k.lente.basso : k.lente.alto) / 100,
                 perU = (dx >= 0 ? k.lente.destra : k.lente.sinistra) / 100;
    return {cx + dx * (1 - perU * b), cy + dy * (1 - perV * a)};
}

Punto perMatrice(const CampoInverso& k, double x, double y) {
    const auto& m = k.m;
    const double w = 1 / (m[6] * x + m[7] * y + m[8]);
    return {(m[0] * x + m[1] * y + m[2]) * w, (m[3] * x + m[4] * y + m[5]) * w};
}

// Places along a row of the result. Those that are searched for stand on a net, the rest between its nodes.
class Posti {
public:
    Posti(const CampoInverso& field, const Rect& area) : campo(field), bordo(area) {}
    void riga(std::int32_t r, std::int32_t da, std::int32_t n, Punto* p) {
        if (campo.cerca) {
            rete(r);
            for (std::int32_t i = 0; i < n; ++i) p[i] = traNodi(r, da + i);
        } else {
            for (std::int32_t i = 0; i < n; ++i) p[i] = perMatrice(campo, da + i + 0.5, r + 0.5);
        }
        if (campo.conLente)
            for (std::int32_t i = 0; i < n; ++i) p[i] = conLente(campo, p[i]);
    }

private:
    void nodi(std::int32_t r, std::vector<Punto>& fila) {
        const std::int32_t quanti = (bordo.right - bordo.left) / passoRete + 2;
        Punto vicino = inizio;
        fila.clear();
        for (std::int32_t k = 0; k < quanti; ++k) {
            Punto q = vicino;
            if (!campo.cerca(bordo.left + k * passoRete + 0.5, r + 0.5, q.u, q.v)) {
                q = {campo.larghezza / 2, campo.altezza / 2};   // once more from the middle
                if (!campo.cerca(bordo.left + k * passoRete + 0.5, r + 0.5, q.u, q.v)) {
                    fila.push_back({nessuno, nessuno});
                    continue;
                }
            }
            vicino = q;
            if (k == 0) inizio = q;
            fila.push_back(q);
        }
    }
    void rete(std::int32_t r) {
        const std::int32_t questa = r / passoRete * passoRete;
        if (questa == filaSopra) return;
        if (filaSopra >= 0 && questa == filaSopra + passoRete)
            sopra.swap(sotto);
        else
            nodi(questa, sopra);
        nodi(questa + passoRete, sotto);
        filaSopra = questa;
    }
    [[nodiscard]] Punto traNodi(std::int32_t r, std::int32_t c) const {
        const auto k = static_cast<std::size_t>((c - bordo.left) / passoRete);
        const double a = double((c - bordo.left) % passoRete) / passoRete, b = double(r - filaSopra) / passoRete;
        const auto mescola = [a, b, k, this](double Punto::*q) {
            return (1 - b) * ((1 - a) * sopra[k].*q + a * sopra[k + 1].*q)
                   + b * ((1 - a) * sotto[k].*q + a * sotto[k + 1].*q);
        };
        return {mescola(&Punto::u), mescola(&Punto::v)};
    }

    const CampoInverso& campo;
    Rect bordo;
    Punto inizio{campo.larghezza / 2, campo.altezza / 2};
    std::int32_t filaSopra = -1;
    std::vector<Punto> sopra, sotto;
};

// --- one colour

// Catmull-Rom's cubic by the fraction of a pixel.
struct Pesi {
    static constexpr std::size_t passi = 1024;
    std::array<std::array<float, 4>, passi + 1> w{};
    Pesi() {
        for (std::size_t i = 0; i <= passi; ++i) {
            const double t = double(i) / passi, t2 = t * t, t3 = t2 * t;
            w[i] = {float((-t3 + 2 * t2 - t) / 2), float((3 * t3 - 5 * t2 + 2) / 2), float((-3 * t3 + 4 * t2 + t) / 2),
                    float((t3 - t2) / 2)};
        }
    }
};
const Pesi pesi;

// Pixel k of four side by side, by shuffles: compilers take a conversion of bytes apart.
template <int k>
IN_LINEA Quattro pixelDi(Byte16 b) {
    constexpr int z = 16;   // of a vector of zeros
    const Byte16 nulla{};
    const Byte16 larghi =
        __builtin_shufflevector(b, nulla, 4 * k, z, z, z, 4 * k + 1, z, z, z, 4 * k + 2, z, z, z, 4 * k + 3, z, z, z);
    return __builtin_convertvector(reinterpret_cast<Interi>(larghi), Quattro);
}

IN_LINEA Quattro canali(std::uint32_t p) {
    Byte16 b{};
    std::memcpy(&b, &p, 4);
    return pixelDi<0>(b);
}

IN_LINEA Byte16 minore(Byte16 a, Byte16 b) { return a < b ? a : b; }
IN_LINEA Byte16 maggiore(Byte16 a, Byte16 b) { return a > b ? a : b; }

// Held to the colours of the sixteen pixels around, so that an edge has no halo.
IN_LINEA std::uint32_t cubica(const std::uint32_t* const righe[4], float fu, float fv) {
    const auto &wx = pesi.w[static_cast<std::size_t>(fu * float(Pesi::passi))],
               &wy = pesi.w[static_cast<std::size_t>(fv * float(Pesi::passi))];
    Quattro c{};
    Byte16 piccolo, grande;
    for (int j = 0; j < 4; ++j) {
        const std::uint32_t* p = righe[j];
        Byte16 b;
        std::memcpy(&b, p, 16);
        piccolo = j == 0 ? b : minore(piccolo, b);
        grande = j == 0 ? b : maggiore(grande, b);
        c += (pixelDi<0>(b) * wx[0] + pixelDi<1>(b) * wx[1] + pixelDi<2>(b) * wx[2] + pixelDi<3>(b) * wx[3])
             * wy[static_cast<std::size_t>(j)];
    }
    piccolo = minore(piccolo,
                     __builtin_shufflevector(piccolo, piccolo, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7));
    piccolo = minore(piccolo,
                     __builtin_shufflevector(piccolo, piccolo, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3));
    grande =
        maggiore(grande, __builtin_shufflevector(grande, grande, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3, 4, 5, 6, 7));
    grande =
        maggiore(grande, __builtin_shufflevector(grande, grande, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0, 1, 2, 3));
    std::uint32_t basso, alto;
    std::memcpy(&basso, &piccolo, 4);
    std::memcpy(&alto, &grande, 4);
    const Quattro l = canali(basso), h = canali(alto);
    c = c < l ? l : c;
    c = c > h ? h : c;
    const Interi i = __builtin_convertvector(c + 0.5F, Interi);
    return static_cast<std::uint32_t>(i[0]) | static_cast<std::uint32_t>(i[1]) << 8
           | static_cast<std::uint32_t>(i[2]) << 16 | 0xFF000000U;
}

IN_LINEA std::uint32_t cubicaDa(const Campioni::Livello& l, double u, double v) {
    const double bu = std::floor(u), bv = std::floor(v);
    const auto x = static_cast<std::int32_t>(bu) - 1, y = static_cast<std::int32_t>(bv) - 1;
    const std::uint32_t* righe[4];
    std::uint32_t orlo[16];
    const bool dentro = x >= 0 && y >= 0 && x + 4 <= l.w && y + 4 <= l.h;
    for (std::int32_t j = 0; j < 4; ++j) {
        const std::uint32_t* riga = l.pixel.data() + std::ptrdiff_t(std::clamp(y + j, 0, l.h - 1)) * l.w;
        righe[j] = riga + x;
        if (dentro) continue;
        for (std::int32_t i = 0; i < 4; ++i) orlo[4 * j + i] = riga[std::clamp(x + i, 0, l.w - 1)];
        righe[j] = orlo + 4 * j;
    }
    return cubica(righe, static_cast<float>(u - bu), static_cast<float>(v - bv));
}

IN_LINEA Quattro lineareDa(const Campioni::Livello& l, double u, double v) {
    u = std::clamp(u, 0.0, l.w - 1.0);
    v = std::clamp(v, 0.0, l.h - 1.0);
    const auto x = static_cast<std::int32_t>(u), y = static_cast<std::int32_t>(v);
    const auto a = static_cast<float>(u - x), b = static_cast<float>(v - y);
    const std::int32_t x1 = std::min(x + 1, l.w - 1), y1 = std::min(y + 1, l.h - 1);
    const std::uint32_t *p = l.pixel.data() + std::ptrdiff_t(y) * l.w, *q = l.pixel.data() + std::ptrdiff_t(y1) * l.w;
    return (canali(p[x]) * (1 - a) + canali(p[x1]) * a) * (1 - b) + (canali(q[x]) * (1 - a) + canali(q[x1]) * a) * b;
}

// What a result pixel covers: its sides as vectors of source pixels.
struct Impronta {
    double ux = 1, vx = 0, uy = 0, vy = 1;
    [[nodiscard]] double larga() const { return std::sqrt(ux * ux + vx * vx); }
    [[nodiscard]] double alta() const { return std::sqrt(uy * uy + vy * vy); }
};

// The mean over the pixel, from the copy whose pixels are about as large as the smaller side.
std::uint32_t area(const Campioni& s, Punto p, const Impronta& k) {
    constexpr int massimo = 16;
    const double l = k.larga(), h = k.alta(), minimo = std::max(1.0, std::min(l, h));
    const int livello = std::clamp(static_cast<int>(std::log2(minimo)), 0, s.ultimo());
    const double scala = std::ldexp(1.0, -livello);
    const int n = std::clamp(static_cast<int>(std::ceil(l * scala)), 1, massimo),
              m = std::clamp(static_cast<int>(std::ceil(h * scala)), 1, massimo);
    const Campioni::Livello& qui = s.livello(livello);
    Quattro c{};
    for (int j = 0; j < m; ++j)
        for (int i = 0; i < n; ++i) {
            const double a = (i + 0.5) / n - 0.5, b = (j + 0.5) / m - 0.5;
            c += lineareDa(qui, (p.u + a * k.ux + b * k.uy) * scala - 0.5, (p.v + a * k.vx + b * k.vy) * scala - 0.5);
        }
    const Interi i = __builtin_convertvector(c / static_cast<float>(n * m) + 0.5F, Interi);
    return static_cast<std::uint32_t>(i[0]) | static_cast<std::uint32_t>(i[1]) << 8
           | static_cast<std::uint32_t>(i[2]) << 16 | 0xFF000000U;
}

IN_LINEA void colori(const Campioni& s, const Punto* p, std::int32_t n, const Impronta& k, std::uint32_t* out) {
    constexpr double quasiUno = 1.05;   // as large as the source, but for what a slight perspective does
    const Campioni::Livello& piena = s.livello(0);
    const bool riduce = std::max(k.larga(), k.alta()) > quasiUno;
    for (std::int32_t i = 0; i < n; ++i) {
        const bool fuori = !(p[i].u >= 0 && p[i].v >= 0 && p[i].u < piena.w && p[i].v < piena.h);
        if (fuori) continue;
        out[i] = riduce ? area(s, p[i], k) : cubicaDa(piena, p[i].u - 0.5, p[i].v - 0.5);
    }
}

void coloriBase(const Campioni& s, const Punto* p, std::int32_t n, const Impronta& k, std::uint32_t* out) {
    colori(s, p, n, k, out);
}
#ifdef __x86_64__
__attribute__((target("avx2,fma"))) void coloriLarghi(const Campioni& s, const Punto* p, std::int32_t n,
                                                      const Impronta& k, std::uint32_t* out) {
    colori(s, p, n, k, out);
}
const auto coloriMigliori = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma") ? coloriLarghi : coloriBase;
#else
const auto coloriMigliori = coloriBase;
#endif

// From a place, the one to its right if there is one, and the one below.
Impronta improntaDi(const Punto* p, const Punto& sotto, bool conDestra) {
    Impronta i;
    if (conDestra) {
        i.ux = p[1].u - p[0].u;
        i.vx = p[1].v - p[0].v;
    }
    i.uy = sotto.u - p[0].u;
    i.vy = sotto.v - p[0].v;
    return i;
}

struct Banda {
    const Ricampionamento& q;
    Posti posti, postiSotto;
    std::vector<TrattoFila> tratti;
    std::vector<std::uint32_t> riga;
    std::array<Punto, blocco> qui{};
    Punto giu{};

    explicit Banda(const Ricampionamento& r) : q(r), posti(r.campo, r.area), postiSotto(r.campo, r.area) {}

    void tagliaSorgente(std::int32_t n) {
        const Piano& p = *q.pianoSorgente;
        for (std::int32_t i = 0; i < n; ++i) {
            Punto& k = qui[static_cast<std::size_t>(i)];
            const double x = p.x1Pict2 + k.u * q.foglioX, y = p.y1Pict2 + k.v * q.foglioY;
            const double c = k.u, r = (y - p.y1Pict2) * p.stepD;
            if (!(c >= 0 && r >= 0 && c < p.larghezza && r < p.altezza)) continue;
            const std::uint8_t s =
                q.mascheraSorgente->stato(static_cast<std::uint32_t>(r) * p.passo + static_cast<std::uint32_t>(c));
            if (s == MascheraTaglio::fuori || (s == MascheraTaglio::orlo && !InternoPol(x, y))) k = {nessuno, nessuno};
        }
    }
    void fai(std::int32_t r) {
        tratti.assign(1, {q.area.left, q.area.right});
        if (q.taglio != nullptr) {
            const FilaPunti fila{q.taglio->x1Pict2 + 0.5 / q.taglio->stepD, 1 / q.taglio->stepD,
                                 q.taglio->y1Pict2 + (r + 0.5) / q.taglio->stepD};
            TrattiInterni(fila, q.area.left, q.area.right, tratti);
        }
        for (const TrattoFila& t : tratti)
            for (std::int32_t c = t.da; c < t.a; c += blocco) {
                const std::int32_t n = std::min(blocco, t.a - c);
                posti.riga(r, c, n, qui.data());
                const std::int32_t mezzo = std::max(0, n / 2 - 1);
                postiSotto.riga(r + 1, c + mezzo, 1, &giu);
                const Impronta k = improntaDi(qui.data() + mezzo, giu, n > 1);
                if (q.mascheraSorgente != nullptr) tagliaSorgente(n);
                riga.assign(static_cast<std::size_t>(n), 0xFFFFFFFFU);
                std::uint8_t* a = q.risultato.riga(r) + std::ptrdiff_t(c) * q.formato.byte();
                q.formato.decodifica(a, n, riga.data());
                coloriMigliori(q.sorgente, qui.data(), n, k, riga.data());
                q.formato.codifica(riga.data(), n, a);
            }
    }
};

}   // namespace

double Riduzione(const CampoInverso& campo, const Rect& area) {
    double massima = 1;
    Posti sopra(campo, area), sotto(campo, area);
    std::array<Punto, 2> p{};
    Punto giu{};
    for (int j = 0; j <= 8; ++j)
        for (int i = 0; i <= 8; ++i) {
            const std::int32_t c = area.left + std::max(0, area.right - area.left - 2) * i / 8,
                               r = area.top + std::max(0, area.bottom - area.top - 2) * j / 8;
            sopra.riga(r, c, 2, p.data());
            sotto.riga(r + 1, c, 1, &giu);
            const Impronta k = improntaDi(p.data(), giu, true);
            const double piccola = std::min(k.larga(), k.alta());
            if (std::isfinite(piccola)) massima = std::max(massima, piccola);
        }
    return massima;
}

bool Ricampiona(const Ricampionamento& q, const std::function<bool(double)>& passo) {
    const std::int32_t perVolta =
        std::clamp<std::int32_t>((1 << 20) / std::max(1, q.area.right - q.area.left), 16, std::max(16, q.area.bottom));
    for (std::int32_t r = q.area.top; r < q.area.bottom; r += perVolta) {
        const std::int32_t fine = std::min(q.area.bottom, r + perVolta);
        perRighe(fine - r, [&](std::int32_t da, std::int32_t a, std::int32_t) {
            Banda banda(q);
            for (std::int32_t y = r + da; y < r + a; ++y) banda.fai(y);
        });
        if (!passo((double(fine) - q.area.top) / (double(q.area.bottom) - q.area.top))) return false;
    }
    return true;
}

}   // namespace tessaro
