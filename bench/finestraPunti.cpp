// How often the window of the table of control points can follow a point: solution, slips, report, table, arrows in the
// drawing and everything on the screen, for each method, with 200 points. The solution alone stands beside it.
#include <cmath>
#include <random>

#include "display/Ridisegno.h"
#include "Misure.h"
#include "model/TabellaStato.h"
#include "Muto.h"
#include "registration/TabellaPunti.h"
#include "shell/Archivia.h"
#include "shell/FinestraPunti.h"
#include "shell/Inizializza.h"

namespace {

using namespace misure;

TabellaPunti tabella(std::size_t punti, Metodo metodo) {
    std::mt19937 sorte(3);
    std::normal_distribution<double> rumore(0, 0.05);
    TabellaPunti t;
    for (std::size_t i = 0; i < punti; ++i) {
        RigaPunto r;
        r.nome = "c" + std::to_string(i);
        r.foglio = {200.0 + 180 * static_cast<double>(i % 20), 200.0 + 240 * static_cast<double>(i / 20)};
        r.reale = {1654000 + 0.1 * r.foglio.x + rumore(sorte), 4980000 - 0.1 * r.foglio.y + rumore(sorte)};
        r.conFoglio = r.conReale = true;
        t.righe.push_back(r);
    }
    t.metodo = metodo;
    return t;
}

}   // namespace

int main(int argc, char** argv) {
    avvia(argc, argv);
    Initialize();
    LeggiImpostazioni();
    SetUpWindow();
    ApriPunti();
    constexpr const char* nomi[] = {"similarity", "affine", "projective", "second order", "third order", "thin plate"};
    constexpr std::size_t punti = 200;
    constexpr int giri = 20;
    std::printf("%-14s %14s %18s   at least 30 a second\n", "", "solved alone", "window and drawing");
    for (int m = 0; m < numMetodi; ++m) {
        TabellaPunti t = tabella(punti, static_cast<Metodo>(m));
        const auto sposta = [&] {
            t.righe[7].foglio.x += 0.1;
            PoniTabella(t);
        };
        const auto dentro = [&] {
            sposta();
            AggiornaPunti();
            Ridisegna();
            CheckEvents();
        };
        dentro();
        double somma = 0;
        const double solo = millisecondi([&] {
            for (int i = 0; i < giri; ++i) {
                sposta();
                somma += StatoTabella().soluzione.errore;
            }
        });
        const double tutto = millisecondi([&] {
            for (int i = 0; i < giri; ++i) dentro();
        });
        std::printf("%-14s %10.0f / s %14.0f / s%s\n", nomi[m], giri * 1000 / solo, giri * 1000 / tutto,
                    somma < 0 ? " " : "");
    }
    ChiudiPunti();
    StopToolbox();
    return 0;
}
