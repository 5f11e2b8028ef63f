// Writers of whole rasters as version 2 pictures.
#include "platform/pict/Scrittore.h"

#include <algorithm>
#include <cmath>

#include "platform/pict/Codici.h"
#include "platform/pict/Pict.h"

namespace tessaro {

namespace {

constexpr std::int64_t pixelDiFascia = 16 << 20;

bool latiBuoni(std::int32_t width, std::int32_t height) {
    return width > 0 && height > 0 && width <= maxLato && height <= maxLato;
}

// The pixel map's fields behind rowBytes and bounds.
void campiPixMap(Scrittore& s, std::int16_t packType, std::int16_t bit, std::int16_t componenti) {
    s.u16(0);   // version
    s.u16(packType);
    s.u32(0);
    s.fixed(72);
    s.fixed(72);
    s.u16(componenti > 1 ? 16 : 0);   // pixel type: direct or indexed
    s.u16(bit);
    s.u16(componenti);
    s.u16(componenti > 1 ? 8 : bit);
    for (int i = 0; i < 3; ++i) s.u32(0);   // planes, table, reserved
}

void contoRiga(std::string& a, std::int32_t rowBytes, std::size_t n) {
    if (rowBytes > 250) a.push_back(static_cast<char>(n >> 8));
    a.push_back(static_cast<char>(n));
}

// Part `pezzo` of `tutto`, carried over to `dove`.
Rect porta(const Rect& pezzo, const Rect& tutto, const Rect& dove) {
    const auto h = [&](std::int32_t x) {
        return dove.left
               + static_cast<std::int32_t>(std::lround((double(x) - tutto.left) * (double(dove.right) - dove.left)
                                                       / (double(tutto.right) - tutto.left)));
    };
    const auto v = [&](std::int32_t y) {
        return dove.top
               + static_cast<std::int32_t>(std::lround((double(y) - tutto.top) * (double(dove.bottom) - dove.top)
                                                       / (double(tutto.bottom) - tutto.top)));
    };
    return Rect{v(pezzo.top), h(pezzo.left), v(pezzo.bottom), h(pezzo.right)};
}

void tavola(Scrittore& s, const std::vector<RGBColor>& palette, std::size_t quanti) {
    s.u32(0);   // seed
    s.u16(0);   // the colours carry their indices
    s.u16(static_cast<std::int64_t>(quanti) - 1);
    for (std::size_t i = 0; i < quanti; ++i) {
        s.u16(static_cast<std::int64_t>(i));
        s.colore(i < palette.size() ? palette[i] : RGBColor{});
    }
}

// From 201 to 250 bytes a row some readers take a count of two bytes for a row, others of one: such rows are made longer.
std::int32_t rowBytesSicuri(std::int32_t n) { return n > 200 && n <= 250 ? 252 : n; }

// How many strips the direct pixels of a width make. All are about as wide, so that none is a sliver, which some readers
// refuse; and none is of the few widths where readers differ about the row's count.
std::int32_t striscePer(std::int32_t width) {
    const std::int32_t n = (width + maxRowBytes / 4 - 1) / (maxRowBytes / 4);
    return width > 62 && width < 67 ? 2 : n;
}

void striscia(Scrittore& s, const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t larghi,
              const Rect& pezzo, std::int16_t depth, const PostoBits& where) {
    const std::int32_t w = pezzo.right - pezzo.left;
    const auto utili = static_cast<std::int32_t>((std::int64_t(w) * depth + 7) / 8);
    const std::int32_t rowBytes = rowBytesSicuri(utili + (utili & 1));
    s.codice(opPackBitsRect);
    s.u16(rowBytes | 0x8000);
    s.rettangolo(pezzo);
    campiPixMap(s, 0, depth, 1);
    tavola(s, palette, std::size_t{1} << depth);
    s.rettangolo(pezzo);
    s.rettangolo(porta(pezzo, where.src, where.dst));
    s.u16(where.mode);
    std::vector<std::uint8_t> banco(static_cast<std::size_t>(rowBytes));
    std::string pacco;
    for (std::int32_t y = pezzo.top; y < pezzo.bottom; ++y) {
        const std::uint8_t* da = indices + std::ptrdiff_t(y - where.src.top) * larghi + (pezzo.left - where.src.left);
        std::fill(banco.begin(), banco.end(), std::uint8_t{0});
        if (depth == 8)
            std::copy(da, da + w, banco.begin());
        else
            for (std::int32_t x = 0; x < w; ++x)
                if (da[x] != 0) banco[static_cast<std::size_t>(x / 8)] |= static_cast<std::uint8_t>(0x80 >> (x % 8));
        if (rowBytes < 8) {
            s.bytes.append(reinterpret_cast<const char*>(banco.data()), banco.size());
            continue;
        }
        pacco.clear();
        Impacchetta(banco.data(), banco.size(), pacco);
        contoRiga(s.bytes, rowBytes, pacco.size());
        s.bytes += pacco;
    }
}

}   // namespace

void Scrittore::fixed(double v) { u32(std::lround(std::clamp(v, -32767.0, 32767.0) * 65536)); }

void Scrittore::testa(const Rect& frame, double dpiX, double dpiY) {
    u16(0);
    rettangolo(frame);
    u16(opVersion);
    u16(0x02FF);
    u16(opHeader);
    u16(-2);
    u16(0);
    fixed(dpiX);
    fixed(dpiY);
    rettangolo(frame);
    u32(0);
    codice(opDefHilite);
    codice(opClip);
    u16(10);
    rettangolo(frame);
}

std::string Scrittore::fine() {
    codice(opEndPic);
    bytes[0] = static_cast<char>(bytes.size() >> 8);
    bytes[1] = static_cast<char>(bytes.size());
    return std::move(bytes);
}

void Impacchetta(const std::uint8_t* da, std::size_t n, std::string& a) {
    constexpr std::size_t massimo = 128;
    std::size_t p = 0;
    while (p < n) {
        std::size_t uguali = 1;
        while (uguali < massimo && p + uguali < n && da[p + uguali] == da[p]) ++uguali;
        if (uguali > 2) {
            a.push_back(static_cast<char>(1 - static_cast<int>(uguali)));
            a.push_back(static_cast<char>(da[p]));
            p += uguali;
            continue;
        }
        // Literals up to the next run of three: shorter runs cost as much as they save.
        std::size_t fine = p + uguali;
        while (fine < n && fine - p < massimo
               && !(fine + 2 < n && da[fine] == da[fine + 1] && da[fine] == da[fine + 2]))
            ++fine;
        a.push_back(static_cast<char>(fine - p - 1));
        a.append(reinterpret_cast<const char*>(da + p), fine - p);
        p = fine;
    }
}

PixelInCorso::PixelInCorso(Scrittore& w, std::int32_t width, std::int32_t height, const PostoBits& where)
    : s(w), largo(width), alto(height), strisce(1), perStriscia(width), perFascia(height), posto(where) {
    strisce = striscePer(largo);
    perStriscia = (largo + strisce - 1) / strisce;
    if (strisce > 1 && std::int64_t(largo) * alto > pixelDiFascia)
        perFascia = static_cast<std::int32_t>(std::max<std::int64_t>(64, pixelDiFascia / largo));
    pacchi.resize(static_cast<std::size_t>(strisce));
    piani.resize(static_cast<std::size_t>(perStriscia) * 3);
    if (strisce == 1) testaPezzo(posto.src);   // one strip needs no waiting: its rows go straight behind the head
}

void PixelInCorso::testaPezzo(const Rect& bounds) {
    s.codice(opDirectBitsRect);
    s.u32(0xFF);   // base address, of no meaning in a file
    s.u16(((bounds.right - bounds.left) * 4) | 0x8000);
    s.rettangolo(bounds);
    const bool corte = (bounds.right - bounds.left) * 4 < 8;
    campiPixMap(s, corte ? 1 : 4, 32, 3);
    s.rettangolo(bounds);
    s.rettangolo(porta(bounds, posto.src, posto.dst));
    s.u16(posto.mode);
}

void PixelInCorso::riga(const std::uint32_t* pixel) {
    if (y >= alto) return;
    for (std::int32_t k = 0; k < strisce; ++k) {
        const std::int32_t da = k * perStriscia;
        const auto w = static_cast<std::size_t>(std::min(perStriscia, largo - da));
        std::string& a = strisce == 1 ? s.bytes : pacchi[static_cast<std::size_t>(k)];
        if (w * 4 < 8) {   // rows this short are never packed
            for (std::size_t x = 0; x < w; ++x) {
                const std::uint32_t p = pixel[static_cast<std::size_t>(da) + x];
                for (const int giu : {16, 8, 0}) {
                    if (giu == 16) a.push_back(0);
                    a.push_back(static_cast<char>(p >> giu));
                }
            }
            continue;
        }
        for (std::size_t x = 0; x < w; ++x) {
            const std::uint32_t p = pixel[static_cast<std::size_t>(da) + x];
            piani[x] = static_cast<std::uint8_t>(p >> 16);
            piani[w + x] = static_cast<std::uint8_t>(p >> 8);
            piani[2 * w + x] = static_cast<std::uint8_t>(p);
        }
        const bool lungo = w * 4 > 250;
        const std::size_t conto = a.size();
        a.append(lungo ? 2 : 1, '\0');
        Impacchetta(piani.data(), w * 3, a);
        const std::size_t n = a.size() - conto - (lungo ? 2 : 1);
        if (lungo) a[conto] = static_cast<char>(n >> 8);
        a[conto + (lungo ? 1 : 0)] = static_cast<char>(n);
    }
    ++y;
    if (strisce > 1 && (y == alto || y - inizioFascia == perFascia)) chiudiFascia();
}

void PixelInCorso::chiudiFascia() {
    for (std::int32_t k = 0; k < strisce; ++k) {
        const std::int32_t da = posto.src.left + k * perStriscia;
        testaPezzo(Rect{posto.src.top + inizioFascia, da, posto.src.top + y,
                        std::min(da + perStriscia, posto.src.left + largo)});
        std::string& pacco = pacchi[static_cast<std::size_t>(k)];
        s.bytes += pacco;
        pacco.clear();
    }
    inizioFascia = y;
}

void ScriviIndici(Scrittore& s, const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t width,
                  std::int32_t height, std::int16_t depth, const PostoBits& where) {
    const std::int32_t massimo = maxRowBytes * 8 / depth;
    for (std::int32_t x = 0; x < width; x += massimo) {
        const std::int32_t da = where.src.left + x;
        const Rect pezzo{where.src.top, da, where.src.top + height, da + std::min(massimo, width - x)};
        striscia(s, indices, palette, width, pezzo, depth, where);
    }
}

std::string PictDaPixel(const std::uint32_t* pixels, std::int32_t width, std::int32_t height) {
    if (!latiBuoni(width, height)) return {};
    const Rect r{0, 0, height, width};
    Scrittore s;
    s.testa(r);
    PixelInCorso corso(s, width, height, PostoBits{r, r, bitsCopia});
    for (std::int32_t y = 0; y < height; ++y) corso.riga(pixels + std::ptrdiff_t(y) * width);
    return s.fine();
}

std::string PictDaIndici(const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t width,
                         std::int32_t height, std::int16_t depth) {
    if (!latiBuoni(width, height) || (depth != 1 && depth != 8)) return {};
    const Rect r{0, 0, height, width};
    Scrittore s;
    s.testa(r);
    ScriviIndici(s, indices, palette, width, height, depth, PostoBits{r, r, bitsCopia});
    return s.fine();
}

std::string PictDaJpeg(std::string_view jpeg, std::int32_t width, std::int32_t height, double dpiX, double dpiY) {
    constexpr std::size_t prima = 68, descrizione = 86;
    if (!latiBuoni(width, height) || jpeg.size() > 0x7FFFFF00U) return {};
    const Rect r{0, 0, height, width};
    Scrittore s;
    s.bytes.reserve(jpeg.size() + 512);
    s.testa(r);
    s.codice(opCompresso);
    s.u32(static_cast<std::int64_t>(prima + descrizione + jpeg.size()));
    s.u16(0);
    for (const double m : {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0}) s.fixed(m);
    s.u32(0x40000000);   // the matrix's corner is 2.30 fixed
    s.u32(0);            // no matte
    s.rettangolo(Rect{});
    s.u16(0);   // copy
    s.rettangolo(r);
    s.u32(0);   // accuracy: as the decoder likes
    s.u32(0);   // no mask
    s.u32(descrizione);
    s.u32(0x6A706567);   // 'jpeg'
    for (int i = 0; i < 2; ++i) s.u32(0);
    s.u32(0);       // version, revision
    s.u32(0);       // vendor
    s.u32(0);       // temporal quality
    s.u32(0x200);   // spatial quality: normal
    s.u16(width);
    s.u16(height);
    s.fixed(dpiX);
    s.fixed(dpiY);
    s.u32(static_cast<std::int64_t>(jpeg.size()));
    s.u16(1);   // frames
    s.u8(12);
    s.bytes += "Photo - JPEG";
    s.bytes.append(31 - 12, '\0');
    s.u16(24);
    s.u16(-1);   // no colour table
    s.bytes += jpeg;
    return s.fine();
}

}   // namespace tessaro
