// From the sheet to the true sheet, exactly or by a grid.
#include "registration/MappaFoglio.h"

#include <cmath>

#include "registration/Coordinate.h"

namespace tessaro {

constinit const MappaFoglio* mappaMolti = nullptr;

MappaFoglio::MappaFoglio(MappaPunti m, std::span<const PuntoNoto> punti, bool reali)
    : mappa(std::move(m)), conReali(reali) {
    buona = static_cast<bool>(mappa);
    if (conReali || !buona) return;
    SoluzionePunti s;
    buona = static_cast<bool>(RisolviPunti(punti, Metodo::helmert, s));
    simile = s.mappa;
}

Coppia MappaFoglio::alFoglio(const Coppia& reale) const {
    Coppia dove{std::nan(""), std::nan("")};
    if (conReali) {
        Tracoord(TransfInvert, reale.x, reale.y, dove.x, dove.y);
    } else {
        (void)simile.Inversa(reale, dove);
    }
    return dove;
}

Coppia MappaFoglio::esatta(const Coppia& foglio) const { return alFoglio(mappa(foglio)); }

Coppia MappaFoglio::operator()(const Coppia& foglio) const {
    if (maglie && maglie->dentro(foglio)) return (*maglie)(foglio);
    return quadri && quadri->dentro(foglio) ? (*quadri)(foglio) : esatta(foglio);
}

bool MappaFoglio::Inversa(const Coppia& dove, Coppia& foglio) const {
    Coppia reale;
    if (conReali) {
        Tracoord(TransfCoord, dove.x, dove.y, reale.x, reale.y);
    } else {
        reale = simile(dove);
    }
    return mappa.Inversa(reale, foglio);
}

bool MappaFoglio::Interpola(double bx1, double by1, double bx2, double by2, double tolleranza,
                            const std::function<bool()>& avanti) {
    quadri.reset();
    maglie.reset();
    if (!buona || !(bx2 > bx1) || !(by2 > by1)) return false;
    auto g = std::make_unique<GrigliaMappa>();
    if (!g->fai(
            mappa, [this](const Coppia& r) { return alFoglio(r); }, bx1, by1, bx2, by2, tolleranza, avanti))
        return false;
    quadri = std::move(g);
    return true;
}

bool MappaFoglio::PerPixel(double bx1, double by1, double bx2, double by2, double tolleranza,
                           const std::function<bool()>& avanti) {
    constexpr double dellaGriglia = 0.3;
    if (!Interpola(bx1, by1, bx2, by2, dellaGriglia * tolleranza, avanti)) return false;
    auto r = std::make_unique<ReteMappa>();
    if (!r->fai([this](const Coppia& p) { return (*this)(p); }, bx1, by1, bx2, by2, (1 - dellaGriglia) * tolleranza,
                avanti))
        return false;
    maglie = std::move(r);
    return true;
}

}   // namespace tessaro
