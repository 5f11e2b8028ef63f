// How good the registration is: the control points in every space, the scale and the turn of the sheet, where the live
// transformation takes each point and by how much it misses, and what is wrong with the points. Numbers alone.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "model/Registrazione.h"

namespace tessaro {

// Everything that the report is computed from, at one moment.
struct DatiRapporto {
    std::array<Coppia, 5> foglio{}, destinazione{};   // sheet units
    std::array<bool, 5> dati{};                       // control points that have been given
    std::array<Coppia, 2> reali{};                    // what points 1 and 2 were given, the user's unit
    TransfRec transf;                                 // sheet to real, when coordReali
    double rappvid = 0, decimiUnita = 0, altezzaFoglio = 0;
    std::int32_t modo = 1;   // 0 two points, 1 four, 2 five
    bool coordReali = false, prospettica = true;

    bool operator==(const DatiRapporto& d) const;   // bit by bit: a NaN is the same NaN
};
DatiRapporto DatiDelMomento();   // from the globals of the moment

struct PuntoRapporto {
    bool dato = false;      // without it, only the destination counts
    bool mappato = false;   // the transformation is one, so that the point has a place and a residual
    bool contato = false;   // among the largest and the mean: a point that the mode takes
    Coppia foglio, reale, destinazione, destinazioneReale, dove, doveReale;
    double residuo = 0, residuoReale = 0;   // from the destination: sheet units, the user's unit
};

enum class Difetto : std::uint8_t {
    mancanti,           // control points that the mode takes and nobody gave
    coincidenti,        // closer than 0.001 sheet units on both axes
    allineati,          // three, or all four, on one line: off it by less than a thousandth of their distance
    disordine,          // not lower left, upper left, upper right, lower right
    concavi,            // in their order they do not go round a convex quadrilateral
    specchiati,         // the destination goes round the other way than the control points
    realiCoincidenti,   // points 1 and 2 have the same real coordinates
};
struct AvvisoPunti {
    Difetto difetto{};
    bool destinazione = false;         // of the destination points, else of the control points
    std::vector<std::int16_t> punti;   // numbers, ascending
    bool operator==(const AvvisoPunti&) const = default;
};

struct RapportoAttacchi {
    std::int32_t modo = 1;
    bool coordReali = false;
    double scala = 0;       // denominator
    double rapporto = 0;    // real units per sheet unit
    double rotazione = 0;   // radians from the sheet to the real plane, anticlockwise, above -pi up to pi
    std::array<PuntoRapporto, 5> punti{};
    bool conResidui = false;         // some point counts
    double massimo = 0, medio = 0;   // largest and root mean square of the residuals that count, sheet units
    double massimoReale = 0, medioReale = 0;
    std::int16_t peggiore = 0;   // point of the largest
    std::vector<AvvisoPunti> avvisi;
};
// Changes nothing of the program. Of points that make no transformation there are warnings, and no numbers.
RapportoAttacchi CalcolaRapportoAttacchi(const DatiRapporto& d);

// Points 1 to 4 that lie on one line: their numbers, three or four; empty when no three of them do.
std::vector<std::int16_t> PuntiAllineati(const std::array<Coppia, 4>& p);
// 1 or -1 for a convex quadrilateral, by the way it goes round; 0 for any other.
std::int16_t VersoConvesso(const std::array<Coppia, 4>& p);

}   // namespace tessaro
