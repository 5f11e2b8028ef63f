// What an export writes, to the line, and whether others read it.
#include "exchange/Dxf.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "exchange/ScriviDXF.h"
#include "model/Carattere.h"
#include "model/Unita.h"

using namespace prova;

namespace {

// The file of the drawing, its line ends as LF.
std::string scritto() {
    FileProva f("", fsRdWrPerm);
    {
        ScritturaDXF s;
        ScriviHeader(s);
        ControllaLucidi();
        ScriviTableLTypeDXF(s);
        ScriviTableLayerDXF(s);
        ScriviTableStyleDXF(s);
        ScriviEntitiesDXF(s);
        s.b.righe2("  0", "EOF");
    }
    const std::string t = f.contenuto();
    std::string righe;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i] == '\r') {
            EXPECT_EQ(t[i + 1], '\n');
        } else {
            righe += t[i];
        }
    }
    return righe;
}

std::string entitaScritte() {
    const std::string t = scritto(), inizio = "ENTITIES\n", fine = "  0\nENDSEC\n  0\nEOF\n";
    const auto da = t.find(inizio), a = t.rfind(fine);
    EXPECT_NE(da, std::string::npos);
    EXPECT_NE(a, std::string::npos);
    return t.substr(da + inizio.size(), a - da - inizio.size());
}

std::size_t quante(const std::string& t, const std::string& s) {
    std::size_t n = 0;
    for (auto i = t.find(s); i != std::string::npos; i = t.find(s, i + 1)) ++n;
    return n;
}

TEST(ScriviDXF, AnEmptyDrawingHasItsTablesAndNoLayer) {
    foglioDxf();
    const std::string t = scritto();
    EXPECT_EQ(t.substr(0, 45), "  0\nSECTION\n  2\nHEADER\n  9\n$LTSCALE\n 40\n10\n  ");
    EXPECT_NE(t.find("  2\nLAYER\n 70\n     0\n  0\nENDTAB\n"), std::string::npos);
    EXPECT_EQ(quante(t, "\nLTYPE\n"), 6U);
    EXPECT_EQ(entitaScritte(), "");
}

// Lines parted by bars.
std::string aBarre(std::string t) {
    std::replace(t.begin(), t.end(), '\n', '|');
    return t;
}

TEST(ScriviDXF, TheHeaderAndTheTablesAreToldToTheByte) {
    foglioDxf();
    Xfoglio = 4;
    yfoglio = 3;
    rappvid = 0.5;
    NumPat = 2;
    segmento(0, 0, 1, 1);
    const std::string t = aBarre(scritto()), entita = "  0|SECTION|  2|ENTITIES|";
    const std::string basso = " 10|0.00000000| 20|350.00000000|", alto = " 10|200.00000000| 20|500.00000000|";
    EXPECT_EQ(t.substr(0, t.find("  0|LTYPE")),
              "  0|SECTION|  2|HEADER|  9|$LTSCALE| 40|10|  9|$LIMMIN|" + basso + "  9|$LIMMAX|" + alto + "  9|$EXTMIN|"
                  + basso + "  9|$EXTMAX|" + alto
                  + "  9|$CLAYER|  8|1|  9|$CECOLOR| 62|7|  9|$CELTYPE|  6|CONTINUOUS|  0|ENDSEC|"
                    "  0|SECTION|  2|TABLES|  0|TABLE|  2|LTYPE| 70|     5|");
    EXPECT_EQ(t.substr(t.find("  0|LTYPE"), t.find(entita) - t.find("  0|LTYPE")),
              "  0|LTYPE|  2|CONTINUOUS| 70|    64|  3|Solid line| 72|    65| 73|     0| 40|0.0000000000000|"
              "  0|LTYPE|  2|HIDDEN| 70|    64|  3|_ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ _ | 72|    65| 73|     2|"
              " 40|0.3750000000000| 49|0.2500000000000| 49|-0.1250000000000|"
              "  0|LTYPE|  2|DASHED| 70|    64|  3|__ __ __ __ __ __ __ __ __ __ __ __ __  | 72|    65| 73|     2|"
              " 40|0.7500000000000| 49|0.5000000000000| 49|-0.2500000000000|"
              "  0|LTYPE|  2|PHANTOM| 70|    64|  3|_____ _ _ _____ _ _ _____ _ _ _____ _ _ | 72|    65| 73|     6|"
              " 40|2.5000000000000| 49|1.2500000000000| 49|-0.2500000000000| 49|0.2500000000000| 49|-0.2500000000000|"
              " 49|0.2500000000000| 49|-0.2500000000000|"
              "  0|LTYPE|  2|DASHDOT| 70|    64|  3|__ . __ . __ . __ . __ . __ . __ . __ . | 72|    65| 73|     4|"
              " 40|1.0000000000000| 49|0.5000000000000| 49|-0.2500000000000| 49|0.0000000000000| 49|-0.2500000000000|"
              "  0|ENDTAB|  0|TABLE|  2|LAYER| 70|     1|  0|LAYER|  2|0| 70|     0| 62|     7|  6|CONTINUOUS|"
              "  0|ENDTAB|  0|TABLE|  2|STYLE| 70|     1|  0|STYLE|  2|STANDARD| 70|     0| 40|0.0| 41|1.0| 50|0.0|"
              " 71|     0| 42|0.2|  3|txt|  4||  0|ENDTAB|  0|ENDSEC|");
    EXPECT_NE(t.find(entita + "  0|LINE|  8|0|  6|PHANTOM|"), std::string::npos);
}

TEST(ScriviDXF, CurvesTextsAndVerticesAreToldToTheByte) {
    foglioDxf();
    rappvid = 0.5;
    NumPat = 23;
    cerchio(20, 40, 6);
    arco(20, 40, 6, 90, 270);
    NumPat = 3;
    polilinea({{2, 4}, {6, 4}});
    gFontSize = 10;
    testo(2, 4, "a\x88", 20);
    const std::string centro = " 10|10.0000000000000| 20|480.0000000000000| 30|0.0000000000000| 40|3.0000000000000|";
    const std::string vertice = " 20|498.0000000000000| 30|0.0000000000000| 42|0| 70|     0|";
    EXPECT_EQ(aBarre(entitaScritte()),
              "  0|CIRCLE|  8|0|  6|HIDDEN| 62|7|" + centro + "  0|ARC|  8|0|  6|HIDDEN| 62|7|" + centro
                  + " 50|-270.0000000000000| 51|0.0000000000000|"
                    "  0|POLYLINE|  8|0|  6|DASHDOT| 62|7| 66|     1| 70|     0|"
                    "  0|VERTEX|  8|0| 62|7| 10|1.0000000000000|"
                  + vertice + "  0|VERTEX|  8|0| 62|7| 10|3.0000000000000|" + vertice
                  + "  0|SEQEND|  0|TEXT|  8|0|  6|CONTINUOUS| 62|7| 10|1.0000000000000| 20|498.0000000000000|"
                    " 30|0.0000000000000| 40|14.1111108000000| 50|72.0000000000000|  1|a\\U+00E0|");
}

TEST(ScriviDXF, ASegmentHasThirteenDecimalsAndItsRealPlace) {
    foglioDxf();
    rappvid = 0.5;
    NumPat = 4;
    colorCorrente = 6;
    segmento(1, 10, 3, 1000, 7, 8);
    EXPECT_EQ(entitaScritte(),
              "  0\nLINE\n  8\n0\n  6\nDASHED\n 62\n220\n 10\n0.5000000000000\n 20\n495.0000000000000\n"
              " 30\n7.0000000000000\n 11\n1.5000000000000\n 21\n0.0000000000000\n 31\n8.0000000000000\n");
}

// "x y z, x y z; " of lines, "x y z r; " of circles; whole numbers.
std::string soloCoordinate(const std::string& t) {
    std::string s, codice, valore;
    for (std::istringstream righe(t); std::getline(righe, codice) && std::getline(righe, valore);) {
        if (codice == "  0" && !s.empty()) s += "; ";
        if (codice == " 11") s += ", ";
        if (codice == " 20" || codice == " 30" || codice == " 21" || codice == " 31" || codice == " 40") s += ' ';
        if (codice[0] == ' ' && codice[1] >= '1' && codice[1] <= '4') s += valore.substr(0, valore.find('.'));
    }
    return s + "; ";
}

TEST(ScriviDXF, MarkersBecomeLinesAndOthersAreLost) {
    foglioDxf();
    RappPunti = 1;
    const std::size_t linee[] = {0, 4, 3, 4, 2, 0, 0};
    for (int forma = 0; forma <= 6; ++forma) {
        AzzeraArchivio();
        marker(10, 10, 5, forma);
        const std::string t = entitaScritte();
        EXPECT_EQ(quante(t, "\nLINE\n"), linee[forma]) << forma;
        EXPECT_EQ(quante(t, "\nCIRCLE\n"), forma == 5 ? 1U : 0U) << forma;
    }
    // The strokes of the triangle, and the circle, stand at the marker's elevation.
    for (const auto& [forma, atteso] : {std::pair{2, "10 994 5, 13 988 5; 13 988 5, 7 988 5; 7 988 5, 10 994 5; "},
                                        {3, "8 988 5, 8 992 5; 8 992 5, 12 992 5; 12 992 5, 12 988 5; "
                                            "12 988 5, 8 988 5; "},
                                        {1, "8 990 5, 12 990 5; 8 988 5, 12 992 5; 10 988 5, 10 992 5; "
                                            "12 988 5, 8 992 5; "},
                                        {5, "10 990 5 2; "}}) {
        AzzeraArchivio();
        marker(10, 10, 5, forma);
        EXPECT_EQ(soloCoordinate(entitaScritte()), atteso) << forma;
    }
}

TEST(ScriviDXF, SheetNinetyNineIsUsedButNotInTheTable) {
    foglioDxf();
    Elem(segmento(0, 0, 1, 1)).lucido = 99;
    Elem(segmento(0, 0, 1, 1)).lucido = 98;
    const std::string t = scritto();
    EXPECT_NE(t.find("  2\nLAYER\n 70\n     1\n  0\nLAYER\n  2\n98\n"), std::string::npos);
    EXPECT_EQ(t.find("  2\n99\n"), std::string::npos);
    EXPECT_NE(t.find("  8\n99\n"), std::string::npos);
}

TEST(ScriviDXF, APolylineWritesEachVertexOnce) {
    foglioDxf();
    polilinea({{1, 1}, {2, 1}, {2, 2}});
    polilinea({{5, 5}});
    segmento(0, 0, 1, 1);
    const std::string t = entitaScritte();
    EXPECT_EQ(quante(t, "\nPOLYLINE\n"), 2U);
    EXPECT_EQ(quante(t, "\nVERTEX\n"), 4U);
    EXPECT_EQ(quante(t, "\nSEQEND\n"), 2U);
    EXPECT_EQ(quante(t, "\nLINE\n"), 1U);
}

void disegnoDiOgniTipo() {
    foglioDxf();
    segmento(1, 10, 3, 1000, 7, 8);
    marker(10, 10, 5, 4);
    polilinea({{1, 1}, {2, 1}, {2, 2}});
    cerchio(5, 5, 2);
    arco(5, 5, 2, 0, 90);
    testo(3, 3, "Citt\x88");
}

TEST(ScriviDXF, WhatIsWrittenReadsBack) {
    disegnoDiOgniTipo();
    std::string t = scritto();
    foglioDxf();
    leggiDxf(t);
    controllaRecord();
    EXPECT_NE(resoconto().find("3 segments, 1 polyline, 1 text, 1 circle, 1 arc."), std::string::npos) << resoconto();
    EXPECT_EQ(Elem(3).segm.x2, 3);
    EXPECT_EQ(Elem(3).segm.y1, 10);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(Elem(indElem).test.testo.data()) + 1), "Citt\x88");
}

TEST(ScriviDXF, SomeoneElsesReaderFindsTheSame) {
    if (std::system("/usr/bin/python3 -c 'import ezdxf' >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "python3-ezdxf is not installed";
    disegnoDiOgniTipo();
    const auto base = std::filesystem::temp_directory_path() / ("tessaro-dxf-" + std::to_string(getpid()));
    const std::string dxf = base.string() + ".dxf", esito = base.string() + ".txt";
    std::ofstream(dxf, std::ios::binary) << scritto();
    const std::string comando = "/usr/bin/python3 -c \"import ezdxf,sys\n"
                                "for e in ezdxf.readfile(sys.argv[1]).modelspace():\n"
                                "  print(e.dxftype(), e.dxf.layer, e.dxf.color)\" '"
                                + dxf + "' > '" + esito + "' 2>&1";
    EXPECT_EQ(std::system(comando.c_str()), 0);
    std::ostringstream s;
    s << std::ifstream(esito).rdbuf();
    EXPECT_EQ(s.str(), "LINE 0 7\nLINE 0 7\nLINE 0 7\nPOLYLINE 0 7\nCIRCLE 0 7\nARC 0 7\nTEXT 0 7\n");
    std::filesystem::remove(dxf);
    std::filesystem::remove(esito);
}

}   // namespace
