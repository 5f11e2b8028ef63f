// What the files of the Qt implementation share: the frame, the event queue, the one place that waits, the script's
// hooks and the settings of this start. No header outside platform/qt includes it.
#pragma once

#include <QString>
#include <QtCore/qnamespace.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Automation.h"
#include "platform/Events.h"
#include "platform/Resources.h"

class QDialog;
class QMainWindow;
class QMenuBar;
class QPalette;
class QUrl;
class QWidget;

namespace tessaro {

// --- this start
const Avvio& avvio();       // the options that StartToolbox was given
const Copione* copione();   // the script's hooks; null without a script
bool conFinestre();         // an application object lives: widgets may be made. False in fuzz and bench programs
std::string cartellaImpostazioni();   // where settings belong, UTF-8; made, but not seeded
// The language that the preferences of the settings folder name, read before anything else runs; empty for the desktop's.
std::string linguaPreferita();
std::string linguaInUso();   // "en" or "it": --language, else the desktop's; a script's own is "en"

// --- the frame, which outlives the drawing's window; null without an application object
QMainWindow* telaio();
// With TESSARO_STARTED in the environment, a reading of the monotonic clock in nanoseconds: tells on standard output how many
// milliseconds later the frame was first painted, and ends the process. For bench/avvio.
void misuraAvvio();
QMenuBar* barra();   // inside the frame, never the desktop's own
QWidget* foglio();   // the widget of the drawing window's content; null when none is open

// --- the event queue. Toolkit handlers only put records in; nothing of the core runs inside a handler.
void accoda(
    EventRecord e);   // `when` 0 is stamped with the clock, a null `window` of an input record with the front one
void accodaMenu(std::int16_t menu, std::int16_t item, std::uint16_t modifiers);
void accodaQuit();   // the desktop asks to quit; inside a nested loop also sets quitPending

// Who waits decides which records it may take; the others stay queued in their order.
enum class Attesa : std::uint8_t {
    evento,      // WaitNextEvent: every record
    dialogo,     // ModalDialog: repaints, activation, null events
    popup,       // an open pop-up: nothing; it runs on the toolkit's own events
    puntatore,   // StillDown, TrackMouseLocation: moves and releases
    tasto,       // a long job that looks for Escape: nothing
};
bool prendi(EventRecord& e, Attesa chi);   // takes the oldest record that `chi` may have; false when there is none

// Blocks until something happened: toolkit events were handled, or `ticks` passed (below 0 without end). Shows what was
// drawn first. Under a script it never blocks: it pulls a line (evento, puntatore) or the next step of the open dialog's
// answer (dialogo) when the loop that waits has nothing to take.
// False: time ran out, the program is to quit, or the script has no step left; a dialog is then cancelled.
bool waitStep(Attesa chi, std::int32_t ticks);
void sveglia();   // makes the wait under way return, with a null event

// Takes an Escape that waits; nobody else gets it, so it closes this one thing and nothing behind it.
bool prendiFuga();

void chiediUscita();   // sets quitPending: every loop unwinds

// --- modifiers as the core knows them, from the toolkit's
std::uint16_t modificatori(Qt::KeyboardModifiers m);
// Mac Roman character of a key press; 0 when it has none (modifiers, function keys).
std::uint8_t carattere(int qtKey, const QString& text, Qt::KeyboardModifiers m);

void mostraGuida(const QUrl& url);   // a page of the guide in a window of our own

// --- looks
void vestiApplicazione();        // the style in use, with outlines that show on dark too
QPalette paletteScura();         // of --dark, and of a dark desktop that the toolkit does not know of
void seguiAspettoDelDesktop();   // asks the desktop whether it is dark; the answer comes later, or never
void RadioPerChiAscolta();       // a screen reader is told that radio buttons are that

// Shows a request of the toolkit's own and waits for its end; true when it was accepted.
bool attendi(QDialog& richiesta);

// --- input by a script, at window level
void iniettaTasto(QWidget* finestra, std::uint8_t macRoman, std::uint16_t modifiers);
Qt::KeyboardModifiers modificatoriQt(std::uint16_t m);

// --- what a save that was killed leaves beside its document
std::string RadiceVicino(const std::string& nome);     // how the neighbours of a file name begin; six characters follow
void TogliViciniVecchi(const std::string& percorso);   // those that are older than the document are removed

// --- text
inline QString daMac(std::string_view macRoman) { return QString::fromStdString(MacToUtf8(macRoman)); }
inline std::string aMac(const QString& s) { return Utf8ToMac(s.toStdString()); }
inline QString daUtf8(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}   // namespace tessaro
