// A multi-line text as the pieces that it is made of, each of one format and on one line.
#pragma once

#include <string>
#include <vector>

#include "dwg/kit/OdDbEntita.h"

namespace tessaro {

struct OdDbMTextFragment {
    OdGePoint3d location;     // world, where the letters' line begins
    OdGeVector3d direction;   // world, length 1
    double capsHeight = 0;    // drawing units
    std::string text;         // UTF-8
    std::string fontFile;     // of \f and \F; empty: the style's
    OdCmColor color;          // of \C and \c; by block: the entity's
};

// The fragments in their order. Codes that draw nothing are passed; stacked fractions stand as "a/b"; lines are broken
// at the reference width by an estimate of the letters' widths. At most 10,000 come.
std::vector<OdDbMTextFragment> explodeFragments(const OdDbMText& t);

}   // namespace tessaro
