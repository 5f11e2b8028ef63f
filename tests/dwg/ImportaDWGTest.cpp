// What each class of a file's entities becomes in the drawing.
#include "dwg/Dwg.h"
#include "model/Lucidi.h"

#include <cmath>

using namespace prova;

namespace {

// Real coordinates are sheet coordinates with Y turned over: Y 0 is at 1000.
class ImportaDWG : public testing::Test {
protected:
    void SetUp() override { foglioDxf(); }
    std::string leggi(const std::string& gruppiEntita, const std::string& prima = {}) {
        return importaDxf(prima + entita(gruppiEntita));
    }
    std::int32_t quanti(std::uint8_t tipo) {
        std::int32_t n = 0;
        for (std::int32_t i = 3; i <= indElem; ++i) n += Elem(i).tipo == tipo;
        return n;
    }
    static std::string scritta(std::int32_t i) {
        const auto& t = Elem(i).test.testo;
        return {reinterpret_cast<const char*>(t.data()) + 1, t[0]};
    }
};

TEST_F(ImportaDWG, aLineKeepsBothElevationsAndLiesOnSheetOne) {
    leggi("0 LINE,8 muri,6 DASHED,370 100,10 1,20 2,30 3,11 4,21 5,31 6");
    ASSERT_EQ(indElem, 3);
    const auto& s = Elem(3).segm;
    EXPECT_EQ((std::array<double, 6>{s.x1, s.y1, s.z1, s.x2, s.y2, s.z2}),
              (std::array<double, 6>{1, 998, 3, 4, 995, 6}));
    EXPECT_EQ(int{s.pattern}, 1);
    EXPECT_EQ(int{s.spessore}, 5);
    EXPECT_EQ(int{Elem(3).lucido}, 1);
}

TEST_F(ImportaDWG, pointsLieOnSheetFourWhichStaysTheCurrentOne) {
    leggi("0 LINE,8 0,10 1,20 2,11 4,21 5,0 POINT,8 0,10 7,20 8,30 9");
    EXPECT_EQ(int{Elem(3).lucido}, 1);
    EXPECT_EQ(int{Elem(4).lucido}, 4);
    EXPECT_EQ(int{Elem(4).mark.pattern}, 3);
    EXPECT_EQ(double{Elem(4).mark.z}, 9);
    EXPECT_EQ(VisioneGraf.lucidoCorrente, 4);
}

TEST_F(ImportaDWG, aClosedLightPolylineGetsItsHeadAgainAndStraightSides) {
    leggi("0 LWPOLYLINE,8 0,90 3,70 1,38 12,10 0,20 0,42 1,10 10,20 0,10 10,20 10");
    ASSERT_EQ(Elem(3).tipo, tPoligono);
    EXPECT_EQ(int{Elem(3).poli.numVertici}, 3);
    EXPECT_EQ(double{Elem(6).vert.x}, 0);
    EXPECT_EQ(double{Elem(6).vert.y}, 1000);
    EXPECT_EQ(double{Elem(5).vert.z}, 12);
}

TEST_F(ImportaDWG, withTheChoiceArcsOfPolylinesAreChordsWithinTheTolerance) {
    scelteImporta.archi = 1;
    scelteImporta.tolleranza = 0.01;
    leggi("0 LWPOLYLINE,8 0,90 2,70 0,10 0,20 0,42 1,10 10,20 0");   // a half circle below the chord
    ASSERT_GT(int{Elem(3).poli.numVertici}, 10);
    for (std::int32_t i = 4; i < indElem; ++i) {
        EXPECT_NEAR(std::hypot(Elem(i).vert.x - 5, Elem(i).vert.y - 1000), 5, 1e-9);
        EXPECT_GT(double{Elem(i).vert.y}, 1000);
    }
}

TEST_F(ImportaDWG, circlesAndArcsStandWhereTheWorldHasThem) {
    leggi("0 CIRCLE,8 0,10 5,20 6,40 2,210 0,220 0,230 -1,0 ARC,8 0,10 0,20 0,40 1,50 0,51 90,"
          "0 ARC,8 0,10 0,20 0,40 1,50 0,51 90,210 0,220 0,230 -1");
    EXPECT_EQ(double{Elem(3).cerc.cx}, -5);
    EXPECT_EQ(double{Elem(3).cerc.cy}, 994);
    EXPECT_NEAR(Elem(4).arco.angoloInizio, 0, 1e-9);
    EXPECT_NEAR(Elem(4).arco.ampiezza, 90, 1e-9);
    EXPECT_NEAR(Elem(5).arco.angoloInizio, 270, 1e-9);   // mirrored: from the west to the north
    EXPECT_NEAR(Elem(5).arco.ampiezza, 90, 1e-9);
}

TEST_F(ImportaDWG, aTextsHeightIsCutAndHeldAndAnEmptyOneIsNotStored) {
    rappvid = 1;
    leggi("0 TEXT,8 0,10 1,20 2,40 35.27,1 a,50 90,0 TEXT,8 0,10 1,20 2,40 0.1,1 b,0 TEXT,8 0,10 1,20 2,40 9999,1 c,"
          "0 TEXT,8 0,10 1,20 2,40 9,1 ");
    ASSERT_EQ(quanti(tTesto), 3);
    EXPECT_EQ(int{Elem(3).test.dimensione}, 11);   // 11.99 cut
    EXPECT_EQ(int{Elem(4).test.dimensione}, 5);
    EXPECT_EQ(int{Elem(5).test.dimensione}, 127);
    EXPECT_EQ(int{Elem(3).test.angolo}, 0);
    EXPECT_EQ(int{Elem(4).test.angolo}, 100);
    EXPECT_EQ(int{Elem(3).test.font}, -22);   // 65514
}

TEST_F(ImportaDWG, aTextThatIsCutIsTold) {
    const std::string lungo(41, 'x'), giusto(40, 'y');
    const std::string detto = leggi("0 TEXT,8 0,10 1,20 2,40 3,1 " + lungo + ",0 TEXT,8 0,10 1,20 2,40 3,1 " + giusto);
    EXPECT_EQ(scritta(3), lungo.substr(0, 40));
    EXPECT_EQ(scritta(4), giusto);
    EXPECT_NE(detto.find("1 text cut"), std::string::npos) << detto;
}

TEST_F(ImportaDWG, theDiameterSignIsTheByteThatLooksLikeIt) {
    leggi("0 TEXT,8 0,10 1,20 2,40 30,1 %%c12 %%C5 45%%d");
    EXPECT_EQ(scritta(3), "\xAF"
                          "12 \xAF"
                          "5 45\xA1");
}

TEST_F(ImportaDWG, anAttributesTagIsMarked) {
    leggi("0 INSERT,8 0,2 T,66 1,10 0,20 0,0 ATTRIB,8 0,10 1,20 2,40 30,1 valore,2 NOME,70 0,0 SEQEND");
    ASSERT_EQ(quanti(tTesto), 2);
    EXPECT_EQ(scritta(3), "valore");
    EXPECT_EQ(scritta(4), "####NOME");
}

TEST_F(ImportaDWG, linesOfAMultiLineTextArePiecesBelowEachOther) {
    leggi("0 MTEXT,8 0,10 100,20 200,40 30,71 1,1 uno\\P{\\fArial|b0;due} \\C1;tre");
    ASSERT_EQ(quanti(tTesto), 3);
    EXPECT_EQ(scritta(3), "uno");
    EXPECT_EQ(scritta(4), "due");
    EXPECT_EQ(double{Elem(3).test.y}, 1000 - 200 + 30);
    EXPECT_NEAR(Elem(4).test.y - Elem(3).test.y, 50, 1e-9);
    EXPECT_GT(double{Elem(5).test.x}, double{Elem(4).test.x});
}

TEST_F(ImportaDWG, lineWeightsAreRoundedThenHeld) {
    const int casi[][2] = {{-1, 1}, {-3, 1}, {0, 1}, {25, 1}, {29, 1}, {35, 2}, {50, 3}, {100, 5}, {211, 9}};
    for (const auto& c : casi) {
        foglioDxf();
        leggi("0 LINE,8 0,370 " + std::to_string(c[0]) + ",10 1,20 2,11 4,21 5");
        EXPECT_EQ(int{Elem(3).segm.spessore}, c[1]) << c[0];
    }
}

TEST_F(ImportaDWG, colourSevenIsBlackAndNewColoursJoinTheTable) {
    coloriPresenti = 7;
    leggi("0 LINE,8 0,62 7,10 1,20 2,11 4,21 5,0 LINE,8 0,420 13158,10 1,20 2,11 4,21 5,0 LINE,8 0,420 13158,10 1,20 "
          "2,11 4,21 5");
    EXPECT_EQ(int{Elem(3).segm.colore}, 1);
    EXPECT_EQ(int{Elem(4).segm.colore}, 8);
    EXPECT_EQ(int{Elem(5).segm.colore}, 8);
    EXPECT_EQ(coloriPresenti, 8);
    EXPECT_EQ(arrColori[7].rgb.green, 0x33 * 255);
    EXPECT_EQ(NomeColore(arrColori[7]), "Color 8");
}

TEST_F(ImportaDWG, aFullTableOfColoursGivesTheFirstAndSaysSo) {
    coloriPresenti = maxColori;
    for (auto& c : arrColori) c.rgb = {0, 0, 0};
    const std::string r = leggi("0 LINE,8 0,420 13158,10 1,20 2,11 4,21 5");
    EXPECT_EQ(int{Elem(3).segm.colore}, 1);
    EXPECT_NE(r.find("1 elements have colours"), std::string::npos) << r;
}

TEST_F(ImportaDWG, lineTypesGiveTheirNumbersAndByLayerThatOfTheLayer) {
    const std::string tavola = layer({{"muri", 1}});   // of type HIDDEN
    const struct {
        const char* tipo;
        int numero;
    } casi[] = {{"hidden", 4},   {"DASH2", 2},   {"PUNTOX2", 1}, {"FANTASMA2", 3},
                {"DIVIDIX2", 5}, {"BYLAYER", 4}, {"ignota", 1}};
    for (const auto& c : casi) {
        foglioDxf();
        leggi(std::string("0 CIRCLE,8 muri,6 ") + c.tipo + ",10 1,20 2,40 4", tavola);
        EXPECT_EQ(int{Elem(3).cerc.pattern}, c.numero) << c.tipo;
    }
}

TEST_F(ImportaDWG, whatTheRulesLoseIsToldByItsName) {
    const std::string r = leggi("0 ELLIPSE,8 0,10 0,20 0,11 5,21 0,40 0.5,41 0,42 6.28318530717958,0 3DFACE,8 0,10 "
                                "0,20 0,11 1,21 0,12 1,22 1,13 0,23 1,"
                                "0 HATCH,8 0,0 LINE,8 0,10 1,20 2,11 4,21 5");
    EXPECT_EQ(indElem, 3);
    for (const char* nome : {"1 ELLIPSE", "1 3DFACE", "1 HATCH"}) EXPECT_NE(r.find(nome), std::string::npos) << r;
}

TEST_F(ImportaDWG, withTheChoiceEllipsesAndSplinesArePolylinesOnTheCurve) {
    scelteImporta.curve = 1;
    scelteImporta.tolleranza = 1e-3;
    leggi("0 ELLIPSE,8 0,10 0,20 0,11 5,21 0,40 0.5,41 0,42 6.283185307179586,"
          "0 SPLINE,8 0,70 8,71 2,40 0,40 0,40 0,40 1,40 1,40 1,10 0,20 0,10 5,20 10,10 10,20 0");
    ASSERT_EQ(quanti(tPoligono), 2);
    const std::int32_t lati = Elem(3).poli.numVertici;
    ASSERT_GT(lati, 20);
    for (std::int32_t i = 3; i <= 3 + lati; ++i) {
        const double x = Elem(i).vert.x, y = 1000 - Elem(i).vert.y;
        EXPECT_NEAR(x * x / 25 + y * y / 6.25, 1, 1e-9);
    }
    for (std::int32_t i = 4 + lati; i <= indElem; ++i) {
        const double x = Elem(i).vert.x, t = x / 10;   // the parabola of three control points
        EXPECT_NEAR(1000 - Elem(i).vert.y, 20 * t * (1 - t), 1e-9);
    }
}

std::string blocco(const std::string& nome, const std::string& contenuto) {
    return gruppi("0 BLOCK,2 " + nome + ",70 0,10 1,20 1,30 0") + gruppi(contenuto) + gruppi("0 ENDBLK");
}

TEST_F(ImportaDWG, insertsAreTakenApartByTheirWholeMatrices) {
    const std::string blocchi = sezione("BLOCKS", blocco("B", "0 LINE,8 0,62 0,10 1,20 1,11 2,21 1")
                                                      + blocco("A", "0 INSERT,8 0,62 0,2 B,10 1,20 1,50 90,41 2"));
    leggi("0 INSERT,8 0,62 3,2 A,10 100,20 200,50 90,70 2,44 10", blocchi);
    ASSERT_EQ(quanti(tSegmento), 2);
    // B's side of 1 along x is stretched by 2, turned by 90 in A and by 90 again: it runs to the west.
    EXPECT_NEAR(Elem(3).segm.x1, 100, 1e-9);
    EXPECT_NEAR(Elem(3).segm.y1, 800, 1e-9);
    EXPECT_NEAR(Elem(3).segm.x2, 98, 1e-9);
    EXPECT_NEAR(Elem(3).segm.y2, 800, 1e-9);
    EXPECT_NEAR(Elem(4).segm.y1, 790, 1e-9);   // the second column
    const RGBColor& verde = arrColori[static_cast<std::size_t>(Elem(3).segm.colore - 1)].rgb;
    EXPECT_GT(verde.green, 60000);
    EXPECT_EQ(verde.red, 0);
}

TEST_F(ImportaDWG, aMirroredInsertMirrorsItsArcs) {
    const std::string blocchi = sezione("BLOCKS", blocco("B", "0 ARC,8 0,10 1,20 1,40 1,50 0,51 90"));
    leggi("0 INSERT,8 0,2 B,10 0,20 0,41 -1", blocchi);
    ASSERT_EQ(quanti(tArco), 1);
    EXPECT_NEAR(Elem(3).arco.angoloInizio, 270, 1e-9);
    EXPECT_NEAR(Elem(3).arco.ampiezza, 90, 1e-9);
}

TEST_F(ImportaDWG, aBlockThatHoldsItselfEndsAndAnArrayWithoutEndStopsAtTheDrawingsRoom) {
    foglioDxf(200);
    const std::string blocchi = sezione(
        "BLOCKS", blocco("S", "0 LINE,8 0,10 1,20 1,11 2,21 1,0 INSERT,8 0,2 S,10 1,20 1,0 INSERT,8 0,2 S,10 2,20 2"));
    const std::string r = leggi("0 INSERT,8 0,2 S,10 0,20 0,70 32767,71 32767,44 1,45 1", blocchi);
    EXPECT_GT(indElem, 100);
    EXPECT_NE(r.find("inserts"), std::string::npos) << r;
}

TEST_F(ImportaDWG, aDimensionIsItsPictureAndWithoutOneItIsTold) {
    const std::string blocchi = sezione(
        "BLOCKS",
        blocco("*D1", "0 LINE,8 0,10 1,20 1,11 2,21 1,0 POINT,8 0,10 1,20 1,0 MTEXT,8 0,10 1,20 1,40 9,71 5,1 12.5"));
    const std::string r = leggi("0 DIMENSION,8 0,2 *D1,10 0,20 0,0 DIMENSION,8 0,2 *D9,10 0,20 0", blocchi);
    EXPECT_EQ(quanti(tSegmento), 1);
    EXPECT_EQ(quanti(tTesto), 1);
    EXPECT_EQ(quanti(tMarker), 0);
    EXPECT_NE(r.find("1 DIMENSION"), std::string::npos) << r;
}

// A damaged file's dimension named a block that holds the dimension: it came in until the stack was full.
TEST_F(ImportaDWG, aDimensionThatHoldsItselfEnds) {
    const std::string riga = "0 LINE,8 0,10 1,20 1,11 2,21 1,", quota = "0 DIMENSION,8 0,2 *D1,10 0,20 0";
    leggi(quota, sezione("BLOCKS", blocco("*D1", riga + quota)));
    EXPECT_EQ(quanti(tSegmento), 9) << "the depth at which it ends";
    foglioDxf();
    std::string inserti = quota;
    for (int i = 0; i < 100; ++i) inserti += ",0 INSERT,8 0,2 *D1,10 0,20 0";
    leggi(quota, sezione("BLOCKS", blocco("*D1", inserti)));
    EXPECT_EQ(indElem, 2) << "a hundred to the eighth steps to nothing are not taken";
}

TEST_F(ImportaDWG, aSolidIsItsOutlineAndAMeshItsRowsAndColumns) {
    leggi("0 SOLID,8 0,10 0,20 0,11 4,21 0,12 0,22 3,13 4,23 3,"
          "0 POLYLINE,8 0,66 1,70 16,71 2,72 3,0 VERTEX,8 0,10 0,20 0,70 64,0 VERTEX,8 0,10 1,20 0,70 64,0 VERTEX,8 "
          "0,10 2,20 0,70 64,"
          "0 VERTEX,8 0,10 0,20 1,70 64,0 VERTEX,8 0,10 1,20 1,70 64,0 VERTEX,8 0,10 2,20 1,70 64,0 SEQEND");
    EXPECT_EQ(quanti(tPoligono), 1 + 2 + 3);
    EXPECT_EQ(int{Elem(3).poli.numVertici}, 4);
    EXPECT_EQ((std::array<double, 4>{Elem(5).vert.x, Elem(5).vert.y, Elem(6).vert.x, Elem(6).vert.y}),
              (std::array<double, 4>{4, 997, 0, 997}));
}

TEST_F(ImportaDWG, paperSpaceStaysInItsFile) {
    leggi("0 LINE,8 0,67 1,10 1,20 2,11 4,21 5,0 LINE,8 0,10 1,20 2,11 4,21 5");
    EXPECT_EQ(indElem, 3);
}

TEST_F(ImportaDWG, layersThatComeTogetherOnASheetAreTold) {
    const std::string r = leggi("0 LINE,8 due,10 1,20 2,11 4,21 5,0 LINE,8 uno,10 1,20 2,11 4,21 5");
    EXPECT_NE(r.find("2 layers"), std::string::npos) << r;
    foglioDxf();
    EXPECT_EQ(leggi("0 LINE,8 due,10 1,20 2,11 4,21 5").find("layers"), std::string::npos);
}

TEST_F(ImportaDWG, withTheChoiceLayersBecomeSheets) {
    scelteImporta.piani = 1;
    leggi("0 LINE,8 due,10 1,20 2,11 4,21 5,0 POINT,8 uno,10 1,20 2", layer({{"uno", 1}, {"due", 2}}));
    EXPECT_EQ(int{Elem(3).lucido}, 2);
    EXPECT_EQ(int{Elem(4).lucido}, 1);
}

TEST_F(ImportaDWG, aBinaryFileSaysTheSame) {
    std::string b("AutoCAD Binary DXF\r\n\x1A\0", 22);
    const auto testo = [&b](char codice, const char* s) {
        b += codice;
        b += s;
        b += '\0';
    };
    const auto reale = [&b](char codice, double v) {
        b += codice;
        b.append(reinterpret_cast<const char*>(&v), sizeof v);
    };
    testo(0, "SECTION");
    testo(2, "ENTITIES");
    testo(0, "LINE");
    testo(8, "0");
    reale(10, 1);
    reale(20, 2);
    reale(11, 4);
    reale(21, 5.5);
    testo(0, "ENDSEC");
    testo(0, "EOF");
    importaDxf(b);
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(double{Elem(3).segm.y2}, 994.5);
}

TEST_F(ImportaDWG, aDamagedOrShortFileIsToldAndWhatCameFirstStays) {
    const std::string intero = entita("0 LINE,8 0,10 1,20 2,11 4,21 5,0 LINE,8 0,10 1,20 2,11 4,21 5");
    const struct {
        std::string testo;
        std::int32_t linee;
    } casi[] = {
        {intero.substr(0, intero.size() - 20), 1},
        {"questo non e' un disegno\n", 0},
        {"", 0},
        {intero.substr(0, 63) + "xyz\n" + intero.substr(63), 1},
    };
    for (const auto& c : casi) {
        foglioDxf();
        const FileCad f(c.testo);
        avvisi.clear();
        ImportaDWGFile(f.spec());
        EXPECT_EQ(quanti(tSegmento), c.linee) << c.testo;
        ASSERT_FALSE(avvisi.empty()) << c.testo;
        EXPECT_EQ(avvisi.front().id, 9101) << c.testo;
        EXPECT_EQ(uscita, 0);
    }
}

TEST_F(ImportaDWG, numbersThatAreNoneDropTheirEntityAndAreCounted) {
    const std::string r =
        leggi("0 LINE,8 0,10 nan,20 2,11 4,21 5,0 CIRCLE,8 0,10 1,20 1,40 1e999,0 LINE,8 0,10 1,20 2,11 4,21 5");
    EXPECT_EQ(indElem, 3);
    EXPECT_NE(r.find("1 LINE"), std::string::npos) << r;
    EXPECT_NE(r.find("1 CIRCLE"), std::string::npos) << r;
}

}   // namespace
