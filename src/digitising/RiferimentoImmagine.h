// A picture that comes in with a world file beside it may register the sheet.
#pragma once

#include <cstdint>
#include <string>

#include "files/FileMondo.h"
#include "platform/Files.h"

namespace tessaro {

// Asks whether control points 1 and 2 are to be set from the world file of the picture file that became record `n`, and
// sets them at the picture's lower left and upper right corners. Where pixels are not as wide as high, the picture's height
// on the sheet follows first, so that one scale holds in both directions. Nothing without such a file; a message for one
// that cannot be read.
void OffriMondo(const FSSpec& immagine, std::int32_t n);
// The same where the picture file itself tells where its pixels lie; `nome` is its own, Mac Roman.
void OffriMondo(const std::string& nome, const Mondo& m, std::int32_t n);

}   // namespace tessaro
