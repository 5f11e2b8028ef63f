// Where the pixels of a dense source land in the result: blocks of a row at a time, with the arithmetic of
// ActiveAttach::Traf4Pt to the last digit.
#pragma once

#include <cstdint>

#include "model/Registrazione.h"
#include "registration/ReteMappa.h"
#include "registration/Solutori.h"

namespace tessaro {

inline constexpr std::int32_t bloccoPixel = 256;
inline constexpr std::uint32_t nessunPixel = 0xFFFFFFFFU;

// A similarity, the homography and the net of many points run four points at a time; the construction by vanishing points
// goes through Traf4Pt itself.
enum class SpecieMappa : std::uint8_t { similitudine, omografia, rete, costruzione };

struct Mappatura {
    SpecieMappa specie = SpecieMappa::costruzione;
    TransfRec simile;
    Coefficienti coef{};
    const ReteMappa* rete = nullptr;   // of mappaMolti
};
Mappatura MappaturaAttiva();   // of attaccoAttivo in the mode in force; readies it for calls from threads

// Source column h of row v stands at (x1PictBase + h stepS, y1PictBase + v stepS), sheet units; what lands at (x, y) goes
// to result column trunc((x - x1Pict2) stepD), row trunc((y - y1Pict2) stepD).
struct Piano {
    double x1PictBase = 0, y1PictBase = 0, stepS = 1;
    double x1Pict2 = 0, y1Pict2 = 0, stepD = 1;
    std::int32_t larghezza = 0, altezza = 0;   // of the result
    std::uint32_t passo = 0;                   // its pixels a row
};

// What is known of a block: whether every pixel lands, and the result rows that it touches.
struct EsitoBlocco {
    std::int32_t prima = 0, ultima = -1;   // none: prima above ultima
    bool pieno = false;
};

// Index row * passo + column in the result for columns h to h + n (n at most bloccoPixel) of row v; nessunPixel for what
// lands outside or nowhere. `indici` has room for bloccoPixel: up to three behind n may be written.
EsitoBlocco IndiciBlocco(const Mappatura& m, const Piano& p, std::int32_t v, std::int32_t h, std::int32_t n,
                         std::uint32_t* indici);

}   // namespace tessaro
