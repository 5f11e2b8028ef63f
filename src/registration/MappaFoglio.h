// The mapping by many points as one from the sheet to the sheet: a point goes to its real coordinates and from there, by a
// similarity, to where a true sheet would show it. What is drawn, copied and rectified by many points goes through it.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "registration/MoltiPunti.h"

namespace tessaro {

// The mapping laid out on a grid of square cells in number, with cubic convolution between its nodes and a ring of nodes
// round it: for millions of points of a thin plate.
struct GrigliaMappa {
    double x1 = 0, y1 = 0, passoX = 1, passoY = 1;   // sheet units
    std::int32_t celle = 0;                          // a side
    std::vector<Coppia> nodi;
    double errore = 0;   // bound of the distance to the mapping itself, by measure, sheet units
    [[nodiscard]] std::int32_t lato() const { return celle + 3; }   // of nodes
    [[nodiscard]] Coppia& nodo(std::int32_t c, std::int32_t r) {    // from -1 to celle + 1
        return nodi[static_cast<std::size_t>((r + 1) * lato() + c + 1)];
    }
    [[nodiscard]] const Coppia& nodo(std::int32_t c, std::int32_t r) const {
        return nodi[static_cast<std::size_t>((r + 1) * lato() + c + 1)];
    }
    [[nodiscard]] bool dentro(const Coppia& p) const;
    [[nodiscard]] Coppia operator()(const Coppia& p) const;   // of a point inside
};

class MappaFoglio {
public:
    // To the sheet of the similarity in force when `conReali`, else to that of the similarity that fits the points best.
    MappaFoglio(MappaPunti mappa, std::span<const PuntoNoto> punti, bool conReali);
    explicit operator bool() const { return buona; }
    [[nodiscard]] Coppia operator()(const Coppia& foglio) const;
    [[nodiscard]] Coppia esatta(const Coppia& foglio) const;
    [[nodiscard]] bool Inversa(const Coppia& dove, Coppia& foglio) const;   // by the mapping itself, never by the grid
    // From here on points of the box go by a grid so fine that its error is at most `tolleranza` (sheet units). False, and
    // the mapping stays exact, when a grid of 16 million nodes does not do.
    bool Interpola(double bx1, double by1, double bx2, double by2, double tolleranza);
    [[nodiscard]] const GrigliaMappa* griglia() const { return quadri.get(); }

private:
    MappaPunti mappa, simile;
    bool buona = false, conReali = false;
    std::unique_ptr<GrigliaMappa> quadri;
};

// While it is not null, Traf4Pt of the live transformation goes through it: its preview is shown, or a command that copies or
// rectifies by many points is at work. Set by those alone, who own it.
extern const MappaFoglio* mappaMolti;

// Another mapping, or none, for as long as one lives.
class ConMappa {
    const MappaFoglio* prima = mappaMolti;

public:
    explicit ConMappa(const MappaFoglio* m) { mappaMolti = m; }
    ~ConMappa() { mappaMolti = prima; }
    ConMappa(const ConMappa&) = delete;
    ConMappa& operator=(const ConMappa&) = delete;
};

}   // namespace tessaro
