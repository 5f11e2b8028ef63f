// Registration by many points: what the thin plate costs to solve, to map plainly and by its grid, against a bare affine
// mapping; how fast residuals follow; and how often slips are named, over thousands of sheets.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

#include "registration/MappaFoglio.h"
#include "registration/Sbagli.h"

using namespace tessaro;

namespace {

double secondi(const auto& lavoro) {
    const auto inizio = std::chrono::steady_clock::now();
    lavoro();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
}

std::vector<PuntoNoto> foglio(std::size_t n) {
    std::mt19937 sorte(1);
    std::uniform_real_distribution<double> dove(0, 10000);
    std::normal_distribution<double> rumore(0, 0.02);
    std::vector<PuntoNoto> p;
    for (std::size_t i = 0; i < n; ++i) {
        const double x = dove(sorte), y = dove(sorte);
        p.push_back({{x, y},
                     {655000 + 0.2 * x + 3 * std::sin(x / 3000) + rumore(sorte),
                      979000 - 0.2 * y + 2 * std::cos((x + y) / 4000) + rumore(sorte)}});
    }
    return p;
}

void tempi() {
    constexpr int punti = 1000000;
    const auto mille = foglio(1000);
    SoluzionePunti s;
    std::printf("%-52s %10s %10s\n", "", "s", "target");
    const double risolto = secondi([&] { (void)RisolviPunti(mille, Metodo::lastra, s); });
    std::printf("%-52s %10.3f %10s\n", "thin plate of 1,000 points, solved", risolto, "0.5");
    double somma = 0;
    const auto percorri = [&](const auto& mappa) {
        return secondi([&] {
            for (int i = 0; i < punti; ++i) somma += mappa({(i % 1000) * 10.0, (i / 1000) * 10.0}).x;
        });
    };
    SoluzionePunti semplice;
    (void)RisolviPunti(mille, Metodo::affine, semplice);
    std::printf("%-52s %10.3f %10s\n", "1 million points, affine (floor)", percorri(semplice.mappa), "");
    std::printf("%-52s %10.3f %10s\n", "1 million points, plain", percorri(s.mappa), "10");
    MappaFoglio m(s.mappa, mille, false);
    constexpr double tolleranza = 0.01 * 254 / 300;   // a hundredth of a pixel at 300 to the inch
    bool fatta = false;
    const double griglia = secondi([&] { fatta = m.Interpola(0, 0, 10000, 10000, tolleranza); });
    const double mappati = percorri(m);
    std::printf("%-52s %10.3f %10s\n", "grid made and 1 million points by it", griglia + mappati, "1");
    if (fatta)
        std::printf("  grid of %d cells a side in %.3f s; error at most %.5f pixel of 300 to the inch\n",
                    int(m.griglia()->celle), griglia, m.griglia()->errore * 300 / 254);
    auto duecento = foglio(200);
    for (const Metodo q : {Metodo::helmert, Metodo::proiettivo, Metodo::terzo, Metodo::lastra}) {
        constexpr int giri = 50;
        const double t = secondi([&] {
            for (int i = 0; i < giri; ++i) {
                duecento[7].foglio.x += 0.1;
                (void)RisolviPunti(duecento, q, s);
                somma += s.errore;
            }
        });
        std::printf("residuals of 200 points, method %d: %.0f a second (target 30)\n", int(q), giri / t);
    }
    if (somma == 0) std::printf("\n");
}

void sbagli() {
    constexpr double sigma = 0.05;
    constexpr int prove = 400;
    std::printf("\n%-10s %7s %10s %8s %8s %7s\n", "method", "points", "named %", "told %", "false %", "enough");
    std::mt19937 sorte(7);
    std::normal_distribution<double> rumore(0, sigma);
    std::uniform_real_distribution<double> uno(0, 1);
    const char* const nomi[] = {"helmert", "affine", "projective", "second", "third", "plate"};
    for (int m = 0; m < numMetodi; ++m)
        for (const int n : {8, 10, 12, 14, 16, 18, 20, 24, 28, 32, 36, 40}) {
            if (PuntiMinimi(static_cast<Metodo>(m)) + 1 >= n) continue;
            int nominati = 0, falsi = 0, bastano = 0;
            double detto = 0;
            for (int t = 0; t < prove; ++t) {
                std::vector<PuntoNoto> p;
                const double a = 6.2831853 * uno(sorte), c = 0.1 * std::cos(a), s = 0.1 * std::sin(a);
                const int colonne = static_cast<int>(std::ceil(std::sqrt(n)));
                for (int i = 0; i < n; ++i) {
                    const double x = 1200 * (i % colonne) + 100 * uno(sorte),
                                 y = 1200 * (i / colonne) + 100 * uno(sorte);
                    p.push_back({{x, y}, {c * x + s * y + rumore(sorte), s * x - c * y + rumore(sorte)}});
                }
                const EsameSbagli buono = CercaSbagli(p, static_cast<Metodo>(m));
                falsi += !buono.punti.empty();
                detto += buono.potenza;
                bastano += buono.bastano;
                const std::size_t k = sorte() % p.size();
                const double b = 6.2831853 * uno(sorte);
                p[k].reale.x += 8 * sigma * std::cos(b);
                p[k].reale.y += 8 * sigma * std::sin(b);
                const EsameSbagli e = CercaSbagli(p, static_cast<Metodo>(m));
                nominati += !e.punti.empty() && e.punti[0].punto == k;
            }
            std::printf("%-10s %7d %10.1f %8.1f %8.1f %7d\n", nomi[m], n, nominati * 100.0 / prove,
                        detto * 100.0 / prove, falsi * 100.0 / prove, bastano / prove);
        }
}

}   // namespace

int main() {
    tempi();
    sbagli();
}
