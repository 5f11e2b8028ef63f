// What the screen shows in the middle of anything is what a forced repaint would show, pixel for pixel; and following the
// pointer touches nothing of the drawing.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "../display/Scena.h"
#include "digitising/Attacchi.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "platform/Automation.h"
#include "shell/Archivia.h"
#include "shell/Comandi.h"
#include "shell/Inizializza.h"
#include "tools/Costruzione.h"

using namespace tessaro;
using namespace prova;

namespace {

void lavora() {
    do CheckEvents();
    while (!AutoQueueEmpty());
    CheckEvents();   // the round in which the pointer is followed
}

void vai(std::int32_t h, std::int32_t v) {
    AutoMove(Point{v, h}, 0);
    lavora();
}

void clicca(std::int32_t h, std::int32_t v) {
    vai(h, v);
    AutoAdvance(60);   // no double click
    AutoPress(Point{v, h}, 0);
    AutoRelease(Point{v, h}, 0);
    lavora();
}

void premi(char c) {
    AutoKey(static_cast<std::uint8_t>(c), 0);
    lavora();
}

void comando(std::uint32_t menu, std::uint32_t voce) {
    DoCommand(menu << 16 | voce);
    lavora();
}

void rotella(std::int32_t passi, std::uint16_t tasti) {
    AutoWheel(0, passi, tasti);
    lavora();
}

// A drawing with something of every kind, at the zoom of the start.
struct Disegno {
    Disegno() {
        Initialize();
        AutoResize(520, 420);   // small, so that many cases take little time
        lavora();
        FaiZoom(1);
        segmento(200, 200, 900, 500);
        marker(500, 700);
        cerchio(800, 800, 200);
        arco(1200, 600, 250, 30, 140);
        polilinea({{300, 900}, {700, 1200}, {1100, 1000}, {1300, 1300}});
        testo(400, 400, "prova");
        PoniAnnulla(aNiente);
        InvalWind();
        lavora();
    }
    ~Disegno() {
        CalcWindow = 0;
        indElem = 2;
        TuttoChiuso();
    }
    Disegno(const Disegno&) = delete;
    Disegno& operator=(const Disegno&) = delete;
};

Point sulFoglio(double x, double y) {
    return Point{static_cast<std::int32_t>(YVidD(y)), static_cast<std::int32_t>(XVidD(x))};
}

void cliccaFoglio(double x, double y) {
    const Point p = sulFoglio(x, y);
    clicca(p.h, p.v);
}

struct Situazione {
    std::string nome;
    std::function<void()> prepara;
};

void strumento(std::int32_t quale, bool perPunti, int punti) {
    operazCorrente = quale;
    Modalita = mDigitazione;
    CurvePerPunti = perPunti;
    DrawPallette();
    constexpr double posti[][2] = {{350, 300}, {700, 650}, {1000, 350}, {1150, 900}};
    for (int i = 0; i < punti; ++i) cliccaFoglio(posti[i][0], posti[i][1]);
}

void scegli(bool tutto) {
    Modalita = mSelezione;
    DrawPallette();
    if (tutto) {
        SelezionaTutto();
        DisegnaSelezione();
    } else {
        cliccaFoglio(550, 350);
    }
}

void sposta(bool tutto, bool cominciato) {
    scegli(tutto);
    Modalita = mSpostamento;
    DrawPallette();
    DisegnaSelezione();
    if (cominciato) cliccaFoglio(600, 600);
}

std::vector<Situazione> situazioni() {
    std::vector<Situazione> s{{"nothing", [] {}},
                              {"one selected", [] { scegli(false); }},
                              {"all selected", [] { scegli(true); }},
                              {"a move of one, before", [] { sposta(false, false); }},
                              {"a move of one, half done", [] { sposta(false, true); }},
                              {"a move of all, half done", [] { sposta(true, true); }},
                              {"a control point to come", [] {
                                   Modalita = mAttacco;
                                   operazCorrente = opOrigine1;
                                   DrawPallette();
                               }}};
    const struct {
        const char* nome;
        std::int32_t numero;
        bool perPunti;
        int punti;
    } strumenti[] = {
        {"segment", 0, false, 1},         {"polyline", 1, false, 3},      {"circle by centre", 5, false, 1},
        {"circle by points", 5, true, 2}, {"arc by centre", 6, false, 2}, {"arc by points", 6, true, 2},
        {"marker", 3, false, 1}};
    for (const auto& t : strumenti)
        for (int n = 0; n <= t.punti; ++n)
            s.push_back(
                {std::string(t.nome) + " after " + std::to_string(n), [t, n] { strumento(t.numero, t.perPunti, n); }});
    return s;
}

struct Comando {
    const char* nome;
    void (*esegui)();
};

constexpr Comando comandi[] = {
    {"nothing", [] {}},
    {"zoom in", [] { premi('+'); }},
    {"zoom out", [] { premi('-'); }},
    {"zoom to the sheet", [] { comando(22, 1); }},
    {"wheel zoom", [] { rotella(1, cmdKey); }},
    {"wheel", [] { rotella(-2, 0); }},
    {"fast wheel", [] { rotella(1, optionKey); }},
    {"colour", [] { comando(23, 3); }},
    {"thickness by key", [] { premi('5'); }},
    {"thickness by menu", [] { comando(24, 7); }},
    {"pen pattern", [] { premi('g'); }},
    {"undo", [] { comando(3, 1); }},
    {"select all",
     [] {
         SelezionaTutto();
         Ridisegna();
     }},
    {"mode key", [] { premi('e'); }},
    {"mode key twice",
     [] {
         premi('e');
         premi('e');
     }},
    {"horizontal", [] { premi('o'); }},
    {"parallel", [] { premi('='); }},
    {"delete", [] { premi(8); }},
    {"control point", [] { premi('j'); }},
    {"control point 5", [] { premi('y'); }},
    {"elevation dialog", [] { premi('z'); }},
    {"another tool", [] { clicca(10, 44); }},
    {"a click of the palette", [] { clicca(10, 76); }},
    {"a click of the sheet", [] { cliccaFoglio(820, 640); }},
    {"polylines into segments", [] { comando(4, 9); }},
};

testing::AssertionResult comeRidipinto() {
    // But for the read-out below: it tells of the pointer's last move, whatever has become of the place since.
    const std::size_t larga = static_cast<std::size_t>(GetPortBounds(theWindow).right);
    const auto mostrati = [larga] {
        auto p = ShownPixels(theWindow);
        p.resize(larga * static_cast<std::size_t>(myViewRect.bottom));
        return p;
    };
    const auto visto = mostrati();
    InvalWind();
    lavora();
    const auto voluto = mostrati();
    if (visto == voluto) return testing::AssertionSuccess();
    std::size_t diversi = 0, primo = 0;
    for (std::size_t i = 0; i < std::min(visto.size(), voluto.size()); ++i)
        if (visto[i] != voluto[i] && diversi++ == 0) primo = i;
    return testing::AssertionFailure() << diversi << " pixels differ, the first at " << primo % larga << ", "
                                       << primo / larga;
}

}   // namespace

TEST(Veli, WhateverComesInTheMiddleTheScreenShowsWhatARepaintWould) {
    for (const Situazione& s : situazioni()) {
        for (const Comando& c : comandi) {
            SCOPED_TRACE(s.nome + ", then " + c.nome);
            AzzeraStato();
            const Disegno disegno;
            s.prepara();
            vai(300, 250);
            c.esegui();
            vai(410, 330);
            EXPECT_TRUE(comeRidipinto());
        }
    }
}

TEST(Veli, FollowingThePointerTouchesNothingOfTheDrawing) {
    const Disegno disegno;
    strumento(1, false, 2);
    vai(300, 250);
    auto& porta = static_cast<RasterPort&>(*GetWindowPort(theWindow));
    const auto vista = [&] {
        std::vector<std::uint32_t> p;
        for (std::int32_t y = myViewRect.top; y < myViewRect.bottom; ++y)
            for (std::int32_t x = myViewRect.left; x < myViewRect.right; ++x) p.push_back(porta.pixel(x, y));
        return p;
    };
    const auto prima = vista();
    const auto mostrato = ShownPixels(theWindow);
    for (std::int32_t i = 0; i < 20; ++i) {
        (void)porta.PrendiSporco();
        AutoMove(Point{250 + 5 * i, 300 + 7 * i}, 0);
        CheckEvents();
        for (const Rect& r : porta.PrendiSporco().parti) EXPECT_TRUE(EmptyRect(SectRect(r, myViewRect)));
    }
    EXPECT_EQ(vista(), prima);
    EXPECT_NE(ShownPixels(theWindow), mostrato);   // the rubber band came along
}
