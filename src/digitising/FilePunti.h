// Control points in files: the .points files of QGIS, and lists with a heading (CSV). Text in, text out.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "registration/TabellaPunti.h"

namespace tessaro {

// Sheet units of a pixel place of the picture that a .points file is about, Y up from the picture's top (QGIS counts rows
// downwards as negative), and back. Without a picture both are the sheet's own, Y turned over.
struct PixelDelFoglio {
    double x = 0, y = 0;                   // the picture's upper left corner
    double perPixelX = 1, perPixelY = 1;   // sheet units a pixel
    [[nodiscard]] Coppia foglio(double px, double py) const { return {x + px * perPixelX, y - py * perPixelY}; }
    [[nodiscard]] Coppia pixel(const Coppia& f) const { return {(f.x - x) / perPixelX, (y - f.y) / perPixelY}; }
};

struct EsitoFilePunti {
    TabellaPunti tabella;            // rows alone
    std::size_t scartate = 0;        // lines that are no row
    std::size_t primaScartata = 0;   // its line, from 1
};
// Either kind, told apart by the heading. A list's columns are found by their names (name, sheet x, sheet y, real x, real y,
// in use, in English or Italian); without a heading they are name X Y (real), or name x y X Y. Parted by commas, semicolons,
// tabs or blanks; where commas do not part, they are decimal.
EsitoFilePunti LeggiFilePunti(std::string_view testo, const PixelDelFoglio& pixel);
std::string ScriviPointsQgis(const TabellaPunti& t, const StatoPunti& stato, const PixelDelFoglio& pixel);
std::string ScriviCsvPunti(const TabellaPunti& t, const StatoPunti& stato);

// Real coordinates of rows with the same name (blanks at the ends and case do not count); how many took them.
std::size_t AbbinaPerNome(TabellaPunti& t, const TabellaPunti& elenco);

}   // namespace tessaro
