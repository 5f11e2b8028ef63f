// Events and time. WaitNextEvent is the only door; every nested wait blocks in the same place (waitStep), where queued
// toolkit input becomes records and, under a script, the next line is pulled.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Types.h"

namespace tessaro {

struct Finestra;
using WindowPtr = Finestra*;

enum class EventKind : std::uint8_t {
    nullEvent,   // the pointer or a modifier moved, or the sleep ran out
    mouseDown,
    mouseUp,
    middleDown,   // the middle button; held and released like the other
    keyDown,
    autoKey,
    updateEvt,     // window: which
    activateEvt,   // modifiers bit 0: becoming active
    osEvt,         // suspend or resume: message bit 0 set on resume
    menuChoice,    // message: menu number in the high 16 bits, item in the low ones
    goAway,        // window: its close box was clicked
    grow,          // window: resized to where.h by where.v
    scroll,        // control: message; it moved by the toolkit's own hand (thumb or arrows)
    wheel,         // message: axis (0 vertical, 1 horizontal) << 16 | (delta & 0xFFFF)
    pinch,         // two fingers of a touch pad: message the factor, 65536 for 1
    highLevel,     // an event of the desktop: `classe` "quit", "oapp", "odoc", "pdoc" with `percorsi`
    drop,          // files dropped at where: `percorsi`
    tablet,        // one sample: where.h, where.v raw counts, message the button
    pen,           // a pen of the desktop: where and its fraction, message the button pressed now, 0 for none
    dialogItem,    // a modeless dialog: message = dialog << 16 | item
    button,        // a toolbar button was released inside: message = its index
};

// Modifier bits of an event.
enum : std::uint16_t { activeFlag = 1, cmdKey = 256, shiftKey = 512, optionKey = 2048, controlKey = 4096 };

struct EventRecord {
    EventKind what = EventKind::nullEvent;
    std::uint32_t message = 0;   // keyDown: the Mac Roman character in the low byte
    std::uint32_t when = 0;      // ticks
    Point where;                 // window-local pixel of `window`
    std::uint16_t modifiers = 0;
    WindowPtr window = nullptr;
    double frazioneH = 0, frazioneV = 0;   // pen: the part of a pixel beyond where, 0 up to 1
    std::string classe;                    // highLevel
    std::vector<std::string> percorsi;     // paths, UTF-8
};

// Waits for the next event, at most `sleep` ticks; below 0 without end. False for nullEvent, which callers use for
// their idle step. A press is always preceded by the move to its place.
bool WaitNextEvent(EventRecord& e, std::int32_t sleep);
// Drops queued repaints only; a person's input is kept.
void FlushEvents();

Point GetMouse();               // last delivered pointer position, local to the front drawing window
bool StillDown();               // is the press being handled still held? Waits for news of it; false when focus is lost
bool Button();                  // the same without waiting
bool DragGivenUp();             // Escape ended the press that was handled last: what it dragged goes back
std::uint16_t KeyModifiers();   // modifiers now held
// Waits until the pointer moves or the button is released; true while it is held.
bool TrackMouseLocation(Point& p);
// Is a turn of the wheel or a pinch queued? Asked in the middle of a repaint: it looks at the desktop once in a while, and only
// queues what it finds; under a script at the queue alone.
bool ZoomWaits();
bool escapePressed();   // asked by long jobs: was Escape pressed since the job began? Keeps the window alive

std::uint32_t TickCount();        // 60 a second; a script's own clock under a script
void Delay(std::int32_t ticks);   // a pause that is seen; no wait under a script, whose clock moves on
std::uint32_t GetDblTime();       // ticks; 30 under a script
void SysBeep(std::int32_t duration);

// True once the desktop asked to quit while a nested loop ran: every loop unwinds, the main one closes.
bool quitPending();

// Depth of the loops that wait inside the program; the main one runs at 0. Every other loop (a dialog, a drag, a rubber
// rectangle that waits for its press) holds an Annidato while it runs.
struct Annidato {
    Annidato();
    ~Annidato();
    Annidato(const Annidato&) = delete;
    Annidato& operator=(const Annidato&) = delete;
};
std::int32_t annidamento();

}   // namespace tessaro
