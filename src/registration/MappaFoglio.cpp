// From the sheet to the true sheet, exactly or by a grid.
#include "registration/MappaFoglio.h"

#include <algorithm>
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

Coppia MappaFoglio::esatta(const Coppia& foglio) const {
    const Coppia reale = mappa(foglio);
    Coppia dove{std::nan(""), std::nan("")};
    if (conReali) {
        Tracoord(TransfInvert, reale.x, reale.y, dove.x, dove.y);
    } else {
        (void)simile.Inversa(reale, dove);
    }
    return dove;
}

Coppia MappaFoglio::operator()(const Coppia& foglio) const {
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

bool GrigliaMappa::dentro(const Coppia& p) const {
    const double u = (p.x - x1) / passoX, v = (p.y - y1) / passoY;
    return u >= 0 && v >= 0 && u <= celle && v <= celle;
}

namespace {

// Keys's cubic convolution (IEEE ASSP 29, 1981): exact for parabolas.
std::array<double, 4> pesiCubici(double f) {
    return {((-0.5 * f + 1) * f - 0.5) * f, (1.5 * f - 2.5) * f * f + 1, ((-1.5 * f + 2) * f + 0.5) * f,
            (0.5 * f - 0.5) * f * f};
}

}   // namespace

Coppia GrigliaMappa::operator()(const Coppia& p) const {
    const double u = (p.x - x1) / passoX, v = (p.y - y1) / passoY;
    const std::int32_t c = std::min(static_cast<std::int32_t>(u), celle - 1),
                       r = std::min(static_cast<std::int32_t>(v), celle - 1);
    const std::array<double, 4> pu = pesiCubici(u - c), pv = pesiCubici(v - r);
    const Coppia* riga = nodi.data() + std::ptrdiff_t{r} * lato() + c;
    Coppia s;
    for (std::size_t j = 0; j < 4; ++j, riga += lato())
        for (std::size_t i = 0; i < 4; ++i) {
            const double w = pu[i] * pv[j];
            s.x += w * riga[i].x;
            s.y += w * riga[i].y;
        }
    return s;
}

namespace {

// The grid with half the cells, of which every other node is known already.
std::unique_ptr<GrigliaMappa> fitta(const MappaFoglio& m, const GrigliaMappa* rada, double x1, double y1, double largo,
                                    double alto, std::int32_t celle) {
    auto g = std::make_unique<GrigliaMappa>();
    g->x1 = x1;
    g->y1 = y1;
    g->celle = celle;
    g->passoX = largo / celle;
    g->passoY = alto / celle;
    g->nodi.resize(static_cast<std::size_t>(g->lato()) * static_cast<std::size_t>(g->lato()));
    for (std::int32_t r = -1; r <= celle + 1; ++r)
        for (std::int32_t c = -1; c <= celle + 1; ++c) {
            const bool noto = rada != nullptr && r % 2 == 0 && c % 2 == 0;
            g->nodo(c, r) = noto ? rada->nodo(c / 2, r / 2) : m.esatta({x1 + c * g->passoX, y1 + r * g->passoY});
        }
    return g;
}

// By how much the wide grid misses the nodes that are new in the fine one: the middles of its cells and of their sides.
double misura(const GrigliaMappa& rada, const GrigliaMappa& fine) {
    double peggio = 0;
    for (std::int32_t r = 0; r <= fine.celle; ++r)
        for (std::int32_t c = r % 2 == 0 ? 1 : 0; c <= fine.celle; c += r % 2 == 0 ? 2 : 1) {
            const Coppia &esatto = fine.nodo(c, r),
                         stimato = rada({fine.x1 + c * fine.passoX, fine.y1 + r * fine.passoY});
            const double scarto = std::hypot(esatto.x - stimato.x, esatto.y - stimato.y);
            if (!std::isfinite(scarto)) return scarto;
            peggio = std::max(peggio, scarto);
        }
    return peggio;
}

}   // namespace

bool MappaFoglio::Interpola(double bx1, double by1, double bx2, double by2, double tolleranza) {
    constexpr std::int32_t massimo = 4096;   // cells a side
    quadri.reset();
    if (!buona || !(bx2 > bx1) || !(by2 > by1)) return false;
    std::unique_ptr<GrigliaMappa> rada = fitta(*this, nullptr, bx1, by1, bx2 - bx1, by2 - by1, 8);
    for (std::int32_t celle = 16; celle <= massimo; celle *= 2) {
        auto fine = fitta(*this, rada.get(), bx1, by1, bx2 - bx1, by2 - by1, celle);
        // Half the cells quarter the error at least, beside a point of the plate too, where its second derivatives have no
        // bound: half of what the wide grid missed is more than the fine one will.
        fine->errore = misura(*rada, *fine) / 2;
        rada = std::move(fine);
        if (!(rada->errore <= tolleranza)) continue;
        quadri = std::move(rada);
        return true;
    }
    return false;
}

}   // namespace tessaro
