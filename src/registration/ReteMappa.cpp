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
        const double c = std::floor(largo * perPasso) + 1, r = std::floor(alto * perPasso) + 1;
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
        if (fermo || !misura(mappa, avanti)) return false;
        if (errore <= tolleranza) return true;
        // The error falls with the square of the spacing, by a little less next to a plate's points.
        passo *= std::clamp(0.93 * std::sqrt(tolleranza / errore), 0.1, 0.9);
    }
}

// The largest distance at the middles of the cells. False when there is a place without a value, or it was given up.
bool ReteMappa::misura(const std::function<Coppia(const Coppia&)>& mappa, const std::function<bool()>& avanti) {
    std::vector<double> peggio(static_cast<std::size_t>(righe), 0);
    std::atomic<bool> valori = true;
    perRighe(righe, [&](std::int32_t da, std::int32_t a, std::int32_t filo) {
        for (std::int32_t i = da; i < a && valori; ++i) {
            if (filo == 0 && avanti && !avanti()) valori = false;
            for (std::int32_t k = 0; k < colonne; ++k) {
                const Coppia p{x1 + (k + 0.5) * passo, y1 + (i + 0.5) * passo}, q = mappa(p), s = (*this)(p);
                const double scarto = std::hypot(q.x - s.x, q.y - s.y);
                if (!std::isfinite(scarto)) valori = false;
                peggio[static_cast<std::size_t>(i)] = std::max(peggio[static_cast<std::size_t>(i)], scarto);
            }
        }
    });
    errore = 2 * *std::max_element(peggio.begin(), peggio.end());
    return valori;
}

}   // namespace tessaro
