// The net's nodes, its error, and the way along it.
#include "registration/ReteMappa.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "bitmap/PerRighe.h"

namespace tessaro {

Coppia ReteMappa::operator()(const Coppia& p) const {
    const double u = (p.x - x1) * perPasso;
    const auto c = static_cast<std::int32_t>(u);
    double x[2], y[2];
    fila(p.y, c, c + 1, x, y);
    const double f = u - c;
    return {x[0] + f * (x[1] - x[0]), y[0] + f * (y[1] - y[0])};
}

void ReteMappa::fila(double y, std::int32_t da, std::int32_t a, double* x, double* yFila) const {
    const double v = (y - y1) * perPasso;
    const auto r = static_cast<std::int32_t>(v);
    const double f = v - r;
    const Coppia *sopra = nodi.data() + nodo(r, da), *sotto = nodi.data() + nodo(r + 1, da);
    for (std::int32_t k = 0; k <= a - da; ++k) {
        x[k] = sopra[k].x + f * (sotto[k].x - sopra[k].x);
        yFila[k] = sopra[k].y + f * (sotto[k].y - sopra[k].y);
    }
}

bool ReteMappa::fai(const std::function<Coppia(const Coppia&)>& mappa, double bx1, double by1, double bx2, double by2,
                    double tolleranza, const std::function<bool()>& avanti) {
    constexpr double massimo = 4 << 20;   // nodes
    constexpr std::int32_t celleIniziali = 128;
    const double largo = bx2 - bx1, alto = by2 - by1;
    if (!(largo > 0) || !(alto > 0)) return false;
    x1 = bx1;
    y1 = by1;
    passo = std::max(largo, alto) / celleIniziali;
    for (;;) {
        perPasso = 1 / passo;
        // The last places lie before the last node, not on it.
        const double c = std::max(std::floor(largo * perPasso) + 1, 2.0),
                     r = std::max(std::floor(alto * perPasso) + 1, 2.0);
        if (!((c + 1) * (r + 1) <= massimo)) return false;
        colonne = static_cast<std::int32_t>(c);
        righe = static_cast<std::int32_t>(r);
        nodi.resize(static_cast<std::size_t>(c + 1) * static_cast<std::size_t>(r + 1));
        std::atomic<bool> fermo = false;
        perRighe(righe + 1, [&](std::int32_t da, std::int32_t a, std::int32_t filo) {
            for (std::int32_t i = da; i < a; ++i) {
                if (filo == 0 && avanti && !avanti()) fermo = true;   // the first band is the caller's own thread
                if (fermo) return;
                for (std::int32_t k = 0; k <= colonne; ++k) nodi[nodo(i, k)] = mappa({x1 + k * passo, y1 + i * passo});
            }
        });
        if (fermo || !misura()) return false;
        if (errore <= tolleranza) return true;
        // The error falls with the square of the spacing, by a little less next to a plate's points.
        passo *= std::clamp(0.93 * std::sqrt(tolleranza / errore), 0.1, 0.9);
    }
}

namespace {

double lunghezza(const Coppia& a, const Coppia& b, const Coppia& c) {
    return std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
}

}   // namespace

// A function that runs straight between nodes misses by at most an eighth of its second differences along both axes (de Boor,
// A Practical Guide to Splines, 1978, chapter III); a plate's points lie between nodes, hence the margin. False when there is
// a node without a value.
bool ReteMappa::misura() {
    constexpr double margine = 1.3;
    std::vector<double> peggio(static_cast<std::size_t>(righe + 1), 0);
    perRighe(righe + 1, [&](std::int32_t da, std::int32_t a, std::int32_t) {
        for (std::int32_t i = da; i < a; ++i) {
            const std::int32_t r = std::clamp(i, 1, righe - 1);   // the outer rows bend as their neighbours do
            const Coppia *su = nodi.data() + nodo(r - 1, 0), *qui = nodi.data() + nodo(i, 0),
                         *mezzo = nodi.data() + nodo(r, 0), *giu = nodi.data() + nodo(r + 1, 0);
            double& massimo = peggio[static_cast<std::size_t>(i)];
            for (std::int32_t k = 1; k < colonne; ++k) {
                const double e = lunghezza(qui[k - 1], qui[k], qui[k + 1]) + lunghezza(su[k], mezzo[k], giu[k]);
                if (!(e <= massimo)) massimo = e;   // what is no number stays
                if (!std::isfinite(massimo)) break;
            }
        }
    });
    errore = 0;
    for (const double e : peggio) {
        if (!std::isfinite(e)) return false;
        errore = std::max(errore, margine / 8 * e);
    }
    return true;
}

}   // namespace tessaro
