// The script's bytes: head, pen commands only on a change, chained segments, markers, texts.
#include <gtest/gtest.h>

#include <algorithm>

#include "exchange/MiniCad.h"
#include "exchange/Versa.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

void prepara() {
    fogliovuoto();
    rappvid = 1;
    RappPunti = 1;
    YFDecimi = 1000;
    UnitaMCorrente = 2;
    stUniM = "m";
    ColoriPredefiniti();
}

std::string scrivi(void (*opera)()) {
    FileProva file("", fsRdWrPerm);
    opera();
    std::string s = file.contenuto();
    std::replace(s.begin(), s.end(), '\r', '\n');
    return s;
}
std::string due() {
    return scrivi([] { ScriviObjectCreationCode(due_D); });
}
std::string tre() {
    return scrivi([] { ScriviObjectCreationCode(tre_D); });
}

constexpr const char* penna = "PenFore(0,0,0);\nPenPat(2);\nPenSize(1);\n";

TEST(MiniCad, UnitaDiMisura) {
    prepara();
    struct Caso {
        std::int16_t unita;
        double decimi;
        const char* riga;
    };
    for (const Caso& c : {Caso{2, 10000, "SetUnits(1000,1000,0,2.5401e-02,'m','m2');\n"},
                          Caso{4, 254.00508, "SetUnits(1000,1000,2,1.0,'\"','in2');\n"},
                          Caso{5, 3048.06096, "SetUnits(1000,1000,2,8.3333e-02,''','sqr ft');\n"}}) {
        UnitaMCorrente = c.unita;
        decimiUnita = c.decimi;
        EXPECT_EQ(scrivi(ScriviGlobalCharacteristics), c.riga);
    }
}

TEST(MiniCad, SegmentiAttaccatiSonoUnaLinea) {
    prepara();
    segmento(0, 1000, 1, 1000);
    segmento(1, 1000, 2, 999, 0, 5);
    const std::string uno = "Poly(\n0.0000m,0.0000m,\n1.0000m,0.0000m,\n2.0000m,1.0000m\n);\n";
    EXPECT_EQ(due(), penna + uno);
    segmento(2, 999, 3, 999);   // its start lies at another elevation
    EXPECT_EQ(due(), std::string(penna)
                         + "Poly(\n0.0000m,0.0000m,\n1.0000m,0.0000m,\n2.0000m,1.0000m,\n"
                           "3.0000m,1.0000m\n);\n");
    EXPECT_EQ(tre(), std::string(penna)
                         + "Poly3D(\n0.0000m,0.0000m,0.0000m,\n1.0000m,0.0000m,0.0000m,\n2.0000m,1.0000m,5.0000m\n);\n"
                           "Poly3D(\n2.0000m,1.0000m,0.0000m,\n3.0000m,1.0000m,0.0000m\n);\n");
    spessore = 3;
    NumPat = 4;
    segmento(3, 999, 4, 999);   // another pen
    EXPECT_NE(due().find("3.0000m,1.0000m\n);\nPenPat(4);\nPenSize(42);\nPoly(\n3.0000m,1.0000m,\n"),
              std::string::npos);
}

TEST(MiniCad, PolilineeTestiEFogliNascosti) {
    prepara();
    polilinea({{0, 1000}, {1, 1000}, {1, 999}});
    VisioneGraf.lucidoCorrente = 5;
    VisioneGraf.visibile[5] = 0;
    segmento(0, 0, 1, 1);
    VisioneGraf.lucidoCorrente = 0;
    cerchio(5, 5, 5);
    gFontID = 3;
    gFontSize = 10;
    gTxStyle.face = 1 | 2;
    testo(0, 1000, "d'oro");
    const std::string poli = std::string(penna) + "Poly(\n0.0000m,0.0000m,\n1.0000m,0.0000m,\n1.0000m,1.0000m\n);\n";
    EXPECT_EQ(due(), poli
                         + "TextFace([\nBOLDITALIC]);\nTextFont(3);\nTextSize(10);\nTextFlip(0);\nTextRotate(#0);\n"
                           "TextOrigin(0.0000m,35.2778m);\nBeginText;\nd'oro\nEndText;\n");
    VisioneGraf.mostraTesti = 0;
    EXPECT_EQ(due(), poli);
}

TEST(MiniCad, FormeDeiMarker) {
    struct Caso {
        int forma;
        const char* comando;
        int quanti2D, quanti3D;   // how often: the command in 2D, an outline in 3D
    };
    for (const Caso& c : {Caso{1, "Poly(\n", 4, 4}, Caso{2, "Poly(\n", 1, 1}, Caso{3, "Rect(\n", 1, 1},
                          Caso{4, "Poly(\n", 2, 2}, Caso{5, "Oval(\n", 1, 1}, Caso{6, "Poly(\n", 0, 0}}) {
        prepara();
        marker(10, 990, 7, c.forma);
        const auto volte = [](const std::string& s, const std::string& cosa) {
            int n = 0;
            for (auto p = s.find(cosa); p != std::string::npos; p = s.find(cosa, p + 1)) ++n;
            return n;
        };
        EXPECT_EQ(volte(due(), c.comando), c.quanti2D) << c.forma;
        EXPECT_EQ(volte(tre(), "Poly3D(\n"), c.quanti3D) << c.forma;
    }
    prepara();
    marker(10, 990, 7, 3);
    EXPECT_EQ(due(), std::string(penna) + "Rect(\n8.0000m,12.0000m,\n12.0000m,8.0000m\n);\n");
}

TEST(MiniCad, IlRendicontoDiceCheCosaManca) {
    prepara();
    polilinea({{0, 1000}, {1, 1000}});
    cerchio(5, 5, 5);
    marker(1, 1, 0, 9);
    testo(1, 1, "a");
    VisioneGraf.lucidoCorrente = 5;
    VisioneGraf.visibile[5] = 0;
    polilinea({{0, 1000}, {1, 1000}, {2, 2}});
    Scritti conti;
    FileProva file("", fsRdWrPerm);
    conti = ScriviObjectCreationCode(due_D);
    MostraScritti(conti, TestoScambio::nonNegliScript);
    EXPECT_EQ(avvisi.back().testo, "Exported: 1 polyline, 1 text.\n"
                                   "Left out: 1 circle, 1 marker of a shape that the format has no lines for, "
                                   "1 element that is not shown.\n"
                                   "Layers, tags, categories, sets and hatching are not part of this format.");
}

TEST(Versa, ScriveIlBloccoDiInformazioni) {
    FileProva file("", fsRdWrPerm);
    TScriviVersa v;
    v.ScriviSegs();
    EXPECT_EQ(v.conto, 128);
    EXPECT_EQ(file.contenuto(), std::string(128, '\0'));
}

}   // namespace
