// Comparing by pages, and moving whole stretches.
#include "model/GiornaleRecord.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "model/Archivio.h"
#include "model/Impronta.h"

namespace tessaro {

namespace {

constexpr std::int32_t recordPerPagina = 512;

std::span<const elemento> vivi(std::size_t da, std::size_t a) { return {ArrElementi + da, a - da}; }

void sposta(std::vector<TrattoDiverso>& tratti, std::size_t di) {
    for (TrattoDiverso& t : tratti) {
        t.prima += static_cast<std::int32_t>(di);
        t.dopo += static_cast<std::int32_t>(di);
    }
}

bool alPosto(const std::vector<TrattoDiverso>& tratti) {
    return std::all_of(tratti.begin(), tratti.end(),
                       [](const TrattoDiverso& t) { return t.quantiPrima == t.quantiDopo; });
}

// The shadow takes over what the drawing has now in the stretches' new places; digests follow.
void aggiorna(std::vector<elemento>& record, const std::vector<TrattoDiverso>& tratti) {
    if (tratti.empty()) return;
    const auto copia = [&](std::size_t da, std::size_t a) {
        if (a > da) std::memcpy(&record[da], ArrElementi + da, (a - da) * sizeof(elemento));
    };
    const auto fine = static_cast<std::size_t>(indElem);
    if (alPosto(tratti)) {
        for (const TrattoDiverso& t : tratti) {
            const auto da = static_cast<std::size_t>(t.dopo);
            copia(da, da + static_cast<std::size_t>(t.quantiDopo));
        }
        return;
    }
    if (record.capacity() < fine) {   // in steps of half as much again, at most the whole store
        const auto tutto = static_cast<std::size_t>(maxElementi);
        record.reserve(std::min(std::max(fine, record.capacity() + record.capacity() / 2), tutto));
    }
    record.resize(fine);
    copia(static_cast<std::size_t>(tratti.front().dopo), fine);
}

void rifaiImpronte(std::vector<std::uint64_t>& impronte, const std::vector<TrattoDiverso>& tratti) {
    if (tratti.empty()) return;
    const auto una = [&](std::size_t p) {
        const auto n = static_cast<std::int32_t>(p) * recordPerPagina + 1;
        impronte[p] = ImprontaRecord(&Elem(n), std::min(recordPerPagina, indElem - n + 1));
    };
    const auto pagina = [](std::int32_t i) { return static_cast<std::size_t>(i / recordPerPagina); };
    impronte.resize(static_cast<std::size_t>((indElem + recordPerPagina - 1) / recordPerPagina));
    if (!alPosto(tratti)) {
        for (std::size_t p = pagina(tratti.front().dopo); p < impronte.size(); ++p) una(p);
        return;
    }
    std::size_t prossima = 0;
    for (const TrattoDiverso& t : tratti) {
        for (std::size_t p = std::max(prossima, pagina(t.dopo)); p <= pagina(t.dopo + t.quantiDopo - 1); ++p) {
            una(p);
            prossima = p + 1;
        }
    }
}

// Does a record that takes another's place stand for the same thing? Then it keeps its flag of selection.
bool succede(const elemento& nuovo, const elemento& vecchio) { return nuovo.tipo == vecchio.tipo; }

}   // namespace

std::vector<std::uint64_t> ImpronteDelDisegno() {
    std::vector<std::uint64_t> pagine;
    pagine.reserve(static_cast<std::size_t>(indElem / recordPerPagina + 1));
    for (std::int32_t n = 1; n <= indElem; n += recordPerPagina)
        pagine.push_back(ImprontaRecord(&Elem(n), std::min(recordPerPagina, indElem - n + 1)));
    return pagine;
}

void OmbraRecord::Copia() {
    record.assign(ArrElementi, ArrElementi + indElem);
    impronte = ImpronteDelDisegno();
}

// Pages that differ, each on its own, as long as no record has another number; else all from the first on.
std::vector<TrattoDiverso> OmbraRecord::Confronta(const std::vector<std::uint64_t>& pagine) const {
    const std::size_t prima = record.size(), dopo = static_cast<std::size_t>(indElem);
    const std::size_t comuni = std::min(pagine.size(), impronte.size());
    std::vector<std::size_t> diverse;
    for (std::size_t p = 0; p < comuni; ++p)
        if (pagine[p] != impronte[p]) diverse.push_back(p);
    if (prima == dopo && diverse.empty()) return {};
    const std::size_t inizio = (diverse.empty() ? comuni : diverse.front()) * recordPerPagina;
    const auto da = [&](std::size_t d, std::size_t finePrima, std::size_t fineDopo) {
        std::vector<TrattoDiverso> t = TrattiDiversi(std::span(record).subspan(d, finePrima - d), vivi(d, fineDopo));
        sposta(t, d);
        return t;
    };
    if (prima != dopo) return da(std::min({inizio, prima, dopo}), prima, dopo);
    std::vector<TrattoDiverso> tratti;
    for (const std::size_t p : diverse) {
        const std::size_t d = p * recordPerPagina, a = std::min(d + recordPerPagina, dopo);
        for (std::size_t i = d; i < a; ++i) {
            if (StessoRecord(record[i], ArrElementi[i])) continue;
            const auto n = static_cast<std::int32_t>(i);
            if (!tratti.empty() && tratti.back().prima + tratti.back().quantiPrima == n) {
                ++tratti.back().quantiPrima;
                ++tratti.back().quantiDopo;
            } else {
                tratti.push_back({n, 1, n, 1});
            }
        }
    }
    const std::size_t fine = std::min((diverse.back() + 1) * recordPerPagina, dopo);
    std::size_t cambiati = 0;
    for (const TrattoDiverso& t : tratti) cambiati += static_cast<std::size_t>(t.quantiPrima);
    // Most of a stretch has changed: things may have moved within it.
    return cambiati * 2 > fine - inizio ? da(inizio, fine, fine) : tratti;
}

void OmbraRecord::Segui(const std::vector<TrattoDiverso>& tratti) {
    aggiorna(record, tratti);
    rifaiImpronte(impronte, tratti);
}

void OmbraRecord::Segui(const std::vector<TrattoDiverso>& tratti, std::vector<std::uint64_t> pagine) {
    aggiorna(record, tratti);
    impronte = std::move(pagine);
}

std::vector<TrattoDiverso> Rovescio(const std::vector<TrattoDiverso>& tratti) {
    std::vector<TrattoDiverso> r;
    r.reserve(tratti.size());
    for (const TrattoDiverso& t : tratti) r.push_back({t.dopo, t.quantiDopo, t.prima, t.quantiPrima});
    return r;
}

// The stretches of the drawing give way to `nuovi`; what they held comes back. Within a stretch records follow each other
// in order as long as the kinds are the same: a polyline that loses a vertex is still that polyline. Flags of selection
// go with what they are on.
std::vector<elemento> Sostituisci(const std::vector<TrattoDiverso>& tratti, const std::vector<elemento>& nuovi,
                                  EsitoPasso& esito) {
    std::vector<elemento> tolti, coda;
    tolti.reserve(nuovi.size());
    const auto inizio = static_cast<std::size_t>(tratti.front().prima);
    const bool stessi = alPosto(tratti);
    const std::int32_t scelto = esito.indice - 1;
    std::int32_t segue = scelto < tratti.front().prima ? scelto : -1;
    std::size_t letto = inizio, preso = 0;
    for (const TrattoDiverso& t : tratti) {
        const auto da = static_cast<std::size_t>(t.prima), a = da + static_cast<std::size_t>(t.quantiPrima);
        if (scelto >= static_cast<std::int32_t>(letto) && scelto < t.prima) segue = scelto + t.dopo - t.prima;
        if (!stessi) coda.insert(coda.end(), ArrElementi + letto, ArrElementi + da);
        tolti.insert(tolti.end(), ArrElementi + da, ArrElementi + a);
        bool seguono = true;
        for (std::int32_t i = 0; i < t.quantiDopo; ++i) {
            elemento e = nuovi[preso++];
            seguono = seguono && i < t.quantiPrima && succede(e, ArrElementi[t.prima + i]);
            e.selezionato = seguono ? ArrElementi[t.prima + i].selezionato : std::uint8_t{0};
            if (seguono && scelto == t.prima + i) segue = t.dopo + i;
            if (stessi)
                ArrElementi[t.dopo + i] = e;
            else
                coda.push_back(e);
        }
        esito.alPosto = esito.alPosto && seguono && stessi;
        letto = a;
    }
    if (scelto >= static_cast<std::int32_t>(letto))
        segue = scelto + tratti.back().dopo + tratti.back().quantiDopo - static_cast<std::int32_t>(letto);
    esito.indice = segue + 1;
    if (stessi) return tolti;
    coda.insert(coda.end(), ArrElementi + letto, ArrElementi + indElem);
    std::copy(coda.begin(), coda.end(), ArrElementi + inizio);
    indElem = static_cast<std::int32_t>(inizio + coda.size());
    return tolti;
}

}   // namespace tessaro
