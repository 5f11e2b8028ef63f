// Registration records: the planar similarity between sheet and real coordinates, and the live transformation.
// Control points 1 to 4 live in records 1 and 2; point 5 has globals of its own.
#pragma once

#include <array>
#include <cstdint>

namespace tessaro {

// A planar similarity, fourteen doubles in this order. (x1, y1) is the fixed point of rotation and enlargement.
// Z values are carried, never applied.
struct TransfRec {
    double deltaX = 0, deltaY = 0, deltaZ = 0;
    double rot11 = 0, rot12 = 0, rot21 = 0, rot22 = 0;
    double ingr = 0;
    double x1 = 0, y1 = 0, z1 = 0, x2 = 0, y2 = 0, z2 = 0;
};
static_assert(sizeof(TransfRec) == 14 * 8);
extern TransfRec TransfCoord;     // sheet to real
extern TransfRec TransfInvert;    // real to sheet
extern TransfRec TransfAttacco;   // merged file's sheet to the open sheet, through sheet control points
extern TransfRec TransfAgg;       // the same, through both drawings' real coordinates

extern double XA1, YA1, XA2, YA2;     // copies of control points 1 and 2, sheet units
extern double xAttacco5, yAttacco5;   // control point 5, sheet units
extern std::uint8_t OKAttacco5;       // it has been given

struct Coppia {
    double x = 0, y = 0;
};

// Record of the vanishing-point solver, in file order (Coppia is X then Y).
struct Att4Pt {
    std::array<Coppia, 4> src{};   // P1 lower left, P2 upper left, P3 upper right, P4 lower right
    Coppia srcC;
    std::array<Coppia, 4> dst{};
    Coppia dstC;
    std::uint8_t okSrc = 0, okDst = 0;
    double o1 = 0, len1 = 0, mid1 = 0, o2 = 0, len2 = 0, mid2 = 0;
    double o1d = 0, len1d = 0, mid1d = 0, o2d = 0, len2d = 0, mid2d = 0;
    double ang1 = 0, ang2 = 0, ang1d = 0, ang2d = 0;
    Coppia fuga1, fuga2, fuga1d, fuga2d;
    std::uint8_t par1d = 0, par2d = 0, par1 = 0, par2 = 0;
    double k1 = 0, k2 = 0, r1 = 0, r2 = 0, t1 = 0, t2 = 0, d1 = 0, d2 = 0;
};
extern Att4Pt att4Pt;   // the free solver's record

}   // namespace tessaro
