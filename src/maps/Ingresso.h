// How the coordinates of a file come to be the drawing's: as they stand, or through PROJ from the file's system to the
// drawing's; and where an empty drawing lays them on its sheet.
#pragma once

#include <string>

#include "maps/Gdal.h"
#include "maps/SistemaRiferimento.h"

namespace tessaro {

struct Ingresso {
    FraSistemi via;          // ready when coordinates are carried over
    std::string da, a;       // the systems that it joins
    std::string prende;      // the system that the drawing takes; empty: it keeps what it has
    std::string nota;        // for the report, Mac Roman
    bool stende = false;     // the sheet is laid over the extent
    gdal::Envelope dove{};   // the extent in the drawing's real coordinates
};

// Decides, asking where a person must, from the file's system (empty for none) and extent. False when it was refused or
// cannot be: what was wrong was said, and nothing changed.
bool PreparaIngresso(const std::string& sistema, const gdal::Envelope& estensione, const std::string& nomeFile,
                     Ingresso& in);
// The way alone, for what is put on the sheet by other means.
bool PreparaVia(const std::string& sistema, const gdal::Envelope& estensione, const std::string& nomeFile,
                Ingresso& in);
// The same for the drawing: its system, and control points 1 and 2 that lay the sheet over the extent at a round scale.
void EseguiIngresso(const Ingresso& in);
void RimettiIngresso();   // after records 1 and 2, unit and scale were put back as they were
// What was carried over and how exactly, for the report; behind the last point.
std::string NotaTrasformati(const Ingresso& in);

}   // namespace tessaro
