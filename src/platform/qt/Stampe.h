// What sessions and dialogs of printing share. For the files of platform/qt only.
#pragma once

#include <QPrinterInfo>

#include "platform/Printing.h"

namespace tessaro {

// The printer that the settings name, or the default one; null when there is none.
QPrinterInfo stampanteDi(const PMPrintSettings& s);

}   // namespace tessaro
