// Maps of other programs: what becomes of their features in the middle of other work, and of files that are damaged or
// larger than the drawing. What GDAL sees of written files is tools/interchange-maps' to say.
#include "maps/Mappe.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "maps/Gdal.h"
#include "maps/NomiLucidi.h"
#include "maps/SistemaRiferimento.h"
#include "model/Estensioni.h"
#include "model/Figura.h"
#include "model/Lucidi.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Library.h"
#include "registration/Coordinate.h"
#include "support/Avvisi.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

class Mappa {
    std::string dove;

public:
    explicit Mappa(const std::string& testo, const char* suffisso = ".geojson") {
        static int quante = 0;
        dove = (std::filesystem::temp_directory_path()
                / ("tessaro-mappa-" + std::to_string(getpid()) + "-" + std::to_string(++quante) + suffisso))
                   .string();
        std::ofstream(dove, std::ios::binary) << testo;
    }
    ~Mappa() { std::filesystem::remove(dove); }
    Mappa(const Mappa&) = delete;
    Mappa& operator=(const Mappa&) = delete;
    [[nodiscard]] FSSpec spec() const { return FSMakeFSSpec(dove); }
};

std::string forma(const std::string& geometria, const std::string& attributi = "{}") {
    return R"({"type":"Feature","properties":)" + attributi + R"(,"geometry":)" + geometria + "}";
}
std::string raccolta(std::initializer_list<std::string> forme) {
    std::string s;
    for (const std::string& f : forme) s += (s.empty() ? "" : ",") + f;
    return R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"urn:ogc:def:crs:EPSG::3003"}},"features":[)"
           + s + "]}";
}
const char* const quadrato =
    R"({"type":"Polygon","coordinates":[[[1394100,4994100],[1394200,4994100],[1394200,4994200],[1394100,4994100]]]})";

// A sheet at 1:1000 whose lower left corner is a place of the Italian grid.
void foglioReale(std::int32_t capacity = 2000) {
    fogliovuoto(capacity);
    AzzeraEstensioni();
    XFDecimi = 4000;
    YFDecimi = 3000;
    auto& s = Elem(1).att;
    auto& r = Elem(2).att;
    s.x1 = 0;
    s.y1 = s.y2 = 3000;
    s.x2 = 1000;
    r.x1 = 1394000;
    r.y1 = r.y2 = 4994000;
    r.x2 = 1394100;
    r.coordReali = 1;
    CalcTransfC();
    CalcolaRapporti();
    ASSERT_TRUE(PoniSistemi({"EPSG:3003", "", ""}));
}

std::string detto() { return avvisi.empty() ? std::string() : avvisi.back().testo; }

#define SENZA_GDAL()                                                                                                   \
    if (CaricaGdal() == nullptr) GTEST_SKIP() << "GDAL is not installed"

}   // namespace

TEST(Mappe, AnImportEndsTheFigureInProgressAndLetsTheSelectionGo) {
    SENZA_GDAL();
    foglioReale();
    const std::int32_t s = segmento(0, 0, 10, 10);
    Elem(s).selezionato = 1;
    Puntosel.attiva = 1;
    Puntosel.numSel = 1;
    Puntosel.indice = s;
    LeggiMappa(Mappa(raccolta({forma(quadrato, R"({"tag":"P 12","NOTE":"x","layer":7,"colour":"#FF0000"})")})).spec());
    ASSERT_EQ(indElem, s + 4);
    EXPECT_EQ(Elem(s + 1).tipo, tPoligono);
    EXPECT_EQ(Elem(s + 1).poli.numVertici, 3);
    EXPECT_EQ(Elem(s + 1).lucido, 7);
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(Elem(s + 1).testa.aref.data()) + 1, 4), "P 12");
    double X = 0, Y = 0;
    DigiToReal(Elem(s + 2).vert.x, Elem(s + 2).vert.y, X, Y);
    EXPECT_NEAR(X, 1394200, 1e-6);
    EXPECT_NEAR(Y, 4994100, 1e-6);
    EXPECT_FALSE(Puntosel.attiva);
    EXPECT_EQ(Elem(s).selezionato, 0);
    EXPECT_FALSE(FiguraInCorso());
    EXPECT_EQ(VisioneGraf.lucidoCorrente, 0) << "the current layer is the person's";
    EXPECT_NE(detto().find("NOTE (1)"), std::string::npos) << detto();
}

TEST(Mappe, WhatCannotBeReadLeavesTheDrawingAsItIs) {
    SENZA_GDAL();
    const std::string buona = raccolta({forma(quadrato)});
    for (const std::string& testo :
         {std::string(), std::string("{"), buona.substr(0, buona.size() / 2), std::string("\0\1\2\3", 4)}) {
        foglioReale();
        avvisi.clear();
        LeggiMappa(Mappa(testo).spec());
        EXPECT_EQ(indElem, 2);
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101}) << testo;
    }
    foglioReale();
    LeggiMappa(FSMakeFSSpec("/nowhere/at all.gpkg"));
    EXPECT_EQ(indElem, 2);
}

TEST(Mappe, PlacesThatAreNoneAreCountedAndTheRestComesIn) {
    SENZA_GDAL();
    std::string fondo = R"({"type":"Point","coordinates":[1394100,4994100]})";
    for (int i = 0; i < 25; ++i) fondo = R"({"type":"GeometryCollection","geometries":[)" + fondo + "]}";
    foglioReale();
    LeggiMappa(Mappa(raccolta({forma(R"({"type":"Point","coordinates":[1e300,-1e300]})"), forma("null"),
                               forma(R"({"type":"Polygon","coordinates":[]})"), forma(fondo),
                               forma(quadrato, R"({"layer":400,"width":9000,"colour":"#12"})")}))
                   .spec());
    ASSERT_EQ(indElem, 6);
    EXPECT_EQ(Elem(3).poli.spessore, spessore) << "a width out of bounds is the current one";
    EXPECT_EQ(Elem(3).poli.colore, colorCorrente);
    for (const char* const parola : {"POINT", "EMPTY", "COLLECTION"})
        EXPECT_NE(detto().find(parola), std::string::npos) << parola << " in " << detto();
}

TEST(Mappe, AFullDrawingTakesWhatItCanAndNoHalfRecord) {
    SENZA_GDAL();
    foglioReale(5);
    LeggiMappa(Mappa(raccolta({forma(quadrato), forma(quadrato)})).spec());
    EXPECT_EQ(indElem, 5);
    EXPECT_EQ(Elem(3).poli.numVertici, 2) << "the head counts the vertices that are there";
    EXPECT_NE(detto().find("full"), std::string::npos) << detto();
}

TEST(Mappe, AMapInDegreesAsksForAPlaneSystemFirst) {
    SENZA_GDAL();
    const std::string gradi =
        R"({"type":"FeatureCollection","features":[)" + forma(R"({"type":"Point","coordinates":[7.5,45]})") + "]}";
    foglioReale();
    PoniSistemi({});
    LeggiMappa(Mappa(gradi).spec());   // real coordinates of no named system: nobody knows the way
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});

    fogliovuoto();
    avvisi.clear();
    bottoni[9351] = 2;   // not wanted: nothing has changed
    LeggiMappa(Mappa(gradi).spec());
    EXPECT_EQ(indElem, 2);
    EXPECT_EQ(SistemaDelDisegno(), "");
    EXPECT_FALSE(Elem(2).att.coordReali);

    bottoni[9351] = bottoni[9352] = 1;
    LeggiMappa(Mappa(gradi).spec());
    ASSERT_EQ(indElem, 3);
    EXPECT_EQ(SistemaDelDisegno(), "EPSG:32632");
    double X = 0, Y = 0;
    DigiToReal(Elem(3).mark.x, Elem(3).mark.y, X, Y);
    EXPECT_NEAR(X, 381776.0, 100);
    EXPECT_NEAR(Y, 4984000.0, 1500);
    EXPECT_TRUE(Elem(3).mark.x > 0 && Elem(3).mark.x < XFDecimi) << "it lies on the sheet";
}

TEST(Mappe, NamesOfLayersTakeTheEmptyOnesAndShareWhenThereAreNoMore) {
    fogliovuoto();
    Elem(segmento(0, 0, 1, 1)).lucido = 1;
    LucidiPerNome l;
    EXPECT_EQ(l.lucido("strade"), 0);
    EXPECT_EQ(l.lucido("fiumi"), 2) << "1 holds a segment";
    EXPECT_EQ(l.lucido("strade"), 0);
    for (int i = 0; i < 97; ++i) l.lucido("n" + std::to_string(i));
    EXPECT_EQ(l.riuniti(), 0);
    EXPECT_EQ(l.lucido("one more"), VisioneGraf.lucidoCorrente);
    EXPECT_EQ(l.riuniti(), 1);
}

TEST(Mappe, ALibraryThatIsNotThereIsNone) {
    EXPECT_EQ(OpenLibrary({"libof-no-such-name.so.1"}), nullptr);
    EXPECT_EQ(LibrarySymbol(nullptr, "anything"), nullptr);
}
