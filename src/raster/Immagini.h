// Pictures placed on the sheet: import of raster files and the stored form.
#pragma once

#include <cstdint>
#include <string>

#include "model/Archivio.h"
#include "platform/Files.h"
#include "platform/Images.h"

namespace tessaro {

// Request 61 behind its file dialog: reads the file, stores the picture at the cursor. False with a message shown.
bool ImportaImmagine(const FSSpec& spec);
// PICT version 2 data (without the 512-byte file header) that holds the image without loss: a JPEG's own bytes in a
// compressed-image opcode, else packed pixels of 1, 8 or 32 bits. Empty when a side passes 32767.
std::string PictDaImmagine(const Immagine& im);
void LeggiPict(std::int16_t ref);   // a PICT file with its 512-byte header, at the cursor

// The frame of stored picture data; false when there is none.
bool GetPictInfo(const std::string& bytes, Rect& frame);

}   // namespace tessaro
