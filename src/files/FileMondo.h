// World files: the six numbers beside a raster file that tell where its pixels lie in real coordinates.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaro {

// Real coordinates of the middle of pixel (col, row), row 0 on top: X = a col + b row + c, Y = d col + e row + f. A file
// has them in the order a d b e c f, a line each.
struct Mondo {
    double a = 1, b = 0, c = 0;
    double d = 0, e = -1, f = 0;
    void pixel(double col, double row, double& X, double& Y) const {
        X = a * col + b * row + c;
        Y = d * col + e * row + f;
    }
};

// A raster's box on the sheet and its size in pixels.
struct PostoRaster {
    double x = 0, y = 0, larghezza = 0, altezza = 0;   // sheet units
    std::int32_t width = 0, height = 0;
};
// The affine nearest to the registration in force over the raster (least squares at its corners): the registration itself
// when that is a similarity.
Mondo MondoDi(const PostoRaster& r);

std::string TestoMondo(const Mondo& m);   // the shortest digits that read back to the same doubles
// False when there are not six finite numbers, or the pixels would have no area.
bool LeggiMondo(std::string_view testo, Mondo& m);

// Where the world file of a raster file is: its name for one that is written (.pgw, .tfw, .jgw), empty for a suffix that
// has none; the first that is there for one that is read (.wld and the long forms such as .tifw too), empty when none is.
std::string NomeMondo(std::string_view percorso);
std::string TrovaMondo(std::string_view percorso);

}   // namespace tessaro
