// Turned text on a raster. Quarter turns move whole pixels; every other angle samples the glyphs, set at twice the
// size, under the middle of each pixel.
#include "display/TestoGirato.h"

#include <algorithm>
#include <cmath>

#include "platform/Fonts.h"

namespace tessaro {

namespace {

// The device pixels that can be drawn on, counted from the anchor.
Rect areaDa(const RasterPort& port, Point ancora) {
    const Rect r = SectRect(port.clip.box(), port.portRect);
    const auto lontano = [&](std::int64_t p, std::int64_t a) {
        constexpr std::int64_t limite = 1 << 28;
        return static_cast<std::int32_t>(std::clamp((p - a) * port.ratio, -limite, limite));
    };
    return Rect{lontano(r.top, ancora.v), lontano(r.left, ancora.h), lontano(r.bottom, ancora.v),
                lontano(r.right, ancora.h)};
}

// --- quarter turns

MascheraTesto quarto(const MascheraTesto& m, int coseno, int seno) {
    MascheraTesto g;
    const bool inPiedi = coseno == 0;
    g.width = inPiedi ? m.height : m.width;
    g.height = inPiedi ? m.width : m.height;
    // The box's corners under (x, y) -> (x cos - y sin, x sin + y cos), edges between pixels.
    const std::int32_t x0 = m.left, x1 = m.left + m.width, y0 = m.top, y1 = m.top + m.height;
    g.left = std::min(x0 * coseno, x1 * coseno) + std::min(-y0 * seno, -y1 * seno);
    g.top = std::min(x0 * seno, x1 * seno) + std::min(y0 * coseno, y1 * coseno);
    g.coverage.resize(m.coverage.size());
    for (std::int32_t y = 0; y < m.height; ++y)
        for (std::int32_t x = 0; x < m.width; ++x) {
            const std::int32_t h = inPiedi ? (seno > 0 ? m.height - 1 - y : y) : m.width - 1 - x;
            const std::int32_t v = inPiedi ? (seno > 0 ? x : m.width - 1 - x) : m.height - 1 - y;
            g.coverage[static_cast<std::size_t>(v) * static_cast<std::size_t>(g.width) + static_cast<std::size_t>(h)] =
                m.coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(m.width)
                           + static_cast<std::size_t>(x)];
        }
    return g;
}

// --- any angle

struct Intervallo {
    double da, a;
};

// Where along x the value p0 + x * passo lies within (min, max).
Intervallo tratto(double p0, double passo, double min, double max, Intervallo i) {
    if (std::fabs(passo) < 1e-12) return p0 > min && p0 < max ? i : Intervallo{0, -1};
    const double u = (min - p0) / passo, v = (max - p0) / passo;
    return {std::max(i.da, std::min(u, v)), std::min(i.a, std::max(u, v))};
}

class Campione {
    const MascheraTesto& m;

    [[nodiscard]] std::int32_t punto(std::int32_t x, std::int32_t y) const {
        if (x < 0 || y < 0 || x >= m.width || y >= m.height) return 0;
        return m
            .coverage[static_cast<std::size_t>(y) * static_cast<std::size_t>(m.width) + static_cast<std::size_t>(x)];
    }

public:
    explicit Campione(const MascheraTesto& maschera) : m(maschera) {}

    // Coverage at a place between pixel middles, 16.16 each: the four around it by their nearness.
    [[nodiscard]] std::uint8_t operator()(std::int64_t sx, std::int64_t sy) const {
        const auto x = static_cast<std::int32_t>(sx >> 16), y = static_cast<std::int32_t>(sy >> 16);
        const auto fx = static_cast<std::int32_t>(sx >> 8 & 0xFF), fy = static_cast<std::int32_t>(sy >> 8 & 0xFF);
        const std::int32_t sopra = punto(x, y) * (256 - fx) + punto(x + 1, y) * fx;
        const std::int32_t sotto = punto(x, y + 1) * (256 - fx) + punto(x + 1, y + 1) * fx;
        return static_cast<std::uint8_t>((sopra * (256 - fy) + sotto * fy + 0x8000) >> 16);
    }
};

// The box of the turned mask within `area`; m is set at `fitto` times the device's pixels.
Rect scatola(const MascheraTesto& m, double fitto, VersoTesto t, const Rect& area) {
    double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
    for (const double y : {m.top - 1.0, m.top + m.height + 1.0})
        for (const double x : {m.left - 1.0, m.left + m.width + 1.0}) {
            const double h = (x * t.coseno - y * t.seno) / fitto, v = (x * t.seno + y * t.coseno) / fitto;
            left = std::min(left, h);
            right = std::max(right, h);
            top = std::min(top, v);
            bottom = std::max(bottom, v);
        }
    const auto giu = [](double p) { return static_cast<std::int32_t>(std::floor(p)); };
    const auto su = [](double p) { return static_cast<std::int32_t>(std::ceil(p)); };
    return SectRect(area, Rect{giu(top), giu(left), su(bottom), su(right)});
}

MascheraTesto libero(const MascheraTesto& m, std::int32_t fitto, VersoTesto t, const Rect& area) {
    MascheraTesto g;
    const Rect r = scatola(m, fitto, t, area);
    if (EmptyRect(r)) return g;
    g.left = r.left;
    g.top = r.top;
    g.width = r.right - r.left;
    g.height = r.bottom - r.top;
    g.coverage.assign(static_cast<std::size_t>(g.width) * static_cast<std::size_t>(g.height), 0);
    const Campione campione(m);
    const double px = fitto * t.coseno, py = -fitto * t.seno;
    const auto fixed = [](double p) { return static_cast<std::int64_t>(std::llround(p * 65536)); };
    for (std::int32_t v = 0; v < g.height; ++v) {
        const double h0 = r.left + 0.5, v0 = r.top + v + 0.5;
        const double sx = fitto * (h0 * t.coseno + v0 * t.seno) - m.left - 0.5;
        const double sy = fitto * (v0 * t.coseno - h0 * t.seno) - m.top - 0.5;
        Intervallo i{0, g.width - 1.0};
        i = tratto(sx, px, -1, m.width, i);
        i = tratto(sy, py, -1, m.height, i);
        const auto da = static_cast<std::int32_t>(std::ceil(i.da)), a = static_cast<std::int32_t>(std::floor(i.a));
        std::uint8_t* const riga = g.coverage.data() + static_cast<std::ptrdiff_t>(v) * g.width;
        std::int64_t fx = fixed(sx + da * px), fy = fixed(sy + da * py);
        const std::int64_t dx = fixed(px), dy = fixed(py);
        for (std::int32_t h = da; h <= a; ++h, fx += dx, fy += dy) riga[h] = campione(fx, fy);
    }
    return g;
}

// How many times finer than the device glyphs are set: letters large enough lose nothing without.
std::int32_t finezza(const RasterPort& port) {
    constexpr std::int32_t grandi = 64;   // device pixels
    return port.text.txSize * port.ratio < grandi ? 2 : 1;
}

}   // namespace

void DisegnaGirato(RasterPort& port, std::string_view macRoman, Point ancora, VersoTesto verso) {
    const Rect area = areaDa(port, ancora);
    if (macRoman.empty() || EmptyRect(area)) return;
    const TextState& t = port.text;
    const double intero = 1e-9;
    const bool aQuarti = std::fabs(verso.coseno) < intero || std::fabs(verso.seno) < intero;
    if (aQuarti) {
        const MascheraTesto& m = TextMask(t.txFont, t.txSize, t.txFace, port.ratio, macRoman);
        if (verso.coseno > 0.5) return port.mask(m, ancora);
        return port.mask(
            quarto(m, static_cast<int>(std::lround(verso.coseno)), static_cast<int>(std::lround(verso.seno))), ancora);
    }
    const std::int32_t fitto = finezza(port);
    const MascheraTesto& m = TextMask(t.txFont, t.txSize, t.txFace, port.ratio * fitto, macRoman);
    if (m.width > 0) port.mask(libero(m, fitto, verso, area), ancora);
}

}   // namespace tessaro
