// Resampling of a raster to device pixels: the mean of what a pixel covers when it shrinks, the nearest when it grows.
#pragma once

#include <cstdint>
#include <vector>

namespace tessaro {

// Pixels that can be asked for by row. Alpha is 255 or 0: a hole that shows what is below.
struct FonteRighe {
    virtual ~FonteRighe() = default;
    std::int32_t width = 0, height = 0;
    bool buchi = false;
    // Pixels x0 to x1 (not included) of row y into out[0].
    virtual void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) = 0;
};

// Where the raster lies among device pixels: its corner and the device pixels that one of its own takes.
struct Posa {
    double x = 0, y = 0;
    double sx = 1, sy = 1;
};

// Fills device pixels [left, left + w) x [top, top + h) of the placed raster, row by row into out.
class Riduttore {
public:
    Riduttore(FonteRighe& source, const Posa& where, std::int32_t left, std::int32_t w);
    void righe(std::int32_t top, std::int32_t h, std::uint32_t* out);

private:
    struct Tratto {   // source pixels [da, a) of one result pixel; the first and last weigh less
        std::int32_t da = 0, a = 1;
        float primo = 1, ultimo = 1;
    };
    static Tratto tratto(std::int32_t d, double origine, double scala, std::int32_t lato);
    const float* ridotta(std::int32_t y);   // source row y, reduced across: 4 sums a result pixel
    void cresciute(std::int32_t top, std::int32_t h, std::uint32_t* out);   // where neither axis shrinks
    FonteRighe& fonte;
    Posa posa;
    std::vector<Tratto> colonne;
    std::vector<std::int32_t> posti;     // Tratto::da of each
    std::int32_t inizio = 0, fine = 0;   // source columns that are needed
    std::vector<std::uint32_t> banco;
    std::vector<float> somme, totale;
    std::int32_t rigaRidotta = -1;
};

// The raster 2^esponente times smaller, each pixel the mean of its block.
void Dimezza(FonteRighe& source, int esponente, std::vector<std::uint32_t>& out);

}   // namespace tessaro
