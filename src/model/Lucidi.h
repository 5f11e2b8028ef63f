// The view filter over the 100 transparency sheets.
#pragma once
#include <array>
#include <cstdint>
namespace tessaro {

struct VisioneGrafT {
    std::int16_t lucidoCorrente = 0;   // sheet of new elements, 0..99
    std::uint8_t grigiaAltri = 0;      // other sheets are drawn light grey
    std::uint8_t soloCorrente = 0;     // only the current sheet is drawn and reachable
    std::uint8_t mostraTratteggi = 1;
    std::uint8_t mostraTesti = 1;               // texts are drawn and can be picked
    std::uint8_t mostraAref = 0;                // tags are drawn
    std::uint8_t bloccaAltri = 0;               // other sheets are shown but cannot be picked
    std::array<std::uint8_t, 100> visibile{};   // per sheet; all 1 at start
};
static_assert(sizeof(VisioneGrafT) == 108);
extern VisioneGrafT VisioneGraf;
void AzzeraVisioneGraf();   // to the values of a new drawing: all sheets visible, sheet 0 current

// Is what lies on it drawn?
inline bool LucidoVisibile(std::int16_t l) {
    if (l < 0 || l > 99) return false;   // a number from a damaged file: on no sheet
    return VisioneGraf.visibile[static_cast<std::size_t>(l)] != 0
           && (!VisioneGraf.soloCorrente || l == VisioneGraf.lucidoCorrente);
}
inline bool LucidoGrigio(std::int16_t l) { return VisioneGraf.grigiaAltri && l != VisioneGraf.lucidoCorrente; }

}   // namespace tessaro
