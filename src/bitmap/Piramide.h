// A stored picture ready for the screen: its full pixels where they cost least, and halved copies for zooming out.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "bitmap/Riduci.h"
#include "platform/pict/RighePict.h"

namespace tessaro {

// One decoded level: 2^k times smaller than the frame.
struct Livello {
    std::int32_t width = 0, height = 0;
    std::vector<std::uint32_t> pixels;   // 0xFFRRGGBB
};
inline constexpr std::int64_t bilancioImmagini = 420LL << 20;   // bytes of decoded pixels

// Packed pixels are read row by row out of the stored bytes and never unpacked as a whole. A coded image (JPEG) is
// decoded small first; whole only when it is shown that large, and then the half-size copy is left out where both would
// pass the budget. Copies are made when they are first wanted.
class Piramide {
public:
    explicit Piramide(std::string_view pict);   // the bytes must outlive it
    enum class Specie : std::uint8_t { figure, righe, codificata };
    [[nodiscard]] Specie specie() const { return genere; }   // figure: no single raster, to be played
    [[nodiscard]] std::int32_t width() const { return largo; }
    [[nodiscard]] std::int32_t height() const { return alto; }

    // The coarsest source that is at least as fine as 2^-esponente; `fatto` says how fine it is. Null when the picture
    // cannot be decoded.
    FonteRighe* livello(int esponente, int& fatto);
    FonteRighe* intera();                                         // all pixels, whatever the budget says; null likewise
    [[nodiscard]] std::int64_t memoria() const;                   // bytes held now
    [[nodiscard]] std::int64_t memoriaPer(int esponente) const;   // bytes held once that level is there

private:
    static constexpr int maxLivelli = 12;
    struct FonteLivello;
    struct FontePict;
    struct FontePiena;
    bool decodifica(int esponente);
    bool decodificaIntera();
    void catena();   // the copies below the finest one
    [[nodiscard]] int primoDimezzato() const;
    [[nodiscard]] bool intereCiStanno() const;
    Specie genere = Specie::figure;
    ImmagineCompressa compressa;
    std::unique_ptr<FonteRighe> piena;   // level 0
    std::vector<std::unique_ptr<FonteRighe>> livelli;
    std::int64_t bytePieni = 0;
    std::int32_t largo = 0, alto = 0;
    bool persa = false;   // it could not be decoded
};

}   // namespace tessaro
