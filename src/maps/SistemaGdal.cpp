// From a drawing's system to GDAL's and back.
#include "maps/SistemaGdal.h"

namespace tessaro {

SistemaGdal::SistemaGdal(const Gdal& gdal) : g(gdal) {
    constexpr int estPrima = 0;
    // Its description and not its text: that may come from a file, and GDAL would open paths and addresses.
    const std::string testo = WktDi(SistemaDelDisegno());
    if (testo.empty()) return;
    srs = g.OSRNewSpatialReference(nullptr);
    if (g.OSRSetFromUserInput(srs, testo.c_str()) == 0) {
        g.OSRSetAxisMappingStrategy(srs, estPrima);
        return;
    }
    g.OSRDestroySpatialReference(srs);
    srs = nullptr;
}

SistemaGdal::~SistemaGdal() {
    if (srs != nullptr) g.OSRDestroySpatialReference(srs);
}

std::string DefinizioneDi(const Gdal& g, gdal::Oggetto srs) {
    if (srs == nullptr) return {};
    const char* const autorita = g.OSRGetAuthorityName(srs, nullptr);
    const char* const codice = g.OSRGetAuthorityCode(srs, nullptr);
    if (autorita != nullptr && codice != nullptr) return std::string(autorita) + ':' + codice;
    char* wkt = nullptr;
    std::string testo;
    if (g.OSRExportToWkt(srs, &wkt) == 0 && wkt != nullptr) testo = wkt;
    g.VSIFree(wkt);
    return testo;
}

}   // namespace tessaro
