// Hatching a polygon of 10,000 sides with 1,000 lines, against a bare scan-line pass over the same sides in the same run:
// every line asks every side whether it meets it and works the crossing out; it sorts nothing and draws nothing.
// `ratio` is this program's time, drawing included, over the bare pass's; below the target it is good.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "editing/Tratteggi.h"
#include "model/Archivio.h"
#include "model/Attributi.h"
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

double passata(const std::vector<puntot>& v) {
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

using Orologio = std::chrono::steady_clock;
double millisecondi(Orologio::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

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
    std::vector<double> nostri, nudi;
    for ([[maybe_unused]] auto _ : state) {
        const auto t0 = Orologio::now();
        Hatch_Poligon(testa);
        const auto t1 = Orologio::now();
        benchmark::DoNotOptimize(passata(anello));
        const auto t2 = Orologio::now();
        nostri.push_back(millisecondi(t1 - t0));
        nudi.push_back(millisecondi(t2 - t1));
        state.SetIterationTime(std::chrono::duration<double>(t1 - t0).count());
    }
    std::sort(nostri.begin(), nostri.end());
    std::sort(nudi.begin(), nudi.end());
    const double nostro = nostri[nostri.size() / 2], nudo = nudi[nudi.size() / 2];
    state.counters["ms"] = nostro;
    state.counters["bare_ms"] = nudo;
    state.counters["ratio"] = nostro / nudo;
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
