// The tablet as the drawing sees it: a sample is a pair of raw counts, Y up, and a button. Counts move the cursor,
// buttons run the tools; where samples come from stands in TavolettaLettori.h.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessaro {

extern std::int32_t xtab, ytab;         // counts of the last sample, 0; readers, before each CheckTablet
extern double frazioneXt, frazioneYt;   // what a finer reader knows beyond them, 0 up to 1 count; 0 for digitisers

// One sample: xtab, ytab and tabButton are set, reading is on and a drawing is open. Buttons above 15 move the cursor only.
void CheckTablet();
// The cursor to a tablet position: sheet units from the counts, held by frozen axes, drawn to the grid when it snaps.
void Agg_cursore(std::int32_t xt, std::int32_t yt);

// The tablet's corner is the view's (it follows scrolls and zooms), or the sheet's. Both move the mark in the Tools menu.
void RiferimentoVista();
void RiferimentoFoglio();

// The calculator stands above and sets these at start: its window opened or brought forward, and a value under its name
// in its display.
extern void (*apriCalcolatrice)();
extern void (*mostraMisura)(const double& value, std::string_view label);

}   // namespace tessaro
