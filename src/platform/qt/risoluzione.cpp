// Resolution tags of the raster formats that have them.
#include "platform/qt/risoluzione.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace tessaro {

namespace {

class Testa {
public:
    explicit Testa(std::string_view b) : bytes(b) {}
    bool piccolo = false;   // byte order: little end first
    [[nodiscard]] bool basta(std::size_t dove, std::size_t n) const {
        return dove <= bytes.size() && bytes.size() - dove >= n;
    }
    [[nodiscard]] std::uint32_t u8(std::size_t p) const {
        return basta(p, 1) ? static_cast<std::uint8_t>(bytes[p]) : 0;
    }
    [[nodiscard]] std::uint32_t u16(std::size_t p) const {
        return piccolo ? u8(p) | u8(p + 1) << 8 : u8(p) << 8 | u8(p + 1);
    }
    [[nodiscard]] std::uint32_t u32(std::size_t p) const {
        return piccolo ? u16(p) | u16(p + 2) << 16 : u16(p) << 16 | u16(p + 2);
    }
    std::string_view bytes;
};

constexpr double cmPerPollice = 2.54;

// Whole numbers of dots per inch come back whole although the file holds whole dots per metre, or a rounded fraction.
double alPollice(double dpi) {
    const double intero = std::round(dpi);
    return std::abs(dpi - intero) < 0.026 ? intero : dpi;
}

double daMetro(double perMetro) { return alPollice(perMetro * 0.0254); }

// Whole dots per centimetre cannot say 300 to the inch: they say 118, and mean it.
double daCentimetro(double perCm) {
    for (const double usuale : {72, 96, 100, 150, 200, 240, 300, 400, 600, 800, 1200, 2400})
        if (perCm == std::round(usuale / cmPerPollice)) return usuale;
    return alPollice(perCm * cmPerPollice);
}

bool buona(double x, double y) { return x >= 1 && y >= 1 && x <= 100000 && y <= 100000; }

// The first directory of a TIFF structure; EXIF data have the same form.
bool daTiff(std::string_view bytes, double& x, double& y) {
    Testa t(bytes);
    if (!t.basta(0, 8)) return false;
    if (bytes.substr(0, 2) == "II")
        t.piccolo = true;
    else if (bytes.substr(0, 2) != "MM")
        return false;
    const std::size_t ifd = t.u32(4);
    if (!t.basta(ifd, 2)) return false;
    const std::size_t voci = t.u16(ifd);
    std::uint32_t unita = 2;
    x = y = 0;
    const auto frazione = [&](std::size_t dove) {
        const double sotto = t.u32(dove + 4);
        return t.basta(dove, 8) && sotto != 0 ? t.u32(dove) / sotto : 0;
    };
    for (std::size_t i = 0; i < voci && t.basta(ifd + 2 + 12 * i, 12); ++i) {
        const std::size_t v = ifd + 2 + 12 * i;
        const std::uint32_t tag = t.u16(v);
        if (tag == 282)
            x = frazione(t.u32(v + 8));
        else if (tag == 283)
            y = frazione(t.u32(v + 8));
        else if (tag == 296)
            unita = t.u16(v + 8);
    }
    if (unita != 2 && unita != 3) return false;   // 1: only a ratio of the sides
    x = unita == 3 ? daCentimetro(x) : alPollice(x);
    y = unita == 3 ? daCentimetro(y) : alPollice(y);
    return buona(x, y);
}

bool daPng(const Testa& t, double& x, double& y) {
    for (std::size_t p = 8; t.basta(p, 12);) {
        const std::size_t lungo = t.u32(p);
        const std::string_view nome = t.bytes.substr(p + 4, 4);
        if (nome == "IDAT") return false;
        if (nome == "pHYs" && t.basta(p + 8, 9)) {
            x = daMetro(t.u32(p + 8));
            y = daMetro(t.u32(p + 12));
            return t.u8(p + 16) == 1 && buona(x, y);
        }
        p += 12 + lungo;
    }
    return false;
}

bool daJpeg(const Testa& t, double& x, double& y) {
    bool jfif = false;
    for (std::size_t p = 2; t.basta(p, 4) && t.u8(p) == 0xFF;) {
        const std::uint32_t segno = t.u8(p + 1);
        if (segno == 0xFF) {
            ++p;
            continue;
        }
        if (segno == 0xDA || segno == 0xD9) break;
        const std::size_t lungo = t.u16(p + 2);
        if (lungo < 2 || !t.basta(p + 2, lungo)) break;
        const std::string_view dati = t.bytes.substr(p + 4, lungo - 2);
        if (segno == 0xE0 && dati.substr(0, 5) == std::string_view("JFIF\0", 5) && !jfif) {
            const std::uint32_t unita = t.u8(p + 11);
            const double jx = unita == 2 ? daCentimetro(t.u16(p + 12)) : t.u16(p + 12);
            const double jy = unita == 2 ? daCentimetro(t.u16(p + 14)) : t.u16(p + 14);
            jfif = (unita == 1 || unita == 2) && buona(jx, jy);
            if (jfif) {
                x = jx;
                y = jy;
            }
        }
        double ex = 0, ey = 0;
        if (segno == 0xE1 && dati.substr(0, 6) == std::string_view("Exif\0\0", 6) && !jfif
            && daTiff(dati.substr(6), ex, ey)) {
            x = ex;
            y = ey;
            jfif = true;
        }
        p += 2 + lungo;
    }
    return jfif;
}

}   // namespace

bool RisoluzioneNelFile(std::string_view bytes, double& dpiX, double& dpiY) {
    Testa t(bytes);
    double x = 0, y = 0;
    bool trovata = false;
    if (bytes.substr(0, 4) == "\x89PNG") {
        trovata = daPng(t, x, y);
    } else if (bytes.substr(0, 2) == "\xFF\xD8") {
        trovata = daJpeg(t, x, y);
    } else if (bytes.substr(0, 2) == "BM") {
        t.piccolo = true;
        x = daMetro(t.u32(38));
        y = daMetro(t.u32(42));
        trovata = t.u32(14) >= 40 && buona(x, y);
    } else {
        trovata = daTiff(bytes, x, y);
    }
    if (!trovata) return false;
    dpiX = x;
    dpiY = y;
    return true;
}

TestaJpeg LeggiTestaJpeg(std::string_view bytes) {
    const Testa t(bytes);
    TestaJpeg testa;
    if (bytes.substr(0, 2) != "\xFF\xD8") return testa;
    for (std::size_t p = 2; t.basta(p, 4) && t.u8(p) == 0xFF;) {
        const std::uint32_t segno = t.u8(p + 1);
        if (segno == 0xFF) {
            ++p;
            continue;
        }
        const bool frame = segno >= 0xC0 && segno <= 0xCF && segno != 0xC4 && segno != 0xC8 && segno != 0xCC;
        if (frame && t.basta(p, 10)) {
            testa.valida = true;
            testa.comune = segno <= 0xC2 && t.u8(p + 4) == 8;
            testa.height = static_cast<int>(t.u16(p + 5));
            testa.width = static_cast<int>(t.u16(p + 7));
            testa.componenti = static_cast<int>(t.u8(p + 9));
            return testa;
        }
        if (segno == 0xDA || segno == 0xD9) break;
        p += 2 + std::max<std::size_t>(2, t.u16(p + 2));
    }
    return testa;
}

}   // namespace tessaro
