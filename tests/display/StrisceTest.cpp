// A repaint in bands by threads leaves the pixels that a single scan leaves.
#include "display/Strisce.h"

#include <random>

#include "bitmap/PerRighe.h"
#include "display/Disegno.h"
#include "model/Lucidi.h"
#include "Scena.h"

using namespace tessaro;
using namespace prova;

namespace {

// Figures of every kind in every pen, some far larger than the view, over each other.
void miscuglio(std::uint32_t seme, bool interi) {
    std::mt19937 caso(seme);
    std::uniform_real_distribution<double> posto(-80, 480), passo(-60, 60), grande(-3e4, 3e4);
    std::uniform_int_distribution<int> cento(0, 99);
    for (int k = 0; k < 600; ++k) {
        const double x = posto(caso), y = posto(caso);
        const int n = cento(caso);
        spessore = static_cast<std::int16_t>(1 + n % 5);
        colorCorrente = static_cast<std::int16_t>(1 + n % 7);
        NumPat = static_cast<std::int16_t>(1 + n % 30);
        NumAreaPat = static_cast<std::int16_t>(n % 4 == 0 ? n % 20 : 0);
        if (n < 40) {
            segmento(x, y, x + passo(caso), y + passo(caso));
        } else if (n < 46) {
            segmento(x, y, grande(caso), grande(caso));
        } else if (n < 56) {
            marker(x, y, 0, 1 + n % 6);
        } else if (n < 66) {
            cerchio(x, y, std::abs(passo(caso)));
        } else if (n < 69) {
            cerchio(x, grande(caso), std::abs(grande(caso)));
        } else if (n < 78) {
            arco(x, y, 10 + std::abs(passo(caso)), n * 7, n * 3);
        } else if (n < 80) {
            arco(grande(caso), y, std::abs(grande(caso)), n, 200);
        } else if (n < 92) {
            const std::int32_t testa = polilinea(
                {{x, y}, {x + passo(caso), y + passo(caso)}, {x + passo(caso), y + passo(caso)}, {x + 9, y - 30}});
            if (interi && n < 84) {
                Elem(testa).poli.tratteggio = 1;
                Elem(testa).poli.passoTratt = 0.05F;
            }
        } else {
            testo(x, y, "Particella 12/b", static_cast<std::int16_t>(n * 4));
            Elem(indElem).test.larghezza = 90;
        }
        Elem(indElem).lucido = static_cast<std::int16_t>(n % 3);
    }
}

int diversi(const Scena& s, const std::vector<std::uint32_t>& voluti) {
    const auto trovati = s.immagine();
    int n = 0;
    for (std::size_t i = 0; i < voluti.size(); ++i) n += trovati[i] != voluti[i];
    return n;
}

}   // namespace

TEST(Strisce, ManyThreadsLeaveThePixelsOfOne) {
    for (const bool interi : {false, true})
        for (const std::int32_t ratio : {1, 2})
            for (const double scala : {1.0, 2.7}) {
                SCOPED_TRACE(testing::Message()
                             << "whole records " << interi << ", ratio " << ratio << ", scale " << scala);
                Scena s(400, 300);
                s.porta.resize(400, 300, ratio);
                Scena::scala(scala);
                OrigX = 13;
                OrigY = -7;
                ClipRect(Rect{21, 17, 283, 391});
                miscuglio(7, interi);   // a seed whose large figures leave most of the view to the small ones
                filiRaster = 1;
                Disegna();
                const auto uno = s.immagine();
                for (const std::int32_t fili : {2, 3, 7}) {
                    s.pulisci();
                    (void)s.porta.PrendiSporco();
                    filiRaster = fili;
                    sogliaStrisce = 1;
                    Disegna();
                    EXPECT_EQ(diversi(s, uno), 0) << fili << " threads";
                    EXPECT_TRUE(ScandisciAStrisce());   // the bands were there to be compared
                    EXPECT_EQ(UnionRect(s.porta.PrendiSporco().box(), Rect{21, 17, 283, 391}),
                              (Rect{21, 17, 283, 391}));
                }
            }
}
