// What the drawing becomes in a database, and whether every version's file says it.
#include "dwg/Confronto.h"
#include "dwg/Dwg.h"
#include "text/Conversione.h"

#include <cmath>

using namespace prova;

namespace {

class EsportaDWG : public testing::Test {
protected:
    void SetUp() override {
        foglioDxf();
        RappPunti = 0.5F;
    }
    OdDbDatabase& crea() {
        conto = {};
        db = CreaDatabaseDisegno(conto);
        return *db;
    }
    const OdDbEntity& entita(std::size_t i) { return *db->spazioModello().entita.at(i); }
    std::size_t quante() { return db->spazioModello().entita.size(); }

    std::unique_ptr<OdDbDatabase> db;
    Scritti conto;
};

TEST_F(EsportaDWG, everySheetHasItsLayerWhetherUsedOrNot) {
    const OdDbDatabase& d = crea();
    for (int i = 0; i < 100; ++i) EXPECT_FALSE(d.layers.getAt("Layer " + std::to_string(i)).isNull()) << i;
    EXPECT_TRUE(d.layers.getAt("Layer 100").isNull());
    EXPECT_FALSE(d.regApps.getAt("ODA").isNull());
}

TEST_F(EsportaDWG, theDottedLineTypesShareThePatternOfTheFirst) {
    const OdDbDatabase& d = crea();
    const auto& prima = d.linetypes[d.linetypes.getAt("DASHDOT")];
    for (const char* nome : {"DASHDOT2", "DASHDOT3"}) {
        const auto& l = d.linetypes[d.linetypes.getAt(nome)];
        EXPECT_EQ(l.dashes, prima.dashes) << nome;
        EXPECT_EQ(l.patternLength, prima.patternLength) << nome;
        EXPECT_NE(l.comments, prima.comments) << nome;
    }
    EXPECT_EQ(d.linetypes[d.linetypes.getAt("DASHED")].dashes, (std::vector<double>{20, -20}));
}

TEST_F(EsportaDWG, stylesAreMadeAndNoTextRefersToOne) {
    testo(100, 100, "quota");
    const OdDbDatabase& d = crea();
    EXPECT_EQ(d.textStyles[ttfStyleIdCourier].name, "CourierStyleFabra");
    EXPECT_EQ(d.textStyles[ttfStyleIdCourier].fileName, "Cour.TTF");
    EXPECT_TRUE(static_cast<const OdDbText&>(entita(0)).textStyle.isNull());
}

TEST_F(EsportaDWG, penSizesBecomeLineWeightsByTheTable) {
    const struct {
        double penna;
        std::int16_t peso;
    } casi[] = {{0, 5},     {0.05, 5},   {0.1, 9},  {0.45, 9},  {0.5, 13},    {0.7, 15},  {0.9, 18}, {1, 20},
                {1.05, 25}, {1.3, 30},   {2.5, 50}, {2.55, 53}, {2.7, 60},    {3.05, 70}, {5, 100},  {5.3, 106},
                {6, 120},   {7.05, 158}, {8, 200},  {10, 200},  {10.05, 211}, {400, 211}, {-1, 5}};
    for (const auto& c : casi) {
        OdDbLine l;
        SetSpessore(l, c.penna);
        EXPECT_EQ(l.lineWeight, c.peso) << c.penna;
    }
}

TEST_F(EsportaDWG, blackIsIndexSevenAndOtherColoursAreCutToEightBits) {
    OdDbLine l;
    arrColori[0].rgb = {0, 0, 0};
    esportaColore(l, 1);
    EXPECT_EQ(l.color.metodo, OdCmColor::byACI);
    EXPECT_EQ(l.color.indice, 7);
    arrColori[1].rgb = {65535, 256, 514};
    esportaColore(l, 2);
    EXPECT_EQ(l.color.metodo, OdCmColor::byColor);
    EXPECT_EQ((std::array{l.color.red, l.color.green, l.color.blue}), (std::array<std::uint8_t, 3>{255, 0, 2}));
    esportaColore(l, 0);   // of a damaged record
    EXPECT_EQ(l.color.indice, 7);
}

TEST_F(EsportaDWG, elevationsStayWhereTheKitHasThemAndAreLostElsewhere) {
    segmento(0, 1000, 100, 900, 3, 4);
    marker(50, 950, 7, 5);
    testo(10, 990, "Pt", 100);
    cerchio(200, 800, 25);
    crea();
    ASSERT_EQ(quante(), 4U);
    const auto& l = static_cast<const OdDbLine&>(entita(0));
    EXPECT_EQ((std::array{l.startPoint.x, l.startPoint.y, l.startPoint.z}), (std::array{0.0, 0.0, 3.0}));
    EXPECT_EQ((std::array{l.endPoint.x, l.endPoint.y, l.endPoint.z}), (std::array{100.0, 100.0, 4.0}));
    const auto& c = static_cast<const OdDbCircle&>(entita(1));
    EXPECT_EQ(c.center.z, 7);
    EXPECT_EQ(c.radius, 1);
    EXPECT_EQ(static_cast<const OdDbText&>(entita(2)).position.z, 0);
    EXPECT_EQ(static_cast<const OdDbCircle&>(entita(3)).center.z, 0);
}

TEST_F(EsportaDWG, aMarkerIsItsStrokesAndOneOfAnotherShapeIsCountedAsLost) {
    const std::size_t tratti[] = {0, 4, 2, 4, 2, 1, 0};
    for (std::size_t forma = 0; forma < std::size(tratti); ++forma) {
        foglioDxf();
        marker(50, 950, 0, static_cast<double>(forma));
        crea();
        EXPECT_EQ(quante(), tratti[forma]) << forma;
        EXPECT_EQ(conto.perduti.vuoti(), tratti[forma] != 0) << forma;
    }
    foglioDxf();
    marker(50, 950, 0, 2);
    crea();
    const auto& l = static_cast<const OdDbLine&>(entita(0));
    EXPECT_EQ((std::array{l.startPoint.x, l.startPoint.y, l.endPoint.x, l.endPoint.y}),
              (std::array{49.0, 49.0, 51.0, 51.0}));
}

TEST_F(EsportaDWG, anArcsAnglesAreDegreesWhateverTheUnitInForce) {
    for (const auto unita : {gradCentesimali, gradSessadecimali, gradSessagesimali}) {
        foglioDxf();
        gradCorrente = unita;
        arco(100, 900, 10, 30, 45);   // clockwise from straight up
        crea();
        const auto& a = static_cast<const OdDbArc&>(entita(0));
        EXPECT_NEAR(a.startAngle, 15 * std::acos(-1.0) / 180, 1e-12);
        EXPECT_NEAR(a.endAngle, 60 * std::acos(-1.0) / 180, 1e-12);
    }
}

TEST_F(EsportaDWG, everyVersionReadsBackAsItWasMeant) {
    coloriPresenti = 8;
    arrColori[7].rgb = {51400, 25700, 12850};
    colorCorrente = 8;
    NumPat = 4;
    spessore = 3;
    segmento(0, 1000, 1234567.890123, 1e-7, 3, -4.25);
    const std::int32_t testa = polilinea({{0, 0}, {10, 20}, {30, 0}, {0, 0}});
    Elem(testa).poli.colore = 1;
    arco(100, 900, 10, 300, 200);
    cerchio(5, 5, 1.0 / 3);
    testo(10, 990, "Citt\x88 ^ 50\xA1 \xE3", 57);   // accented a, degree, an opening quote
    marker(7, 7, 2, 1);
    for (const auto& v : VersioniScrivibili()) {
        OdDbDatabase& d = crea();
        const std::string t = scrittoDxf(d, v.numero);
        EXPECT_EQ(t.find("\r\n") != std::string::npos, true);
        for (std::size_t i = 0; i < t.size(); ++i)
            if (t[i] == '\n') { ASSERT_TRUE(i > 0 && t[i - 1] == '\r') << v.sigla; }
        OdDbDatabase riletto = createDatabase(false, 0);
        EXPECT_EQ(rilettoDxf(riletto, t).codice, eOk) << v.sigla;
        EXPECT_EQ(riletto.versione, v.sigla);
        const Differenze diverse = ConfrontaDatabase(d, riletto, v.numero);
        EXPECT_EQ(diverse.quante, 0) << v.sigla << ": " << diverse.prima;
    }
}

TEST_F(EsportaDWG, aFileThatSaysSomethingElseIsTold) {
    segmento(0, 1000, 100, 900);
    OdDbDatabase& d = crea();
    std::string t = scrittoDxf(d, 29);
    const auto dove = t.find("\r\n 11\r\n100.0");
    ASSERT_NE(dove, std::string::npos);
    t.replace(dove + 7, 5, "100.1");
    OdDbDatabase riletto = createDatabase(false, 0);
    rilettoDxf(riletto, t);
    EXPECT_EQ(ConfrontaDatabase(d, riletto, 29).quante, 1);
}

TEST_F(EsportaDWG, withTheChoicesOnlySheetsInUseAndClosedFigures) {
    scelteEsporta = {1, 1};
    const std::int32_t testa = polilinea({{0, 0}, {10, 20}, {30, 0}, {0, 0}});
    Elem(testa).lucido = 7;
    polilinea({{0, 0}, {10, 20}, {0, 0}});
    const OdDbDatabase& d = crea();
    EXPECT_FALSE(d.layers.getAt("Layer 7").isNull());
    EXPECT_TRUE(d.layers.getAt("Layer 8").isNull());
    const auto& chiusa = static_cast<const OdDb3dPolyline&>(entita(0));
    EXPECT_TRUE(chiusa.closed);
    EXPECT_EQ(chiusa.numVerts(), 3U);
    EXPECT_FALSE(static_cast<const OdDb3dPolyline&>(entita(1)).closed);   // there and back
}

TEST_F(EsportaDWG, textGoesByTheVersionsCharacters) {
    testo(10, 990, "\x88\xA1");   // a with grave, degree
    const struct {
        std::int16_t versione;
        const char* byte;
    } casi[] = {
        {16, "\r\n  1\r\n\xE0\xB0\r\n"}, {25, "\r\n  1\r\n\xE0\xB0\r\n"}, {27, "\r\n  1\r\n\xC3\xA0\xC2\xB0\r\n"}};
    for (const auto& c : casi) EXPECT_NE(scrittoDxf(crea(), c.versione).find(c.byte), std::string::npos) << c.versione;
}

}   // namespace
