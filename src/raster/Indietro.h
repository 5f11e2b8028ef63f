// Walks that ask back: each pixel of the result takes one pixel of the source, or stays ground.
#pragma once

#include <cstdint>
#include <functional>

#include "raster/Tela.h"

namespace tessaro {

inline constexpr std::int32_t bloccoIndietro = 128;

// How many of a block's pixels have one in the source.
enum class Fonti : std::uint8_t { nessuna, alcune, tutte };
// The source's index for n result pixels of row y from column x on, Tela::passo() a row; nessunaFonte where there is none.
// Of a block that has none `indici` may stay as it was. It has room for bloccoIndietro: up to three behind n may be
// written.
inline constexpr std::uint32_t nessunaFonte = 0xFFFFFFFFU;
using RichiestaPixel = std::function<Fonti(std::int32_t y, std::int32_t x, std::int32_t n, std::uint32_t* indici)>;

// False when `passo`, which hears the fraction done, stopped it.
bool PercorriIndietro(const Tela& src, Tela& dst, const RichiestaPixel& domanda,
                      const std::function<bool(double)>& passo);

// --- rotation: result (h, v) takes source (trunc(s Y + c X), trunc(c Y - s X)) with X = ox + h, Y = oy + v
struct Giro {
    double c, s;
    std::int32_t ox, oy;
};
RichiestaPixel RichiestaGiro(const Giro& g, const Tela& src);

// --- lens: percentages by which the frame's edges bow
struct Bombature {
    double sinistra = 0, destra = 0, alto = 0, basso = 0;
};
// round(b (1 - k (1 - a^2 / c^2) / 100)): the distance b from the centre scaled down by k per cent on the axis, a = 0, and
// not at all at the corner, a = c. Halves away from zero. A frame without extent, c = 0, gives 0.
std::int32_t QuadraticInterpolation(std::int32_t a, std::int32_t b, std::int32_t c, const double& k);
// `src` of the result's size.
RichiestaPixel RichiestaLente(const Bombature& lente, const Tela& src);

}   // namespace tessaro
