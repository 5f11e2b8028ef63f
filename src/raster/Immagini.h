// Pictures placed on the sheet: import of raster files, the stored form, and drawing from decoded, reduced copies.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

// Pixels of a stored picture, decoded on first use and kept under a memory budget with halved copies for zooming out.
// One decoded level: 2^k times smaller than the frame.
struct Livello {
    std::int32_t width = 0, height = 0;
    std::vector<std::uint32_t> pixels;   // 0xFFRRGGBB
};
inline constexpr std::int64_t bilancioImmagini = 420LL << 20;   // bytes of decoded pixels

}   // namespace tessaro
