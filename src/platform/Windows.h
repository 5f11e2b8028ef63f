// The one drawing window, its controls and the screen. Content pixels run from (0, 0) at the top left, below the menu bar.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Quickdraw.h"

namespace tessaro {

struct Finestra;
using WindowPtr = Finestra*;
struct Controllo;
using ControlHandle = Controllo*;

Rect ScreenBounds();    // what a window may use; --window's under a script
double ScreenRatio();   // device pixels per logical pixel, whole

WindowPtr GetNewCWindow(std::int16_t resource);   // 1000: the drawing window; content sized by SizeWindow
void SizeWindow(WindowPtr w, std::int32_t width, std::int32_t height);
void DisposeWindow(WindowPtr w);   // controls die with it; the frame and menu bar stay
void ShowWindow(WindowPtr w);
void SelectWindow(WindowPtr w);
WindowPtr FrontWindow();   // null when none is open
void SetWTitle(WindowPtr w, std::string_view macRoman);
std::string GetWTitle(WindowPtr w);   // Mac Roman
GrafPtr GetWindowPort(WindowPtr w);
void SetWindowSmooth(WindowPtr w, bool smooth);   // what is drawn in it from now on has smooth lines and curves
void SetPortWindowPort(WindowPtr w);
Rect GetPortBounds(WindowPtr w);

void InvalWindowRect(WindowPtr w, const Rect& r);   // an update event follows
void BeginUpdate(WindowPtr w);                      // the invalid area becomes empty; the port's clip is kept
void EndUpdate(WindowPtr w);
void FlushWindow(WindowPtr w);   // puts what was drawn on the screen now (long work)

// Lays the start page over an untouched drawing until the first action; without a drawing it shows by itself.
void ShowStartPage();

// --- overlays: rasters of the window's size that are shown xor'd over its pixels and belong to no drawing. Black in
// mode xor inverts what it covers; drawn twice it is gone.
enum class Velo : std::uint8_t { evidenza, puntatore };   // the highlight of the selection; what follows the pointer
// Clears the overlay where it was drawn and lets `draw` draw it afresh, with its raster as the current port and the whole
// window as the clip.
void RedrawOverlay(WindowPtr w, Velo v, void (*draw)());
// Moves what r holds of the overlay by (dh, dv) and lets `draw` draw what is uncovered.
void ScrollOverlay(WindowPtr w, Velo v, const Rect& r, std::int32_t dh, std::int32_t dv, void (*draw)());
// Called before what was drawn is put on the screen, to draw overlays that are stale. Set by display.
extern void (*aggiornaVeli)();
// Device pixels of the window as the screen shows them, 0xFFRRGGBB, row by row: its own with the overlays over them.
std::vector<std::uint32_t> ShownPixels(WindowPtr w);

// The strip at the frame's foot, below the content: texts from left to right by `field`, from 0; the first takes the room
// that the others leave. Empty: nothing stands there.
void SetStripText(std::int16_t field, std::string_view macRoman);

// --- controls
ControlHandle NewScrollBar(WindowPtr w, bool vertical);
ControlHandle NewPanel(WindowPtr w);
void MoveSizeControl(ControlHandle c, const Rect& r);
void ShowControl(ControlHandle c);
void SetControlValue(ControlHandle c, std::int32_t value);   // held to minimum..maximum
std::int32_t GetControlValue(ControlHandle c);
void SetControlMinimum(ControlHandle c, std::int32_t value);
void SetControlMaximum(ControlHandle c, std::int32_t value);
std::int32_t GetControlMaximum(ControlHandle c);
void SetControlSteps(ControlHandle c, std::int32_t line, std::int32_t page);
// Buttons of the toolbar never take the focus; a release inside gives an event of kind `button`. Made hidden.
struct BottoneNuovo {
    std::int16_t indice = 0;   // the event's message
    std::int32_t icona = 0;    // number in the resources, 0 for none
    std::string titolo;        // Mac Roman; in place of an icon
    std::string nome, aiuto;   // Mac Roman: for the tag and for accessibility tools
};
ControlHandle NewToolbarButton(WindowPtr w, const BottoneNuovo& come);
ControlHandle NewSeparator(WindowPtr w);   // a vertical rule
// Part 0: plain, 7: lit, 255: dimmed.
void HiliteControl(ControlHandle c, std::int16_t part);
std::int16_t GetControlHilite(ControlHandle c);
// A button shows what an off-screen raster holds, in the raster's own density. The pixels are copied.
void SetControlPicture(ControlHandle c, const GrafPort& figura);
// Size of the system's own strips in palette colours: the window background, for strips that the core does not fill.
RGBColor SystemStripColour();

// Draws icon `id` of the resources (SVG, drawn at the port's ratio) into r on the current raster port, with the
// system palette's text colour where the drawing says currentColor. False when there is no such icon.
bool PlotIconID(const Rect& r, std::int32_t id);
// Names a part of the window for accessibility tools and keyboard-free use; drawn by nobody. index 0.. ; empty removes.
void NameWindowPart(WindowPtr w, std::int32_t index, const Rect& r, std::string_view macRomanName);

// Help tags: text of string list `list`, entry `index`, near r (window-local). Hidden by HMHideTag.
void HMDisplayTag(WindowPtr w, const Rect& r, std::int16_t list, std::int16_t index);
void HMHideTag();

// The guide's page, in the desktop's browser or, without one, in a window of its own. False when it is not installed.
bool HelpPageExists(std::string_view page);
bool AHGotoPage(std::string_view page);

// --- cursors
enum : std::int16_t { arrowCursor = 0 };
void SetCursor(std::int16_t resource);   // 0 the arrow, 4 the watch, 2 the cross, 10, 128 ...
std::int16_t CurrentCursor();

}   // namespace tessaro
