// File errors and faults as alerts: the right one, saying what and where.
#include <gtest/gtest.h>

#include "dialogs/Errori.h"
#include "platform/Resources.h"
#include "support/Avvisi.h"

using namespace tessaro;

namespace {

TEST(Errori, AFileErrorStopsFileWorkAndNamesTheFile) {
    fileInLavoro = "mappa.ts3d";
    struct Caso {
        std::int16_t codice, avviso, stringa;
    };
    for (const Caso& c : {Caso{-34, 1013, 1}, Caso{-35, 1007, 0}, Caso{-38, 1013, 3}, Caso{-39, 1013, 2},
                          Caso{-43, 1006, 0}, Caso{-44, 1013, 4}, Caso{-45, 1013, 5}, Caso{-46, 1013, 6},
                          Caso{-49, 1013, 7}, Caso{-61, 1013, 0}, Caso{-523, 1013, 0}}) {
        prova::avvisi.clear();
        uscita = 0;
        IOERR2(c.codice);
        EXPECT_EQ(uscita, 1) << c.codice;
        ASSERT_EQ(prova::avvisi.size(), 1U) << c.codice;
        EXPECT_EQ(prova::avvisi[0].id, c.avviso) << c.codice;
        const std::string& testo = prova::avvisi[0].testo;
        EXPECT_NE(testo.find("mappa.ts3d"), std::string::npos) << testo;
        const std::string dice = c.stringa != 0     ? MacToUtf8(GetIndString(130, c.stringa))
                                 : c.avviso == 1013 ? std::to_string(c.codice)
                                                    : std::string();
        EXPECT_NE(testo.find(dice), std::string::npos) << testo;
    }
}

TEST(Errori, NumbersOutsideTheFileErrorsPassSilently) {
    for (const int e : {0, 1, 100, -524, -5000, 32767}) IOERR2(static_cast<OSErr>(e));
    EXPECT_EQ(uscita, 0);
    EXPECT_TRUE(prova::avvisi.empty());
}

TEST(Errori, AStreamThatFailedIsClosedAndReported) {
    std::FILE* pieno = std::fopen("/dev/full", "w");
    if (pieno == nullptr) GTEST_SKIP() << "no device that is always full";
    std::setvbuf(pieno, nullptr, _IONBF, 0);
    ioerrtext(pieno);
    EXPECT_EQ(uscita, 0);
    std::fputc('x', pieno);
    ioerrtext(pieno);
    EXPECT_EQ(uscita, 1);
    EXPECT_EQ(prova::numeriAvvisi(), std::vector<std::int16_t>{1013});
}

TEST(Errori, AFaultSaysWhatAndWhere) {
    MostraGuasto({0, "un vertice senza testa", "rilievo.ts3d", 1234});
    ASSERT_EQ(prova::avvisi.size(), 1U);
    EXPECT_EQ(prova::avvisi[0].id, 9101);
    for (const char* parte : {"un vertice senza testa", "rilievo.ts3d", "1234"})
        EXPECT_NE(prova::avvisi[0].testo.find(parte), std::string::npos) << parte;
    ErroreAlert(32);
    EXPECT_EQ(prova::avvisi[1].id, 999);
    EXPECT_NE(prova::avvisi[1].testo.find(MacToUtf8(GetIndString(9999, 32))), std::string::npos);
}

}   // namespace
