// Control points from a text file: a name, two coordinates on the picture or sheet, two real ones, a line each.
#pragma once

#include <string>
#include <vector>

#include "batch/Chiamata.h"
#include "model/Registrazione.h"

namespace tessaro {

struct PuntoDato {
    std::string nome;
    Coppia foglio;   // as it stands in the file; sheet units behind InFoglio
    Coppia reale;    // the user's unit
};

// NAME U V X Y, parted by blanks, tabs, commas or semicolons; lines that are empty or begin with # are passed over, and so
// is a first line without numbers. Esito::nonLetto, said with the line's number, for any other line, a name that comes
// twice, and for fewer than `minimo` points.
Esito LeggiPunti(const Chiamata& c, const std::string& percorso, std::size_t minimo, std::vector<PuntoDato>& punti);

// Pixels of picture record `n` (0, 0 is its upper left corner, V runs down) to sheet units.
void InFoglio(std::vector<PuntoDato>& punti, std::int32_t n);
// The first picture of the drawing; 0 without one.
std::int32_t PrimaImmagine();

// The similarity from the sheet to the real plane with the least sum of squared residuals in it: X = a x + b y + cx,
// Y = b x - a y + cy (the sheet's Y runs down). Exact for two points. False when all lie in one place.
struct Similitudine {
    double a = 1, b = 0, cx = 0, cy = 0;
    [[nodiscard]] Coppia reale(double x, double y) const { return {a * x + b * y + cx, b * x - a * y + cy}; }
    [[nodiscard]] double ingrandimento() const;   // real units to a sheet unit
};
bool MinimiQuadrati(const std::vector<PuntoDato>& punti, Similitudine& s);

// The sheet takes the similarity: control points 1 and 2 lie in two corners of it.
void RegistraFoglio(const Similitudine& s);
// A sheet as large as the picture in its corner: whole millimetres, 10 to 200 centimetres a side.
void FoglioPer(double larghezza, double altezza);

}   // namespace tessaro
