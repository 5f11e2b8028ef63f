// Ovals and arcs of the raster port, a row at a time in doubles: the cost is that of the visible rows, however large
// the figure is. A pixel belongs to an ellipse when its middle does.
#include <cmath>
#include <cstdint>

#include "platform/paint/Device.h"

namespace tessaro {

namespace {

// Pixels low <= x < high of a row. Whole numbers kept as doubles, since they may lie far outside 32 bits.
struct Tratto {
    double low = 0;
    double high = 0;
    [[nodiscard]] bool empty() const { return !(low < high); }
};

// Middles that miss an edge by rounding alone count as on it.
constexpr double appena = 1e-9;

class Ellisse {
public:
    explicit Ellisse(const WideRect& r)
        : top_(r.top), bottom_(r.bottom), cx_((static_cast<double>(r.left) + static_cast<double>(r.right)) / 2),
          cy_((static_cast<double>(r.top) + static_cast<double>(r.bottom)) / 2),
          a_((static_cast<double>(r.right) - static_cast<double>(r.left)) / 2),
          b_((static_cast<double>(r.bottom) - static_cast<double>(r.top)) / 2) {}

    // The half width is at least half a pixel, so that a narrow ellipse still fills its rectangle's height.
    [[nodiscard]] Tratto row(std::int64_t y) const {
        if (y < top_ || y >= bottom_ || a_ <= 0) return {};
        const double d = std::abs(static_cast<double>(y) + 0.5 - cy_);
        const double half = std::max(a_ / b_ * std::sqrt((b_ - d) * (b_ + d)), 0.5) + appena;
        return Tratto{std::ceil(cx_ - half - 0.5), std::floor(cx_ + half - 0.5) + 1};
    }
    [[nodiscard]] double cx() const { return cx_; }
    [[nodiscard]] double cy() const { return cy_; }
    [[nodiscard]] double a() const { return a_; }
    [[nodiscard]] double b() const { return b_; }

private:
    std::int64_t top_, bottom_;
    double cx_, cy_;
    double a_, b_;   // half axes
};

// The ring that a pen leaves inside the rectangle: the ellipse without the ellipse of the inset rectangle, and never
// thinner than the pen, across or along, so that it has no gaps where the two nearly touch.
struct Anello {
    Ellisse outer;
    Ellisse inner;
    std::int64_t penWidth;
    std::int64_t penHeight;

    [[nodiscard]] Tratto hole(std::int64_t y, const Tratto& whole) const {
        const Tratto in = inner.row(y);
        if (in.empty()) return {};
        const Tratto above = outer.row(y - penHeight);
        const Tratto below = outer.row(y + penHeight);
        const auto width = static_cast<double>(penWidth);
        return Tratto{std::max({in.low, whole.low + width, above.low, below.low}),
                      std::min({in.high, whole.high - width, above.high, below.high})};
    }
};

// One side of a straight line through the centre: the pixels x >= bound or x <= bound of a row, or all or none.
struct Lato {
    double sine, cosine;   // of the line's direction, clockwise from straight up on the unit circle

    // Pixels of row offset v (from the centre, in half axes) that lie clockwise of the direction, edge included, or
    // counterclockwise of it.
    [[nodiscard]] Tratto row(const Ellisse& e, double v, bool clockwise) const {
        constexpr double far = 1e18;
        const double sign = clockwise ? 1 : -1;
        const double slope = sign * cosine;
        if (slope == 0) return sign * sine * v >= 0 ? Tratto{-far, far} : Tratto{};
        const double bound = std::clamp(e.cx() - 0.5 - e.a() * (sine / cosine) * v, -far, far);
        const double slack = 1e-7;
        return slope > 0 ? Tratto{std::ceil(bound - slack), far} : Tratto{-far, std::floor(bound + slack) + 1};
    }
};

Tratto common(const Tratto& a, const Tratto& b) { return Tratto{std::max(a.low, b.low), std::min(a.high, b.high)}; }

// Whole quarters have exact sines, so that arcs end where their neighbours begin.
Lato direction(std::int32_t degrees) {
    constexpr double sines[4] = {0, 1, 0, -1};
    if (degrees % 90 == 0) {
        const int quarter = degrees / 90 % 4;
        return Lato{sines[quarter], sines[(quarter + 1) % 4]};
    }
    const double radians = degrees * (3.14159265358979323846 / 180);
    return Lato{std::sin(radians), std::cos(radians)};
}

// The pie piece of an arc. Both edges belong to it.
class Spicchio {
public:
    Spicchio(std::int32_t start, std::int32_t sweep) {
        std::int64_t from = start, angle = sweep;
        if (angle < 0) {
            from += angle;
            angle = -angle;
        }
        full_ = angle >= 360;
        empty_ = angle == 0;
        large_ = angle > 180;
        const auto turn = [](std::int64_t degrees) { return static_cast<std::int32_t>((degrees % 360 + 360) % 360); };
        first_ = direction(turn(from));
        last_ = direction(turn(from + angle));
    }
    [[nodiscard]] bool full() const { return full_; }
    [[nodiscard]] bool empty() const { return empty_; }

    // Draws what of `run` lies in the piece, in one run or two: up to half a turn the piece is the common part of two
    // half planes, beyond that their union.
    template <class Draw>
    void cut(const Ellisse& e, std::int64_t y, const Tratto& run, Draw draw) const {
        if (full_) return draw(run);
        const double v = (static_cast<double>(y) + 0.5 - e.cy()) / e.b();
        const Tratto after = common(run, first_.row(e, v, true));
        const Tratto before = common(run, last_.row(e, v, false));
        if (!large_) return draw(common(after, before));
        draw(after);
        if (after.empty()) return draw(before);
        draw(Tratto{before.low, std::min(before.high, after.low)});
        draw(Tratto{std::max(before.low, after.high), before.high});
    }

private:
    Lato first_{}, last_{};
    bool full_ = false, empty_ = false, large_ = false;
};

WideRect inset(const WideRect& r, std::int64_t dx, std::int64_t dy) {
    return WideRect{r.left + dx, r.top + dy, r.right - dx, r.bottom - dy};
}

}   // namespace

void RasterPort::stdArc(GrafVerb verb, const Rect& r, std::int32_t start, std::int32_t sweep,
                        const Pattern& fillPattern) {
    const Spicchio piece(start, sweep);
    if (penHidden > 0 || EmptyRect(r) || piece.empty()) return;
    const bool frame = verb == GrafVerb::frame;
    const std::int64_t scale = ratio;
    const std::int64_t penWidth = scale * pen.pnSize.h, penHeight = scale * pen.pnSize.v;
    if (frame && (penWidth < 1 || penHeight < 1)) return;

    Brush& brush = verbBrush(verb, fillPattern);
    const WideRect bounds = device(r);
    if (frame && smooth && brush.kind() == Brush::Kind::solid)
        return smoothRing(bounds, static_cast<double>(penWidth), static_cast<double>(penHeight), start, sweep,
                          brush.colour());
    const Anello ring{Ellisse(bounds), Ellisse(inset(bounds, penWidth, penHeight)), penWidth, penHeight};
    perParti(bounds, [&](const DeviceRect& area) {
        const Tratto visible{static_cast<double>(area.left), static_cast<double>(area.right)};
        std::uint32_t* row = at(0, area.top);
        for (std::int32_t y = area.top; y < area.bottom; ++y, row += width_) {
            const auto paint = [&](const Tratto& run) {
                const Tratto seen = common(run, visible);
                if (seen.empty()) return;
                brush.span(row, y, static_cast<std::int32_t>(seen.low), static_cast<std::int32_t>(seen.high));
            };
            const Tratto whole = ring.outer.row(y);
            const Tratto hole = frame ? ring.hole(y, whole) : Tratto{};
            if (hole.empty()) {
                piece.cut(ring.outer, y, whole, paint);
                continue;
            }
            piece.cut(ring.outer, y, Tratto{whole.low, hole.low}, paint);
            piece.cut(ring.outer, y, Tratto{hole.high, whole.high}, paint);
        }
    });
}

void RasterPort::stdOval(GrafVerb verb, const Rect& r, const Pattern& fillPattern) {
    stdArc(verb, r, 0, 360, fillPattern);
}

}   // namespace tessaro
