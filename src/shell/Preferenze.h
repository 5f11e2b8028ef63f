// What a person prefers of the program, whatever drawing is open: its settings file and its dialog. The values stand with
// those who read them; here are the ones that the shell itself reads.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

enum LinguaPreferita : std::int16_t { linguaDelDesktop = 0, linguaInglese = 1, linguaItaliana = 2 };
extern std::int16_t linguaPreferita;   // LinguaPreferita, in force from the next start; 0
extern std::int16_t unitaNuovi;   // unit of new drawings: 0 as the graphics parameters have it, else UnitaMCorrente + 1
extern std::uint8_t mostraInizio;   // the start page is shown at the start; 1

// The file's text, lines of `name = value`, into the values. What is no preference, or out of its bounds, leaves its value
// alone; gives the numbers of those lines, parted by commas. Names that this program does not know are no fault: they are
// kept for the one that wrote them.
std::string LeggiTestoPreferenze(std::string_view testo);
std::string TestoPreferenze();

void LeggiPreferenze();    // at the start: "preferences" of the settings folder; what was refused is told
bool ScriviPreferenze();   // a failure is told

void Preferenze();             // the dialog
void UnitaDelDisegnoNuovo();   // the preferred unit for the drawing that has just been begun

}   // namespace tessaro
