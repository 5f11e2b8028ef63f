// What is dragged along between the two clicks of a move.
#include "display/Contorno.h"

#include "../display/Scena.h"
#include "display/RiquadroTesto.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Selezione.h"
#include "model/Strumento.h"

using namespace tessaro;
using namespace prova;

TEST(Contorno, ATurnedTextIsDraggedAsItsOwnBox) {
    for (const std::int16_t angolo : {std::int16_t{100}, std::int16_t{130}, std::int16_t{200}}) {
        FinestraProva f;
        FinestraProva::vedi(1, 0, 0);
        const std::int32_t n = testo(300, 200, "Strada vicinale", angolo);
        Puntosel = {1, 0, 1, oTesto, n};
        EraseRect(myViewRect);
        Modalita = mSpostamento;
        Sposta2ndClick = 1;
        XSpost1 = xcurs = 100;
        YSpost1 = ycurs = 100;
        DisegnaContorno();
        const auto neri = [&f](const PuntoD& p) {
            int quanti = 0;
            for (int dy = -2; dy <= 2; ++dy)
                for (int dx = -2; dx <= 2; ++dx)
                    quanti += f.porta().pixel(static_cast<int>(p.h) + dx, static_cast<int>(p.v) + dy) == nero;
            return quanti;
        };
        for (const PuntoD& p : AngoliTesto(Elem(n))) EXPECT_GT(neri(p), 0) << angolo;
        DisegnaContorno();
        for (const PuntoD& p : AngoliTesto(Elem(n))) EXPECT_EQ(neri(p), 0) << angolo;
    }
}
