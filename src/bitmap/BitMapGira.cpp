// Turns of one-bit bitmaps: quarter turns by words, any angle by fixed-point arithmetic.
#include <algorithm>
#include <cmath>
#include <limits>

#include "bitmap/BitMap.h"

namespace tessaro {

namespace {

std::int32_t tieni(std::int64_t v) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(v, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}

std::int32_t prodotto(std::int32_t a, std::int32_t b, int bits) {
    return tieni((static_cast<std::int64_t>(a) * b + (std::int64_t{1} << (bits - 1))) >> bits);
}

Fract fractDi(double v) { return static_cast<Fract>(std::llround(v * (1 << 30))); }

constexpr double unoFixed = 65536;

// The set bits of a source row go into one column of the result, the last column first; rows are then flush with the
// end of their memory and are shifted to its beginning.
BitMap* quarto(const BitMap* b, bool destra) {
    if (b == nullptr) return nullptr;
    const std::int32_t w = b->larghezza(), h = b->altezza();
    BitMap* const r = SafeHeightNewBitMap(static_cast<std::int16_t>(h), static_cast<std::int16_t>(w));
    if (r == nullptr) return nullptr;
    std::int32_t dove = r->rowBytes - 1;
    std::uint8_t bit = 1;
    for (std::int32_t i = 0; i < h; ++i) {
        const std::uint8_t* const sorgente = b->riga(destra ? i : h - 1 - i);
        for (std::int32_t x = 0; x < w; ++x) {
            if ((sorgente[x >> 3] & (0x80U >> (x & 7))) == 0) continue;
            std::uint8_t* const riga = r->riga(destra ? x : w - 1 - x);
            riga[dove] = static_cast<std::uint8_t>(riga[dove] | bit);
        }
        bit = static_cast<std::uint8_t>(bit << 1);
        if (bit != 0) continue;
        bit = 1;
        --dove;
    }
    const auto avanzo = static_cast<std::int16_t>(r->rowBytes * 8 - h);
    for (std::int32_t y = 0; y < w; ++y) ShiftLeftWords(r->riga(y), r->rowBytes / 2, avanzo);
    return r;
}

// The turn by an angle about a centre, of whole pixel positions.
class Giro {
    Fract coseno, seno;
    std::int16_t cx, cy;

    // One coordinate: a Fixed rounded at the end, its centre added.
    [[nodiscard]] static std::int32_t intero(std::int64_t fixed, std::int16_t centro) {
        return static_cast<std::int32_t>((fixed + static_cast<std::int64_t>(FixRatio(centro, 1)) + 0x8000) >> 16);
    }

public:
    Giro(std::int16_t centroX, std::int16_t centroY, Fixed gradi) : cx(centroX), cy(centroY) {
        constexpr Fixed unGrado = 1144;   // pi / 180; the negated angle turns the image clockwise
        const Fixed radianti = FixMul(unGrado, tieni(-static_cast<std::int64_t>(gradi)));
        coseno = FracCos(radianti);
        seno = FracSin(radianti);
    }
    [[nodiscard]] Point operator()(std::int32_t x, std::int32_t y) const {
        const Fixed dx = FixRatio(static_cast<std::int16_t>(x - cx), 1),
                    dy = FixRatio(static_cast<std::int16_t>(y - cy), 1);
        return Point{intero(static_cast<std::int64_t>(FracMul(dy, coseno)) - FracMul(dx, seno), cy),
                     intero(static_cast<std::int64_t>(FracMul(dx, coseno)) + FracMul(dy, seno), cx)};
    }
    // The source pixel that lies under the middle of a pixel of the result.
    [[nodiscard]] Point sotto(std::int32_t x, std::int32_t y) const {
        const auto mezzo = [](std::int32_t p, std::int16_t c) {
            return FixRatio(static_cast<std::int16_t>(p - c), 1) + 0x8000;
        };
        const Fixed dx = mezzo(x, cx), dy = mezzo(y, cy);
        const std::int64_t u = static_cast<std::int64_t>(FracMul(dx, coseno)) - FracMul(dy, seno);
        const std::int64_t v = static_cast<std::int64_t>(FracMul(dy, coseno)) + FracMul(dx, seno);
        return Point{static_cast<std::int32_t>(v >> 16) + cy, static_cast<std::int32_t>(u >> 16) + cx};
    }
};

// The box of the turned corners, empty, with its top left.
BitMap* scatola(const BitMap* b, const Giro& giro, Point& angolo) {
    const std::int32_t w = b->larghezza(), h = b->altezza();
    const Point p[4] = {giro(0, 0), giro(w, 0), giro(0, h), giro(w, h)};
    Rect r{p[0].v, p[0].h, p[0].v, p[0].h};
    for (const Point& q : p)
        r = Rect{std::min(r.top, q.v), std::min(r.left, q.h), std::max(r.bottom, q.v), std::max(r.right, q.h)};
    angolo = Point{r.top, r.left};
    constexpr std::int32_t latoMassimo = 32767;
    if (r.right - r.left > latoMassimo || r.bottom - r.top > latoMassimo) return nullptr;
    return NewBitMap(static_cast<std::int16_t>(r.right - r.left), static_cast<std::int16_t>(r.bottom - r.top));
}

void accendi(BitMap* b, std::int32_t x, std::int32_t y) {
    if (x >= 0 && y >= 0 && x < b->larghezza() && y < b->altezza())
        BitMapSet(b, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
}

bool acceso(const BitMap* b, const Point& p) {
    return p.h >= 0 && p.v >= 0 && p.h < b->larghezza() && p.v < b->altezza()
           && BitMapTest(b, static_cast<std::int16_t>(p.h), static_cast<std::int16_t>(p.v));
}

template <class Ritorno>
BitMap* daDestinazione(const BitMap* b, const Giro& giro, Point* angolo, Ritorno ritorno) {
    Point corner;
    BitMap* const r = scatola(b, giro, corner);
    if (angolo != nullptr) *angolo = corner;
    if (r == nullptr) return nullptr;
    for (std::int32_t y = 0; y < r->altezza(); ++y)
        for (std::int32_t x = 0; x < r->larghezza(); ++x)
            if (acceso(b, ritorno(x + corner.h, y + corner.v))) accendi(r, x, y);
    return r;
}

}   // namespace

void ShiftLeftWords(void* row, std::int32_t words, std::int16_t n) {
    auto* const p = static_cast<std::uint8_t*>(row);
    const std::int32_t salto = n / 16, bits = n % 16;
    const auto parola = [&](std::int32_t i) -> std::uint32_t {
        return i < words ? static_cast<std::uint32_t>(p[2 * i] << 8) | p[2 * i + 1] : 0U;
    };
    for (std::int32_t i = 0; i < words; ++i) {
        const std::uint32_t due = parola(i + salto) << 16 | parola(i + salto + 1);
        const std::uint32_t v = due << bits >> 16;
        p[2 * i] = static_cast<std::uint8_t>(v >> 8);
        p[2 * i + 1] = static_cast<std::uint8_t>(v);
    }
}

BitMap* RotateRight(const BitMap* b) { return quarto(b, true); }
BitMap* RotateLeft(const BitMap* b) { return quarto(b, false); }

Fixed FixRatio(std::int16_t numer, std::int16_t denom) {
    if (denom == 0) return numer < 0 ? std::numeric_limits<Fixed>::min() : std::numeric_limits<Fixed>::max();
    const std::int64_t segno = denom < 0 ? -1 : 1, d = segno * denom;
    const std::int64_t n = segno * numer * 131072 + d;   // twice the number, and the half that rounds
    const std::int64_t q = n / (2 * d);
    return tieni(n % (2 * d) < 0 ? q - 1 : q);
}

Fixed FixMul(Fixed a, Fixed b) { return prodotto(a, b, 16); }
std::int32_t FracMul(std::int32_t a, Fract b) { return prodotto(a, b, 30); }
std::int16_t FixRound(Fixed x) {
    return static_cast<std::int16_t>(std::min<std::int64_t>((static_cast<std::int64_t>(x) + 0x8000) >> 16, 32767));
}
Fract FracCos(Fixed radians) { return fractDi(std::cos(radians / unoFixed)); }
Fract FracSin(Fixed radians) { return fractDi(std::sin(radians / unoFixed)); }

BitMap* RotateBitMap(const BitMap* b, std::int16_t cx, std::int16_t cy, Fixed gradi, Point* angolo) {
    if (b == nullptr) return nullptr;
    const Giro giro(cx, cy, gradi);
    Point corner;
    BitMap* const r = scatola(b, giro, corner);
    if (angolo != nullptr) *angolo = corner;
    if (r == nullptr) return nullptr;
    for (std::int32_t y = 0; y < b->altezza(); ++y)
        for (std::int32_t x = 0; x < b->larghezza(); ++x) {
            if (!acceso(b, Point{y, x})) continue;
            const Point p = giro(x, y);
            accendi(r, p.h - corner.h, p.v - corner.v);
        }
    return r;
}

BitMap* RotateBitMapDest(const BitMap* b, std::int16_t cx, std::int16_t cy, Fixed gradi, Point* angolo) {
    if (b == nullptr) return nullptr;
    const Giro giro(cx, cy, gradi);
    return daDestinazione(b, giro, angolo, giro);
}

BitMap* RotateBitMapPiena(const BitMap* b, std::int16_t cx, std::int16_t cy, Fixed gradi, Point* angolo) {
    if (b == nullptr) return nullptr;
    const Giro giro(cx, cy, gradi);
    return daDestinazione(b, giro, angolo, [&](std::int32_t x, std::int32_t y) { return giro.sotto(x, y); });
}

}   // namespace tessaro
