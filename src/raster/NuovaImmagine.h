// From a finished buffer to a picture element: the stored picture written, its record added.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Types.h"
#include "raster/Tela.h"

namespace tessaro {

class LavoroRaster;

// A side of a stored picture has 16 bits. A wider raster is told in units of several pixels, and completed to whole units
// by repeating its last column and row.
inline constexpr std::int32_t latoPict = 32767;
inline std::int32_t PixelPerUnita(std::int32_t larghezza, std::int32_t altezza) {
    const std::int32_t lato = larghezza > altezza ? larghezza : altezza;
    return lato <= latoPict ? 1 : (lato + latoPict - 1) / latoPict;
}
// By how much the completed raster is larger than the buffer.
double Completamento(std::int32_t lato, std::int32_t unita);

Rect FrameDi(const Tela& t);   // of a picture that is told in the buffer's own pixels

std::int16_t ModoDi(std::int16_t tipo);   // 1 copy, 2 or, 3 transparent to the transfer mode of stored pixels

// The picture of a whole buffer, `frame` at 72 points per inch; in one piece, and in vertical bands of 20,000 columns.
// Empty when it would pass 2^31 bytes or memory lacks.
std::string ImmagineDaTela(const Tela& t, const Formato& f, const Rect& frame, std::int16_t tipo);
std::string ExtendedStdBits(const Tela& t, const Formato& f, const Rect& dstRect, std::int16_t tipo);

// A new picture element with the bytes; width and height on the sheet. False when the job was stopped while they were
// packed, and, with alert 128, when `bytes` are 20 or fewer. A full drawing takes nothing and says nothing.
bool AggiungiImmagine(LavoroRaster& lavoro, std::string bytes, double x, double y, double larghezza, double altezza);

}   // namespace tessaro
