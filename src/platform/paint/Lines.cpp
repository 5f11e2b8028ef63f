// Lines of the raster port. The path of a line is Bresenham's between its device end points, both included, and always
// runs down the screen, so that a line and its reverse are the same pixels:
//   wide lines (|dx| >= dy):  step k, 0..|dx|, lies at x0 +- k,  y0 + floor((2 k dy + |dx|) / 2|dx|)
//   steep lines:              step k, 0..dy,   lies at y0 + k,   x0 +- floor((2 k |dx| + dy) / 2 dy)
// The stroke is the union of the pens hung at the path's points; each of its pixels is touched once.
#include <cstddef>
#include <utility>

#include "platform/paint/Device.h"

namespace tessaro {

namespace {

struct Segmento {
    std::int64_t x0, y0;    // the upper end
    std::int64_t adx, dy;   // both 0 or more
    bool right;             // x grows downward along the path
    [[nodiscard]] bool wide() const { return adx >= dy; }
    [[nodiscard]] std::int64_t x1() const { return right ? x0 + adx : x0 - adx; }
};

// The same for a line that lies in the memory.
struct Segmento32 {
    std::int32_t x0, y0, adx, dy;
    bool right;
};

Segmento downward(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1) {
    if (y1 < y0) {
        std::swap(x0, x1);
        std::swap(y0, y1);
    }
    return Segmento{x0, y0, x1 < x0 ? x0 - x1 : x1 - x0, y1 - y0, x1 >= x0};
}

// The part of a thin line to draw: pixel by pixel along the longer axis, with the error that decides the other one.
struct Corsa {
    std::uint32_t* at;       // the first pixel
    std::int64_t count;      // pixels
    std::ptrdiff_t along;    // memory step of every pixel
    std::ptrdiff_t across;   // memory step when the error runs over
    std::int64_t error;      // -limit <= error < 0
    std::int64_t gain;       // 0 <= gain <= limit
    std::int64_t limit;
    std::uint32_t x, y;                               // the first pixel's place, for patterns
    std::uint32_t alongX, alongY, acrossX, acrossY;   // as along and across
};

// put(pixel, x, y) for each pixel of a clipped line.
template <class Put>
inline void walk(const Corsa& c, Put put) {
    std::uint32_t* p = c.at;
    std::int64_t error = c.error;
    std::uint32_t x = c.x, y = c.y;
    for (std::int64_t n = c.count; n > 0; --n) {
        put(*p, x, y);
        error += c.gain;
        const std::int64_t over = ~(error >> 63);   // all ones when error >= 0
        error -= c.limit & over;
        p += c.along + (c.across & static_cast<std::ptrdiff_t>(over));
        x += c.alongX + (c.acrossX & static_cast<std::uint32_t>(over));
        y += c.alongY + (c.acrossY & static_cast<std::uint32_t>(over));
    }
}

// put(pixel, x, y) for each pixel of a line that is visible whole and shorter than `corta`. The other axis comes from
// a slope with 32 bits behind the point, so that no step waits for the one before. The slope is rounded up by at most
// 2^-32; summed over k steps that stays below the least distance, 1 / 2 lungo, from the next whole number while
// k lungo < 2^31, so every floor is the exact one.
constexpr std::int32_t corta = 46340;
template <class Put>
inline void walkWhole(const Segmento32& s, std::uint32_t* memory, std::ptrdiff_t width, Put put) {
    constexpr double unit = 4294967296.0;
    constexpr std::int64_t half = std::int64_t{1} << 31;
    const bool wide = s.adx >= s.dy;
    const std::int32_t lungo = wide ? s.adx : s.dy;
    const std::int32_t corto = wide ? s.dy : s.adx;
    const std::int64_t slope = lungo == 0 ? 0 : static_cast<std::int64_t>(corto * unit / lungo) + 1;
    if (wide) {
        const std::int32_t step = s.right ? 1 : -1;
        std::int64_t side = (static_cast<std::int64_t>(s.y0) << 32) + half;
        for (std::int32_t x = s.x0, end = s.x0 + step * (lungo + 1); x != end; x += step, side += slope) {
            const auto y = static_cast<std::int32_t>(side >> 32);
            put(memory[y * width + x], x, y);
        }
        return;
    }
    // Leftward the floor is taken of the distance gone, so the side runs on a mirrored axis.
    std::uint32_t* row = memory + s.y0 * width;
    std::int64_t side = half;
    const std::int32_t mirror = s.right ? 0 : -1;
    for (std::int32_t y = s.y0; y <= s.y0 + lungo; ++y, side += slope, row += width) {
        const std::int32_t x = s.x0 + ((static_cast<std::int32_t>(side >> 32) ^ mirror) - mirror);
        put(row[x], x, y);
    }
}

// Runs draw(put) with the loop body of the brush.
template <class Draw>
inline void withBrush(const Brush& brush, Draw draw) {
    switch (brush.kind()) {
    case Brush::Kind::nothing: return;
    case Brush::Kind::solid: return draw([colour = brush.colour()](std::uint32_t& px, auto, auto) { px = colour; });
    case Brush::Kind::flip: return draw([mask = brush.mask()](std::uint32_t& px, auto, auto) { px ^= mask; });
    case Brush::Kind::pattern: break;
    }
    constexpr auto posto = [](auto x, auto y) {
        return ((static_cast<std::uint32_t>(y) & 7U) << 3U) | (static_cast<std::uint32_t>(x) & 7U);
    };
    const std::uint32_t* const tinte = brush.tinte();
    switch (brush.tratto()) {
    case Brush::Tratto::copre: return draw([=](std::uint32_t& px, auto x, auto y) { px = tinte[posto(x, y)]; });
    case Brush::Tratto::inverte: return draw([=](std::uint32_t& px, auto x, auto y) { px ^= tinte[posto(x, y)]; });
    case Brush::Tratto::misto: break;
    }
    draw([posto, ops = brush.cell()](std::uint32_t& px, auto x, auto y) {
        const RasterOp& op = ops[posto(x, y)];
        px = (px & op.keep) ^ op.flip;
    });
}

// The steps k of the path that lie in `area`, as k0 <= k < k1. Along the long axis they follow from the coordinate;
// across it from the floor in the path's formula: it is at least n from k = ceil(((2n - 1) long) / (2 short)) on.
void visibleSteps(const Segmento& s, const DeviceRect& area, std::int64_t& k0, std::int64_t& k1) {
    const std::int64_t lungo = s.wide() ? s.adx : s.dy;
    const std::int64_t corto = s.wide() ? s.dy : s.adx;
    // Offsets from the start, inclusive and exclusive, in the direction in which the path runs.
    const std::int64_t fromX = s.right ? area.left - s.x0 : s.x0 - area.right + 1;
    const std::int64_t toX = s.right ? area.right - s.x0 : s.x0 - area.left + 1;
    const std::int64_t fromY = area.top - s.y0;
    const std::int64_t toY = area.bottom - s.y0;
    k0 = std::max<std::int64_t>(0, s.wide() ? fromX : fromY);
    k1 = std::min(lungo + 1, s.wide() ? toX : toY);
    const std::int64_t fromShort = s.wide() ? fromY : fromX;
    const std::int64_t toShort = s.wide() ? toY : toX;
    const auto firstAt = [=](std::int64_t n) {
        return static_cast<std::int64_t>(ceilDiv<Largo>(static_cast<Largo>(2 * n - 1) * lungo, 2 * corto));
    };
    if (fromShort > corto || toShort <= 0) {
        k1 = k0;
        return;
    }
    if (fromShort > 0) k0 = std::max(k0, firstAt(fromShort));
    if (toShort <= corto) k1 = std::min(k1, firstAt(toShort));
}

}   // namespace

// A pen of one device pixel, at ratio 1.
void RasterPort::thinLine(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1, const Brush& brush) {
    const Segmento s = downward(x0, y0, x1, y1);
    const bool wide = s.wide();
    const std::int64_t limit = 2 * (wide ? s.adx : s.dy);
    const std::int64_t gain = 2 * (wide ? s.dy : s.adx);
    const std::ptrdiff_t stepX = s.right ? 1 : -1;
    Corsa run{};
    run.along = wide ? stepX : width_;
    run.across = wide ? width_ : stepX;
    run.alongX = wide ? static_cast<std::uint32_t>(stepX) : 0U;
    run.acrossX = wide ? 0U : static_cast<std::uint32_t>(stepX);
    run.alongY = wide ? 0U : 1U;
    run.acrossY = wide ? 1U : 0U;
    run.gain = gain;
    run.limit = limit;
    const std::int64_t xEnd = s.x1();
    const WideRect bounds{std::min(s.x0, xEnd), s.y0, std::max(s.x0, xEnd) + 1, s.y0 + s.dy + 1};
    perParti(bounds, [&](const DeviceRect& area) {
        std::int64_t k0 = 0, k1 = 0;
        visibleSteps(s, area, k0, k1);
        if (k1 <= k0) return;
        const Largo sum = static_cast<Largo>(k0) * gain + limit / 2;
        const std::int64_t side = limit == 0 ? 0 : static_cast<std::int64_t>(sum / limit);
        const std::int64_t dx = wide ? k0 : side;
        const std::int64_t x = s.right ? s.x0 + dx : s.x0 - dx;
        const std::int64_t y = s.y0 + (wide ? side : k0);
        run.count = k1 - k0;
        run.error = static_cast<std::int64_t>(sum - static_cast<Largo>(side) * limit) - limit;
        run.x = static_cast<std::uint32_t>(x);
        run.y = static_cast<std::uint32_t>(y);
        run.at = at(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
        withBrush(brush, [&](auto put) { walk(run, put); });
    });
}

// The case of nearly every line: a thin pen at ratio 1, and the whole line inside the clip's only part.
bool RasterPort::shortLine(Point from, Point to, const Brush& brush) {
    const Rect& part = clip.parti[0];
    Point a = from, b = to;
    if (b.v < a.v) std::swap(a, b);
    const std::int32_t left = std::min(a.h, b.h), right = std::max(a.h, b.h);
    if (left < part.left || right >= part.right || a.v < part.top || b.v >= part.bottom) return false;
    if (origin.h != 0 || origin.v != 0) return false;
    if (left < 0 || right >= width_ || a.v < 0 || b.v >= height_ || std::max(width_, height_) > corta) return false;
    sporco.add(DeviceRect{left, a.v, right + 1, b.v + 1});
    const Segmento32 s{a.h, a.v, right - left, b.v - a.v, b.h >= a.h};
    withBrush(brush, [&](auto put) { walkWhole(s, base_, width_, put); });
    return true;
}

// A pen of any size, row by row. In row i (from the path's first) the path reaches from step F(i) to step L(i) of its
// x axis; a pen of height h lets the stroke's row y hold the path's rows y - h + 1 to y.
void RasterPort::stroke(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1, std::int64_t penWidth,
                        std::int64_t penHeight, Brush& brush) {
    const Segmento s = downward(x0, y0, x1, y1);
    const std::int64_t xEnd = s.x1();
    const WideRect bounds{std::min(s.x0, xEnd), s.y0, std::max(s.x0, xEnd) + penWidth, s.y0 + s.dy + penHeight};
    if (s.adx == 0 || s.dy == 0) return paintRect(bounds, brush);
    perParti(bounds, [&](const DeviceRect& area) {
        const std::int64_t firstRow = area.top - s.y0;
        const std::int64_t lead = std::min(firstRow, s.dy);
        const std::int64_t trail = std::max<std::int64_t>(firstRow - penHeight + 1, 0);
        Gradini first = s.wide() ? Gradini(2 * s.adx, 2 * s.dy - s.adx - 1, 2 * s.dy, trail)
                                 : Gradini(2 * s.adx, s.dy, 2 * s.dy, trail);
        Gradini last =
            s.wide() ? Gradini(2 * s.adx, s.adx - 1, 2 * s.dy, lead) : Gradini(2 * s.adx, s.dy, 2 * s.dy, lead);
        const auto rows = [&](auto span) {
            std::uint32_t* row = at(0, area.top);
            for (std::int32_t y = area.top; y < area.bottom; ++y, row += width_) {
                const std::int64_t from = std::max<std::int64_t>(first.value(), 0);
                const std::int64_t to = std::min(last.value(), s.adx);
                const std::int64_t left = s.right ? s.x0 + from : s.x0 - to;
                const std::int64_t right = (s.right ? s.x0 + to : s.x0 - from) + penWidth;
                if (left < area.right && right > area.left)
                    span(row, y, static_cast<std::int32_t>(std::max<std::int64_t>(left, area.left)),
                         static_cast<std::int32_t>(std::min<std::int64_t>(right, area.right)));
                if (y - s.y0 - penHeight + 1 >= 0) first.next();
                if (y - s.y0 < s.dy) last.next();
            }
        };
        if (brush.kind() == Brush::Kind::solid)
            return rows(
                [colour = brush.colour()](std::uint32_t* row, std::int32_t, std::int32_t x0s, std::int32_t x1s) {
                    for (std::int32_t x = x0s; x < x1s; ++x) row[x] = colour;
                });
        rows([&](std::uint32_t* row, std::int32_t y, std::int32_t x0s, std::int32_t x1s) {
            brush.span(row, y, x0s, x1s);
        });
    });
}

void RasterPort::stdLine(Point from, Point to) {
    if (penHidden > 0 || pen.pnSize.h < 1 || pen.pnSize.v < 1) return;
    Brush& brush = penBrush();
    if (smooth && brush.kind() == Brush::Kind::solid && from.h != to.h && from.v != to.v) {
        const auto place = [this](Point p) {
            return WideRect{deviceX(p.h), deviceY(p.v), deviceX(p.h) + ratio * pen.pnSize.h,
                            deviceY(p.v) + ratio * pen.pnSize.v};
        };
        return smoothLine(place(from), place(to), brush.colour());
    }
    const bool thin = ratio == 1 && pen.pnSize.h == 1 && pen.pnSize.v == 1;
    if (thin && clip.parti.size() == 1 && shortLine(from, to, brush)) return;
    const std::int64_t scale = ratio;
    const std::int64_t x0 = deviceX(from.h), y0 = deviceY(from.v), x1 = deviceX(to.h), y1 = deviceY(to.v);
    const std::int64_t penWidth = scale * pen.pnSize.h, penHeight = scale * pen.pnSize.v;
    if (thin) return thinLine(x0, y0, x1, y1, brush);
    stroke(x0, y0, x1, y1, penWidth, penHeight, brush);
}

}   // namespace tessaro
