// What an import brings into the drawing, and what no file can do to it.
#include "exchange/Dxf.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "display/palette.h"
#include "model/Carattere.h"
#include "model/Unita.h"
#include "registration/Coordinate.h"
#include "support/Tasti.h"

using namespace prova;

namespace {

std::string testoDi(std::int32_t n) {
    const auto& t = Elem(n).test.testo;
    return {reinterpret_cast<const char*>(t.data()) + 1, t[0]};
}

TEST(LeggiDXF, AnElementOfEachKindLiesWhereTheFileSaysWithYTurnedOver) {
    foglioDxf();
    rappvid = 2;
    leggiDxf(entita("0 line,8 0,10 2,20 4,30 7,11 6,21 8,31 9,62 5,6 DASHED,0 POINT,10 20,20 40,38 3,62 4,"
                    "0 CIRCLE,10 2,20 4,40 6,62 3,0 ARC,10 2,20 4,40 6,50 0,51 90,62 2,"
                    "0 TEXT,10 2,20 4,40 70.555554,50 0,1 Via Roma"));
    ASSERT_EQ(indElem, 7);
    const auto& s = Elem(3).segm;
    EXPECT_EQ(s.x1, 1);
    EXPECT_EQ(s.y1, 998);
    EXPECT_EQ(s.z1, 7);
    EXPECT_EQ(s.x2, 3);
    EXPECT_EQ(s.z2, 9);
    EXPECT_EQ(s.colore, 4);   // 5 of the index is blue
    EXPECT_EQ(s.pattern, 4);
    EXPECT_EQ(Elem(4).mark.x, 10);
    EXPECT_EQ(Elem(4).mark.z, 3);
    EXPECT_EQ(Elem(4).mark.forma, markerCorrente);
    EXPECT_EQ(Elem(5).cerc.raggio, 3);
    EXPECT_EQ(Elem(5).cerc.colore, 3);
    EXPECT_EQ(Elem(6).arco.angoloInizio, 0);
    EXPECT_EQ(Elem(6).arco.ampiezza, 90);
    EXPECT_EQ(testoDi(7), "Via Roma");
    EXPECT_EQ(Elem(7).test.dimensione, 12);
    EXPECT_EQ(Elem(7).test.angolo, 100);
    EXPECT_NE(resoconto().find("1 segment, 1 marker, 1 text, 1 circle, 1 arc."), std::string::npos) << resoconto();
}

TEST(LeggiDXF, ALayerGivesTheColourOfTheOneBeforeIt) {
    foglioDxf();
    const std::string tabelle = layer({{"A", 3}, {"B", -5}, {"C", 1}});
    leggiDxf(tabelle + entita("0 LINE,8 A,10 1,0 LINE,8 C,10 1,0 LINE,8 unknown,10 1,0 POINT,8 c,10 1,0 POINT,10 2"));
    ASSERT_EQ(indElem, 7);
    EXPECT_EQ(Elem(3).segm.colore, colorCorrente);   // the first layer is as good as none
    EXPECT_EQ(Elem(4).segm.colore, 4);               // B's, from its DXF number 5
    EXPECT_EQ(Elem(4).segm.pattern, 23);
    EXPECT_EQ(Elem(5).segm.colore, 4);   // kept from the line before
    EXPECT_EQ(Elem(4).lucido, 0);
    EXPECT_EQ(Elem(6).lucido, 2);   // a point goes to its sheet
    EXPECT_EQ(Elem(7).lucido, 0);
}

TEST(LeggiDXF, WhatAnEntityDoesNotSayIsWhatTheLastOneLeft) {
    foglioDxf();
    leggiDxf(entita("0 LINE,62 5,6 DASHED,10 1,20 2,11 3,21 4,0 LINE,0 TEXT,62 3,1 abc,0 LINE,"
                    "0 CIRCLE,62 6,40 1,0 CIRCLE,40 2"));
    ASSERT_EQ(indElem, 8);
    EXPECT_EQ(Elem(4).segm.colore, 4);
    EXPECT_EQ(Elem(4).segm.pattern, 4);
    EXPECT_EQ(Elem(4).segm.x2, 3);
    EXPECT_EQ(Elem(5).test.colore, 4);   // the last line's, not its own
    EXPECT_EQ(Elem(6).segm.colore, 4);
    EXPECT_EQ(Elem(8).cerc.colore, 6);
}

// A text's angle lies where a segment has its pattern, and its characters where a segment has its first end.
TEST(LeggiDXF, ATextLeavesItsAngleAndCharactersToTheNextLine) {
    foglioDxf();
    leggiDxf(entita("0 LINE,6 DASHED,30 7,0 TEXT,50 72,1 " + std::string(30, 'x')
                    + ",0 LINE,10 1,20 2,11 3,21 4,"
                      "0 TEXT,1 ab,0 LINE,30 1"));
    ASSERT_EQ(indElem, 7);
    EXPECT_EQ(Elem(4).test.angolo, 20);
    EXPECT_EQ(Elem(5).segm.pattern, 20);
    double lettere = 0;
    std::memcpy(&lettere, "xxxxxxxx", sizeof lettere);
    EXPECT_EQ(Elem(5).segm.z1, lettere);
    EXPECT_EQ(Elem(6).test.angolo, 100);
    EXPECT_EQ(Elem(7).segm.pattern, NumPat);   // 100 is no pattern
}

TEST(LeggiDXF, UnderARegistrationATextLiesLikeEveryOtherPoint) {
    foglioDxf();
    Elem(1).att.y1 = Elem(1).att.y2 = 500;
    Elem(1).att.x2 = Elem(2).att.x2 = 100;
    Elem(2).att.y1 = Elem(2).att.y2 = 0;
    Elem(2).att.coordReali = 1;
    CalcTransfC();
    double x = 0, y = 0;
    Tracoord(TransfInvert, 70, 80, x, y);
    leggiDxf(entita("0 TEXT,10 70,20 80,1 @@@@@@@@@@@@@@@"));
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).test.x, x);
    EXPECT_EQ(Elem(3).test.y, y);
}

TEST(LeggiDXF, ColoursByBlockAndByLayerAreNoneAndOthersAreCounted) {
    foglioDxf();
    leggiDxf(layer({{"A", 300}, {"B", 1}})
             + entita("0 LINE,62 5,10 1,0 LINE,62 0,10 1,0 LINE,62 256,10 1,0 LINE,62 257,10 1,0 LINE,62 -3,10 1,"
                      "0 LINE,8 B"));
    ASSERT_EQ(indElem, 8);
    for (std::int32_t i = 3; i <= 7; ++i) EXPECT_EQ(Elem(i).segm.colore, 4);
    EXPECT_EQ(Elem(8).segm.colore, 2);   // the layer's default
    EXPECT_NE(resoconto().find("3 colour numbers"), std::string::npos) << resoconto();
}

TEST(LeggiDXF, APolylineClosesWithACopyOfItsHead) {
    foglioDxf();
    leggiDxf(entita("0 POLYLINE,70 1,62 4,66 1,0 VERTEX,10 1,20 1,30 5,0 VERTEX,10 2,20 1,30 6,0 VERTEX,10 2,20 2,"
                    "0 SEQEND,8 0,0 LINE,10 9"));
    ASSERT_EQ(indElem, 7);
    EXPECT_EQ(Elem(3).poli.numVertici, 3);
    EXPECT_EQ(Elem(3).poli.colore, 5);
    EXPECT_EQ(Elem(3).poli.z, 0);
    EXPECT_EQ(Elem(4).vert.z, 6);
    EXPECT_EQ(Elem(6).vert.x, Elem(3).poli.x);
    EXPECT_EQ(Elem(6).vert.y, Elem(3).poli.y);
    EXPECT_EQ(Elem(7).tipo, tSegmento);
    controllaRecord();
}

TEST(LeggiDXF, APolylineWithoutVerticesIsItsHeadAlone) {
    foglioDxf();
    leggiDxf(entita("0 POLYLINE,70 1,62 4,66 1,0 SEQEND,8 0,0 LINE,10 9"));
    ASSERT_EQ(indElem, 4);
    EXPECT_EQ(Elem(3).tipo, tPoligono);
    EXPECT_EQ(Elem(3).poli.numVertici, 0);
    EXPECT_EQ(Elem(3).poli.x, 0);
    EXPECT_EQ(Elem(3).poli.colore, 5);
    EXPECT_EQ(Elem(4).tipo, tSegmento);
}

TEST(LeggiDXF, APolylineOfMoreVerticesThanAHeadCountsGoesOnInAnother) {
    foglioDxf(50000);
    std::string s = "0 POLYLINE,70 1,62 6";
    for (int i = 0; i < 40000; ++i) s += ",0 VERTEX,10 " + std::to_string(i) + ",20 1";
    leggiDxf(entita(s + ",0 SEQEND"));
    controllaRecord();
    ASSERT_EQ(indElem, 2 + 40000 + 1 + 1);
    const std::int32_t seconda = 3 + 32767 + 1;
    EXPECT_EQ(Elem(seconda).tipo, tPoligono);
    EXPECT_EQ(Elem(seconda).poli.colore, 6);
    EXPECT_EQ(Elem(seconda).poli.x, 32767);
    EXPECT_EQ(Elem(indElem).vert.x, 0);
}

TEST(LeggiDXF, BlocksLeaveOnlyTheCopiesThatInsertMade) {
    foglioDxf();
    segmento(0, 0, 1, 1);
    const std::string blocchi =
        sezione("BLOCKS", gruppi("0 BLOCK,8 0,2 Termine,70 0,10 1,20 1,0 LINE,10 1,20 1,11 2,21 1,0 CIRCLE,10 1,20 1,"
                                 "40 2,0 ENDBLK,8 0,0 BLOCK,2 OTHER,10 0,20 0,0 LINE,10 7,0 ENDBLK,5 2F"));
    leggiDxf(layer({{"A", 1}, {"B", 1}}) + blocchi
             + entita("0 LINE,10 3,62 2,0 INSERT,2 TERMINE,8 B,10 100,20 200,41 2,42 4,62 7,0 LINE,10 5"));
    ASSERT_EQ(indElem, 7);
    EXPECT_EQ(Elem(4).segm.x1, 3);
    EXPECT_EQ(Elem(5).segm.x1, 100);
    EXPECT_EQ(Elem(5).segm.y1, 800);
    EXPECT_EQ(Elem(5).segm.x2, 102);
    EXPECT_EQ(Elem(5).segm.colore, 1);
    EXPECT_EQ(Elem(5).lucido, 1);
    EXPECT_EQ(Elem(6).cerc.raggio, 6);
    EXPECT_EQ(Elem(7).segm.x1, 5);
    controllaRecord();
}

TEST(LeggiDXF, AnInsertTakesItsScalesWithTheirSigns) {
    const struct {
        const char* scale;
        double x2, y2, z2, raggio, inizio;
        const char* cambiati;   // in the report
    } casi[] = {
        {"41 -1,42 1", 90, 798, 3, 5, 280, "Changed: 1 mirrored block."},
        {"41 -2,42 -2,43 -1", 80, 804, -3, 10, 250, ""},
        {"41 3,42 1,43 2,50 90,70 2,71 2,44 5,45 5", 130, 798, 6, 10, 70,   // neither turned nor repeated
         "Changed: 1 turned block drawn upright, 1 array of blocks of which the first stands."},
    };
    const std::string blocco = sezione("BLOCKS", gruppi("0 BLOCK,2 B,10 1,20 1,0 LINE,10 1,20 1,11 11,21 3,31 3,"
                                                        "0 CIRCLE,10 1,20 1,40 5,0 ARC,40 5,50 10,51 20,"
                                                        "0 TEXT,10 11,20 3,40 1e9,1 t,0 ENDBLK"));
    for (const auto& c : casi) {
        foglioDxf();
        leggiDxf(blocco + entita(std::string("0 INSERT,2 b,10 100,20 200,") + c.scale));
        ASSERT_EQ(indElem, 6) << c.scale;
        EXPECT_EQ(Elem(3).segm.x1, 100);
        EXPECT_EQ(Elem(3).segm.x2, c.x2) << c.scale;
        EXPECT_EQ(Elem(3).segm.y2, c.y2) << c.scale;
        EXPECT_EQ(Elem(3).segm.z2, c.z2) << c.scale;
        EXPECT_EQ(Elem(4).cerc.raggio, c.raggio) << c.scale;
        EXPECT_EQ(Elem(5).arco.raggio, c.raggio) << c.scale;
        EXPECT_EQ(Elem(5).arco.angoloInizio, c.inizio) << c.scale;
        EXPECT_EQ(Elem(5).arco.ampiezza, 10);
        EXPECT_NE(resoconto().find(c.cambiati), std::string::npos) << resoconto();
        EXPECT_EQ(Elem(6).test.x, c.x2) << c.scale;
        EXPECT_EQ(Elem(6).test.dimensione, 127);
    }
}

TEST(LeggiDXF, WhatCameAfterABlockMovesDownWhenItGoes) {
    foglioDxf();
    leggiDxf(sezione("ENTITIES", gruppi("0 LINE,10 1")) + sezione("BLOCKS", gruppi("0 BLOCK,2 A,0 LINE,0 ENDBLK"))
             + entita("0 POLYLINE,0 VERTEX,10 5,20 1,0 VERTEX,10 6,0 SEQEND,0 LINE,10 2"));
    ASSERT_EQ(indElem, 6);
    EXPECT_EQ(Elem(3).segm.x1, 1);
    EXPECT_EQ(Elem(4).poli.x, 5);
    EXPECT_EQ(Elem(5).vert.x, 6);
    EXPECT_EQ(Elem(6).segm.x1, 2);
    controllaRecord();
}

TEST(LeggiDXF, BlocksThatHoldEachOtherEnd) {
    foglioDxf(3000);
    std::string s = gruppi("0 BLOCK,2 A0,0 INSERT,2 A0,0 POLYLINE,0 VERTEX,10 1,0 VERTEX,10 2,0 VERTEX,10 3,0 SEQEND,"
                           "0 ENDBLK");
    for (int i = 1; i < 30; ++i) {
        const std::string n = std::to_string(i), m = std::to_string(i - 1);
        s += gruppi("0 BLOCK,2 A" + n + ",0 INSERT,2 A" + m + ",0 INSERT,2 A" + m + ",0 INSERT,2 A29,0 ENDBLK");
    }
    leggiDxf(sezione("BLOCKS", s) + entita("0 INSERT,2 A29,0 LINE,10 1"));
    controllaRecord();
    EXPECT_LE(indElem, 3000);
}

TEST(LeggiDXF, AStoreThatEndsInsideAnInsertKeepsWholePolylines) {
    foglioDxf(12);
    const std::string b = sezione("BLOCKS", gruppi("0 BLOCK,2 P,0 POLYLINE,0 VERTEX,10 1,0 VERTEX,10 2,0 VERTEX,10 3,"
                                                   "0 VERTEX,10 4,0 SEQEND,0 ENDBLK"));
    leggiDxf(b + entita("0 INSERT,2 P,0 INSERT,2 P"));
    controllaRecord();
    EXPECT_NE(resoconto().find("no room"), std::string::npos) << resoconto();
}

TEST(LeggiDXF, TextsAreCutAndSizedAndTheUsersSizeComesBack) {
    foglioDxf();
    gFontSize = 9;
    leggiDxf(entita("0 TEXT,40 0,1 " + std::string(50, 'x') + ",0 TEXT,40 1e9,1 b,0 TEXT,1 c,0 TEXT,40 1,0 MTEXT,1 d"));
    ASSERT_EQ(indElem, 6);
    EXPECT_EQ(testoDi(3), std::string(40, 'x'));
    EXPECT_EQ(Elem(3).test.dimensione, 5);
    EXPECT_EQ(Elem(4).test.dimensione, 127);
    EXPECT_EQ(Elem(5).test.dimensione, 127);   // no height of its own: the last one's
    EXPECT_EQ(Elem(6).test.dimensione, 5);
    EXPECT_EQ(gFontSize, 9);
}

TEST(LeggiDXF, ACoordinateKeepsItsDigitsAndOneBeyondAllNumbersEndsNothing) {
    foglioDxf();
    leggiDxf(entita("0 LINE,10 4994321.123456,20 1e-80,30 1e99,11 3"));
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).segm.x1, 4994321.123456);
    EXPECT_EQ(Elem(3).segm.y1, YFDecimi);
    EXPECT_EQ(Elem(3).segm.z1, 1e38);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9110});
}

TEST(LeggiDXF, ABadNumberEndsTheReadingWithAMessageAndWhatWasReadStays) {
    foglioDxf();
    leggiDxf(entita("0 LINE,10 1,0 LINE,10 here,0 LINE,10 3"));
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{1008, 9110}));
    EXPECT_NE(resoconto().find("broke off at line 12"), std::string::npos) << resoconto();
}

TEST(LeggiDXF, EscapeEndsTheReadingAndWhatWasReadStays) {
    foglioDxf(100000);
    std::string s;
    for (int i = 0; i < 40000; ++i) s += "0\nLINE\n8\n0\n10\n1.5\n20\n2.5\n";
    premiEsc();
    leggiDxf(sezione("ENTITIES", s));
    EXPECT_GT(indElem, 1000);
    EXPECT_LT(indElem, 39000);
    EXPECT_EQ(uscita, 0);
    EXPECT_TRUE(StrOperCorr.view().empty());
    EXPECT_NE(resoconto().find("Reading was stopped at line "), std::string::npos) << resoconto();
    controllaRecord();
}

TEST(LeggiDXF, APolylineGetsOverABadColour) {
    foglioDxf();
    leggiDxf(entita("0 POLYLINE,62 red,0 VERTEX,10 1,0 VERTEX,10 2,0 SEQEND,0 LINE,10 3"));
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(Elem(3).poli.colore, colorCorrente);
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{1012, 9110}));
}

TEST(LeggiDXF, WhatIsNotReadIsTold) {
    foglioDxf();
    leggiDxf(entita("0 SPLINE,10 x,0 HATCH,8 0,0 SPLINE,8 0,0 SOLID,10 1,0 ELLIPSE,8 0"));
    EXPECT_EQ(indElem, 2);
    EXPECT_NE(resoconto().find("Left out: 2 SPLINE, 1 ELLIPSE, 1 HATCH, 1 SOLID."), std::string::npos) << resoconto();
}

TEST(LeggiDXF, HostileFilesEnd) {
    const std::string lunga(1 << 20, 'A');
    const std::string nuli("0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n\0\0\0\n", 35);
    std::string tante;
    for (int i = 0; i < 20000; ++i) tante += "0 BLOCK,2 A,0 ENDBLK,";
    const std::string casi[] = {
        "",
        "0",
        "\r",
        "\n\n\n",
        "0\nSECTION",
        "0\nSECTION\n2\nENTITIES\n0\nPOLYLINE\n0\nVERTEX\n10\n5",
        lunga,
        entita("0 TEXT,1 " + lunga + ",0 LINE,10 1"),
        nuli,
        entita("0 POLYLINE,70 1,71 2000000000,72 2000000000,0 SEQEND"),
        entita("0 POLYLINE,70 1,0 LINE,10 1"),
        entita("0 CIRCLE,10 1e38,20 -1e38,40 1e38,0 ARC,50 1e30,51 -1e30,40 -5"),
        sezione("BLOCKS", gruppi(tante + "0 ENDSEC")) + entita(tante),
        entita("0 INSERT,2 ,41 1e38,0 INSERT"),
        sezione("BLOCKS", gruppi("0 BLOCK,2 A,0 LINE,10 1")),
        sezione("TABLES", gruppi("0 TABLE,2 LAYER,0 LAYER,2 x")),
    };
    for (const std::string& c : casi) {
        foglioDxf(100);
        leggiDxf(c);
        controllaRecord();
    }
    foglioDxf(100);
    for (const bool registrato : {false, true}) {
        Elem(2).att.coordReali = registrato;
        CalcTransfC();
        leggiDxf(entita("0 TEXT,10 1,20 2,1 \xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"));
    }
    controllaRecord();
}

TEST(LeggiDXF, RealFilesAreReadToTheirEnd) {
    const char* dati = std::getenv("TESSARO_DATA");
    const std::filesystem::path cartella = std::filesystem::path(dati ? dati : "") / "dxf";
    if (!dati || !std::filesystem::is_directory(cartella)) GTEST_SKIP() << "no files: TESSARO_DATA is not set";
    for (const auto& f : std::filesystem::directory_iterator(cartella)) {
        SCOPED_TRACE(f.path().filename());
        foglioDxf(200000);
        ASSERT_EQ(FSpOpenDF(FSMakeFSSpec(f.path().string()), fsRdPerm, RefNum), noErr);
        LeggiDXF();
        FSClose(RefNum);
        controllaRecord();
        EXPECT_EQ(uscita, 0) << resoconto();
        EXPECT_EQ(indElem < maxElementi, true);
    }
}

}   // namespace
