// The drawing on paper at its true size: session, page format and settings that are kept, and the pages themselves.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Printing.h"

namespace tessaro {

extern PMPrintSession printSession;   // of the operation under way; null between operations
extern std::string hPageFormat;       // flattened page format, kept between operations; empty until first made
extern std::string hPrintSettings;    // flattened print settings, the same
extern std::int16_t destTypeP;        // destination kept from the print dialog: PMDestinationType
extern std::string destFormatP;       // its document format
extern std::string destLocationP;     // its file, UTF-8
extern Rect rectgr;                   // the adjusted page rectangle, whole points

void SetUpPrPort();   // forgets format and settings

// Each gives the platform's status: 0, 128 when the person cancelled. What could not be printed is said in alert 9145.
OSStatus Stampa();              // print dialog, then the pages
OSStatus DoPageSetupDialog();   // paper and margins
OSStatus DoPrintSetup();        // the print dialog alone
OSStatus DoDefault(PMPrintSession session);
OSStatus DoPrint();
// The pages; the view is as it was behind it. DisegnaPict stays at 1 until DopoStampa.
OSStatus Print_Dis(const PMPageFormat& pageFormat, const PMPrintSettings& printSettings);

// The next command or click after a print: control points and selection are shown again. True when a repaint is due.
bool DopoStampa();

}   // namespace tessaro
