// What is typed into the table of control points 1 to 5, against the dialogs that take the same.
#include "digitising/CelleAttacchi.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>

#include "model/Cursore.h"
#include "model/Strumento.h"
#include "model/Unita.h"
#include "model/Vista.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"
#include "support/Passi.h"
#include "text/FileDati.h"

using namespace tessaro;
using namespace prova;

namespace {

std::array<unsigned char, sizeof(elemento)> byteDi(std::int32_t n) {
    return std::bit_cast<std::array<unsigned char, sizeof(elemento)>>(Elem(n));
}

struct CelleAttacchi : testing::Test {
    AttesaAttacchi attesa;
    void SetUp() override {
        fogliovuoto();
        attesa = AttesaDelMomento();
    }
    bool scrivi(std::int16_t n, std::int16_t colonna, const char* testo) {
        return ScriviCellaAttacco(attesa, n, colonna, testo);
    }
    [[nodiscard]] std::string cella(std::int16_t n, std::int16_t colonna) const {
        std::string riga = RigheAttacchi(attesa)[static_cast<std::size_t>(n - 1)];
        for (std::int16_t c = 1; c < colonna; ++c) riga.erase(0, riga.find('\t') + 1);
        return riga.substr(0, riga.find('\t'));
    }
    void punto(std::int16_t n, const char* x, const char* y) {
        EXPECT_TRUE(scrivi(n, caFoglioX, x));
        EXPECT_TRUE(scrivi(n, caFoglioY, y));
    }
};

}   // namespace

TEST_F(CelleAttacchi, APointThatDoesNotExistComesWithItsSecondCoordinate) {
    EXPECT_TRUE(scrivi(3, caFoglioY, "500,25"));   // a decimal comma is one too
    EXPECT_EQ(cella(3, caFoglioY), "500.250");
    EXPECT_EQ(LeggiAttacco(3).y, 0);
    EXPECT_EQ(Elem(2).att.quattroPunti, 0);
    EXPECT_TRUE(scrivi(3, caFoglioX, "700"));
    EXPECT_EQ(LeggiAttacco(3).x, 700);
    EXPECT_EQ(LeggiAttacco(3).y, 500.25);
    EXPECT_NE(Elem(2).att.quattroPunti, 0);
    // By its real place: the sheet's scale alone, Y from its foot.
    EXPECT_TRUE(scrivi(5, caRealeX, "10"));
    EXPECT_EQ(OKAttacco5, 0);
    EXPECT_TRUE(scrivi(5, caRealeY, "20"));
    EXPECT_NE(OKAttacco5, 0);
    EXPECT_NEAR(LeggiAttacco(5).x, 10 / rappvid, 1e-9);
    EXPECT_NEAR(LeggiAttacco(5).y, YFDecimi - 20 / rappvid, 1e-9);
    EXPECT_EQ(cella(5, caRealeY), "20.000");
    EXPECT_TRUE(avvisi.empty());
}

TEST_F(CelleAttacchi, WhatTheDialogsRefuseIsRefusedWithTheirWords) {
    punto(1, "100", "200");
    punto(2, "900", "200");
    struct Caso {
        std::int16_t n, colonna;
        const char* testo;
        std::int16_t avviso;
    };
    for (const Caso& c : {Caso{1, caFoglioX, "", 1008}, Caso{1, caFoglioX, "12a", 1008}, Caso{1, caFoglioX, "-5", 1014},
                          Caso{4, caRealeX, "1e31", 1009}, Caso{1, caRealeY, "1000000001", 1009},
                          Caso{2, caDestinazioneX, "-1000000001", 1010}, Caso{1, caResiduo, "5", 0}}) {
        avvisi.clear();
        const auto primo = byteDi(1), secondo = byteDi(2);
        const auto x = attaccoAttivo.xAtt, y = attaccoAttivo.yAtt;
        const std::uint8_t prima = uscita;
        EXPECT_FALSE(scrivi(c.n, c.colonna, c.testo)) << c.testo;
        EXPECT_EQ(byteDi(1), primo) << c.testo;
        EXPECT_EQ(byteDi(2), secondo) << c.testo;
        EXPECT_TRUE(x == attaccoAttivo.xAtt && y == attaccoAttivo.yAtt);
        EXPECT_EQ(uscita, prima);
        const auto attesi = c.avviso != 0 ? std::vector<std::int16_t>{c.avviso} : std::vector<std::int16_t>{};
        EXPECT_EQ(numeriAvvisi(), attesi) << c.testo;
    }
}

TEST_F(CelleAttacchi, TheLastOfTheFourRealCoordinatesRegistersTheSheet) {
    punto(1, "100", "2000");
    punto(2, "1100", "2000");
    EXPECT_TRUE(scrivi(1, caRealeX, "0"));   // a nought that was typed counts
    EXPECT_TRUE(scrivi(1, caRealeY, "0"));
    EXPECT_TRUE(scrivi(2, caRealeX, "500"));
    EXPECT_EQ(Elem(2).att.coordReali, 0);
    EXPECT_EQ(cella(2, caRealeY), "");
    EXPECT_TRUE(scrivi(2, caRealeY, "0"));
    EXPECT_NE(Elem(2).att.coordReali, 0);
    EXPECT_NEAR(rappvid, 0.5, 1e-12);
    double X = 0, Y = 0;
    DigiToReal(100, 1000, X, Y);
    EXPECT_NEAR(X, 0, 1e-6);
    EXPECT_NEAR(Y, 500, 1e-3);
    // Another place of point 2 counts at once; one on point 1 is refused in the dialog's words.
    EXPECT_TRUE(scrivi(2, caFoglioX, "600"));
    EXPECT_NEAR(TransfCoord.ingr, 1, 1e-12);
    EXPECT_FALSE(scrivi(2, caFoglioX, "100"));
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9151});
    EXPECT_EQ(LeggiAttacco(2).x, 600);
    EXPECT_FALSE(scrivi(2, caRealeX, "0"));
    EXPECT_EQ(double{Elem(2).att.x2}, 500);
    EXPECT_TRUE(AccendiReali(false));
    EXPECT_EQ(Elem(2).att.coordReali, 0);
}

TEST_F(CelleAttacchi, WithoutPlacesOnTheSheetRealCoordinatesWait) {
    for (const auto& [n, colonna] : {std::pair{1, caRealeX}, {1, caRealeY}, {2, caRealeX}, {2, caRealeY}})
        EXPECT_TRUE(scrivi(static_cast<std::int16_t>(n), colonna, n == 1 ? "100" : "300"));
    EXPECT_EQ(Elem(2).att.coordReali, 0);
    EXPECT_EQ(cella(2, caRealeY), "300.000");
    EXPECT_FALSE(AccendiReali(true));
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9151});
    punto(1, "100", "2000");
    punto(2, "1100", "2000");
    EXPECT_TRUE(AccendiReali(true));
    EXPECT_NE(Elem(2).att.coordReali, 0);
}

TEST_F(CelleAttacchi, ADestinationMovesThatPointAloneAndThePreviewFollows) {
    punto(1, "100", "900");
    punto(2, "100", "100");
    punto(3, "900", "100");
    punto(4, "900", "900");
    attaccoAttivo.SetModificato(1);
    const auto x = attaccoAttivo.xAtt, y = attaccoAttivo.yAtt;
    EXPECT_TRUE(scrivi(3, caDestinazioneX, "250"));
    EXPECT_NEAR(attaccoAttivo.xAtt[2], 250 / rappvid, 1e-6);
    EXPECT_NEAR(attaccoAttivo.yAtt[2], y[2], 1e-9);
    for (const std::size_t i : {0U, 1U, 3U, 4U})
        EXPECT_TRUE(attaccoAttivo.xAtt[i] == x[i] && attaccoAttivo.yAtt[i] == y[i]);
    double px = 900, py = 100;
    attaccoAttivo.Traf4Pt(px, py);
    EXPECT_NEAR(px, attaccoAttivo.xAtt[2], 1e-6);
    EXPECT_EQ(cella(3, caUso), "transform");
    EXPECT_FALSE(cella(3, caResiduo).empty());
    EXPECT_TRUE(cella(5, caResiduo).empty());   // not given
}

TEST_F(CelleAttacchi, AFigureInProgressKeepsItsRubberBandAndUndoTakesThePointAlone) {
    const ConGiornale giornale;
    punto(1, "100", "200");
    finePasso();
    Azione = sPrimoPunto;
    operazCorrente = opPolilinea;
    Xini = 500;
    Yini = 600;
    Xfine = 700;
    Yfine = 800;
    zcurs = 7;
    finePasso();
    EXPECT_TRUE(scrivi(1, caFoglioX, "300"));
    EXPECT_TRUE(finePasso());
    EXPECT_EQ(Azione, sPrimoPunto);
    EXPECT_TRUE(Xini == 500 && Yini == 600 && Xfine == 700 && Yfine == 800 && zcurs == 7);
    EXPECT_EQ(IntroDigitale, 0);
    annulla();
    EXPECT_EQ(LeggiAttacco(1).x, 100);
    EXPECT_EQ(XA1, 100);
    ripeti();
    EXPECT_EQ(LeggiAttacco(1).x, 300);
}
