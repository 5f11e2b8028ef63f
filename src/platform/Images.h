// Decoding and writing of raster files through the toolkit's readers and writers. Orientation tags are honoured.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "platform/Quickdraw.h"
#include "platform/Types.h"

namespace tessaro {

struct Immagine {
    std::int32_t width = 0;
    std::int32_t height = 0;
    double dpiX = 72;   // 72 when the file tells none
    double dpiY = 72;
    std::int16_t depth = 32;             // 1, 8 or 32: how the file holds it
    std::vector<RGBColor> palette;       // of depth 1 and 8
    std::vector<std::uint8_t> indices;   // of depth 1 (a byte a pixel, 0 or 1) and 8
    std::vector<std::uint32_t> pixels;   // of depth 32, 0xFFRRGGBB; transparent parts laid on white
    std::string jpegBytes;   // the file's own bytes when it is an upright baseline-decodable JPEG, else empty
};

// Takes the 32-bit pixels of a great image row by row, so that they never stand twice in memory.
struct RicevitoreRighe {
    virtual ~RicevitoreRighe() = default;
    virtual void inizio(const Immagine& info) = 0;        // size, resolution, depth; nothing decoded yet
    virtual void riga(const std::uint32_t* pixels) = 0;   // from the top, 0xFFRRGGBB
};

// False with a reason (Mac Roman) when the file is no picture that can be read. With jpegBytes given the image is not
// unpacked: indices and pixels stay empty. With a receiver, pixels of depth 32 go to it and `out.pixels` stays empty.
bool DecodeImageFile(const FSSpec& spec, Immagine& out, std::string& reason, RicevitoreRighe* righe = nullptr);
// The same from a file's bytes in memory.
bool DecodeImageData(std::string_view bytes, Immagine& out, std::string& reason, RicevitoreRighe* righe = nullptr);
// An upright image from bytes in any format that the toolkit reads (a picture's compressed part). 32-bit pixels.
// `reduce` 1, 2, 4 or 8: the decoder may deliver the image that much smaller, which is much faster for JPEG.
// `compact`: a grey image may come as depth 8 with its palette instead, a quarter of the memory.
bool DecodeImageBytes(std::string_view bytes, std::int32_t reduce, Immagine& out, bool compact = false);

enum class FormatoImmagine : std::uint8_t { png, tiff, jpeg };
// A file's bytes. False when the format cannot hold that size, its writer is not installed, memory lacks, or the person
// stopped the progress that is open, whose second half this is.
bool EncodeImage(FormatoImmagine formato, const PixMap& pixels, double dpiX, double dpiY, std::string& bytes);

}   // namespace tessaro
