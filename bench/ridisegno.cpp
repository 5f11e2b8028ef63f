// Repainting: the scan and the drawing of large drawings against bare loops over the same figures in the same run.
// `ratio` is this program's time over the bare loop's; below the target it is good.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include "bitmap/PerRighe.h"
#include "display/Disegno.h"
#include "model/Archivio.h"
#include "model/Lucidi.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/paint/RasterPort.h"

using namespace tessaro;

namespace {

constexpr std::int32_t larghezza = 1600, altezza = 1000;
constexpr std::int32_t unMilione = 1000000, misti = 1500000;

RasterPort& porta() {
    static RasterPort p(larghezza, altezza, 1);
    return p;
}

void prepara() {
    static const bool preso = AllocaElementi(misti + 2);
    if (!preso) std::abort();
    AzzeraStato();
    AzzeraArchivio();
    filiRaster = 1;   // one thread against one, but where bands are what is measured
    scalavid = 1;
    OrigX = OrigY = 0;
    AggiornaTolleranze();
    SetPort(&porta());
    ClipRect(porta().portRect);
}

using Orologio = std::chrono::steady_clock;
double millisecondi(Orologio::duration d) { return std::chrono::duration<double, std::milli>(d).count(); }

// Runs both sides in turn and reports the medians.
template <class Nostro, class Base>
void confronta(benchmark::State& state, double obiettivo, Nostro nostro, Base base) {
    std::vector<double> a, b;
    nostro();
    base();
    for ([[maybe_unused]] auto _ : state) {
        const auto t0 = Orologio::now();
        nostro();
        const auto t1 = Orologio::now();
        base();
        const auto t2 = Orologio::now();
        a.push_back(millisecondi(t1 - t0));
        b.push_back(millisecondi(t2 - t1));
        state.SetIterationTime(std::chrono::duration<double>(t1 - t0).count());
    }
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    state.counters["ms"] = a[a.size() / 2];
    state.counters["bare_ms"] = b[b.size() / 2];
    state.counters["ratio"] = a[a.size() / 2] / b[b.size() / 2];
    state.counters["target"] = obiettivo;
}

struct Capi {
    std::int32_t x0, y0, x1, y1;
};

// Segments of 10 to 40 pixels in any direction, whole in view.
std::vector<Capi> segmentiInVista() {
    std::mt19937 caso(7);
    std::uniform_real_distribution<double> px(41, larghezza - 42), py(41, altezza - 42), lungo(10, 40),
        giro(0, 6.28318);
    std::vector<Capi> v;
    v.reserve(unMilione);
    while (v.size() < unMilione) {
        const double x = px(caso), y = py(caso), l = lungo(caso), g = giro(caso);
        v.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y),
                     static_cast<std::int32_t>(x + l * std::cos(g)), static_cast<std::int32_t>(y + l * std::sin(g))});
    }
    return v;
}

// The textbook line, a dot at a time.
template <class Punto>
void bresenham(const Capi& c, Punto punto) {
    const std::int32_t dx = std::abs(c.x1 - c.x0), dy = -std::abs(c.y1 - c.y0);
    const std::int32_t sx = c.x0 < c.x1 ? 1 : -1, sy = c.y0 < c.y1 ? 1 : -1;
    std::int32_t x = c.x0, y = c.y0, e = dx + dy;
    for (;;) {
        punto(x, y);
        if (x == c.x1 && y == c.y1) return;
        const std::int32_t e2 = 2 * e;
        if (e2 >= dy) {
            e += dy;
            x += sx;
        }
        if (e2 <= dx) {
            e += dx;
            y += sy;
        }
    }
}

void segmenti(benchmark::State& state, std::int16_t pattern, bool xorMode) {
    prepara();
    const std::vector<Capi> capi = segmentiInVista();
    for (const Capi& c : capi) Memorizza(tSegmento, c.x0, c.y0, 0, c.x1, c.y1, 0, 1, 1, pattern, "");
    std::uint32_t* const base = porta().pixels();
    const Pattern bits = GetIndPattern(pattern);
    const auto nostro = [&] {
        if (!xorMode) return Disegna();
        PenNormal();
        PenMode(patXor);
        for (std::int32_t i = 3; i <= indElem; ++i) {
            const auto& s = Elem(i).segm;
            fai(tSegmento, s.x1, s.y1, s.x2, s.y2, 0);
        }
    };
    const auto nudo = [&] {
        for (const Capi& c : capi) {
            if (xorMode) {
                bresenham(c, [&](std::int32_t x, std::int32_t y) { base[y * larghezza + x] ^= 0xFFFFFF; });
            } else if (pattern == 1) {
                bresenham(c, [&](std::int32_t x, std::int32_t y) { base[y * larghezza + x] = 0xFF000000; });
            } else {
                bresenham(c, [&](std::int32_t x, std::int32_t y) {
                    const bool set = bits.pat[static_cast<std::size_t>(y & 7)] >> (7 - (x & 7)) & 1;
                    base[y * larghezza + x] = set ? 0xFF000000 : 0xFFFFFFFF;
                });
            }
        }
        benchmark::ClobberMemory();
    };
    confronta(state, 1.5, nostro, nudo);
}

// 60 % segments, 20 % polygon vertices, 10 % markers, 10 % circles, small, over a field of `lato` times the view.
void disegnoMisto(double lato, double dx, double dy) {
    std::mt19937 caso(11);
    std::uniform_real_distribution<double> px(0, larghezza * lato), py(0, altezza * lato), passo(-20, 20),
        raggio(3, 10);
    std::uniform_int_distribution<int> cento(0, 99);
    while (indElem < misti - 10) {
        const double x = px(caso) + dx, y = py(caso) + dy;
        const int n = cento(caso);
        if (n < 72) {   // figures, not records: a polygon takes five records
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
}

struct Riquadro {
    double l, t, r, b;
    [[nodiscard]] bool tocca(double x1, double y1, double x2, double y2, double m) const {
        return std::max(x1, x2) + m >= l && std::min(x1, x2) - m <= r && std::max(y1, y2) + m >= t
               && std::min(y1, y2) - m <= b;
    }
};
std::int32_t pixel(double v) { return static_cast<std::int32_t>(v + (v < 0 ? -0.5 : 0.5)); }

// Tests each record's box and draws through the port, with nothing else about it.
void cicloNudo() {
    const Riquadro vista{0, 0, larghezza, altezza};
    static Polygon poligono;
    PenNormal();
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        switch (e.tipo) {
        case tSegmento:
            if (!vista.tocca(e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2, 1)) break;
            porta().stdLine({pixel(e.segm.y1), pixel(e.segm.x1)}, {pixel(e.segm.y2), pixel(e.segm.x2)});
            break;
        case tMarker:
            if (!vista.tocca(e.mark.x, e.mark.y, e.mark.x, e.mark.y, 8)) break;
            DisegnaMarker(e.mark.forma, pixel(e.mark.x), pixel(e.mark.y));
            break;
        case tCerchio: {
            const double x = e.cerc.cx, y = e.cerc.cy, r = e.cerc.raggio;
            if (!vista.tocca(x, y, x, y, r + 1)) break;
            porta().stdOval(GrafVerb::frame, Rect{pixel(y - r), pixel(x - r), pixel(y + r), pixel(x + r)}, qdBlack);
            break;
        }
        case tPoligono: {
            double l = e.poli.x, r = l, t = e.poli.y, b = t;
            poligono.punti.clear();
            for (std::int32_t k = i; k <= i + e.poli.numVertici; ++k) {
                const double x = Elem(k).poli.x, y = Elem(k).poli.y;
                l = std::min(l, x);
                r = std::max(r, x);
                t = std::min(t, y);
                b = std::max(b, y);
                poligono.punti.push_back({pixel(y), pixel(x)});
            }
            if (vista.tocca(l, t, r, b, 1)) porta().stdPoly(GrafVerb::frame, poligono, qdBlack);
            i += e.poli.numVertici;
            break;
        }
        default: break;
        }
    }
}

void mistoTutto(benchmark::State& state) {
    prepara();
    disegnoMisto(1, 0, 0);
    confronta(state, 1.5, Disegna, cicloNudo);
}
void mistoVentesimo(benchmark::State& state) {
    prepara();
    disegnoMisto(4.4721, 0, 0);   // twenty views of area
    confronta(state, 2, Disegna, cicloNudo);
}
void mistoNulla(benchmark::State& state) {
    prepara();
    disegnoMisto(1, 5000, 5000);
    confronta(state, 1.5, Disegna, cicloNudo);
}
void mistoNullaCopia(benchmark::State& state) {
    prepara();
    disegnoMisto(1, 5000, 5000);
    std::vector<elemento> copia(static_cast<std::size_t>(indElem));
    confronta(state, 2, Disegna, [&] {
        std::memcpy(static_cast<void*>(copia.data()), ArrElementi, copia.size() * sizeof(elemento));
        benchmark::ClobberMemory();
    });
}

// The repaint in bands on so many threads, against the same on one. The scan alone is what no view holds anything of.
void strisce(benchmark::State& state, bool inVista) {
    prepara();
    disegnoMisto(1, inVista ? 0 : 5000, inVista ? 0 : 5000);
    const auto su = [](std::int32_t fili) {
        return [fili] {
            filiRaster = fili;
            Disegna();
        };
    };
    const auto fili = static_cast<std::int32_t>(state.range(0));
    confronta(state, 1.0 / std::min(1.7, fili * 0.85), su(fili), su(1));
}

}   // namespace

BENCHMARK_CAPTURE(segmenti, solid, 1, false)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(segmenti, patterned, 3, false)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(segmenti, xored, 1, true)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(mistoTutto)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(mistoVentesimo)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(mistoNulla)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(mistoNullaCopia)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(strisce, drawing, true)->Arg(2)->Arg(4)->Arg(16)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(strisce, scan, false)->Arg(2)->Arg(16)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
