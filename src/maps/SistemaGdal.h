// Reference systems on their way through GDAL's files.
#pragma once

#include <string>

#include "maps/Gdal.h"
#include "maps/SistemaRiferimento.h"

namespace tessaro {

// The drawing's system as GDAL has it; null when it names none that GDAL knows.
class SistemaGdal {
public:
    explicit SistemaGdal(const Gdal& gdal);
    ~SistemaGdal();
    SistemaGdal(const SistemaGdal&) = delete;
    SistemaGdal& operator=(const SistemaGdal&) = delete;
    [[nodiscard]] gdal::Oggetto riferimento() const { return srs; }

private:
    const Gdal& g;
    gdal::Oggetto srs = nullptr;
};

// A file's system as the drawing names systems: its code, else its description as WKT; empty for null.
std::string DefinizioneDi(const Gdal& g, gdal::Oggetto srs);

}   // namespace tessaro
