// The toolbar: its controls, what the four value buttons show, which buttons can be used and which are lit.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/Windows.h"

namespace tessaro {

inline constexpr std::size_t numBottoni = 30, numSeparatori = 6;
struct BottoniToolbar {
    std::array<ControlHandle, numBottoni> bottoni{};   // null while no drawing is open
    std::array<ControlHandle, numSeparatori> separatori{};
    ControlHandle altri = nullptr;   // opens what a narrow window has no room for
};
extern BottoniToolbar bottoneToolbar;

// What a button does, as the menu command that does the same; 0, 0 when it has none.
struct ComandoMenu {
    std::int16_t menu = 0, voce = 0;
};
ComandoMenu ComandoDelBottone(std::size_t indice);
Rect RettangoloBottone(std::size_t indice);   // window-local pixels
// In a narrow window the buttons from this one on are behind one at the right end, whose index is numBottoni.
std::size_t PrimoNascosto();   // numBottoni when there is room for all
Rect RettangoloAltri();
std::string NomeBottone(std::size_t indice);   // Mac Roman

void CreaBarra();        // the controls of a new window
void DisponiBarra();     // their places for the window of the moment
void AggiornaValori();   // the value buttons show the colour, width and patterns in force

}   // namespace tessaro
