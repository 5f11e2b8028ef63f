// Cadastral maps: which entity becomes what on which sheet, and what bad counts and numbers come to.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "display/palette.h"
#include "exchange/CXF.h"
#include "model/Cursore.h"
#include "model/Lucidi.h"
#include "model/Unita.h"
#include "platform/Resources.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "support/Foglio.h"
#include "support/Tasti.h"

using namespace tessaro;
using namespace prova;

namespace {

void leggi(std::string testo, std::int32_t capacita = 2000) {
    fogliovuoto(capacita);
    rappvid = 1;
    YFDecimi = 1000;
    zcurs = 4;
    for (char& c : testo)
        if (c == ' ') c = '\n';   // values stand apart by blanks here, by line ends in the file
    const FileProva file(testo);
    LeggiCXF();
}

std::string resoconto() { return avvisi.empty() ? std::string() : avvisi.back().testo; }

std::string scritta(std::int32_t n) {
    const auto& t = Elem(n).test.testo;
    return MacToUtf8({reinterpret_cast<const char*>(t.data()) + 1, t[0]});
}

TEST(CXF, ParticelleEFabbricati) {
    VisioneGraf.lucidoCorrente = 9;
    leggi("MAPPA BORDO 123 18 0 5 6 0 0 0 4 0 0 10 0 10 10 0 0 "
          "bordo 124+ 18 0 5 5 0 0 0 3 1 1 2 1 1 1 BORDO STRADA 18 0 5 5 0 0 0 1 1 1 EOF BORDO 9");
    ASSERT_EQ(indElem, 13);
    EXPECT_EQ(scritta(3), "123");
    EXPECT_EQ(Elem(3).lucido, 0);
    EXPECT_EQ(Elem(3).test.colore, 1);
    EXPECT_DOUBLE_EQ(Elem(3).test.y, 994);
    EXPECT_EQ(Elem(3).test.dimensione, 8);   // 18 tenths of a millimetre
    EXPECT_EQ(Elem(3).test.angolo, 100);
    EXPECT_EQ(Elem(4).tipo, tPoligono);
    EXPECT_EQ(Elem(4).poli.numVertici, 3);
    EXPECT_EQ(Elem(4).poli.spessore, 1);
    EXPECT_EQ(Elem(4).poli.z, 4.0);
    EXPECT_EQ(scritta(8), "124");
    EXPECT_EQ(Elem(8).lucido, 2);
    EXPECT_EQ(Elem(8).test.colore, 4);
    EXPECT_EQ(Elem(9).lucido, 1);
    EXPECT_EQ(Elem(9).poli.spessore, 2);
    EXPECT_EQ(scritta(12), "STRADA");   // a parcel like any other
    EXPECT_EQ(Elem(13).lucido, 0);
    EXPECT_EQ(VisioneGraf.lucidoCorrente, 9);
    EXPECT_EQ(resoconto(), "Imported: 3 polylines, 3 texts.");
}

TEST(CXF, LineeSimboliETesti) {
    leggi("LINEA 12 2 0 0 1 1 LINEA\\ 6 3 0 0 1 1 2 2 SIMBOLO 5 0 1 1 FIDUCIALE PF01 8 1 1 2 2 "
          "TESTO via 30 1.570796327 1 1 TESTO  18 0 1 1 LINEA 99 1 3 3");
    ASSERT_EQ(indElem, 8);
    EXPECT_EQ(Elem(3).tipo, tSegmento);
    EXPECT_EQ(Elem(3).segm.colore, 5);
    EXPECT_EQ(Elem(3).segm.z1, 0.0);
    EXPECT_EQ(Elem(3).lucido, 6);
    EXPECT_EQ(Elem(4).poli.numVertici, 2);
    EXPECT_EQ(Elem(4).poli.pattern, 3);
    EXPECT_EQ(scritta(7), "via");
    EXPECT_EQ(Elem(7).lucido, 5);
    EXPECT_EQ(Elem(7).test.angolo, 0);
    EXPECT_EQ(Elem(8).poli.pattern, 2);   // the empty text took its four lines
    EXPECT_EQ(resoconto(), "Imported: 1 segment, 2 polylines, 1 text.\nLeft out: 1 FIDUCIALE, 1 SIMBOLO.");
}

TEST(CXF, LeIsoleSiLeggonoSoloSeLAnelloEPiccolo) {
    // 3 points and 2 islands: passed over
    leggi("BORDO 1 18 0 0 0 0 0 2 9 3 3 0 0 1 0 1 1 5 5 6 5 6 6 7 7 8 7 8 8");
    EXPECT_EQ(indElem, 6);
    EXPECT_EQ(resoconto(), "Imported: 1 polyline, 1 text.\nLeft out: 2 island rings.");
    // 2 points and 2 islands: the counter stands at 1; behind the first island of 3 at 2, which ends the loop
    leggi("BORDO 1 18 0 0 0 0 0 2 8 3 3 0 0 1 0 5 5 6 5 6 6 7 7 8 7 8 8");
    EXPECT_EQ(indElem, 8);
    EXPECT_EQ(Elem(6).tipo, tPoligono);
    EXPECT_EQ(Elem(6).poli.numVertici, 2);
    // more vertices in the islands than in all: neither ring nor islands out of them
    leggi("BORDO 1 18 0 0 0 0 0 1 3 9 1 1 LINEA 1 2 0 0 1 1");
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{9110, 9110, 9110}));
    EXPECT_LE(indElem, maxElementi);
}

TEST(CXF, UnNumeroGuastoFermaConUnSoloAvviso) {
    leggi("LINEA 1 2 0 0 1 1 LINEA 1 4 0 0 1 x 2 2 3 3 LINEA 1 2 0 0 1 1");
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{1008, 9110}));
    EXPECT_NE(resoconto().find("broke off at line 14"), std::string::npos) << resoconto();
    EXPECT_EQ(indElem, 4);   // what was read stays
    EXPECT_EQ(Elem(4).poli.numVertici, 0);
    leggi("LINEA 1 x 0 0");
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(numeriAvvisi().at(2), 1012);
    leggi("LINEA 1 99999999999 0 0");   // ends with the file
    EXPECT_EQ(indElem, 3);
}

// A number beyond all range is a number, and a parcel may have more islands and vertices than is usual.
TEST(CXF, UnNumeroTroppoGrandeNonFerma) {
    leggi("LINEA 99999 2 0 0 1e99 1 LINEA 1 -99999999 0 0 LINEA 1 2 0 0 1 1");
    EXPECT_EQ(indElem, 4);
    EXPECT_EQ(Elem(3).segm.pattern, 2);
    std::string strada = "BORDO ACQUA 18 0 0 0 0 0 60 12003 ";
    for (int i = 0; i < 60; ++i) strada += "200 ";
    leggi(strada + "0 0 1 0 1 1 LINEA 1 2 0 0 1 1");
    EXPECT_EQ(scritta(3), "ACQUA");
    EXPECT_EQ(Elem(4).poli.numVertici, 2);
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{9110, 1008, 9110}));   // the lines give out in an island
    std::string lungo = "BORDO 1 18 0 0 0 0 0 1 32767 -100 ";
    for (int i = 0; i < 32867; ++i) lungo += "5 6 ";
    leggi(lungo + "LINEA 1 2 0 0 1 1", 40000);
    EXPECT_EQ(Elem(4).poli.numVertici, 32767);
    EXPECT_EQ(indElem, 4 + 32767 + 1);
}

TEST(CXF, EscFermaLaLetturaEQuantoLettoResta) {
    std::string mappa;
    for (int i = 0; i < 400; ++i) mappa += "LINEA 1 3 0 0 1 1 2 2 ";
    StrOperCorr = "";
    premiEsc();
    leggi(mappa);
    EXPECT_GT(indElem, 100);
    EXPECT_LT(indElem, 1000);
    EXPECT_NE(resoconto().find("Reading was stopped at line "), std::string::npos) << resoconto();
    // The figure that was being read has the vertices that were.
    std::int32_t atteso = 3;
    while (atteso <= indElem) atteso += 1 + Elem(atteso).poli.numVertici;
    EXPECT_EQ(atteso, indElem + 1);
    EXPECT_TRUE(StrOperCorr.view().empty());
}

TEST(CXF, NomiLunghiERiempitiDiBianchi) {
    fogliovuoto();
    rappvid = 1;
    const std::string lungo(60, 'n');
    const FileProva file(
        "TESTO\r\n" + lungo
        + "\r\n  18\r\n       0.000\r\n       1.000\r\n       1.000\r\n"
          "BORDO\r\n125+       \r\n  18\r\n 0\r\n 1\r\n 1\r\n 1\r\n 1\r\n   0\r\n   1\r\n 1\r\n 1\r\n");
    LeggiCXF();
    ASSERT_EQ(indElem, 5);
    EXPECT_EQ(scritta(3), lungo.substr(0, 40));
    EXPECT_EQ(scritta(4), "125");
    EXPECT_EQ(Elem(5).lucido, 1);
}

TEST(CXF, ArchivioPieno) {
    leggi("LINEA 1 9 0 0 1 1 2 2 3 3 4 4 5 5 6 6 7 7 8 8 LINEA 1 2 0 0 1 1", 5);
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(Elem(3).poli.numVertici, 2);
    EXPECT_NE(resoconto().find("The drawing is full."), std::string::npos) << resoconto();
}

TEST(CXF, FileVeri) {
    const char* dati = std::getenv("TESSARO_DATA");
    if (dati == nullptr) GTEST_SKIP() << "no real files: TESSARO_DATA is not set";
    for (const auto& f : std::filesystem::directory_iterator(std::filesystem::path(dati) / "cxf")) {
        fogliovuoto();
        rappvid = 1;
        ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(f.path().string()), fsRdPerm, RefNum), noErr) << f.path();
        LeggiCXF();
        FSClose(RefNum);
        EXPECT_LE(indElem, maxElementi);
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).tipo == tPoligono) { EXPECT_LE(n + Elem(n).poli.numVertici, indElem) << f.path(); }
        if (f.path().filename() == "synth_all_elements.cxf") { EXPECT_GT(indElem, 20); }
    }
}

}   // namespace
