// Decoding on demand and the halved copies.
#include "bitmap/Piramide.h"

#include <algorithm>
#include <new>

namespace tessaro {

struct Piramide::FonteLivello final : FonteRighe {
    Livello dati;
    void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) override {
        const std::uint32_t* da = dati.pixels.data() + std::ptrdiff_t(y) * dati.width;
        std::copy(da + x0, da + x1, out);
    }
};

// Rows straight from the stored bytes.
struct Piramide::FontePict final : FonteRighe {
    RighePict righe;
    void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) override {
        righe.riga(y, x0, x1, out);
    }
};

// A decoded image, of 32 bits or grey.
struct Piramide::FontePiena final : FonteRighe {
    Immagine im;
    std::vector<std::uint32_t> tavola;
    void riga(std::int32_t y, std::int32_t x0, std::int32_t x1, std::uint32_t* out) override {
        const std::ptrdiff_t inizio = std::ptrdiff_t(y) * width;
        if (im.depth == 32) {
            std::copy(im.pixels.data() + inizio + x0, im.pixels.data() + inizio + x1, out);
            return;
        }
        const std::uint8_t* da = im.indices.data() + inizio;
        for (std::int32_t x = x0; x < x1; ++x) *out++ = tavola[da[x]];
    }
};

Piramide::Piramide(std::string_view pict) {
    livelli.resize(maxLivelli);
    if (SolaCompressa(pict, compressa)) {
        genere = Specie::codificata;
        largo = compressa.width;
        alto = compressa.height;
        return;
    }
    auto fonte = std::make_unique<FontePict>();
    if (!fonte->righe.apri(pict)) return;
    genere = Specie::righe;
    largo = fonte->width = fonte->righe.width();
    alto = fonte->height = fonte->righe.height();
    fonte->buchi = fonte->righe.trasparente();
    bytePieni = fonte->righe.memoria();
    piena = std::move(fonte);
}

bool Piramide::intereCiStanno() const {   // full pixels and the copies from a quarter on
    return std::int64_t(largo) * alto * 4 * 13 / 12 <= bilancioImmagini;
}

// The finest copy that is kept beside the full pixels.
int Piramide::primoDimezzato() const {
    const std::int64_t mezza = std::int64_t(largo) * alto;   // bytes of the half-size copy; all below it a third more
    return bytePieni + mezza * 4 / 3 <= bilancioImmagini ? 1 : 2;
}

std::int64_t Piramide::memoria() const {
    std::int64_t n = bytePieni;
    for (const auto& l : livelli)
        if (l) n += std::int64_t(l->width) * l->height * 4;
    return n;
}

std::int64_t Piramide::memoriaPer(int esponente) const {
    const std::int64_t tutti = std::int64_t(largo) * alto;
    if (genere == Specie::figure) return 0;
    if (genere == Specie::righe) return std::max(memoria(), bytePieni + tutti * 4 / 3);
    if (esponente >= 2) return std::max(memoria(), tutti / 3);
    return std::max(memoria(), std::min(tutti * 4 * 4 / 3, bilancioImmagini));
}

FonteRighe* Piramide::livello(int esponente, int& fatto) {
    esponente = std::clamp(esponente, 0, maxLivelli - 1);
    if (genere == Specie::figure || persa) return nullptr;
    try {
        if (genere == Specie::codificata && !decodifica(esponente)) {
            persa = true;
            return nullptr;
        }
        if (esponente > 0) catena();
    } catch (const std::bad_alloc&) {
        persa = true;
        return nullptr;
    }
    for (int k = esponente; k > 0; --k)
        if (FonteRighe* f = livelli[static_cast<std::size_t>(k)].get()) {
            fatto = k;
            return f;
        }
    fatto = 0;
    if (piena) return piena.get();
    for (int k = 1; k < maxLivelli; ++k)   // nothing as fine as that is kept: the finest there is
        if (FonteRighe* f = livelli[static_cast<std::size_t>(k)].get()) {
            fatto = k;
            return f;
        }
    return nullptr;
}

FonteRighe* Piramide::intera() {
    if (genere == Specie::figure) return nullptr;
    if (!piena && !decodificaIntera()) return nullptr;
    return piena.get();
}

// A coded image: small at first, whole when it is wanted.
bool Piramide::decodifica(int esponente) {
    if (piena) return true;
    const bool intera = intereCiStanno();
    const int k = esponente >= 2 ? 2 : intera ? 0 : 1;
    if (k == 0) return decodificaIntera();
    for (int j = 1; j <= k; ++j)
        if (livelli[static_cast<std::size_t>(j)]) return true;
    Immagine im;
    if (!DecodificaCompressa(compressa, 1 << k, im)) return false;
    const bool ridotta = im.width == (largo + (1 << k) - 1) >> k && im.height == (alto + (1 << k) - 1) >> k;
    if (!ridotta) {   // a reader that does not reduce, or another size than the description told
        largo = im.width;
        alto = im.height;
        auto fonte = std::make_unique<FontePiena>();
        fonte->width = largo;
        fonte->height = alto;
        fonte->im = std::move(im);
        bytePieni = std::int64_t(largo) * alto * 4;
        piena = std::move(fonte);
        return true;
    }
    auto fonte = std::make_unique<FonteLivello>();
    fonte->width = fonte->dati.width = im.width;
    fonte->height = fonte->dati.height = im.height;
    fonte->dati.pixels = std::move(im.pixels);
    livelli[static_cast<std::size_t>(k)] = std::move(fonte);
    return true;
}

bool Piramide::decodificaIntera() {
    auto fonte = std::make_unique<FontePiena>();
    Immagine& im = fonte->im;
    if (!DecodeImageBytes(compressa.dati, 1, im, true) && !DecodificaCompressa(compressa, 1, im)) return false;
    largo = fonte->width = im.width;
    alto = fonte->height = im.height;
    for (const RGBColor& c : im.palette) fonte->tavola.push_back(pixelDi(c));
    fonte->tavola.resize(256, 0xFF000000U);
    bytePieni = std::int64_t(largo) * alto * (im.depth == 32 ? 4 : 1);
    piena = std::move(fonte);
    return true;
}

void Piramide::catena() {
    constexpr std::int32_t piccolo = 256;   // a copy this small is cheap to reduce on the way to the screen
    FonteRighe* da = piena.get();
    int k = 0;
    if (da != nullptr && primoDimezzato() == 2 && !livelli[2]) {
        auto fonte = std::make_unique<FonteLivello>();
        fonte->width = fonte->dati.width = (largo + 3) >> 2;
        fonte->height = fonte->dati.height = (alto + 3) >> 2;
        fonte->buchi = da->buchi;
        Dimezza(*da, 2, fonte->dati.pixels);
        livelli[2] = std::move(fonte);
    }
    if (da != nullptr && primoDimezzato() == 2) {
        da = livelli[2].get();
        k = 2;
    }
    while (k + 1 < maxLivelli) {
        ++k;
        auto& qui = livelli[static_cast<std::size_t>(k)];
        if (!qui && da != nullptr) {
            if (std::max(da->width, da->height) <= piccolo) return;
            auto fonte = std::make_unique<FonteLivello>();
            fonte->width = fonte->dati.width = (da->width + 1) >> 1;
            fonte->height = fonte->dati.height = (da->height + 1) >> 1;
            fonte->buchi = da->buchi;
            Dimezza(*da, 1, fonte->dati.pixels);
            qui = std::move(fonte);
        }
        if (qui) da = qui.get();
    }
}

}   // namespace tessaro
