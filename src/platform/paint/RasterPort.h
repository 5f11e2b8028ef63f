// A drawing port over plain 32-bit pixels: the window's port, off-screen rasters and previews are all of this kind.
// Logical coordinates come in; the port multiplies them by its ratio and draws whole device pixels.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/paint/Brush.h"
#include "platform/Quickdraw.h"

namespace tessaro {

// A rectangle of device pixels, half-open, counted from the memory's first pixel.
struct DeviceRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    [[nodiscard]] bool empty() const { return right <= left || bottom <= top; }
};

// What was touched since it was last cleared, as a few device rectangles that may overlap. Adding is cheap; far apart
// places stay apart, so that a moved cross and a changed read-out do not make the whole window dirty.
class Sporco {
public:
    void add(const DeviceRect& r) {
        if (holds(parts_[ultimo_], r)) return;
        // A repaint jumps about in few large parts: the one that holds it takes it, before anything grows.
        for (std::size_t i = 0; i < used_; ++i) {
            if (!holds(parts_[i], r)) continue;
            ultimo_ = i;
            return;
        }
        merge(r);
    }
    void clear() {
        parts_ = {};
        used_ = ultimo_ = 0;
    }
    [[nodiscard]] bool empty() const { return used_ == 0; }
    // Disjoint rectangles in logical pixels, rounded outward, counted from the port's top left pixel (not from its
    // origin).
    [[nodiscard]] Region region(std::int32_t ratio) const;

private:
    static bool holds(const DeviceRect& a, const DeviceRect& r) {
        return r.left >= a.left && r.right <= a.right && r.top >= a.top && r.bottom <= a.bottom;
    }
    void merge(const DeviceRect& r);
    std::array<DeviceRect, 6> parts_{};
    std::size_t used_ = 0;
    std::size_t ultimo_ = 0;   // the part that took the last rectangle
};

struct WideRect;
struct MascheraTesto;

class RasterPort final : public GrafPort {
public:
    RasterPort();   // without pixels: draws nowhere until resized
    RasterPort(std::int32_t width, std::int32_t height, std::int32_t scale);
    // A port over the pixels of `of`, with its pen, text and colours, for a thread that draws within `part` of its clip. Good
    // until `of` is resized; what it touches is not told to `of`.
    RasterPort(RasterPort& of, const Rect& part);
    ~RasterPort() override;   // leaves the current port when it is this one

    // New white pixels, all of them dirty; origin 0, the clip is the whole port. Pen, text and colours stay. Sizes are
    // logical and below 1 give a port without pixels; the ratio is held to 1..8. Throws std::bad_alloc when memory
    // lacks, and then leaves the port as it was.
    void resize(std::int32_t width, std::int32_t height, std::int32_t scale);

    // The memory: 0xFFRRGGBB in native order, deviceHeight() rows of rowPixels(), good until the next resize. Who
    // writes here directly calls touch().
    [[nodiscard]] std::uint32_t* pixels() { return base_; }
    [[nodiscard]] const std::uint32_t* pixels() const { return base_; }
    [[nodiscard]] std::ptrdiff_t rowPixels() const { return width_; }
    [[nodiscard]] std::int32_t deviceWidth() const { return width_; }
    [[nodiscard]] std::int32_t deviceHeight() const { return height_; }
    // One device pixel, counted from the memory's first; 0 outside.
    [[nodiscard]] std::uint32_t pixel(std::int32_t x, std::int32_t y) const {
        return x < 0 || y < 0 || x >= width_ || y >= height_ ? 0U : *at(x, y);
    }
    // For CopyBits out of this port: the bounds are device pixels from (0, 0).
    [[nodiscard]] PixMap pixMap() const { return PixMap{base_, width_, Rect{0, 0, height_, width_}}; }

    // Lines and frames of ovals and arcs in one solid colour take of each pixel the share that they cover. For screens.
    bool smooth = false;
    Sporco sporco;
    void touch(const Rect& logical);   // marks as dirty
    Region PrendiSporco();             // the dirty region (logical, from the top left pixel), which becomes empty

    // Lays a coverage mask over the pixels in the text's mode and colours, the mask's pen at `at`.
    void mask(const MascheraTesto& m, Point at);

    // Moves the pixels of r that the clip allows; gives what is uncovered, erased to the background.
    Region scroll(const Rect& r, std::int32_t dh, std::int32_t dv);

    void stdLine(Point from, Point to) override;
    void stdRect(GrafVerb verb, const Rect& r, const Pattern& fillPattern) override;
    void stdOval(GrafVerb verb, const Rect& r, const Pattern& fillPattern) override;
    void stdArc(GrafVerb verb, const Rect& r, std::int32_t start, std::int32_t sweep,
                const Pattern& fillPattern) override;
    void stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) override;
    void stdRgn(GrafVerb verb, const Region& r, const Pattern& fillPattern) override;
    void stdBits(const PixMap& bits, const Rect& src, const Rect& dst) override;
    void stdText(std::string_view macRoman) override;
    void stdComment(std::int16_t kind, std::string_view data) override;

private:
    [[nodiscard]] std::uint32_t* at(std::int32_t x, std::int32_t y) {
        return base_ + static_cast<std::ptrdiff_t>(y) * width_ + x;
    }
    [[nodiscard]] const std::uint32_t* at(std::int32_t x, std::int32_t y) const {
        return base_ + static_cast<std::ptrdiff_t>(y) * width_ + x;
    }
    // Logical coordinates as device pixels.
    [[nodiscard]] std::int64_t deviceX(std::int64_t h) const { return (h - origin.h) * ratio; }
    [[nodiscard]] std::int64_t deviceY(std::int64_t v) const { return (v - origin.v) * ratio; }
    [[nodiscard]] WideRect device(const Rect& r) const;
    [[nodiscard]] DeviceRect devicePart(const Rect& clipPart) const;   // held to the port and to the memory
    template <class Draw>
    void perParti(const WideRect& bounds, Draw draw);

    Brush& penBrush();
    Brush& verbBrush(GrafVerb verb, const Pattern& fillPattern);
    void thinLine(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1, const Brush& brush);
    bool shortLine(Point from, Point to, const Brush& brush);
    void stroke(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1, std::int64_t penWidth,
                std::int64_t penHeight, Brush& brush);
    // From the pen's place at one end to that at the other; they lie in different rows and columns.
    void smoothLine(const WideRect& from, const WideRect& to, std::uint32_t colour);
    // Degrees clockwise from straight up, as stdArc's.
    void smoothRing(const WideRect& whole, double penWidth, double penHeight, std::int32_t start, std::int32_t sweep,
                    std::uint32_t colour);
    void paintRect(const WideRect& r, Brush& brush);
    void paintPoly(const Polygon& p, Brush& brush);
    void copySameSize(const PixMap& bits, const DeviceRect& area, std::int64_t dx, std::int64_t dy);

    struct Scansione;   // Scan.h

    std::vector<std::uint32_t> memory_;   // empty for a port over the pixels of another
    std::uint32_t* base_ = nullptr;       // the first pixel
    std::int32_t width_ = 0;              // device pixels
    std::int32_t height_ = 0;             // device pixels
    Brush penna_;                         // the pen's, kept as long as pen and colours stay the same
    std::unique_ptr<Scansione> scansione_;
    Brush riempi_;   // the last fill's, erase's or invert's
};

}   // namespace tessaro
