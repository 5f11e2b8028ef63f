// What all raster jobs share while they run: the watch, the thermometer, and the mapping's mode, put back at the end.
#pragma once

#include <cstdint>

#include "dialogs/Parametri.h"

namespace tessaro {

class LavoroRaster {
public:
    // `prospettica`: the mode of the perspective mappings for the job's length.
    explicit LavoroRaster(bool prospettica = true);
    ~LavoroRaster();
    LavoroRaster(const LavoroRaster&) = delete;
    LavoroRaster& operator=(const LavoroRaster&) = delete;
    // The part done, 0 to 1; shown when it has grown by a percent. False when the person asked to stop.
    bool passo(double frazione);
    [[nodiscard]] bool fermato() const { return stop; }

private:
    Termometro termometro;
    std::int32_t mostrato = 0;   // percent
    bool stop = false;
};

}   // namespace tessaro
