// The drawing's table of named colours; records hold 1-based numbers into it.
#pragma once
#include "platform/Types.h"
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
namespace tessaro {

struct Colore {
    std::array<std::uint8_t, 22> nome{};   // length first, at most 20
    RGBColor rgb;
    std::int16_t penna = 1;   // plotter pen
};
inline constexpr std::int16_t maxColori = 300;
inline constexpr std::uint8_t maxNomeColore = 20;   // characters
// A table apart from the drawing's: a settings file's, a dialog's working copy.
struct TavolaColori {
    std::array<Colore, maxColori> colori{};
    std::int16_t presenti = 0;
};
extern std::array<Colore, maxColori> arrColori;
extern std::int16_t coloriPresenti;        // entries in use, 7
void ColoriPredefiniti();                  // the seven fixed ones and 293 black ones, names from list 129
TavolaColori TavolaPredefinita();          // the same
std::string NomeColore(const Colore& c);   // Mac Roman
void PoniNomeColore(Colore& c, std::string_view macRoman);   // cut at maxNomeColore
void RifaiMenuColori();                                      // menu 23 from the table, tick at colorCorrente
}   // namespace tessaro
