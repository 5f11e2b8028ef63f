// Buffers, and the translation of colours into their pixels.
#include "raster/Tela.h"

#include <algorithm>
#include <cstring>
#include <unordered_map>
#include <vector>

#include "bitmap/Riduci.h"
#include "platform/Memory.h"

namespace tessaro {

namespace {

constexpr std::uint32_t opaco = 0xFF000000U;

std::uint32_t quindiciBit(std::uint32_t p) { return (p >> 9 & 0x7C00U) | (p >> 6 & 0x3E0U) | (p >> 3 & 0x1FU); }

std::uint32_t daQuindici(std::uint32_t p) {
    const auto otto = [](std::uint32_t c) { return c << 3 | c >> 2; };
    return opaco | otto(p >> 10 & 31) << 16 | otto(p >> 5 & 31) << 8 | otto(p & 31);
}

std::uint32_t grigio(std::uint32_t v) { return opaco | v << 16 | v << 8 | v; }

// Six steps a component from white on, then ten steps each of red, green, blue and grey between them, and black last.
void coloriDiSistema(Formato& f) {
    std::size_t n = 0;
    for (std::uint32_t r = 0; r < 6; ++r)
        for (std::uint32_t g = 0; g < 6; ++g)
            for (std::uint32_t b = 0; b < 6 && n < 215; ++b)
                f.colori[n++] = opaco | (255 - r * 51) << 16 | (255 - g * 51) << 8 | (255 - b * 51);
    constexpr std::uint32_t gradi[] = {0xEE, 0xDD, 0xBB, 0xAA, 0x88, 0x77, 0x55, 0x44, 0x22, 0x11};
    for (const std::uint32_t peso : {0x10000U, 0x100U, 1U, 0x10101U})
        for (const std::uint32_t v : gradi) f.colori[n++] = opaco | v * peso;
    f.colori[n] = opaco;
}

void coloriGrigi(Formato& f) {
    for (std::uint32_t i = 0; i < 256; ++i) f.colori[i] = grigio(255 - i);
}

void tavolaVicini(Formato& f) {
    for (std::uint32_t p = 0; p < f.vicino.size(); ++p) {
        const std::uint32_t c = daQuindici(p);
        int scelto = 0, migliore = 1 << 30;
        for (int i = 0; i < 256 && migliore > 0; ++i) {
            const std::uint32_t q = f.colori[static_cast<std::size_t>(i)];
            const int r = int(c >> 16 & 255) - int(q >> 16 & 255), g = int(c >> 8 & 255) - int(q >> 8 & 255),
                      b = int(c & 255) - int(q & 255), d = 3 * r * r + 6 * g * g + b * b;
            if (d < migliore) {
                migliore = d;
                scelto = i;
            }
        }
        f.vicino[p] = static_cast<std::uint8_t>(scelto);
    }
}

// The colours of a picture while they are few.
struct Conta {
    std::unordered_map<std::uint32_t, std::uint8_t> pochi;
    bool troppi = false, colore = false;
    void riga(const std::uint32_t* p, std::int32_t n) {
        std::uint32_t ultimo = 0;
        for (std::int32_t i = 0; i < n; ++i) {
            const std::uint32_t c = p[i] >> 24 == 0 ? 0xFFFFFFFFU : p[i] | opaco;
            if (c == ultimo) continue;
            ultimo = c;
            colore = colore || grigio(c & 255) != c;
            if (!troppi) pochi.emplace(c, std::uint8_t{0});
            troppi = troppi || pochi.size() > 256;
            if (troppi && colore) return;
        }
    }
};

void coloriDellImmagine(Formato& f, FonteRighe& fonte) {
    Conta conta;
    conta.pochi.emplace(0xFFFFFFFFU, std::uint8_t{0});   // the ground
    std::vector<std::uint32_t> banco(static_cast<std::size_t>(fonte.width));
    for (std::int32_t y = 0; y < fonte.height && !(conta.troppi && conta.colore); ++y) {
        fonte.riga(y, 0, fonte.width, banco.data());
        conta.riga(banco.data(), fonte.width);
    }
    if (!conta.troppi) {
        std::vector<std::uint32_t> tutti;
        for (const auto& [c, indice] : conta.pochi) tutti.push_back(c);
        std::sort(tutti.rbegin(), tutti.rend());   // white first, so that it is the ground
        f.colori.fill(opaco);
        std::copy(tutti.begin(), tutti.end(), f.colori.begin());
        f.esatti = true;
    } else if (!conta.colore) {
        coloriGrigi(f);
        f.esatti = true;
    } else {
        coloriDiSistema(f);
    }
}

}   // namespace

std::uint32_t Formato::bianco() const {
    if (bit == 32) return 0xFFFFFFFFU;
    if (bit == 16) return 0x7FFF;
    return vicino[0x7FFF];
}

void Formato::codifica(const std::uint32_t* da, std::int32_t n, std::uint8_t* a) const {
    if (bit == 32) {
        for (std::int32_t i = 0; i < n; ++i) {
            const std::uint32_t p = da[i] >> 24 == 0 ? 0xFFFFFFFFU : da[i];
            std::memcpy(a + 4 * std::ptrdiff_t(i), &p, 4);
        }
        return;
    }
    if (bit == 16) {
        for (std::int32_t i = 0; i < n; ++i) {
            const auto p = static_cast<std::uint16_t>(da[i] >> 24 == 0 ? 0x7FFF : quindiciBit(da[i]));
            std::memcpy(a + 2 * std::ptrdiff_t(i), &p, 2);
        }
        return;
    }
    std::uint32_t ultimo = 0xFFFFFFFFU;
    std::uint8_t indice = vicino[0x7FFF];
    for (std::int32_t i = 0; i < n; ++i) {
        const std::uint32_t p = da[i] >> 24 == 0 ? 0xFFFFFFFFU : da[i] | opaco;
        if (p != ultimo) {
            ultimo = p;
            indice = vicino[quindiciBit(p)];
            if (esatti && colori[indice] != p) {   // descending colours
                const auto c = std::lower_bound(colori.begin(), colori.end(), p, std::greater<>());
                if (c != colori.end() && *c == p) indice = static_cast<std::uint8_t>(c - colori.begin());
            }
        }
        a[i] = indice;
    }
}

void Formato::decodifica(const std::uint8_t* da, std::int32_t n, std::uint32_t* a) const {
    if (bit == 32) {
        std::memcpy(a, da, static_cast<std::size_t>(n) * 4);
        for (std::int32_t i = 0; i < n; ++i) a[i] |= opaco;
        return;
    }
    if (bit == 16) {
        for (std::int32_t i = 0; i < n; ++i) {
            std::uint16_t p = 0;
            std::memcpy(&p, da + 2 * std::ptrdiff_t(i), 2);
            a[i] = daQuindici(p);
        }
        return;
    }
    for (std::int32_t i = 0; i < n; ++i) a[i] = colori[da[i]];
}

std::unique_ptr<Formato> FormatoPer(std::int16_t bit, FonteRighe* fonte) {
    auto f = std::make_unique<Formato>();
    f->bit = std::max<std::int16_t>(bit, 8);
    if (bit > 8) return f;
    if (bit == 1) {
        f->dueColori = true;
        f->colori.fill(opaco);
        f->colori[0] = 0xFFFFFFFFU;
    } else if (fonte != nullptr) {
        coloriDellImmagine(*f, *fonte);
    } else {
        coloriDiSistema(*f);
    }
    tavolaVicini(*f);
    return f;
}

bool NuovaTela(Tela& t, std::int64_t w, std::int64_t h, const Formato& f, bool cancellata) {
    constexpr std::int64_t massimo = 0xFFFFFFFELL;   // pixels that an index of 32 bits tells apart
    const std::int64_t riga = RigaTela(w, f.byte());
    if (w <= 0 || h <= 0 || w > 0x7FFFFFF0LL || h > 0x7FFFFFF0LL || riga / f.byte() > massimo / h) return false;
    if (riga * h > FreeMemory()) return false;
    auto* p = static_cast<std::uint8_t*>(std::malloc(static_cast<std::size_t>(riga * h)));
    if (p == nullptr) return false;
    t.larghezza = static_cast<std::int32_t>(w);
    t.altezza = static_cast<std::int32_t>(h);
    t.byte = f.byte();
    t.rowBytes = riga;
    t.dati.reset(p);
    if (!cancellata) return true;
    const std::uint32_t b = f.bianco();
    if (f.bit == 16)
        std::fill_n(reinterpret_cast<std::uint16_t*>(p), riga * h / 2, static_cast<std::uint16_t>(b));
    else   // all bytes of the white pixel are the same
        std::memset(p, static_cast<int>(b & 255), static_cast<std::size_t>(riga * h));
    return true;
}

}   // namespace tessaro
