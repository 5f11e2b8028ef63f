// The dialogs that ask for one value for the selection, or for new elements: prompt, one field, revert.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tessaro {

inline constexpr std::int16_t campoDomanda = 4;   // the field's item

// OK 1, Cancel 2, revert 5. Shows `iniziale` whole selected; accetta reads the field of theDialog and gives false when
// it refused it and selected what is wrong. True when a value was accepted.
bool Domanda(std::int16_t dialogo, std::string_view iniziale, const std::function<bool()>& accetta);
// A whole number between bounds; empty: the field starts empty.
bool DomandaIntero(std::int16_t dialogo, bool vuoto, std::int16_t min, std::int16_t max, std::int16_t& valore);

// "Selected: " and the thing's name, or "For new elements: " and the name. Mac Roman.
std::string Invito(bool selezionato, std::string_view nome);
// What is selected: "segment" ... for one element, string `piu` of list 129 for several.
std::string NomeSelezione(std::int16_t piu = 32);

// The name of the angle system in force (`gradCorrente`), to stand behind a field.
std::string NomeAngoli();

}   // namespace tessaro
