// The fast line reader and number scan give what the plain ones give.
#include <gtest/gtest.h>

#include <random>

#include "exchange/RigheDxf.h"
#include "exchange/RigheElenco.h"
#include "exchange/TestoDxf.h"
#include "support/Avvisi.h"
#include "support/FileProva.h"
#include "text/Conversione.h"

using namespace tessaro;
using prova::FileProva;

namespace {

struct Letta {
    std::string testo;
    int fine, numero, pari;
    friend bool operator==(const Letta&, const Letta&) = default;
};

template <class Leggi>
std::vector<Letta> tutte(Leggi leggi) {
    std::vector<Letta> righe;
    AzzeraReadlnDisco();
    EndFile = 0;
    while (!EndFile) {
        std::string s = leggi();
        righe.push_back({std::move(s), EndFile, numriga, rigapari});
    }
    return righe;
}

// Far from the end of a block lines are taken another way.
std::string lontano(const std::string& bytes) { return bytes + std::string(600, 'z'); }

void confronta(const std::string& bytes) {
    std::vector<Letta> attese;
    {
        const FileProva piano(bytes);
        attese = tutte([] {
            PStr255 s;
            ReadlnDisco(s);
            return s.str();
        });
    }
    const FileProva veloce(bytes);
    RigheDxf r;
    ASSERT_EQ(tutte([&] { return std::string(r.riga()); }), attese);
}

TEST(RigheDxf, AnyBytesGiveTheLinesOfThePlainReader) {
    std::mt19937 caso(7);
    const std::string lettere = std::string("\r\n\t 0a\0", 7);
    for (int giro = 0; giro < 300; ++giro) {
        std::string s(caso() % 60, ' ');
        for (char& c : s) c = lettere[caso() % lettere.size()];
        confronta(s);
        confronta(lontano(s));
    }
    for (const std::size_t n : {254U, 255U, 256U, 510U, 511U}) {
        confronta(std::string(n, 'x'));
        confronta(lontano(std::string(n, 'x') + "\r\n5\r\n" + std::string(n, '\t')));
        confronta(std::string(n, 'x') + "\r\n5\r\n" + std::string(n, '\t'));
    }
}

TEST(RigheDxf, LinesAcrossTheBlocksOfTheBufferStayWhole) {
    constexpr std::size_t blocco = 256 * 1024;
    for (std::size_t prima = blocco - 3; prima <= blocco + 1; ++prima) {
        std::string s(prima, 'a');
        for (std::size_t i = 99; i < prima; i += 100) s[i] = '\n';
        confronta(s + "\r\n0\n\tb\r\r\nfine");
    }
}

// A group's code and number taken at once are those of the line read first and looked at then.
TEST(RigheDxf, CodesAndNumbersAtOnceAreThoseOfTheirLines) {
    std::mt19937 caso(8);
    const char* pezzi[] = {" 10", "  8", "0",   "\t40", "12.5",  "-3", "   7.25",
                           "1e3", "",    "abc", "\t",   "1.2.3", ".5", "4994321.1234567890123",
                           "5 ",  "-0.0"};
    const char* fini[] = {"\n", "\r\n", "\r", "\n\n", "\r\n\n"};
    for (int giro = 0; giro < 300; ++giro) {
        std::string bytes;
        for (int i = 0; i < 40; ++i) {
            bytes += pezzi[caso() % std::size(pezzi)];
            bytes += fini[caso() % std::size(fini)];
        }
        bytes = lontano(bytes);
        struct Gruppo {
            std::uint32_t codice;
            double valore;
            int fine, numero, fermato;
            bool operator==(const Gruppo&) const = default;
        };
        const auto leggi = [&bytes](bool insieme) {
            const FileProva f(bytes);
            std::vector<Gruppo> gruppi;
            AzzeraReadlnDisco();
            EndFile = 0;
            RigheDxf r;
            while (!EndFile) {
                double v = 7;
                const std::uint32_t codice = insieme ? r.codice() : CodiceGruppo(r.riga());
                if (!insieme || !r.reale(v)) RealeDaRiga(r.riga(), v);
                gruppi.push_back({codice, v, EndFile, numriga, uscita});
                uscita = 0;
            }
            return gruppi;
        };
        ASSERT_EQ(leggi(true), leggi(false));
    }
}

TEST(RigheElenco, AnyBytesGiveTheLinesOfThePlainReader) {
    std::mt19937 caso(9);
    const std::string lettere = std::string("\r\n\t!0a\0", 7);
    struct Riga {
        std::string testo;
        int fine;
        std::int32_t numero;
        bool operator==(const Riga&) const = default;
    };
    const auto tutte = [](const std::string& bytes, auto leggi) {
        const FileProva f(bytes);
        std::vector<Riga> righe;
        std::int32_t n = 0;
        EndFile = 0;
        auto lettore = leggi();
        while (!EndFile) {
            std::string s = lettore(n);
            righe.push_back({std::move(s), EndFile, n});
        }
        return righe;
    };
    const auto piano = [] {
        return [](std::int32_t& n) {
            PStr255 s;
            LeggiRiga(s, n);
            return s.str();
        };
    };
    const auto veloce = [] { return [r = RigheElenco()](std::int32_t& n) mutable { return std::string(r.riga(n)); }; };
    for (int giro = 0; giro < 400; ++giro) {
        std::string s(caso() % 60, ' ');
        for (char& c : s) c = lettere[caso() % lettere.size()];
        if (giro % 4 == 0) s.insert(caso() % (s.size() + 1), std::string(250 + caso() % 300, 'x'));
        ASSERT_EQ(tutte(s, veloce), tutte(s, piano));
        ASSERT_EQ(tutte(lontano(s), veloce), tutte(lontano(s), piano));
    }
    for (std::size_t prima = 256 * 1024 - 3; prima <= 256 * 1024 + 1; ++prima) {
        std::string s(prima, 'a');
        for (std::size_t i = 99; i < prima; i += 100) s[i] = '\r';
        ASSERT_EQ(tutte(s + "\n!b\r\n\nfine", veloce), tutte(s + "\n!b\r\n\nfine", piano));
    }
}

TEST(RigheDxf, NumbersAreThoseOfThePlainScan) {
    const char* numeri[] = {"0",
                            "-0.0",
                            "12.5",
                            " 4994321.123",
                            "+7",
                            "1e3",
                            "1.5E-7",
                            ".5",
                            "-.25",
                            "3.",
                            "1,5",
                            "1e-30",
                            "1e30",
                            "1e99",
                            "12 34",
                            "5 ",
                            "0.1",
                            "00012",
                            "1e-45",
                            "1e",
                            "1e+",
                            "1.2.3",
                            "abc",
                            "",
                            "--1",
                            "9007199254740993",
                            "123456789012345678901234567890",
                            "0.000000000000000000001",
                            "2.2250738585072014e-308",
                            "6.123233995736766e-17",
                            "1797693134862315.7"};
    for (const char* n : numeri) {
        double atteso = 0, v = 0;
        std::int16_t dove = 0;
        const std::int16_t esito = STRtoFP(-1e99, 1e99, n, atteso, dove, 0);
        uscita = 0;
        EXPECT_EQ(RealeDaRiga(n, v), esito != -3) << n;
        if (esito != -3) { EXPECT_EQ(v, atteso) << n; }
        EXPECT_EQ(uscita, esito == -3) << n;
    }
    std::mt19937_64 caso(11);
    for (int i = 0; i < 3000; ++i) {
        const double x = static_cast<double>(static_cast<std::int64_t>(caso())) / static_cast<double>(caso() | 1) * 1e3;
        char s[40];
        std::snprintf(s, sizeof s, i % 2 ? "%.17g" : "%.6f", x);
        double atteso = 0, v = 0;
        std::int16_t dove = 0;
        STRtoFP(-1e99, 1e99, s, atteso, dove, 0);
        ASSERT_TRUE(RealeDaRiga(s, v));
        ASSERT_EQ(v, atteso) << s;
    }
}

TEST(RigheDxf, WholeNumbersAreGoodOutOfBoundsOrNone) {
    std::int16_t v = 0;
    EXPECT_EQ(InteroDaRiga("    62 ", 0, 255, v), Intero::buono);
    EXPECT_EQ(v, 62);
    EXPECT_EQ(InteroDaRiga("-7", -255, 255, v), Intero::buono);
    EXPECT_EQ(v, -7);
    EXPECT_EQ(InteroDaRiga("256", 0, 255, v), Intero::fuoriLimiti);
    EXPECT_EQ(InteroDaRiga("99999999999999999999", 0, 255, v), Intero::fuoriLimiti);
    for (const char* s : {"", "x", "-", "7.0", "1x"}) EXPECT_EQ(InteroDaRiga(s, 0, 255, v), Intero::malformato) << s;
}

TEST(TestoDxf, TextsComeInTheSetThatTheFileDeclares) {
    struct Caso {
        const char *versione, *pagina, *bytes, *mac;
    };
    const Caso casi[] = {
        {"AC1015", "ANSI_1252", "Citt\xE0 \x80", "Citt\x88 \xDB"},
        {"AC1009", "dos850", "Citt\x85", "Citt\x88"},
        {"AC1009", "DOS437", "Citt\x85", "Citt\x88"},
        {"AC1009", "macintosh", "Citt\x88", "Citt\x88"},
        {"AC1015", "ANSI_1250", "\x8A\xE9", "?\x8E"},
        {"AC1021", "ANSI_1252", "Citt\xC3\xA0", "Citt\x88"},   // UTF-8 whatever the page says
        {"AC1032", "ANSI_1252", "Citt\xE0", "Citt\x88"},       // and yet not
        {"AC1015", "ANSI_1251", "a\xC1", "a?"},
        {"AC1015", "ANSI_932", "a\x83\x41z", "a?z"},   // a pair is one character
        {nullptr, nullptr, "Citt\xC3\xA0", "Citt\x88"},
        {nullptr, nullptr, "Citt\xE0", "Citt\x88"},
        {nullptr, nullptr, "%%c12 45%%D %%p1 %%% %%065 %%uA",
         "\xAF"
         "12 45\xA1 \xB1"
         "1 % A A"},
        {nullptr, nullptr, "\\U+00E8 \\U+20AC \\U+D800 \\U+12", "\x8F \xDB ? \\U+12"},
    };
    for (const Caso& c : casi) {
        AlfabetoDxf a;
        std::string testa;
        if (c.versione) testa += std::string("  9\r\n$ACADVER\r\n  1\r\n") + c.versione + "\r\n";
        if (c.pagina) testa += std::string("  9\r\n$DWGCODEPAGE\r\n  3\r\n") + c.pagina + "\r\n";
        a.scegli(testa);
        EXPECT_EQ(a.testo(c.bytes), c.mac) << c.bytes;
    }
}

TEST(TestoDxf, WhatIsWrittenReadsBack) {
    std::string tutti;
    for (int c = 0x20; c < 0x7F; ++c)
        if (c != '%' && c != '\\') tutti += static_cast<char>(c);
    AlfabetoDxf a;
    EXPECT_EQ(a.testo(TestoPerDxf(tutti)), tutti);
    for (int c = 0x80; c < 0x100; c += 30) {
        std::string alti;
        for (int k = c; k < std::min(c + 30, 0x100); ++k) alti += static_cast<char>(k);
        EXPECT_EQ(a.testo(TestoPerDxf(alti)), alti);
    }
    EXPECT_LE(TestoPerDxf(std::string(40, '\x88')).size(), 255U);
    EXPECT_EQ(TestoPerDxf("a\rb"), "a b");
}

}   // namespace
