// Point in polygon, singly and for whole rows.
#include "raster/Poligono.h"

#include <algorithm>
#include <cmath>

#include "model/TabellaStato.h"

namespace tessaro {

constinit std::array<double, maxTaglio> Xtaglio{}, Ytaglio{};
constinit std::int32_t ultimoTaglio = 0;

namespace {

constexpr double vicinanza = 0.0001;

// Where the ray of height y crosses the side from vertex i to j. Horizontal sides give no number.
double incrocio(double y, std::size_t i, std::size_t j) {
    const double xc = (y - Ytaglio[i]) * (Xtaglio[j] - Xtaglio[i]) / (Ytaglio[j] - Ytaglio[i]) + Xtaglio[i];
    return static_cast<double>(static_cast<float>(xc));
}

bool saltato(double y, std::size_t i, std::size_t j) {
    return (y > Ytaglio[i] && y > Ytaglio[j]) || (y < Ytaglio[i] && y < Ytaglio[j]);
}

bool suVertice(double x, double y, std::size_t i) {
    return std::fabs(x - Xtaglio[i]) < vicinanza && std::fabs(y - Ytaglio[i]) < vicinanza;
}

bool contato(double x, double xc, std::size_t i, std::size_t j) {
    return !(x > Xtaglio[i] && x > Xtaglio[j]) && xc > x;
}

}   // namespace

bool InternoPol(double const& x, double const& y) {
    const auto n = static_cast<std::size_t>(ultimoTaglio);
    for (std::size_t i = 0; i <= n; ++i)
        if (suVertice(x, y, i)) return true;
    bool dentro = false;
    for (std::size_t i = 0; i <= n; ++i) {
        const std::size_t j = i == n ? 0 : i + 1;
        if (!saltato(y, i, j) && contato(x, incrocio(y, i, j), i, j)) dentro = !dentro;
    }
    return dentro;
}

namespace {

// The first h of [da, a] for which `vale` no longer holds; it holds up to there and nowhere behind. `x` is about where.
template <class Vale>
std::int32_t fineDi(const FilaPunti& f, std::int32_t da, std::int32_t a, double x, Vale vale) {
    const double stima = (x - f.x0) / f.passo;
    std::int32_t h = !(stima > da) ? da : stima > a ? a : static_cast<std::int32_t>(stima);
    const auto in = [&](std::int32_t k) { return f.x0 + k * f.passo; };
    for (int passi = 0; passi < 4; ++passi) {
        if (h < a && vale(in(h))) {
            ++h;
        } else if (h > da && !vale(in(h - 1))) {
            --h;
        } else {
            return h;
        }
    }
    std::int32_t basso = da, alto = a;   // the guess was poor
    while (basso < alto) {
        const std::int32_t m = basso + (alto - basso) / 2;
        if (vale(in(m)))
            basso = m + 1;
        else
            alto = m;
    }
    return basso;
}

// The point's column is inside near vertex i, if the row passes by it.
bool intornoA(const FilaPunti& f, std::int32_t da, std::int32_t a, std::size_t i, TrattoFila& t) {
    if (!(std::fabs(f.y - Ytaglio[i]) < vicinanza)) return false;
    const double vx = Xtaglio[i];
    t.da = fineDi(f, da, a, vx - vicinanza, [vx](double x) { return x < vx && !(std::fabs(x - vx) < vicinanza); });
    t.a = fineDi(f, da, a, vx + vicinanza, [vx](double x) { return x < vx || std::fabs(x - vx) < vicinanza; });
    return t.da < t.a;
}

void unisci(std::vector<TrattoFila>& tratti) {
    std::sort(tratti.begin(), tratti.end(), [](const TrattoFila& p, const TrattoFila& q) { return p.da < q.da; });
    std::size_t k = 0;
    for (const TrattoFila& t : tratti) {
        if (k > 0 && t.da <= tratti[k - 1].a)
            tratti[k - 1].a = std::max(tratti[k - 1].a, t.a);
        else
            tratti[k++] = t;
    }
    tratti.resize(k);
}

}   // namespace

void TrattiInterni(const FilaPunti& f, std::int32_t da, std::int32_t a, std::vector<TrattoFila>& tratti) {
    // A side is crossed by the rays of all points up to some h and of none behind it: the parity changes at these.
    thread_local std::vector<std::int32_t> cambi;
    cambi.clear();
    tratti.clear();
    const auto n = static_cast<std::size_t>(ultimoTaglio);
    TrattoFila t{};
    for (std::size_t i = 0; i <= n; ++i) {
        const std::size_t j = i == n ? 0 : i + 1;
        if (intornoA(f, da, a, i, t)) tratti.push_back(t);
        if (saltato(f.y, i, j)) continue;
        const double xc = incrocio(f.y, i, j);
        if (!(xc == xc)) continue;
        const double limite = std::min(xc, std::max(Xtaglio[i], Xtaglio[j]));
        const std::int32_t h = fineDi(f, da, a, limite, [&](double x) { return contato(x, xc, i, j); });
        if (h > da) cambi.push_back(h);
    }
    const bool soloVertici = !tratti.empty();
    std::sort(cambi.rbegin(), cambi.rend());
    for (std::size_t k = 0; k < cambi.size(); k += 2)   // from the right: odd counts are inside
        tratti.push_back({k + 1 < cambi.size() ? cambi[k + 1] : da, cambi[k]});
    if (soloVertici || !tratti.empty()) unisci(tratti);
    std::erase_if(tratti, [](const TrattoFila& q) { return q.da >= q.a; });
}

namespace {

void azzera() {
    Xtaglio.fill(0);
    Ytaglio.fill(0);
    ultimoTaglio = 0;
}
const VoceStato righe[] = {{"ultimoTaglio", azzera, nullptr}};
const TabellaStato tabella(righe);

}   // namespace

}   // namespace tessaro
