// A mapping of the sheet laid out on a grid, for millions of points. A thin plate is taken apart: what is smooth stands on the
// grid, with cubic convolution between its nodes; the sharp rest of the kernel about each of the plate's points, which no
// grid follows, is added in full by the few of them that are near.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "registration/MoltiPunti.h"

namespace tessaro {

struct GrigliaMappa {
    double x1 = 0, y1 = 0, passoX = 1, passoY = 1;   // of the box, and of its cells: sheet units
    std::int32_t celle = 0;                          // a side
    double errore = 0;   // bound of the distance to the mapping itself: twice the largest found at the cells' middles
    [[nodiscard]] bool dentro(const Coppia& p) const;         // in the box, its border too
    [[nodiscard]] Coppia operator()(const Coppia& p) const;   // of a point inside

    // Maps sheet points by `mappa` and what it gives by `poi`, which is linear. So fine that the error is at most
    // `tolleranza`, in the unit of what `poi` gives; false when a million nodes do not do.
    // `avanti`: asked now and then; the first false ends the work with false.
    bool fai(const MappaPunti& mappa, const std::function<Coppia(const Coppia&)>& poi, double bx1, double by1,
             double bx2, double by2, double tolleranza, const std::function<bool()>& avanti = {});

private:
    [[nodiscard]] std::int32_t lato() const { return celle + 3; }   // nodes: one ring round the box
    bool liscio(const MappaPunti& mappa, const std::function<Coppia(const Coppia&)>& poi,
                const std::function<bool()>& avanti);
    void vicini(const MappaPunti& mappa, const std::function<Coppia(const Coppia&)>& poi);

    double raggio = 0, unita = 1;   // where the stand-in of the kernel begins, sheet units; the kernel's own unit
    std::vector<Coppia> nodi;
    std::vector<std::uint32_t> inizio;     // of each cell's run in `punte`, and the end
    std::vector<MappaPunti::Nodo> punte;   // the plate's points that a cell feels, weights behind `poi`
};

}   // namespace tessaro
