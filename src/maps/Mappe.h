// Maps of other programs: vectors as GeoPackage, Shapefile and GeoJSON, pictures as GeoTIFF, out and in. Coordinates in
// them are the drawing's real ones. Where GDAL is not installed, a message says what to install.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/FileMondo.h"
#include "platform/Files.h"

namespace tessaro {

void EsportaMappa();     // asks for the file; its suffix tells the format
void EsportaGeoTIFF();   // the selected picture
void ImportaMappa();     // asks for the file
void ImportaRaster();    // asks for the file

// Behind the request: the file's name tells the format (.gpkg, .shp, .geojson, .json). The report of what was written and
// lost, or a message; the file that was there stays when writing fails.
void ScriviMappa(const FSSpec& file);
// Elements into the drawing, as one step of Undo; the report of what came in. What cannot be read leaves the drawing as it
// is.
void LeggiMappa(const FSSpec& file);
void ScriviGeoTIFF(const FSSpec& file, std::int32_t pict);   // record of a picture
void LeggiRaster(const FSSpec& file);                        // a picture with its registration
bool NomeDiMappa(std::string_view percorso);                 // the suffix of a map of vectors
// Where a raster's pixels lie by its own tags, and its system (empty for none). False without GDAL, or when it does not
// tell.
bool MondoDelRaster(const FSSpec& file, Mondo& m, std::string& sistema);

}   // namespace tessaro
