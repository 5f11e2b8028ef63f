// Control points from a text file: a name, two coordinates on the picture or sheet, two real ones, a line each.
#pragma once

#include <string>
#include <vector>

#include "batch/Chiamata.h"
#include "batch/Rigo.h"
#include "registration/MoltiPunti.h"
#include "registration/TabellaPunti.h"

namespace tessaro {

struct PuntoDato {
    std::string nome;
    Coppia foglio;   // as it stands in the file; sheet units behind InFoglio
    Coppia reale;    // the user's unit
};

// What U and V of a file are.
enum class Posti : std::uint8_t {
    comeSiDice,   // by the command's options
    pixel,        // a .points file of QGIS
    foglio,       // a list of the program's own table: sheet units
};

// NAME U V X Y, parted by blanks, tabs, commas or semicolons; lines that are empty or begin with # are passed over, and so
// is a first line without numbers. By its heading a .points file of QGIS is known, and a list that the program's table of
// control points wrote: of these the points that are in use. Esito::nonLetto, said with the line's number, for any other
// line, a name that comes twice, and for fewer than `minimo` points.
Esito LeggiPunti(const Chiamata& c, const std::string& percorso, std::size_t minimo, std::vector<PuntoDato>& punti,
                 Posti& posti);

// Pixels of picture record `n` (0, 0 is its upper left corner, V runs down) to sheet units.
void InFoglio(std::vector<PuntoDato>& punti, std::int32_t n);
// The first picture of the drawing; 0 without one.
std::int32_t PrimaImmagine();

// --method: false, and said, for a word that is none; untouched when it was not given.
[[nodiscard]] bool ScegliMetodo(const Chiamata& c, Metodo& m);
std::string_view NomeMetodo(Metodo m);   // as --method takes it
std::vector<PuntoNoto> Noti(const std::vector<PuntoDato>& punti);

// The mapping of that method with the least sum of squared residuals. Esito::nonFatto, and said, when the points define
// none.
Esito Adatta(const Chiamata& c, const std::string& percorso, const std::vector<PuntoDato>& punti, Metodo m,
             SoluzionePunti& s);
// The table of control points that the points are, by that method.
TabellaPunti TabellaDi(const std::vector<PuntoDato>& punti, Metodo m);

// What a solution leaves, in the user's unit. A thin plate leaves nothing at its points: of it, what each would miss by
// had it been left out.
struct Residui {
    double medio = 0, massimo = 0, senza = 0;   // root mean squares of the residuals and of those left out
    std::string peggiore;
    std::vector<std::string> sospetti;   // that do not agree with the others, the worst first: by chance one in fifty
};
Residui StampaResidui(const Chiamata& c, const std::vector<PuntoDato>& punti,
                      const SoluzionePunti& s);   // a row a point
// As values of the result's row.
void AggiungiResidui(Rigo& riga, const Residui& r, const SoluzionePunti& s, std::size_t quanti);
// Refused when a point misses by more than `limite`; Esito::fatto else.
Esito EntroLimite(const Chiamata& c, const std::string& percorso, const Residui& r, double limite);

// Real units to a sheet unit.
double Ingrandimento(const MappaPunti& m);

// The sheet takes the mapping at its control points 1 and 2.
void RegistraFoglio(const MappaPunti& m);
// A sheet as large as the picture in its corner: whole millimetres, 10 to 200 centimetres a side.
void FoglioPer(double larghezza, double altezza);

}   // namespace tessaro
