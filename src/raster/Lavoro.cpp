// The frame of a raster job.
#include "raster/Lavoro.h"

#include <cmath>
#include <string>

#include "display/palette.h"
#include "platform/Resources.h"
#include "platform/Windows.h"
#include "registration/Solutori.h"

namespace tessaro {

namespace {
constexpr std::int16_t listaTesti = 129, stringaPercento = 65, stringaLavoro = 68, cursoreOrologio = 4, freccia = 0;
}

LavoroRaster::LavoroRaster(bool prospettica)
    : termometro(PStr255(std::string_view(GetIndString(listaTesti, stringaLavoro)))) {
    deformProspettica = prospettica ? 1 : 0;
    SetCursor(cursoreOrologio);
}

LavoroRaster::~LavoroRaster() {
    deformProspettica = 1;
    StrOperCorr = PStr63("");
    if (mostrato > 0) DrawOperazCorr();
    SetCursor(freccia);
}

bool LavoroRaster::passo(double frazione) {
    const auto percento = static_cast<std::int32_t>(std::lround(frazione * 100));
    if (percento > mostrato) {
        mostrato = percento;
        StrOperCorr = PStr63((std::to_string(percento) + GetIndString(listaTesti, stringaPercento)).c_str());
        DrawOperazCorr();
    }
    stop = stop || !termometro.passo(frazione);
    return !stop;
}

}   // namespace tessaro
