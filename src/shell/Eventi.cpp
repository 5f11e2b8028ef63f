// One event and one idle step: the loop's body, with updates, activation and what the desktop asks.
#include <algorithm>

#include "dialogs/Parametri.h"
#include "digitising/TavolettaLettori.h"
#include "display/Lettura.h"
#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/Stampa.h"
#include "display/Zoom.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"
#include "platform/Events.h"
#include "shell/Archivia.h"
#include "shell/Calcolatrice.h"
#include "shell/ClicBarra.h"
#include "shell/Comandi.h"
#include "shell/FinestraAttacchi.h"
#include "shell/FinestraPunti.h"
#include "shell/Inizializza.h"
#include "shell/Modi.h"
#include "shell/Modificato.h"
#include "shell/PannelloLucidi.h"
#include "shell/Passi.h"
#include "shell/Proprieta.h"
#include "shell/Rapporto.h"
#include "shell/Recupero.h"
#include "shell/StrisciaTesti.h"
#include "shell/Trascinamento.h"

namespace tessaro {

namespace {

constinit std::uint8_t theChar = 0;   // last key
// Palette and read-out after a repaint or a command that may have changed them.
void aggiornaStrisce() {
    DrawPallette();
    scriviSempreCoord = 1;
    SetDrawCoordCorr();
}

// Repaints the whole window.
void ridipingi() {
    if (noWindow || !theWindow) return;
    const PortaCorrente porta;
    BeginUpdate(theWindow);
    DrawTopBar();
    if (NewDis) FlushEvents();
    Ridisegna();
    NewDis = 0;
    aggiornaStrisce();
    EndUpdate(theWindow);
}

void attiva(bool diventaAttiva) {
    if (!diventaAttiva || noWindow || !theWindow) return;
    SetPortWindowPort(theWindow);
    ShowControl(VScroll);
    ShowControl(HScroll);
}

// A scroll bar moved by hand.
void barraMossa() {
    if (noWindow) return;
    ScrollBits();
    ClipRect(myViewRect);
}

void dalDesktop(const EventRecord& e) {
    if (e.classe == "quit") {
        fine = TuttoChiuso();
    } else if (e.classe == "oapp") {
        if (noWindow) SetUpWindow();
    } else if (e.classe == "odoc" && !e.percorsi.empty()) {
        ApriPercorso(e.percorsi.front().c_str());
    } else if (e.classe == "pdoc") {
        HandlePDOC(e.percorsi);
    }
}

// What is told apart from a repaint, an activation or a moved bar: the person goes on working.
bool eAzione(EventKind k) {
    constexpr EventKind azioni[] = {EventKind::mouseDown,  EventKind::keyDown, EventKind::autoKey,
                                    EventKind::menuChoice, EventKind::goAway,  EventKind::highLevel,
                                    EventKind::drop,       EventKind::button,  EventKind::dialogItem,
                                    EventKind::tablet,     EventKind::pen};
    return std::find(std::begin(azioni), std::end(azioni), k) != std::end(azioni);
}

// Behind a print nobody works on a screen without control points and selection.
void rimettiDopoStampa(EventKind k) {
    if (!eAzione(k) || !DopoStampa() || noWindow) return;
    InvalWind();
    ridipingi();
}

void tasto(const EventRecord& e) {
    theChar = static_cast<std::uint8_t>(e.message & 0xFF);
    // Command keys reach the menus through the toolkit; one that names no item does nothing.
    if ((e.modifiers & cmdKey) || noWindow) return;
    Tasto(theChar);
    PenSize(spessore, spessore);
    PenPat(PatAttuale);
}

constexpr Point daNessunaParte{-1, -1};
constinit Point seguito = daNessunaParte;   // where the pointer was followed to

void seguiPuntatore() {
    if (Modalita == mSelezione) {
        LeggiPuntatore(GetMouse());
    } else {
        CheckMouse((KeyModifiers() & shiftKey) != 0);
    }
}

// A pointer at rest leaves the cursor where the tablet has put it; the button of a sample is over with the next round, so
// that it holds back no click of the mouse.
void riposo(bool campione) {
    if (!campione && Modalita != mSelezione && Modalita != mSpostamento) tabButton = bNessuno;
}

void consuma(EventRecord& e) {
    rimettiDopoStampa(e.what);
    switch (e.what) {
    case EventKind::mouseDown:
        if (TabAbilit && tabButton == bContinua) break;
        if (TabAbilit) seguiPuntatore();   // the tablet may have taken the cursor elsewhere
        DoMouseAction(e);
        break;
    case EventKind::keyDown:
    case EventKind::autoKey: tasto(e); break;
    case EventKind::updateEvt: ridipingi(); break;
    case EventKind::activateEvt: attiva((e.modifiers & activeFlag) != 0); break;
    case EventKind::osEvt: attiva((e.message & 1) != 0); break;
    case EventKind::menuChoice: DoCommand(e.message); break;
    case EventKind::goAway:
        if (!noWindow) TuttoChiuso();
        break;
    case EventKind::grow:
        if (noWindow) break;
        ReSizeWindow(e.where.h, e.where.v);
        DrawPallette();
        break;
    case EventKind::scroll: barraMossa(); break;
    case EventKind::wheel:
        if (!noWindow)
            DoMouseWheelMoved(e.modifiers, static_cast<std::int16_t>(e.message >> 16),
                              static_cast<std::int16_t>(e.message & 0xFFFF));
        break;
    case EventKind::middleDown: TrascinaVista(); break;
    case EventKind::pinch: Pizzica(static_cast<double>(e.message) / 65536); break;
    case EventKind::highLevel: dalDesktop(e); break;
    case EventKind::drop: MyReceiveHandler(e); break;
    case EventKind::button: isButtonToolbarPressed(e.message); break;
    case EventKind::dialogItem: DealwithDialogs(e); break;
    case EventKind::tablet: CampioneTavoletta(e.where.h, e.where.v, static_cast<std::int16_t>(e.message)); break;
    case EventKind::pen:
        PennaTavoletta(e.where.h + e.frazioneH, e.where.v + e.frazioneV, static_cast<std::int16_t>(e.message));
        break;
    default: break;
    }
}

}   // namespace

namespace {
// The strip tells how things stand when the round is over, however it ends.
struct AllaFine {
    void (*azione)();
    ~AllaFine() { azione(); }
};
}   // namespace

void CheckEvents() {
    static std::int32_t sonno = -1;   // until the help tag wants to be asked again
    EventRecord e;
    const bool qualcosa = WaitNextEvent(e, sonno);
    if (qualcosa) consuma(e);
    const bool campione = LeggiTavoletta() || e.what == EventKind::tablet || e.what == EventKind::pen;
    if (campione || PuoCambiare(e.what)) {
        FinePasso(e);
        AggiornaPannelloLucidi();
        MostraDiverso();
    }
    RecuperoARiposo(!qualcosa);
    AggiustaStatoBottoni();
    AggiornaCelle();
    AggiornaRapporto();
    AggiornaAttacchi();
    AggiornaPunti();
    AggiornaProprieta(campione || PuoCambiare(e.what));
    const AllaFine striscia{AggiornaStriscia};
    if (noWindow) {
        sonno = -1;
        return;
    }
    sonno = HelpTagControl(GetMouse(), TickCount(), 1);
    if (sonno < 0 && RecuperoDaScaricare()) sonno = 60 * recuperoSecondi;
    const Point puntatore = GetMouse();
    if (TabAbilit && puntatore == seguito) {
        riposo(campione);
        return;
    }
    seguito = puntatore;
    seguiPuntatore();
}

namespace {
const VoceStato righe[] = {
    voce<theChar>("theChar"),
    {"seguito", [] { seguito = daNessunaParte; }, nullptr},
};
const TabellaStato tabella(righe);

// The filters of modal dialogs keep the window behind painted through this.
[[maybe_unused]] const bool agganciato = [] {
    ridipingiFinestra = ridipingi;
    return true;
}();
}   // namespace

}   // namespace tessaro
