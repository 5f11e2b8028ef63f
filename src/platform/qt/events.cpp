// The event queue and the one place that waits. Toolkit handlers put records in; WaitNextEvent and the nested loops
// take them out, each only what it may have.
#include "platform/Events.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <array>
#include <deque>
#include <utility>

#include "platform/qt/FinestraQt.h"
#include "platform/qt/Interno.h"

namespace tessaro {

namespace {

struct Coda {
    std::deque<EventRecord> righe;
    Point puntatore{-1, -1};       // of the record delivered last; outside until the pointer has been seen
    std::uint16_t modifiers = 0;   // the same
    bool tenuto = false;           // the press delivered last is still held, as far as records were delivered
    bool uscita = false;
    bool svegliata = false;
    bool fuga = false;                 // Escape was pressed since an event was delivered
    bool rinunciata = false;           // the press delivered last was ended by Escape
    std::int32_t profondita = 0;       // nested loops
    std::int32_t interrogazioni = 0;   // Button() asked in a row without a wait
    std::uint64_t novita = 0;          // grows with every record and wake
};
Coda coda;

bool diPuntatore(const EventRecord& e) { return e.what == EventKind::nullEvent || e.what == EventKind::mouseUp; }

bool puoPrendere(const EventRecord& e, Attesa chi) {
    switch (chi) {
    case Attesa::evento: return coda.profondita == 0 || e.what != EventKind::highLevel;   // a quit is the main loop's
    case Attesa::dialogo:
        return e.what == EventKind::updateEvt || e.what == EventKind::activateEvt || e.what == EventKind::osEvt
               || e.what == EventKind::nullEvent;
    case Attesa::puntatore: return diPuntatore(e);
    case Attesa::popup:
    case Attesa::tasto: break;
    }
    return false;
}

std::deque<EventRecord>::iterator primaPer(Attesa chi) {
    return std::find_if(coda.righe.begin(), coda.righe.end(),
                        [chi](const EventRecord& e) { return puoPrendere(e, chi); });
}

// A page that lies over the drawing goes with the first action; without a drawing nothing but a new one takes it away.
bool toglieLaPagina(EventKind k) {
    constexpr std::array azioni{EventKind::mouseDown,  EventKind::keyDown, EventKind::wheel,  EventKind::drop,
                                EventKind::menuChoice, EventKind::button,  EventKind::tablet, EventKind::pen};
    return finestraAperta() != nullptr && std::find(azioni.begin(), azioni.end(), k) != azioni.end();
}

// What a record tells beside itself: where the pointer is, what is held, that the quit is being dealt with.
void consegna(const EventRecord& e) {
    switch (e.what) {
    case EventKind::mouseDown:
    case EventKind::middleDown:
        coda.tenuto = true;
        coda.rinunciata = false;
        [[fallthrough]];
    case EventKind::nullEvent:
    case EventKind::wheel:
    case EventKind::pinch:
    case EventKind::drop:
        coda.puntatore = e.where;
        coda.modifiers = e.modifiers;
        break;
    case EventKind::mouseUp:
        coda.tenuto = false;
        coda.puntatore = e.where;
        coda.modifiers = e.modifiers;
        break;
    case EventKind::keyDown:
    case EventKind::autoKey:
    case EventKind::menuChoice:
    case EventKind::scroll:
    case EventKind::button: coda.modifiers = e.modifiers; break;
    case EventKind::highLevel:
        if (e.classe == "quit") coda.uscita = false;
        break;
    default: break;
    }
}

// Widgets that were told to delete themselves go only when no loop of ours is inside a handler of theirs.
void liberaDifferiti() {
    if (coda.profondita == 0) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void trattaPendenti() {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    liberaDifferiti();
}

// Under a script: feeds what the loop that waits can use.
bool tiraCopione(Attesa chi) {
    switch (chi) {
    case Attesa::evento:
    case Attesa::puntatore: return copione()->passo();
    case Attesa::dialogo: return copione()->passoDialogo(FrontDialog());
    case Attesa::popup:
    case Attesa::tasto: break;
    }
    return false;
}

void attendi(std::int32_t ticks) {
    if (ticks == 0) return;
    QTimer orologio;
    orologio.setSingleShot(true);
    orologio.setTimerType(Qt::PreciseTimer);
    if (ticks > 0) orologio.start(static_cast<int>((std::int64_t{ticks} * 1000 + 59) / 60));
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    liberaDifferiti();
}

}   // namespace

Annidato::Annidato() { ++coda.profondita; }
Annidato::~Annidato() { --coda.profondita; }
std::int32_t annidamento() { return coda.profondita; }
// At depth 0 the request itself is next in the queue, and dealing with it asks questions that must not be cancelled.
bool quitPending() { return coda.uscita && coda.profondita > 0; }
void chiediUscita() {
    coda.uscita = true;
    sveglia();
}

void sveglia() {
    coda.svegliata = true;
    ++coda.novita;
}

void accoda(EventRecord e) {
    if (e.when == 0) e.when = TickCount();
    if (e.window == nullptr) e.window = FrontWindow();
    ++coda.novita;
    auto& righe = coda.righe;
    if (e.what == EventKind::keyDown && e.message == 27) coda.fuga = true;
    if (!righe.empty()) {
        EventRecord& ultima = righe.back();
        // A run of moves or of sizes is its last one; a repaint is asked for once.
        const bool moto = e.what == EventKind::nullEvent || e.what == EventKind::grow
                          || (e.what == EventKind::pen && e.message == 0 && ultima.message == 0);
        const bool fondi = moto && ultima.what == e.what;
        if (fondi) {
            ultima = std::move(e);
            return;
        }
    }
    if (e.what == EventKind::updateEvt && std::any_of(righe.begin(), righe.end(), [&](const EventRecord& r) {
            return r.what == EventKind::updateEvt && r.window == e.window;
        }))
        return;
    righe.push_back(std::move(e));
}

void accodaMenu(std::int16_t menu, std::int16_t item, std::uint16_t modifiers) {
    EventRecord e;
    e.what = EventKind::menuChoice;
    e.message = (std::uint32_t{static_cast<std::uint16_t>(menu)} << 16) | static_cast<std::uint16_t>(item);
    e.modifiers = modifiers;
    accoda(std::move(e));
}

void accodaQuit() {
    const bool giaChiesto = std::any_of(coda.righe.begin(), coda.righe.end(), [](const EventRecord& r) {
        return r.what == EventKind::highLevel && r.classe == "quit";
    });
    if (!giaChiesto) {
        EventRecord e;
        e.what = EventKind::highLevel;
        e.classe = "quit";
        accoda(std::move(e));
    }
    if (coda.profondita > 0) chiediUscita();
}

void scordaFinestra(WindowPtr w) {
    std::erase_if(coda.righe, [w](const EventRecord& r) { return r.window == w && r.what != EventKind::highLevel; });
    coda.tenuto = false;
}

bool prendi(EventRecord& e, Attesa chi) {
    const auto r = primaPer(chi);
    if (r == coda.righe.end()) return false;
    e = std::move(*r);
    coda.righe.erase(r);
    coda.svegliata = false;   // the record is news enough
    if (toglieLaPagina(e.what)) togliPagina();
    consegna(e);
    return true;
}

bool codaVuota() { return coda.righe.empty(); }

bool waitStep(Attesa chi, std::int32_t ticks) {
    coda.interrogazioni = 0;
    if (!conFinestre()) return false;
    mostraDisegnato();
    const auto prima = coda.novita;
    trattaPendenti();
    if (coda.novita != prima) return true;
    if (quitPending()) return false;
    if (copione() != nullptr) {
        mostraDisegnato();
        trattaPendenti();
        if (coda.novita != prima || primaPer(chi) != coda.righe.end()) return true;
        return tiraCopione(chi);
    }
    attendi(ticks);
    return ticks < 0 || coda.novita != prima;
}

bool WaitNextEvent(EventRecord& e, std::int32_t sleep) {
    const std::uint32_t inizio = TickCount();
    coda.fuga = false;
    for (;;) {
        if (prendi(e, Attesa::evento)) return e.what != EventKind::nullEvent;
        const auto passati = static_cast<std::int32_t>(TickCount() - inizio);
        const bool scaduto = sleep >= 0 && passati >= sleep && copione() == nullptr;
        const bool svegliata = std::exchange(coda.svegliata, false);
        const bool ancora = !svegliata && waitStep(Attesa::evento, scaduto ? 0 : sleep < 0 ? -1 : sleep - passati);
        if (primaPer(Attesa::evento) != coda.righe.end()) continue;
        if (svegliata || !ancora || coda.svegliata || scaduto) {
            coda.svegliata = false;
            e = EventRecord{};
            e.when = TickCount();
            e.where = coda.puntatore;
            e.modifiers = coda.modifiers;
            e.window = FrontWindow();
            return false;
        }
    }
}

void FlushEvents() {
    std::erase_if(coda.righe, [](const EventRecord& r) { return r.what == EventKind::updateEvt; });
    scordaInvalida();
}

Point GetMouse() { return coda.puntatore; }
std::uint16_t KeyModifiers() { return coda.modifiers; }

bool Button() {
    if (!coda.tenuto || quitPending()) return false;
    // A loop that polls would never let a script, or the release itself, come through.
    constexpr std::int32_t interrogazioniPerAttesa = 16;
    if (++coda.interrogazioni >= interrogazioniPerAttesa) {
        const Annidato annidato;
        waitStep(Attesa::puntatore, 1);
    }
    return std::none_of(coda.righe.begin(), coda.righe.end(),
                        [](const EventRecord& r) { return r.what == EventKind::mouseUp; });
}

bool prendiFuga() {
    constexpr std::uint32_t tastoFuga = 27;
    if (!std::exchange(coda.fuga, false)) return false;
    std::erase_if(coda.righe,
                  [](const EventRecord& r) { return r.what == EventKind::keyDown && r.message == tastoFuga; });
    return true;
}

bool DragGivenUp() { return coda.rinunciata; }

bool StillDown() {
    const Annidato annidato;
    while (coda.tenuto && !quitPending()) {
        if (prendiFuga()) {
            coda.rinunciata = true;
            break;
        }
        EventRecord e;
        if (prendi(e, Attesa::puntatore)) return coda.tenuto;
        if (!waitStep(Attesa::puntatore, -1)) break;
        if (std::exchange(coda.svegliata, false) && !quitPending()) return coda.tenuto;
    }
    coda.tenuto = false;
    return false;
}

bool TrackMouseLocation(Point& p) {
    const bool tenuto = StillDown();
    p = coda.puntatore;
    return tenuto;
}

bool ZoomWaits() {
    constexpr std::uint32_t ticksTraSguardi = 2;
    static std::uint32_t ultimoSguardo = 0;
    const std::uint32_t ora = TickCount();
    if (conFinestre() && copione() == nullptr && ora - ultimoSguardo >= ticksTraSguardi) {
        ultimoSguardo = ora;
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
    return std::any_of(coda.righe.begin(), coda.righe.end(),
                       [](const EventRecord& r) { return r.what == EventKind::wheel || r.what == EventKind::pinch; });
}

bool escapePressed() {
    if (!conFinestre()) return false;
    constexpr std::uint32_t ticksTraSguardi = 3;
    static std::uint32_t ultimoSguardo = 0;
    const std::uint32_t ora = TickCount();
    if (copione() == nullptr && ora - ultimoSguardo >= ticksTraSguardi) {
        ultimoSguardo = ora;
        mostraDisegnato();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
    if (coda.uscita) return true;   // a long job gives way to a quit at any depth
    return prendiFuga();
}

}   // namespace tessaro
