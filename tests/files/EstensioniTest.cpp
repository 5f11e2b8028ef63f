// Entries behind the told end: their bytes in a file, steps back and forward, damaged blocks.
#include "model/Estensioni.h"
#include "files/Disco.h"
#include "model/Giornale.h"
#include "shell/Modificato.h"
#include "support/Avvisi.h"
#include "support/Passi.h"

using namespace tessaro;
using namespace prova;

namespace {

constexpr std::uint32_t ignota = MarcaDi("wxyz");

Byte blocco(const std::vector<std::pair<std::string_view, std::string_view>>& voci) {
    Byte corpo;
    for (const auto& [marca, dati] : voci) corpo.byte(marca).i32(static_cast<std::int64_t>(dati.size())).byte(dati);
    Byte b;
    b.byte("TSEX").i32(static_cast<std::int64_t>(corpo.size())).byte(corpo);
    return b;
}

}   // namespace

TEST(Estensioni, EntriesStandBehindTheToldEndAndUnknownOnesAreKept) {
    fogliovuoto();
    AzzeraEstensioni();
    const std::string senza = scriviByte();
    ASSERT_TRUE(PoniEstensione(ignota, "of a later version"));
    ASSERT_TRUE(PoniEstensione(estLucidi, std::string("\0\1", 2)));
    const std::string con = scriviByte();
    const Byte detto = blocco({{"lays", std::string_view("\0\1", 2)}, {"wxyz", "of a later version"}});
    EXPECT_EQ(con, senza + detto);
    PoniEstensione(estPunti, "of the drawing before");
    fogliovuoto();
    leggiByte(con);
    EXPECT_TRUE(avvisi.empty());
    EXPECT_TRUE(lettoIntero);
    EXPECT_EQ(Estensione(estLucidi), std::string_view("\0\1", 2));
    EXPECT_EQ(Estensione(estPunti), "");
    EXPECT_TRUE(scriviByte().ends_with(detto));
    fogliovuoto();
    leggiByte(senza + "anything else behind the end");
    EXPECT_TRUE(avvisi.empty());
    EXPECT_TRUE(VociEstensione().empty());
}

TEST(Estensioni, ADamagedBlockIsToldAndWhatStandsBeforeItIsIn) {
    fogliovuoto();
    AzzeraEstensioni();
    const std::string senza = scriviByte();
    const std::string buono = blocco({{"lays", "names"}, {"wxyz", "others"}});
    for (std::size_t n = 8; n < buono.size(); ++n) {
        fogliovuoto();
        avvisi.clear();
        leggiByte(senza + buono.substr(0, n));
        EXPECT_EQ(avvisi.size(), 1U) << n;
        EXPECT_FALSE(lettoIntero) << n;   // a save must not replace what could not be read
    }
    for (const std::size_t lunghezza : {std::size_t{7}, std::size_t{12}, std::size_t{15}}) {
        for (const char c : {'\1', '\x7f', '\xff'}) {
            std::string rotto = buono;
            rotto[lunghezza] = c;
            fogliovuoto();
            avvisi.clear();
            leggiByte(senza + rotto);
            EXPECT_EQ(avvisi.size(), 1U) << lunghezza;
        }
    }
}

TEST(Estensioni, AnEntryGoesBackAndForwardWithItsStep) {
    fogliovuoto();
    AzzeraEstensioni();
    noWindow = 0;
    GiornaleNuovo();
    SegnaSalvato();
    PoniEstensione(estLucidi, "first");
    ASSERT_TRUE(finePasso());
    const std::uint32_t primo = NumeroEstensione(estLucidi);
    for (int i = 0; i < 100; ++i) PoniEstensione(estLucidi, "on the way " + std::to_string(i));
    PoniEstensione(estPunti, "points");
    ASSERT_TRUE(finePasso());
    annulla();
    EXPECT_EQ(Estensione(estLucidi), "first");
    EXPECT_EQ(NumeroEstensione(estLucidi), primo);
    EXPECT_EQ(Estensione(estPunti), "");
    EXPECT_TRUE(DisegnoDiverso());
    PoniEstensione(estLucidi, "other");
    PoniEstensione(estLucidi, "first");
    EXPECT_FALSE(finePasso());   // put back as it was
    ripeti();
    EXPECT_EQ(Estensione(estLucidi), "on the way 99");
    EXPECT_EQ(Estensione(estPunti), "points");
    annulla();
    annulla();
    EXPECT_TRUE(VociEstensione().empty());
    EXPECT_FALSE(DisegnoDiverso());
}

TEST(Estensioni, AFullTableRefusesANewEntryAndTakesOldOnes) {
    fogliovuoto();
    AzzeraEstensioni();
    for (std::int32_t i = 0; i < maxEstensioni; ++i)
        ASSERT_TRUE(PoniEstensione(static_cast<std::uint32_t>(1000 - i), std::to_string(i)));
    EXPECT_FALSE(PoniEstensione(1, "one more"));
    EXPECT_TRUE(PoniEstensione(1000, "changed"));
    EXPECT_TRUE(PoniEstensione(999, ""));
    EXPECT_TRUE(PoniEstensione(1, "one more"));
    EXPECT_EQ(Estensione(1), "one more");
    EXPECT_EQ(Estensione(1000), "changed");
    AzzeraEstensioni();
}
