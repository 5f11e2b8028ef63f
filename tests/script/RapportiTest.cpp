// What scripts see of the drawing, and the command line's options.
#include <gtest/gtest.h>

#include <limits>

#include "model/Selezione.h"
#include "script/Copione.h"
#include "script/Json.h"
#include "script/Messaggi.h"
#include "script/Rapporti.h"
#include "support/Foglio.h"

using namespace tessaro;

namespace {

TEST(RapportiDelCopione, ARecordShowsTheFieldsOfItsType) {
    prova::fogliovuoto();
    const auto s = prova::segmento(1, 2, 3, 0.1);
    Elem(s).segm.z2 = std::numeric_limits<double>::infinity();
    Elem(s).testa.aref = Aref{2, 'a', '"'};
    const std::string json = RecordJson(s);
    EXPECT_TRUE(json.starts_with("{\"n\":3,\"tipo\":1,\"lucido\":0,")) << json;
    for (const auto& [nome, valore] : {std::pair{"x1", "1"}, {"y2", "0.1"}, {"z2", "\"inf\""}, {"aref", R"("a\"")"}}) {
        std::string_view v;
        ASSERT_TRUE(JsonSotto(json, nome, v)) << nome;
        EXPECT_EQ(v, valore);
    }
    const auto t = prova::testo(10, 20, "prova");
    std::string_view v;
    EXPECT_TRUE(JsonSotto(RecordJson(t), "testo", v));
    EXPECT_FALSE(JsonSotto(RecordJson(t), "linea", v)) << "a text has no line type";
    const auto p = prova::immagine(0, 0, 5, 5, std::string(77, 'x'));
    EXPECT_EQ(ValoreDi("rec." + std::to_string(p) + ".bytes"), "77");
}

TEST(RapportiDelCopione, ADamagedTextLengthStaysInsideTheRecord) {
    prova::fogliovuoto();
    const auto t = prova::testo(0, 0, "abc");
    std::array<std::uint8_t, 41> tutto{};
    tutto.fill('z');
    tutto[0] = 255;
    Elem(t).test.testo = tutto;
    std::string_view v;
    const std::string json = RecordJson(t);
    ASSERT_TRUE(JsonSotto(json, "testo", v));
    EXPECT_EQ(JsonTesto(v), std::string(40, 'z'));
}

TEST(RapportiDelCopione, PathsReachGlobalsFieldsAndRecords) {
    prova::fogliovuoto();
    prova::marker(7, 8);
    Puntosel.numSel = 4;
    EXPECT_EQ(ValoreDi("indElem"), "3");
    EXPECT_EQ(ValoreDi("Puntosel.numSel"), "4");
    EXPECT_EQ(ValoreDi("rec.3.x"), "7");
    for (const char* s : {"nessuno", "Puntosel.nessuno", "rec.0.x", "rec.2000000000", "rec.x", "rec", "rec.3.raggio"})
        EXPECT_THROW(ValoreDi(s), ErroreCopione) << s;
    EXPECT_EQ(StatoJson({"indElem", "ticks"}).substr(0, 13), "{\"indElem\":3,");
    EXPECT_THROW(StatoJson({"indElem", "nessuno"}), ErroreCopione);
}

struct Riga {
    std::vector<std::string> parole;
    std::vector<char*> argv;
    int argc = 0;
    Opzioni o;
    std::string guasto;
    bool letta = false;
    explicit Riga(std::vector<std::string> p) : parole(std::move(p)) {
        parole.insert(parole.begin(), "tessaro3d");
        for (auto& s : parole) argv.push_back(s.data());
        argv.push_back(nullptr);
        argc = static_cast<int>(parole.size());
        letta = LeggiOpzioni(argc, argv.data(), o, guasto);
    }
};

TEST(RigaDiComando, OptionsAreTakenAndTheToolkitsAreLeft) {
    const Riga r({"a.ts3d", "--script", "x", "-platform", "offscreen", "--window=640x480", "--ratio", "2",
                  "--style=fusion", "--settings", "d", "--language", "it", "--", "--odd"});
    ASSERT_TRUE(r.letta) << r.guasto;
    EXPECT_EQ(r.o.copione, "x");
    EXPECT_TRUE(r.o.avvio.script);
    EXPECT_EQ(r.o.avvio.width, 640);
    EXPECT_EQ(r.o.avvio.height, 480);
    EXPECT_EQ(r.o.avvio.ratio, 2);
    EXPECT_EQ(r.o.avvio.settings, "d");
    EXPECT_EQ(r.o.avvio.language, "it");
    EXPECT_EQ(r.o.documenti, (std::vector<std::string>{"a.ts3d", "--odd"}));
    ASSERT_EQ(r.argc, 4);
    EXPECT_STREQ(r.argv[1], "-platform");
    EXPECT_STREQ(r.argv[2], "offscreen");
    EXPECT_STREQ(r.argv[3], "--style=fusion");
    EXPECT_EQ(r.argv[4], nullptr);
}

TEST(RigaDiComando, BadOptionsAreRefused) {
    using Parole = std::vector<std::string>;
    for (const Parole& p : {Parole{"--nonsense"},
                            {"--script"},
                            {"--window", "640"},
                            {"--window", "0x10"},
                            {"--window", "640x480x"},
                            {"--ratio", "0"},
                            {"--ratio", "two"},
                            {"--language", "fr"}})
        EXPECT_FALSE(Riga(p).letta) << p[0];
    EXPECT_TRUE(Riga({"-h"}).o.aiuto);
    EXPECT_FALSE(Riga({"a"}).o.avvio.script);
}

}   // namespace
