// A raster file with its place, read through GDAL: bytes of any kind become pixels that a picture holds.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/FileMondo.h"
#include "maps/Gdal.h"
#include "platform/Files.h"
#include "platform/Images.h"

namespace tessaro {

class RasterLetto {
public:
    explicit RasterLetto(const Gdal& gdal) : g(gdal), ds(gdal, nullptr) {}
    bool apri(const FSSpec& file);   // false when it is no raster that is read
    [[nodiscard]] std::int32_t width() const { return w; }
    [[nodiscard]] std::int32_t height() const { return h; }
    // Where its pixels lie, and its system as the drawing names systems (empty for none). False when it does not tell.
    bool posto(Mondo& m, std::string& sistema) const;

    // Its control points where it has them instead of a place: pixels from its upper left corner, V down, and what they are
    // in `sistema`. Empty for none.
    struct Punto {
        std::string nome;   // UTF-8
        double u = 0, v = 0, x = 0, y = 0;
    };
    [[nodiscard]] std::vector<Punto> punti(std::string& sistema) const;

    // All of it: depth 8 with a palette when it has one band, else 32. False when the person stopped it, or some of it
    // could not be read, which is white then.
    bool leggi(Immagine& im, bool& fermato);

private:
    struct Banda {
        gdal::Oggetto banda = nullptr;
        bool byte = true;
        double minimo = 0, passo = 1;   // of what is stretched to 256 steps
        bool conVuoto = false;
        double vuoto = 0;
    };
    Banda banda(int n) const;
    bool righe(const Banda& b, int y, int n, std::vector<std::uint8_t>& out);
    void unaBanda(Immagine& im);
    bool palette(gdal::Oggetto banda, std::vector<RGBColor>& colori) const;

    const Gdal& g;
    Aperto ds;
    std::int32_t w = 0, h = 0;
};

}   // namespace tessaro
