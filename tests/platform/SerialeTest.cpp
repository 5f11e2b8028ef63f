// A serial digitiser through a pseudo-terminal: a stream with noise and cut packets, a cable pulled out, ports that
// cannot be read.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>

#include "digitising/Tavoletta.h"
#include "digitising/TavolettaLettori.h"
#include "display/Scena.h"
#include "files/Impostazioni.h"
#include "model/Cursore.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "platform/Events.h"
#include "platform/Menus.h"
#include "platform/Tablet.h"
#include "shell/Comandi.h"
#include "support/Avvisi.h"

using namespace tessaro;
using namespace prova;

namespace {

struct Seriale : testing::Test {
    FinestraProva finestra;
    int cavo = -1;

    void SetUp() override {
        CreateMenus();
        htav1 = 3000;
        puntimm = 40;
        scalaX = scalaY = 1;
        ScalaTavoletta();
        int altro = -1;
        char nome[128];
        if (openpty(&cavo, &altro, nome, nullptr, nullptr) != 0)
            GTEST_SKIP() << "no pseudo-terminals here: " << std::strerror(errno);
        PortaTavIn = nome;
        velbaud = 4;
        lettoreScelto = static_cast<std::int16_t>(LettoreTavoletta::seriale);
        Modalita = mDigitazione;
        operazCorrente = opMarker;
        attacca(altro);
    }
    // The digitiser's end is held open only by what the program opens.
    static void attacca(int altro) {
        CambiaLettura();
        close(altro);
    }
    void TearDown() override {
        SpegniTavoletta();
        strappa();
    }
    void strappa() {
        if (cavo >= 0) close(cavo);
        cavo = -1;
    }
    void manda(const std::string& byte) const {
        ASSERT_EQ(write(cavo, byte.data(), byte.size()), static_cast<ssize_t>(byte.size()));
    }
    static void giro() {
        EventRecord e;
        WaitNextEvent(e, 0);
        usleep(2000);
    }
    // Lets the line and the loop work until `fatto`; false when a busy machine has had thirty seconds.
    template <typename F>
    static bool attendi(F fatto) {
        const auto fine = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (std::chrono::steady_clock::now() < fine) {
            giro();
            LeggiTavoletta();
            if (fatto()) return true;
        }
        return false;
    }
};

}   // namespace

TEST_F(Seriale, AStreamWithNoiseAndCutPacketsGivesEachPointOnce) {
    ASSERT_TRUE(TabAbilit);
    EXPECT_EQ(lettoreVivo, static_cast<std::int16_t>(LettoreTavoletta::seriale));
    EXPECT_TRUE(IsMenuItemChecked(6, 20));
    EXPECT_NE(GetMenuItemText(6, 20).find("Serial"), std::string::npos);
    manda("45,06789,1\r\n04000,08000,0\r\n");          // the first line was cut
    manda("04000,08000,1\r\n04000,08000,1\r\n0400");   // held, then cut between two writes
    ASSERT_TRUE(attendi([] { return indElem == 3; }));
    manda("4,08004,0\r\n\x01\x02\xFFnoise,,,\r\n12,34\r\n04400,08000,1\r\n04400,08000,0\r\n");
    ASSERT_TRUE(attendi([] { return indElem == 4 && tabButton == bNessuno; }));
    EXPECT_EQ(Elem(3).mark.x, 1000);
    EXPECT_EQ(Elem(3).mark.y, 1000);
    EXPECT_EQ(Elem(4).mark.x, 1100);
    EXPECT_EQ(xtab, 4400);
    EXPECT_TRUE(avvisi.empty());
}

TEST_F(Seriale, BinaryPacketsPassTheLineUnchanged) {
    formatoTavoletta = 3;
    AccendiTavoletta(LettoreTavoletta::seriale);
    std::string flusso;
    for (int i = 0; i < 20; ++i) {
        const int x = 4000 + i * 40, y = 8000;
        for (const int bottone : {0, 1, 0})
            for (const int b : {0x80 | bottone << 2 | x >> 14, x >> 7 & 127, x & 127, y >> 14, y >> 7 & 127, y & 127})
                flusso += static_cast<char>(b);
        flusso += "\x11\x13";   // bytes that a line with flow control would swallow
    }
    manda(flusso);
    ASSERT_TRUE(attendi([] { return indElem == 22; })) << indElem;
    for (int i = 0; i < 20; ++i) EXPECT_EQ(Elem(3 + i).mark.x, 1000 + i * 10);
}

TEST_F(Seriale, APulledCableEndsReadingWithOneMessage) {
    manda("04000,08000,1\r\n04000,0");
    ASSERT_TRUE(attendi([] { return indElem == 3; }));
    strappa();
    ASSERT_TRUE(attendi([] { return TabAbilit == 0; }));
    ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9104});
    EXPECT_NE(avvisi[0].testo.find("disconnected"), std::string::npos) << avvisi[0].testo;
    EXPECT_NE(avvisi[0].testo.find(PortaTavIn.str()), std::string::npos);
    EXPECT_EQ(lettoreVivo, 0);
    EXPECT_FALSE(IsMenuItemChecked(6, 20));
    EXPECT_EQ(GetMenuItemText(6, 20), "Tablet Reading");
    int giri = 0;
    attendi([&giri] { return ++giri == 100; });   // nothing more comes of it
    EXPECT_EQ(avvisi.size(), 1u);
}

TEST_F(Seriale, AResetGivesTheLineBack) {
    ASSERT_EQ(lettoreVivo, static_cast<std::int16_t>(LettoreTavoletta::seriale));
    AzzeraStato();
    strappa();   // a line that were still open would tell of it
    for (int i = 0; i < 30; ++i) attendi([] { return true; });
    EXPECT_EQ(SerialFault(), GuastoSeriale::nessuno);
    std::uint8_t byte = 0;
    EXPECT_EQ(SerialRead(&byte, 1), 0u);
}

TEST_F(Seriale, WhatArrivesUnderADialogIsDropped) {
    {
        const Annidato dialogo;
        manda("04000,08000,1\r\n04000,08000,0\r\n0400");
        // Until the line says that it dropped something; the reading itself rests under a dialog.
        const auto tardi = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!SerialCut() && std::chrono::steady_clock::now() < tardi) giro();
    }
    manda("04400,08000,1\r\n04400,08000,2\r\n");   // the first is the rest of what was cut, for all one knows
    operazCorrente = opMarker;
    ASSERT_TRUE(attendi([] { return xtab == 4400; }));
    EXPECT_EQ(indElem, 3);
    EXPECT_EQ(Elem(3).mark.x, 1100);
}

TEST_F(Seriale, PortsThatCannotBeReadAreToldAndReadingStaysOff) {
    SpegniTavoletta();
    struct {
        const char* porta;
        const char* parola;
    } const casi[] = {{"", "No port"}, {"/dev/no-such-port", "no such port"}, {"/dev/null", "cannot be read"}};
    for (const auto& c : casi) {
        avvisi.clear();
        PortaTavIn = c.porta;
        CambiaLettura();
        EXPECT_EQ(TabAbilit, 0) << c.porta;
        ASSERT_EQ(numeriAvvisi(), std::vector<std::int16_t>{9104}) << c.porta;
        EXPECT_NE(avvisi[0].testo.find(c.parola), std::string::npos) << avvisi[0].testo;
    }
}
