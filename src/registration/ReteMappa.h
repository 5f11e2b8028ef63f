// A mapping of the sheet laid out on a net so fine that it runs straight between the nodes: what a raster's pixels go by,
// tens of millions of them, a row at a time.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "model/Registrazione.h"

namespace tessaro {

struct ReteMappa {
    double x1 = 0, y1 = 0, passo = 1, perPasso = 1;   // first node, spacing in sheet units, and 1 / passo
    std::int32_t colonne = 0, righe = 0;              // of cells
    double errore = 0;   // bound of the distance to the mapping, by the second differences of the nodes

    // So fine that the error is at most `tolleranza`, in the unit of what `mappa` gives; asks it from several threads. False
    // when four million nodes do not do, it has no value somewhere in the box, or `avanti`, asked now and then on the
    // caller's thread, says so.
    bool fai(const std::function<Coppia(const Coppia&)>& mappa, double bx1, double by1, double bx2, double by2,
             double tolleranza, const std::function<bool()>& avanti = {});

    // On the net, its last row and column of cells too.
    [[nodiscard]] bool dentro(const Coppia& p) const {
        const double u = (p.x - x1) * perPasso, v = (p.y - y1) * perPasso;
        return u >= 0 && v >= 0 && u < colonne && v < righe;
    }
    [[nodiscard]] Coppia operator()(const Coppia& p) const;   // of a point inside

    // The nodes of a row of places of one y, inside: what operator() works out first. By columns of nodes, from `da` to and
    // with `a`.
    void fila(double y, std::int32_t da, std::int32_t a, double* x, double* yFila) const;

private:
    bool misura();
    [[nodiscard]] std::size_t nodo(std::int32_t r, std::int32_t c) const {
        return static_cast<std::size_t>(r) * static_cast<std::size_t>(colonne + 1) + static_cast<std::size_t>(c);
    }
    std::vector<Coppia> nodi;
};

}   // namespace tessaro
