// The compressed-image opcode of a stored picture: where its image stands, in which coding, and its pixels.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Images.h"
#include "platform/pict/Lettore.h"

namespace tessaro {

struct ImmagineCompressa {
    std::uint32_t codice = 0;   // four characters: 'jpeg', 'png ', 'raw ' ...
    std::int32_t width = 0, height = 0;
    std::int16_t depth = 0;
    Rect src;                // the part shown
    double a = 1, d = 1;     // scale of the matrix
    double tx = 0, ty = 0;   // and its offset: image pixels to picture coordinates
    bool diritta = true;     // the matrix only scales and moves
    std::int16_t mode = 0;
    std::string_view dati;                     // the coded bytes
    std::string_view descrizione;              // image description with its extensions
    [[nodiscard]] Rect destinazione() const;   // picture coordinates
};

// From the opcode's data with its 32-bit length in front.
bool LeggiCompressa(std::string_view dati, ImmagineCompressa& c);
// The picture coordinates and the nested bits opcode of the uncompressed form.
bool LeggiNonCompressa(std::string_view dati, ImmagineCompressa& c, std::uint16_t& op, std::string_view& bits);
// Decodes to 32-bit pixels: plain rows here, everything else by the toolkit's readers.
bool DecodificaCompressa(const ImmagineCompressa& c, std::int32_t reduce, Immagine& out);

}   // namespace tessaro
