// Dialogs and alerts from resource files. Items are 1-based numbers; the toolkit lays them out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Events.h"
#include "platform/Quickdraw.h"

namespace tessaro {

struct FinestraDialogo;
using DialogPtr = FinestraDialogo*;

// Sees each event before the dialog does. True: the event is dealt with, and `item` (if not 0) counts as hit.
using ModalFilter = bool (*)(DialogPtr d, EventRecord& e, std::int16_t& item);

DialogPtr GetNewDialog(std::int16_t id);   // never null: a resource that is missing is a fault of the build
void DisposeDialog(DialogPtr d);
// Runs until an item is hit, also by typing in a field (that field's item). A closed dialog, a quit under way and
// Escape give item 2.
void ModalDialog(ModalFilter filter, std::int16_t& item);
// Would somebody answer it? A person always; a script only when its next answer is to this dialog. For questions that have a
// good answer of their own.
bool DialogAnswered(std::int16_t id);
DialogPtr FrontDialog();                // the innermost one open, or null; modeless ones do not count
void SelectDialogWindow(DialogPtr d);   // brings a modeless dialog forward

void SetDialogItemText(DialogPtr d, std::int16_t item, std::string_view macRoman);
std::string GetDialogItemText(DialogPtr d, std::int16_t item);   // Mac Roman, at most 255 bytes
void SelectDialogItemText(DialogPtr d, std::int16_t item, std::int32_t start,
                          std::int32_t end);   // also gives it the focus
void SetDialogItemValue(DialogPtr d, std::int16_t item,
                        std::int32_t value);   // radio, check box: 0 or 1; pop-up, slider: the value
std::int32_t GetDialogItemValue(DialogPtr d, std::int16_t item);
void HiliteDialogItem(DialogPtr d, std::int16_t item, std::int16_t part);   // 255 dims, 0 enables
void ShowDialogItem(DialogPtr d, std::int16_t item);                        // a list that scrolls is scrolled to it
void HideDialogItem(DialogPtr d, std::int16_t item);                        // takes no room until it is shown again
// What stands in an empty field, or in a pop-up with the value 0.
void SetDialogItemHint(DialogPtr d, std::int16_t item, std::string_view macRoman);
void SetDialogItemMenu(DialogPtr d, std::int16_t item,
                       std::int16_t menu);   // pop-up items take their texts, and small pictures, from a menu
// A list item's rows, 1 to count, each with a colour before its text; its value is the row chosen. A table's rows have
// cells parted by tabs and no colour; its heading is the item's text. Without rows a table is not shown.
void SetDialogItemRows(DialogPtr d, std::int16_t item, std::int16_t count);
void SetDialogItemRow(DialogPtr d, std::int16_t item, std::int16_t row, std::string_view macRoman,
                      const RGBColor& colour);
// A grid's rows are set like a table's, and its value is the row of the hand, 0 for none; a cell that is ticked or chosen is "1". What the person did in it comes as a hit of
// the item, and what it was from here, in order: the program changes its data and fills the rows again.
struct GridHit {
    std::int16_t row = 0, column = 0;   // from 1; column 0: the row was dragged
    std::int16_t to = 0;                // to the place of this row
    std::string text;                   // Mac Roman: what was typed; "1" and "0" of a tick, "1" of a choice
};
bool GetGridHit(DialogPtr d, std::int16_t item, GridHit& out);   // false when there is none left
// What a canvas item shows, copied.
void SetDialogItemPicture(DialogPtr d, std::int16_t item, const PixMap& p);
void DrawDialog(DialogPtr d);

// Fill ^0 to ^3 in the texts of the dialogs and alerts opened from now on.
void ParamText(std::string_view p0, std::string_view p1, std::string_view p2, std::string_view p3);

// Alerts give the button hit. Without a window system (fuzzing, benches) they give the default at once.
std::int16_t StopAlert(std::int16_t id);
// With a ^0 of its own and no other parameter; those of ParamText hold again behind it, for the dialog that is open.
std::int16_t StopAlertParam(std::int16_t id, std::string_view macRoman0);
std::int16_t NoteAlert(std::int16_t id);
std::int16_t CautionAlert(std::int16_t id);
std::int16_t Alert(std::int16_t id);

// The system's colour chooser. False when it was cancelled.
bool GetColor(std::string_view macRomanPrompt, const RGBColor& before, RGBColor& after);

// --- progress of long work: a bar with a Stop button beneath the window's middle; safe without a window. One bar for all:
// work that opens it inside other work is a part of that, and only the outermost moves the bar. Stopped once, all of it is
// stopped until the outermost closes.
enum class ProgressKind : std::uint8_t {
    work,      // Escape stops it from its beginning
    repaint,   // stopped only once its bar has shown, so that a key meant for the drawing gets there
};
void ProgressOpen(std::string_view macRomanTitle, ProgressKind kind = ProgressKind::work);
// 0 to 1, or not a number where no one knows; false when the person asked to stop, by Escape or the button. True without an
// open bar, and on other threads than the one that opened it nothing is asked, only told.
bool ProgressStep(double fraction);
bool ProgressStopped();   // was the open work stopped? False without one
void ProgressClose();

}   // namespace tessaro
