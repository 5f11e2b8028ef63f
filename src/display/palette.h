// The tool palette on the left, the strip on top, help tags.
#pragma once

#include <cstdint>

#include "platform/Types.h"
#include "text/PascalString.h"

namespace tessaro {

void DrawPallette();    // the strip of cells as tool and mode stand
void AggiornaCelle();   // draws the palette when a cell has come to be usable, or ceased to be
void DrawIcona(const Rect& r, std::int32_t id);   // picture `id`; one of a lit cell stands on a lit ground
// Follows the pointer until release, the icon lit while it is inside; true when released inside.
bool TrackIcon(const Rect& r, std::int32_t id, std::int32_t litId);
void DrawOperazCorr();   // StrOperCorr at the foot, on the screen at once; port and drawing state are kept
void DrawTopBar();
void MoveToolbar();
void inizializzaMainToolbar();
void AggiustaStatoBottoni();   // enabled, lit: as menus and constraints say
void InitializeTags();
// Rests of the pointer over palette or coordinate line; gives the ticks until it wants to be called again, -1 for
// never.
std::int32_t HelpTagControl(Point where, std::uint32_t time, std::uint8_t on);

extern PStr63 StrOperCorr;   // operation now running, shown in the palette

}   // namespace tessaro
