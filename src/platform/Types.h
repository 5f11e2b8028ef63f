// The plain shapes of the drawing toolbox: points, rectangles, patterns, colours and regions.
// Everything here is a value; nothing knows of a screen.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace tessaro {

using OSErr = std::int16_t;   // 0 is good; the negative numbers are those of Files.h

// A pixel of a port, relative to the port's top left; h runs right, v runs down. Logical pixels: a dense
// screen's port multiplies by its ratio on the way to its memory.
struct Point {
    std::int32_t v = 0;
    std::int32_t h = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

// Half-open: holds the pixels left <= h < right, top <= v < bottom.
struct Rect {
    std::int32_t top = 0;
    std::int32_t left = 0;
    std::int32_t bottom = 0;
    std::int32_t right = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

// 8 by 8 bits, a byte a row from the top, the high bit leftmost; a set bit takes the pen's colour.
// Patterns are anchored at the port's origin in logical pixels, not at the figure.
struct Pattern {
    std::array<std::uint8_t, 8> pat{};
    friend bool operator==(const Pattern&, const Pattern&) = default;
};

// 16 bits a component, 0 to 65535.
struct RGBColor {
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;
    friend bool operator==(const RGBColor&, const RGBColor&) = default;
};

inline bool EmptyRect(const Rect& r) { return r.right <= r.left || r.bottom <= r.top; }
inline bool PtInRect(Point p, const Rect& r) {
    return p.h >= r.left && p.h < r.right && p.v >= r.top && p.v < r.bottom;
}
inline Rect SetRect(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return Rect{top, left, bottom, right};
}
Rect SectRect(const Rect& a, const Rect& b);    // the common part, or an empty rectangle of zeros
Rect UnionRect(const Rect& a, const Rect& b);   // an empty one does not count
inline Rect OffsetRect(const Rect& r, std::int32_t dh, std::int32_t dv) {
    return Rect{r.top + dv, r.left + dh, r.bottom + dv, r.right + dh};
}
inline Rect InsetRect(const Rect& r, std::int32_t dh, std::int32_t dv) {
    return Rect{r.top + dv, r.left + dh, r.bottom - dv, r.right - dh};
}

// A set of pixels as disjoint rectangles, in no order that matters. Regions here are few rectangles: clips,
// what a scroll uncovers, what an update asks for.
struct Region {
    std::vector<Rect> parti;
    static Region of(const Rect& r);
    [[nodiscard]] bool empty() const { return parti.empty(); }
    [[nodiscard]] Rect box() const;   // the bounding rectangle
    void add(const Rect& r);          // union
    void subtract(const Rect& r);
    void intersect(const Rect& r);
    void intersect(const Region& r);
    void offset(std::int32_t dh, std::int32_t dv);
    [[nodiscard]] bool contains(Point p) const;
    [[nodiscard]] bool touches(const Rect& r) const;
};

}   // namespace tessaro
