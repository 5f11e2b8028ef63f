// A drawing database in memory: tables, blocks with their entities, and the few header variables that a file must tell.
// Readers fill one, writers turn one into the bytes of a file, the bridge goes between it and the drawing.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "dwg/kit/OdDbTabelle.h"

namespace tessaro {

// A moment in local time as the formats tell it.
struct OdTimeStamp {
    std::int32_t giorno = 0;         // Julian day number
    std::int32_t millisecondi = 0;   // of that day
    static OdTimeStamp getLocalTime();
    [[nodiscard]] double giuliana() const { return giorno + millisecondi / 86400000.0; }
};

struct OdDbHeader {
    double ltscale = 1;
    OdGePoint3d limMin, limMax{12, 9, 0};
    OdGePoint3d extMin{1e20, 1e20, 1e20}, extMax{-1e20, -1e20, -1e20};   // of an empty drawing
    OdTimeStamp tdCreate, tdUpdate;
    std::int16_t measurement = 0;   // 0 imperial, 1 metric
    std::int16_t insUnits = 0;      // 0 unitless
    OdDbObjectId clayer;            // layer "0" when none
    OdDbObjectId textStyle;         // the default style
};

struct OdDbDizionario {
    std::string name;   // as its owner calls it; empty: the named objects'
    OdDbHandle handle = 0;
    std::vector<std::pair<std::string, OdDbHandle>> voci;
};

struct OdDbDatabase {
    OdDbHeader header;
    std::string versione;   // of the file read, "AC1015"; empty: made here
    OdDbTabella<OdDbLayerTableRecord> layers;
    OdDbTabella<OdDbLinetypeTableRecord> linetypes;
    OdDbTabella<OdDbTextStyleTableRecord> textStyles;
    OdDbTabella<OdDbRegAppTableRecord> regApps;
    OdDbTabella<OdDbBlockTableRecord> blocks;
    OdDbTabella<OdDbLayout> layouts;
    OdDbObjectId modelSpace, paperSpace;   // blocks; always there behind createDatabase

    // What AssegnaHandle gives the objects that files must have beside the records; 0 before.
    OdDbHandle handleViews = 0, handleUcs = 0, handleVport = 0, handleVportActive = 0, handleDimStyles = 0,
               handleDimStyleStandard = 0, handleVpEntHdr = 0, handleMlineStyleStandard = 0, handlePlotPlaceholder = 0;
    // The named objects dictionary first, then its ACAD_GROUP, ACAD_LAYOUT, ACAD_MLINESTYLE, ACAD_PLOTSTYLENAME.
    std::vector<OdDbDizionario> dizionari;
    OdDbHandle handseed = 0;   // the next free one

    OdDbBlockTableRecord& spazioModello() { return blocks[modelSpace]; }
    [[nodiscard]] const OdDbBlockTableRecord& spazioModello() const { return blocks[modelSpace]; }
};

inline constexpr const char* nomeSpazioModello = "*Model_Space";   // OdDbSymUtil::blockModelSpaceName
inline constexpr const char* nomeSpazioCarta = "*Paper_Space";

// A database with model and paper space and, with defaults, what no drawing is without: layer "0", line types ByBlock,
// ByLayer and Continuous, style Standard, application ACAD, two layouts.
OdDbDatabase createDatabase(bool initDefaults, std::int16_t measurement);

// Gives every object of the database its handle, from 1 on and without a gap: tables and their records, blocks with
// their begin and end, dictionaries, layouts, then the entities of each block. A polyline's vertices and its SEQEND
// follow it (not the lightweight one's), an insert's attributes and SEQEND too. The same database gets the same handles.
void AssegnaHandle(OdDbDatabase& db);
// How many handles an entity takes with its parts.
std::uint32_t HandleOccupati(const OdDbEntity& e);

}   // namespace tessaro
