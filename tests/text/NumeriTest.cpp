// Numbers from typed text, with the code and place of the fault, and numbers as text.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/Avvisi.h"
#include "text/Conversione.h"
#include "text/FileDati.h"
#include "text/PasUtils.h"

using namespace tessaro;

namespace {

struct CasoReale {
    const char* testo;
    double valore;
    std::int16_t codice;
    std::int16_t pos = 0;
};

void provaReali(std::initializer_list<CasoReale> casi) {
    for (const CasoReale& c : casi) {
        double v = -7;
        std::int16_t pos = -7;
        EXPECT_EQ(STRtoFP(-1e30, 1e30, c.testo, v, pos, 0), c.codice) << c.testo;
        EXPECT_EQ(pos, c.pos) << c.testo;
        if (c.codice == 1 || c.codice == -1 || c.codice == -2) { EXPECT_EQ(v, c.valore) << c.testo; }
    }
}

TEST(STRtoFP, ReadsWhatPeopleType) {
    provaReali({{"1,5", 1.5, 1},
                {"1.5", 1.5, 1},
                {" -2", -2, 1},
                {"+3", 3, 1},
                {".5", 0.5, 1},
                {",25", 0.25, 1},
                {"12.", 12, 1},
                {"1e3", 1000, 1},
                {"1e", 1, 1},
                {"1E-2", 0.01, 1},
                {"-2.5e+1", -25, 1},
                {"12 metri", 12, 1},
                {"0", 0, 1},
                {"-0.000", 0, 1},
                {"0e99", 0, 1},
                {"0.1", 0.1, 1},
                {"00012", 12, 1}});
}

TEST(STRtoFP, MarksTheCharacterThatDoesNotFit) {
    provaReali({{"", 0, -3, 1},
                {"   ", 0, -3, 4},
                {"-", 0, -3, 0},
                {"-.5", 0, -3, 0},
                {"abc", 0, -3, 0},
                {"  x", 0, -3, 2},
                {"12x", 0, -3, 2},
                {"1.2.3", 0, -3, 3},
                {"1e2.5", 0, -3, 3},
                {"1-2", 0, -3, 1},
                {"+-2", 0, -3, 0},
                {"1e2e3", 0, -3, 3},
                {"1\t", 0, -3, 1}});
}

TEST(STRtoFP, RangeIsTestedWithTheNaturalLogarithm) {
    provaReali({{"1e37", 1e37, 1},
                {"2e37", 2e37, 1},
                {"9e37", 1e38, -1},
                {"1e39", 1e38, -1},
                {"1e-37", 1e-37, 1},
                {"1e-38", 0, -2},
                {"-1e9999999", 1e38, -1}});
}

TEST(STRtoFP, KeepsAllDigitsUnlessToldNine) {
    provaReali({{"4994321.123", 4994321.123, 1},
                {"-1668012.7345", -1668012.7345, 1},
                {"123456789012", 123456789012.0, 1},
                {"0.12345678901234567", 0.12345678901234567, 1},
                {"3.14159265358979323846264338327950288", 3.14159265358979323846, 1}});
    cifreEstese = 0;
    provaReali({{"4994321.123", 4994321.12, 1}, {"123456789012", 123456789000.0, 1}, {"0.1", 0.1, 1}});
}

TEST(STRtoFP, LimitsAreTheCallersAffair) {
    double v = 0;
    std::int16_t pos = 0;
    EXPECT_EQ(STRtoFP(0.0, 10.0, "99", v, pos, 1), 1);
    EXPECT_EQ(v, 99);
    EXPECT_TRUE(prova::avvisi.empty());
}

TEST(STRtoINT, HoldsTheLimits) {
    struct Caso {
        const char* testo;
        std::int16_t min, max, valore, codice, pos;
    };
    for (const Caso& c :
         {Caso{"7", 0, 10, 7, 1, 0}, Caso{" -7", -10, 10, -7, 1, 0}, Caso{"+7 x", 0, 10, 7, 1, 0},
          Caso{"99", 0, 10, 10, -1, 0}, Caso{"-99", 0, 10, 0, -2, 0}, Caso{"32759", 0, 32767, 32759, 1, 0},
          Caso{"32768", 0, 32767, 32767, -1, 0}, Caso{"99999999", 0, 10, 32767, -1, 0}, Caso{"12x", 0, 99, 12, 0, 2},
          Caso{"1-", 0, 99, 1, 0, 1}, Caso{"1.5", 0, 99, 1, 0, 1}, Caso{"", 0, 99, 0, 0, 2}, Caso{"a", 0, 99, 0, 0, 1},
          Caso{"-", 0, 99, 0, 0, 1}}) {
        std::int16_t v = -7, pos = -7;
        EXPECT_EQ(STRtoINT(c.min, c.max, c.testo, v, pos, 0), c.codice) << c.testo;
        EXPECT_EQ(v, c.valore) << c.testo;
        EXPECT_EQ(pos, c.pos) << c.testo;
    }
}

TEST(Parsers, SayWhatIsWrongWhenAsked) {
    double v = 0;
    std::int16_t n = 0, pos = 0;
    STRtoFP(0, 1, "x", v, pos, 1);
    EXPECT_EQ(uscita, 1);
    STRtoFP(0, 1, "1e99", v, pos, 1);
    STRtoFP(0, 1, "1e-99", v, pos, 1);
    STRtoINT(0, 1, "x", n, pos, 1);
    EXPECT_EQ(prova::numeriAvvisi(), (std::vector<std::int16_t>{1008, 1009, 1010, 1012}));
    prova::avvisi.clear();
    // Unasked they are silent; file work stops for what is no number, not for one out of bounds.
    STRtoFP(0, 1, "1x", v, pos, 0);
    EXPECT_EQ(uscita, 1);
    STRtoINT(0, 1, "9", n, pos, 0);
    EXPECT_EQ(uscita, 0);
    EXPECT_TRUE(prova::avvisi.empty());
}

TEST(Numeri, FixedLayouts) {
    struct Caso {
        double x;
        std::int16_t larghezza, decimali;
        const char* testo;
    };
    const double infinito = std::numeric_limits<double>::infinity();
    for (const Caso& c : {Caso{1234.5678, 10, 3, "  1234.568"}, Caso{-0.5, 6, 2, " -0.50"}, Caso{0.125, 0, 2, "0.12"},
                          Caso{1.005, 0, 2, "1.00"}, Caso{4994321.123, 8, 3, "4994321.123"}, Caso{2, 5, 0, "    2"},
                          Caso{1, 50, 0, "                              1"},
                          Caso{1e22, 0, 0, "10000000000000000000000"}, Caso{std::nan(""), 6, 3, "   NAN"},
                          Caso{-infinito, 6, 3, "  -INF"}, Caso{1e300, 4, 3, " INF"}, Caso{-1e300, 4, 3, "-INF"}})
        EXPECT_EQ(FormatReal(c.x, c.larghezza, c.decimali).str(), c.testo) << c.x;
    EXPECT_EQ(FormatInt(-42, 6).str(), "   -42");
    EXPECT_EQ(FormatInt(INT32_MIN, 3).str(), "-2147483648");
    PStr255 s;
    Num2Str(decform{0, 4}, 12345.678, s);
    EXPECT_EQ(s.str(), "1.235e+04");
}

TEST(Numeri, PrefixesOfTexts) {
    for (const auto& [testo, atteso] : {std::pair{" 12.5abc", 12.5},
                                        {"+3", 3.0},
                                        {"-1e2", -100.0},
                                        {"x", 0.0},
                                        {"inf", 0.0},
                                        {"", 0.0},
                                        {"1e400", HUGE_VAL},
                                        {"-1e-400", 0.0},
                                        {"0.000001e400", HUGE_VAL}})
        EXPECT_EQ(Str2Num(testo), atteso) << testo;
    EXPECT_EQ(StringToNum(" -17m"), -17);
    EXPECT_EQ(StringToNum("99999999999"), INT32_MAX);
}

}   // namespace
