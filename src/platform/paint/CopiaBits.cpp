// Pixels onto the raster port: copied as they are, enlarged by the nearest pixel, reduced by the mean of the pixels
// that a device pixel covers. Only what is visible costs time, however far the destination reaches.
#include <cstring>
#include <vector>

#include "platform/paint/Device.h"

namespace tessaro {

namespace {

// One axis of a scaled copy: source pixels from..from + source are laid over device pixels to..to + target.
struct Asse {
    std::int64_t from, source;
    std::int64_t to, target;

    // The source pixel under the middle of device pixel d.
    [[nodiscard]] std::int64_t nearest(std::int64_t d) const {
        return from + static_cast<std::int64_t>((2 * static_cast<Largo>(d - to) + 1) * source / (2 * target));
    }
    // The first device pixel whose middle lies over source pixel s or behind it.
    [[nodiscard]] std::int64_t firstOver(std::int64_t s) const {
        const Largo n = 2 * static_cast<Largo>(s - from) * target - source;
        return to + static_cast<std::int64_t>(ceilDiv<Largo>(n, 2 * source));
    }
};

// The source pixels first..last that device pixel d covers, and how much of the two at the ends, in 256ths.
struct Copertura {
    std::int64_t first, last;
    std::uint32_t firstPart, lastPart;
};

Copertura covered(const Asse& axis, std::int64_t d, std::int64_t low, std::int64_t high) {
    if (axis.source <= axis.target) {
        const std::int64_t s = std::clamp(axis.nearest(d), low, high - 1);
        return Copertura{s, s, 256, 256};
    }
    const Largo begin = static_cast<Largo>(d - axis.to) * axis.source * 256 / axis.target;
    const Largo end = static_cast<Largo>(d - axis.to + 1) * axis.source * 256 / axis.target;
    Copertura c{};
    c.first = axis.from + static_cast<std::int64_t>(begin / 256);
    c.last = axis.from + static_cast<std::int64_t>((end - 1) / 256);
    c.firstPart = static_cast<std::uint32_t>(256 - begin % 256);
    c.lastPart = static_cast<std::uint32_t>((end - 1) % 256 + 1);
    if (c.first < low) c = Copertura{low, c.last, 256, c.lastPart};
    if (c.last >= high) c = Copertura{c.first, high - 1, c.firstPart, 256};
    return c;
}

// Three channels summed with weights; 64 bits hold 2^40 whole pixels.
struct Somma {
    std::uint64_t red = 0, green = 0, blue = 0;
    void add(std::uint32_t pixel, std::uint32_t weight) {
        red += static_cast<std::uint64_t>(((pixel >> 16) & 0xFFU) * weight);
        green += static_cast<std::uint64_t>(((pixel >> 8) & 0xFFU) * weight);
        blue += static_cast<std::uint64_t>((pixel & 0xFFU) * weight);
    }
};

// The mean over a column range of one source row, 16 bits a channel.
struct Media {
    std::uint32_t red, green, blue;
};

class Riduzione {
public:
    Riduzione(const PixMap& bits, const Asse& across, const Asse& down, const DeviceRect& area)
        : bits_(bits), down_(down), area_(area), sums_(static_cast<std::size_t>(area.right - area.left)),
          line_(sums_.size()) {
        columns_.reserve(sums_.size());
        for (std::int32_t x = area.left; x < area.right; ++x)
            columns_.push_back(covered(across, x, bits.bounds.left, bits.bounds.right));
    }

    void row(std::int32_t y, std::uint32_t* out) {
        const Copertura rows = covered(down_, y, bits_.bounds.top, bits_.bounds.bottom);
        std::fill(sums_.begin(), sums_.end(), Somma{});
        std::uint64_t total = 0;
        for (std::int64_t s = rows.first; s <= rows.last; ++s) {
            const std::uint32_t weight = weightOf(rows, s);
            total += weight;
            readLine(s);
            for (std::size_t i = 0; i < sums_.size(); ++i) {
                sums_[i].red += static_cast<std::uint64_t>(line_[i].red) * weight;
                sums_[i].green += static_cast<std::uint64_t>(line_[i].green) * weight;
                sums_[i].blue += static_cast<std::uint64_t>(line_[i].blue) * weight;
            }
        }
        const double scale = 1.0 / (256.0 * static_cast<double>(total));
        const auto channel = [scale](std::uint64_t sum) {
            return static_cast<std::uint32_t>(static_cast<double>(sum) * scale + 0.5);
        };
        for (std::size_t i = 0; i < sums_.size(); ++i)
            out[i] = 0xFF000000U | channel(sums_[i].red) << 16 | channel(sums_[i].green) << 8 | channel(sums_[i].blue);
    }

private:
    static std::uint32_t weightOf(const Copertura& c, std::int64_t s) {
        if (c.first == c.last) return 256;
        if (s == c.first) return c.firstPart;
        return s == c.last ? c.lastPart : 256;
    }

    // Neighbouring device rows share a source row where their edges cut it.
    void readLine(std::int64_t s) {
        if (s == lineRow_) return;
        lineRow_ = s;
        const std::uint32_t* const source = bits_.base + (s - bits_.bounds.top) * bits_.rowPixels - bits_.bounds.left;
        for (std::size_t i = 0; i < columns_.size(); ++i) line_[i] = mean(source, columns_[i]);
    }

    static Media mean(const std::uint32_t* source, const Copertura& c) {
        if (c.first == c.last) {
            const std::uint32_t pixel = source[c.first];
            return Media{(pixel >> 8) & 0xFF00U, pixel & 0xFF00U, (pixel << 8) & 0xFF00U};
        }
        Somma sum;
        sum.add(source[c.first], c.firstPart);
        for (std::int64_t x = c.first + 1; x < c.last; ++x) sum.add(source[x], 256);
        sum.add(source[c.last], c.lastPart);
        const std::uint64_t total = c.firstPart + c.lastPart + 256 * static_cast<std::uint64_t>(c.last - c.first - 1);
        // A whole channel is 255 * 256: the means keep eight bits behind the point.
        const double scale = 256.0 / static_cast<double>(total);
        const auto channel = [scale](std::uint64_t s) {
            return static_cast<std::uint32_t>(static_cast<double>(s) * scale + 0.5);
        };
        return Media{channel(sum.red), channel(sum.green), channel(sum.blue)};
    }

    const PixMap& bits_;
    Asse down_;
    DeviceRect area_;
    std::vector<Copertura> columns_;
    std::vector<Somma> sums_;
    std::vector<Media> line_;
    std::int64_t lineRow_ = INT64_MIN;
};

const std::uint32_t* sourceRow(const PixMap& bits, std::int64_t y) {
    return bits.base + (y - bits.bounds.top) * bits.rowPixels - bits.bounds.left;
}

}   // namespace

// Rows are copied in the order that keeps a copy inside one memory from eating its own source.
void RasterPort::copySameSize(const PixMap& bits, const DeviceRect& area, std::int64_t dx, std::int64_t dy) {
    const std::size_t bytes = static_cast<std::size_t>(area.right - area.left) * sizeof(std::uint32_t);
    const bool upward = sourceRow(bits, area.top + dy) + dx + area.left < at(area.left, area.top);
    for (std::int32_t i = 0; i < area.bottom - area.top; ++i) {
        const std::int32_t y = upward ? area.bottom - 1 - i : area.top + i;
        std::memmove(at(area.left, y), sourceRow(bits, y + dy) + dx + area.left, bytes);
    }
}

void RasterPort::stdBits(const PixMap& bits, const Rect& src, const Rect& dst) {
    if (bits.base == nullptr || EmptyRect(src) || EmptyRect(dst)) return;
    const WideRect to = device(dst);
    const Asse across{src.left, static_cast<std::int64_t>(src.right) - src.left, to.left, to.right - to.left};
    const Asse down{src.top, static_cast<std::int64_t>(src.bottom) - src.top, to.top, to.bottom - to.top};
    const Rect source = SectRect(src, bits.bounds);
    if (EmptyRect(source)) return;

    // Device pixels whose middles lie over source pixels that there are.
    const WideRect bounds{across.firstOver(source.left), down.firstOver(source.top), across.firstOver(source.right),
                          down.firstOver(source.bottom)};
    const bool same = across.source == across.target && down.source == down.target;
    const bool reduced = across.source > across.target || down.source > down.target;
    perParti(bounds, [&](const DeviceRect& area) {
        if (same) return copySameSize(bits, area, across.from - across.to, down.from - down.to);
        if (reduced) {
            Riduzione reduction(bits, across, down, area);
            for (std::int32_t y = area.top; y < area.bottom; ++y) reduction.row(y, at(area.left, y));
            return;
        }
        std::vector<std::int32_t> columns;
        columns.reserve(static_cast<std::size_t>(area.right - area.left));
        for (std::int32_t x = area.left; x < area.right; ++x)
            columns.push_back(static_cast<std::int32_t>(across.nearest(x)));
        std::int64_t before = INT64_MIN;
        for (std::int32_t y = area.top; y < area.bottom; ++y) {
            std::uint32_t* const out = at(area.left, y);
            const std::int64_t line = down.nearest(y);
            if (line == before) {
                std::memcpy(out, at(area.left, y - 1), columns.size() * sizeof(std::uint32_t));
                continue;
            }
            before = line;
            const std::uint32_t* const in = sourceRow(bits, line);
            for (std::size_t i = 0; i < columns.size(); ++i) out[i] = in[columns[i]];
        }
    });
}

Region RasterPort::scroll(const Rect& r, std::int32_t dh, std::int32_t dv) {
    Region allowed = clip;
    allowed.intersect(OffsetRect(Rect{0, 0, height_ / ratio, width_ / ratio}, origin.h, origin.v));
    allowed.intersect(r);
    const std::int64_t reachH = dh < 0 ? -static_cast<std::int64_t>(dh) : dh;
    const std::int64_t reachV = dv < 0 ? -static_cast<std::int64_t>(dv) : dv;
    const Rect box = allowed.box();
    Region uncovered = allowed;
    const bool stays = reachH < box.right - box.left && reachV < box.bottom - box.top;
    if (stays) {
        // Pixels come from a copy when the parts of a torn clip would overwrite each other's source.
        Region moved = allowed;
        moved.offset(dh, dv);
        moved.intersect(allowed);
        const std::int64_t dx = static_cast<std::int64_t>(dh) * ratio, dy = static_cast<std::int64_t>(dv) * ratio;
        std::vector<std::uint32_t> copy;
        PixMap source = pixMap();
        if (moved.parti.size() > 1) {
            copy = memory_;
            source.base = copy.data();
        }
        const DeviceRect all{0, 0, width_, height_};
        for (const Rect& part : moved.parti) {
            const DeviceRect area = clipped(device(part), all);
            if (area.empty()) continue;
            copySameSize(source, area, -dx, -dy);
            sporco.add(area);
        }
        for (const Rect& part : moved.parti) uncovered.subtract(part);
    }
    Brush& erase = verbBrush(GrafVerb::erase, qdWhite);
    for (const Rect& part : uncovered.parti) paintRect(device(part), erase);
    return uncovered;
}

}   // namespace tessaro
