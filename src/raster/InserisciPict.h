// A stored picture that another program let fall on the sheet.
#pragma once

#include <string>

namespace tessaro {

// A picture element at the cursor from stored picture data without a file's header, at its frame's size at 72 to the inch.
// Data that are no picture give alert 128; a full store takes nothing. The addition can be undone.
void MyInsertPICT(const std::string& dati);

}   // namespace tessaro
