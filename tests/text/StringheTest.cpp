// Strings of fixed capacity: where they cut, where they wrap, and how they compare.
#include <gtest/gtest.h>

#include <cstring>

#include "text/PascalString.h"
#include "text/PasUtils.h"

using namespace tessaro;

namespace {

std::string lunga(std::size_t n) {
    std::string s;
    for (std::size_t i = 0; i < n; ++i) s += static_cast<char>('a' + i % 26);
    return s;
}

TEST(Stringhe, NothingMakesTheEmptyString) {
    EXPECT_EQ(PStr255("").str(), "");
    EXPECT_EQ(PStr255(static_cast<const char*>(nullptr)).str(), "");
    EXPECT_EQ(PStr255(char(0)).str(), "");
    EXPECT_EQ(PStr15(char(0)).str(), "");
    EXPECT_EQ(PStr63('x').str(), "x");
}

TEST(Stringhe, LongTextIsCutAtTheCapacity) {
    const std::string s = lunga(300);
    EXPECT_EQ(PStr255(s.c_str()).str(), s.substr(0, 255));
    EXPECT_EQ(PStr63(s.c_str()).str(), s.substr(0, 63));
    EXPECT_EQ(PStr32(s.c_str()).str(), s.substr(0, 32));
    EXPECT_EQ(PStr31(s.c_str()).str(), s.substr(0, 31));
    EXPECT_EQ(PStr15(s.c_str()).str(), s.substr(0, 15));
    PStr7 sette("");
    sette = s.c_str();
    EXPECT_EQ(sette.str(), s.substr(0, 7));
    // The constructor counts up to 31 of them, and what is read back through another class stays within the 7 stored.
    EXPECT_EQ(PStr7("123456789")[0], 9);
    EXPECT_EQ(PStr255(PStr7("123456789")).str(), "1234567");
}

TEST(Stringhe, ALongerSourceLeavesItsLengthInAShortField) {
    const PStr255 venti("abcdefghijklmnopqrst");
    PStr15 corta("");
    corta = venti;
    EXPECT_EQ(corta[0], 20);
    EXPECT_EQ(std::memcmp(corta.bytes() + 1, "abcdefghijklmno", 15), 0);
    EXPECT_EQ(Str255To15(venti).str(), "abcdefghijklmno");
    EXPECT_EQ(Str255To15("abc").str(), "abc");
    // Neither a copy nor a part of such a field reads beyond it.
    EXPECT_EQ(PStr255(corta).str(), "abcdefghijklmno");
    EXPECT_EQ(corta.Copy(14, 20).str(), "no");
}

TEST(Stringhe, AppendingCharactersStopsAtTheCapacityAndWrapsAt255) {
    PStr63 s63("");
    PStr255 s255("");
    for (int i = 0; i < 300; ++i) s63 += 'x';
    EXPECT_EQ(s63.str(), std::string(63, 'x'));
    for (int i = 0; i < 255; ++i) s255 += 'x';
    EXPECT_EQ(s255[0], 255);
    s255 += 'A';
    EXPECT_EQ(s255[0], 'A');
}

TEST(Stringhe, InsertedTextPushesTheTailOutOfAFullString) {
    struct Caso {
        const char *prima, *inserto;
        std::int16_t pos;
        const char* dopo;
    };
    // A string of capacity 7.
    for (const Caso& c :
         {Caso{"abc", "XY", 2, "aXYbc"}, Caso{"abc", "XY", 1, "XYabc"}, Caso{"abc", "XY", 4, "abcXY"},
          Caso{"abc", "XY", 90, "abcXY"}, Caso{"abcde", "XY", 2, "aXYbcde"}, Caso{"abcdef", "XY", 2, "aXYbcde"},
          Caso{"abcdefg", "XY", 7, "abcdefX"}, Caso{"abcdefg", "XY", 8, "abcdefg"},
          Caso{"", "0123456789", 1, "0123456"}, Caso{"ab", "", 1, "ab"}}) {
        PStr7 s(c.prima);
        s.InsertHelper(c.inserto, c.pos, 7);
        EXPECT_EQ(s.str(), c.dopo) << c.prima << " " << c.pos;
    }
    PStr255 doppia("ab");
    doppia.InsertHelper(doppia, 2, 255);
    EXPECT_EQ(doppia.str(), "aabb");
}

TEST(Stringhe, PartsAndPlaces) {
    const PStr255 s("abcde");
    EXPECT_EQ(s.Copy(3, 100).str(), "cde");
    EXPECT_EQ(s.Copy(2, 2).str(), "bc");
    EXPECT_EQ(s.Copy(6, 1).str(), "");
    EXPECT_EQ(s.Copy(200, 9).str(), "");
    const PStr255 t("banana");
    EXPECT_EQ(t.Pos("an", 1), 2);
    EXPECT_EQ(t.Pos("an", 3), 4);
    EXPECT_EQ(t.Pos('b', 1), 1);
    EXPECT_EQ(t.Pos(PStr255("nan"), 1), 3);
    EXPECT_EQ(t.Pos("x", 1), 0);
    EXPECT_EQ(t.Pos("a", 200), 0);
    EXPECT_EQ(t.Pos("AN", 1), 0);
    EXPECT_EQ(PStr255(std::string_view("ab\0cd", 5)).Pos('d', 1), 0);
}

TEST(Stringhe, JoinedTextIsCutAt255) {
    const PStr255 a(lunga(200).c_str()), b(lunga(100).c_str());
    EXPECT_EQ((a + b).str(), (lunga(200) + lunga(100)).substr(0, 255));
    EXPECT_EQ(ConCat3(b, "-", a).str(), (lunga(100) + "-" + lunga(200)).substr(0, 255));
    EXPECT_EQ(ConCat8("a", "b", "c", "d", "e", "f", "g", "h").str(), "abcdefgh");
}

TEST(Stringhe, ComparisonIgnoresCaseAndKeepsAccents) {
    EXPECT_TRUE("ABC" == PStr255("abc"));
    EXPECT_TRUE(PStr15("layer") == PStr255("LAYER"));
    EXPECT_TRUE(PStr255("\x88") == "\xCB");   // a grave, A grave
    EXPECT_TRUE(PStr255("\x88"
                        "bc")
                != "abc");
    // Each before the next: punctuation, digits, then every letter before its accented forms and those before the next.
    const char* ordine[] = {"",     " a", "1",    "a",    "ab",   "Az",   "\x88", "\xE7", "\x8A", "\xAE",
                            "B",    "c",  "\x8D", "e",    "\x8F", "\x8E", "f",    "o",    "\x98", "\x9A",
                            "\xCF", "p",  "s",    "\xA7", "t",    "z",    "[",    "{",    "\xA5"};
    for (std::size_t i = 0; i + 1 < std::size(ordine); ++i) {
        EXPECT_LT(RelString(PStr255(ordine[i]), PStr255(ordine[i + 1])), 0) << i;
        EXPECT_TRUE(PStr255(ordine[i + 1]) > ordine[i]) << i;
        EXPECT_TRUE(ordine[i] <= PStr255(ordine[i + 1])) << i;
    }
}

TEST(Stringhe, ThreeCStringsLiveAtATime) {
    const char* a = GetCStringRef(PStr255("uno"));
    const char* b = GetCStringRef(PStr255("due"));
    const char* c = GetCStringRef(PStr255("tre"));
    EXPECT_STREQ(a, "uno");
    EXPECT_STREQ(b, "due");
    EXPECT_STREQ(GetCStringRef(PStr255("quattro")), "quattro");
    EXPECT_STREQ(a, "quattro");
    EXPECT_STREQ(c, "tre");
}

TEST(Stringhe, LinesOfStreamsLeaveOrTakeTheirEnd) {
    std::FILE* f = std::tmpfile();
    std::fputs("uno\ndue\ntre", f);
    std::rewind(f);
    PStr255 s;
    FscanfString(f, s);
    EXPECT_EQ(s.str(), "uno");
    ReadLn(f);
    FscanfStringLn(f, s);
    EXPECT_EQ(s.str(), "due");
    FscanfStringLn(f, s);
    EXPECT_EQ(s.str(), "tre");
    std::fclose(f);
}

}   // namespace
