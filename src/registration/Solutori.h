// From a source quadrilateral P1 P2 P3 P4 to a target Q1 Q2 Q3 Q4 (lower left, upper left, upper right, lower right):
// the exact homography, and the construction by vanishing points. Sheet units, Y down.
//
// The construction measures a point along two axes. Axis 1 runs along the side P1 P4: the line from the point to the
// vanishing point of P1 P2 and P3 P4 cuts it at the point's position. Axis 2 runs along P3 P4, from P3, with the
// vanishing point of P1 P4 and P2 P3. Where a pair of sides is parallel there is no vanishing point, and the position is
// measured across the sides by their direction. Both positions are carried over to the axes of the target, straight or
// by a curve that takes the centre to the centre, and the target's two lines through them cross at the result.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "model/Registrazione.h"

namespace tessaro {

// 1 the perspective mappings, 0 a plain linear scale along the sides. 1 but for the length of a picture's job
extern std::uint8_t deformProspettica;

// --- homography: X = (a x + b y + c) / D, Y = (d x + e y + f) / D with D = 1 + (g x + h y)
using Coefficienti = std::array<double, 9>;   // a to h, one spare slot behind
// From four pairs of points. False, and the coefficients stay, when the points do not define one.
bool RisolviOmografia(const std::array<Coppia, 4>& src, const std::array<Coppia, 4>& dst, Coefficienti& coef);
void TrasformaOmografia(const Coefficienti& coef, double& x, double& y);   // D may be 0: the point goes to infinity

// --- vanishing points
// What a preparation reports when diagonals or axes do not meet: it takes (0, 0) there and goes on. A 0 is not reported.
struct ErroriPrep {
    std::int16_t diagonaliSrc = 0, diagonaliDst = 0, asse1 = 0, asse2 = 0, asse1d = 0, asse2d = 0;
};
// The numbers that a preparation has reported, in the order met, for ErroreAlert; who called it shows them.
struct ErroriIncontrati {
    std::array<std::int16_t, 6> numeri{};
    std::size_t quanti = 0;
    void aggiungi(std::int16_t errore) {
        if (errore != 0) numeri[quanti++] = errore;
    }
    operator std::span<const std::int16_t>() const { return {numeri.data(), quanti}; }   // NOLINT: it is that list
};
[[nodiscard]] ErroriIncontrati
PreparaQuattro(Att4Pt& r, const ErroriPrep& errori);   // the centres are the crossings of the diagonals
// The centres are given: the source's by srcC. Kept: the target's by dstC across parallel sides, which an axis before it
// may have overwritten, and by control point 5 of the globals elsewhere.
[[nodiscard]] ErroriIncontrati PreparaCinque(Att4Pt& r, const ErroriPrep& errori);
// A prepared record, ready to map many points: what they all share is computed once, and the two axes are worked on at
// once, to the same digits as one after the other. Stale when the record or orientCorrente has changed since.
class MappaFuga {
public:
    using Due = double __attribute__((vector_size(16)));            // a number of axis 1 and one of axis 2
    using Scelta = std::int64_t __attribute__((vector_size(16)));   // -1 yes, 0 no, for each

    MappaFuga() = default;
    explicit MappaFuga(const Att4Pt& r);   // of a record that a preparation has filled
    // Maps a point in place: by the two-piece curve, or by the plain scale. Parallel lines of the target give (0, 0).
    void operator()(bool curva, double& x, double& y) const;
    [[nodiscard]] std::int32_t orientamento() const { return orient; }

    struct Assi {   // of the source, with what carries their positions over to the target
        Due len{}, mid{}, k{}, r{}, t{}, d{};
    };
    struct Rette {   // through a and b: a.y - b.y, b.x - a.x, a.x b.y - b.x a.y
        Due dy{}, dx{}, k{};
    };

private:
    void destinazione(const Att4Pt& r, const std::array<Coppia, 4>& q);
    [[nodiscard]] Due posizioni(double x, double y) const;   // along the axes of the source

    std::int32_t orient = 0;
    Assi assi;
    Scelta par{}, pard{};                         // across parallel sides, of source and target
    Due fugaX{}, fugaY{}, inizioX{}, inizioY{};   // vanishing points; P1 and P3, where the axes begin
    Rette lati;                                   // P1 P4 and P3 P4
    Coppia base;                                  // P2
    Due cosP{}, senP{};                           // of the directions across
    Due fugadX{}, fugadY{}, lungoX{}, lungoY{};
    Due iniziodX{}, iniziodY{}, passodX{},
        passodY{};   // positions on the target: where they begin, the step of one unit
};
// The same for a single point.
void TrasformaFuga(const Att4Pt& r, bool curva, double& x, double& y);

// --- the free solver over att4Pt, which merges use
[[nodiscard]] ErroriIncontrati PrepAtt4pt();
void Traf4Pt(double& x, double& y);

}   // namespace tessaro
