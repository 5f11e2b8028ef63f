// The list of recent drawings as its file has it, whatever bytes those are, and where a window goes whose screen is gone.
#include "shell/Recenti.h"

#include <QList>
#include <QRect>

#include "files/Disco.h"
#include "model/Documento.h"
#include "model/Voci.h"
#include "platform/Menus.h"
#include "platform/qt/FinestraQt.h"
#include "shell/Archivia.h"
#include "shell/Inizializza.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

TEST(Recenti, AListOfAnyBytesGivesPathsAlone) {
    struct Caso {
        std::string byte;
        std::vector<std::string> attesi;
    };
    std::string molti;
    for (int i = 0; i < 30; ++i) molti += "/d/" + std::to_string(i) + "\n";
    const Caso casi[] = {
        {"", {}},
        {"# a comment\n/a/b.ts3d\r\n\n/c", {"/a/b.ts3d", "/c"}},
        {"relative/x.ts3d\n/\n/ok", {"/ok"}},
        {"/twice\n/twice\n/once\n", {"/twice", "/once"}},
        {std::string("/nul\0here\n/ok\n", 14), {"/ok"}},
        {"/" + std::string(5000, 'x') + "\n/ok", {"/ok"}},
    };
    for (const Caso& c : casi) EXPECT_EQ(RecentiDa(c.byte), c.attesi) << c.byte.substr(0, 40);
    ASSERT_EQ(RecentiDa(molti).size(), maxRecenti);
    EXPECT_EQ(RecentiDa(molti).front(), "/d/0");
}

TEST(Recenti, ADrawingThatIsGoneIsToldAndTakenOffAndTheOpenOneStays) {
    const Cartella cartella;
    CreateMenus();
    ASSERT_TRUE(AllocaElementi(200));
    SvuotaRecenti();
    metti(cartella / "a.ts3d", disegno(12, {rSegmento(1, 2, 3, 4)}));
    metti(cartella / "b.ts3d", disegno(12, {rSegmento(1, 2, 3, 4), rSegmento(5, 6, 7, 8)}));
    ApriPercorso((cartella / "a.ts3d").c_str());
    ApriPercorso((cartella / "b.ts3d").c_str());
    ASSERT_EQ(indElem, 4);
    std::filesystem::remove(cartella / "a.ts3d");
    avvisi.clear();
    ApriRecente(2);
    EXPECT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9480});
    EXPECT_EQ(indElem, 4);
    EXPECT_FALSE(IsMenuItemEnabled(menuRecenti, 2));
    EXPECT_TRUE(GetMenuItemText(menuRecenti, 1).starts_with("b.ts3d"));
    // Another program's additions are kept.
    const FSSpec file = FSMakeFSSpecIn(SettingsFolder(), "recent");
    metti(file.percorso, contenuto(file.percorso) + "/elsewhere/c.ts3d\n");
    ApriPercorso((cartella / "b.ts3d").c_str());
    EXPECT_TRUE(IsMenuItemEnabled(menuRecenti, 2));
    EXPECT_TRUE(GetMenuItemText(menuRecenti, 2).starts_with("c.ts3d"));
    SvuotaRecenti();
    EXPECT_FALSE(IsMenuItemEnabled(menuArchivio, voci::archivio::recenti));
    TuttoChiuso();
}

TEST(Finestra, AWindowWhoseScreenIsGoneComesBackIntoSight) {
    const QRect primo(0, 0, 1920, 1080), secondo(1920, 0, 1280, 1024);
    struct Caso {
        QRect voluto;
        QList<QRect> schermi;
        QRect atteso;
    };
    const Caso casi[] = {
        {{100, 50, 800, 600}, {primo, secondo}, {100, 50, 800, 600}},
        {{2000, 50, 800, 600}, {primo, secondo}, {2000, 50, 800, 600}},
        {{2000, 50, 800, 600}, {primo}, {560, 240, 800, 600}},
        {{1880, 50, 800, 600}, {primo}, {560, 240, 800, 600}},     // a strip too narrow to take hold of
        {{100, -500, 800, 600}, {primo}, {560, 240, 800, 600}},    // its title bar above the screen
        {{1500, 600, 800, 600}, {primo}, {1500, 600, 800, 600}},   // partly beside the screen is the person's choice
        {{0, 0, 3840, 2160}, {primo}, {0, 0, 1920, 1080}},         // larger than what there is
        {{5000, 5000, 3000, 3000}, {secondo}, {1920, 0, 1280, 1024}},
    };
    for (const Caso& c : casi) EXPECT_EQ(postoVisibile(c.voluto, c.schermi), c.atteso) << c.voluto.x();
}
