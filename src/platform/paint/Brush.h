// How a verb changes pixels: transfer mode, pattern and colours boiled down to one operation for set and one for clear
// pattern bits, and the loop that applies it to a run of pixels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/Quickdraw.h"

namespace tessaro {

// Every transfer mode is of this form: pixel = (pixel & keep) ^ flip.
struct RasterOp {
    std::uint32_t keep = ~0U;
    std::uint32_t flip = 0;
};

// 0xFFRRGGBB of a colour.
inline std::uint32_t pixelOf(const RGBColor& c) {
    return 0xFF000000U | (static_cast<std::uint32_t>(c.red >> 8) << 16)
           | (static_cast<std::uint32_t>(c.green >> 8) << 8) | static_cast<std::uint32_t>(c.blue >> 8);
}

// A coordinate moved on; one that leaves 32 bits wraps, as any bytes may stand in a picture.
constexpr std::int32_t avanti(std::int32_t from, std::int32_t by) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(from) + static_cast<std::uint32_t>(by));
}

class Brush {
public:
    // What the brush is made of; as long as it stays the same, so does the brush.
    struct Key {
        Pattern pattern;
        RGBColor foreground;
        RGBColor background;
        std::int16_t mode = patCopy;
        std::int32_t ratio = 0;
        Point origin;
        friend bool operator==(const Key&, const Key&) = default;
    };
    enum class Kind : std::uint8_t {
        nothing,   // no pixel changes
        solid,     // every pixel becomes colour()
        flip,      // every pixel is xored with mask()
        pattern,   // set and clear bits differ
    };
    // What a pattern does alike to all its pixels, so that a dot needs less than the whole operation.
    enum class Tratto : std::uint8_t {
        misto,    // some pixels keep what they have
        copre,    // each becomes its colour, and what was there is not read
        inverte   // each is xored with its mask
    };

    void update(const Key& key) {
        if (!(key == key_)) make(key);
    }
    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] std::uint32_t colour() const { return ops_[1].flip; }   // of a solid brush
    [[nodiscard]] std::uint32_t mask() const { return ops_[1].flip; }     // of a flip brush
    // What happens to device pixel (x, y) of a port of ratio 1 stands at 8 * (y & 7) + (x & 7).
    [[nodiscard]] const RasterOp* cell() const { return cella_.data(); }
    [[nodiscard]] Tratto tratto() const { return tratto_; }
    // The colours or masks of a pattern that covers or inverts, at the same places.
    [[nodiscard]] const std::uint32_t* tinte() const { return tinte_.data(); }

    // Applies the brush to the pixels x0 <= x < x1 of device row y, whose first pixel is `row`.
    void span(std::uint32_t* row, std::int32_t y, std::int32_t x0, std::int32_t x1) {
        switch (kind_) {
        case Kind::nothing: return;
        case Kind::solid:
            for (std::int32_t x = x0; x < x1; ++x) row[x] = ops_[1].flip;
            return;
        case Kind::flip:
            for (std::int32_t x = x0; x < x1; ++x) row[x] ^= ops_[1].flip;
            return;
        case Kind::pattern: break;
        }
        // The few pixels that a line's row has are not worth the longer loop's start.
        if (key_.ratio != 1 || x1 - x0 > 12) return patternSpan(row, y, x0, x1);
        const RasterOp* const ops = cella_.data() + 8 * (y & 7);
        for (std::int32_t x = x0; x < x1; ++x) row[x] = (row[x] & ops[x & 7].keep) ^ ops[x & 7].flip;
    }

private:
    void make(const Key& key);
    void patternSpan(std::uint32_t* row, std::int32_t y, std::int32_t x0, std::int32_t x1);
    void expand(std::size_t patternRow);

    // A pattern row at the port's ratio, repeated: long enough for a run to be worth a loop.
    static constexpr std::size_t lunghezza = 64;
    struct Riga {
        std::array<std::uint32_t, lunghezza> keep;
        std::array<std::uint32_t, lunghezza> flip;
    };

    Key key_;
    Kind kind_ = Kind::nothing;
    std::array<RasterOp, 2> ops_;   // by pattern bit
    std::uint64_t bits_ = 0;        // bit 8 * y + x of the pattern, turned by the origin
    std::array<RasterOp, 64> cella_{};
    std::array<std::uint32_t, 64> tinte_{};
    Tratto tratto_ = Tratto::misto;
    std::int32_t periodo_ = 8;   // device pixels after which a row of righe_ starts anew
    bool potenza_ = true;        // the period is `lunghezza`, and the ratio 1 << scorri_: no divisions
    int scorri_ = 0;
    std::uint32_t pronte_ = 0;   // bit n: righe_[n] is filled
    std::array<Riga, 8> righe_{};
};

}   // namespace tessaro
