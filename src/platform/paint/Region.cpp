// Regions: sets of pixels as disjoint rectangles. A new rectangle is kept whole and cut out of the older ones, and
// joins a neighbour with which it makes a rectangle, so that a region grown piece by piece stays short.
#include <algorithm>
#include <limits>

#include "platform/Types.h"

namespace tessaro {

namespace {

bool disjoint(const Rect& a, const Rect& b) {
    return a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top;
}

bool holds(const Rect& outer, const Rect& inner) {
    return outer.left <= inner.left && inner.right <= outer.right && outer.top <= inner.top
           && inner.bottom <= outer.bottom;
}

// Two disjoint rectangles that share a whole side are one.
bool joins(const Rect& a, const Rect& b) {
    const bool beside = a.top == b.top && a.bottom == b.bottom && (a.right == b.left || b.right == a.left);
    const bool above = a.left == b.left && a.right == b.right && (a.bottom == b.top || b.bottom == a.top);
    return beside || above;
}

// An edge at the end of the numbers stays there: a clip may be wide open.
std::int32_t moved(std::int32_t edge, std::int32_t by) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t sum = static_cast<std::int64_t>(edge) + by;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(sum, Limits::min(), Limits::max()));
}

// What is left of `whole`, which overlaps `hole`: the bands above and below it, and what stands left and right of it.
void appendRest(std::vector<Rect>& out, const Rect& whole, const Rect& hole) {
    const Rect cut = SectRect(whole, hole);
    if (whole.top < cut.top) out.push_back(Rect{whole.top, whole.left, cut.top, whole.right});
    if (cut.bottom < whole.bottom) out.push_back(Rect{cut.bottom, whole.left, whole.bottom, whole.right});
    if (whole.left < cut.left) out.push_back(Rect{cut.top, whole.left, cut.bottom, cut.left});
    if (cut.right < whole.right) out.push_back(Rect{cut.top, cut.right, cut.bottom, whole.right});
}

}   // namespace

Region Region::of(const Rect& r) {
    Region result;
    if (!EmptyRect(r)) result.parti.push_back(r);
    return result;
}

Rect Region::box() const {
    Rect hull;
    for (const Rect& part : parti) hull = UnionRect(hull, part);
    return hull;
}

void Region::add(const Rect& r) {
    if (EmptyRect(r)) return;
    for (const Rect& part : parti)
        if (holds(part, r)) return;
    subtract(r);
    Rect grown = r;
    for (std::size_t i = 0; i < parti.size();) {
        if (!joins(parti[i], grown)) {
            ++i;
            continue;
        }
        grown = UnionRect(grown, parti[i]);
        parti[i] = parti.back();
        parti.pop_back();
        i = 0;
    }
    parti.push_back(grown);
}

void Region::subtract(const Rect& r) {
    if (EmptyRect(r) || !touches(r)) return;
    std::vector<Rect> rest;
    rest.reserve(parti.size() + 4);
    for (const Rect& part : parti) {
        if (disjoint(part, r))
            rest.push_back(part);
        else
            appendRest(rest, part, r);
    }
    parti = std::move(rest);
}

void Region::intersect(const Rect& r) {
    for (Rect& part : parti) part = SectRect(part, r);
    std::erase_if(parti, EmptyRect);
}

void Region::intersect(const Region& r) {
    std::vector<Rect> common;
    for (const Rect& mine : parti)
        for (const Rect& other : r.parti)
            if (const Rect both = SectRect(mine, other); !EmptyRect(both)) common.push_back(both);
    parti = std::move(common);
}

void Region::offset(std::int32_t dh, std::int32_t dv) {
    for (Rect& part : parti)
        part = Rect{moved(part.top, dv), moved(part.left, dh), moved(part.bottom, dv), moved(part.right, dh)};
    std::erase_if(parti, EmptyRect);
}

bool Region::contains(Point p) const {
    return std::any_of(parti.begin(), parti.end(), [p](const Rect& part) { return PtInRect(p, part); });
}

bool Region::touches(const Rect& r) const {
    if (EmptyRect(r)) return false;
    return std::any_of(parti.begin(), parti.end(), [&r](const Rect& part) { return !disjoint(part, r); });
}

}   // namespace tessaro
