// Rectangles: the common part and the hull of two.
#include <algorithm>

#include "platform/Types.h"

namespace tessaro {

Rect SectRect(const Rect& a, const Rect& b) {
    const Rect r{std::max(a.top, b.top), std::max(a.left, b.left), std::min(a.bottom, b.bottom),
                 std::min(a.right, b.right)};
    return EmptyRect(r) ? Rect{} : r;
}

Rect UnionRect(const Rect& a, const Rect& b) {
    if (EmptyRect(a)) return EmptyRect(b) ? Rect{} : b;
    if (EmptyRect(b)) return a;
    return Rect{std::min(a.top, b.top), std::min(a.left, b.left), std::max(a.bottom, b.bottom),
                std::max(a.right, b.right)};
}

}   // namespace tessaro
