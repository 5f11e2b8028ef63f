// Ends that are the same are trimmed. If what is left has kept its places, the changed places are the answer. Else the
// records that occur once on both sides are matched, and the longest chain of matches that ascends on both sides stays:
// all others were taken out on one side or put in on the other.
#include "model/Differenza.h"

#include <algorithm>
#include <unordered_map>

#include "model/Impronta.h"

namespace tessaro {

namespace {

using Record = std::span<const elemento>;

struct Coppia {
    std::int32_t prima, dopo;
};

// Adds a stretch; one that touches the last on both sides becomes part of it.
void aggiungi(std::vector<TrattoDiverso>& tratti, const TrattoDiverso& t) {
    if (t.quantiPrima == 0 && t.quantiDopo == 0) return;
    if (!tratti.empty()) {
        TrattoDiverso& u = tratti.back();
        if (u.prima + u.quantiPrima == t.prima && u.dopo + u.quantiDopo == t.dopo) {
            u.quantiPrima += t.quantiPrima;
            u.quantiDopo += t.quantiDopo;
            return;
        }
    }
    tratti.push_back(t);
}

// The changed places of two runs of one length from `da` to before `a`. False when more than half have changed: then
// things have moved.
bool alLoroPosto(Record prima, Record dopo, std::int32_t da, std::int32_t a, std::vector<TrattoDiverso>& tratti) {
    std::int32_t diversi = 0;
    for (std::int32_t i = da; i < a; ++i) {
        const auto n = static_cast<std::size_t>(i);
        if (StessoRecord(prima[n], dopo[n])) continue;
        ++diversi;
        aggiungi(tratti, {i, 1, i, 1});
    }
    constexpr std::int32_t pochi = 4;
    if (diversi <= pochi || diversi <= (a - da) / 2) return true;
    tratti.clear();
    return false;
}

constexpr std::int32_t nessuno = -1, molti = -2;

// Records that occur once in either run, matched, ascending in `dopo`.
std::vector<Coppia> uniciInComune(Record prima, std::int32_t finePrima, Record dopo, std::int32_t fineDopo,
                                  std::int32_t da) {
    struct Posto {
        std::int32_t prima = nessuno, dopo = nessuno;
    };
    std::unordered_map<std::uint64_t, Posto> posti;
    posti.reserve(static_cast<std::size_t>(finePrima - da) + 1);
    const auto nota = [](std::int32_t& posto, std::int32_t i) { posto = posto == nessuno ? i : molti; };
    for (std::int32_t i = da; i < finePrima; ++i)
        nota(posti[ImprontaRecord(&prima[static_cast<std::size_t>(i)], 1)].prima, i);
    std::vector<Coppia> coppie;
    for (std::int32_t i = da; i < fineDopo; ++i) {
        const auto p = posti.find(ImprontaRecord(&dopo[static_cast<std::size_t>(i)], 1));
        if (p != posti.end()) nota(p->second.dopo, i);
    }
    for (const auto& [impronta, p] : posti)
        if (p.prima >= 0 && p.dopo >= 0
            && StessoRecord(prima[static_cast<std::size_t>(p.prima)], dopo[static_cast<std::size_t>(p.dopo)]))
            coppie.push_back({p.prima, p.dopo});
    std::sort(coppie.begin(), coppie.end(), [](const Coppia& x, const Coppia& y) { return x.dopo < y.dopo; });
    return coppie;
}

// The longest part of the pairs that ascends in `prima` too (patience sorting).
std::vector<Coppia> catena(const std::vector<Coppia>& coppie) {
    std::vector<std::int32_t> cime;                            // index of the pair on top of each pile
    std::vector<std::int32_t> sotto(coppie.size(), nessuno);   // the pair before it in its chain
    for (std::size_t i = 0; i < coppie.size(); ++i) {
        const auto pila =
            std::lower_bound(cime.begin(), cime.end(), coppie[i].prima, [&](std::int32_t c, std::int32_t v) {
                return coppie[static_cast<std::size_t>(c)].prima < v;
            });
        if (pila != cime.begin()) sotto[i] = *(pila - 1);
        if (pila == cime.end()) {
            cime.push_back(static_cast<std::int32_t>(i));
        } else {
            *pila = static_cast<std::int32_t>(i);
        }
    }
    std::vector<Coppia> lunga;
    for (std::int32_t i = cime.empty() ? nessuno : cime.back(); i != nessuno; i = sotto[static_cast<std::size_t>(i)])
        lunga.push_back(coppie[static_cast<std::size_t>(i)]);
    std::reverse(lunga.begin(), lunga.end());
    return lunga;
}

// Records between two matches that are the same too (those that occur more than once) stay, from either end.
void fra(Record prima, Record dopo, Coppia da, Coppia a, std::vector<TrattoDiverso>& tratti) {
    const auto uguali = [&](std::int32_t i, std::int32_t j) {
        return StessoRecord(prima[static_cast<std::size_t>(i)], dopo[static_cast<std::size_t>(j)]);
    };
    while (da.prima < a.prima && da.dopo < a.dopo && uguali(da.prima, da.dopo)) ++da.prima, ++da.dopo;
    while (da.prima < a.prima && da.dopo < a.dopo && uguali(a.prima - 1, a.dopo - 1)) --a.prima, --a.dopo;
    aggiungi(tratti, {da.prima, a.prima - da.prima, da.dopo, a.dopo - da.dopo});
}

}   // namespace

std::vector<TrattoDiverso> TrattiDiversi(Record prima, Record dopo) {
    auto finePrima = static_cast<std::int32_t>(prima.size()), fineDopo = static_cast<std::int32_t>(dopo.size());
    std::int32_t da = 0;
    const std::int32_t minimo = std::min(finePrima, fineDopo);
    while (da < minimo && StessoRecord(prima[static_cast<std::size_t>(da)], dopo[static_cast<std::size_t>(da)])) ++da;
    while (
        finePrima > da && fineDopo > da
        && StessoRecord(prima[static_cast<std::size_t>(finePrima - 1)], dopo[static_cast<std::size_t>(fineDopo - 1)]))
        --finePrima, --fineDopo;
    std::vector<TrattoDiverso> tratti;
    if (finePrima == da || fineDopo == da) {
        aggiungi(tratti, {da, finePrima - da, da, fineDopo - da});
        return tratti;
    }
    if (finePrima == fineDopo && alLoroPosto(prima, dopo, da, finePrima, tratti)) return tratti;
    Coppia qui{da, da};
    for (const Coppia& c : catena(uniciInComune(prima, finePrima, dopo, fineDopo, da))) {
        fra(prima, dopo, qui, c, tratti);
        qui = {c.prima + 1, c.dopo + 1};
    }
    fra(prima, dopo, qui, {finePrima, fineDopo}, tratti);
    return tratti;
}

}   // namespace tessaro
