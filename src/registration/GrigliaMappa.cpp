// The grid, its near points and its error.
#include "registration/GrigliaMappa.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>

#include "bitmap/PerRighe.h"
#include "registration/Lastra.h"

namespace tessaro {

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
    const auto cella = static_cast<std::size_t>(r) * static_cast<std::size_t>(celle) + static_cast<std::size_t>(c);
    const double r2Massimo = raggio * raggio, perUnita = 1 / (unita * unita);
    for (std::uint32_t k = inizio[cella]; k < inizio[cella + 1]; ++k) {
        const MappaPunti::Nodo& n = punte[k];
        const double dx = p.x - n.foglio.x, dy = p.y - n.foglio.y, r2 = dx * dx + dy * dy;
        if (!(r2 < r2Massimo)) continue;
        const double punta = PuntaLastra(r2 * perUnita, r2Massimo * perUnita);
        s.x += n.peso.x * punta;
        s.y += n.peso.y * punta;
    }
    return s;
}

bool GrigliaMappa::liscio(const MappaPunti& mappa, const std::function<Coppia(const Coppia&)>& poi,
                          const std::function<bool()>& avanti) {
    nodi.resize(static_cast<std::size_t>(lato()) * static_cast<std::size_t>(lato()));
    std::atomic<bool> fermo = false;
    perRighe(lato(), [&](std::int32_t da, std::int32_t a, std::int32_t filo) {
        auto k = static_cast<std::size_t>(da) * static_cast<std::size_t>(lato());
        for (std::int32_t r = da - 1; r < a - 1; ++r) {
            if (filo == 0 && avanti && !avanti()) fermo = true;   // the first band is the caller's own thread
            if (fermo) return;
            for (std::int32_t c = -1; c <= celle + 1; ++c)
                nodi[k++] = poi(mappa.Liscia({x1 + c * passoX, y1 + r * passoY}, raggio));
        }
    });
    return !fermo;
}

void GrigliaMappa::vicini(const MappaPunti& mappa, const std::function<Coppia(const Coppia&)>& poi) {
    // Weights are small differences: they go through `poi` from a place of the box, so that its shift falls out.
    const Coppia base = mappa({x1, y1}), zero = poi(base);
    std::vector<MappaPunti::Nodo> tutte = mappa.Nodi();
    for (MappaPunti::Nodo& n : tutte) {
        const double lungo = std::hypot(n.peso.x, n.peso.y), k = mappa.unita() / lungo;
        const Coppia q = poi({base.x + k * n.peso.x, base.y + k * n.peso.y});
        n.peso = {(q.x - zero.x) / k, (q.y - zero.y) / k};
    }
    inizio.assign(static_cast<std::size_t>(celle) * static_cast<std::size_t>(celle) + 1, 0);
    punte.clear();
    std::vector<std::vector<std::uint32_t>> sentite(inizio.size() - 1);
    for (std::uint32_t i = 0; i < tutte.size(); ++i) {
        const auto cella = [this](double v, double da, double passo) {
            return static_cast<std::int32_t>(std::clamp(std::floor((v - da) / passo), -1.0, double(celle)));
        };
        const Coppia& f = tutte[i].foglio;
        const std::int32_t c1 = std::max(cella(f.x - raggio, x1, passoX), 0),
                           c2 = std::min(cella(f.x + raggio, x1, passoX), celle - 1),
                           r1 = std::max(cella(f.y - raggio, y1, passoY), 0),
                           r2 = std::min(cella(f.y + raggio, y1, passoY), celle - 1);
        for (std::int32_t r = r1; r <= r2; ++r)
            for (std::int32_t c = c1; c <= c2; ++c)
                sentite[static_cast<std::size_t>(r) * static_cast<std::size_t>(celle) + static_cast<std::size_t>(c)]
                    .push_back(i);
    }
    for (std::size_t k = 0; k < sentite.size(); ++k) {
        for (const std::uint32_t i : sentite[k]) punte.push_back(tutte[i]);
        inizio[k + 1] = static_cast<std::uint32_t>(punte.size());
    }
}

bool GrigliaMappa::fai(const MappaPunti& mappa, const std::function<Coppia(const Coppia&)>& poi, double bx1, double by1,
                       double bx2, double by2, double tolleranza, const std::function<bool()>& avanti) {
    constexpr std::int32_t massimo = 1024;   // cells a side
    constexpr double passi = 7;   // cells that the stand-in of the kernel reaches over: its error falls by their square
    constexpr double pochi = 40;   // of the plate's points near a place, on the average
    x1 = bx1;
    y1 = by1;
    unita = mappa.unita();
    const double quante = static_cast<double>(mappa.Nodi().size()) * 3.14159 * passi * passi;
    celle = 16;
    while (celle < massimo && quante / (double(celle) * celle) > pochi) celle *= 2;
    for (; celle <= massimo; celle *= 2) {
        passoX = (bx2 - bx1) / celle;
        passoY = (by2 - by1) / celle;
        raggio = passi * std::max(passoX, passoY);
        if (!liscio(mappa, poi, avanti)) return false;
        vicini(mappa, poi);
        std::vector<double> peggio(static_cast<std::size_t>(celle), 0);
        std::atomic<bool> buona = true, basta = false;
        perRighe(celle, [&](std::int32_t da, std::int32_t a, std::int32_t filo) {
            for (std::int32_t r = da; r < a && !basta; ++r) {
                if (filo == 0 && avanti && !avanti()) buona = false;
                if (!buona) return;
                double& qui = peggio[static_cast<std::size_t>(r)];
                for (std::int32_t c = 0; c < celle; ++c) {
                    const Coppia p{x1 + (c + 0.5) * passoX, y1 + (r + 0.5) * passoY};
                    const Coppia esatto = poi(mappa(p)), stimato = (*this)(p);
                    const double scarto = std::hypot(esatto.x - stimato.x, esatto.y - stimato.y);
                    if (!std::isfinite(scarto)) buona = false;
                    qui = std::max(qui, scarto);
                }
                if (!(qui * 2 <= tolleranza)) basta = true;
            }
        });
        if (!buona) return false;
        errore = 2 * *std::max_element(peggio.begin(), peggio.end());
        if (errore <= tolleranza) return true;
    }
    return false;
}

}   // namespace tessaro
