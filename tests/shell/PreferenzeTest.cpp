// The preferences' file: whatever bytes it holds the program starts, and what a newer one wrote is not lost.
#include "shell/Preferenze.h"

#include <gtest/gtest.h>

#include <random>

#include "model/Giornale.h"
#include "model/PreferenzeVista.h"
#include "model/TabellaStato.h"
#include "shell/Recupero.h"

using namespace tessaro;

TEST(Preferenze, EachLineIsTakenOrToldAndTheOthersStand) {
    struct Caso {
        const char* testo;
        const char* rifiutate;
        std::int32_t (*legge)();
        std::int32_t atteso;
    };
    const Caso casi[] = {
        {"snap-distance = 25", "", [] { return std::int32_t{distanzaAggancio}; }, 25},
        {"snap-distance = 0", "1", [] { return std::int32_t{distanzaAggancio}; }, 10},
        {"snap-distance = 51", "1", [] { return std::int32_t{distanzaAggancio}; }, 10},
        {"snap-distance = 2x", "1", [] { return std::int32_t{distanzaAggancio}; }, 10},
        {"# x\n\nwheel-zooms=1\r\n", "", [] { return std::int32_t{rotellaIngrandisce}; }, 1},
        {"wheel-zooms = 2", "1", [] { return std::int32_t{rotellaIngrandisce}; }, 0},
        {"memory = 99999999999999999999", "1", [] { return memoriaGiornale; }, 256},
        {"snap-kinds = 128", "1", [] { return std::int32_t{agganciAttivi}; }, 7},
        {"snap-kinds = 127", "", [] { return std::int32_t{agganciAttivi}; }, 127},
        {"highlight = #FF8000", "", [] { return std::int32_t{coloreEvidenza.green}; }, 0x8080},
        {"highlight = #000000", "1", [] { return std::int32_t{coloreEvidenza.green}; }, 0x71F1},
        {"highlight = #-12345", "1", [] { return std::int32_t{coloreEvidenza.green}; }, 0x71F1},
        {"language = it", "", [] { return std::int32_t{linguaPreferita}; }, linguaItaliana},
        {"language = fr\nunit = 3", "1", [] { return std::int32_t{unitaNuovi}; }, 3},
        {"nonsense", "1", [] { return std::int32_t{recuperoAttivo}; }, 1},
        {"recovery = 0\nrecovery = 7", "2", [] { return std::int32_t{recuperoAttivo}; }, 0},
    };
    for (const Caso& c : casi) {
        AzzeraStato();
        EXPECT_EQ(LeggiTestoPreferenze(c.testo), c.rifiutate) << c.testo;
        EXPECT_EQ(c.legge(), c.atteso) << c.testo;
    }
}

TEST(Preferenze, WhatIsWrittenIsReadBackAndANewerProgramsLinesStay) {
    EXPECT_EQ(
        LeggiTestoPreferenze("language = en\nsnap-distance = 33\nhighlight = #10FF01\nribbon = blue sky\nunit = 6\n"
                             "recovery-seconds = 600\n"),
        "");
    const std::string scritto = TestoPreferenze();
    EXPECT_NE(scritto.find("ribbon = blue sky\n"), std::string::npos);
    AzzeraStato();
    EXPECT_EQ(LeggiTestoPreferenze(scritto), "");
    EXPECT_EQ(TestoPreferenze(), scritto);
    EXPECT_EQ(distanzaAggancio, 33);
    EXPECT_EQ(recuperoSecondi, 600);
}

TEST(Preferenze, AnyBytesLeaveEveryValueWithinItsBounds) {
    std::mt19937 rng(11);
    const std::string buono = TestoPreferenze();
    for (int giro = 0; giro < 400; ++giro) {
        std::string s = giro % 2 == 0 ? buono : std::string(rng() % 3000, '\0');
        for (int i = 0; i < 30; ++i)
            if (!s.empty()) s[rng() % s.size()] = static_cast<char>(rng());
        EXPECT_LT(LeggiTestoPreferenze(s).size(), 200U);
        EXPECT_GE(distanzaAggancio, distanzaAggancioMinima);
        EXPECT_LE(distanzaAggancio, distanzaAggancioMassima);
        EXPECT_GE(memoriaGiornale, 1);
        EXPECT_LE(unitaNuovi, 6);
        EXPECT_GE(recuperoSecondi, minimoRecupero);
        EXPECT_LT(TestoPreferenze().size(), 200000U);
    }
}
