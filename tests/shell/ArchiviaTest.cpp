// The file commands on real files: what a save replaces and keeps, what an opening does to names, what is refused.
#include "files/Disco.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include "files/Richieste.h"
#include "model/Annulla.h"
#include "model/Documento.h"
#include "shell/Archivia.h"
#include "shell/Recupero.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

// An open drawing with one segment in it, and its window.
struct Aperto : testing::Test {
    Cartella cartella;
    void SetUp() override {
        ASSERT_TRUE(AllocaElementi(2000));
        SetUpWindow();
        segmento(1, 2, 3, 4);
    }
    void TearDown() override {
        indElem = 2;   // nothing to ask about
        TuttoChiuso();
    }
    void chiede(std::int16_t item, const std::string& percorso) {
        myFSS = FSMakeFSSpec(percorso);
        NomeD = PStr255(std::string_view(myFSS.nome));
        theItem = item;
        archivia();
    }
};

}   // namespace

TEST_F(Aperto, ASaveReplacesTheFileAndKeepsItsModeAndItsLink) {
    const std::string vero = cartella / "vero.ts3d", legame = cartella / "legame.ts3d";
    metti(vero, "old");
    ::chmod(vero.c_str(), 0640);
    std::filesystem::create_symlink("vero.ts3d", legame);
    chiede(4, legame);
    EXPECT_TRUE(ultimoSalvataggioRiuscito);
    EXPECT_TRUE(std::filesystem::is_symlink(legame));
    EXPECT_EQ(contenuto(vero), scriviByte());
    struct stat s {};
    ASSERT_EQ(::stat(vero.c_str(), &s), 0);
    EXPECT_EQ(s.st_mode & 0777, 0640U);
    EXPECT_EQ(cartella.quanti(), 2U);   // nothing is left beside them
}

TEST_F(Aperto, ASaveThatFailsLeavesTheOldFileAndTheDrawing) {
    const std::string file = cartella / "d.ts3d";
    metti(file, "the old drawing");
    for (int i = 0; i < 500; ++i) segmento(i, 0, 0, 1);
    struct rlimit prima {};
    ::getrlimit(RLIMIT_FSIZE, &prima);
    struct rlimit poco {
        1000, prima.rlim_max
    };
    ::setrlimit(RLIMIT_FSIZE, &poco);
    bottoni[3001] = 2;
    myFSS = FSMakeFSSpec(file);
    NomeD = "d.ts3d";
    const std::uint8_t chiuso = TuttoChiuso();   // "save" on the way out
    ::setrlimit(RLIMIT_FSIZE, &prima);
    EXPECT_EQ(chiuso, 0);
    EXPECT_FALSE(ultimoSalvataggioRiuscito);
    EXPECT_EQ(noWindow, 0);
    EXPECT_EQ(indElem, 503);
    EXPECT_EQ(numeriAvvisi(), (std::vector<std::int16_t>{3001, 1013}));
    EXPECT_EQ(contenuto(file), "the old drawing");
    EXPECT_EQ(cartella.quanti(), 1U);
}

TEST_F(Aperto, APlaceThatCannotBeWrittenSaysSo) {
    struct Caso {
        std::string file;
        std::int16_t avviso;
    };
    std::filesystem::create_symlink("/dev/full", cartella / "full.ts3d");
    const Caso casi[] = {
        {cartella / "missing/d.ts3d", 1006},
        {cartella / "full.ts3d", 1013},
        {"/proc/d.ts3d", 1006},
    };
    for (const Caso& c : casi) {
        avvisi.clear();
        chiede(4, c.file);
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{c.avviso}) << c.file;
        EXPECT_FALSE(ultimoSalvataggioRiuscito);
        EXPECT_EQ(indElem, 3);
    }
}

TEST_F(Aperto, OpeningTakesTheNameAndCanBeUndone) {
    const std::string file = cartella / "carta.ts3d";
    metti(file, disegno(12, {record(tMarker), record(tMarker)}));
    bottoni[3001] = 1;
    ASSERT_TRUE(TuttoChiuso());
    myFSS = FSMakeFSSpec(file);
    theItem = rApriDato;
    archivia();
    EXPECT_EQ(indElem, 4);
    EXPECT_EQ(NomeD.str(), "carta.ts3d");
    EXPECT_EQ(NomeLavoro.str(), "carta.ts3d");
    EXPECT_EQ(GetWTitle(theWindow), "carta.ts3d");
    EXPECT_EQ(annullamento, aAggiunta);
    EXPECT_EQ(inizioAggiunta, 2);
}

TEST_F(Aperto, WhatCannotBeOpenedLeavesAnUntitledDrawing) {
    struct Caso {
        const char* nome;
        const char* byte;   // null: no such file
        std::int16_t avviso;
    };
    constexpr Caso casi[] = {
        {"missing.ts3d", nullptr, 1006},
        {"note.txt", "text", 9101},
        {"false.ts3d", "this is no drawing at all, however long it is made to look", 9101},
    };
    for (const Caso& c : casi) {
        bottoni[3001] = 1;
        ASSERT_TRUE(TuttoChiuso());
        SetUpWindow();
        avvisi.clear();
        if (c.byte) metti(cartella / c.nome, c.byte);
        myFSS = FSMakeFSSpec(cartella / c.nome);
        theItem = rApriDato;
        archivia();
        EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{c.avviso}) << c.nome;
        EXPECT_EQ(indElem, 2);
        EXPECT_EQ(NomeD.str(), "Untitled");
        EXPECT_EQ(noWindow, 0);
    }
}

TEST_F(Aperto, ARequestThatIsNotBuiltBeepsAndChangesNothing) {
    PoniAnnulla(aElemento);
    constexpr std::int16_t diNessuno = 46;
    theItem = diNessuno;
    archivia();
    EXPECT_EQ(annullamento, aElemento);
    EXPECT_EQ(prova::suoni, 1);
    EXPECT_EQ(indElem, 3);
}

TEST_F(Aperto, ADropThatIsMergedDoesNotBecomeTheDocument) {
    metti(cartella / "altro.ts3d", disegno(12, {record(tMarker)}));
    myFSS = FSMakeFSSpec(cartella / "mio.ts3d");
    NomeD = NomeLavoro = "mio.ts3d";
    LeggiDropTS3D(FSMakeFSSpec(cartella / "altro.ts3d"), 0);
    EXPECT_EQ(theItem, rUnisciDato);
    EXPECT_EQ(indElem, 4);
    EXPECT_EQ(NomeD.str(), "mio.ts3d");
    EXPECT_EQ(myFSS.nome, "mio.ts3d");
}

TEST_F(Aperto, APictureDroppedOnAFullDrawingIsSilent) {
    metti(cartella / "foto.png", "no picture");
    maxElementi = indElem;
    LeggiDropPict(FSMakeFSSpec(cartella / "foto.png"));
    EXPECT_EQ(prova::suoni, 0);
    EXPECT_EQ(indElem, maxElementi);
}

TEST_F(Aperto, TheRecoveryCopyIsOfferedUnderTheDrawingsName) {
    NomeD = NomeLavoro = "rilievo.ts3d";
    PoniAnnulla(aElemento);
    ScriviRecupero();
    EXPECT_EQ(annullamento, aElemento);   // a session that goes on after all has lost nothing
    bottoni[3001] = 1;
    ASSERT_TRUE(TuttoChiuso());
    SetUpWindow();
    avvisi.clear();
    bottoni[9103] = 1;
    OffriRecupero();
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9103});
    EXPECT_NE(avvisi[0].testo.find("rilievo.ts3d"), std::string::npos);
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(NomeD.str(), "Untitled");   // the next save asks where to
    avvisi.clear();
    OffriRecupero();
    EXPECT_TRUE(avvisi.empty());
}
