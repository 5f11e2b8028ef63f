// The resolution that an image file tells in its own head, exact: the toolkit rounds it to whole dots per metre.
#pragma once

#include <string_view>

namespace tessaro {

// Dots per inch from the first bytes of a JPEG, PNG, BMP or TIFF file; false when it tells none.
bool RisoluzioneNelFile(std::string_view bytes, double& dpiX, double& dpiY);
// What the head of a JPEG says about who can decode it.
struct TestaJpeg {
    bool valida = false;
    int width = 0, height = 0;
    int componenti = 0;
    bool comune = false;   // baseline, extended or progressive Huffman coding of 8 bits
};
TestaJpeg LeggiTestaJpeg(std::string_view bytes);

}   // namespace tessaro
