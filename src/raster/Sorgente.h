// A stored picture as the source of a raster job: its own pixels by row, and the picture drawn at any size, strip by
// strip, so that a dense source never stands whole in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "bitmap/Riduci.h"
#include "platform/Quickdraw.h"
#include "raster/Tela.h"

namespace tessaro {

// The picture's pixels at their own resolution, row by row; null for a picture that is no single raster or is damaged.
// `pict` must outlive it. `tutta`: unpacked at once, for whoever asks for rows many times and has `memoria` bytes.
std::unique_ptr<FonteRighe> ApriFonte(std::string_view pict, std::int64_t memoria = 0);

// A raster held in memory, 0xFFRRGGBB.
struct FonteTela final : FonteRighe {
    std::vector<std::uint32_t> pixel;
    void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) override;
};

class Sorgente {
public:
    // Size on which the whole picture is drawn, pixels. `memoria`: bytes that may be spent to have it unpacked.
    Sorgente(std::string_view pict, std::int64_t larghezza, std::int64_t altezza, std::int16_t bit,
             std::int64_t memoria = 0);
    ~Sorgente();
    [[nodiscard]] const Formato& formato() const { return *forma; }
    [[nodiscard]] bool leggibile() const {
        return buona;
    }   // false: it shows nothing but the frame of a damaged picture
    [[nodiscard]] std::int32_t larghezza() const { return largo; }
    [[nodiscard]] std::int32_t altezza() const { return alto; }
    // How large a strip should be so that it costs no more than some megabytes.
    [[nodiscard]] std::int64_t pixelPerStriscia() const;
    // Draws columns [left, right) of rows [top, top + n), all inside the size. False when memory lacks.
    [[nodiscard]] bool disegna(std::int32_t top, std::int32_t n, std::int32_t left, std::int32_t right);
    // Row y of the strip drawn last, from its column `left` on.
    [[nodiscard]] const std::uint8_t* riga(std::int32_t y) const {
        return striscia.data() + std::int64_t(y - cima) * byteRiga;
    }
    // The whole picture in a buffer; false when memory lacks.
    [[nodiscard]] bool intera(Tela& t);

private:
    void righeRaster(std::int32_t top, std::int32_t n, std::int32_t left, std::int32_t right);
    void righeFigure(std::int32_t top, std::int32_t n, std::int32_t left, std::int32_t right);
    void metti(std::int32_t y, std::int32_t da, std::int32_t a, const std::uint32_t* pixel);

    std::string_view bytes;
    std::int32_t largo, alto;
    std::unique_ptr<FonteRighe> fonte;
    std::unique_ptr<Formato> forma;
    std::unique_ptr<Riduttore> riduttore;   // over the columns used last
    std::int32_t colonnaDa = 0, colonnaA = -1;
    std::vector<std::uint8_t> striscia;
    std::vector<std::uint32_t> banco;
    std::int32_t cima = 0, sinistra = 0;   // of the strip
    std::int64_t byteRiga = 0;
    bool buona = true;
};

}   // namespace tessaro
