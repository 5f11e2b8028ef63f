// How long a million short lines take in a window of 1600 by 1000, against a bare Bresenham loop over the same ends
// (the floor) and the toolkit's painter (the peer). Prints the ratios to the floor of solid lines at the end.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "platform/paint/RasterPort.h"

namespace {

using namespace tessaro;

constexpr std::int32_t larghezza = 1600;
constexpr std::int32_t altezza = 1000;
constexpr std::size_t quanti = 1'000'000;

struct Estremi {
    Point a, b;
};

// 10 to 40 pixels long, in any direction. Inside: whole lines are visible. Across: many reach over the window's edge.
std::vector<Estremi> segmenti(bool inside) {
    std::mt19937 random(20260101);
    std::uniform_real_distribution<double> length(10, 40), angle(0, 6.283185307179586);
    const std::int32_t margin = inside ? 41 : -20;
    std::uniform_int_distribution<std::int32_t> h(margin, larghezza - margin), v(margin, altezza - margin);
    std::vector<Estremi> ends(quanti);
    for (Estremi& e : ends) {
        const double l = length(random), t = angle(random);
        e.a = Point{v(random), h(random)};
        e.b = Point{e.a.v + static_cast<std::int32_t>(std::lround(l * std::sin(t))),
                    e.a.h + static_cast<std::int32_t>(std::lround(l * std::cos(t)))};
    }
    return ends;
}

const std::vector<Estremi>& interni() {
    static const std::vector<Estremi> ends = segmenti(true);
    return ends;
}

const std::vector<Estremi>& sulBordo() {
    static const std::vector<Estremi> ends = segmenti(false);
    return ends;
}

// The textbook loop: no clip, no pen; put changes the pixel.
template <class Put>
void bareLine(std::uint32_t* pixels, Point a, Point b, Put put) {
    const std::int32_t dx = std::abs(b.h - a.h), dy = -std::abs(b.v - a.v);
    const std::int32_t stepX = a.h < b.h ? 1 : -1, stepY = a.v < b.v ? 1 : -1;
    std::int32_t error = dx + dy;
    for (;;) {
        put(pixels[a.v * larghezza + a.h], a);
        if (a.h == b.h && a.v == b.v) return;
        const std::int32_t twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            a.h += stepX;
        }
        if (twice <= dx) {
            error += dx;
            a.v += stepY;
        }
    }
}

template <class Put>
void nuda(benchmark::State& state, Put put) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(larghezza * altezza), 0xFFFFFFFFU);
    for (auto _ : state) {
        for (const Estremi& e : interni()) bareLine(pixels.data(), e.a, e.b, put);
        benchmark::ClobberMemory();
    }
}

void nudaPiena(benchmark::State& state) {
    nuda(state, [](std::uint32_t& px, Point) { px = 0xFF000000U; });
}
void nudaXor(benchmark::State& state) {
    nuda(state, [](std::uint32_t& px, Point) { px ^= 0x00FFFFFFU; });
}
void nudaRetino(benchmark::State& state) {
    nuda(state, [&pat = qdGray.pat](std::uint32_t& px, Point at) {
        const bool bit = (pat[static_cast<std::size_t>(at.v & 7)] >> (7 - (at.h & 7))) & 1;
        px = bit ? 0xFF000000U : 0xFFFFFFFFU;
    });
}

struct Penna {
    std::int16_t mode;
    const Pattern& pattern;
    std::int32_t size;
};

void porta(benchmark::State& state, const std::vector<Estremi>& ends, const Penna& penna) {
    RasterPort port(larghezza, altezza, 1);
    SetPort(&port);
    PenSize(penna.size, penna.size);
    PenMode(penna.mode);
    PenPat(penna.pattern);
    for (auto _ : state) {
        for (const Estremi& e : ends) {
            MoveTo(e.a.h, e.a.v);
            LineTo(e.b.h, e.b.v);
        }
        benchmark::ClobberMemory();
    }
    SetPort(nullptr);
}

void pittore(benchmark::State& state) {
    QImage image(larghezza, altezza, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.setPen(QPen(Qt::black, 1));
        for (const Estremi& e : interni()) painter.drawLine(e.a.h, e.a.v, e.b.h, e.b.v);
        painter.end();
        benchmark::ClobberMemory();
    }
}

// Collects the fastest run of each name and shows it beside the floor.
class Rapporti : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double time = run.GetAdjustedCPUTime();
            const auto [row, fresh] = migliori_.emplace(run.run_name.function_name, time);
            if (!fresh && time < row->second) row->second = time;
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void table() const {
        const auto floor = migliori_.find("nuda piena");
        if (floor == migliori_.end()) return;
        std::printf("\n%-26s %10s %8s\n", "a million lines", "ms", "ratio");
        for (const auto& [name, time] : migliori_)
            std::printf("%-26s %10.1f %8.2f\n", name.c_str(), time, time / floor->second);
    }

private:
    std::map<std::string, double> migliori_;
};

}   // namespace

int main(int argc, char** argv) {
    // Runs of all kinds alternate, so that a busy moment of the machine does not fall on one of them alone.
    std::string alternate = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments{argv[0], alternate.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    const auto settle = [](benchmark::internal::Benchmark* b) {
        b->Unit(benchmark::kMillisecond)->Repetitions(8)->MinTime(0.15);
    };
    settle(benchmark::RegisterBenchmark("nuda piena", nudaPiena));
    settle(benchmark::RegisterBenchmark("nuda xor", nudaXor));
    settle(benchmark::RegisterBenchmark("nuda retino", nudaRetino));
    const auto line = [&](const char* name, const std::vector<Estremi>& (*ends)(), Penna penna) {
        settle(benchmark::RegisterBenchmark(name, [ends, penna](benchmark::State& s) { porta(s, ends(), penna); }));
    };
    line("porta piena", interni, Penna{patCopy, qdBlack, 1});
    line("porta retino", interni, Penna{patCopy, qdGray, 1});
    line("porta retino or", interni, Penna{patOr, qdLtGray, 1});
    line("porta xor", interni, Penna{patXor, qdBlack, 1});
    line("porta xor grigio", interni, Penna{patXor, qdGray, 1});
    line("porta sul bordo", sulBordo, Penna{patCopy, qdBlack, 1});
    line("porta penna 2", interni, Penna{patCopy, qdBlack, 2});
    line("porta penna 2 xor grigio", interni, Penna{patXor, qdGray, 2});
    settle(benchmark::RegisterBenchmark("pittore", pittore));
    Rapporti reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.table();
    return 0;
}
