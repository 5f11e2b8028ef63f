// The process's skeleton: options, toolbox, Initialize, the settings in silence, the loop.
#include "shell/Inizializza.h"
#include "raster/Lenti.h"
#include "shell/Modificato.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/Errori.h"
#include "dialogs/Parametri.h"
#include "digitising/TavolettaImpostazioni.h"
#include "display/palette.h"
#include "display/Stampa.h"
#include "display/Zoom.h"
#include "dwg/dwgdxf.h"
#include "editing/SceltaColori.h"
#include "editing/Sposta.h"
#include "exchange/FormatoXYZ.h"
#include "files/Impostazioni.h"
#include "files/Nativo.h"
#include "files/Richieste.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Carattere.h"
#include "model/Colori.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"
#include "model/Voci.h"
#include "platform/Automation.h"
#include "platform/Fonts.h"
#include "platform/Memory.h"
#include "platform/Menus.h"
#include "platform/Resources.h"
#include "shell/Archivia.h"
#include "shell/Comandi.h"
#include "shell/Generi.h"
#include "shell/Preferenze.h"
#include "shell/Recenti.h"
#include "shell/Recupero.h"

namespace tessaro {

namespace {

constinit std::int16_t PlotPerCento = 100;   // the plotter's scale, per cent
constexpr std::int16_t alertMemoria = 3006;
constexpr std::int32_t riservaMemoria = 819175;   // bytes left to the rest of the program
constexpr std::int32_t minimoRecord = 9;          // with no more than these the program does not start

// How many records the free memory bears: above 5000 only half of the surplus is taken.
std::int32_t recordPossibili() {
    const double libera = CompactMem();
    auto n = static_cast<std::int32_t>((libera - riservaMemoria) / static_cast<double>(sizeof(elemento)));
    if (n > 5000) n -= arrotonda32(n * 0.5 * (n - 5000.0) / n);
    return n;
}

void allocaArchivio() {
    const std::int32_t n = recordPossibili();
    if (n <= minimoRecord) {
        StopAlert(alertMemoria);
        std::exit(1);
    }
    if (maxElementi > n) maxElementi = n;
    if (AllocaElementi(maxElementi)) return;
    StopAlert(alertMemoria);
    std::exit(1);
}

void predisponiMenu() {
    CreateMenus();
    for (std::int16_t i = voci::stili::grassetto; i <= voci::stili::ombreggiato; ++i)
        CheckMenuItem(menuStili, i, false);
    CheckMenuItem(menuStili, voci::stili::normale, true);
    CheckMenuItem(menuCorpi, TheOldDimFIt, true);
    SpuntaCurve();
    ChkOnOffItem(menuZoom, voci::zoom::foglio, voci::zoom::foglio, voci::zoom::riduci);
    ChkOnOffItem(menuStrumenti, voci::strumenti::tavolettaSulFoglio, voci::strumenti::tavolettaSulFoglio,
                 voci::strumenti::tavolettaSullaVista);
    ChkOnOffItem(menuNomiColori, 1, 1, coloriPresenti);
    ChkOnOffItem(menuSpessore, 1, 1, 9);
    for (std::int16_t i = voci::vincoli::punto; i <= voci::vincoli::griglia; ++i) CheckMenuItem(menuVincoli, i, false);
    DisableMenuItem(menuVincoli, voci::vincoli::quota);
    DrawMenuBar();
}

// The families of the machine, the one that the program brings along first: what the first item names is where new
// texts begin, and that must not hang on the alphabet.
void riempiMenuCaratteri() {
    constexpr std::string_view primo = "Liberation Sans";
    std::vector<std::string> famiglie = FontFamilies();
    const auto dove = std::find(famiglie.begin(), famiglie.end(), primo);
    if (dove != famiglie.end()) std::rotate(famiglie.begin(), dove, dove + 1);
    for (const std::string& nome : famiglie) AppendMenu(menuCaratteri, nome);
    CheckMenuItem(menuCaratteri, TheOldFontIt, true);
}

void predisponiTesto() {
    riempiMenuCaratteri();
    gFontName = PStr255(std::string_view(GetMenuItemText(menuCaratteri, TheOldFontIt)));
    gFontID = GetFNum(gFontName.view());
    gFontSize = 9;
    gTxStyle = TxStyle{};
}

void predisponiScale() {
    scalaX = scalaY = 1;
    ZetaCorrente = 1;
    ScalaTavoletta();
    htav1 = scalaY * htav;
    btav1 = scalaX * btav;
    rappvid = Scaladis / decimiUnita;
    RappPunti = static_cast<float>(rappvid * 254 / 72);
    PlotPerCento = 100;
}

}   // namespace

void Initialize() {
    SetCursor(ClockCursor);
    AzzeraStato();
    apriDisegno = SetUpWindow;
    PreparaRecupero();
    leggiparam();
    LeggiParTavoletta();
    LeggiPreferenze();
    allocaArchivio();
    predisponiMenu();
    LeggiRecenti();
    ShowMenuItem(menuArchivio, voci::archivio::esempio, EsempioInstallato());
    predisponiTesto();
    SetupLimits();
    predisponiScale();
    SetUpWindow();
    InitializeTags();
    SetCursor(arrowCursor);
}

// The desktop's request to open a file: the open drawing is closed first, if its owner agrees.
void ApriPercorso(const char* pathUtf8) {
    const FSSpec voluto = FSMakeFSSpec(pathUtf8);
    if (const GenereFile* f = GenereDi(voluto.percorso); f != nullptr && f->leggi != nullptr && !f->diCasa) {
        ApriConGenere(*f, voluto);
        return;
    }
    myFSS = voluto;
    if (!TuttoChiuso()) return;
    myFSS = voluto;   // a save on the way out has its own file
    theItem = rApriDato;
    archivia();
}

bool HandlePDOC(const std::vector<std::string>& percorsi) {
    if (percorsi.empty() || !TuttoChiuso()) return false;
    bool bene = true;
    for (const std::string& percorso : percorsi) {
        ApriPercorso(percorso.c_str());
        const bool letto = !noWindow && !uscita;
        if (!letto || DoPrint() != 0) {
            SysBeep(30);
            bene = false;
        }
    }
    return bene;
}

namespace {

bool soloStampa(const Partenza& p) {
    if (!p.stampaSu.empty()) {
        PMPrintSettings s;
        s.luogo = FSMakeFSSpec(p.stampaSu).percorso;
        PMFlattenPrintSettings(s, hPrintSettings);
    }
    return HandlePDOC(p.documenti);
}

}   // namespace

void (*dopoIlGiro)() = nullptr;

void LeggiImpostazioni() {
    InizioDWG();
    inizio = 1;
    TabAbilit = 0;
    ParamGraf();
    FormatoXYZ(1);
    SceltaColori(1);
    SceltaCorrezioneOttica(1);
    inizio = 0;
    SegnaSalvato();   // units and colours of the settings are a new drawing's own
}

bool CicloPrincipale(const Partenza& p) {
    LeggiImpostazioni();
    UnitaDelDisegnoNuovo();
    theItem = rNessunFile;
    archivia();
    fine = 0;
    if (ridipingiFinestra) ridipingiFinestra();   // a question at the start stands before a finished window
    OffriRecupero();                              // a script has a settings folder of its own, and what was left there
    bool bene = true;
    if (p.stampa) {
        bene = soloStampa(p);
    } else {
        // The rest are left alone on purpose: one drawing at a time.
        if (!p.documenti.empty()) {
            ApriPercorso(p.documenti.front().c_str());
        } else if (mostraInizio && !AvvioInForza().script && !DisegnoDiverso()) {
            ShowStartPage();
        }
        while (!fine) {
            CheckEvents();
            if (dopoIlGiro) dopoIlGiro();
        }
    }
    FineRecupero();
    FineDWG();
    return bene;
}

namespace {
const VoceStato righe[] = {
    voce<PlotPerCento>("PlotPerCento"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
