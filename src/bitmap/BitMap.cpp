// One-bit bitmaps: their memory, single bits, logic between two, mirrors and fills.
#include "bitmap/BitMap.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

namespace tessaro {

namespace {

constexpr std::int32_t latoMassimo = 32767;

// Zeroed rows behind the header, in one block.
BitMap* nuova(std::int32_t w, std::int32_t h, std::int32_t righe) {
    if (w < 0 || h < 0 || w > latoMassimo || h > latoMassimo) return nullptr;
    const std::int32_t rowBytes = 2 * ((w + 15) / 16);
    const std::size_t dati = static_cast<std::size_t>(rowBytes) * static_cast<std::size_t>(righe);
    void* const block = std::calloc(1, sizeof(BitMap) + dati);
    if (block == nullptr) return nullptr;
    auto* const b = new (block) BitMap;
    b->baseAddr = static_cast<std::uint8_t*>(block) + sizeof(BitMap);
    b->rowBytes = static_cast<std::int16_t>(rowBytes);
    b->bounds = Rect{0, 0, h, w};
    return b;
}

BitMap* comeQuesta(const BitMap* b) {
    return b == nullptr ? nullptr : nuova(b->larghezza(), b->altezza(), b->altezza());
}

std::size_t bytes(const BitMap& b) {
    return static_cast<std::size_t>(b.rowBytes) * static_cast<std::size_t>(b.altezza());
}

bool dentro(const BitMap* b, std::int32_t x, std::int32_t y) {
    return b != nullptr && x >= 0 && y >= 0 && x < b->larghezza() && y < b->altezza();
}

constexpr std::uint8_t maschera(std::int32_t x) { return static_cast<std::uint8_t>(0x80U >> (x & 7)); }

template <class Operazione>
BitMap* combina(const BitMap* a, const BitMap* b, Operazione op) {
    if (a == nullptr || b == nullptr || a->bounds != b->bounds) return nullptr;
    BitMap* const r = comeQuesta(a);
    if (r == nullptr) return nullptr;
    for (std::size_t i = 0; i < bytes(*r); ++i)
        r->baseAddr[i] = static_cast<std::uint8_t>(op(a->baseAddr[i], b->baseAddr[i]));
    return r;
}

// Spreads over clear pixels of `b` from the places given, by their sides; sets what it reaches in `raggiunti`.
void versa(const BitMap& b, std::vector<Point> daFare, BitMap& raggiunti) {
    const auto prova = [&](std::int32_t x, std::int32_t y) {
        if (!dentro(&b, x, y)) return;
        const auto h = static_cast<std::int16_t>(x), v = static_cast<std::int16_t>(y);
        if (BitMapTest(&b, h, v) || BitMapTest(&raggiunti, h, v)) return;
        BitMapSet(&raggiunti, h, v);
        daFare.push_back(Point{y, x});
    };
    for (const Point& p : std::exchange(daFare, {})) prova(p.h, p.v);
    while (!daFare.empty()) {
        const Point p = daFare.back();
        daFare.pop_back();
        prova(p.h - 1, p.v);
        prova(p.h + 1, p.v);
        prova(p.h, p.v - 1);
        prova(p.h, p.v + 1);
    }
}

std::vector<Point> contorno(const BitMap& b) {
    std::vector<Point> p;
    for (std::int32_t x = 0; x < b.larghezza(); ++x) {
        p.push_back(Point{0, x});
        p.push_back(Point{b.altezza() - 1, x});
    }
    for (std::int32_t y = 0; y < b.altezza(); ++y) {
        p.push_back(Point{y, 0});
        p.push_back(Point{y, b.larghezza() - 1});
    }
    return p;
}

}   // namespace

BitMap* NewBitMap(std::int16_t w, std::int16_t h) { return nuova(w, h, h); }

BitMap* SafeHeightNewBitMap(std::int16_t w, std::int16_t h) { return nuova(w, h, (h + 15) / 16 * 16); }

void KillBitMap(BitMap* b) { std::free(b); }

BitMap* DuplicateBitMap(const BitMap* b) {
    BitMap* const r = comeQuesta(b);
    if (r != nullptr) std::memcpy(r->baseAddr, b->baseAddr, bytes(*b));
    return r;
}

bool BitMapTest(const BitMap* b, std::int16_t x, std::int16_t y) {
    return dentro(b, x, y) && (b->riga(y)[x >> 3] & maschera(x)) != 0;
}

void BitMapSet(BitMap* b, std::int16_t x, std::int16_t y) {
    if (dentro(b, x, y)) b->riga(y)[x >> 3] = static_cast<std::uint8_t>(b->riga(y)[x >> 3] | maschera(x));
}

void BitMapClear(BitMap* b, std::int16_t x, std::int16_t y) {
    if (BitMapTest(b, x, y)) BitMapToggle(b, x, y);
}

void BitMapToggle(BitMap* b, std::int16_t x, std::int16_t y) {
    if (dentro(b, x, y)) b->riga(y)[x >> 3] = static_cast<std::uint8_t>(b->riga(y)[x >> 3] ^ maschera(x));
}

// Bits behind the right edge belong to no pixel and are not compared.
bool EqualBitMaps(const BitMap* a, const BitMap* b) {
    if (a == nullptr || b == nullptr || a->bounds != b->bounds) return false;
    const std::int32_t interi = a->larghezza() / 8, resto = a->larghezza() % 8;
    const auto coda = static_cast<std::uint8_t>(0xFF00U >> resto);
    for (std::int32_t y = 0; y < a->altezza(); ++y) {
        const std::uint8_t *p = a->riga(y), *q = b->riga(y);
        if (std::memcmp(p, q, static_cast<std::size_t>(interi)) != 0) return false;
        if (resto != 0 && ((p[interi] ^ q[interi]) & coda) != 0) return false;
    }
    return true;
}

BitMap* BitMapAND(const BitMap* a, const BitMap* b) {
    return combina(a, b, [](unsigned p, unsigned q) { return p & q; });
}
BitMap* BitMapOR(const BitMap* a, const BitMap* b) {
    return combina(a, b, [](unsigned p, unsigned q) { return p | q; });
}
BitMap* BitMapXOR(const BitMap* a, const BitMap* b) {
    return combina(a, b, [](unsigned p, unsigned q) { return p ^ q; });
}
BitMap* BitMapNOT(const BitMap* b) {
    return combina(b, b, [](unsigned p, unsigned) { return ~p & 0xFFU; });
}

BitMap* FlipVertical(const BitMap* b) {
    BitMap* const r = comeQuesta(b);
    if (r == nullptr) return nullptr;
    for (std::int32_t y = 0; y < b->altezza(); ++y)
        std::memcpy(r->riga(b->altezza() - 1 - y), b->riga(y), static_cast<std::size_t>(b->rowBytes));
    return r;
}

BitMap* FlipHorizontal(const BitMap* b) {
    BitMap* const r = comeQuesta(b);
    if (r == nullptr) return nullptr;
    for (std::int32_t y = 0; y < b->altezza(); ++y)
        for (std::int32_t x = 0; x < b->larghezza(); ++x)
            if (BitMapTest(b, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)))
                BitMapSet(r, static_cast<std::int16_t>(b->larghezza() - 1 - x), static_cast<std::int16_t>(y));
    return r;
}

BitMap* PaintBucketBitMap(const BitMap* b, std::int16_t x, std::int16_t y) {
    BitMap* const r = comeQuesta(b);
    if (r != nullptr) versa(*b, {Point{y, x}}, *r);
    return r;
}

BitMap* LassoBitMap(const BitMap* b) {
    const BitMapPtr fuori(comeQuesta(b));
    if (fuori == nullptr) return nullptr;
    versa(*b, contorno(*b), *fuori);
    return BitMapNOT(fuori.get());
}

BitMap* TraceBitMap(const BitMap* b) {
    BitMap* const r = comeQuesta(b);
    if (r == nullptr) return nullptr;
    const auto perBit = [&](auto azione) {
        for (std::int32_t y = 0; y < b->altezza(); ++y)
            for (std::int32_t x = 0; x < b->larghezza(); ++x)
                if (BitMapTest(b, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y))) azione(x, y);
    };
    perBit([&](std::int32_t x, std::int32_t y) {
        for (const std::int32_t dy : {-1, 1})
            for (const std::int32_t dx : {-1, 1})
                BitMapSet(r, static_cast<std::int16_t>(x + dx), static_cast<std::int16_t>(y + dy));
    });
    perBit([&](std::int32_t x, std::int32_t y) {
        BitMapClear(r, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    });
    return r;
}

}   // namespace tessaro
