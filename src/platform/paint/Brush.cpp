// Transfer modes as raster operations, and runs of patterned pixels.
#include "platform/paint/Brush.h"

#include <algorithm>
#include <bit>

namespace tessaro {

namespace {

// Modes 0..7 are the source modes of the same meaning; 4..7 and 12..15 take the pattern inverted. What is none of
// these draws as copy.
std::int16_t patternMode(std::int16_t mode) {
    const bool known = mode >= 0 && mode <= 15;
    return known ? static_cast<std::int16_t>(mode | 8) : static_cast<std::int16_t>(patCopy);
}

// Operations by pattern bit, clear and set, of the modes 8 to 11.
std::array<RasterOp, 2> opsOf(std::int16_t mode, std::uint32_t fore, std::uint32_t back) {
    constexpr RasterOp leave{};
    switch (mode) {
    case patOr: return {leave, RasterOp{0, fore}};
    case patXor: return {leave, RasterOp{~0U, ~fore & 0x00FFFFFFU}};
    case patBic: return {leave, RasterOp{0, back}};
    default: return {RasterOp{0, back}, RasterOp{0, fore}};
    }
}

// Turned so that the first device pixel's bit is bit 0 of row 0: a pattern belongs to logical coordinates, and the
// origin tells which of them the first pixel has.
std::uint64_t bitsOf(const Pattern& p, Point origin) {
    std::uint64_t bits = 0;
    for (std::uint32_t row = 0; row < 8; ++row) {
        const std::uint8_t source = p.pat[(row + static_cast<std::uint32_t>(origin.v)) & 7U];
        const auto turned = std::rotl(source, static_cast<int>(static_cast<std::uint32_t>(origin.h) & 7U));
        for (std::uint32_t column = 0; column < 8; ++column)
            if ((turned >> (7 - column)) & 1) bits |= std::uint64_t{1} << (8 * row + column);
    }
    return bits;
}

}   // namespace

void Brush::make(const Key& key) {
    key_ = key;
    pronte_ = 0;
    const std::int16_t mode = patternMode(key.mode);
    bits_ = bitsOf(key.pattern, key.origin);
    if (mode >= 12) bits_ = ~bits_;
    ops_ = opsOf(static_cast<std::int16_t>(mode >= 12 ? mode - 4 : mode), pixelOf(key.foreground),
                 pixelOf(key.background));
    if (bits_ == 0) ops_[1] = ops_[0];

    for (std::size_t i = 0; i < cella_.size(); ++i) cella_[i] = ops_[(bits_ >> i) & 1U];
    for (std::size_t i = 0; i < cella_.size(); ++i) tinte_[i] = cella_[i].flip;
    const bool copre = ops_[0].keep == 0 && ops_[1].keep == 0, inverte = ops_[0].keep == ~0U && ops_[1].keep == ~0U;
    tratto_ = copre ? Tratto::copre : inverte ? Tratto::inverte : Tratto::misto;
    kind_ = Kind::pattern;
    const bool uniform = bits_ == 0 || bits_ == ~std::uint64_t{0};
    if (uniform && ops_[1].keep == 0) kind_ = Kind::solid;
    if (uniform && ops_[1].keep != 0) kind_ = ops_[1].flip == 0 ? Kind::nothing : Kind::flip;
    periodo_ = 8 * key.ratio * std::max(1, static_cast<std::int32_t>(lunghezza) / (8 * key.ratio));
    potenza_ = std::has_single_bit(static_cast<std::uint32_t>(key.ratio));
    scorri_ = std::countr_zero(static_cast<std::uint32_t>(key.ratio));
}

void Brush::expand(std::size_t patternRow) {
    Riga& riga = righe_[patternRow];
    for (std::int32_t x = 0; x < periodo_; ++x) {
        const std::size_t column = static_cast<std::size_t>(x / key_.ratio) & 7U;
        const RasterOp& op = cella_[8 * patternRow + column];
        riga.keep[static_cast<std::size_t>(x)] = op.keep;
        riga.flip[static_cast<std::size_t>(x)] = op.flip;
    }
    pronte_ |= 1U << patternRow;
}

void Brush::patternSpan(std::uint32_t* row, std::int32_t y, std::int32_t x0, std::int32_t x1) {
    const std::int32_t logicalRow = potenza_ ? y >> scorri_ : y / key_.ratio;
    const auto patternRow = static_cast<std::size_t>(logicalRow & 7);
    if (((pronte_ >> static_cast<int>(patternRow)) & 1U) == 0) expand(patternRow);
    const Riga& riga = righe_[patternRow];
    std::int32_t phase = potenza_ ? x0 & (static_cast<std::int32_t>(lunghezza) - 1) : x0 % periodo_;
    while (x0 < x1) {
        const std::int32_t count = std::min(periodo_ - phase, x1 - x0);
        std::uint32_t* const out = row + x0;
        const std::uint32_t* const keep = riga.keep.data() + phase;
        const std::uint32_t* const flip = riga.flip.data() + phase;
        for (std::int32_t i = 0; i < count; ++i) out[i] = (out[i] & keep[i]) ^ flip[i];
        x0 += count;
        phase = 0;
    }
}

}   // namespace tessaro
