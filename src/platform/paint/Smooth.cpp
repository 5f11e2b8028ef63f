// Smooth lines and rings: each pixel takes the share of the colour that the stroke covers of it. The share follows from the
// distance d of the pixel's middle from the middle of the stroke, in device pixels: half the width, and half a pixel, less
// d, held to 0..1. It depends on pixel and figure alone, so a repaint in parts is the repaint of the whole.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/paint/Device.h"

namespace tessaro {

namespace {

std::uint32_t mischia(std::uint32_t sotto, std::uint32_t colore, double quota) {
    const auto peso = static_cast<std::uint32_t>(std::clamp(quota, 0.0, 1.0) * 256 + 0.5);
    constexpr std::uint32_t pari = 0xFF00FFU, dispari = 0xFF00U;   // channels with room for a product beside them
    const auto canali = [&](std::uint32_t quali) {
        const std::uint32_t giu = quali == dispari ? 8U : 0U;
        const std::uint32_t a = (sotto & quali) >> giu, b = (colore & quali) >> giu;
        return (a * (256U - peso) + b * peso) >> (8U - giu) & quali;
    };
    return 0xFF000000U | canali(pari) | canali(dispari);
}

// The pixels of a row whose middles lie between two places, held to low..high.
struct Riga {
    std::int32_t da = 0, a = 0;
    Riga(double sinistra, double destra, std::int32_t low, std::int32_t high)
        : da(tenuto(sinistra - 0.5, low, high)), a(tenuto(destra + 0.5, low, high)) {
        if (a < destra + 0.5 && a < high) ++a;
    }

private:
    // Whole, towards the left: places of a port are not negative, so that the cut is that.
    static std::int32_t tenuto(double v, std::int32_t low, std::int32_t high) {
        return static_cast<std::int32_t>(std::clamp(v, static_cast<double>(low), static_cast<double>(high)));
    }
};

struct Asse {
    double ax, ay, dx, dy, lungo2, nx, ny;   // the last two across it, of length 1
    Asse(double x0, double y0, double x1, double y1)
        : ax(x0), ay(y0), dx(x1 - x0), dy(y1 - y0), lungo2(dx * dx + dy * dy), nx(-dy / std::sqrt(lungo2)),
          ny(dx / std::sqrt(lungo2)) {}
    [[nodiscard]] double distanza(double x, double y) const {
        const double u = x - ax, v = y - ay, lungo = u * dx + v * dy;
        if (lungo < 0) return std::sqrt(u * u + v * v);
        if (lungo > lungo2) return std::sqrt((u - dx) * (u - dx) + (v - dy) * (v - dy));
        return std::fabs(u * nx + v * ny);
    }
};

// How far outside of the ellipse a place is, device pixels; negative inside. Exact for a circle, and near the edge.
double fuori(double x, double y, double a, double b) {
    const double u = x / a, v = y / b, q = std::hypot(u, v);
    if (q == 0) return -std::min(a, b);
    return (q - 1) * q / std::hypot(u / a, v / b);
}

// Degrees clockwise from straight up, on the unit circle that the ellipse is stretched from.
bool nelTratto(double u, double v, double da, double ampiezza) {
    constexpr double gradi = 180 / 3.14159265358979323846;
    const double oltre = std::fmod(std::atan2(u, -v) * gradi - da, 360);
    return (oltre < 0 ? oltre + 360 : oltre) <= ampiezza;
}

}   // namespace

void RasterPort::smoothLine(const WideRect& from, const WideRect& to, std::uint32_t colour) {
    const auto mezzo = [](std::int64_t p, std::int64_t q) {
        return (static_cast<double>(p) + static_cast<double>(q)) / 2;
    };
    const Asse asse(mezzo(from.left, from.right), mezzo(from.top, from.bottom), mezzo(to.left, to.right),
                    mezzo(to.top, to.bottom));
    const double largo = mezzo(from.right - from.left, from.bottom - from.top);
    const double portata = largo / 2 + 0.5;
    const WideRect bounds{std::min(from.left, to.left) - 1, std::min(from.top, to.top) - 1,
                          std::max(from.right, to.right) + 1, std::max(from.bottom, to.bottom) + 1};
    const double meta = portata * std::sqrt(asse.lungo2) / std::fabs(asse.dy);   // of what a row sees of the stroke
    perParti(bounds, [&](const DeviceRect& area) {
        std::uint32_t* row = at(0, area.top);
        for (std::int32_t y = area.top; y < area.bottom; ++y, row += width_) {
            const double yc = y + 0.5, xc = asse.ax + (yc - asse.ay) * asse.dx / asse.dy;
            const Riga r(xc - meta, xc + meta, area.left, area.right);
            for (std::int32_t x = r.da; x < r.a; ++x) {
                const double quota = portata - asse.distanza(x + 0.5, yc);
                if (quota > 0) row[x] = mischia(row[x], colour, quota);
            }
        }
    });
}

void RasterPort::smoothRing(const WideRect& whole, double penWidth, double penHeight, std::int32_t start,
                            std::int32_t sweep, std::uint32_t colour) {
    const double a = static_cast<double>(whole.right - whole.left) / 2;
    const double b = static_cast<double>(whole.bottom - whole.top) / 2;
    const double cx = static_cast<double>(whole.left) + a, cy = static_cast<double>(whole.top) + b;
    const double a2 = a - penWidth, b2 = b - penHeight;   // of the hole
    const bool buco = a2 > 0 && b2 > 0, giro = sweep >= 360 || sweep <= -360;
    const double da = sweep < 0 ? static_cast<double>(start) + sweep : start, ampiezza = std::fabs(sweep);
    const WideRect bounds{whole.left - 1, whole.top - 1, whole.right + 1, whole.bottom + 1};
    // Half of what a row sees of an ellipse, `oltre` pixels larger; below 0 where it sees nothing.
    const auto meta = [](double y, double semiX, double semiY) {
        const double q = 1 - y / semiY * (y / semiY);
        return q <= 0 ? -1 : semiX * std::sqrt(q);
    };
    perParti(bounds, [&](const DeviceRect& area) {
        std::uint32_t* row = at(0, area.top);
        for (std::int32_t y = area.top; y < area.bottom; ++y, row += width_) {
            const double v = y + 0.5 - cy;
            const double esterno = meta(v, a + 1, b + 1);
            if (esterno < 0) continue;
            const double interno = buco && a2 > 2 && b2 > 2 ? meta(v, a2 - 2, b2 - 2) : -1;
            const auto tratto = [&](const Riga& r) {
                for (std::int32_t x = r.da; x < r.a; ++x) {
                    const double u = x + 0.5 - cx;
                    if (!giro && !nelTratto(u / a, v / b, da, ampiezza)) continue;
                    const double pieno = std::clamp(0.5 - fuori(u, v, a, b), 0.0, 1.0);
                    const double vuoto = buco ? std::clamp(0.5 - fuori(u, v, a2, b2), 0.0, 1.0) : 0;
                    if (pieno > vuoto) row[x] = mischia(row[x], colour, pieno - vuoto);
                }
            };
            if (interno < 1) {
                tratto(Riga(cx - esterno, cx + esterno, area.left, area.right));
                continue;
            }
            const Riga sinistra(cx - esterno, cx - interno, area.left, area.right);
            Riga destra(cx + interno, cx + esterno, area.left, area.right);
            destra.da = std::max(destra.da, sinistra.a);
            tratto(sinistra);
            tratto(destra);
        }
    });
}

}   // namespace tessaro
