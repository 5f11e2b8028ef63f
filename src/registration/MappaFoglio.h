// The mapping by many points as one from the sheet to the sheet: a point goes to its real coordinates and from there, by a
// similarity, to where a true sheet would show it. What is drawn, copied and rectified by many points goes through it.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "registration/GrigliaMappa.h"
#include "registration/MoltiPunti.h"
#include "registration/ReteMappa.h"

namespace tessaro {

class MappaFoglio {
public:
    // To the sheet of the similarity in force when `conReali`, else to that of the similarity that fits the points best.
    MappaFoglio(MappaPunti mappa, std::span<const PuntoNoto> punti, bool conReali);
    explicit operator bool() const { return buona; }
    [[nodiscard]] Coppia operator()(const Coppia& foglio) const;
    [[nodiscard]] Coppia esatta(const Coppia& foglio) const;
    [[nodiscard]] bool Inversa(const Coppia& dove, Coppia& foglio) const;   // by the mapping itself, never by the grid
    // From here on points of the box go by a grid so fine that its error is at most `tolleranza` (sheet units). False, and
    // the mapping stays exact, when a grid of a million nodes does not do, or `avanti`, asked now and then, says so.
    bool Interpola(double bx1, double by1, double bx2, double by2, double tolleranza,
                   const std::function<bool()>& avanti = {});
    [[nodiscard]] const GrigliaMappa* griglia() const { return quadri.get(); }
    // The same for tens of millions of points, which go by a net that is straight between its nodes: a part of the
    // tolerance is the grid's, the rest the net's. False when one of them does not do; points then go by what there is.
    bool PerPixel(double bx1, double by1, double bx2, double by2, double tolleranza,
                  const std::function<bool()>& avanti = {});
    [[nodiscard]] const ReteMappa* rete() const { return maglie.get(); }

private:
    [[nodiscard]] Coppia alFoglio(const Coppia& reale) const;
    MappaPunti mappa, simile;
    bool buona = false, conReali = false;
    std::unique_ptr<GrigliaMappa> quadri;
    std::unique_ptr<ReteMappa> maglie;
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
