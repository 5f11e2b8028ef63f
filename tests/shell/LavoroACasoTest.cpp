// The whole program under random hands: figures begun, left, typed into, with files dropped, drawings merged, copies made
// and commands undone in the middle. After every command each polyline owns its vertices and the selection is what
// model/Selezione.h says. TESSARO_CASO_PASSI (commands a run) and TESSARO_CASO_CORSE (runs) make it long:
// tools/random-work.
#include <array>
#include <cstdlib>
#include <deque>
#include <random>

#include "files/Disco.h"

#include "digitising/TavolettaLettori.h"
#include "model/Annulla.h"
#include "model/Cursore.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Voci.h"
#include "platform/Automation.h"
#include "shell/Archivia.h"
#include "shell/Comandi.h"
#include "shell/Inizializza.h"
#include "support/Invarianti.h"

using namespace tessaro;
using namespace prova;

namespace {

struct Caso {
    std::mt19937 rng;
    std::int32_t passi = 0;
    bool tenuto = false;    // the button is down
    bool stretto = false;   // the store is soon full
    std::int32_t tiri = 0;
    int passiDialogo = 0;
    std::deque<std::string> storia;   // the last commands
    std::string guasto, cartella;
    std::vector<std::string> file;

    std::int32_t tra(std::int32_t a, std::int32_t b) {
        return a + static_cast<std::int32_t>(rng() % static_cast<std::uint32_t>(b - a + 1));
    }
    bool unoSu(std::int32_t n) { return tra(1, n) == 1; }
    // Few places, so that clicks meet what lies there.
    Point posto() { return Point{60 + 40 * tra(0, 9) + tra(0, 2), 60 + 40 * tra(0, 14) + tra(0, 2)}; }
    std::uint16_t tasti() {
        static constexpr std::array<std::uint16_t, 8> m{0, 0, 0, 0, shiftKey, shiftKey, optionKey, cmdKey};
        return m[static_cast<std::size_t>(tra(0, 7))];
    }
    const std::string& unFile() { return file[static_cast<std::size_t>(tra(0, static_cast<int>(file.size()) - 1))]; }
    void nota(std::string s) {
        storia.push_back(std::move(s));
        if (storia.size() > 25) storia.pop_front();
    }
};
Caso* caso = nullptr;

// --- what the hands do

void preme(Point p, std::uint16_t m) {
    AutoMove(p, m);
    AutoPress(p, m);
    caso->tenuto = true;
}

void clic() {
    const Point p = caso->posto();
    const std::uint16_t m = caso->unoSu(25) ? std::uint16_t{controlKey} : caso->tasti();
    if (!caso->unoSu(6)) AutoAdvance(60);   // else maybe the second of a double click
    caso->nota("click " + std::to_string(p.h) + "," + std::to_string(p.v) + " mods " + std::to_string(m) + " mode "
               + std::to_string(Modalita) + " tool " + std::to_string(operazCorrente));
    preme(p, m);
}

void doppio() {
    caso->nota("click again");
    preme(GetMouse(), 0);
}

void muovi() {
    caso->nota("move");
    AutoMove(caso->posto(), caso->tasti());
}

void voce(std::int16_t menu, std::int32_t item) {
    const std::uint16_t m = caso->unoSu(5) ? caso->tasti() : std::uint16_t{0};
    caso->nota("menu " + std::to_string(menu) + " " + std::to_string(item) + " mods " + std::to_string(m));
    AutoMenu(menu, static_cast<std::int16_t>(item), m);
}

template <std::int16_t menu, std::int16_t... item>
void unaVoce() {
    static constexpr std::array<std::int16_t, sizeof...(item)> voci{item...};
    voce(menu, voci[static_cast<std::size_t>(caso->tra(0, static_cast<int>(voci.size()) - 1))]);
}

void tasto() {
    // Behind the letters: Backspace, Tab, Return, Escape, the arrows, Delete.
    static constexpr std::array<std::uint8_t, 25> tasti{'e', 'e', 'e', 'j', 'k', 'u', 'i', 'o', 'v', '=', 'l', 'p', '3',
                                                        'x', 'x', 8,   9,   13,  27,  27,  28,  29,  30,  31,  127};
    const std::uint8_t c = tasti[static_cast<std::size_t>(caso->tra(0, 24))];
    const std::uint16_t m = caso->unoSu(4) ? std::uint16_t{shiftKey} : std::uint16_t{0};
    caso->nota("key " + std::to_string(c) + " mods " + std::to_string(m));
    AutoKey(c, m);
}

// A row of the layers' panel: a name, the current one, seen, locked, another place.
void pannello() {
    const DialogPtr d = AutoModeless(9430);
    if (d == nullptr) return voce(6, 22);
    const std::string riga = std::to_string(caso->tra(1, 6));
    const std::array<std::string, 6> righe{riga + ",3,nome", riga + ",2,1",
                                           riga + ",4,1",    riga + ",4,0",
                                           riga + ",5,0",    riga + ">" + std::to_string(caso->tra(1, 6))};
    const std::string& s = righe[static_cast<std::size_t>(caso->tra(0, 5))];
    caso->nota("panel " + s);
    AutoDialogSetText(d, 4, s);
}

void palette() {
    static constexpr std::array<std::int32_t, 12> alto{10, 40, 70, 100, 140, 170, 200, 230, 260, 300, 330, 70};
    const std::int32_t v = alto[static_cast<std::size_t>(caso->tra(0, 11))];
    const std::uint16_t m = caso->unoSu(3) ? std::uint16_t{optionKey} : std::uint16_t{0};
    caso->nota("palette " + std::to_string(v) + " mods " + std::to_string(m));
    AutoAdvance(60);
    preme(Point{v, 16}, m);
}

void tavoletta() {
    EventRecord e;
    e.what = EventKind::tablet;
    e.where = Point{caso->tra(500, 3000), caso->tra(500, 3000)};
    e.message = static_cast<std::uint32_t>(caso->tra(0, 5));
    caso->nota("tablet " + std::to_string(e.message));
    if (!TabAbilit) AccendiTavoletta(LettoreTavoletta::copione);
    AutoPost(e);
}

void lascia() {
    EventRecord e;
    e.what = EventKind::drop;
    e.where = caso->posto();
    e.modifiers = caso->tasti();
    e.percorsi = {caso->unFile()};
    if (caso->unoSu(3)) e.percorsi.push_back(caso->unFile());
    caso->nota("drop " + e.percorsi.front() + " mods " + std::to_string(e.modifiers));
    AutoPost(e);
}

void rotella() {
    const int passi = caso->tra(-3, 3);
    const std::uint16_t m = caso->unoSu(2) ? std::uint16_t{cmdKey} : std::uint16_t{0};
    caso->nota("wheel " + std::to_string(passi) + " mods " + std::to_string(m));
    AutoWheel(caso->tra(0, 1), passi, m);
}

// The middle button, pressed, moved and released.
void trascinaVista() {
    for (const EventKind k : {EventKind::middleDown, EventKind::nullEvent, EventKind::mouseUp}) {
        EventRecord e;
        e.what = k;
        e.where = caso->posto();
        AutoPost(e);
    }
    caso->nota("the middle button drags the view");
}

// The window of properties: opened, typed into, its pop-ups chosen from, and closed, whatever is selected or in progress.
void proprieta() {
    constexpr std::int16_t dialogo = 9481, voceProprieta = 31;
    const DialogPtr d = AutoModeless(dialogo);
    if (d == nullptr || caso->unoSu(20)) return voce(menuModifica, voceProprieta);
    if (caso->unoSu(4)) {
        const auto item = static_cast<std::int16_t>(4 + 2 * caso->tra(0, 5));
        caso->nota("properties, pop-up " + std::to_string(item));
        AutoDialogSetValue(d, item, caso->tra(1, 5));
        return;
    }
    if (caso->unoSu(6)) {
        AutoDialogClick(d, caso->unoSu(2) ? std::int16_t{77} : std::int16_t{78});
        return;
    }
    const auto item = static_cast<std::int16_t>(16 + 2 * caso->tra(0, 19));
    caso->nota("properties, field " + std::to_string(item));
    AutoDialogSetText(d, item, std::to_string(caso->tra(-50, 300)));
    if (!caso->unoSu(4)) AutoDialogKey(d, 13);
}

// The window of control points 1 to 5: opened, closed, typed into, its switch turned, in the middle of whatever goes on.
void puntiDiAttacco() {
    constexpr std::int16_t dialogo = 9600, vocePunti = 31, tabella = 3, reali = 4;
    const DialogPtr d = AutoModeless(dialogo);
    if (d == nullptr) return voce(menuTrasforma, vocePunti);
    if (caso->unoSu(12)) {
        AutoDialogClick(d, caso->unoSu(2) ? reali : std::int16_t{0});
        return;
    }
    const std::string s = std::to_string(caso->tra(1, 5)) + ',' + std::to_string(caso->tra(3, 8)) + ','
                          + (caso->unoSu(15) ? std::string() : std::to_string(caso->tra(-200, 3000)));
    caso->nota("control points " + s);
    AutoDialogSetText(d, tabella, s);
}

using Mano = void (*)();
struct Uso {
    int peso;
    Mano mano;
};
constexpr std::array mani{
    Uso{34, clic},
    Uso{6, doppio},
    Uso{8, muovi},
    Uso{12, unaVoce<4, 1, 2, 2, 2, 3, 7, 8, 20, 20, 20, 21>},
    Uso{5, palette},
    Uso{8, tasto},
    Uso{2, pannello},
    Uso{4, tavoletta},
    Uso{2, lascia},
    Uso{3, rotella},
    Uso{1, trascinaVista},
    Uso{2, unaVoce<22, 1, 7, 8, 10, 11>},
    Uso{1, unaVoce<9400, 1, 2, 3, 4, 5, 6, 7>},
    Uso{1, unaVoce<50, 1, 2, 3>},
    Uso{1, unaVoce<60, 1, 3, 4>},
    Uso{12, unaVoce<3, 1, 1, 19, 3, 4, 5, 20, 21, 6, 8, 9, 10, 12, 14, 15, 16, 25>},
    Uso{2, unaVoce<5, 2, 7, 8, 8>},
    Uso{2, unaVoce<6, 1, 17, 18, 3>},
    Uso{2, unaVoce<107, 1, 2, 3, 4, 5>},
    Uso{1, unaVoce<108, 1, 2, 3, 4>},
    Uso{1, unaVoce<20, 1, 3>},
    Uso{1, unaVoce<24, 1, 4>},
    Uso{1, unaVoce<101, 2, 6>},
    Uso{1, unaVoce<112, 1, 3, 4, 5, 6, 7>},
    Uso{1, unaVoce<2, 4, 5>},
    Uso{1, unaVoce<9480, 1, 2>},
    Uso{1, unaVoce<3, 30>},
    Uso{8, proprieta},
    Uso{4, puntiDiAttacco},
};

void unComando() {
    int tutto = 0;
    for (const Uso& u : mani) tutto += u.peso;
    int quale = caso->tra(0, tutto - 1);
    for (const Uso& u : mani) {
        quale -= u.peso;
        if (quale >= 0) continue;
        u.mano();
        return;
    }
}

void controlla() {
    for (const std::string& g : {guastoFigure(caso->stretto), guastoSelezione()}) {
        if (g.empty()) continue;
        caso->guasto = g;
        fine = 1;
    }
}

// A loop inside the program waits: a drag goes on and ends, a rubber rectangle gets its press.
void dentro() {
    if (!caso->tenuto) {
        preme(caso->posto(), 0);
    } else if (caso->unoSu(2)) {
        AutoAdvance(20);
        AutoMove(caso->posto(), 0);
    } else {
        AutoRelease(GetMouse(), 0);
        caso->tenuto = false;
    }
}

bool passo() {
    if (caso->tenuto && AutoDepth() == 0) {
        AutoRelease(GetMouse(), 0);
        caso->tenuto = false;
        return true;
    }
    if (AutoDepth() > 0) {
        dentro();
        return true;
    }
    controlla();
    if (!fine && --caso->passi < 0) fine = 1;
    if (!fine) unComando();
    return !fine;
}

// --- what the program asks

void scrivi(DialogPtr d, std::int16_t item, std::int32_t v) { AutoDialogSetText(d, item, std::to_string(v)); }

bool rispondi(DialogPtr d) {
    if (caso->passiDialogo++ > 0 || caso->unoSu(6)) return false;   // cancelled, at once or after a refusal
    const std::int16_t id = AutoDialogId(d);
    std::int16_t bottone = 1;
    if (id == 2023 || id == 2024 || id == 1035) {
        scrivi(d, 4, caso->tra(0, 200));
        scrivi(d, 6, caso->tra(0, 200));
        scrivi(d, 8, caso->tra(0, 3));
        if (id == 2023 && caso->unoSu(3)) bottone = 9;
    } else if (id == 131) {
        AutoDialogSetText(d, 4, "testo");
    } else if (id == 133 || id == 138 || id == 136) {
        scrivi(d, 4, caso->tra(3, 9));
    }
    if (id == 2005) bottone = 2;
    AutoDialogClick(d, bottone);
    return true;
}

constexpr Copione ganci{
    .passo = passo,
    .avviso = [](std::int16_t id, std::string_view, std::int16_t predefinito) -> std::int16_t {
        caso->nota("  alert " + std::to_string(id));
        return predefinito;
    },
    .dialogoAperto =
        [](std::int16_t id, std::string_view) {
            caso->nota("  dialog " + std::to_string(id));
            caso->passiDialogo = 0;
        },
    .passoDialogo = rispondi,
    .dialogoChiuso = [](std::int16_t) {},
    .file =
        [](bool salva, std::string& percorso) {
            percorso = salva ? caso->cartella + "/salvato.ts3d" : caso->unFile();
            caso->nota("  file " + percorso);
            return true;
        },
    .popup = []() -> std::int16_t { return static_cast<std::int16_t>(caso->tra(0, 24)); },
    .colore = [](std::uint16_t&, std::uint16_t&, std::uint16_t&) { return false; },
    .stampa = [](std::string&, std::int32_t&, std::int32_t&) { return false; },
    .carta = [](double&, double&) { return false; },
    .beep = [](std::int32_t) {},
};

std::int32_t daAmbiente(const char* nome, std::int32_t senza) {
    const char* v = std::getenv(nome);
    return v ? std::atoi(v) : senza;
}

// A drawing to merge, a list of points, a DXF, a map and a small picture.
std::vector<std::string> fileDaPortare(const Cartella& c) {
    const std::string radice = std::string(TESSARO_SOURCE_DIR) + "/tests/scripts/files/";
    metti(c / "pixel.bmp",
          Byte().byte("BM").byte(std::string_view("\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0"
                                                  "\0\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x10\x20\x30\0",
                                                  56)));
    metti(c / "altro.ts3d", disegno(12, {rTesta(100, 100, 2), rVertice(300, 100, 1), rVertice(300, 400, 2),
                                         rSegmento(500, 500, 700, 900), rTesta(900, 900, 1), rVertice(950, 900, 1)}));
    std::filesystem::copy_file(radice + "points.txt", c / "punti.xyz");
    return {c / "altro.ts3d", c / "pixel.bmp", c / "punti.xyz", radice + "plan.dxf", radice + "map.cxf"};
}

// One run over a store of `capienza` records; the fault with the commands before it, or nothing.
std::string corsa(std::uint32_t seme, std::int32_t passi, std::int32_t capienza) {
    const Cartella cartella;
    Caso c;
    c.rng.seed(seme);
    c.passi = passi;
    c.stretto = capienza < passi;
    c.cartella = cartella / "";
    c.file = fileDaPortare(cartella);
    caso = &c;
    AzzeraStato();
    EXPECT_TRUE(AllocaElementi(capienza));
    SetCopione(&ganci);
    SetUpWindow();
    fine = 0;
    while (!fine) CheckEvents();
    fine = 0;
    indElem = std::min(indElem, 2);
    PoniAnnulla(aNiente);
    TuttoChiuso();
    caso = nullptr;
    if (c.guasto.empty()) return {};
    std::string s = c.guasto + " (seed " + std::to_string(seme) + ", capacity " + std::to_string(capienza) + ")";
    for (const std::string& riga : c.storia) s += "\n  " + riga;
    return s;
}

}   // namespace

TEST(LavoroACaso, EveryCommandLeavesFiguresAndSelectionWhole) {
    const std::int32_t corse = daAmbiente("TESSARO_CASO_CORSE", 4), passi = daAmbiente("TESSARO_CASO_PASSI", 700);
    const auto primo =
        static_cast<std::uint32_t>(daAmbiente("TESSARO_CASO_SEME", testing::UnitTest::GetInstance()->random_seed()));
    for (std::int32_t i = 0; i < corse; ++i) {
        // Now and then a store that is soon full.
        const std::int32_t capienza = i % 4 == 3 ? 60 : 20000;
        const std::string guasto = corsa(primo + static_cast<std::uint32_t>(i), passi, capienza);
        ASSERT_EQ(guasto, "");
    }
}
