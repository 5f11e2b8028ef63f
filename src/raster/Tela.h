// Pixel buffers of the raster jobs: 8, 16 or 32 bits a pixel, as large as memory allows, and the colours of the 8-bit ones.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace tessaro {

// What the bytes of a pixel mean: an index into `colori`, 5 bits a component, or 0x00RRGGBB in native order.
struct Formato {
    std::int16_t bit = 32;
    std::array<std::uint32_t, 256> colori{};    // of 8 bits: 0xFFRRGGBB
    std::array<std::uint8_t, 32768> vicino{};   // of 8 bits: the index nearest to a colour of 15 bits
    bool esatti = false;                        // the palette holds every colour of the picture
    bool dueColori = false;                     // of 8 bits: white and black alone, stored in 1 bit
    [[nodiscard]] std::int32_t byte() const { return bit / 8; }
    [[nodiscard]] std::uint32_t bianco() const;   // the pixel of an erased ground
    // From and to 0xFFRRGGBB, n pixels.
    void codifica(const std::uint32_t* da, std::int32_t n, std::uint8_t* a) const;
    void decodifica(const std::uint8_t* da, std::int32_t n, std::uint32_t* a) const;
};
struct FonteRighe;
// The format of a depth of 1, 8, 16 or 32 bits for a picture. Of 8 bits: the picture's own colours when they are 256 at
// most, greys when all of it is grey, else the system's colours of six steps a component. `fonte` null: the system's.
std::unique_ptr<Formato> FormatoPer(std::int16_t bit, FonteRighe* fonte);

// Rows are rowBytes apart: ((width + 1) x bytes a pixel + 15) with the low 4 bits cleared.
struct Tela {
    std::int32_t larghezza = 0, altezza = 0, byte = 4;
    std::int64_t rowBytes = 0;
    struct Libera {
        void operator()(std::uint8_t* p) const { std::free(p); }
    };
    std::unique_ptr<std::uint8_t[], Libera> dati;
    [[nodiscard]] std::uint8_t* riga(std::int32_t y) const { return dati.get() + y * rowBytes; }
    [[nodiscard]] std::uint32_t passo() const { return static_cast<std::uint32_t>(rowBytes / byte); }   // in pixels
};
inline std::int64_t RigaTela(std::int64_t larghezza, std::int64_t byte) {
    return ((larghezza + 1) * byte + 15) & ~15LL;
}
inline std::int64_t MemoriaTela(std::int64_t w, std::int64_t h, std::int64_t byte) { return RigaTela(w, byte) * h; }

// False, and `t` untouched, when a side is not above 0 or memory is short; `cancellata`: filled with the ground.
[[nodiscard]] bool NuovaTela(Tela& t, std::int64_t w, std::int64_t h, const Formato& f, bool cancellata);

}   // namespace tessaro
