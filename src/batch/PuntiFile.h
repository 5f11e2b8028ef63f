// Control points from a text file: a name, two coordinates on the picture or sheet, two real ones, a line each.
#pragma once

#include <string>
#include <vector>

#include "batch/Chiamata.h"
#include "registration/MoltiPunti.h"

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

// The similarity (one scale, one turn) with the least sum of squared residuals; exact for two points. Esito::nonFatto, and
// said, when the points define none.
Esito Adatta(const Chiamata& c, const std::string& percorso, const std::vector<PuntoDato>& punti, SoluzionePunti& s);
// Names of the points that do not agree with the others, the worst first: slips, by chance less than one in fifty.
std::vector<std::string> Sospetti(const std::vector<PuntoDato>& punti);
// Real units to a sheet unit.
double Ingrandimento(const MappaPunti& m);

// The sheet takes the mapping at its control points 1 and 2.
void RegistraFoglio(const MappaPunti& m);
// A sheet as large as the picture in its corner: whole millimetres, 10 to 200 centimetres a side.
void FoglioPer(double larghezza, double altezza);

}   // namespace tessaro
