// The path under the calculator and what is measured of it.
#pragma once

#include <array>
#include <cstdint>

#include "text/PascalString.h"

namespace tessaro {

inline constexpr std::int16_t maxPuntiPercorso = 100;

// Real coordinates, in the user's unit. Points 1 to RisCalc.numPunti; index 0 is a working copy of the last one.
extern std::array<double, maxPuntiPercorso + 1> Xspezz, Yspezz, Zspezz;

// The calculator's memory, display and measures. Kept from one opening of the calculator to the next.
struct Risultati {
    double memoria = 0;
    double accumulatore = 0;                     // left operand of the operation that waits
    double valore = 0;                           // in the display
    double area = 0;                             // of the closed path, never negative once measured
    double perimetro = 0;                        // with the closing side
    double sviluppo = 0;                         // without it
    double deltaX = 0, deltaY = 0, deltaZ = 0;   // last point minus first
    // First point. While a path is traced X and Y hold the rubber band's anchor, in sheet units.
    double primoX = 0, primoY = 0, primoZ = 0;
    double ultimoX = 0, ultimoY = 0, ultimoZ = 0;
    double riservati[2] = {0, 0};
    double distanza = 0;                       // from the first point to the last
    double fattore = 1;                        // multiplies every measure that is fetched
    double azimut = 0;                         // of the last point from the first, radians, by orientCorrente
    double momentoX = 0, momentoY = 0;         // static moments about axes through the first point
    double baricentroX = 0, baricentroY = 0;   // centroid, from the first point
    std::int16_t numPunti = 0;                 // 0 to maxPuntiPercorso
    PStr15 stringa;
};
extern Risultati RisCalc;

void InizioPercorso(double x, double y, double z);       // a new path with this first point, real coordinates
void AggiungiAlPercorso(double x, double y, double z);   // a full path takes no more, silently
// Measures the path into RisCalc. A path that encloses nothing has a centroid that is no number.
void Calcolo();

}   // namespace tessaro
