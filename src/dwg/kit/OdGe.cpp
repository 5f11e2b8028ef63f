// Vectors and matrices of the drawing database.
#include "dwg/kit/OdGe.h"

#include <cmath>

namespace tessaro {

double Lunghezza(const OdGeVector3d& v) { return std::hypot(v.x, v.y, v.z); }

OdGeVector3d Versore(const OdGeVector3d& v) {
    const double l = Lunghezza(v);
    if (!(l > 0) || !std::isfinite(l)) return OdGeVector3d::asseZ();
    return {v.x / l, v.y / l, v.z / l};
}

bool SonoFiniti(const OdGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

OdGeMatrix3d OdGeMatrix3d::translation(const OdGeVector3d& v) {
    OdGeMatrix3d r;
    r.m[0][3] = v.x;
    r.m[1][3] = v.y;
    r.m[2][3] = v.z;
    return r;
}

OdGeMatrix3d OdGeMatrix3d::scaling(double x, double y, double z) {
    OdGeMatrix3d r;
    r.m[0][0] = x;
    r.m[1][1] = y;
    r.m[2][2] = z;
    return r;
}

OdGeMatrix3d OdGeMatrix3d::rotationZ(double radians) {
    OdGeMatrix3d r;
    if (radians == 0) return r;
    const double s = std::sin(radians), c = std::cos(radians);
    r.m[0][0] = r.m[1][1] = c;
    r.m[0][1] = -s;
    r.m[1][0] = s;
    return r;
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGeVector3d& normal) {
    OdGeMatrix3d r;
    const OdGeVector3d z = Versore(normal);
    if (NormaleZ(z)) return r;
    constexpr double vicino = 1.0 / 64;   // so close to the world's z axis, its y axis serves in its stead
    const bool quasiZ = std::fabs(z.x) < vicino && std::fabs(z.y) < vicino;
    const OdGeVector3d x = Versore(quasiZ ? Vettoriale({0, 1, 0}, z) : Vettoriale(OdGeVector3d::asseZ(), z));
    const OdGeVector3d y = Versore(Vettoriale(z, x));
    r.m[0] = {x.x, y.x, z.x, 0};
    r.m[1] = {x.y, y.y, z.y, 0};
    r.m[2] = {x.z, y.z, z.z, 0};
    return r;
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGeVector3d& normal) {
    const OdGeMatrix3d a = planeToWorld(normal);
    OdGeMatrix3d r;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j) r.m[i][j] = a.m[j][i];
    return r;
}

OdGeMatrix3d operator*(const OdGeMatrix3d& a, const OdGeMatrix3d& b) {
    OdGeMatrix3d r;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            r.m[i][j] =
                a.m[i][0] * b.m[0][j] + a.m[i][1] * b.m[1][j] + a.m[i][2] * b.m[2][j] + (j == 3 ? a.m[i][3] : 0);
    return r;
}

OdGeVector3d operator*(const OdGeMatrix3d& a, const OdGeVector3d& v) {
    const auto riga = [&](std::size_t i) { return a.m[i][0] * v.x + a.m[i][1] * v.y + a.m[i][2] * v.z; };
    return {riga(0), riga(1), riga(2)};
}

OdGePoint3d operator*(const OdGeMatrix3d& a, const OdGePoint3d& p) {
    const auto riga = [&](std::size_t i) { return a.m[i][0] * p.x + a.m[i][1] * p.y + a.m[i][2] * p.z + a.m[i][3]; };
    return {riga(0), riga(1), riga(2)};
}

}   // namespace tessaro
