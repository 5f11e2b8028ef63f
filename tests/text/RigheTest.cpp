// The line readers: where lines end in files of every origin, what is skipped, padded and split.
#include <gtest/gtest.h>

#include "support/FileProva.h"
#include "text/FileStd.h"

using namespace tessaro;
using prova::FileProva;
using Righe = std::vector<std::string>;

namespace {

// All lines up to the end of the file; the last call may give an empty line that stands in no file.
template <class Lettore>
Righe tutte(Lettore leggi) {
    Righe r;
    PStr255 s;
    EndFile = 0;
    while (EndFile == 0 && uscita == 0 && r.size() < 100000) {
        leggi(s);
        r.push_back(s.str());
    }
    return r;
}

TEST(LeggiRiga, EveryLineEndIsOne) {
    struct Caso {
        std::string testo;
        Righe righe;
        std::int32_t contate;
    };
    const std::string x300(300, 'x'), x255(255, 'x');
    for (const Caso& c :
         {Caso{"A\r\nB\rC\nD", {"A", "B", "C", "D"}, 4}, Caso{"A\rB\r", {"A", "B", ""}, 2},
          Caso{"A\r\nB\r\n", {"A", "B", ""}, 2}, Caso{"A\nB\n", {"A", "B", ""}, 2}, Caso{"A\r\rB", {"A", "", "B"}, 3},
          Caso{"", {""}, 0}, Caso{"!commento\rA\r!b\n!c\rB", {"A", "B"}, 5}, Caso{"A\r!fine", {"A", ""}, 2},
          Caso{"A!\r !B", {"A!", " !B"}, 2}, Caso{x300 + "\rB", {x255, "B"}, 2},
          Caso{std::string("\tA\0B\r", 5), {std::string("\tA\0B", 4), ""}, 1}}) {
        const FileProva f(c.testo);
        std::int32_t n = 0;
        EXPECT_EQ(tutte([&n](PStr255& s) { LeggiRiga(s, n); }), c.righe) << c.testo;
        EXPECT_EQ(n, c.contate) << c.testo;
    }
}

TEST(ReadlnDisco, GroupCodesAreThreeWideAndValuesStay) {
    struct Caso {
        std::string testo;
        Righe righe;
    };
    const std::string x300(300, 'x');
    for (const Caso& c : {Caso{"0\nSECTION\r\n 2\rHEADER", {"  0", "SECTION", " 2", "HEADER"}},
                          Caso{"0\r\nA\r\n10\r\n1.5\r\n", {"  0", "A", " 10", "1.5", "   "}},
                          Caso{"  0\nA\n\nB", {"  0", "A", "   ", "B"}},
                          Caso{"1\r\n" + x300 + "\r\n0", {"  1", x300.substr(0, 255), "  0"}},
                          Caso{"\t0\nA\n\t10\n\t5",
                               {"\x14"
                                "0 ",
                                "A",
                                "\x14"
                                "10",
                                "\x14"
                                "5 "}},
                          Caso{"", {"   "}}}) {
        const FileProva f(c.testo);
        AzzeraReadlnDisco();
        Righe attese = c.righe;
        for (std::size_t i = 0; i < attese.size(); i += 2)
            if (attese[i].size() < 3) attese[i].insert(0, 3 - attese[i].size(), ' ');
        EXPECT_EQ(tutte(ReadlnDisco), attese) << c.testo;
        EXPECT_EQ(numriga, static_cast<std::int16_t>(attese.size()));
    }
}

// Line ends fall anywhere in the blocks of a buffered file, also between a CR and its LF.
TEST(ReadlnDisco, BlocksOfTheFileDoNotShow) {
    std::string testo;
    Righe attese;
    for (int i = 0; i < 20000; ++i) {
        attese.push_back("riga " + std::to_string(i) + std::string(static_cast<std::size_t>(i % 61), '-'));
        testo += attese.back() + "\r\n";
    }
    const FileProva f(testo);
    AzzeraReadlnDisco();
    const Righe lette = tutte(ReadlnDisco);
    ASSERT_EQ(lette.size(), attese.size() + 1);
    for (std::size_t i = 0; i < attese.size(); ++i) ASSERT_EQ(lette[i], attese[i]) << i;
    EXPECT_EQ(numriga, 20001);
}

TEST(RigaDisco, TabsCanBeLeftOut) {
    const FileProva f("\tBORDO\t\r\n1\t2\nfine");
    std::uint8_t prec = 0;
    EXPECT_EQ(tutte([&prec](PStr255& s) { RigaDisco(s, prec, true); }), (Righe{"BORDO", "12", "fine"}));
}

TEST(Ricerche, FindAGroupAndSkipASection) {
    const FileProva f("0\nSECTION\n2\nHEADER\n9\n0\n0\nEndSec\n0\nEOF\n");
    AzzeraReadlnDisco();
    EXPECT_TRUE(CercaStr("section"));
    Salta("ENDSEC");
    PStr255 s;
    ReadlnDisco(s);
    EXPECT_EQ(s.str(), "  0");
    EXPECT_FALSE(CercaStr("manca"));
    EXPECT_EQ(EndFile, 1);
    EXPECT_FALSE(CercaStr("manca"));
}

TEST(Righe, StopWithoutTouchingTheFileOnceWorkHasFailed) {
    const FileProva f("A\rB\r");
    uscita = 1;
    PStr255 s("prima");
    std::int32_t n = 0;
    LeggiRiga(s, n);
    EXPECT_EQ(s.str(), "");
    s = "prima";
    ReadlnDisco(s);
    EXPECT_EQ(s.str(), "");
    std::int64_t pos = -1;
    GetFPos(RefNum, pos);
    EXPECT_EQ(pos, 0);
    EXPECT_EQ(n, 0);
    EXPECT_EQ(numriga, 0);
}

TEST(Stream, OldReadersKnowTheirOwnLineEnds) {
    std::FILE* f = std::tmpfile();
    const std::string testo = "!c\rA\nB\r" + std::string(300, 'x') + "\rfine";
    std::fwrite(testo.data(), 1, testo.size(), f);
    std::rewind(f);
    inst = out = f;
    EXPECT_EQ(tutte(LeggiStr), (Righe{"A\nB", std::string(255, 'x'), std::string(45, 'x'), "fine"}));
    std::rewind(f);
    std::int32_t n = 0;
    EXPECT_EQ(tutte([&n](PStr255& s) { LeggiRigaC(s, n); }),
              (Righe{"A", "B", std::string(255, 'x'), std::string(45, 'x'), "fine"}));
    EXPECT_EQ(n, 6);
    std::fclose(f);
    inst = out = nullptr;
}

}   // namespace
