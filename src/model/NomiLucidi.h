// What the layers are called, which of them are locked, and in which order they are listed: an entry of the drawing's
// extension block. The told view filter (model/Lucidi.h) knows nothing of it.
//
// The entry "lays", version 1: a byte 1; a byte k and k times layer (0 to 99), length and that many bytes of the name in
// Mac Roman; 13 bytes of locks, layer l in bit l % 8 of byte l / 8; then nothing, or 100 bytes with each layer once, in the
// order of the list. Entries that are otherwise are as none.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/Lucidi.h"

namespace tessaro {

inline constexpr std::int16_t quantiLucidi = 100;
inline constexpr std::size_t maxNomeLucido = 63;   // bytes

std::string NomeLucido(std::int16_t l);   // Mac Roman; empty for a layer without a name, or a number that is none
// Cut to maxNomeLucido, without control characters and blanks at its ends; empty takes the name away.
void PoniNomeLucido(std::int16_t l, std::string_view macRoman);
std::int16_t LucidoDiNome(std::string_view macRoman);   // the layer so called, case aside; -1 when there is none
// Where the elements of a foreign layer go: to the layer of that name; else to `voluto` when that has no name, else to the
// first layer without name and elements, else to `voluto`. The layer takes the name if it has none.
std::int16_t AccogliLucido(std::string_view macRoman, std::int16_t voluto);

// A locked layer is seen and not picked; a number that is none changes nothing.
void BloccaLucido(std::int16_t l, bool bloccato);
std::array<std::int16_t, quantiLucidi> OrdineLucidi();   // each layer once, as the list shows them
// Of the list alone; one that has not each layer once changes nothing.
void PoniOrdineLucidi(const std::array<std::int16_t, quantiLucidi>& ordine);

// Locks, from the entry; written by the routines above and when an entry changed otherwise.
extern std::array<std::uint8_t, quantiLucidi> lucidiBloccati;
inline bool LucidoBloccato(std::int16_t l) {
    return l >= 0 && l < quantiLucidi && lucidiBloccati[static_cast<std::size_t>(l)] != 0;
}
// Can the pointer pick what lies on l?
inline bool LucidoRaggiungibile(std::int16_t l) {
    return LucidoVisibile(l) && !LucidoBloccato(l) && !(VisioneGraf.bloccaAltri && l != VisioneGraf.lucidoCorrente);
}

}   // namespace tessaro
