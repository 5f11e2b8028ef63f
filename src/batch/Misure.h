// Numbers of a drawing that several commands tell: how many elements of each kind, how long and how large they are.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "batch/Chiamata.h"

namespace tessaro {

// Kinds in the order of the table; a polyline counts once, its vertices not at all.
struct Conteggi {
    static constexpr std::array<std::string_view, 7> nomi{"segments", "markers", "polylines", "texts",
                                                          "pictures", "circles", "arcs"};
    std::array<std::int64_t, 7> quanti{};
    [[nodiscard]] std::int64_t tutti() const;
};
Conteggi ContaElementi();

// --unit and --scale, for what comes in without them. False, and said, for values that are none.
[[nodiscard]] bool ScegliMisure(const Chiamata& c);

// Real units to a sheet unit, by the registration or the scale in force.
double RealiPerUnita();

// An element's length and area in the user's unit, its heights left aside; NaN where its kind has none. A polyline that
// ends where it began has an area.
struct MisureElemento {
    double lunghezza, area;
    std::int32_t punti = 0;
    bool chiuso = false;
};
MisureElemento MisuraElemento(std::int32_t n);

}   // namespace tessaro
