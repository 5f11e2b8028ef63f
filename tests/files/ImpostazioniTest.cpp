// Settings: the start settings text, the graphics parameters and the colour table, whole, short and missing.
#include "files/Disco.h"

#include "editing/SceltaColori.h"
#include "files/Blocchi.h"
#include "files/Impostazioni.h"
#include "files/ParamGraf.h"
#include "model/Colori.h"
#include "model/Documento.h"
#include "model/Unita.h"
#include "platform/Automation.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

std::string impostazione(const char* nome) { return SettingsFolder() + "/" + nome; }

struct Impostazioni : testing::Test {
    void TearDown() override {
        for (const char* nome : {"TESSCONT", "PGraf56", "ParamColor"}) std::filesystem::remove(impostazione(nome));
    }
};

void avvia() {
    inizio = 1;
    ParamGraf();
    inizio = 0;
}

}   // namespace

TEST_F(Impostazioni, TheInstalledStartSettingsAreWhole) {
    maxElementi = 0;
    Xfoglio = btav = 0;
    leggiparam();
    EXPECT_TRUE(avvisi.empty());
    EXPECT_EQ(maxElementi, 1500000);
    EXPECT_EQ(Xfoglio, 42.0);
    EXPECT_EQ(btav, 4200);
    EXPECT_EQ(decTessCont, 10000);
    EXPECT_EQ(puntimm, 40);
    EXPECT_EQ(GialloVers, 7);
}

TEST_F(Impostazioni, LinesAreReadInOrderAndRefusedOnesAreNamedTogether) {
    const char* const righe[] = {"Calcomp", "3",  "7",  "2",  "3",  "600",  "700",   "59.4", "42", "2000000", "10",
                                 "11",      "12", "13", "14", "15", "1000", "500.5", "254",  "8",  "0"};
    std::string testo;
    for (const char* r : righe) testo += std::string("! remark\r\n") + r + "\r\n";
    metti(impostazione("TESSCONT"), testo);
    leggiparam();
    EXPECT_EQ(strTav.str(), "Calcomp");
    EXPECT_EQ(databit, 7);
    EXPECT_EQ(htav, 700);
    EXPECT_EQ(yfoglio, 42);
    EXPECT_EQ(maxElementi, 1500000);
    EXPECT_EQ(MagentaVers, 15);
    EXPECT_EQ(GialloVers, 255);   // the nearest bound
    EXPECT_EQ(Scaladis, 500.5);
    EXPECT_EQ(decTessCont, 254);
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
    EXPECT_NE(avvisi[0].testo.find("17"), std::string::npos);

    // A file that ends early leaves what it does not tell, and never a store without room.
    avvisi.clear();
    metti(impostazione("TESSCONT"), "Tablet\n1\n8\n1\nx\n4200\n3000\n42\n29.7\n-5\n");
    puntimm = 33;
    leggiparam();
    EXPECT_EQ(puntimm, 33);
    EXPECT_GE(maxElementi, 3);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
}

TEST_F(Impostazioni, GraphicsParametersAreSavedByteForByteAndComeBack) {
    ItemUnit = 14;
    UnitaMCorrente = 2;
    decimiUnita = 10000;
    Scaladis = 250;
    DataUltima = 1.5;
    Xfoglio = 59.4;
    XFDecimi = 5940;
    yfoglio = 42;
    YFDecimi = 4200;
    LargTav = 60;
    btav = 6000;
    AltTav = 45;
    htav = 4500;
    tipoAngolo = 0;
    metti(impostazione("PGraf56"), std::string(80, '?'));   // a longer file keeps its tail
    TParamGraf().scrivipar();
    Byte atteso;
    atteso.i16(14).u8(2).u8(0).u8(0).u8(0).f64(10000).f64(250).f64(1.5).f64(59.4).i16(5940).f64(42).i16(4200);
    atteso.f64(60).i16(6000).f64(45).i16(4500).i16(0).byte("????????");
    EXPECT_EQ(contenuto(impostazione("PGraf56")), atteso);

    AzzeraStato();
    fogliovuoto();
    avvia();
    EXPECT_EQ(ItemUnit, 14);
    EXPECT_EQ(UnitaMCorrente, 2);
    EXPECT_EQ(Scaladis, 250);
    EXPECT_EQ(XFDecimi, 5940);
    EXPECT_EQ(btav1, 6000);
    EXPECT_EQ(tipoAngolo, 0);
    EXPECT_EQ(rappvid, 0.025);
}

TEST_F(Impostazioni, MissingGraphicsParametersTakeTheirDefaultsInSilenceAndShortOnesSaySo) {
    Byte corto;
    corto.i16(13).u8(1).u8(0).u8(0).u8(0).f64(100).f64(77).f64(0).f64(80).i16(8000);
    for (const bool manca : {true, false}) {
        AzzeraStato();
        fogliovuoto();
        uscita = 1;
        btav = 5000;
        htav = 4000;
        LargTav = AltTav = 1;
        if (!manca) metti(impostazione("PGraf56"), corto);
        avvia();
        EXPECT_EQ(avvisi.empty(), manca);
        EXPECT_EQ(ItemUnit, 18);
        EXPECT_EQ(UnitaMCorrente, 6);
        EXPECT_EQ(tipoAngolo, 1);
        EXPECT_EQ(LargTav, 50);
        EXPECT_EQ(htav, 4000);
        EXPECT_EQ(Scaladis, manca ? 1000 : 77);
        EXPECT_EQ(XFDecimi, manca ? 4200 : 8000);
        EXPECT_EQ(uscita, 0);
    }
}

TEST_F(Impostazioni, AnAttachmentInForceOverridesTheScale) {
    fogliovuoto();
    Elem(1).att1.x2 = 100;
    Elem(2).att.x2 = 50;
    Elem(2).att.y2 = 0;
    Elem(2).att.coordReali = 1;
    avvia();
    EXPECT_EQ(rappvid, 0.5);
    EXPECT_EQ(Scaladis, 5000);
}

TEST_F(Impostazioni, TheDialogRefusesASheetOutOfBoundsAndKeepsCancelDimmed) {
    fogliovuoto();
    noWindow = 1;
    int passo = 0;
    passoDialogo = [&](DialogPtr d) {
        switch (passo++) {
        case 0: return AutoDialogSetText(d, 6, "250");
        case 1: return AutoDialogClick(d, 1);
        case 2: {
            std::string annulla;
            AutoDialogDescribe(d, 2, annulla);
            EXPECT_NE(annulla.find("disabled"), std::string::npos);
            return AutoDialogSetText(d, 6, "84.1");
        }
        case 3: return AutoDialogClick(d, 12);
        case 4: return AutoDialogClick(d, 1);
        default: return false;
        }
    };
    EXPECT_TRUE(ParamGraf());
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{1009});
    EXPECT_EQ(Xfoglio, 84.1);
    EXPECT_EQ(XFDecimi, 8410);
    EXPECT_EQ(UnitaMCorrente, 0);
    EXPECT_EQ(decimiUnita, 10);
    EXPECT_EQ(rappvid, 100);
}

TEST_F(Impostazioni, ColoursComeInTheMachinesOwnOrder) {
    Byte b;
    const std::uint16_t rgb[3] = {1000, 2000, 3000};
    Byte uno(30);
    uno.u8(3, 0).byte("Uno", 1).byte({reinterpret_cast<const char*>(rgb), 6}, 22).i16(12, 28);
    metti(impostazione("ParamColor"), b.i16(1).byte(uno).byte("an old tail"));
    SceltaColori(1);
    EXPECT_EQ(coloriPresenti, 1);
    EXPECT_EQ(arrColori[0].rgb, (RGBColor{1000, 2000, 3000}));
    EXPECT_EQ(arrColori[0].penna, 12);
    // Damaged or missing: the seven fixed ones.
    for (const int quanti : {301, -1, 2}) {
        metti(impostazione("ParamColor"), Byte().i16(quanti).byte(uno));
        SceltaColori(1);
        EXPECT_EQ(coloriPresenti, 7) << quanti;
        EXPECT_EQ(arrColori[6].rgb, (RGBColor{64034, 65535, 5125}));
        EXPECT_EQ(uscita, 0);
    }
    EXPECT_TRUE(avvisi.empty());
}
