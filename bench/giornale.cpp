// The journal on a full store: what a command costs behind which nothing has changed, what small edits cost and weigh, and
// what the recovery file adds. The floors are one reading of the same bytes and one comparing of them with a copy.
#include <cstdio>
#include <cstring>
#include <random>
#include <vector>

#include "Misure.h"
#include "model/Archivio.h"
#include "model/Giornale.h"
#include "model/Impronta.h"
#include "platform/Automation.h"

using namespace tessaro;
using namespace misure;

namespace {

constexpr std::int32_t tanti = 1500000;
constexpr int giri = 9;

double mediana(const std::function<void()>& lavoro) {
    std::vector<double> t;
    for (int i = 0; i < giri; ++i) t.push_back(millisecondi(lavoro));
    std::sort(t.begin(), t.end());
    return t[t.size() / 2];
}

void disegno() {
    if (!AllocaElementi(tanti)) fallito("the store");
    AzzeraArchivio();
    std::mt19937 caso(3);
    while (indElem < tanti - 200) {
        const double x = static_cast<double>(caso() % 16000), y = static_cast<double>(caso() % 10000);
        Memorizza(tSegmento, x, y, 0, x + 10, y + 10, 0, 1, 1, 1, "");
    }
}

volatile std::uint64_t scarico;

double leggiTutto() {
    return mediana([] {
        std::uint64_t somma = 0, w = 0;
        const auto* p = reinterpret_cast<const char*>(ArrElementi);
        const auto fine = static_cast<std::size_t>(indElem) * sizeof(elemento) / 8 * 8;
        for (std::size_t i = 0; i < fine; i += 8) {
            std::memcpy(&w, p + i, 8);
            somma ^= w;
        }
        scarico = somma;
    });
}

void riga(const char* che, double ms, double piano) { std::printf("%-58s %9.2f ms %7.2f\n", che, ms, ms / piano); }

}   // namespace

int main() {
    disegno();
    const double megabyte = static_cast<double>(indElem) * sizeof(elemento) / 1e6;
    std::printf("%d records, %.0f MB\n%-58s %12s %7s\n", indElem, megabyte, "", "median", "ratio");
    const double piano = leggiTutto();
    riga("floor: every byte read once", piano, piano);
    {
        const std::vector<elemento> copia(ArrElementi, ArrElementi + indElem);
        riga("floor: every byte compared with a copy", mediana([&] {
                 scarico = static_cast<std::uint64_t>(
                     std::memcmp(copia.data(), ArrElementi, copia.size() * sizeof(elemento)));
             }),
             piano);
    }
    riga("a drawing is opened: the shadow is made", mediana([] { GiornaleNuovo(); }), piano);
    riga("a command that changed nothing (at most 20 ms)", mediana([] {
             if (ChiudiPasso({})) fallito("nothing had changed");
         }),
         piano);
    std::mt19937 caso(5);
    const auto uno = [&] { return 3 + static_cast<std::int32_t>(caso() % static_cast<unsigned>(indElem - 2)); };
    riga("one record changed", mediana([&] {
             Elem(uno()).segm.x1 = static_cast<double>(caso());
             ChiudiPasso({});
         }),
         piano);
    riga("  and taken back", mediana([] { AnnullaPasso(); }), piano);
    riga("one record deleted near the front", mediana([] {
             CopiaRecord(1000, 1001, indElem - 1000);
             --indElem;
             ChiudiPasso({});
         }),
         piano);
    riga("one record brought to the front", mediana([] {
             std::rotate(&Elem(500), &Elem(501), &Elem(indElem) + 1);
             ChiudiPasso({});
         }),
         piano);
    GiornaleNuovo();
    for (int i = 0; i < 25; ++i) {
        Elem(uno()).segm.y2 += 3;
        ChiudiPasso({});
        Memorizza(tSegmento, i, 1, 0, 2, 2, 0, 1, 1, 1, "");
        ChiudiPasso({});
        const std::int32_t n = uno();
        CopiaRecord(n, n + 1, indElem - n);
        --indElem;
        ChiudiPasso({});
        std::rotate(&Elem(3), &Elem(n), &Elem(n) + 1);
        ChiudiPasso({});
    }
    std::printf("100 small edits (changed, added, deleted, reordered) weigh %.3f MB above the shadow (at most 20)\n",
                static_cast<double>(PesoGiornale()) / 1e6);
    return 0;
}
