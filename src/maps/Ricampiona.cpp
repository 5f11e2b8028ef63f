// The box of a raster on the sheet, and its pixels there.
#include "maps/Ricampiona.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Memory.h"
#include "registration/Coordinate.h"

namespace tessaro {

namespace {

// Pixel corners (col, row counted from the first one's corner) to the sheet, in place.
bool sulFoglio(const Mondo& m, Ingresso& in, std::vector<puntot>& p) {
    for (puntot& q : p) {
        double X = 0, Y = 0;
        m.pixel(q.x - 0.5, q.y - 0.5, X, Y);
        q = {X, Y, 0};
    }
    const bool bene = !in.via.pronto() || in.via.avanti(p.data(), p.size());
    for (puntot& q : p) {
        const double X = q.x, Y = q.y;
        RealToDigi(X, Y, q.x, q.y);
    }
    return bene;
}

// Sheet positions back to pixel corners.
void alRaster(const Mondo& m, Ingresso& in, std::vector<puntot>& p) {
    for (puntot& q : p) {
        const double x = q.x, y = q.y;
        DigiToReal(x, y, q.x, q.y);
    }
    if (in.via.pronto()) in.via.indietro(p.data(), p.size());
    const double area = m.a * m.e - m.b * m.d;
    for (puntot& q : p) {
        const double X = q.x - m.c, Y = q.y - m.f;
        q = {(m.e * X - m.b * Y) / area + 0.5, (m.a * Y - m.d * X) / area + 0.5, 0};
    }
}

using Colore = std::array<float, 3>;

// The source as colours, whatever its depth.
class Sorgente {
public:
    explicit Sorgente(const Immagine& i) : im(i) {}
    [[nodiscard]] std::uint32_t in(double col, double row) const {
        const double x = col - 0.5, y = row - 0.5;
        if (!(col >= 0) || !(row >= 0) || !(col <= im.width) || !(row <= im.height)) return 0xFFFFFFFFU;
        const auto x0 = static_cast<std::int32_t>(std::floor(x)), y0 = static_cast<std::int32_t>(std::floor(y));
        const auto fx = static_cast<float>(x - x0), fy = static_cast<float>(y - y0);
        const Colore su = media(pixel(x0, y0), pixel(x0 + 1, y0), fx),
                     giu = media(pixel(x0, y0 + 1), pixel(x0 + 1, y0 + 1), fx), c = media(su, giu, fy);
        const auto intero = [](float v) { return static_cast<std::uint32_t>(v + 0.5F); };
        return 0xFF000000U | intero(c[0]) << 16 | intero(c[1]) << 8 | intero(c[2]);
    }

private:
    static Colore media(const Colore& a, const Colore& b, float f) {
        return {a[0] + (b[0] - a[0]) * f, a[1] + (b[1] - a[1]) * f, a[2] + (b[2] - a[2]) * f};
    }
    [[nodiscard]] Colore pixel(std::int32_t x, std::int32_t y) const {
        x = std::clamp(x, 0, im.width - 1);
        y = std::clamp(y, 0, im.height - 1);
        const std::size_t i =
            static_cast<std::size_t>(y) * static_cast<std::size_t>(im.width) + static_cast<std::size_t>(x);
        if (im.depth != 32) {
            const RGBColor& c = im.palette[im.indices[i]];
            return {static_cast<float>(c.red / 257), static_cast<float>(c.green / 257),
                    static_cast<float>(c.blue / 257)};
        }
        const std::uint32_t p = im.pixels[i];
        return {static_cast<float>(p >> 16 & 255), static_cast<float>(p >> 8 & 255), static_cast<float>(p & 255)};
    }
    const Immagine& im;
};

}   // namespace

bool PostoSulFoglio(const Mondo& m, Ingresso& in, std::int32_t larga, std::int32_t alta, PostoFoglio& p) {
    const double w = larga, h = alta;
    constexpr int passi = 32;
    constexpr double centesimo = 0.01, limite = 1e12;
    std::vector<puntot> q;
    for (int i = 0; i <= passi; ++i) {
        const double x = w * i / passi, y = h * i / passi;
        q.insert(q.end(), {{x, 0, 0}, {x, h, 0}, {0, y, 0}, {w, y, 0}});
    }
    const std::vector<puntot> orlo = q;
    if (!sulFoglio(m, in, q)) return false;
    double x0 = HUGE_VAL, x1 = -HUGE_VAL, y0 = HUGE_VAL, y1 = -HUGE_VAL;
    for (const puntot& v : q) {
        x0 = std::min(x0, v.x);
        x1 = std::max(x1, v.x);
        y0 = std::min(y0, v.y);
        y1 = std::max(y1, v.y);
    }
    p = {x0, y0, x1 - x0, y1 - y0, true};
    if (!(std::fabs(x0) < limite) || !(std::fabs(y0) < limite) || !(p.larghezza > 0) || !(p.larghezza < limite)
        || !(p.altezza > 0) || !(p.altezza < limite))
        return false;
    for (std::size_t i = 0; i < q.size(); ++i) {
        const double sx = (q[i].x - x0) * w / p.larghezza - orlo[i].x, sy = (q[i].y - y0) * h / p.altezza - orlo[i].y;
        p.diritto = p.diritto && std::fabs(sx) < centesimo && std::fabs(sy) < centesimo;
    }
    return true;
}

bool Ricampiona(const Immagine& da, const Mondo& m, Ingresso& in, const PostoFoglio& p, Immagine& a, bool& fermato) {
    constexpr std::int32_t cella = 16;
    // A pixel of the source on the sheet: the box of one in its middle.
    std::vector<puntot> lato{{da.width / 2.0, da.height / 2.0, 0},
                             {da.width / 2.0 + 1, da.height / 2.0, 0},
                             {da.width / 2.0, da.height / 2.0 + 1, 0}};
    if (!sulFoglio(m, in, lato)) return false;
    const double grande = std::min(std::hypot(lato[1].x - lato[0].x, lato[1].y - lato[0].y),
                                   std::hypot(lato[2].x - lato[0].x, lato[2].y - lato[0].y));
    const double w = std::ceil(p.larghezza / grande), h = std::ceil(p.altezza / grande);
    if (!(w >= 1) || !(h >= 1) || !(w * h * 5 < static_cast<double>(CompactMem()))) return false;
    a.width = static_cast<std::int32_t>(w);
    a.height = static_cast<std::int32_t>(h);
    a.depth = 32;
    a.pixels.assign(static_cast<std::size_t>(a.width) * static_cast<std::size_t>(a.height), 0xFFFFFFFFU);
    const Sorgente sorgente(da);
    const std::int32_t nodi = a.width / cella + 2;
    std::vector<puntot> su, giu;
    const auto nodiDi = [&](std::int32_t riga, std::vector<puntot>& n) {
        n.clear();
        for (std::int32_t i = 0; i < nodi; ++i)
            n.push_back({p.x + p.larghezza * (i * cella + 0.5) / w, p.y + p.altezza * (riga + 0.5) / h, 0});
        alRaster(m, in, n);
    };
    nodiDi(0, giu);
    for (std::int32_t y0 = 0; y0 < a.height; y0 += cella) {
        su.swap(giu);
        nodiDi(y0 + cella, giu);
        for (std::int32_t y = y0; y < std::min(y0 + cella, a.height); ++y) {
            const double fy = static_cast<double>(y - y0) / cella;
            std::uint32_t* riga = a.pixels.data() + static_cast<std::ptrdiff_t>(y) * a.width;
            for (std::int32_t x = 0; x < a.width; ++x) {
                const auto i = static_cast<std::size_t>(x / cella);
                const double fx = static_cast<double>(x % cella) / cella;
                const auto tra = [&](double puntot::*c) {
                    const double s = su[i].*c + (su[i + 1].*c - su[i].*c) * fx;
                    const double g = giu[i].*c + (giu[i + 1].*c - giu[i].*c) * fx;
                    return s + (g - s) * fy;
                };
                riga[x] = sorgente.in(tra(&puntot::x), tra(&puntot::y));
            }
        }
        fermato = !ProgressStep(static_cast<double>(y0) / a.height) || escapePressed();
        if (fermato) return false;
    }
    return true;
}

}   // namespace tessaro
