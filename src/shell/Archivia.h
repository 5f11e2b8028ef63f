// The single door of the file commands, and the life of a drawing's window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Files.h"

namespace tessaro {

void archivia();                             // by theItem
std::string Minuscole(std::string_view s);   // ASCII letters in lower case: suffixes count in any
// Files dropped on the sheet. A drawing is merged, by real coordinates, with Command or Option in `tasti` (modifier bits
// of an event) by four points; it does not become the file that a save replaces.
void LeggiDropTS3D(const FSSpec& spec, std::uint16_t tasti);
void LeggiDropText(const FSSpec& spec);   // DXF or point list, by name; any other is left alone
void LeggiDropPict(const FSSpec& spec);   // at the cursor
extern std::uint8_t OKArchivioFss;        // myFSS names a file that was chosen
extern bool ultimoSalvataggioRiuscito;    // what the last save came to: closing after a failed one is refused
void SetUpWindow();                       // opens an empty drawing
std::uint8_t TuttoChiuso();               // asks, closes; nonzero when no drawing remains
void AboutTessaro();                      // dialog 1033
void AbilitaMenu(bool disegnoAperto);     // File items and drawing menus

}   // namespace tessaro
