// Whole-number geometry in device pixels: rectangles too wide for 32 bits, and values that grow along a slope.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/paint/RasterPort.h"

namespace tessaro {

// 128 bits hold every product of two device coordinates, wherever a figure's far ends lie.
using Largo = __int128;

// Device pixels before clipping, half-open: a 32-bit logical coordinate times the ratio passes 32 bits.
struct WideRect {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;
};

inline DeviceRect clipped(const WideRect& r, const DeviceRect& to) {
    return DeviceRect{static_cast<std::int32_t>(std::clamp<std::int64_t>(r.left, to.left, to.right)),
                      static_cast<std::int32_t>(std::clamp<std::int64_t>(r.top, to.top, to.bottom)),
                      static_cast<std::int32_t>(std::clamp<std::int64_t>(r.right, to.left, to.right)),
                      static_cast<std::int32_t>(std::clamp<std::int64_t>(r.bottom, to.top, to.bottom))};
}

// The quotient rounded down; the divisor is positive.
template <class Int>
constexpr Int floorDiv(Int n, Int d) {
    const Int q = n / d;
    return n % d < 0 ? q - 1 : q;
}
template <class Int>
constexpr Int ceilDiv(Int n, Int d) {
    return -floorDiv(-n, d);
}

// floor((slope * i + offset) / den) for successive i, exact, by additions alone after the start. den is positive;
// slope, offset, den and i stay below 2^40 in size.
class Gradini {
public:
    Gradini(std::int64_t slope, std::int64_t offset, std::int64_t den, std::int64_t i) : den_(den) {
        const bool small = std::max({slope, -slope, i}) < (std::int64_t{1} << 30);
        if (small) {
            const std::int64_t n = slope * i + offset;
            value_ = floorDiv(n, den);
            rest_ = n - value_ * den;
        } else {
            const Largo n = static_cast<Largo>(slope) * i + offset;
            const Largo q = floorDiv<Largo>(n, den);
            value_ = static_cast<std::int64_t>(q);
            rest_ = static_cast<std::int64_t>(n - q * den);
        }
        step_ = floorDiv(slope, den);
        stepRest_ = slope - step_ * den;
    }
    [[nodiscard]] std::int64_t value() const { return value_; }
    void next() {
        value_ += step_;
        rest_ += stepRest_;
        if (rest_ >= den_) {
            rest_ -= den_;
            ++value_;
        }
    }

private:
    std::int64_t value_, rest_;   // 0 <= rest_ < den_
    std::int64_t step_, stepRest_, den_;
};

// Calls draw(area) for each part of the clip that the figure's bounds reach, and marks it dirty.
template <class Draw>
void RasterPort::perParti(const WideRect& bounds, Draw draw) {
    for (const Rect& part : clip.parti) {
        const DeviceRect area = clipped(bounds, devicePart(part));
        if (area.empty()) continue;
        sporco.add(area);
        draw(area);
    }
}

}   // namespace tessaro
