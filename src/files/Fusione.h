// Fitting a drawing that is merged into the open one.
#pragma once

#include <cstdint>

#include "model/Elemento.h"

namespace tessaro {

enum class Fusione : std::uint8_t {
    comeSono,       // the elements come as they are
    attacco,        // through TransfAttacco: the sheets' control points
    reali,          // through TransfAgg: both drawings' real coordinates
    quattroPunti,   // through att4Pt: both drawings' four control points
    nessuna,        // refused: no element is read
};

// Which fitting the request `item` asks for, with its similarity built. i1 and i2 are the incoming records 1 and 2.
Fusione ScegliFusione(std::int16_t item, const elemento& i1, const elemento& i2);
// Carries one incoming element over.
void AdattaElemento(Fusione come, elemento& e);

}   // namespace tessaro
