// Records and measures of a file that cannot be what they say: what comes in, what stays out, and what is told.
#include <cmath>
#include <limits>

#include "files/Disco.h"

#include "model/Carattere.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr double infinito = std::numeric_limits<double>::infinity(), nessuno = std::numeric_limits<double>::quiet_NaN();

std::string detto() { return avvisi.empty() ? std::string() : avvisi.back().testo; }

void apri(const std::vector<Byte>& elementi, const Blocchi& blocchi = {}) {
    fogliovuoto();
    avvisi.clear();
    leggiByte(disegno(12, elementi, blocchi));
}

}   // namespace

TEST(RecordGuasti, ATypeThatIsNoneAndAPlaceThatIsNoNumberStayOutAndAreCounted) {
    struct Caso {
        std::vector<Byte> elementi;
        std::int32_t entrano, fuori;
    };
    const Caso casi[] = {
        {{rSegmento(1, 2, 3, 4), record(3), rSegmento(5, 6, 7, 8)}, 2, 1},
        {{rSegmento(1, nessuno, 3, 4), record(200), rSegmento(5, 6, infinito, 8)}, 0, 3},
        {{rTesta(1, 1, 2), rVertice(2, 2, 1), rVertice(3, -infinito, 2), rSegmento(1, 2, 3, 4)}, 3, 1},
        {{rTesta(nessuno, 1, 2), rVertice(2, 2, 1), rVertice(3, 3, 2), rSegmento(1, 2, 3, 4)}, 1, 3},
    };
    for (const Caso& c : casi) {
        apri(c.elementi);
        EXPECT_EQ(indElem - 2, c.entrano);
        EXPECT_FALSE(lettoIntero);
        EXPECT_NE(detto().find(std::to_string(c.fuori) + " damaged elements were left out"), std::string::npos)
            << detto();
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).tipo == tPoligono) {
                EXPECT_EQ(Elem(n).poli.numVertici, 1);
                EXPECT_EQ(Elem(n + 1).vert.distanzaTesta, 1);
            }
    }
}

TEST(RecordGuasti, FieldsOutOfRangeAreMendedAndTheDrawingIsWhole) {
    Byte r = rSegmento(1, 2, 3, 4);
    r.i16(200, 0).i16(77, 8).u8(99, 10).i16(0, 24).i16(-3, 26).u8(1, 2);
    apri({r, rSegmento(5, 6, 7, 8)});
    ASSERT_EQ(indElem, 4);
    EXPECT_TRUE(lettoIntero);
    EXPECT_EQ(Elem(3).lucido, 0);
    EXPECT_EQ(Elem(3).selezionato, 0);
    EXPECT_EQ(Elem(3).testa.linea, 1);
    EXPECT_EQ(Elem(3).testa.categoria, 1);
    EXPECT_EQ(Elem(3).testa.insieme, 1);
    const Aref aref = Elem(3).testa.aref;
    EXPECT_EQ(aref[0], 0);
    EXPECT_NE(detto().find("1 damaged element"), std::string::npos) << detto();
}

TEST(RecordGuasti, AScaleOrUnitThatIsNothingKeepsThePresentOne) {
    Blocchi blocchi;
    apri({rSegmento(1, 2, 3, 4)}, blocchi);
    const double scala = Scaladis, unita = decimiUnita;
    for (const double v : {0.0, -5.0, infinito, nessuno}) {
        blocchi.scala = blocchi.decimi = v;
        apri({rSegmento(1, 2, 3, 4)}, blocchi);
        EXPECT_EQ(Scaladis, scala);
        EXPECT_EQ(decimiUnita, unita);
        EXPECT_TRUE(std::isfinite(rappvid) && rappvid > 0);
        EXPECT_NE(detto().find("the scale or the sheet"), std::string::npos) << detto();
    }
}
