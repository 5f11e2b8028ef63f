// Control and destination points for tests of the live transformation.
#pragma once

#include <array>

#include "editing/AttacchiCambiati.h"
#include "registration/attaccoDinamico.h"
#include "registration/PuntiControllo.h"

namespace prova {

using namespace tessaro;
using Quad = std::array<Coppia, 4>;

// Control and destination points 1 to 4, sheet units, prepared in the mode in force.
inline void preparaAttacco(const Quad& src, const Quad& dst) {
    for (std::int16_t n = 1; n <= 4; ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        AssegnaAttacco(n, src[i].x, src[i].y);
        attaccoAttivo.SetXYAtt(static_cast<std::int16_t>(n - 1), dst[i].x, dst[i].y);
    }
    AttacchiCambiati();
    attaccoAttivo.PreparaAttacco();
}

inline void preparaAttacco(std::int32_t tipo, const Quad& src, const Quad& dst) {
    attaccoAttivo.tipo = tipo;
    preparaAttacco(src, dst);
}

}   // namespace prova
