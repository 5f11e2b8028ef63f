// What is wrong with many points: which of them do not agree with the others, and what slip would explain it. And the
// robust estimation, which points in error do not pull.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "registration/MoltiPunti.h"

namespace tessaro {

// A slip that takes the given real coordinates to where the other points put them, within four standard errors.
enum class Slittamento : std::uint8_t {
    ignoto,
    assiScambiati,    // X and Y exchanged
    puntiScambiati,   // its real coordinates are those of `altro`, and the other way round
    unita,            // X and Y in another unit: `fattore` of the right one
    segno,            // minus left out or added, of X or Y or both
    decimali,         // the decimal point of one coordinate: `fattore`
    cifreScambiate,   // two digits side by side exchanged in one coordinate
    cifra,            // one digit mistyped in one coordinate
};

struct PuntoSbagliato {
    std::size_t punto = 0;    // of the span given, from 0
    Coppia scarto;            // given less what the good points say, real units
    double lungo = 0;         // its length
    double significato = 0;   // chance of so large a residual among good points, times their number
    Slittamento causa = Slittamento::ignoto;
    double fattore = 1;
    std::size_t altro = 0;
    bool inX = true, inY = true;   // the coordinates that are wrong
    Coppia proposta;               // what should stand there; of ignoto what the good points say
};

struct EsameSbagli {
    bool fatto = false;                  // there are degrees of freedom to judge by
    bool tuttiScambiati = false;         // X and Y of all points look exchanged: the sheet would be seen from behind
    std::vector<PuntoSbagliato> punti;   // the worst first
    SoluzionePunti buona;                // by the others
    double accordo = 0;                  // the longest residual of the others; of a thin plate, each left out
    double potenza = 0;   // chance that a slip of eight standard errors would be named, the mean over the points
    int bastano = 0;      // points, spread as these, from which on it is 0.95; 0 where a thousand would not do
    std::vector<std::size_t> scoperti;   // points where it is below one half: the others hardly check them
};
// Points are taken out one by one, each when its externally standardised residual is larger than chance allows (F test, 3.5 per
// cent over all points; Baarda's data snooping with an estimated variance). Where many points hide each other, the robust
// estimation's scale shows it and names them. At most a third of the points.
EsameSbagli CercaSbagli(std::span<const PuntoNoto> punti, Metodo metodo);

// Of a thin plate, whose residuals are none: each point's standardised square, the sum that it is a part of with its degrees of
// freedom, and the part of an error that shows, 0 to 1. False below five points.
struct EsameLastra {
    std::vector<double> prova, ridondanza;
    double somma = 0;
    int gradi = 0;
};
bool EsaminaLastra(std::span<const PuntoNoto> punti, std::span<const double> pesi, EsameLastra& e);

// MM estimation: the start is the best of many minimal sets by the median residual (least median of squares), then weights
// by Tukey's biweight. `scala` is the standard error of a coordinate by the median. False when the plain solution is refused
// or has no degrees of freedom; a thin plate has none.
bool StimaRobusta(std::span<const PuntoNoto> punti, Metodo metodo, SoluzionePunti& s, std::vector<double>& pesi,
                  double& scala);

// The slip that explains why `p` lies at `p.scarto` from where `giusto` says, `tolleranza` in real units.
void NominaSlittamento(std::span<const PuntoNoto> punti, const Coppia& giusto, double tolleranza, PuntoSbagliato& p);

}   // namespace tessaro
