// The table of control points: its bytes, its solution, and the read-out that follows it.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "digitising/FilePunti.h"
#include "digitising/PuntiApplica.h"
#include "digitising/PuntiTesti.h"
#include "model/Archivio.h"
#include "model/Estensioni.h"
#include "model/Unita.h"
#include "registration/attaccoDinamico.h"
#include "registration/Coordinate.h"
#include "registration/PuntiControllo.h"
#include "support/Foglio.h"

using namespace tessaro;
using namespace prova;

namespace {

Coppia piegata(const Coppia& p) {
    return {655000 + 0.2 * p.x + 4 * std::sin(p.x / 2500), 979000 - 0.2 * p.y + 3 * std::cos(p.y / 2000)};
}

TabellaPunti venti(Metodo m) {
    TabellaPunti t;
    t.metodo = m;
    for (int i = 0; i < 20; ++i) {
        RigaPunto r;
        r.nome = "P" + std::to_string(i + 1);
        r.foglio = {300.0 + 800 * (i % 5), 300.0 + 700 * (i / 5)};
        r.reale = piegata(r.foglio);
        r.conFoglio = r.conReale = true;
        t.righe.push_back(r);
    }
    return t;
}

}   // namespace

TEST(TabellaPunti, ComesBackFromItsBytesAndSurvivesAnyOthers) {
    TabellaPunti t = venti(Metodo::terzo);
    t.righe[3].conReale = false;
    t.righe[3].reale = {};
    t.righe[4].inUso = false;
    t.robusta = t.inVigore = true;
    t.frecce = false;
    t.esagerazione = 250;
    t.firma = {1, 2, 3, 4, 5, 6, 7, 8};
    const std::string bytes = BytesTabella(t);
    EXPECT_EQ(TabellaDaBytes(bytes), t);
    for (std::size_t n = 0; n < bytes.size(); n += 7) EXPECT_LE(TabellaDaBytes({bytes.data(), n}).righe.size(), 20U);
    std::mt19937 sorte(2);
    for (int giro = 0; giro < 2000; ++giro) {
        std::string guasti = bytes;
        for (int k = 0; k < 6; ++k) guasti[sorte() % guasti.size()] = static_cast<char>(sorte());
        const TabellaPunti letta = TabellaDaBytes(guasti);
        EXPECT_LE(letta.righe.size(), 20U);
        for (const RigaPunto& r : letta.righe)
            EXPECT_TRUE(std::isfinite(r.foglio.x) && std::isfinite(r.foglio.y) && std::isfinite(r.reale.x));
    }
    EXPECT_EQ(TabellaDaBytes("\x02").righe.size(), 0U);   // of a later program
}

TEST(TabellaPunti, TheReadOutFollowsTheWholeMappingUntilPointsOneAndTwoChange) {
    fogliovuoto();
    ASSERT_TRUE(PoniTabella(venti(Metodo::lastra)));
    const Coppia p = venti(Metodo::lastra).righe[7].foglio;
    ASSERT_EQ(ApplicaPunti(true), "");
    double X = 0, Y = 0, x = 0, y = 0;
    DigiToReal(p.x, p.y, X, Y);
    EXPECT_NEAR(X, piegata(p).x, 1e-6);
    EXPECT_NEAR(Y, piegata(p).y, 1e-6);
    RealToDigi(X, Y, x, y);
    EXPECT_NEAR(std::hypot(x - p.x, y - p.y), 0, 1e-6);
    EXPECT_NEAR(Scaladis, decimiUnita * 0.2, decimiUnita * 0.005);
    // A point moved by hand: the registration is that of two points again.
    AssegnaAttacco(1, LeggiAttacco(1).x + 1, LeggiAttacco(1).y);
    EXPECT_EQ(MappaInVigore(), nullptr);
    DigiToReal(p.x, p.y, X, Y);
    EXPECT_GT(std::fabs(X - piegata(p).x), 0.01);
    AzzeraEstensioni();
}

TEST(TabellaPunti, GivenPointsStayWhereTheyAreAndGetTheSimilaritysCoordinates) {
    fogliovuoto();
    AssegnaAttacco(1, 100, 2000);
    AssegnaAttacco(2, 2500, 150);
    TabellaPunti t;
    for (const Coppia& f : {Coppia{200, 200}, Coppia{2000, 300}, Coppia{700, 1800}})
        t.righe.push_back({"", f, {50 + 0.1 * f.x + 0.02 * f.y, 900 + 0.02 * f.x - 0.1 * f.y}, true, true, true});
    ASSERT_TRUE(PoniTabella(t));
    ASSERT_EQ(ApplicaPunti(false), "");
    EXPECT_EQ(LeggiAttacco(1).x, 100);
    EXPECT_EQ(LeggiAttacco(2).y, 150);
    for (const RigaPunto& r : t.righe) {
        double X = 0, Y = 0;
        DigiToReal(r.foglio.x, r.foglio.y, X, Y);
        EXPECT_NEAR(X, r.reale.x, 1e-4);   // the 32-bit pi of directions is in it
        EXPECT_NEAR(Y, r.reale.y, 1e-4);
    }
    AzzeraEstensioni();
}

TEST(TabellaPunti, TooFewPointsChangeNothingAndSayWhy) {
    fogliovuoto();
    TabellaPunti t = venti(Metodo::affine);
    t.righe.resize(2);
    ASSERT_TRUE(PoniTabella(t));
    EXPECT_NE(ApplicaPunti(true), "");
    EXPECT_EQ(Elem(2).att.coordReali, 0);
    EXPECT_EQ(MappaDellaTabella(), nullptr);
    AzzeraEstensioni();
}

TEST(TabellaPunti, TheSheetsMappingGoesThereAndBackAndByAGridToAHundredthOfAPixel) {
    fogliovuoto();
    ASSERT_TRUE(PoniTabella(venti(Metodo::lastra)));
    auto m = MappaDellaTabella();
    ASSERT_NE(m, nullptr);
    constexpr double tolleranza = 0.01 * 254 / 300;   // of a pixel of 300 to the inch, sheet units
    ASSERT_TRUE(m->Interpola(0, 0, 4200, 2970, tolleranza));
    std::mt19937 sorte(8);
    std::uniform_real_distribution<double> su(0, 2970);
    for (int i = 0; i < 2000; ++i) {
        const Coppia p{su(sorte), su(sorte)}, esatta = m->esatta(p), stimata = (*m)(p);
        ASSERT_LE(std::hypot(esatta.x - stimata.x, esatta.y - stimata.y), tolleranza);
        Coppia indietro;
        ASSERT_TRUE(m->Inversa(esatta, indietro));
        ASSERT_NEAR(std::hypot(indietro.x - p.x, indietro.y - p.y), 0, 4200 * 1e-9);
    }
    // The live transformation goes through it for as long as it has the word.
    double x = 700, y = 900;
    {
        const ConMappa parola(m.get());
        attaccoAttivo.Traf4Pt(x, y);
        EXPECT_TRUE(AnteprimaAttiva());
    }
    EXPECT_NEAR(x, (*m)({700, 900}).x, 1e-12);
    EXPECT_FALSE(AnteprimaAttiva());
    AzzeraEstensioni();
}

TEST(FilePunti, QgisPointsAndListsGoOutAndComeBack) {
    fogliovuoto();
    TabellaPunti t = venti(Metodo::affine);
    t.righe[2].inUso = false;
    t.righe[5].nome = "a \"quoted\", name";
    ASSERT_TRUE(PoniTabella(t));
    const PixelDelFoglio pixel{120, 80, 0.8466, 0.8466};
    const TabellaPunti points = LeggiFilePunti(ScriviPointsQgis(t, StatoTabella(), pixel), pixel).tabella;
    ASSERT_EQ(points.righe.size(), t.righe.size());
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        EXPECT_EQ(points.righe[i].reale.x, t.righe[i].reale.x);
        EXPECT_NEAR(points.righe[i].foglio.y, t.righe[i].foglio.y, 1e-9);
        EXPECT_EQ(points.righe[i].inUso, t.righe[i].inUso);
    }
    t.righe[7].conReale = false;
    t.righe[7].reale = {};
    EXPECT_EQ(LeggiFilePunti(ScriviCsvPunti(t, StatoTabella()), {}).tabella.righe, t.righe);
    AzzeraEstensioni();
}

TEST(FilePunti, ListsAsTheyComeAreRead) {
    struct Caso {
        std::string_view testo;
        std::size_t righe, scartate;
        double realeX, foglioY;
        std::string_view nome;
    };
    const Caso casi[] = {
        // QGIS before 3.26, with a reference system; rows count downwards as negative
        {"#CRS: PROJCRS[\"x\"]\nmapX,mapY,pixelX,pixelY,enable,dX,dY,residual\n1000.5,2000,10,-20,1,0,0,0\n", 1, 0,
         1000.5, 20, ""},
        {"A1 1000.5 2000 12.3\r\nA2 1100 2000\r\n", 2, 0, 1000.5, 0, "A1"},
        {"A1;1000,5;2000\nA2;text;5\n", 1, 1, 1000.5, 0, "A1"},
        {"nome;foglio x;foglio y;reale x;reale y;in uso\nB;5;20;1000,5;3;no\n", 1, 0, 1000.5, 20, "B"},
        {"P\t5\t20\t1000.5\t7\n", 1, 0, 1000.5, 20, "P"},
        {"\xEF\xBB\xBFname,x,y\nQ,1000.5,2\n\n", 1, 0, 1000.5, 0, "Q"},
        {"no numbers at all\n", 0, 1, 0, 0, ""},
    };
    for (const Caso& c : casi) {
        const EsitoFilePunti e = LeggiFilePunti(c.testo, {});
        ASSERT_EQ(e.tabella.righe.size(), c.righe) << c.testo;
        EXPECT_EQ(e.scartate, c.scartate) << c.testo;
        if (c.righe == 0) continue;
        EXPECT_EQ(e.tabella.righe[0].reale.x, c.realeX) << c.testo;
        EXPECT_EQ(e.tabella.righe[0].foglio.y, c.foglioY) << c.testo;
        EXPECT_EQ(e.tabella.righe[0].nome, c.nome) << c.testo;
    }
    TabellaPunti t;
    t.righe.resize(3);
    t.righe[0].nome = " a2 ";
    t.righe[1].nome = "zz";
    EXPECT_EQ(AbbinaPerNome(t, LeggiFilePunti(casi[1].testo, {}).tabella), 1U);
    EXPECT_EQ(t.righe[0].reale.x, 1100);
}

TEST(PuntiTesti, ASlipIsToldInASentence) {
    fogliovuoto();
    TabellaPunti t = venti(Metodo::helmert);
    for (RigaPunto& r : t.righe) r.reale = {655000 + 0.2 * r.foglio.x, 979000 - 0.2 * r.foglio.y};
    std::mt19937 sorte(1);
    std::normal_distribution<double> rumore(0, 0.02);
    for (RigaPunto& r : t.righe) r.reale.x += rumore(sorte);
    std::swap(t.righe[6].reale.x, t.righe[6].reale.y);
    rappvid = 0.2;
    ASSERT_TRUE(PoniTabella(t));
    const auto testi = TestiSbagli(LaTabella(), StatoTabella());
    ASSERT_EQ(testi.size(), 1U);
    EXPECT_NE(testi[0].find("7 (P7)"), std::string::npos) << testi[0];
    EXPECT_NE(testi[0].find("X and Y look exchanged"), std::string::npos) << testi[0];
    AzzeraEstensioni();
}
