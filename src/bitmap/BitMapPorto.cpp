// One-bit bitmaps and drawing: the image of a string, ports that draw into a bitmap, plotting one, stored pictures.
#include <algorithm>
#include <memory>
#include <new>
#include <string>

#include "bitmap/BitMap.h"
#include "platform/pict/Esegui.h"
#include "platform/pict/Pict.h"
#include "platform/pict/Scrittore.h"

namespace tessaro {

namespace {

enum : std::int16_t { srcXor = 2, srcBic = 3 };

constexpr std::int32_t latoMassimo = 32767;
constexpr std::uint32_t neroPixel = 0xFF000000, biancoPixel = 0xFFFFFFFF;

// Thin strokes between two pixels stay whole: a little less than half covered is set.
constexpr std::uint8_t soglia = 96;

void posa(BitMap& b, const MascheraTesto& m, std::int32_t h, std::int32_t v) {
    for (std::int32_t y = 0; y < m.height; ++y)
        for (std::int32_t x = 0; x < m.width; ++x) {
            const std::int32_t bx = h + m.left + x, by = v + m.top + y;
            if (m.coverage[static_cast<std::size_t>(y * m.width + x)] < soglia) continue;
            if (bx < 0 || by < 0 || bx >= b.larghezza() || by >= b.altezza()) continue;
            BitMapSet(&b, static_cast<std::int16_t>(bx), static_cast<std::int16_t>(by));
        }
}

// The set bits as runs.
Region regione(const BitMap& b, std::int32_t x0, std::int32_t y0) {
    Region r;
    for (std::int32_t y = 0; y < b.altezza(); ++y) {
        const auto acceso = [&](std::int32_t x) {
            return BitMapTest(&b, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
        };
        for (std::int32_t x = 0; x < b.larghezza(); ++x) {
            if (!acceso(x)) continue;
            const std::int32_t inizio = x;
            while (acceso(x)) ++x;   // clear beyond the edge
            r.parti.push_back(Rect{y0 + y, x0 + inizio, y0 + y + 1, x0 + x});
        }
    }
    return r;
}

// The data of a bits opcode of one bit a pixel, and the opcode: rows of 8 bytes and more are packed.
std::uint16_t datiBits(const BitMap& b, const Rect& dst, std::int16_t modo, std::string& dati) {
    const bool imballato = b.rowBytes >= 8;
    Scrittore s;
    s.u16(b.rowBytes);
    s.rettangolo(b.bounds);
    s.rettangolo(b.bounds);
    s.rettangolo(dst);
    s.u16(modo);
    for (std::int32_t y = 0; y < b.altezza(); ++y) {
        std::string riga;
        if (imballato) {
            Impacchetta(b.riga(y), static_cast<std::size_t>(b.rowBytes), riga);
            if (b.rowBytes > 250) {
                s.u16(static_cast<std::int64_t>(riga.size()));
            } else {
                s.u8(static_cast<std::uint32_t>(riga.size()));
            }
        } else {
            riga.assign(reinterpret_cast<const char*>(b.riga(y)), static_cast<std::size_t>(b.rowBytes));
        }
        s.bytes += riga;
    }
    dati = std::move(s.bytes);
    constexpr std::uint16_t nonImballato = 0x90;
    return imballato ? static_cast<std::uint16_t>(opPackBitsRect) : nonImballato;
}

void dipingi(const BitMap& b, std::int32_t x, std::int32_t y, std::int16_t modo) {
    const PenState prima = GetPenState();
    const Region r = regione(b, x, y);
    if (modo == srcCopy) EraseRect(OffsetRect(b.bounds, x, y));
    PenPat(qdBlack);
    PenMode(modo == srcXor ? patXor : patCopy);
    if (modo == srcBic) {
        EraseRgn(r);
    } else {
        PaintRgn(r);
    }
    SetPenState(prima);
}

bool scuro(std::uint32_t p) {
    const std::uint32_t rosso = p >> 16 & 0xFF, verde = p >> 8 & 0xFF, blu = p & 0xFF;
    return 299 * rosso + 587 * verde + 114 * blu < 127500;
}

}   // namespace

BitMap* StringToBitMap(std::int16_t font, std::int16_t size, std::int16_t face, const unsigned char* s, FontInfo& info,
                       std::int16_t& w) {
    const std::string_view testo(reinterpret_cast<const char*>(s) + 1, s[0]);
    const auto stile = static_cast<std::uint8_t>(face);
    info = GetFontInfo(font, size, stile);
    w = static_cast<std::int16_t>(std::clamp(TextWidth(font, size, stile, testo), 0, latoMassimo));
    const std::int32_t alta = info.ascent + info.descent;
    if (alta < 0 || alta > latoMassimo) return nullptr;
    BitMap* const b = NewBitMap(w, static_cast<std::int16_t>(alta));
    if (b != nullptr) posa(*b, TextMask(font, size, stile, 1, testo), 0, info.ascent);
    return b;
}

BitMapPort* NewBMP(BitMap* b) {
    if (b == nullptr) return nullptr;
    std::unique_ptr<BitMapPort> p(new (std::nothrow) BitMapPort);
    if (p == nullptr) return nullptr;
    try {
        p->port.resize(b->larghezza(), b->altezza(), 1);
    } catch (const std::bad_alloc&) { return nullptr; }
    for (std::int32_t y = 0; y < b->altezza(); ++y)
        for (std::int32_t x = 0; x < b->larghezza(); ++x)
            p->port.pixels()[y * p->port.rowPixels() + x] =
                BitMapTest(b, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)) ? neroPixel : biancoPixel;
    p->bitmap = b;
    p->prima = GetPort();
    SetPort(&p->port);
    return p.release();
}

void DisposeBMP(BitMapPort* p) {
    if (p == nullptr) return;
    const std::unique_ptr<BitMapPort> suo(p);
    BitMap* const b = p->bitmap;
    std::fill_n(b->baseAddr, static_cast<std::ptrdiff_t>(b->rowBytes) * b->altezza(), std::uint8_t{0});
    for (std::int32_t y = 0; y < b->altezza(); ++y)
        for (std::int32_t x = 0; x < b->larghezza(); ++x)
            if (scuro(p->port.pixel(x, y))) BitMapSet(b, static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    SetPort(p->prima);
}

void PlotBitMap(const BitMap* b, std::int32_t x, std::int32_t y, std::int16_t modo) {
    if (b == nullptr || EmptyRect(b->bounds)) return;
    auto* const registratore = dynamic_cast<PortaDiPassaggio*>(GetPort());
    if (registratore == nullptr) return dipingi(*b, x, y, modo);
    const Rect dst = OffsetRect(b->bounds, x, y);
    if (dst.left < -latoMassimo || dst.top < -latoMassimo || dst.right > latoMassimo || dst.bottom > latoMassimo)
        return;
    std::string dati;
    const std::uint16_t op = datiBits(*b, dst, modo, dati);
    registratore->passa(op, dati);
}

BitMap* PICTToBitMap(PicHandle picture) {
    Rect frame;
    double dpiX = 72, dpiY = 72;
    const std::string& bytes = PictBytes(picture);
    if (!PictFrame(bytes, frame, dpiX, dpiY)) return nullptr;
    const std::int32_t w = frame.right - frame.left, h = frame.bottom - frame.top;
    if (w > latoMassimo || h > latoMassimo) return nullptr;
    BitMap* const b = NewBitMap(static_cast<std::int16_t>(w), static_cast<std::int16_t>(h));
    BitMapPort* const p = NewBMP(b);
    if (p == nullptr) {
        KillBitMap(b);
        return nullptr;
    }
    DrawPicture(bytes, b->bounds);
    DisposeBMP(p);
    return b;
}

PicHandle BitMapToPICT(const BitMap* b) {
    if (b == nullptr || EmptyRect(b->bounds)) return 0;
    OpenPicture(b->bounds);
    PlotBitMap(b, 0, 0, srcCopy);
    std::string bytes = ClosePicture();
    return bytes.empty() ? 0 : NewPict(std::move(bytes));
}

}   // namespace tessaro
