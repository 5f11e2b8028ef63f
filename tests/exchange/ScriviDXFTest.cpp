// What an export writes, to the line, and whether others read it.
#include "exchange/Dxf.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

#include "exchange/ScriviDXF.h"

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
    std::string t = f.contenuto();
    for (char& c : t) {
        EXPECT_NE(c, '\n');
        if (c == '\r') c = '\n';
    }
    return t;
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

TEST(ScriviDXF, ASegmentHasThirteenDecimalsAndItsRealPlace) {
    foglioDxf();
    rappvid = 0.5;
    NumPat = 4;
    colorCorrente = 6;
    segmento(1, 10, 3, 1000, 7, 8);
    EXPECT_EQ(entitaScritte(),
              "  0\nLINE\n  8\n0\n  6\nDASHED\n 62\n6\n 10\n0.5000000000000\n 20\n495.0000000000000\n"
              " 30\n7.0000000000000\n 11\n1.5000000000000\n 21\n0.0000000000000\n 31\n8.0000000000000\n");
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
    EXPECT_EQ(s.str(), "LINE 0 1\nLINE 0 1\nLINE 0 1\nPOLYLINE 0 1\nCIRCLE 0 1\nARC 0 1\nTEXT 0 1\n");
    std::filesystem::remove(dxf);
    std::filesystem::remove(esito);
}

}   // namespace
