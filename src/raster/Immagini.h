// Pictures placed on the sheet: import of raster files and the stored form.
#pragma once

#include <cstdint>
#include <string>

#include "model/Archivio.h"
#include "platform/Files.h"
#include "platform/Images.h"

namespace tessaro {

// Request 61 behind its file dialog: reads a raster file of any kind, or a PICT file with or without its 512 bytes of
// header, and stores the picture at the cursor. False with a message shown. A damaged PICT comes in with a message.
bool ImportaImmagine(const FSSpec& spec);
// The same from bytes in memory, such as the clipboard's; `nome` for the messages, Mac Roman.
bool ImportaBytes(std::string_view bytes, const std::string& nome);
// The picture in a PICT file's bytes, with or without the 512 bytes of header; empty when there is none.
std::string_view PictNelFile(std::string_view bytes);
// PICT version 2 data (without the 512-byte file header) that holds the image without loss: a JPEG's own bytes in a
// compressed-image opcode, else packed pixels of 1, 8 or 32 bits.
std::string PictDaImmagine(const Immagine& im);
// A new picture element of that size with its corner there (sheet units), in the current pattern and colour; arms no
// undo. False when the store is full: the bytes are given up.
bool MemorizzaPict(std::string bytes, double x, double y, double larghezza, double altezza);
void LeggiPict(std::int16_t ref);   // a PICT file with its 512-byte header, at the cursor
void IncollaPict();   // Paste: the clipboard's picture, or pictures of a copied list of files, at the cursor

// The frame of stored picture data; false when there is none.
bool GetPictInfo(const std::string& bytes, Rect& frame);

}   // namespace tessaro
