// Reading of a script's line: words and quotes, modifiers, places, keys, dialog steps; and looking into printed JSON.
#include <gtest/gtest.h>

#include "platform/Events.h"
#include "script/Json.h"
#include "script/Messaggi.h"
#include "script/Parole.h"

using namespace tessaro;

namespace {

std::vector<std::string> testi(std::string_view riga) {
    std::vector<std::string> v;
    for (const Parola& p : Spezza(riga)) v.push_back(p.testo);
    return v;
}

using Testi = std::vector<std::string>;

TEST(ParoleDelCopione, BlanksSeparateAndQuotesKeep) {
    EXPECT_EQ(testi("  click\t10,20   shift\r"), (Testi{"click", "10,20", "shift"}));
    EXPECT_EQ(testi(R"(echo "two words" "" a"b c"d)"), (Testi{"echo", "two words", "", "ab cd"}));
    EXPECT_EQ(testi(R"(4="say \"no\" \\ twice\n")"), (Testi{"4=say \"no\" \\ twice\n"}));
    EXPECT_EQ(testi(R"(C:\dir\new)"), (Testi{R"(C:\dir\new)"})) << "a bar outside quotes is a bar";
    EXPECT_EQ(testi("   # a remark"), Testi{});
    EXPECT_EQ(testi("echo #1"), (Testi{"echo", "#1"}));
    EXPECT_THROW(Spezza("echo \"open"), ErroreCopione);
    EXPECT_THROW(Spezza(R"(echo "\t")"), ErroreCopione);
}

TEST(ParoleDelCopione, ModifiersAreTakenOffTheEndOnly) {
    auto p = Spezza("drop 1,2 shift/file option command");
    EXPECT_EQ(TogliModificatori(p), optionKey | cmdKey);
    EXPECT_EQ(p.size(), 3U);
    p = Spezza("drop 1,2 \"shift\"");
    EXPECT_EQ(TogliModificatori(p), 0);
    p = Spezza("key control shift");
    EXPECT_EQ(TogliModificatori(p), controlKey | shiftKey) << "the command's name stays alone";
    EXPECT_EQ(p.size(), 1U);
}

TEST(ParoleDelCopione, PlacesArePixelsOrSheetPositions) {
    const Luogo pixel = LeggiLuogo("-3,400");
    EXPECT_FALSE(pixel.foglio);
    EXPECT_EQ(pixel.x, -3);
    EXPECT_EQ(pixel.y, 400);
    const Luogo foglio = LeggiLuogo("@407.63,2550.22");
    EXPECT_TRUE(foglio.foglio);
    EXPECT_EQ(foglio.x, 407.63);
    for (const char* s : {"", "3", "3,", ",4", "3,4,5", "1.5,2", "@", "@1", "@nan,0", "@inf,0", "1e10,0", "a,b"})
        EXPECT_THROW(LeggiLuogo(s), ErroreCopione) << s;
}

TEST(ParoleDelCopione, NumbersAreReadWhole) {
    EXPECT_EQ(Intero("-12"), -12);
    for (const char* s : {"", "12x", " 1", "1.0", "99999999999", "+1"}) EXPECT_THROW(Intero(s), ErroreCopione) << s;
    EXPECT_THROW(Intero("5", 6, 9), ErroreCopione);
    double v = 0;
    EXPECT_FALSE(LeggiReale("1,5", v));
    EXPECT_TRUE(LeggiReale("-inf", v));
}

TEST(ParoleDelCopione, DialogStepsAreToldApart) {
    struct Caso {
        const char* testo;
        PassoDialogo::Tipo tipo;
        int voce, numero;
        const char* scritta;
    };
    for (const Caso& c : {Caso{"4=12:30=x", PassoDialogo::testo, 4, 0, "12:30=x"},
                          {"4=", PassoDialogo::testo, 4, 0, ""},
                          {"7:-3", PassoDialogo::valore, 7, -3, ""},
                          {"12", PassoDialogo::clic, 12, 0, ""},
                          {"?12", PassoDialogo::mostra, 12, 0, ""},
                          {"key:return", PassoDialogo::tasto, 0, 13, ""},
                          {"key:escape", PassoDialogo::tasto, 0, 27, ""},
                          {"screenshot:a.png", PassoDialogo::figura, 0, 0, "a.png"}}) {
        const PassoDialogo p = LeggiPasso(c.testo);
        EXPECT_EQ(p.tipo, c.tipo) << c.testo;
        EXPECT_EQ(p.voce, c.voce) << c.testo;
        EXPECT_EQ(p.numero, c.numero) << c.testo;
        EXPECT_EQ(p.scritta, c.scritta) << c.testo;
    }
    for (const char* s : {"", "=x", "?", "?3=4", "3x", "7:", "7:x", "0", "12345", "key:", "key:long", "screenshot:"})
        EXPECT_THROW(LeggiPasso(s), ErroreCopione) << s;
}

TEST(JsonDelCopione, PathsReachMembersAndPlaces) {
    constexpr std::string_view json =
        R"({"a":1.5,"s":"x, \"}\" y","v":[10,[20,21],{"k":"in"}],"o":{"a":{"b":-2}},"e":{},"last":0})";
    struct Caso {
        const char* percorso;
        const char* valore;   // null: there is none
    };
    for (const Caso& c : {Caso{"a", "1.5"},
                          {"s", R"("x, \"}\" y")"},
                          {"v.0", "10"},
                          {"v.1.1", "21"},
                          {"v.2.k", "\"in\""},
                          {"o.a.b", "-2"},
                          {"o.a", R"({"b":-2})"},
                          {"e", "{}"},
                          {"last", "0"},
                          {"v.3", nullptr},
                          {"a.b", nullptr},
                          {"e.x", nullptr},
                          {"b", nullptr},
                          {"v.k", nullptr}}) {
        std::string_view v;
        const bool trovato = JsonSotto(json, c.percorso, v);
        EXPECT_EQ(trovato, c.valore != nullptr) << c.percorso;
        EXPECT_EQ(trovato ? v : std::string_view{}, c.valore != nullptr ? c.valore : "") << c.percorso;
    }
    std::string_view v;
    for (const char* rotto : {"{", "{\"a\"", "{\"a\":", "[1,", "\"", "{\"x\":\"", ""})
        EXPECT_FALSE(JsonSotto(rotto, "a", v)) << rotto;
}

TEST(JsonDelCopione, ValuesCompareAsNumbersOrAsText) {
    EXPECT_TRUE(JsonUguale("1500", "1.5e3", 0));
    EXPECT_TRUE(JsonUguale("0.30000000000000004", "0.3", 1e-12));
    EXPECT_FALSE(JsonUguale("0.30000000000000004", "0.3", 0));
    EXPECT_TRUE(JsonUguale("\"nan\"", "nan", 0));
    EXPECT_FALSE(JsonUguale("\"nan\"", "0", 1e9));
    EXPECT_TRUE(JsonUguale("\"-inf\"", "-inf", 0));
    EXPECT_TRUE(JsonUguale(R"("a \"b\"\u0009c")", "a \"b\"\tc", 0));
    EXPECT_FALSE(JsonUguale("\"Uno\"", "uno", 0));
    EXPECT_TRUE(JsonUguale("[0,1]", "[0,1]", 0));
}

TEST(JsonDelCopione, PrintedTextReadsBackAsAWord) {
    const std::string testo = "a \"b\" \\ c\nd";
    EXPECT_EQ(testi("echo " + TraVirgolette(testo)), (Testi{"echo", testo}));
}

}   // namespace
