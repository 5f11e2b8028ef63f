// The raster port's memory, its dirty region, its brushes, and the figures made of rectangles.
#include "platform/paint/RasterPort.h"

#include <limits>
#include <new>

#include "platform/paint/Scan.h"

namespace tessaro {

namespace {

std::int64_t areaOf(const DeviceRect& r) {
    return static_cast<std::int64_t>(r.right - r.left) * static_cast<std::int64_t>(r.bottom - r.top);
}

DeviceRect hull(const DeviceRect& a, const DeviceRect& b) {
    return DeviceRect{std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
                      std::max(a.bottom, b.bottom)};
}

}   // namespace

// --- what is dirty

// Joins the part that grows least. A new part is opened only where joining would waste more than a strip's worth.
void Sporco::merge(const DeviceRect& r) {
    if (r.empty()) return;
    constexpr std::int64_t tolerated = 64 * 64;
    std::size_t best = 0;
    std::int64_t bestWaste = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < used_; ++i) {
        const std::int64_t waste = areaOf(hull(parts_[i], r)) - areaOf(parts_[i]) - areaOf(r);
        if (waste >= bestWaste) continue;
        best = i;
        bestWaste = waste;
    }
    if (bestWaste > tolerated && used_ < parts_.size()) {
        parts_[used_] = r;
        ultimo_ = used_++;
        return;
    }
    parts_[best] = hull(parts_[best], r);
    ultimo_ = best;
}

Region Sporco::region(std::int32_t ratio) const {
    Region result;
    for (std::size_t i = 0; i < used_; ++i) {
        const DeviceRect& part = parts_[i];
        result.add(Rect{part.top / ratio, part.left / ratio, (part.bottom + ratio - 1) / ratio,
                        (part.right + ratio - 1) / ratio});
    }
    return result;
}

// --- memory

RasterPort::RasterPort() = default;

RasterPort::RasterPort(std::int32_t width, std::int32_t height, std::int32_t scale) { resize(width, height, scale); }

RasterPort::RasterPort(RasterPort& of, const Rect& part) : base_(of.base_), width_(of.width_), height_(of.height_) {
    portRect = of.portRect;
    origin = of.origin;
    ratio = of.ratio;
    pen = of.pen;
    text = of.text;
    foreground = of.foreground;
    background = of.background;
    smooth = of.smooth;
    clip = of.clip;
    clip.intersect(part);
}

RasterPort::~RasterPort() {
    if (GetPort() == this) SetPort(nullptr);
}

void RasterPort::resize(std::int32_t width, std::int32_t height, std::int32_t scale) {
    const std::int32_t newRatio = std::clamp(scale, 1, 8);
    // Sides are held to what keeps a row's arithmetic in 32 bits; the allocation decides about the rest.
    constexpr std::int32_t longest = 1 << 27;
    const bool none = width < 1 || height < 1;
    const std::int32_t w = none ? 0 : std::min(width, longest);
    const std::int32_t h = none ? 0 : std::min(height, longest);
    std::vector<std::uint32_t> fresh;
    const auto count = static_cast<Largo>(w) * h * newRatio * newRatio;
    if (count > static_cast<Largo>(fresh.max_size())) throw std::bad_alloc();
    fresh.assign(static_cast<std::size_t>(count), 0xFFFFFFFFU);

    memory_ = std::move(fresh);
    base_ = memory_.data();
    ratio = newRatio;
    width_ = w * ratio;
    height_ = h * ratio;
    origin = Point{};
    portRect = Rect{0, 0, h, w};
    clip = Region::of(portRect);
    sporco.clear();
    if (!none) sporco.add(DeviceRect{0, 0, width_, height_});
}

void RasterPort::touch(const Rect& logicalRect) {
    const DeviceRect all{0, 0, width_, height_};
    if (const DeviceRect r = clipped(device(logicalRect), all); !r.empty()) sporco.add(r);
}

Region RasterPort::PrendiSporco() {
    Region dirty = sporco.region(ratio);
    sporco.clear();
    return dirty;
}

WideRect RasterPort::device(const Rect& r) const {
    return WideRect{deviceX(r.left), deviceY(r.top), deviceX(r.right), deviceY(r.bottom)};
}

DeviceRect RasterPort::devicePart(const Rect& clipPart) const {
    const DeviceRect all{0, 0, width_, height_};
    return clipped(device(clipPart), all);
}

// --- brushes

Brush& RasterPort::penBrush() {
    penna_.update(Brush::Key{pen.pnPat, foreground, background, pen.pnMode, ratio, origin});
    return penna_;
}

Brush& RasterPort::verbBrush(GrafVerb verb, const Pattern& fillPattern) {
    constexpr RGBColor black{};
    switch (verb) {
    case GrafVerb::frame:
    case GrafVerb::paint: return penBrush();
    case GrafVerb::erase: riempi_.update(Brush::Key{qdWhite, foreground, background, patCopy, ratio, origin}); break;
    case GrafVerb::invert: riempi_.update(Brush::Key{qdBlack, black, background, patXor, ratio, origin}); break;
    case GrafVerb::fill: riempi_.update(Brush::Key{fillPattern, foreground, background, patCopy, ratio, origin}); break;
    }
    return riempi_;
}

// --- rectangles and regions

void RasterPort::paintRect(const WideRect& r, Brush& brush) {
    perParti(r, [&](const DeviceRect& area) {
        std::uint32_t* row = at(0, area.top);
        for (std::int32_t y = area.top; y < area.bottom; ++y, row += width_) brush.span(row, y, area.left, area.right);
    });
}

void RasterPort::stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) {
    if (penHidden > 0 || EmptyRect(r)) return;
    Brush& brush = verbBrush(verb, fillPattern);
    const WideRect whole = device(r);
    if (verb != GrafVerb::frame) return paintRect(whole, brush);

    const std::int64_t scale = ratio;
    const std::int64_t penWidth = scale * pen.pnSize.h, penHeight = scale * pen.pnSize.v;
    if (penWidth < 1 || penHeight < 1) return;
    const WideRect inner{whole.left + penWidth, whole.top + penHeight, whole.right - penWidth,
                         whole.bottom - penHeight};
    if (inner.left >= inner.right || inner.top >= inner.bottom) return paintRect(whole, brush);
    paintRect(WideRect{whole.left, whole.top, whole.right, inner.top}, brush);
    paintRect(WideRect{whole.left, inner.bottom, whole.right, whole.bottom}, brush);
    paintRect(WideRect{whole.left, inner.top, inner.left, inner.bottom}, brush);
    paintRect(WideRect{inner.right, inner.top, whole.right, inner.bottom}, brush);
}

// A region's frame is what a pen that runs inside its edge covers: the region without those pixels that are farther
// from everything outside than the pen is large.
void RasterPort::stdRgn(GrafVerb verb, const Region& r, const Pattern& fillPattern) {
    if (penHidden > 0 || r.empty()) return;
    Brush& brush = verbBrush(verb, fillPattern);
    Region figure = r;
    if (verb == GrafVerb::frame) {
        const std::int32_t penWidth = pen.pnSize.h, penHeight = pen.pnSize.v;
        if (penWidth < 1 || penHeight < 1) return;
        Region outside = Region::of(r.box());
        for (const Rect& part : r.parti) outside.subtract(part);
        Region inner = Region::of(InsetRect(r.box(), penWidth, penHeight));
        for (const Rect& gap : outside.parti) inner.subtract(InsetRect(gap, -penWidth, -penHeight));
        for (const Rect& part : inner.parti) figure.subtract(part);
    }
    for (const Rect& part : figure.parti) paintRect(device(part), brush);
}

void RasterPort::stdComment(std::int16_t, std::string_view) {}

}   // namespace tessaro
