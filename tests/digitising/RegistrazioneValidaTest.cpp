// Registrations that would be infinite, copies without their points, moves without an end: all refused, nothing changed.
#include "digitising/RegistrazioneValida.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "digitising/Attacchi.h"
#include "digitising/AttaccoAggiungi.h"
#include "digitising/AttaccoDialogo.h"
#include "editing/AttacchiCambiati.h"
#include "editing/Sposta.h"
#include "model/Cursore.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "platform/Automation.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

// Points 1 and 2 of the sheet with their real coordinates, switched on.
void registra(double x1, double y1, double x2, double y2, double X2 = 100) {
    AssegnaAttacco(1, x1, y1);
    AssegnaAttacco(2, x2, y2);
    auto& r = Elem(2).att;
    r.x1 = r.y1 = r.y2 = 50;
    r.x2 = X2;
    r.coordReali = 1;
}

}   // namespace

TEST(RegistrazioneValida, PointsInOnePlaceAreNamed) {
    struct Caso {
        double x2, X2;
        const char* dice;   // null: nothing wrong
    };
    for (const Caso& c : {Caso{900, 100, nullptr}, Caso{100.0005, 100, "1 and 2 lie in the same place"},
                          Caso{900, 50, "real coordinates of control points 1 and 2 are the same"}}) {
        fogliovuoto();
        registra(100, 200, c.x2, 200, c.X2);
        const std::string guasto = GuastoRegistrazione(Elem(1), Elem(2));
        EXPECT_EQ(guasto.empty(), c.dice == nullptr) << guasto;
        EXPECT_TRUE(c.dice == nullptr || guasto.find(c.dice) != std::string::npos) << guasto;
        Elem(2).att.coordReali = 0;
        EXPECT_EQ(GuastoRegistrazione(Elem(1), Elem(2)), "");
    }
}

TEST(RegistrazioneValida, APointSetOntoTheOtherStaysWhereItWas) {
    fogliovuoto();
    registra(100, 200, 900, 200);
    AttacchiCambiati();
    const TransfRec prima = TransfCoord;
    XDigit = 100;
    YDigit = 200;
    IntroDigitale = 1;
    Attacco(2);
    EXPECT_EQ(LeggiAttacco(2).x, 900);
    EXPECT_EQ(TransfCoord.ingr, prima.ingr);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9151});
}

TEST(RegistrazioneValida, CopiesWantTheirPointsAndGoByTheOnesOfNow) {
    fogliovuoto();
    segmento(200, 300, 400, 300);
    Elem(3).selezionato = 1;
    Puntosel = {1, 0, 1, oSegmento, 3};
    passoDialogo = [](DialogPtr d) { return AutoDialogClick(d, 1); };
    attaccoAttivo.tipo = 0;
    Aggiungi();
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9150});
    AssegnaAttacco(1, 100, 100);
    AssegnaAttacco(2, 500, 100);
    AttacchiCambiati();
    attaccoAttivo.SetXYAtt(0, 1100, 100);
    attaccoAttivo.SetXYAtt(1, 1500, 100);
    Aggiungi();   // nobody prepared it
    ASSERT_EQ(indElem, 4);
    EXPECT_NEAR(Elem(4).segm.x1, 1200, 1e-9);
    EXPECT_NEAR(Elem(4).segm.y1, 300, 1e-9);
}

TEST(RegistrazioneValida, AMoveWithoutAnEndMovesNothing) {
    fogliovuoto();
    segmento(200, 300, 400, 300);
    Elem(3).selezionato = 1;
    Puntosel = {1, 0, 1, oSegmento, 3};
    for (const double d : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        XDeltaSpost = d;
        SpostaSelezione();
        XDeltaSpost = d;
        SpostaTutto();
        EXPECT_EQ(Elem(3).segm.x1, 200);
        EXPECT_EQ(XDeltaSpost, 0);
    }
}
