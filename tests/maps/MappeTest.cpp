// Maps of other programs: what becomes of their features in the middle of other work, and of files that are damaged or
// larger than the drawing. What GDAL sees of written files is tools/interchange-maps' to say.
#include "maps/Mappe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <unistd.h>
#include <vector>

#include "exchange/FormatoXYZ.h"
#include "exchange/XYZ.h"
#include "maps/Gdal.h"
#include "maps/NomiLucidi.h"
#include "maps/PuntiDiElenchi.h"
#include "maps/SistemaRiferimento.h"
#include "model/Carattere.h"
#include "model/Estensioni.h"
#include "model/Figura.h"
#include "model/Lucidi.h"
#include "model/NomiLucidi.h"
#include "model/Selezione.h"
#include "model/Unita.h"
#include "platform/Library.h"
#include "registration/Coordinate.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
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

TEST(Mappe, APointListOfAnotherSystemIsCarriedOver) {
    if (CaricaProj() == nullptr) GTEST_SKIP() << "PROJ is not installed";
    foglioReale();
    PuntiPerSistema();
    DatoP = {colonnaX, colonnaY, colonnaNessuna, colonnaNessuna};
    TipoForm = rigaPerPunto;
    ASSERT_TRUE(PoniSistemi({"EPSG:32632", "", "EPSG:4326"}));
    {
        const FileProva f("9\t45\r9\t91\r");   // on the zone's own meridian; and beyond the pole
        LeggiXYZ();
    }
    ASSERT_EQ(indElem, 3);
    double X = 0, Y = 0;
    DigiToReal(Elem(3).mark.x, Elem(3).mark.y, X, Y);
    EXPECT_NEAR(X, 500000, 1e-6);
    EXPECT_NEAR(Y, 4982950.400, 1e-3);
    EXPECT_NE(detto().find("EPSG:4326"), std::string::npos) << detto();
    EXPECT_NE(detto().find("1 row"), std::string::npos) << detto();

    ASSERT_TRUE(PoniSistemi({"EPSG:32632", "", "no such system"}));
    avvisi.clear();
    {
        const FileProva f("9\t45\r");
        LeggiXYZ();
    }
    EXPECT_EQ(indElem, 3) << "nothing comes in by an unknown way";
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
    ASSERT_TRUE(PoniSistemi({}));
    const FileProva f("10\t20\r");   // who names no system is asked for none
    LeggiXYZ();
    EXPECT_EQ(indElem, 4);
    viaDeiPunti = {};
}

TEST(Mappe, WhatIsWrittenFromATurnedSheetComesBackAsItWas) {
    SENZA_GDAL();
    const auto gira = [] {
        foglioReale();
        Elem(2).att.x2 = 1394080;   // the sheet's right lies three fifths of a right angle off the east
        Elem(2).att.y2 = 4994060;
        CalcTransfC();
        CalcolaRapporti();
    };
    for (const char* const suffisso : {".gpkg", ".geojson", ".json"}) {
        const Mappa m("what was there before", suffisso);
        gira();
        gFontSize = 24;
        for (const int a : {0, 37, 100, 250, 399})
            Memorizza(tTesto, 500 + a, 700, 0, 0, 0, 0, 1, 2, static_cast<std::int16_t>(a), PStr255("citt\x88"));
        const std::int32_t p = indElem + 1;
        Memorizza(tPoligono, 100, 100, 5, 0, 0, 3, 2, 3, 4, PStr255(""));
        Memorizza(tVertice, 200, 100, 6, 0, 0, 0, 2, 3, 4, PStr255(""));
        Elem(p).testa.categoria = 9;
        Elem(p).lucido = 42;
        const std::int32_t quanti = indElem;
        std::vector<elemento> prima;
        for (std::int32_t i = 3; i <= quanti; ++i) prima.push_back(Elem(i));
        ScriviMappa(m.spec());
        gira();
        LeggiMappa(m.spec());
        ASSERT_EQ(indElem, quanti) << suffisso << detto();
        std::vector<elemento> dopo;
        for (std::int32_t i = 3; i <= quanti; ++i) dopo.push_back(Elem(i));
        const auto primo = [](const std::vector<elemento>& v, std::uint8_t tipo) {
            return std::find_if(v.begin(), v.end(), [tipo](const elemento& e) { return e.tipo == tipo; });
        };
        for (std::int32_t i = 0; i < 5; ++i) {
            const auto &a = (primo(prima, tTesto) + i)->test, &b = (primo(dopo, tTesto) + i)->test;
            EXPECT_NEAR(a.x, b.x, 1e-5);
            EXPECT_EQ(a.testo, b.testo);
            EXPECT_EQ((a.angolo - b.angolo) % 400, 0) << suffisso << ' ' << a.angolo << ' ' << b.angolo;
            EXPECT_EQ(a.dimensione, b.dimensione);
            EXPECT_EQ(a.colore, b.colore);
        }
        const auto &a = *primo(prima, tPoligono), &b = *primo(dopo, tPoligono);
        EXPECT_EQ(b.lucido, 42);
        EXPECT_EQ(b.testa.categoria, 9);
        EXPECT_EQ(b.poli.z, 5);
        EXPECT_EQ(a.poli.patternArea, b.poli.patternArea);
        EXPECT_EQ(a.poli.pattern, b.poli.pattern);
        EXPECT_EQ(a.poli.spessore, b.poli.spessore);
        EXPECT_EQ(primo(dopo, tVertice)->vert.z, 6);
    }
}

TEST(Mappe, AFailedWriteLeavesTheOldFile) {
    SENZA_GDAL();
    foglioReale();
    const Mappa vuota("what was there before", ".gpkg");
    ScriviMappa(vuota.spec());   // nothing to write
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
    std::ifstream f(vuota.spec().percorso);
    std::string c;
    std::getline(f, c);
    EXPECT_EQ(c, "what was there before");
    segmento(0, 0, 10, 10);
    avvisi.clear();
    ScriviMappa(FSMakeFSSpec("/nowhere/at all.gpkg"));
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9101});
}

TEST(Mappe, NamesOfLayersTakeTheEmptyOnesAndShareWhenThereAreNoMore) {
    fogliovuoto();
    AzzeraEstensioni();
    Elem(segmento(0, 0, 1, 1)).lucido = 1;
    PoniNomeLucido(4, "case");
    LucidiPerNome l;
    EXPECT_EQ(l.lucido("strade"), 0);
    EXPECT_EQ(l.lucido("fiumi"), 2) << "1 holds a segment";
    EXPECT_EQ(l.lucido("strade"), 0);
    EXPECT_EQ(l.lucido("case"), 4) << "a name of the drawing is its layer";
    EXPECT_EQ(l.lucido("muri", 7), 7) << "what the file wants, when it is free";
    EXPECT_EQ(l.lucido("siepi", 1), 3);
    EXPECT_EQ(NomeLucido(7), "muri");
    for (int i = 0; i < 94; ++i) l.lucido("n" + std::to_string(i));
    EXPECT_EQ(l.riuniti(), 0);
    EXPECT_EQ(l.lucido("one more"), VisioneGraf.lucidoCorrente);
    EXPECT_EQ(l.riuniti(), 1);
}

TEST(Mappe, ALibraryThatIsNotThereIsNone) {
    EXPECT_EQ(OpenLibrary({"libof-no-such-name.so.1"}), nullptr);
    EXPECT_EQ(LibrarySymbol(nullptr, "anything"), nullptr);
}
