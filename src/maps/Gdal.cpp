// Finding the library and its functions, once.
#include "maps/Gdal.h"

#include <cstddef>
#include <iterator>

#include "dialogs/Errori.h"
#include "maps/Frasi.h"
#include "platform/Library.h"
#include "platform/Resources.h"

namespace tessaro {

const char* const driverVettori[] = {"GPKG", "ESRI Shapefile", "GeoJSON", nullptr};
const char* const driverRaster[] = {"GTiff", "PNG", "JPEG", "BMP", "GIF", "JP2OpenJPEG", nullptr};

namespace {

#define F(nome)                                                                                                        \
    { #nome, offsetof(Gdal, nome) }
constexpr LibraryFunction funzioni[] = {
    F(GDALAllRegister),
    F(CPLSetConfigOption),
    F(CPLPushErrorHandler),
    F(CPLPopErrorHandler),
    F(CPLErrorReset),
    F(CPLGetLastErrorMsg),
    F(CPLGetLastErrorType),
    F(VSIFree),
    F(GDALGetDriverByName),
    F(GDALOpenEx),
    F(GDALCreate),
    F(GDALClose),
    F(GDALFlushCache),
    F(GDALSetMetadataItem),
    F(GDALGetRasterXSize),
    F(GDALGetRasterYSize),
    F(GDALGetRasterCount),
    F(GDALGetGeoTransform),
    F(GDALSetGeoTransform),
    F(GDALGetGCPCount),
    F(GDALGetGCPs),
    F(GDALGetGCPSpatialRef),
    F(GDALGetSpatialRef),
    F(GDALSetSpatialRef),
    F(GDALGetRasterBand),
    F(GDALGetRasterDataType),
    F(GDALGetRasterColorInterpretation),
    F(GDALSetRasterColorInterpretation),
    F(GDALGetRasterColorTable),
    F(GDALGetColorEntryCount),
    F(GDALGetColorEntryAsRGB),
    F(GDALGetRasterNoDataValue),
    F(GDALComputeRasterMinMax),
    F(GDALRasterIO),
    F(GDALDatasetRasterIO),
    F(GDALBuildOverviews),
    F(GDALDatasetGetLayerCount),
    F(GDALDatasetGetLayer),
    F(GDALDatasetCreateLayer),
    F(GDALDatasetStartTransaction),
    F(GDALDatasetCommitTransaction),
    F(OGR_L_GetName),
    F(OGR_L_ResetReading),
    F(OGR_L_GetNextFeature),
    F(OGR_L_GetFeatureCount),
    F(OGR_L_GetExtent),
    F(OGR_L_GetSpatialRef),
    F(OGR_L_GetLayerDefn),
    F(OGR_L_CreateField),
    F(OGR_L_CreateFeature),
    F(OGR_Fld_Create),
    F(OGR_Fld_Destroy),
    F(OGR_Fld_SetWidth),
    F(OGR_Fld_SetPrecision),
    F(OGR_Fld_GetNameRef),
    F(OGR_FD_GetFieldCount),
    F(OGR_FD_GetFieldDefn),
    F(OGR_F_Create),
    F(OGR_F_Destroy),
    F(OGR_F_IsFieldSetAndNotNull),
    F(OGR_F_GetFieldAsString),
    F(OGR_F_GetFieldAsDouble),
    F(OGR_F_SetFieldString),
    F(OGR_F_SetFieldInteger),
    F(OGR_F_SetFieldDouble),
    F(OGR_F_GetGeometryRef),
    F(OGR_F_SetGeometryDirectly),
    F(OGR_G_CreateGeometry),
    F(OGR_G_DestroyGeometry),
    F(OGR_G_GetGeometryType),
    F(OGR_G_GetLinearGeometry),
    F(OGR_G_GetGeometryCount),
    F(OGR_G_GetGeometryRef),
    F(OGR_G_AddGeometryDirectly),
    F(OGR_G_GetPointCount),
    F(OGR_G_GetX),
    F(OGR_G_GetY),
    F(OGR_G_GetZ),
    F(OGR_G_AddPoint),
    F(OSRNewSpatialReference),
    F(OSRSetFromUserInput),
    F(OSRExportToWkt),
    F(OSRDestroySpatialReference),
    F(OSRSetAxisMappingStrategy),
    F(OSRAutoIdentifyEPSG),
    F(OSRGetAuthorityName),
    F(OSRGetAuthorityCode),
};
#undef F
static_assert(std::size(funzioni) * sizeof(void*) == sizeof(Gdal), "a function of the table is not looked for");

void zitto(int, int, const char*) {}

// Nothing is fetched from a network, and no file grows the process beyond what a map needs.
void regola(const Gdal& g) {
    static constexpr const char* voci[][2] = {
        {"CPL_CURL_ENABLED", "NO"}, {"GDAL_HTTP_MAX_RETRY", "0"},        {"PROJ_NETWORK", "OFF"},
        {"GDAL_CACHEMAX", "128"},   {"OGR_GEOJSON_MAX_OBJ_SIZE", "200"}, {"SHAPE_RESTORE_SHX", "YES"},
        {"GDAL_PAM_ENABLED", "NO"},
    };
    for (const auto& v : voci) g.CPLSetConfigOption(v[0], v[1]);
}

const Gdal* cerca() {
    // One C interface all along; the newest that is there.
    static Gdal g;
    if (!LoadFunctions("TESSARO_GDAL",
                       {"libgdal.so.38", "libgdal.so.37", "libgdal.so.36", "libgdal.so.35", "libgdal.so.34",
                        "libgdal.so.33", "libgdal.so.32", "libgdal.so.31", "libgdal.so.30"},
                       funzioni, &g))
        return nullptr;
    g.CPLPushErrorHandler(zitto);
    regola(g);
    g.GDALAllRegister();
    g.CPLPopErrorHandler();
    return &g;
}

}   // namespace

const Gdal* CaricaGdal() {
    static const Gdal* const g = cerca();
    return g;
}

const Gdal* GdalOppureMessaggio() {
    const Gdal* const g = CaricaGdal();
    if (g == nullptr) MostraGuasto({noErr, Frase(FraseMappe::senzaGdal), {}, -1});
    return g;
}

std::string DettoDaGdal() {
    constexpr std::size_t lungo = 300;
    const Gdal* const g = CaricaGdal();
    std::string s = g == nullptr ? std::string() : std::string(g->CPLGetLastErrorMsg());
    for (char& c : s)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    if (s.size() > lungo) s.resize(lungo);
    for (std::size_t i = s.find('^'); i != std::string::npos; i = s.find('^', i)) s[i] = ' ';
    return Utf8ToMac(s);
}

GdalMuto::GdalMuto(const Gdal& gdal) : g(gdal) {
    g.CPLPushErrorHandler(zitto);
    g.CPLErrorReset();
}
GdalMuto::~GdalMuto() { g.CPLPopErrorHandler(); }

}   // namespace tessaro
