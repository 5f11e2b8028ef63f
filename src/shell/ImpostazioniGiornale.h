// The journal's settings file: a text of lines `name = value` in the settings folder.
#pragma once
namespace tessaro {
void LeggiParGiornale();   // "journal": memory, megabytes, 1 to 65536. No file: the default stays; other lines are told
}   // namespace tessaro
