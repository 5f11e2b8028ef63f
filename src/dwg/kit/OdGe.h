// Points, vectors and affine matrices of the drawing database. Real coordinates, Y up, right-handed.
#pragma once

#include <array>

namespace tessaro {

struct OdGeVector3d {
    double x = 0, y = 0, z = 0;
    static constexpr OdGeVector3d asseZ() { return {0, 0, 1}; }
};
struct OdGePoint3d {
    double x = 0, y = 0, z = 0;
};

constexpr OdGePoint3d operator+(const OdGePoint3d& p, const OdGeVector3d& v) {
    return {p.x + v.x, p.y + v.y, p.z + v.z};
}
constexpr OdGeVector3d operator-(const OdGePoint3d& a, const OdGePoint3d& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr OdGeVector3d operator+(const OdGeVector3d& a, const OdGeVector3d& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr OdGeVector3d operator*(const OdGeVector3d& v, double k) { return {v.x * k, v.y * k, v.z * k}; }
constexpr double Scalare(const OdGeVector3d& a, const OdGeVector3d& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
// Right-handed.
constexpr OdGeVector3d Vettoriale(const OdGeVector3d& a, const OdGeVector3d& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
double Lunghezza(const OdGeVector3d& v);   // overflows above 1e154
// Of length 1; the z axis for a vector of no length, or one that is not finite.
OdGeVector3d Versore(const OdGeVector3d& v);
bool SonoFiniti(const OdGePoint3d& p);

// p' = r * p + t; the rows of r are m[i][0..2], t is m[i][3].
struct OdGeMatrix3d {
    std::array<std::array<double, 4>, 3> m{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};

    // Each from the identity; angles anticlockwise seen from +z.
    static OdGeMatrix3d translation(const OdGeVector3d& v);
    static OdGeMatrix3d scaling(double x, double y, double z);
    static OdGeMatrix3d rotationZ(double radians);
    // From the object coordinate system of a normal to the world's: the arbitrary axis algorithm of the DXF reference.
    static OdGeMatrix3d planeToWorld(const OdGeVector3d& normal);
    static OdGeMatrix3d worldToPlane(const OdGeVector3d& normal);   // its inverse
};
OdGeMatrix3d operator*(const OdGeMatrix3d& a, const OdGeMatrix3d& b);   // first b, then a
OdGePoint3d operator*(const OdGeMatrix3d& a, const OdGePoint3d& p);
OdGeVector3d operator*(const OdGeMatrix3d& a, const OdGeVector3d& v);   // without the shift

// The normal is the z axis: what has it lies in plan, as it stands.
inline bool NormaleZ(const OdGeVector3d& n) { return n.x == 0 && n.y == 0 && n.z > 0; }

}   // namespace tessaro
