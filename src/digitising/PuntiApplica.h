// What the table of control points is for: the sheet's registration, and the mapping for copies, pictures and the preview.
#pragma once

#include <memory>
#include <string>

#include "registration/MappaFoglio.h"
#include "registration/TabellaPunti.h"

namespace tessaro {

// Points 1 and 2 get the real coordinates of the similarity that fits the table best; where they are on the sheet stays, and
// what was not given goes to the two points of the table that are farthest apart. Real coordinates come on, the scale
// follows, and with `tutta` the read-out follows the whole mapping until points 1 and 2 change. What forbids it, in words
// (Mac Roman); empty when it was done.
std::string ApplicaPunti(bool tutta);
// The mapping of the table as it stands, onto the sheet of the similarity in force; null without a solution.
std::unique_ptr<MappaFoglio> MappaDellaTabella();
// The read-out goes back to the similarity: a sheet that was copied or rectified by the mapping must not be bent twice.
void SoloSimilitudine();

// --- points by other ways than typing
// From the markers of a layer, the tag their name; a row of that name gets its place. How many came.
std::size_t PuntiDaiMarker(TabellaPunti& t, std::int16_t lucido);
std::size_t PrimoSenzaFoglio(const TabellaPunti& t, std::size_t da);   // the row, from 0; the size when there is none

}   // namespace tessaro
