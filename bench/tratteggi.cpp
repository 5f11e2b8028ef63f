// Hatching a polygon of 10,000 sides with 1,000 lines, against a bare scan-line pass over the same sides in the same run:
// every line asks every side whether it meets it, works the crossing out and sorts what it found; it draws nothing.
// `ratio` is this program's time, drawing included, over the bare pass's; below the target it is good. `unsorted` is
// the same over a pass that leaves the crossings as they come, which hatches nothing but is the least one can do.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "display/Tratteggi.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"

using namespace tessaro;

namespace {

constexpr int lati = 10000, linee = 1000;
constexpr double obiettivo = 5, centro = 1005, raggio = 1000, passo = 2 * raggio / linee;

enum Forma : std::int64_t { tonda = 0, stella = 1, pettine = 2 };

puntot vertice(std::int64_t forma, int i) {
    const double giro = 6.283185307179586 * i / lati;
    if (forma == pettine)
        return {centro - raggio + 2 * raggio * i / lati, i % 2 ? centro - raggio : centro + raggio, 0};
    const double r = forma == stella && i % 2 ? raggio / 2 : raggio;
    return {centro + r * std::cos(giro), centro + r * std::sin(giro), 0};
}

// The lines run across: a quarter turn against the direction that they start from.
std::int32_t poligono(std::int64_t forma) {
    static const bool preso = AllocaElementi(lati + 10);
    if (!preso) std::abort();
    AzzeraStato();
    AzzeraArchivio();
    for (int i = 0; i < lati; ++i) {
        const puntot v = vertice(forma, i);
        Memorizza(i ? tVertice : tPoligono, v.x, v.y, 0, 0, 0, 0, 1, 1, 1, "");
    }
    Elem(3).poli.passoTratt = passo / 100;
    Elem(3).poli.angoloTratt = -1.5707963267948966;
    return 3;
}

double senzaOrdine(const std::vector<puntot>& v) {
    double somma = 0;
    for (int n = 0; n < linee; ++n) {
        const double q = centro - raggio + passo * n;
        for (std::size_t i = 1; i < v.size(); ++i) {
            const puntot &a = v[i - 1], &b = v[i];
            if (q < std::min(a.y, b.y) || q > std::max(a.y, b.y)) continue;
            somma += a.x - (a.y - q) * (a.x - b.x) / (a.y - b.y);
        }
    }
    return somma;
}

double passata(const std::vector<puntot>& v) {
    static std::vector<double> incroci;
    double somma = 0;
    for (int n = 0; n < linee; ++n) {
        const double q = centro - raggio + passo * n;
        incroci.clear();
        for (std::size_t i = 1; i < v.size(); ++i) {
            const puntot &a = v[i - 1], &b = v[i];
            if (q < std::min(a.y, b.y) || q > std::max(a.y, b.y)) continue;
            incroci.push_back(a.x - (a.y - q) * (a.x - b.x) / (a.y - b.y));
        }
        std::sort(incroci.begin(), incroci.end());
        for (std::size_t i = 1; i < incroci.size(); i += 2) somma += incroci[i] - incroci[i - 1];
    }
    return somma;
}

using Orologio = std::chrono::steady_clock;

template <class Lavoro>
double millisecondi(Lavoro lavoro) {
    const auto inizio = Orologio::now();
    lavoro();
    return std::chrono::duration<double, std::milli>(Orologio::now() - inizio).count();
}

double mediana(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

void tratteggio(benchmark::State& state) {
    const std::int32_t testa = poligono(state.range(0));
    static RasterPort porta(2010, 2010, 1);
    SetPort(&porta);
    ClipRect(porta.portRect);
    scalavid = 1;
    OrigX = OrigY = 0;
    AggiornaTolleranze();
    std::vector<puntot> anello;
    for (int i = 0; i <= lati; ++i) anello.push_back(vertice(state.range(0), i % lati));
    std::vector<double> nostri, nudi, sparsi;
    for ([[maybe_unused]] auto _ : state) {
        nostri.push_back(millisecondi([&] { Hatch_Poligon(testa); }));
        nudi.push_back(millisecondi([&] { benchmark::DoNotOptimize(passata(anello)); }));
        sparsi.push_back(millisecondi([&] { benchmark::DoNotOptimize(senzaOrdine(anello)); }));
        state.SetIterationTime(nostri.back() / 1000);
    }
    state.counters["ms"] = mediana(nostri);
    state.counters["bare_ms"] = mediana(nudi);
    state.counters["ratio"] = mediana(nostri) / mediana(nudi);
    state.counters["unsorted"] = mediana(nostri) / mediana(sparsi);
    state.counters["target"] = obiettivo;
    SetPort(nullptr);
}

BENCHMARK(tratteggio)
    ->ArgName("round0_star1_comb2")
    ->Arg(tonda)
    ->Arg(stella)
    ->Arg(pettine)
    ->UseManualTime()
    ->Iterations(9);

}   // namespace

BENCHMARK_MAIN();
