// A raster whose pixels lie aslant on the sheet, or in another reference system, made anew with pixels that stand upright.
#pragma once

#include "files/FileMondo.h"
#include "maps/Ingresso.h"
#include "platform/Images.h"

namespace tessaro {

// Where a raster lies on the sheet: its box, sheet units, and whether its pixels stand upright in it as they are, their
// corners within a hundredth of a pixel.
struct PostoFoglio {
    double x = 0, y = 0, larghezza = 0, altezza = 0;
    bool diritto = false;
};
// False when it lies nowhere.
bool PostoSulFoglio(const Mondo& m, Ingresso& in, std::int32_t w, std::int32_t h, PostoFoglio& p);

// The raster over the box, in pixels of the source's own size on the sheet; what it does not cover is white. A pixel is
// the four nearest, by their distance; the way back to the source is followed exactly at every sixteenth pixel and halfway
// in between, within a tenth of a source pixel. False when memory lacks or the person stopped it.
bool Ricampiona(const Immagine& da, const Mondo& m, Ingresso& in, const PostoFoglio& p, Immagine& a, bool& fermato);

}   // namespace tessaro
