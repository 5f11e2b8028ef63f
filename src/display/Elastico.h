// The curve of the figure in progress, as its rubber band shows it. The construction tools write it.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

extern puntot CentroCorrente;                         // sheet units
extern double RaggioCorrente;                         // sheet units
extern std::int16_t AngInizio, AmpiezzaAngCorrente;   // start and sweep, whole degrees

}   // namespace tessaro
