// Area means and nearest pixels, a row at a time.
#include "bitmap/Riduci.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "bitmap/PerRighe.h"

namespace tessaro {

namespace {

// A pixel of a raster with holes: the colour over white by how much is covered, so that thin lines stay visible, or a
// hole where next to nothing is.
std::uint32_t conBuchi(float r, float g, float b, float a) {
    constexpr float quasiNiente = 12;
    if (a < quasiNiente) return 0x00FFFFFFU;
    const float bianco = 255 - a;
    const auto n = [bianco](float c) { return static_cast<std::uint32_t>(std::min(255.0F, c + bianco + 0.5F)); };
    return 0xFF000000U | n(r) << 16 | n(g) << 8 | n(b);
}

}   // namespace

Riduttore::Tratto Riduttore::tratto(std::int32_t d, double origine, double scala, std::int32_t lato) {
    Tratto t;
    const double limite = lato;
    if (scala >= 1) {
        t.da = static_cast<std::int32_t>(std::clamp(std::floor((d + 0.5 - origine) / scala), 0.0, limite - 1));
        t.a = t.da + 1;
        return t;
    }
    const double da = std::clamp((d - origine) / scala, 0.0, limite);
    const double a = std::clamp((d + 1 - origine) / scala, 0.0, limite);
    t.da = std::min(static_cast<std::int32_t>(da), lato - 1);
    t.a = std::clamp(static_cast<std::int32_t>(std::ceil(a)), t.da + 1, lato);
    t.primo = static_cast<float>(std::min(a, t.da + 1.0) - da);
    t.ultimo = t.a - t.da > 1 ? static_cast<float>(a - (t.a - 1)) : t.primo;
    if (!(t.primo > 0)) t.primo = 1e-6F;   // the rim beyond the last pixel
    return t;
}

Riduttore::Riduttore(FonteRighe& source, const Posa& where, std::int32_t left, std::int32_t w)
    : fonte(source), posa(where), inizio(source.width), fine(0) {
    colonne.reserve(static_cast<std::size_t>(w));
    posti.reserve(static_cast<std::size_t>(w));
    for (std::int32_t i = 0; i < w; ++i) {
        colonne.push_back(tratto(left + i, posa.x, posa.sx, fonte.width));
        posti.push_back(colonne.back().da);
        inizio = std::min(inizio, colonne.back().da);
        fine = std::max(fine, colonne.back().a);
    }
    banco.resize(static_cast<std::size_t>(std::max(fine - inizio, 0)));
    somme.resize(colonne.size() * 4);
    totale.resize(colonne.size() * 4);
}

const float* Riduttore::ridotta(std::int32_t y) {
    if (y == rigaRidotta) return somme.data();
    rigaRidotta = y;
    fonte.riga(y, inizio, fine, banco.data());
    float* s = somme.data();
    for (const Tratto& t : colonne) {
        float r = 0, g = 0, b = 0, a = 0, pesi = 0;
        for (std::int32_t x = t.da; x < t.a; ++x) {
            const std::uint32_t p = banco[static_cast<std::size_t>(x - inizio)];
            float peso = x == t.da ? t.primo : x == t.a - 1 ? t.ultimo : 1.0F;
            pesi += peso;
            if (p >> 24 == 0) continue;
            r += peso * static_cast<float>((p >> 16) & 0xFF);
            g += peso * static_cast<float>((p >> 8) & 0xFF);
            b += peso * static_cast<float>(p & 0xFF);
            a += peso;
        }
        const float inverso = 1 / pesi;
        s[0] = r * inverso;
        s[1] = g * inverso;
        s[2] = b * inverso;
        s[3] = a * inverso * 255;
        s += 4;
    }
    return somme.data();
}

// The source's rows are fetched one after the other, as its coding wants it; only the spreading is shared out.
void Riduttore::cresciute(std::int32_t top, std::int32_t h, std::uint32_t* out) {
    const auto w = static_cast<std::ptrdiff_t>(colonne.size()), lunga = std::ptrdiff_t(fine) - inizio;
    const auto sorgente = [&](std::int32_t i) { return tratto(top + i, posa.y, posa.sy, fonte.height).da; };
    const std::int32_t prima = sorgente(0), ultima = sorgente(h - 1);
    banco.resize(static_cast<std::size_t>(lunga * (ultima + 1 - prima)));
    for (std::int32_t y = prima; y <= ultima; ++y) fonte.riga(y, inizio, fine, banco.data() + (y - prima) * lunga);
    const auto spargi = [&](std::int32_t da, std::int32_t a, std::int32_t) {
        std::int32_t presa = -1;   // the source row that the row above shows
        for (std::int32_t i = da; i < a; ++i) {
            std::uint32_t* const riga = out + i * w;
            const std::int32_t y = sorgente(i);
            if (y == presa) {
                std::memcpy(riga, riga - w, static_cast<std::size_t>(w) * 4);
                continue;
            }
            presa = y;
            const std::uint32_t* const qui = banco.data() + (y - prima) * lunga - inizio;
            for (std::ptrdiff_t x = 0; x < w; ++x) riga[x] = qui[posti[static_cast<std::size_t>(x)]];
        }
    };
    constexpr std::ptrdiff_t valeUnFilo = 1 << 18;   // pixels
    if (w * h < valeUnFilo) return spargi(0, h, 0);
    perRighe(h, spargi);
}

void Riduttore::righe(std::int32_t top, std::int32_t h, std::uint32_t* out) {
    if (h <= 0 || colonne.empty()) return;
    if (posa.sy >= 1 && posa.sx >= 1) return cresciute(top, h, out);
    const std::size_t w = colonne.size();
    for (std::int32_t i = 0; i < h; ++i, out += w) {
        const Tratto t = tratto(top + i, posa.y, posa.sy, fonte.height);
        std::fill(totale.begin(), totale.end(), 0.0F);
        float pesi = 0;
        for (std::int32_t y = t.da; y < t.a; ++y) {
            const float peso = y == t.da ? t.primo : y == t.a - 1 ? t.ultimo : 1.0F;
            const float* s = ridotta(y);
            for (std::size_t k = 0; k < totale.size(); ++k) totale[k] += peso * s[k];
            pesi += peso;
        }
        const float inverso = 1 / pesi;
        const float* s = totale.data();
        for (std::size_t x = 0; x < w; ++x, s += 4) {
            if (fonte.buchi) {
                out[x] = conBuchi(s[0] * inverso, s[1] * inverso, s[2] * inverso, s[3] * inverso);
                continue;
            }
            const auto n = [inverso](float c) { return static_cast<std::uint32_t>(c * inverso + 0.5F); };
            out[x] = 0xFF000000U | n(s[0]) << 16 | n(s[1]) << 8 | n(s[2]);
        }
    }
}

void Dimezza(FonteRighe& source, int esponente, std::vector<std::uint32_t>& out) {
    const std::int32_t lato = 1 << esponente;
    const std::int32_t w = (source.width + lato - 1) >> esponente;
    const std::int32_t h = (source.height + lato - 1) >> esponente;
    struct Somma {
        std::uint32_t r = 0, g = 0, b = 0, a = 0, n = 0;
    };
    std::vector<Somma> somme(static_cast<std::size_t>(w));
    std::vector<std::uint32_t> riga(static_cast<std::size_t>(source.width));
    out.resize(static_cast<std::size_t>(w) * static_cast<std::size_t>(h));
    for (std::int32_t y = 0; y < h; ++y) {
        std::fill(somme.begin(), somme.end(), Somma{});
        for (std::int32_t j = y * lato; j < std::min((y + 1) * lato, source.height); ++j) {
            source.riga(j, 0, source.width, riga.data());
            for (std::int32_t x = 0; x < w; ++x) {
                Somma& s = somme[static_cast<std::size_t>(x)];
                const std::int32_t fine = std::min((x + 1) * lato, source.width);
                for (std::int32_t i = x * lato; i < fine; ++i) {
                    const std::uint32_t p = riga[static_cast<std::size_t>(i)];
                    ++s.n;
                    if (p >> 24 == 0) continue;
                    s.r += (p >> 16) & 0xFF;
                    s.g += (p >> 8) & 0xFF;
                    s.b += p & 0xFF;
                    ++s.a;
                }
            }
        }
        std::uint32_t* a = out.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(w);
        for (const Somma& s : somme) {
            const float n = 1 / static_cast<float>(s.n);
            if (s.a < s.n)
                *a++ = conBuchi(static_cast<float>(s.r) * n, static_cast<float>(s.g) * n, static_cast<float>(s.b) * n,
                                255 * static_cast<float>(s.a) * n);
            else
                *a++ = 0xFF000000U | (s.r + s.n / 2) / s.n << 16 | (s.g + s.n / 2) / s.n << 8 | (s.b + s.n / 2) / s.n;
        }
    }
}

}   // namespace tessaro
