// Commands: from a menu choice or a key to an action.
#pragma once
#include "platform/Events.h"
#include <cstdint>
namespace tessaro {
void DoCommand(std::uint32_t choice);   // menu << 16 | item
// What the item theItem of a menu does: File, Edit, Export, Open Others, Import.
void DoArchivio();
void DoEdit();
void DoEsporta();
void DoApriAltri();
void DoImporta();
void Apri();     // asks for a drawing; nothing when the open one stays
void Chiudi();   // asks when it differs from its file
void ChkOnOffItem(std::int16_t menu, std::int16_t item, std::int16_t first, std::int16_t last);
void SpuntaCurve();           // of the items for circles and arcs, by CurvePerPunti
void Tasto(std::uint8_t c);   // the keyboard table
}   // namespace tessaro
