// The view away from the screen, for as long as one lives: the sheet's corner at the port's, another scale, and nothing
// drawn that belongs to the screen alone.
#pragma once

#include "display/Disegno.h"
#include "display/Disposizione.h"
#include "display/Zoom.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "model/Vista.h"

namespace tessaro {

class VistaPict {
public:
    explicit VistaPict(double scala)   // pixels per sheet unit
        : scalaPrima(scalavid), testoPrima(ScalaTesto), spessPrima(spess) {
        OrigX = OrigY = 0;
        DisegnaPict = 1;
        scalavid = scala;
        ScalaTesto = scalavid * static_cast<double>(DecPunto);
    }
    ~VistaPict() {
        scalavid = scalaPrima;
        ScalaTesto = testoPrima;
        DisegnaPict = 0;
        OrigX = PageCorner.h - larghezzaPalette;
        OrigY = PageCorner.v - hToolbar;
        spess = spessPrima;
    }
    VistaPict(const VistaPict&) = delete;
    VistaPict& operator=(const VistaPict&) = delete;

private:
    static constexpr std::int32_t larghezzaPalette = 32;
    double scalaPrima, testoPrima;
    std::int16_t spessPrima;
};

}   // namespace tessaro
