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
// markers. False when the tag had to be cut.
bool PuntoXYZ(std::int32_t posto, double x, double y, double z, std::string_view aref);
Scritti ScriviXYZ();   // all points of the drawing into the open file
void ApriXYZScr();     // asks where to write and opens it as RefNum; cancelling sets uscita
void FaiXYZAsci();

// A field's code: above 0 it is good. Otherwise alert 3007 with the line number: button 1 goes on (uscita is taken
// back), button 2 closes the file (RefNum becomes 0) and sets uscita.
void ContrErr(std::int16_t code, std::int32_t& line);

}   // namespace tessaro
