// Picking and editing large drawings, against one copy of the same records in the same run. `ratio` is this program's
// time over the copy's; at or below the target it is good.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "editing/AnnullaComando.h"
#include "editing/Cancella.h"
#include "editing/Scelta.h"
#include "editing/Sposta.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Giornale.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"

using namespace tessaro;

namespace {

constexpr std::int32_t tanti = 1500000, modificati = 700000;

// 60 % segments, polylines of five sides, markers and circles, all within 1600 by 1000 units.
void disegno(std::int32_t quanti) {
    static const bool preso = AllocaElementi(tanti + 2);
    static RasterPort porta(64, 64, 1);
    if (!preso) std::abort();
    AzzeraStato();
    AzzeraArchivio();
    scalavid = 1;
    AggiornaTolleranze();
    SetPort(&porta);
    ClipRect(Rect{});   // nothing is drawn: these measure the editing alone
    std::mt19937 caso(11);
    std::uniform_real_distribution<double> px(0, 1600), py(0, 1000), passo(-20, 20), raggio(3, 10);
    std::uniform_int_distribution<int> cento(0, 99);
    while (indElem < quanti - 6) {
        const double x = px(caso), y = py(caso);
        const int n = cento(caso);
        if (n < 72) {
            Memorizza(tSegmento, x, y, 0, x + passo(caso), y + passo(caso), 0, 1, 1, 1, "");
        } else if (n < 76) {
            Memorizza(tPoligono, x, y, 0, 0, 0, 0, 1, 1, 1, "");
            for (int i = 0; i < 5; ++i) Memorizza(tVertice, x + passo(caso), y + passo(caso), 0, 0, 0, 0, 1, 1, 1, "");
        } else if (n < 88) {
            Memorizza(tMarker, x, y, 0, 1 + n % 5, 0, 0, 1, 1, 1, "");
        } else {
            Memorizza(tCerchio, x, y, raggio(caso), 0, 0, 0, 1, 1, 1, "");
        }
    }
    while (indElem < quanti) Memorizza(tMarker, 10, 10, 0, 1, 0, 0, 1, 1, 1, "");
}

using Orologio = std::chrono::steady_clock;
double millisecondi(Orologio::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

double mediana(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// `prima` brings the drawing into the state that `azione` wants, unmeasured. Both sides run in turn.
template <class Prima, class Azione>
void confronta(benchmark::State& state, double obiettivo, Prima prima, Azione azione) {
    const auto quanti = static_cast<std::size_t>(indElem);
    std::vector<elemento> copia(quanti);
    std::vector<double> nostri, copie;
    const auto giro = [&] {
        prima();
        const auto t0 = Orologio::now();
        azione();
        const auto t1 = Orologio::now();
        std::memcpy(static_cast<void*>(copia.data()), ArrElementi, quanti * sizeof(elemento));
        benchmark::ClobberMemory();
        const auto t2 = Orologio::now();
        nostri.push_back(millisecondi(t1 - t0));
        copie.push_back(millisecondi(t2 - t1));
        return t1 - t0;
    };
    giro();
    nostri.clear();
    copie.clear();
    for ([[maybe_unused]] auto _ : state) state.SetIterationTime(std::chrono::duration<double>(giro()).count());
    state.counters["ms"] = mediana(nostri);
    state.counters["copy_ms"] = mediana(copie);
    state.counters["ratio"] = mediana(nostri) / mediana(copie);
    state.counters["target"] = obiettivo;
}

void clicAVuoto(benchmark::State& state) {
    disegno(tanti);
    EventRecord e;
    e.what = EventKind::mouseDown;
    confronta(
        state, 2.5, [] {},
        [&] {
            ScegliElemento(e, puntot{1700, 500, 0});
        });
}
void selezionaTutto(benchmark::State& state) {
    disegno(modificati);
    confronta(state, 4, NessunaSelezione, SelezionaTutto);
}
void spostaTutto(benchmark::State& state) {
    disegno(modificati);
    SelezionaTutto();
    XDeltaSpost = 1;
    confronta(
        state, 4, [] {}, SpostaSelezione);
}
void cancellaTutto(benchmark::State& state) {
    disegno(modificati);
    const auto pronto = [] {
        indElem = modificati;
        annullamento = aNiente;
        NessunaSelezione();
        SelezionaTutto();
    };
    confronta(state, 4, pronto, CancellaSelezione);
}
// Every second thing: the array is parted record by record.
void cancellaAlternati(benchmark::State& state) {
    disegno(modificati);
    const auto pronto = [] {
        indElem = modificati;
        annullamento = aNiente;
        NessunaSelezione();
        for (std::int32_t n = 3, i = 0; n <= indElem; n = UltimoRecord(n) + 1, ++i)
            if (i % 2) Elem(n).selezionato = 1;
        Puntosel.attiva = Puntosel.multipla = 1;
    };
    confronta(state, 8, pronto, CancellaSelezione);
}
void annullaCancellazione(benchmark::State& state) {
    disegno(modificati);
    const auto pronto = [] {
        indElem = modificati;
        annullamento = aNiente;
        NessunaSelezione();
        GiornaleNuovo();
        SelezionaTutto();
        CancellaSelezione();
        ChiudiPasso({});
    };
    confronta(state, 8, pronto, AnnullaUltima);
}
void annullaSpostamento(benchmark::State& state) {
    disegno(modificati);
    SelezionaTutto();
    XDeltaSpost = 1;
    GiornaleNuovo();
    SpostaSelezione();
    ChiudiPasso({});
    confronta(
        state, 8, [] { RipetiUltima(); }, AnnullaUltima);
}

}   // namespace

BENCHMARK(clicAVuoto)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(selezionaTutto)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(spostaTutto)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(cancellaTutto)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(cancellaAlternati)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(annullaCancellazione)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(annullaSpostamento)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
