// What the live transformation costs: one mapped point in each mode against a bare homography of eight coefficients, and
// the preview of a million segments against their plain repaint, in the same run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <random>
#include <vector>

#include "display/Disegno.h"
#include "editing/AttacchiCambiati.h"
#include "model/Archivio.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"
#include "registration/attaccoDinamico.h"
#include "registration/gauss.h"
#include "registration/PuntiControllo.h"

using namespace tessaro;

namespace {

constexpr std::int32_t larghezza = 1600, altezza = 1000, unMilione = 1000000;

// Time of the processor, not of the wall: who else works on the machine does not count.
double nanosecondi() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

double mediana(std::vector<double>& v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// Runs both sides in turn and reports the medians, for each of `quanti`.
template <class Nostro, class Base>
void confronta(benchmark::State& state, double quanti, double obiettivo, Nostro nostro, Base base) {
    std::vector<double> a, b;
    nostro();
    base();
    for ([[maybe_unused]] auto _ : state) {
        const double t0 = nanosecondi();
        nostro();
        const double t1 = nanosecondi();
        base();
        const double t2 = nanosecondi();
        a.push_back((t1 - t0) / quanti);
        b.push_back((t2 - t1) / quanti);
        state.SetIterationTime((t1 - t0) / 1e9);
    }
    const double ns = mediana(a), bare = mediana(b);
    state.counters["ns"] = ns;
    state.counters["bare_ns"] = bare;
    state.counters["ratio"] = ns / bare;
    if (obiettivo > 0) state.counters["target"] = obiettivo;
}

void prepara() {
    static RasterPort porta(larghezza, altezza, 1);
    static const bool preso = AllocaElementi(unMilione + 2);
    if (!preso) std::abort();
    AzzeraStato();
    AzzeraArchivio();
    scalavid = 1;
    OrigX = OrigY = 0;
    AggiornaTolleranze();
    SetPort(&porta);
    ClipRect(porta.portRect);
}

// A quadrilateral near the identity, so that a preview stays in view; `rettangolo` makes all sides parallel in pairs.
void registra(std::int32_t modo, bool rettangolo = false) {
    const std::array<Coppia, 5> sorgente{{{100, 900}, {100, 100}, {1500, 100}, {1500, 900}, {800, 500}}};
    const std::array<Coppia, 5> storta{{{130, 905}, {95, 110}, {1490, 90}, {1505, 880}, {790, 490}}};
    for (std::size_t i = 0; i < sorgente.size(); ++i) {
        const Coppia s = rettangolo ? sorgente[i] : storta[i], d = rettangolo ? sorgente[i] : sorgente[i];
        AssegnaAttacco(static_cast<std::int16_t>(i + 1), s.x, s.y);
        // The target's sides meet too: the source's quadrilateral, shifted and turned over its diagonal a little.
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(i), d.x + (rettangolo ? 0 : 0.02 * (s.y - 500)),
                               d.y + (rettangolo ? 0 : 0.00002 * s.x * (s.y - 500)));
    }
    Elem(2).att.quattroPunti = OKAttacco5 = 1;
    const SenzaTraccia muto;
    attaccoAttivo.tipo = modo;
    AttacchiCambiati();
    attaccoAttivo.PreparaAttacco();
}

// --- one point

enum Caso : int { similitudine, omografia, fugaPiana, cinque, cinqueParallele };

void punto(benchmark::State& state, Caso caso) {
    constexpr std::size_t quanti = 100000;
    prepara();
    constexpr std::int32_t modi[] = {0, 1, 1, 2, 2};
    deformProspettica = caso != fugaPiana;
    registra(modi[caso], caso == cinqueParallele);
    std::mt19937 sorte(3);
    std::uniform_real_distribution<double> px(150, 1450), py(150, 850);
    std::vector<Coppia> punti(quanti);
    for (Coppia& p : punti) p = {px(sorte), py(sorte)};
    double somma = 0;
    const auto nostro = [&] {
        for (Coppia p : punti) {
            attaccoAttivo.Traf4Pt(p.x, p.y);
            somma += p.x + p.y;
        }
        benchmark::DoNotOptimize(somma);
    };
    volatile double a = 1.01, b = 0.02, c = 3, d = -0.01, e = 0.98, f = 5, g = 1e-6, h = -2e-6;
    const double A = a, B = b, C = c, D = d, E = e, F = f, G = g, H = h;
    const auto nudo = [&] {
        for (const Coppia& p : punti) {
            const double w = 1 + G * p.x + H * p.y;
            somma += (A * p.x + B * p.y + C) / w + (D * p.x + E * p.y + F) / w;
        }
        benchmark::DoNotOptimize(somma);
    };
    confronta(state, quanti, 0, nostro, nudo);
}

// --- the preview

void anteprima(benchmark::State& state, Caso caso) {
    prepara();
    std::mt19937 sorte(7);
    std::uniform_real_distribution<double> px(60, larghezza - 60), py(60, altezza - 60), passo(-20, 20);
    while (indElem < unMilione) {
        const double x = px(sorte), y = py(sorte);
        Memorizza(tSegmento, x, y, 0, x + passo(sorte), y + passo(sorte), 0, 1, 1, 1, "");
    }
    constexpr std::int32_t modi[] = {0, 1, 1, 2, 2};
    deformProspettica = caso != fugaPiana;
    registra(modi[caso], caso == cinqueParallele);
    const auto ridisegna = [](std::uint8_t conAnteprima) {
        attaccoAttivo.SetModificato(conAnteprima);
        Disegna();
    };
    confronta(
        state, unMilione, 3, [&] { ridisegna(1); }, [&] { ridisegna(0); });
}

}   // namespace

BENCHMARK_CAPTURE(punto, two_points, similitudine)->UseManualTime();
BENCHMARK_CAPTURE(punto, four_points, omografia)->UseManualTime();
BENCHMARK_CAPTURE(punto, four_points_plain_scale, fugaPiana)->UseManualTime();
BENCHMARK_CAPTURE(punto, five_points, cinque)->UseManualTime();
BENCHMARK_CAPTURE(punto, five_points_parallel_sides, cinqueParallele)->UseManualTime();
BENCHMARK_CAPTURE(anteprima, two_points, similitudine)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(anteprima, four_points, omografia)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(anteprima, four_points_plain_scale, fugaPiana)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(anteprima, five_points, cinque)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(anteprima, five_points_parallel_sides, cinqueParallele)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
