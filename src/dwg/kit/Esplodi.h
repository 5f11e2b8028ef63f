// Entities moved by a matrix, and inserts taken apart into what they show.
#pragma once

#include <cstdint>

#include "dwg/kit/OdDbDatabase.h"

namespace tessaro {

// From the block of an insert to where the insert stands, of its array's column and row.
OdGeMatrix3d MatriceInserto(const OdDbBlockBase& inserto, const OdGePoint3d& origineBlocco, std::int32_t colonna,
                            std::int32_t riga);

// The entity moved by the matrix. What a stretched or slanted circle or arc becomes is an ellipse; arcs of a stretched
// polyline become points on them, marked `suddiviso`. An insert keeps a matrix of its own.
OdDbEntityPtr getTransformedCopy(const OdDbEntity& e, const OdGeMatrix3d& m);

// The parts of one insert, appended to a block: by block and layer "0" mean the insert's own; attributes come as they
// stand, and of definitions only constant ones. False when the limit of entities of that block stopped it.
bool explodeToBlock(OdDbDatabase& db, const OdDbBlockBase& inserto, OdDbObjectId dentro, std::size_t limite);

// Every insert of model space exploded into it and marked erased, also those that come with others. Blocks that hold
// themselves end at a depth. False when the limit was met: what came first is there.
bool explodeDatabaseBlock(OdDbDatabase& db, std::size_t limite);

// The parts of a dimension's picture, in world coordinates, without its definition points.
std::vector<OdDbEntityPtr> EsplodiQuota(const OdDbDatabase& db, const OdDbDimension& quota);

}   // namespace tessaro
