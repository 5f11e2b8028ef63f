// The homography of four pairs of points, as a linear system of eight equations.
#include "registration/gauss.h"
#include "registration/Solutori.h"

namespace tessaro {

bool RisolviOmografia(const std::array<Coppia, 4>& src, const std::array<Coppia, 4>& dst, Coefficienti& coef) {
    constexpr int incognite = 8;
    double a[incognite + 1][colonneGauss] = {}, b[incognite + 1] = {};
    for (std::size_t i = 0; i < src.size(); ++i) {
        const double x = src[i].x, y = src[i].y, X = dst[i].x, Y = dst[i].y;
        const double rigaX[incognite] = {x, y, 1, 0, 0, 0, -x * X, -y * X};
        const double rigaY[incognite] = {0, 0, 0, x, y, 1, -x * Y, -y * Y};
        for (std::size_t j = 0; j < incognite; ++j) {
            a[2 * i][j] = rigaX[j];
            a[2 * i + 1][j] = rigaY[j];
        }
        b[2 * i] = X;
        b[2 * i + 1] = Y;
    }
    Coefficienti soluzione{};
    if (gauss(a, b, soluzione.data(), incognite) != 0) return false;
    coef = soluzione;
    stampa(a, incognite);
    stampa_sol(coef.data(), incognite);
    return true;
}

void TrasformaOmografia(const Coefficienti& coef, double& x, double& y) {
    const auto& [a, b, c, d, e, f, g, h, riserva] = coef;
    const double D = 1 + (g * x + h * y);
    const double X = (a * x + b * y + c) / D;
    const double Y = (d * x + e * y + f) / D;
    x = X;
    y = Y;
}

}   // namespace tessaro
