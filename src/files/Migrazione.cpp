// Old records field by field. Their reals are 80-bit extended numbers; their whole numbers are big-endian and stay so.
#include "files/Migrazione.h"

#include <algorithm>
#include <cstring>

#include "text/EndianConvert.h"
#include "text/FileDati.h"

namespace tessaro {

// Kept: the first character counts as the length, so the tag of a migrated record reads as damaged text.
constinit const Aref ArefVecchio{'T', 'e', 's', 's', 'a', 'r', 'o', ' ', '3', 'D', 0, 'C', 'O', 'N'};

namespace {

enum class Come : std::uint8_t {
    reale,    // 80 bits to a double
    intero,   // 16 bits
    lungo,    // 32 bits
    byte,
    colore,   // 32 bits, through ColOldToNew, to 16
    testo,    // 41 bytes
};

struct Mossa {
    std::uint8_t tipo;
    Come come;
    std::uint8_t da, a;   // offsets in the old and the new record
};

using enum Come;

constexpr Mossa mosseExt[] = {
    {0, reale, 34, 28},  {0, reale, 44, 36},  {0, reale, 54, 44},  {0, reale, 64, 52},  {0, reale, 74, 60},
    {0, reale, 84, 68},  {0, intero, 94, 76}, {0, intero, 96, 78},

    {1, reale, 34, 28},  {1, reale, 44, 36},  {1, reale, 54, 44},  {1, reale, 64, 52},  {1, reale, 74, 60},
    {1, reale, 84, 68},  {1, intero, 94, 76}, {1, intero, 96, 78}, {1, colore, 98, 80},

    {2, reale, 34, 28},  {2, reale, 44, 36},  {2, reale, 54, 44},  {2, intero, 64, 52}, {2, intero, 66, 54},
    {2, intero, 68, 56}, {2, colore, 70, 58},

    {4, reale, 34, 28},  {4, reale, 44, 36},  {4, reale, 54, 44},  {4, reale, 64, 52},  {4, reale, 74, 60},
    {4, reale, 84, 68},  {4, byte, 94, 76},   {4, byte, 95, 77},   {4, intero, 96, 78},

    {5, reale, 34, 28},  {5, reale, 44, 36},  {5, reale, 54, 44},  {5, reale, 64, 52},

    {7, reale, 34, 28},  {7, reale, 44, 36},  {7, reale, 54, 44},  {7, reale, 64, 52},  {7, reale, 74, 60},
    {7, byte, 84, 68},   {7, byte, 85, 69},   {7, intero, 86, 70}, {7, intero, 88, 72}, {7, intero, 90, 74},
    {7, colore, 92, 76},

    {8, reale, 34, 28},  {8, reale, 44, 36},  {8, reale, 54, 44},  {8, lungo, 64, 52},

    {9, reale, 18, 12},  {9, reale, 28, 20},  {9, intero, 14, 8},  {9, intero, 16, 10}, {9, testo, 38, 28},
    {9, byte, 80, 70},   {9, intero, 82, 72}, {9, intero, 84, 74}, {9, colore, 86, 76},

    {10, reale, 34, 28}, {10, reale, 44, 36}, {10, reale, 58, 48}, {10, reale, 68, 56}, {10, lungo, 54, 44},
};

constexpr Mossa mosseOld[] = {
    {0, reale, 0, 28},   {0, reale, 10, 36},  {0, reale, 30, 52},  {0, reale, 40, 60},  {0, reale, 20, 44},
    {0, reale, 50, 68},  {0, intero, 60, 76}, {0, intero, 62, 78},

    {1, reale, 0, 28},   {1, reale, 10, 36},  {1, reale, 20, 44},  {1, reale, 30, 52},  {1, reale, 40, 60},
    {1, reale, 50, 68},  {1, intero, 60, 76}, {1, intero, 62, 78}, {1, colore, 64, 80},

    {2, reale, 0, 28},   {2, reale, 10, 36},  {2, reale, 20, 44},  {2, intero, 30, 52}, {2, intero, 32, 54},
    {2, intero, 34, 56}, {2, colore, 36, 58},

    {4, reale, 0, 28},   {4, reale, 10, 36},  {4, reale, 20, 44},  {4, reale, 30, 52},  {4, reale, 40, 60},
    {4, reale, 50, 68},  {4, byte, 60, 76},   {4, byte, 61, 77},   {4, intero, 62, 78},

    {5, reale, 0, 28},   {5, reale, 10, 36},  {5, reale, 20, 44},  {5, reale, 30, 52},
};

struct ColoreVecchio {
    std::int32_t vecchio;
    std::int16_t nuovo;
};
constexpr ColoreVecchio coloriVecchi[] = {{205, 2}, {341, 3}, {409, 4}, {273, 5}, {137, 6}, {69, 7}};

std::int16_t intero16(const std::uint8_t* p) { return static_cast<std::int16_t>(p[0] << 8 | p[1]); }
std::int32_t intero32(const std::uint8_t* p) {
    return static_cast<std::int32_t>(std::uint32_t{p[0]} << 24 | std::uint32_t{p[1]} << 16 | std::uint32_t{p[2]} << 8
                                     | p[3]);
}

// The new record while it is built: bytes in disk order.
struct Disco {
    std::uint8_t* p;
    void intero(std::size_t a, std::int16_t v) const {
        p[a] = static_cast<std::uint8_t>(v >> 8 & 0xFF);
        p[a + 1] = static_cast<std::uint8_t>(v & 0xFF);
    }
    void copia(std::size_t a, const std::uint8_t* da, std::size_t n) const { std::memcpy(p + a, da, n); }
};

void muovi(const Mossa& m, const std::uint8_t* vecchio, const Disco& nuovo) {
    const std::uint8_t* da = vecchio + m.da;
    switch (m.come) {
    case reale: {
        std::array<std::uint8_t, 10> x;
        std::copy_n(da, x.size(), x.begin());
        const double v = EndiansDouble_NtoB(static_cast<double>(x80told(x)));
        std::memcpy(nuovo.p + m.a, &v, sizeof v);
        break;
    }
    case intero: nuovo.copia(m.a, da, 2); break;
    case lungo: nuovo.copia(m.a, da, 4); break;
    case byte: nuovo.copia(m.a, da, 1); break;
    case colore: nuovo.intero(m.a, ColOldToNew(intero32(da))); break;
    case testo: nuovo.copia(m.a, da, 41); break;
    }
}

template <std::size_t n>
void muoviTutto(const Mossa (&mosse)[n], std::uint8_t tipo, const std::uint8_t* vecchio, const Disco& nuovo) {
    for (const Mossa& m : mosse)
        if (m.tipo == tipo) muovi(m, vecchio, nuovo);
}

Disco vuoto(elemento& e) {
    e = elemento{};
    auto* p = reinterpret_cast<std::uint8_t*>(&e);
    std::memset(p, 0, sizeof e);
    return {p};
}

constexpr std::int16_t entro(std::int16_t v, std::int16_t min, std::int16_t max, std::int16_t altrimenti) {
    return v < min || v > max ? altrimenti : v;
}

// Offsets of a record's head, old (102 bytes) and new.
constexpr std::size_t vLucido = 0, vSelezionato = 2, vBasso3 = 7, vCampo4 = 8, vTipo = 13, vLinea = 14, vAref = 16,
                      vCategoria = 30, vInsieme = 32;
constexpr std::size_t nLucido = 0, nSelezionato = 2, nByte3 = 3, nCampo4 = 4, nTipo = 6, nLinea = 8, nAref = 10,
                      nCategoria = 24, nInsieme = 26;

void testaRiservata(const Disco& d) {
    d.intero(nLinea, 1);
    d.copia(nAref, ArefVecchio.data(), ArefVecchio.size());
}

void testaGrezza(const std::uint8_t* v, const Disco& d) {
    d.copia(nLucido, v + vLucido, 2);
    d.copia(nSelezionato, v + vSelezionato, 1);
    d.copia(nByte3, v + vBasso3, 1);
    d.copia(nCampo4, v + vCampo4, 2);
    d.copia(nLinea, v + vLinea, 2);
    d.copia(nAref, v + vAref, ArefVecchio.size());
    d.copia(nCategoria, v + vCategoria, 2);
    d.copia(nInsieme, v + vInsieme, 2);
}

void testaRisanata(const std::uint8_t* v, const Disco& d) {
    testaGrezza(v, d);
    d.intero(nLucido, entro(intero16(v + vLucido), 0, 99, 0));
    d.intero(nCampo4, entro(intero16(v + vCampo4), 1, 127, 1));
    d.intero(nLinea, entro(intero16(v + vLinea), 1, 9, 1));
    if (v[vAref] > 13) d.copia(nAref, ArefVecchio.data(), ArefVecchio.size());
    d.intero(nCategoria, entro(intero16(v + vCategoria), 1, 127, 1));
    d.intero(nInsieme, entro(intero16(v + vInsieme), 1, 127, 1));
}

using Testata = void (*)(const std::uint8_t*, const Disco&);
Testata testataDi(std::uint8_t tipo) {
    switch (tipo) {
    case tSegmento:
    case tMarker:
    case tPoligono:
    case tVertice:
    case tTesto:
    case tPict: return testaRisanata;
    case tAttacco1:
    case tAttacco2:
    case tVecchio5: return [](const std::uint8_t*, const Disco& d) { testaRiservata(d); };
    default: return testaGrezza;
    }
}

}   // namespace

std::int16_t ColOldToNew(std::int32_t colore) {
    for (const ColoreVecchio& c : coloriVecchi)
        if (c.vecchio == colore) return c.nuovo;
    return 1;
}

void TrasformaExtDoub(const elemento_Ext& vecchio, elemento& nuovo) {
    const Disco d = vuoto(nuovo);
    const std::uint8_t* v = vecchio.byte.data();
    const std::uint8_t tipo = v[vTipo];
    d.p[nTipo] = tipo;
    testataDi(tipo)(v, d);
    muoviTutto(mosseExt, tipo, v, d);
}

void TrasformaOldNew(const Oldelemento& vecchio, elemento& nuovo) {
    const Disco d = vuoto(nuovo);
    // Kept: the type is the low byte of the first word, which is also part of the first real.
    const std::uint8_t tipo = vecchio.byte[3];
    d.p[nTipo] = tipo;
    testaRiservata(d);
    muoviTutto(mosseOld, tipo, vecchio.byte.data(), d);
}

}   // namespace tessaro
