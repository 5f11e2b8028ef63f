// The seam's other side for scripts: what the script driver may do to the toolkit, and what the toolkit asks of it.
// All input enters where a person's does, at window level and with time stamps.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/Events.h"

namespace tessaro {

// What the program was started with, known before anything else runs.
struct Avvio {
    bool script = false;         // off screen, clock virtual, no saved window state
    std::int32_t width = 1280;   // --window: the screen
    std::int32_t height = 800;
    std::int32_t ratio = 1;   // --ratio
    bool muta = false;        // prints and leaves: alerts go to standard error and take their default button
    bool dark = false;        // --dark: a dark desktop's colours, whatever the desktop's are
    std::string settings;     // --settings; empty: the person's own, under a script a fresh temporary folder
    std::string language;     // --language: "en" or "it"; empty: the desktop's, under a script "en"
};

void StartToolbox(int& argc, char** argv, const Avvio& avvio);   // once, before Initialize
void StopToolbox();
const Avvio& AvvioInForza();
// Called on SIGTERM and SIGINT before the program leaves, and when the session ends: brings the recovery file down to the
// disk. Set by the shell.
extern void (*salvaRecupero)();
// Nothing in the environment names a display. Before StartToolbox too, which ends the program with one line when it finds
// none and no script runs.
bool SenzaSchermo();
std::string AppFolder();   // where the executable stands

// --- what the driver is asked. All are set before StartToolbox; without a script they are null.
struct Copione {
    // The innermost wait has nothing to consume: feed one line or one step of it. False: the script is at its end.
    bool (*passo)();
    // An alert opened; gives the button to press. `predefinito` is the button that its resource marks.
    std::int16_t (*avviso)(std::int16_t id, std::string_view textUtf8, std::int16_t predefinito);
    // A dialog opened: its title is printed. Its steps are pulled by passoDialogo whenever it waits.
    void (*dialogoAperto)(std::int16_t id, std::string_view titleUtf8);
    // The open dialog waits: do the next step of its answer. False: no step is left, so it is cancelled.
    bool (*passoDialogo)(DialogPtr d);
    void (*dialogoChiuso)(std::int16_t id);
    // File, pop-up and colour requests: false is a cancel.
    bool (*file)(bool save, std::string& pathUtf8);
    std::int16_t (*popup)();
    bool (*colore)(std::uint16_t& r, std::uint16_t& g, std::uint16_t& b);
    // The print dialog: a file for the pages; first and last stay as they are when the answer names none.
    bool (*stampa)(std::string& pathUtf8, std::int32_t& first, std::int32_t& last);
    // The page set-up: paper in millimetres, left as it is when the answer names none.
    bool (*carta)(double& width, double& height);
    void (*beep)(std::int32_t duration);
    // Is the next answer to a dialog one to this? Null: dialogs are always answered.
    bool (*dialogoAtteso)(std::int16_t id) = nullptr;
};
void SetCopione(const Copione* copione);

// Leaves at once with this status: standard output is flushed and the script's own settings folder goes.
[[noreturn]] void AutoExit(std::int32_t status);

// --- what the driver may do
// Stops long work as a person would: at the step that comes after `steps` further ones, counted from here; below 0 never.
void AutoStopWork(std::int64_t steps);
std::int64_t AutoWorkSteps();            // that long work has asked since AutoStopWork
void AutoAdvance(std::uint32_t ticks);   // the clock moves on
void AutoMove(Point content, std::uint16_t modifiers);
void AutoPress(Point content, std::uint16_t modifiers);
void AutoRelease(Point content, std::uint16_t modifiers);
void AutoWheel(std::int32_t axis, std::int32_t steps, std::uint16_t modifiers);
// macRoman: the character; 13 return, 3 enter, 9 tab, 8 backspace, 27 escape, 28 to 31 left, right, up, down,
// 127 delete.
void AutoKey(std::uint8_t macRoman, std::uint16_t modifiers);
// False when the item does not exist or is disabled.
bool AutoMenu(std::int16_t menu, std::int16_t item, std::uint16_t modifiers);
void AutoPost(const EventRecord& e);                        // drop, highLevel, tablet: records the toolkit would queue
void AutoResize(std::int32_t width, std::int32_t height);   // of the content
void AutoActivate(bool active);
void AutoGoAway();
std::int32_t AutoDepth();                      // loops inside the main one that now run
bool AutoQueueEmpty();                         // no input, repaint or deferred work is waiting
bool AutoScreenshot(std::string_view path);    // window with any open dialog
std::string AutoMenuJson(std::int16_t menu);   // {"1":{"text":..,"checked":0,"enabled":1},..}
std::string AutoWindowTitle();                 // UTF-8

// On a dialog, by item; false when there is no such item or it cannot be used so.
bool AutoDialogSetText(DialogPtr d, std::int16_t item,
                       std::string_view macRoman);   // replaces the field's text by typing
bool AutoDialogSetValue(DialogPtr d, std::int16_t item, std::int32_t value);
bool AutoDialogClick(DialogPtr d, std::int16_t item);
bool AutoDialogKey(DialogPtr d, std::uint8_t macRoman);
// "TEXT" and any of ` disabled`, ` checked`, ` selected A B`, ready to print behind `dialog N item ITEM `.
bool AutoDialogDescribe(DialogPtr d, std::int16_t item, std::string& outUtf8);
DialogPtr AutoModeless(std::int16_t id);   // the open modeless dialog, or null
std::int16_t AutoDialogId(DialogPtr d);

}   // namespace tessaro
