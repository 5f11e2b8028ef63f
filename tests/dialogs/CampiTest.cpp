// Fields of dialogs: bounds that hold, refused values that say why and leave the old value alone.
#include <gtest/gtest.h>

#include "dialogs/Parametri.h"
#include "model/Documento.h"
#include "support/Avvisi.h"
#include "text/FileDati.h"

using namespace tessaro;

namespace {

constexpr std::int16_t dialogoPunto = 2024;   // three fields: items 4, 6, 8
constexpr std::int16_t campoX = 4;

class Campi : public testing::Test {
protected:
    void SetUp() override { theDialog = GetNewDialog(dialogoPunto); }
    void TearDown() override {
        DisposeDialog(theDialog);
        theDialog = nullptr;
    }
};

struct ParametriDiProva : TParametri {
    using TParametri::esito;
    using TParametri::LeggiCampo;
};

TEST_F(Campi, ARefusedValueSaysWhyAndChangesNothing) {
    struct Caso {
        const char* testo;
        std::int16_t codice, avviso;
        double valore;
    };
    for (const Caso& c :
         {Caso{"5,5", 1, 0, 5.5}, Caso{"10", 1, 0, 10}, Caso{"10.001", -1, 1009, -7}, Caso{"-0.5", -2, 1010, -7},
          Caso{"1e99", -1, 1009, -7}, Caso{"cinque", -3, 1008, -7}, Caso{"", -3, 1008, -7}}) {
        prova::avvisi.clear();
        SetDialogItemText(theDialog, campoX, c.testo);
        double v = -7;
        EXPECT_EQ(LeggiCampoReale(campoX, 0, 10, v), c.codice > 0) << c.testo;
        EXPECT_EQ(err_, c.codice) << c.testo;
        EXPECT_EQ(v, c.valore) << c.testo;
        ASSERT_EQ(prova::avvisi.size(), c.avviso == 0 ? 0U : 1U) << c.testo;
        if (c.avviso != 0) { EXPECT_EQ(prova::avvisi[0].id, c.avviso) << c.testo; }
    }
}

TEST_F(Campi, IntegersAreHeldToo) {
    ParametriDiProva p;
    std::int16_t n = 3;
    SetDialogItemText(theDialog, campoX, "256");
    EXPECT_FALSE(p.LeggiCampo(campoX, std::int16_t{0}, std::int16_t{255}, n));
    EXPECT_EQ(p.esito, -1);
    EXPECT_EQ(n, 3);
    SetDialogItemText(theDialog, campoX, "25x");
    EXPECT_FALSE(p.LeggiCampo(campoX, std::int16_t{0}, std::int16_t{255}, n));
    EXPECT_EQ(p.esito, 0);
    EXPECT_EQ(inx, 2);
    SetDialogItemText(theDialog, campoX, "255");
    EXPECT_TRUE(p.LeggiCampo(campoX, std::int16_t{0}, std::int16_t{255}, n));
    EXPECT_EQ(n, 255);
    EXPECT_EQ(p.esito, 1);
}

TEST_F(Campi, NumbersGoOutWithTheirDecimals) {
    ScriviCampoReale(campoX, 4994321.1235, 3);
    EXPECT_EQ(GetDialogItemText(theDialog, campoX), "4994321.123");   // the double lies just below the half
}

int ridipinte = 0;

TEST_F(Campi, TheFilterTakesReturnAndRepaintsTheWindowBehind) {
    EventRecord e;
    std::int16_t item = 0;
    e.what = EventKind::keyDown;
    for (const std::uint32_t tasto : {13U, 3U}) {
        e.message = tasto;
        item = 0;
        EXPECT_TRUE(MyMovableFilter(theDialog, e, item));
        EXPECT_EQ(item, 1);
    }
    e.message = 'a';
    item = 0;
    EXPECT_FALSE(MyMovableFilter(theDialog, e, item));
    EXPECT_EQ(item, 0);

    void (*const prima)() = ridipingiFinestra;
    ridipingiFinestra = [] { ++ridipinte; };
    e.what = EventKind::updateEvt;
    e.window = theWindow;
    ridipinte = 0;
    EXPECT_TRUE(MyMovableFilter(theDialog, e, item));
    EXPECT_EQ(ridipinte, 1);
    EXPECT_EQ(item, 0);
    ridipingiFinestra = prima;
}

}   // namespace
