// The parts of the DXF writer, in the order of the file.
#pragma once

#include <cstdint>

#include "exchange/BufferDXF.h"
#include "exchange/Resoconto.h"

namespace tessaro {

struct ScritturaDXF : Scritti {
    BufferDXF b;
};

// Each writes its section or table whole. A disk that refuses is told at the end, by the writer's buffer.
void ScriviHeader(ScritturaDXF& s);
void ControllaLucidi();   // names and use of the sheets, for the tables
void ScriviTableLTypeDXF(ScritturaDXF& s);
void ScriviTableLayerDXF(ScritturaDXF& s);
void ScriviTableStyleDXF(ScritturaDXF& s);
void ScriviEntitiesDXF(ScritturaDXF& s);

}   // namespace tessaro
