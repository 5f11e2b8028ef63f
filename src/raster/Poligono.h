// The polygon that a picture is cut to: is a point inside, and which stretches of a row of points are.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tessaro {

// Sheet units. Vertices 0 to ultimoTaglio; it closes by itself. What stands behind the last vertex is left from before.
inline constexpr std::int32_t maxTaglio = 32768;
extern std::array<double, maxTaglio> Xtaglio, Ytaglio;
extern std::int32_t ultimoTaglio;   // 0 to maxTaglio - 1

// Is the point inside? By crossings of a ray to the right, each rounded to single precision; a point nearer than 0.0001
// to a vertex on both axes is inside whatever they say.
bool InternoPol(double const& x, double const& y);

// Points of a row: x = x0 + h * passo, passo above 0.
struct FilaPunti {
    double x0, passo, y;
};
struct TrattoFila {
    std::int32_t da, a;   // h from da to a, not included
};
// The h of [da, a) that InternoPol calls inside, ascending and apart: the same answer for every point, at the cost of one
// look at each side for the whole row. `tratti` is replaced.
void TrattiInterni(const FilaPunti& fila, std::int32_t da, std::int32_t a, std::vector<TrattoFila>& tratti);

}   // namespace tessaro
