// The crosses of a sheet's grid find themselves in its scan: from two that are known the others are predicted, looked for
// within a radius, measured to a part of a pixel, and taken only where all four arms are there.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "model/Registrazione.h"

namespace tessaro {

struct ImmagineGrigia {   // 0 black to 255 white, rows from the top
    std::int32_t larghezza = 0, altezza = 0;
    std::vector<float> valori;
    [[nodiscard]] float in(double x, double y) const;   // bilinear between the middles of pixels; outside, the nearest
};

// Places are in pixels: the middle of the upper left one is (0, 0), Y down. Real coordinates have Y up.
struct RichiestaCroci {
    Coppia pixelA, pixelB, realeA, realeB;   // the two known crosses; both are corners of the grid
    double passoX = 0, passoY = 0;           // of the grid, real units, above 0
    double braccio = 12;                     // of a cross, pixels from its middle
    double raggio = 15;                      // pixels that a cross may be off its prediction
    double soglia = 0.35;                    // confidence from which one is taken
};
struct Croce {
    std::int32_t i = 0, j = 0;      // columns and rows of the grid from cross A
    Coppia reale, prevista, dove;   // the last two in pixels; `dove` of one that was taken
    double fiducia = 0;             // the weakest arm's contrast by that of the known crosses, 0 to 1
    bool presa = false;
};
// Every cross of the grid whose prediction lies in the image with its arms, the known ones too, the nearest to them first.
// Predictions follow the crosses found around, so that shrinkage and folds are followed. None when the two known ones are
// one, when they show no cross, or when there would be more than 20,000.
// `passo`: asked with the part that is done; the first false ends the search, with none.
std::vector<Croce> TrovaCroci(const ImmagineGrigia& im, const RichiestaCroci& r,
                              const std::function<bool(double)>& passo = {});

}   // namespace tessaro
