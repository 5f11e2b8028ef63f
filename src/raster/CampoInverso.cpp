// The way back: matrices inverted, and the construction by vanishing points and the net of many
// points solved by search.
#include <cmath>

#include "raster/Morbida.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

namespace {

using Matrice = std::array<double, 9>;

Matrice prodotto(const Matrice& a, const Matrice& b) {
    Matrice c{};
    for (std::size_t r = 0; r < 3; ++r)
        for (std::size_t k = 0; k < 3; ++k)
            for (std::size_t i = 0; i < 3; ++i) c[3 * r + k] += a[3 * r + i] * b[3 * i + k];
    return c;
}

bool inversa(const Matrice& m, Matrice& i) {
    const Matrice a{m[4] * m[8] - m[5] * m[7], m[2] * m[7] - m[1] * m[8], m[1] * m[5] - m[2] * m[4],
                    m[5] * m[6] - m[3] * m[8], m[0] * m[8] - m[2] * m[6], m[2] * m[3] - m[0] * m[5],
                    m[3] * m[7] - m[4] * m[6], m[1] * m[6] - m[0] * m[7], m[0] * m[4] - m[1] * m[3]};
    const double det = m[0] * a[0] + m[1] * a[3] + m[2] * a[6];
    if (!(std::fabs(det) > 0) || !std::isfinite(det)) return false;
    for (std::size_t k = 0; k < 9; ++k) i[k] = a[k] / det;
    return true;
}

Matrice diretta(const Mappatura& m) {
    if (m.specie == SpecieMappa::omografia)
        return {m.coef[0], m.coef[1], m.coef[2], m.coef[3], m.coef[4], m.coef[5], m.coef[6], m.coef[7], 1};
    const TransfRec& t = m.simile;
    const double k = t.ingr;
    return {t.rot11 * k, t.rot12 * k, t.deltaX + t.x1 - k * (t.rot11 * t.x1 + t.rot12 * t.y1),
            t.rot21 * k, t.rot22 * k, t.deltaY + t.y1 - k * (t.rot21 * t.x1 + t.rot22 * t.y1),
            0,           0,           1};
}

// A sheet point whose image is (x, y), by Newton's steps from where (sx, sy) stands.
bool cercaSorgente(double x, double y, double& sx, double& sy) {
    constexpr int massimo = 30;
    constexpr double lato = 0.5, vicino = 1e-4;   // sheet units
    const auto mappa = [](double px, double py) {
        attaccoAttivo.Traf4Pt(px, py);
        return Coppia{px, py};
    };
    for (int passo = 0; passo < massimo; ++passo) {
        const Coppia q = mappa(sx, sy), qx = mappa(sx + lato, sy), qy = mappa(sx, sy + lato);
        const double ex = x - q.x, ey = y - q.y;
        if (std::fabs(ex) < vicino && std::fabs(ey) < vicino) return true;
        const double a = (qx.x - q.x) / lato, b = (qy.x - q.x) / lato, c = (qx.y - q.y) / lato, d = (qy.y - q.y) / lato;
        const double det = a * d - b * c;
        if (!(std::fabs(det) > 1e-12)) return false;
        sx += (ex * d - ey * b) / det;
        sy += (a * ey - c * ex) / det;
        if (!std::isfinite(sx) || !std::isfinite(sy)) return false;
    }
    return false;
}

}   // namespace

bool CampoDellaMappa(const Mappatura& m, const Piano& p, double pixelX, double pixelY, CampoInverso& campo) {
    const Matrice alFoglio{1 / p.stepD, 0, p.x1Pict2, 0, 1 / p.stepD, p.y1Pict2, 0, 0, 1};
    const Matrice aiPixel{pixelX, 0, -p.x1PictBase * pixelX, 0, pixelY, -p.y1PictBase * pixelY, 0, 0, 1};
    if (m.specie == SpecieMappa::similitudine || m.specie == SpecieMappa::omografia) {
        Matrice indietro;
        if (!inversa(diretta(m), indietro)) return false;
        campo.m = prodotto(aiPixel, prodotto(indietro, alFoglio));
        return true;
    }
    campo.cerca = [p, pixelX, pixelY](double c, double r, double& u, double& v) {
        double sx = p.x1PictBase + u / pixelX, sy = p.y1PictBase + v / pixelY;
        if (!cercaSorgente(p.x1Pict2 + c / p.stepD, p.y1Pict2 + r / p.stepD, sx, sy)) return false;
        u = (sx - p.x1PictBase) * pixelX;
        v = (sy - p.y1PictBase) * pixelY;
        return true;
    };
    return true;
}

}   // namespace tessaro
