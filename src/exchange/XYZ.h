// The point list: plain text with a layout that the user declares, read into markers and written from all points.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "exchange/Resoconto.h"
#include "platform/Files.h"
#include "text/PascalString.h"

namespace tessaro {

extern PStr255 filexyz;       // name of the last list written; FaiXYZAsci
extern std::string vrefrel;   // its folder, UTF-8

bool ApriXYZ(FSSpec& file);   // the file request
// The open file into markers behind the last record, and the report; the caller closes it, unless RefNum is 0.
void LeggiXYZ();
// The record at that place becomes a marker at a real position with the current attributes; without a tag the one of new
// markers, cut when it is too long. False when the point is in another reference system and has no place in the drawing's.
bool PuntoXYZ(std::int32_t posto, double x, double y, double z, std::string_view aref, bool& tagliato);
Scritti ScriviXYZ();   // all points of the drawing into the open file
void ApriXYZScr();     // asks where to write and opens it as RefNum; cancelling sets uscita
void FaiXYZAsci();

// How a list's real coordinates become the drawing's, set at start by who knows reference systems. Null: they are the
// drawing's already.
struct ViaDeiPunti {
    std::string (*comincia)() = nullptr;   // before a list: what forbids its reading (Mac Roman), empty for nothing
    bool (*porta)(double& X, double& Y) = nullptr;   // one point, in place; false when it cannot be carried over
    std::string (*nota)() = nullptr;   // behind the last point: for the report (Mac Roman), empty for nothing
};
extern ViaDeiPunti viaDeiPunti;

// A field's code: above 0 it is good. Otherwise alert 3007 with the line number: button 1 goes on (uscita is taken
// back), button 2 closes the file (RefNum becomes 0) and sets uscita.
void ContrErr(std::int16_t code, std::int32_t& line);

}   // namespace tessaro
