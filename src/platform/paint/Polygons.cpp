// Polygons of the raster port. Vertices lie on the grid between the pixels; a pixel is inside when its middle is, by
// the even-odd rule, so polygons that share a side neither overlap nor leave a gap.
#include <utility>

#include "platform/paint/Scan.h"

namespace tessaro {

namespace {

struct Vertice {
    std::int64_t x, y;
};

void appendSide(std::vector<Fianco>& sides, Vertice a, Vertice b, const DeviceRect& area) {
    if (a.y > b.y) std::swap(a, b);
    if (a.y == b.y || b.y <= area.top || a.y >= area.bottom) return;
    const std::int64_t top = std::max<std::int64_t>(a.y, area.top);
    const std::int64_t bottom = std::min<std::int64_t>(b.y, area.bottom);
    const std::int64_t dx = b.x - a.x, dy = b.y - a.y;
    sides.push_back(Fianco{static_cast<std::int32_t>(top), static_cast<std::int32_t>(bottom), a.x,
                           Gradini(2 * dx, dx + dy - 1, 2 * dy, top - a.y)});
}

// Sides cross seldom between two rows, so they are nearly sorted already unless many have just come in.
void sortByX(std::vector<Fianco>& active, std::size_t added) {
    if (added > 16) {
        std::sort(active.begin(), active.end(), [](const Fianco& a, const Fianco& b) { return a.x() < b.x(); });
        return;
    }
    for (std::size_t i = 1; i < active.size(); ++i)
        for (std::size_t j = i; j > 0 && active[j].x() < active[j - 1].x(); --j) std::swap(active[j], active[j - 1]);
}

}   // namespace

void RasterPort::paintPoly(const Polygon& p, Brush& brush) {
    const auto point = [&](std::size_t i) { return Vertice{deviceX(p.punti[i].h), deviceY(p.punti[i].v)}; };
    const std::size_t count = p.punti.size();
    WideRect bounds{point(0).x, point(0).y, point(0).x, point(0).y};
    for (std::size_t i = 1; i < count; ++i) {
        const Vertice vertex = point(i);
        bounds = WideRect{std::min(bounds.left, vertex.x), std::min(bounds.top, vertex.y),
                          std::max(bounds.right, vertex.x), std::max(bounds.bottom, vertex.y)};
    }

    if (!scansione_) scansione_ = std::make_unique<Scansione>();
    std::vector<Fianco>& sides = scansione_->sides;
    std::vector<Fianco>& active = scansione_->active;
    perParti(bounds, [&](const DeviceRect& area) {
        sides.clear();
        active.clear();
        for (std::size_t i = 0; i < count; ++i) appendSide(sides, point(i), point(i + 1 < count ? i + 1 : 0), area);
        std::sort(sides.begin(), sides.end(), [](const Fianco& a, const Fianco& b) { return a.top < b.top; });

        std::size_t next = 0;
        std::uint32_t* row = at(0, area.top);
        for (std::int32_t y = area.top; y < area.bottom; ++y, row += width_) {
            std::erase_if(active, [y](const Fianco& side) { return side.bottom <= y; });
            const std::size_t first = next;
            while (next < sides.size() && sides[next].top == y) active.push_back(sides[next++]);
            sortByX(active, next - first);
            for (std::size_t i = 0; i + 1 < active.size(); i += 2) {
                const std::int64_t from = std::max<std::int64_t>(active[i].x(), area.left);
                const std::int64_t to = std::min<std::int64_t>(active[i + 1].x(), area.right);
                if (from < to) brush.span(row, y, static_cast<std::int32_t>(from), static_cast<std::int32_t>(to));
            }
            for (Fianco& side : active) side.offset.next();
        }
    });
}

// Kept: a frame runs from point to point and is not closed by itself.
void RasterPort::stdPoly(GrafVerb verb, const Polygon& p, const Pattern& fillPattern) {
    if (penHidden > 0 || p.punti.empty()) return;
    if (verb != GrafVerb::frame) return paintPoly(p, verbBrush(verb, fillPattern));
    for (std::size_t i = 1; i < p.punti.size(); ++i) stdLine(p.punti[i - 1], p.punti[i]);
}

}   // namespace tessaro
