// GDAL by its C interface, loaded when a map is first read or written. Only what is called is declared: the names, the
// types and the values of the enumerations are those of GDAL's own headers (gdal.h, ogr_api.h, ogr_srs_api.h).
#pragma once

#include <cstdint>
#include <string>

namespace tessaro {

namespace gdal {

using Oggetto = void*;                // any of the library's handles
using Opzioni = const char* const*;   // NAME=VALUE, ended by a null

// Flags of GDALOpenEx.
inline constexpr unsigned int soloRaster = 0x02, soloVettori = 0x04;
// Kinds of pixels.
inline constexpr int pixelByte = 1, pixelDouble = 7;
// What a band is about.
inline constexpr int bandaGrigia = 1, bandaTavola = 2, bandaRossa = 3, bandaVerde = 4, bandaBlu = 5, bandaAlfa = 6;
inline constexpr int legge = 0, scrive = 1;
// Kinds of geometries, flattened.
inline constexpr unsigned int ignota = 0, punto = 1, linea = 2, poligono = 3, multiPunto = 4, multiLinea = 5,
                              multiPoligono = 6, raccolta = 7, triangolo = 17;
inline constexpr unsigned int conZ = 0x80000000U;   // added to the first seven
// Kinds of fields.
inline constexpr int campoIntero = 0, campoReale = 2, campoTesto = 4;

struct ColorEntry {
    short c1, c2, c3, c4;   // red, green, blue, alpha
};
struct ControlPoint {
    char *id, *info;
    double pixel, line;   // from the upper left corner of the raster, not of its first pixel's middle
    double x, y, z;
};
struct Envelope {
    double minX, maxX, minY, maxY;
};

}   // namespace gdal

struct Gdal {
    using O = gdal::Oggetto;
    // --- the library
    void (*GDALAllRegister)();
    void (*CPLSetConfigOption)(const char* key, const char* value);
    void (*CPLPushErrorHandler)(void (*handler)(int, int, const char*));
    void (*CPLPopErrorHandler)();
    void (*CPLErrorReset)();
    const char* (*CPLGetLastErrorMsg)();
    int (*CPLGetLastErrorType)();   // 3 and 4: failure, fatal
    void (*VSIFree)(void* p);
    // --- datasets
    O (*GDALGetDriverByName)(const char* name);
    O(*GDALOpenEx)
    (const char* path, unsigned int flags, gdal::Opzioni drivers, gdal::Opzioni open, gdal::Opzioni siblings);
    O (*GDALCreate)(O driver, const char* path, int width, int height, int bands, int type, gdal::Opzioni options);
    void (*GDALClose)(O dataset);
    void (*GDALFlushCache)(O dataset);
    int (*GDALSetMetadataItem)(O object, const char* name, const char* value, const char* domain);
    // --- rasters
    int (*GDALGetRasterXSize)(O dataset);
    int (*GDALGetRasterYSize)(O dataset);
    int (*GDALGetRasterCount)(O dataset);
    int (*GDALGetGeoTransform)(O dataset, double* six);
    int (*GDALSetGeoTransform)(O dataset, const double* six);
    int (*GDALGetGCPCount)(O dataset);
    const gdal::ControlPoint* (*GDALGetGCPs)(O dataset);
    O (*GDALGetGCPSpatialRef)(O dataset);
    O (*GDALGetSpatialRef)(O dataset);
    int (*GDALSetSpatialRef)(O dataset, O srs);
    O (*GDALGetRasterBand)(O dataset, int band);
    int (*GDALGetRasterDataType)(O band);
    int (*GDALGetRasterColorInterpretation)(O band);
    int (*GDALSetRasterColorInterpretation)(O band, int what);
    O (*GDALGetRasterColorTable)(O band);
    int (*GDALGetColorEntryCount)(O table);
    int (*GDALGetColorEntryAsRGB)(O table, int index, gdal::ColorEntry* out);
    double (*GDALGetRasterNoDataValue)(O band, int* given);
    int (*GDALComputeRasterMinMax)(O band, int approximate, double* two);
    int (*GDALRasterIO)(O band, int how, int x, int y, int w, int h, void* data, int bufferW, int bufferH, int type,
                        int pixelSpace, int lineSpace);
    int (*GDALDatasetRasterIO)(O dataset, int how, int x, int y, int w, int h, void* data, int bufferW, int bufferH,
                               int type, int bands, int* bandMap, int pixelSpace, int lineSpace, int bandSpace);
    int (*GDALBuildOverviews)(O dataset, const char* resampling, int count, const int* list, int bands,
                              const int* bandList, int (*progress)(double, const char*, void*), void* data);
    // --- layers
    int (*GDALDatasetGetLayerCount)(O dataset);
    O (*GDALDatasetGetLayer)(O dataset, int n);
    O (*GDALDatasetCreateLayer)(O dataset, const char* name, O srs, unsigned int type, gdal::Opzioni options);
    int (*GDALDatasetStartTransaction)(O dataset, int force);
    int (*GDALDatasetCommitTransaction)(O dataset);
    const char* (*OGR_L_GetName)(O layer);
    void (*OGR_L_ResetReading)(O layer);
    O (*OGR_L_GetNextFeature)(O layer);
    std::int64_t (*OGR_L_GetFeatureCount)(O layer, int force);
    int (*OGR_L_GetExtent)(O layer, gdal::Envelope* out, int force);
    O (*OGR_L_GetSpatialRef)(O layer);
    O (*OGR_L_GetLayerDefn)(O layer);
    int (*OGR_L_CreateField)(O layer, O field, int approximate);
    int (*OGR_L_CreateFeature)(O layer, O feature);
    // --- fields
    O (*OGR_Fld_Create)(const char* name, int type);
    void (*OGR_Fld_Destroy)(O field);
    void (*OGR_Fld_SetWidth)(O field, int width);
    void (*OGR_Fld_SetPrecision)(O field, int decimals);
    const char* (*OGR_Fld_GetNameRef)(O field);
    int (*OGR_FD_GetFieldCount)(O definition);
    O (*OGR_FD_GetFieldDefn)(O definition, int n);
    // --- features
    O (*OGR_F_Create)(O definition);
    void (*OGR_F_Destroy)(O feature);
    int (*OGR_F_IsFieldSetAndNotNull)(O feature, int n);
    const char* (*OGR_F_GetFieldAsString)(O feature, int n);
    double (*OGR_F_GetFieldAsDouble)(O feature, int n);
    void (*OGR_F_SetFieldString)(O feature, int n, const char* value);
    void (*OGR_F_SetFieldInteger)(O feature, int n, int value);
    void (*OGR_F_SetFieldDouble)(O feature, int n, double value);
    O (*OGR_F_GetGeometryRef)(O feature);
    int (*OGR_F_SetGeometryDirectly)(O feature, O geometry);
    // --- geometries
    O (*OGR_G_CreateGeometry)(unsigned int type);
    void (*OGR_G_DestroyGeometry)(O geometry);
    unsigned int (*OGR_G_GetGeometryType)(O geometry);
    O (*OGR_G_GetLinearGeometry)(O geometry, double maxAngle, gdal::Opzioni options);
    int (*OGR_G_GetGeometryCount)(O geometry);
    O (*OGR_G_GetGeometryRef)(O geometry, int n);
    int (*OGR_G_AddGeometryDirectly)(O geometry, O part);
    int (*OGR_G_GetPointCount)(O geometry);
    double (*OGR_G_GetX)(O geometry, int n);
    double (*OGR_G_GetY)(O geometry, int n);
    double (*OGR_G_GetZ)(O geometry, int n);
    void (*OGR_G_AddPoint)(O geometry, double x, double y, double z);
    // --- reference systems
    O (*OSRNewSpatialReference)(const char* wkt);
    int (*OSRSetFromUserInput)(O srs, const char* text);
    int (*OSRExportToWkt)(O srs, char** wkt);
    void (*OSRDestroySpatialReference)(O srs);
    void (*OSRSetAxisMappingStrategy)(O srs, int strategy);   // 0: easting or longitude first
    int (*OSRAutoIdentifyEPSG)(O srs);
    const char* (*OSRGetAuthorityName)(O srs, const char* key);
    const char* (*OSRGetAuthorityCode)(O srs, const char* key);
};

// The formats that are read, and no others.
extern const char* const driverVettori[];
extern const char* const driverRaster[];

// Null when the library is not installed or lacks one of these functions; loads it at the first call. The environment's
// TESSARO_GDAL names another file of it.
const Gdal* CaricaGdal();
// The same, and the message that says what to install when it is null.
const Gdal* GdalOppureMessaggio();
// What the library said last, for a person (Mac Roman); empty when it said nothing.
std::string DettoDaGdal();

// Holds back what the library would print, and forgets what it said before, while one lives.
class GdalMuto {
public:
    explicit GdalMuto(const Gdal& gdal);
    ~GdalMuto();
    GdalMuto(const GdalMuto&) = delete;
    GdalMuto& operator=(const GdalMuto&) = delete;

private:
    const Gdal& g;
};

// A dataset, or none, that is closed at the end of its block.
class Aperto {
public:
    Aperto(const Gdal& gdal, gdal::Oggetto dataset) : g(gdal), ds(dataset) {}
    ~Aperto() { chiudi(); }
    Aperto(const Aperto&) = delete;
    Aperto& operator=(const Aperto&) = delete;
    operator gdal::Oggetto() const { return ds; }   // NOLINT: it stands for its handle
    void chiudi() { poni(nullptr); }
    void poni(gdal::Oggetto altro) {
        if (ds != nullptr) g.GDALClose(ds);
        ds = altro;
    }

private:
    const Gdal& g;
    gdal::Oggetto ds;
};

}   // namespace tessaro
