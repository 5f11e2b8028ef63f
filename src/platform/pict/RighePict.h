// A stored picture that is one raster: its rows read where they are, so that a great scan is never unpacked as a whole.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/pict/Bits.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Compressa.h"

namespace tessaro {

// Rows of packed or plain pixel opcodes that tile the picture's frame. The picture's bytes must outlive it.
class RighePict {
public:
    // False when the picture holds anything else that draws, or pixels that leave parts of the frame open.
    bool apri(std::string_view bytes);
    [[nodiscard]] std::int32_t width() const { return largo; }
    [[nodiscard]] std::int32_t height() const { return alto; }
    [[nodiscard]] bool trasparente() const { return conBuchi; }   // pixels of alpha 0 show what is below
    // Pixels x0 to x1 (not included) of row y, into out[0].
    void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out);
    [[nodiscard]] std::int64_t memoria() const;   // bytes of the row index

private:
    struct Pezzo {
        BitsTesta testa;
        std::int32_t x = 0, y = 0;          // where its first shown pixel stands in the raster
        std::string_view dati;              // from the first row on
        std::vector<std::uint32_t> posti;   // of the rows in `dati`, one more than rows
        std::vector<std::uint32_t> banco;   // the row last asked for, unpacked
        std::int32_t rigaNelBanco = -1;
    };
    bool aggiungi(std::uint16_t op, std::string_view dati, const Rect& frame);
    static bool indicizza(Pezzo& p, Lettore l);
    void stringi();
    [[nodiscard]] bool copreTutto() const;
    std::vector<Pezzo> pezzi;
    std::int32_t largo = 0, alto = 0;
    double sx = 0, sy = 0;   // pixels per picture unit
    bool conBuchi = false;
};

// The one coded image that fills the frame of a picture without anything else that draws.
bool SolaCompressa(std::string_view bytes, ImmagineCompressa& c);

}   // namespace tessaro
