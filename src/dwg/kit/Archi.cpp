// Points on curves.
#include "dwg/kit/Archi.h"

#include <algorithm>
#include <cmath>

namespace tessaro {

namespace {
constexpr double pi = 3.14159265358979323846;
}   // namespace

const PuntiPerGiro PuntiPerGiro::fissi{};

int PuntiPerGiro::parti(double raggio, double angolo) const {
    constexpr int massime = 1000;
    constexpr double giroFisso = 64;
    const double a = std::fabs(angolo), r = std::fabs(raggio);
    if (!std::isfinite(a) || !std::isfinite(r)) return 1;
    double passo = 2 * pi / giroFisso;
    if (saetta > 0 && r > 0) passo = saetta >= r ? pi / 2 : 2 * std::acos(1 - saetta / r);
    return static_cast<int>(std::clamp(std::ceil(a / std::max(passo, 1e-6)), 1.0, double{massime}));
}

std::vector<OdDbVertice> ArchiInPunti(const OdDbPolylineBase& p, PuntiPerGiro quanti) {
    std::vector<OdDbVertice> r;
    const std::size_t n = p.vertici.size();
    for (std::size_t i = 0; i < n; ++i) {
        OdDbVertice v = p.vertici[i];
        const double b = v.bulge;
        v.bulge = 0;
        r.push_back(v);
        if (b == 0 || !std::isfinite(b) || (i + 1 == n && !p.closed)) continue;
        const OdGePoint3d a = p.vertici[i].punto, c = p.vertici[(i + 1) % n].punto;
        const double dx = c.x - a.x, dy = c.y - a.y, corda = std::hypot(dx, dy);
        if (!(corda > 0)) continue;
        // The centre lies off the chord's middle, to the left of an arc that turns left by less than a half.
        const double angolo = 4 * std::atan(b), k = (1 - b * b) / (4 * b);
        const double cx = (a.x + c.x) / 2 - dy * k, cy = (a.y + c.y) / 2 + dx * k;
        const double raggio = std::hypot(a.x - cx, a.y - cy), da = std::atan2(a.y - cy, a.x - cx);
        const int parti = quanti.parti(raggio, angolo);
        for (int j = 1; j < parti; ++j) {
            const double t = da + angolo * j / parti;
            OdDbVertice w;
            w.punto = {cx + raggio * std::cos(t), cy + raggio * std::sin(t), a.z + (c.z - a.z) * j / parti};
            w.suddiviso = true;
            r.push_back(w);
        }
    }
    return r;
}

std::vector<OdGePoint3d> EllisseInPunti(const OdDbEllipse& e, PuntiPerGiro quanti) {
    std::vector<OdGePoint3d> r;
    const double maggiore = Lunghezza(e.majorAxis);
    const OdGeVector3d minore = Versore(Vettoriale(e.normal, e.majorAxis)) * (maggiore * e.radiusRatio);
    double ampiezza = std::remainder(e.endParam - e.startParam, 2 * pi);
    if (ampiezza <= 1e-12) ampiezza += 2 * pi;
    const int parti = quanti.parti(maggiore, ampiezza);
    for (int j = 0; j <= parti; ++j) {
        const double t = e.startParam + ampiezza * j / parti;
        r.push_back(e.center + e.majorAxis * std::cos(t));
        r.back() = r.back() + minore * std::sin(t);
    }
    return r;
}

namespace {

// A point of the curve at u, in the knot span k, by de Boor's recurrence over homogeneous coordinates.
OdGePoint3d deBoor(const OdDbSpline& s, std::size_t k, double u) {
    const auto p = static_cast<std::size_t>(s.degree);
    struct Omogeneo {
        double x, y, z, w;
    };
    std::vector<Omogeneo> d(p + 1);
    for (std::size_t j = 0; j <= p; ++j) {
        const std::size_t i = k - p + j;
        const double w = s.weights.empty() ? 1 : s.weights[i];
        const OdGePoint3d& c = s.controlPoints[i];
        d[j] = {c.x * w, c.y * w, c.z * w, w};
    }
    for (std::size_t r = 1; r <= p; ++r)
        for (std::size_t j = p; j >= r; --j) {
            const double sotto = s.knots[j + k - p], sopra = s.knots[j + 1 + k - r];
            const double a = sopra > sotto ? (u - sotto) / (sopra - sotto) : 0;
            const auto media = [a](double x, double y) { return (1 - a) * x + a * y; };
            d[j] = {media(d[j - 1].x, d[j].x), media(d[j - 1].y, d[j].y), media(d[j - 1].z, d[j].z),
                    media(d[j - 1].w, d[j].w)};
        }
    const double w = d[p].w;
    return {d[p].x / w, d[p].y / w, d[p].z / w};
}

// Halves an interval until its middle lies within the sagitta of its chord, and a quarter point too.
template <class F>
void dimezza(const F& punto, double a, const OdGePoint3d& pa, double b, const OdGePoint3d& pb, double saetta,
             int profondita, std::vector<OdGePoint3d>& r) {
    const auto lontano = [&](double t) {
        const double u = a + (b - a) * t;
        const OdGeVector3d v = punto(u) - (pa + (pb - pa) * t);
        return Lunghezza(v) > saetta;
    };
    if (profondita > 0 && (lontano(0.5) || lontano(0.25) || lontano(0.75))) {
        const double m = (a + b) / 2;
        const OdGePoint3d pm = punto(m);
        dimezza(punto, a, pa, m, pm, saetta, profondita - 1, r);
        dimezza(punto, m, pm, b, pb, saetta, profondita - 1, r);
        return;
    }
    r.push_back(pb);
}

// The curve through points whose tangents are those of their neighbours' chord.
std::vector<OdGePoint3d> perPunti(const std::vector<OdGePoint3d>& q, bool chiusa, double saetta) {
    std::vector<OdGePoint3d> r;
    if (q.size() < 2) return r;
    const std::size_t n = q.size(), tratti = chiusa ? n : n - 1;
    r.push_back(q[0]);
    for (std::size_t i = 0; i < tratti; ++i) {
        const auto vicino = [&](std::ptrdiff_t d) {
            const auto j = static_cast<std::ptrdiff_t>(i) + d, m = static_cast<std::ptrdiff_t>(n);
            return q[static_cast<std::size_t>(chiusa ? (j + m) % m : std::clamp<std::ptrdiff_t>(j, 0, m - 1))];
        };
        const OdGePoint3d p0 = vicino(-1), p1 = vicino(0), p2 = vicino(1), p3 = vicino(2);
        const auto punto = [&](double t) {
            const double t2 = t * t, t3 = t2 * t;
            const auto asse = [&](double a, double b, double c, double d) {
                return 0.5 * (2 * b + (c - a) * t + (2 * a - 5 * b + 4 * c - d) * t2 + (3 * b - a - 3 * c + d) * t3);
            };
            return OdGePoint3d{asse(p0.x, p1.x, p2.x, p3.x), asse(p0.y, p1.y, p2.y, p3.y),
                               asse(p0.z, p1.z, p2.z, p3.z)};
        };
        constexpr int profondita = 8;
        dimezza(punto, 0, p1, 1, p2, saetta, profondita, r);
    }
    return r;
}

}   // namespace

std::vector<OdGePoint3d> SplineInPunti(const OdDbSpline& s, PuntiPerGiro quanti) {
    const double saetta = quanti.saetta > 0 ? quanti.saetta : 1e-3;
    const std::size_t n = s.controlPoints.size();
    constexpr std::int16_t gradoMassimo = 25;
    const bool intera = s.degree >= 1 && s.degree <= gradoMassimo && n > static_cast<std::size_t>(s.degree)
                        && s.knots.size() == n + static_cast<std::size_t>(s.degree) + 1
                        && (s.weights.empty() || s.weights.size() == n)
                        && std::is_sorted(s.knots.begin(), s.knots.end())
                        && std::all_of(s.knots.begin(), s.knots.end(), [](double k) { return std::isfinite(k); });
    if (!intera) return perPunti(s.fitPoints, s.closed, saetta);
    std::vector<OdGePoint3d> r;
    for (auto k = static_cast<std::size_t>(s.degree); k < n; ++k) {
        const double a = s.knots[k], b = s.knots[k + 1];
        if (!(b > a)) continue;
        const auto punto = [&](double u) { return deBoor(s, k, u); };
        const OdGePoint3d pa = punto(a);
        if (r.empty()) r.push_back(pa);
        constexpr int profondita = 8;
        dimezza(punto, a, pa, b, punto(b), saetta, profondita, r);
    }
    return r;
}

}   // namespace tessaro
