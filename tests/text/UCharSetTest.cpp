// Character sets from their token texts.
#include <gtest/gtest.h>

#include <string>
#include <sys/wait.h>

#include "text/UCharSet.h"

using namespace tessaro;

namespace {

std::string membri(const TCharSet& s) {
    std::string r;
    for (int c = 0; c < 256; ++c)
        if (s.IN(static_cast<std::int16_t>(c))) r += static_cast<char>(c);
    return r;
}

TEST(TCharSet, TokenTextsGiveTheirMembers) {
    struct Caso {
        const char* testo;
        std::string attesi;
    };
    for (const Caso& c : {Caso{"'a'..'c',space", " abc"}, Caso{"'0'..'9','.'", ".0123456789"}, Caso{"", ""},
                          Caso{" 'x' .. 'z' ", "xyz"}, Caso{"CR,Tab,linefeed", "\t\n\r"}, Caso{"'''", "'"},
                          Caso{"fullstop,ellipsis", "\x04\x7E"}, Caso{"leftkey..downkey", "\x1C\x1D\x1E\x1F"},
                          Caso{"comma", ","}, Caso{",'a'", "a\xFF"}, Caso{"'\xFE'..'\xFF'", "\xFE\xFF"}})
        EXPECT_EQ(membri(TCharSet(c.testo)), c.attesi) << c.testo;
}

TEST(TCharSet, SetsAddUp) {
    TCharSet s = TCharSet("'a'") + TCharSet("'b'") + "'c'" + 'd';
    s.UnSetChar('b');
    EXPECT_EQ(membri(s), "acd");
    EXPECT_TRUE(s.IN(256 + 'a'));
    s = 'z';
    EXPECT_EQ(membri(s), "z");
}

TEST(TCharSetDeathTest, AMalformedTextEndsTheProgram) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto fallito = [](int stato) { return WIFEXITED(stato) && WEXITSTATUS(stato) != 0; };
    for (const char* testo : {"'z'..'a'", "'a", "'", "'ab'", "#", "nome", "','", "'a'.'b'", "'a'.."})
        EXPECT_EXIT(TCharSet{testo}, fallito, "") << testo;
}

}   // namespace
