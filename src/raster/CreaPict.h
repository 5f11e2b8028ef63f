// Pictures made of the drawing: for the clipboard, for a drag to another program, for a file, and as a new element.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Files.h"
#include "platform/Scrap.h"

namespace tessaro {

inline constexpr double dpiPict = 300;   // of what goes to other programs

// A stored picture and its place on the sheet, in sheet units.
struct FiguraPict {
    std::string bytes;
    double x = 0, y = 0, larghezza = 0, altezza = 0;
};
// The one selected picture as it is stored; else the selected elements within their box, or without a selection the whole
// sheet, drawn at 300 to the inch (less where 16-bit coordinates would not reach). False when nothing came of it.
bool CreaPict(FiguraPict& p);
// The forms in which a picture is handed to other programs: its bytes as PICT, and as PNG with its resolution. What the
// PNG takes is done when somebody asks for it.
Sapori SaporiPict(const FiguraPict& p);

// Copy: `proprie` and behind them CreaPict's forms on the clipboard; alert 128 and false when there is nothing.
bool PutPicScrap(Sapori proprie = {});
void CreaImmagineDaSelezione();   // the selection's picture as a new element over it; a beep without a selection

// Requests 42 (the whole sheet at 72 to the inch) and 43 (the selected picture as it is stored), by theItem, into the
// open file: 512 bytes of header, then the picture. Alert 128 and false for one of 100 bytes or less.
bool PutPictFile(std::int16_t ref);
// The same as a PNG, TIFF or JPEG file when the name's suffix says so, the sheet at up to 300 to the inch, and, when the
// sheet is registered, the world file beside it. False when nothing good was written; what was wrong was shown.
bool SuffissoImmagine(const FSSpec& spec);
bool PutImageFile(std::int16_t ref, const FSSpec& spec);

}   // namespace tessaro
