// The short cuts of decimal text give what the library's full conversions give, to the last digit.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "text/Decimale.h"

using namespace tessaro;

namespace {

std::string secondoLibreria(double v, int decimali) {
    char s[80];
    const std::string t(s, std::to_chars(s, s + sizeof s, v, std::chars_format::fixed, decimali).ptr);
    return t[0] == '-' && t.find_first_not_of("-0.") == std::string::npos ? t.substr(1) : t;   // nothing has no sign
}

void confronta(double v, int decimali) {
    char s[40];
    const char* const fine = TestoDaReale(s, v, decimali);
    ASSERT_NE(fine, nullptr) << v;
    ASSERT_EQ(std::string(s, static_cast<std::size_t>(fine - s)), secondoLibreria(v, decimali)) << decimali;
}

TEST(Decimale, WrittenNumbersAreRoundedAsTheLibraryDoes) {
    const double casi[] = {0,
                           -0.0,
                           0.5,
                           1.5,
                           2.5,
                           0.125,
                           0.375,
                           0.0625,
                           999.9995,
                           1e-5,
                           -4e-14,
                           5e-14,
                           1e-20,
                           5e-324,
                           1e-40,
                           0.9999,
                           0.99999999999999989,
                           99.9,
                           9.995,
                           123.456,
                           -123456,
                           4994321.123,
                           999999999999999.0,
                           999999999999999.875};
    for (const double v : casi)
        for (int decimali = 0; decimali <= 18; ++decimali) confronta(v, decimali);
    std::mt19937_64 caso(3);
    for (int i = 0; i < 20000; ++i) {
        // Few bits behind the point make ties; many make long tails.
        const auto bit = static_cast<std::int64_t>(caso()) >> (11 + caso() % 50);
        const double v = std::ldexp(static_cast<double>(bit), -static_cast<int>(caso() % 130));
        if (std::fabs(v) < 1e15) confronta(v, static_cast<int>(caso() % 19));
    }
}

TEST(Decimale, WhatIsTooLargeOrNoNumberIsLeftToOthers) {
    char s[40];
    for (const double v : {1e15, -1e15, 1e300, HUGE_VAL, -HUGE_VAL, std::nan("")})
        EXPECT_EQ(TestoDaReale(s, v, 3), nullptr) << v;
    EXPECT_EQ(TestoDaReale(s, 1, 19), nullptr);
    EXPECT_EQ(TestoDaReale(s, 1, -1), nullptr);
}

TEST(Decimale, ReadNumbersAreTheNearest) {
    std::mt19937_64 caso(4);
    for (int i = 0; i < 20000; ++i) {
        std::string s = std::to_string(caso() % (std::uint64_t{1} << caso() % 60));
        s.insert(caso() % s.size() + 1, ".");
        s += std::to_string(caso() % 1000) + std::string(caso() % 12, '0');
        double atteso = 0, v = 0;
        std::from_chars(s.data(), s.data() + s.size(), atteso);
        if (atteso < 1e-15) continue;
        ASSERT_TRUE(RealePiano(s, v)) << s;
        ASSERT_EQ(v, atteso) << s;
        const std::string dentro = "  -" + s;
        ASSERT_TRUE(RealePiano(dentro + " ", v));
        ASSERT_EQ(v, -atteso) << s;
        const char* const fine = dentro.data() + dentro.size();
        if (double esatto = 0; RealeEsatto(dentro.data(), fine, esatto) != nullptr) { ASSERT_EQ(esatto, -atteso) << s; }
    }
}

TEST(Decimale, ANumberWhoseDigitsAreAMultipleOf2To64IsNotZero) {
    for (const std::string s : {"184467440737095.51616", "-36893488147419103.232", "1844674407370.9551616"}) {
        double v = 0;
        ASSERT_TRUE(RealePiano(s, v)) << s;
        EXPECT_EQ(v, std::stod(s)) << s;
    }
}

TEST(Decimale, ZeroHasNoSignAndOtherTextIsNoPlainNumber) {
    double v = 7;
    ASSERT_TRUE(RealePiano("-0.000", v));
    EXPECT_FALSE(std::signbit(v));
    for (const char* s :
         {"", " ", ".", ".5", "1,5", "1 2", "1.2.30", "1.50x", "1e", "0x10", "inf", "nan", "--1", "-"}) {
        v = 7;
        EXPECT_FALSE(RealePiano(s, v)) << s;
        EXPECT_EQ(v, 7) << s;
    }
}

}   // namespace
