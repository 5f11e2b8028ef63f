// Writers of whole rasters as version 2 pictures.
#include "platform/pict/Scrittore.h"

#include <algorithm>
#include <cmath>

#include "platform/pict/Codici.h"
#include "platform/pict/DaRighe.h"
#include "platform/pict/Pict.h"

namespace tessaro {

namespace {

constexpr std::int64_t pixelDiFascia = 16 << 20;

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
    s.u16(componenti > 1 ? (bit == 16 ? 5 : 8) : bit);
    for (int i = 0; i < 3; ++i) s.u32(0);   // planes, table, reserved
}

void contoRiga(std::string& a, std::int32_t rowBytes, std::size_t n) {
    if (rowBytes > 250) a.push_back(static_cast<char>(n >> 8));
    a.push_back(static_cast<char>(n));
}

// Pixels of a picture unit, at least one, when they are a whole number: pieces are cut at whole units.
std::int32_t passoDi(const PostoBits& where) {
    const std::int32_t n = where.dst.right - where.dst.left;
    const std::int32_t w = where.src.right - where.src.left;
    return n > 0 && w > n && w % n == 0 ? w / n : 1;
}

// The piece's own coordinates: those of a wide raster would not fit 16 bits.
Rect sue(const Rect& pezzo) { return Rect{0, 0, pezzo.bottom - pezzo.top, pezzo.right - pezzo.left}; }

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

// A piece's place; those at the raster's right and lower ends reach the place's own.
Rect portaIntero(const Rect& pezzo, const PostoBits& where, std::int32_t largo, std::int32_t alto) {
    Rect r = porta(pezzo, where.src, where.dst);
    if (pezzo.right == where.src.left + largo) r.right = where.dst.right;
    if (pezzo.bottom == where.src.top + alto) r.bottom = where.dst.bottom;
    return r;
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
std::int32_t striscePer(std::int32_t width, std::int32_t passo, bool sedici) {
    const std::int32_t massimo = maxRowBytes / (sedici ? 2 : 4) / passo * passo;
    const std::int32_t n = (width + massimo - 1) / massimo;
    const std::int32_t da = sedici ? 124 : 62;
    return width > da && width < da + (sedici ? 10 : 5) ? 2 : n;
}

void striscia(Scrittore& s, const std::uint8_t* indices, const std::vector<RGBColor>& palette, const Rect& tutti,
              const Rect& pezzo, std::int16_t depth, const PostoBits& where) {
    const std::int32_t w = pezzo.right - pezzo.left;
    const auto utili = static_cast<std::int32_t>((std::int64_t(w) * depth + 7) / 8);
    const std::int32_t rowBytes = rowBytesSicuri(utili + (utili & 1));
    s.codice(opPackBitsRect);
    s.u16(rowBytes | 0x8000);
    s.rettangolo(sue(pezzo));
    campiPixMap(s, 0, depth, 1);
    tavola(s, palette, std::size_t{1} << depth);
    s.rettangolo(sue(pezzo));
    s.rettangolo(portaIntero(pezzo, where, tutti.right, tutti.bottom));
    s.u16(where.mode);
    std::vector<std::uint8_t> banco(static_cast<std::size_t>(rowBytes));
    std::string pacco;
    for (std::int32_t y = pezzo.top; y < pezzo.bottom; ++y) {
        const std::uint8_t* da =
            indices + std::ptrdiff_t(y - where.src.top) * tutti.right + (pezzo.left - where.src.left);
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

void Scrittore::testa(const Rect& frame, const Rect& unita, double dpiX, double dpiY) {
    u16(0);
    rettangolo(frame);
    u16(opVersion);
    u16(0x02FF);
    u16(opHeader);
    u16(-2);
    u16(0);
    fixed(dpiX);
    fixed(dpiY);
    rettangolo(unita);
    u32(0);
    codice(opDefHilite);
    codice(opClip);
    u16(10);
    rettangolo(unita);
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

void ImpacchettaDoppi(const std::uint16_t* da, std::size_t n, std::string& a) {
    constexpr std::size_t massimo = 128;
    const auto uno = [&](std::uint16_t v) {
        a.push_back(static_cast<char>(v >> 8));
        a.push_back(static_cast<char>(v));
    };
    std::size_t p = 0;
    while (p < n) {
        std::size_t uguali = 1;
        while (uguali < massimo && p + uguali < n && da[p + uguali] == da[p]) ++uguali;
        if (uguali > 1) {
            a.push_back(static_cast<char>(1 - static_cast<int>(uguali)));
            uno(da[p]);
            p += uguali;
            continue;
        }
        std::size_t fine = p + 1;
        while (fine < n && fine - p < massimo && !(fine + 1 < n && da[fine] == da[fine + 1])) ++fine;
        a.push_back(static_cast<char>(fine - p - 1));
        for (; p < fine; ++p) uno(da[p]);
    }
}

PixelInCorso::PixelInCorso(Scrittore& w, std::int32_t width, std::int32_t height, const PostoBits& where,
                           std::int16_t depth)
    : s(w), largo(width), alto(height), strisce(1), perStriscia(width), perFascia(height), sedici(depth == 16),
      posto(where) {
    const std::int32_t passo = passoDi(where);
    strisce = striscePer(largo, passo, sedici);
    perStriscia = (largo + strisce - 1) / strisce;
    perStriscia = (perStriscia + passo - 1) / passo * passo;
    strisce = (largo + perStriscia - 1) / perStriscia;
    if ((strisce > 1 && std::int64_t(largo) * alto > pixelDiFascia) || alto > maxLato)
        perFascia = static_cast<std::int32_t>(std::clamp<std::int64_t>(pixelDiFascia / largo, 64, maxLato));
    perFascia = std::max(passo, perFascia / passo * passo);
    if (perFascia + passo > alto && alto <= maxLato) perFascia = alto;
    pacchi.resize(static_cast<std::size_t>(strisce));
    piani.resize(static_cast<std::size_t>(perStriscia) * 3);
    doppi.resize(sedici ? static_cast<std::size_t>(perStriscia) : 0);
    if (diFila()) testaPezzo(Rect{posto.src.top, posto.src.left, posto.src.top + alto, posto.src.left + largo});
}

void PixelInCorso::testaPezzo(const Rect& pezzo) {
    const std::int32_t perPixel = sedici ? 2 : 4;
    const Rect bounds = sue(pezzo);
    s.codice(opDirectBitsRect);
    s.u32(0xFF);   // base address, of no meaning in a file
    s.u16((bounds.right * perPixel) | 0x8000);
    s.rettangolo(bounds);
    const bool corte = bounds.right * perPixel < 8;
    campiPixMap(s, corte ? 1 : sedici ? 3 : 4, sedici ? 16 : 32, 3);
    s.rettangolo(bounds);
    s.rettangolo(portaIntero(pezzo, posto, largo, alto));
    s.u16(posto.mode);
}

void PixelInCorso::rigaLarga(const std::uint32_t* pixel, std::size_t w, std::string& a) {
    if (w * 4 < 8) {   // rows this short are never packed
        for (std::size_t x = 0; x < w; ++x)
            for (const int giu : {24, 16, 8, 0}) a.push_back(giu == 24 ? '\0' : static_cast<char>(pixel[x] >> giu));
        return;
    }
    for (std::size_t x = 0; x < w; ++x) {
        piani[x] = static_cast<std::uint8_t>(pixel[x] >> 16);
        piani[w + x] = static_cast<std::uint8_t>(pixel[x] >> 8);
        piani[2 * w + x] = static_cast<std::uint8_t>(pixel[x]);
    }
    Impacchetta(piani.data(), w * 3, a);
}

void PixelInCorso::rigaStretta(const std::uint32_t* pixel, std::size_t w, std::string& a) {
    for (std::size_t x = 0; x < w; ++x) {
        const auto cinque = [p = pixel[x]](int giu) { return (((p >> giu) & 0xFF) * 31 + 127) / 255; };
        doppi[x] = static_cast<std::uint16_t>(cinque(16) << 10 | cinque(8) << 5 | cinque(0));
    }
    if (w * 2 >= 8) return ImpacchettaDoppi(doppi.data(), w, a);
    for (std::size_t x = 0; x < w; ++x) {
        a.push_back(static_cast<char>(doppi[x] >> 8));
        a.push_back(static_cast<char>(doppi[x]));
    }
}

void PixelInCorso::riga(const std::uint32_t* pixel) {
    if (y >= alto) return;
    for (std::int32_t k = 0; k < strisce; ++k) {
        const std::int32_t da = k * perStriscia;
        const auto w = static_cast<std::size_t>(std::min(perStriscia, largo - da));
        const std::size_t rowBytes = w * (sedici ? 2 : 4);
        std::string& a = diFila() ? s.bytes : pacchi[static_cast<std::size_t>(k)];
        const std::size_t perConto = rowBytes < 8 ? 0 : rowBytes > 250 ? 2 : 1;
        const std::size_t conto = a.size();
        a.append(perConto, '\0');
        if (sedici)
            rigaStretta(pixel + da, w, a);
        else
            rigaLarga(pixel + da, w, a);
        const std::size_t n = a.size() - conto - perConto;
        if (perConto == 2) a[conto] = static_cast<char>(n >> 8);
        if (perConto > 0) a[conto + perConto - 1] = static_cast<char>(n);
    }
    ++y;
    if (!diFila() && (y == alto || y - inizioFascia == perFascia)) chiudiFascia();
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
    const std::int32_t passo = passoDi(where);
    const std::int32_t largo = maxRowBytes * 8 / depth > maxLato ? maxLato : maxRowBytes * 8 / depth;
    const std::int32_t perStriscia = largo / passo * passo;
    const std::int32_t perFascia = maxLato / passo * passo;
    for (std::int32_t y = 0; y < height; y += perFascia)
        for (std::int32_t x = 0; x < width; x += perStriscia) {
            const std::int32_t su = where.src.top + y, da = where.src.left + x;
            const Rect pezzo{su, da, su + std::min(perFascia, height - y), da + std::min(perStriscia, width - x)};
            striscia(s, indices, palette, Rect{0, 0, height, width}, pezzo, depth, where);
        }
}

UnitaRaster UnitaPer(std::int32_t width, std::int32_t height) {
    constexpr std::int32_t comodo = 32000;
    const std::int32_t k = std::max(1, (std::max(width, height) + comodo - 1) / comodo);
    return {k, Rect{0, 0, (height + k - 1) / k, (width + k - 1) / k}};
}

Rect FramePer(std::int32_t width, std::int32_t height, double dpiX, double dpiY) {
    const auto punti = [](std::int32_t n, double dpi) {
        return static_cast<std::int32_t>(
            std::lround(std::clamp(n * 72.0 / (dpi > 0 ? dpi : 72), 1.0, double(maxLato))));
    };
    return Rect{0, 0, punti(height, dpiY), punti(width, dpiX)};
}

std::string PictDaPixel(const std::uint32_t* pixels, std::int32_t width, std::int32_t height) {
    PictDaRighe righe(width, height, {});
    for (std::int32_t y = 0; y < height; ++y) righe.riga(pixels + std::ptrdiff_t(y) * width);
    return righe.fine();
}

std::string PictDaIndici(const std::uint8_t* indices, const std::vector<RGBColor>& palette, std::int32_t width,
                         std::int32_t height, std::int16_t depth, double dpiX, double dpiY) {
    if (width <= 0 || height <= 0 || (depth != 1 && depth != 8)) return {};
    const UnitaRaster u = UnitaPer(width, height);
    Scrittore s;
    s.testa(FramePer(width, height, dpiX, dpiY), u.spazio, dpiX / u.pixel, dpiY / u.pixel);
    const Rect pieno{0, 0, u.spazio.bottom * u.pixel, u.spazio.right * u.pixel};
    ScriviIndici(s, indices, palette, width, height, depth, PostoBits{pieno, u.spazio, bitsCopia});
    return s.fine();
}

std::string PictDaJpeg(std::string_view jpeg, std::int32_t width, std::int32_t height, double dpiX, double dpiY) {
    constexpr std::size_t prima = 68, descrizione = 86;
    constexpr std::int32_t maxJpeg = 65535;
    if (width <= 0 || height <= 0 || std::max(width, height) > maxJpeg || jpeg.size() > 0x7FFFFF00U) return {};
    const UnitaRaster u = UnitaPer(width, height);
    const double scala = 1.0 / u.pixel;
    Scrittore s;
    s.bytes.reserve(jpeg.size() + 512);
    s.testa(FramePer(width, height, dpiX, dpiY), u.spazio, dpiX / u.pixel, dpiY / u.pixel);
    s.codice(opCompresso);
    s.u32(static_cast<std::int64_t>(prima + descrizione + jpeg.size()));
    s.u16(0);
    for (const double m : {scala, 0.0, 0.0, 0.0, scala, 0.0, 0.0, 0.0}) s.fixed(m);
    s.u32(0x40000000);   // the matrix's corner is 2.30 fixed
    s.u32(0);            // no matte
    s.rettangolo(Rect{});
    s.u16(0);                                         // copy
    s.rettangolo(u.pixel == 1 ? u.spazio : Rect{});   // the part shown; of a greater one all of it
    s.u32(0);                                         // accuracy: as the decoder likes
    s.u32(0);                                         // no mask
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
