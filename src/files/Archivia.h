// The single door of the file commands, and the life of a drawing's window.
#pragma once

#include <cstdint>

#include "platform/Files.h"

namespace tessaro {

void archivia();                          // by theItem
void LeggiDropTS3D(const FSSpec& spec);   // the same for a dropped file; a merge leaves the document's own file alone
extern std::uint8_t OKArchivioFss;        // myFSS names a file that was chosen
extern bool ultimoSalvataggioRiuscito;    // what the last save came to: closing after a failed one is refused
void SetUpWindow();                       // opens an empty drawing
std::uint8_t TuttoChiuso();               // asks, closes; nonzero when no drawing remains
void AboutTessaro();                      // dialog 1033
void AbilitaMenu(bool disegnoAperto);     // File items and drawing menus

}   // namespace tessaro
