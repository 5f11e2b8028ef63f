// The recovery file: what a program that died leaves, cut off anywhere, is a drawing that there was.
#include "shell/Recupero.h"

#include "files/Disco.h"

#include <algorithm>
#include <csignal>
#include <cstring>
#include <random>
#include <sys/resource.h>

#include "files/RecuperoFormato.h"
#include "files/Richieste.h"
#include "model/Estensioni.h"
#include "model/Lucidi.h"
#include "model/Mesh.h"
#include "platform/StateFiles.h"
#include "shell/Archivia.h"
#include "support/Avvisi.h"
#include "support/Passi.h"

using namespace tessaro;
using namespace prova;

namespace {

std::vector<std::string> recuperi() { return StateFiles(".recovery"); }

struct Recuperi : testing::Test {
    Cartella cartella;
    void SetUp() override {
        ASSERT_TRUE(AllocaElementi(2000));
        PreparaRecupero();
        SetUpWindow();
    }
    void TearDown() override {
        indElem = 2;   // nothing to ask about
        TuttoChiuso();
        dopoTransizione = nullptr;
        for (const std::string& f : recuperi()) std::filesystem::remove(f);
    }
    // The program dies: what it has written so far lies under another name, without a lock.
    std::string muore() {
        EXPECT_EQ(recuperi().size(), 1U);
        std::string copia = cartella / "orfano";
        std::filesystem::copy_file(recuperi().front(), copia, std::filesystem::copy_options::overwrite_existing);
        return copia;
    }
    static void rinasce(const std::string& orfano) {
        TuttoChiuso();
        std::filesystem::copy_file(orfano, StateFolder() + "/orfano.recovery");
        SetUpWindow();
        avvisi.clear();
    }
};

// The drawing of the moment; pictures by their bytes, as their numbers change.
std::string adesso() {
    std::string s;
    for (std::int32_t n = 1; n <= indElem; ++n) {
        elemento e = Elem(n);
        e.selezionato = 0;
        if (e.tipo == tPict) {
            s += PictBytes(e.pict.maniglia);
            e.pict.maniglia = 0;
        }
        s.append(reinterpret_cast<const char*>(&e), sizeof e);
    }
    return s + std::to_string(VisioneGraf.lucidoCorrente) + std::string(Estensione(estPunti));
}

}   // namespace

TEST_F(Recuperi, ADrawingThatWasNotClosedIsOfferedWithItsNameAndComesBackWhole) {
    NomeD = NomeLavoro = "rilievo.ts3d";
    bottoni[3001] = 1;
    segmento(1, 2, 3, 4);
    ASSERT_TRUE(finePasso());
    immagine(10, 10, 50, 50, "picture bytes");
    VisioneGraf.lucidoCorrente = 7;
    ASSERT_TRUE(finePasso());
    polilinea({{1, 1}, {2, 2}, {3, 3}});
    meshOrigine.nx = meshOrigine.ny = 2;
    meshOrigine.x[1][1] = 99;
    ASSERT_TRUE(finePasso());
    annulla();
    ripeti();
    Elem(3).segm.x2 = 77;
    ASSERT_TRUE(finePasso());
    marker(1, 1);   // the command in progress when it dies
    const std::string orfano = muore();
    --indElem;
    const std::int32_t quanti = indElem;
    rinasce(orfano);
    bottoni[9103] = 1;
    OffriRecupero();
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9103});
    EXPECT_NE(avvisi[0].testo.find("rilievo.ts3d"), std::string::npos);
    EXPECT_EQ(indElem, quanti);
    EXPECT_EQ(Elem(3).segm.x2, 77);
    EXPECT_EQ(PictBytes(Elem(4).pict.maniglia), "picture bytes");
    EXPECT_EQ(VisioneGraf.lucidoCorrente, 7);
    EXPECT_EQ(meshOrigine.x[1][1], 99);
    EXPECT_EQ(NomeD.str(), "Untitled");   // the next save asks where to
    EXPECT_EQ(DaAnnullare(), nullptr);
    // It is not saved yet: should the program die again, it is offered again.
    rinasce(muore());
    OffriRecupero();
    EXPECT_EQ(indElem, quanti);
    EXPECT_EQ(recuperi().size(), 1U);
}

TEST_F(Recuperi, ClosingSavingAndDiscardingLeaveNothing) {
    segmento(1, 2, 3, 4);
    finePasso();
    EXPECT_EQ(recuperi().size(), 1U);
    myFSS = FSMakeFSSpec(cartella / "d.ts3d");
    NomeD = "d.ts3d";
    theItem = rSalva;
    archivia();
    EXPECT_TRUE(recuperi().empty());
    EXPECT_NE(DaAnnullare(), nullptr);   // a save is no end of what can be taken back
    annulla();
    EXPECT_EQ(recuperi().size(), 1U);
    const std::string orfano = muore();
    bottoni[3001] = 1;
    TuttoChiuso();
    EXPECT_TRUE(recuperi().empty());
    rinasce(orfano);
    bottoni[9103] = 3;   // later: as if it had not been asked
    OffriRecupero();
    EXPECT_EQ(recuperi().size(), 1U);
    bottoni[9103] = 2;
    OffriRecupero();
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{9103, 9103}));
    EXPECT_TRUE(recuperi().empty());
    EXPECT_EQ(indElem, 2);
}

TEST_F(Recuperi, ALivingProgramsFileIsLeftAlone) {
    segmento(1, 2, 3, 4);
    finePasso();
    OffriRecupero();   // its own, which is locked like another program's
    EXPECT_TRUE(avvisi.empty());
    EXPECT_EQ(recuperi().size(), 1U);
}

TEST_F(Recuperi, CutOffOrDamagedAnywhereItIsADrawingThatThereWas) {
    std::mt19937 sorte(7);
    std::vector<std::string> stati{adesso()};
    std::size_t base = 0;   // bytes before the second step: without them there is nothing
    for (int i = 0; i < 60; ++i) {
        switch (i == 0 ? 0 : sorte() % 5) {
        case 0: segmento(i, 0, 1, 1); break;
        case 1: immagine(i, 0, 1, 1, std::string(sorte() % 50, 'p')); break;
        case 2:
            if (indElem > 5) CopiaRecord(4, 5, indElem - 4), --indElem;
            break;
        case 3: PoniEstensione(estPunti, std::string(sorte() % 50, 'e') + std::to_string(i)); break;
        default: VisioneGraf.lucidoCorrente = static_cast<std::int16_t>(i);
        }
        finePasso();
        if (i == 0) base = std::filesystem::file_size(recuperi().front());
        stati.push_back(adesso());
        if (i % 5 == 4) annulla();
        stati.push_back(adesso());
    }
    const std::string intero = contenuto(muore());
    std::size_t buoni = 0;
    for (int prova = 0; prova < 200; ++prova) {
        std::string byte = intero;
        if (prova % 2 == 0)
            byte.resize(base + sorte() % (intero.size() - base));
        else
            byte[base + sorte() % (byte.size() - base)] ^= static_cast<char>(1 << sorte() % 8);
        metti(cartella / "rotto", byte);
        const StateFile f = StateTakeOver(cartella / "rotto");
        ASSERT_NE(f, 0);
        DisegnoRecuperato d;
        const bool letto = LeggiRecupero(f, d);
        StateClose(f, true);
        if (!letto) continue;
        ++buoni;
        const auto vivi = PictMemory();
        AccogliRecupero(d);
        EXPECT_NE(std::find(stati.begin(), stati.end(), adesso()), stati.end()) << prova;
        for (std::int32_t n = 3; n <= indElem; ++n)
            if (Elem(n).tipo == tPict) KillPicture(Elem(n).pict.maniglia);
        EXPECT_EQ(PictMemory(), vivi);
    }
    EXPECT_EQ(buoni, 200U);
}

TEST_F(Recuperi, AFullDiskIsToldOnceAndWhatIsWrittenStays) {
    for (int i = 0; i < 20; ++i) {
        segmento(i, 2, 3, 4);
        finePasso();
    }
    const auto lungo = std::filesystem::file_size(recuperi().front());
    struct rlimit prima {};
    ::getrlimit(RLIMIT_FSIZE, &prima);
    struct rlimit poco {
        lungo + 150, prima.rlim_max
    };
    auto* const segnale = ::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &poco);
    for (int i = 0; i < 5; ++i) {
        polilinea({{1, 1}, {2, 2}, {3, 3}});
        finePasso();
        RecuperoARiposo(false);
    }
    ::setrlimit(RLIMIT_FSIZE, &prima);
    ::signal(SIGXFSZ, segnale);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9108});
    const std::string orfano = muore();
    EXPECT_EQ(std::filesystem::file_size(orfano), lungo);
    bottoni[3001] = 1;
    rinasce(orfano);
    bottoni[9103] = 1;
    OffriRecupero();
    EXPECT_EQ(indElem, 22);
}
