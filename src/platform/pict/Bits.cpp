// Headers of stored pixel data and the unpacking of their rows.
#include "platform/pict/Bits.h"

#include <algorithm>
#include <cstring>

namespace tessaro {

namespace {

constexpr std::uint32_t nero = 0xFF000000U;
constexpr std::uint32_t bianco = 0xFFFFFFFFU;

void leggiTavola(Lettore& l, BitsTesta& t) {
    l.salta(4);   // seed
    const bool perPosto = (l.u16() & 0x8000) != 0;
    const std::int32_t ultimo = l.u16();
    for (std::int32_t i = 0; i <= ultimo && !l.guasto(); ++i) {
        const std::uint16_t valore = l.u16();
        const std::uint32_t pixel = pixelDi(l.colore());
        const std::int32_t posto = perPosto ? i : valore;
        if (posto < 256) t.tavola[static_cast<std::size_t>(posto)] = pixel;
    }
}

// PackBits over units of `unita` bytes: a count byte, then one unit to repeat or several to copy.
void spacchetta(std::string_view da, std::size_t unita, std::uint8_t* a, std::size_t spazio) {
    std::size_t p = 0;
    std::size_t scritti = 0;
    while (p < da.size() && scritti < spazio) {
        const auto n = static_cast<std::int8_t>(da[p++]);
        if (n == -128) continue;
        if (n >= 0) {
            const std::size_t lungo =
                std::min({(static_cast<std::size_t>(n) + 1) * unita, da.size() - p, spazio - scritti});
            std::memcpy(a + scritti, da.data() + p, lungo);
            p += lungo;
            scritti += lungo;
            continue;
        }
        if (da.size() - p < unita) return;
        const auto volte = static_cast<std::size_t>(1 - n);
        if (unita == 1) {
            const std::size_t lungo = std::min(volte, spazio - scritti);
            std::memset(a + scritti, static_cast<unsigned char>(da[p]), lungo);
            scritti += lungo;
        } else {
            for (std::size_t i = 0; i < volte && spazio - scritti >= unita; ++i, scritti += unita)
                std::memcpy(a + scritti, da.data() + p, unita);
        }
        p += unita;
    }
}

std::uint32_t da555(std::uint32_t v) {
    const auto cinque = [](std::uint32_t c) { return (c << 3) | (c >> 2); };
    return nero | (cinque((v >> 10) & 31) << 16) | (cinque((v >> 5) & 31) << 8) | cinque(v & 31);
}

std::size_t byteUtili(const BitsTesta& t) {
    const auto larghi = static_cast<std::size_t>(t.larghezza());
    if (!t.diretto) return (larghi * static_cast<std::size_t>(t.pixelSize) + 7) / 8;
    if (t.pixelSize == 16) return larghi * 2;
    if (t.packType == 2) return larghi * 3;
    return larghi * (t.imballato ? static_cast<std::size_t>(t.cmpCount) : 4);
}

bool sensato(const BitsTesta& t) {
    const auto profondo = t.pixelSize;
    const bool indici = profondo == 1 || profondo == 2 || profondo == 4 || profondo == 8;
    if (t.diretto ? (profondo != 16 && profondo != 32) : !indici) return false;
    if (t.diretto && (t.cmpCount < 3 || t.cmpCount > 4)) return false;
    if (t.larghezza() <= 0 || t.altezza() <= 0 || t.packType < 0 || t.packType > 4) return false;
    const std::int64_t bit = std::int64_t(t.larghezza()) * (profondo == 32 && t.packType == 2 ? 24 : profondo);
    return (bit + 7) / 8 <= std::max<std::int64_t>(t.rowBytes, 1) || t.imballato;
}

bool tutteLeRighe(Lettore l, const BitsTesta& t) {
    std::string_view riga;
    for (std::int32_t y = 0; y < t.altezza(); ++y)
        if (!ProssimaRiga(l, t, riga)) return false;
    return !l.guasto();
}

// A row's count has two bytes above 250 bytes a row. Some writers put the bound elsewhere: where the rows do not come
// out by the rule but do by the other count, they are such a writer's.
void scegliConto(const Lettore& l, BitsTesta& t) {
    t.contoLungo = t.rowBytes > 250;
    if (!t.imballato || tutteLeRighe(l, t)) return;
    t.contoLungo = !t.contoLungo;
    if (!tutteLeRighe(l, t)) t.contoLungo = !t.contoLungo;
}

}   // namespace

bool LeggiPixMap(Lettore& l, bool bitmapAmmessa, BitsTesta& t) {
    const std::uint16_t righe = l.u16();
    t.rowBytes = righe & 0x3FFF;
    t.pixmap = (righe & 0x8000) != 0;
    t.bounds = l.rettangolo();
    if (!t.pixmap) {
        t.tavola[0] = bianco;
        t.tavola[1] = nero;
        t.diretto = false;
        return bitmapAmmessa && !l.guasto();
    }
    l.salta(2);   // version
    t.packType = l.i16();
    l.salta(4);   // pack size
    t.hRes = l.fixed();
    t.vRes = l.fixed();
    l.salta(2);   // pixel type
    t.pixelSize = l.i16();
    t.cmpCount = l.i16();
    l.salta(2 + 12);   // component size, planes, table, reserved
    t.diretto = t.pixelSize > 8;
    if (!t.diretto) leggiTavola(l, t);
    return !l.guasto();
}

bool LeggiBitsTesta(Lettore& l, std::uint16_t op, BitsTesta& t) {
    const bool diretti = op >= 0x9A;
    if (diretti) l.salta(4);   // base address
    if (!LeggiPixMap(l, !diretti, t)) return false;
    t.src = l.rettangolo();
    t.dst = l.rettangolo();
    t.mode = l.i16();
    if ((op & 1) != 0) {
        const std::size_t lunga = Lettore(l).u16();   // counts itself
        t.maschera = l.prendi(lunga);
    }
    if (l.guasto()) return false;
    if (t.diretto && t.packType == 0) t.packType = t.pixelSize == 16 ? 3 : 4;
    t.imballato = t.rowBytes >= 8 && op >= 0x98 && !(t.diretto && t.packType <= 2);
    if (t.diretto && t.rowBytes < 8) t.packType = 1;
    if (!sensato(t)) return false;
    scegliConto(l, t);
    return true;
}

bool ProssimaRiga(Lettore& l, const BitsTesta& t, std::string_view& riga) {
    if (l.resto() == 0) return false;
    std::size_t lunga = static_cast<std::size_t>(t.rowBytes);
    if (t.imballato)
        lunga = t.contoLungo ? l.u16() : l.u8();
    else if (t.diretto && t.packType == 2)
        lunga = static_cast<std::size_t>(t.larghezza()) * 3;
    if (lunga == 0) return false;   // every row says something: else a few bytes could claim any height
    riga = l.prendi(lunga);
    return !riga.empty();
}

DecodificaRighe::DecodificaRighe(const BitsTesta& t) : testa(t), utili(byteUtili(t)), banco(utili + 8) {}

void DecodificaRighe::riga(std::string_view dati, std::uint32_t* pixel) {
    std::fill(banco.begin(), banco.end(), std::uint8_t{0});
    if (testa.imballato)
        spacchetta(dati, testa.diretto && testa.packType == 3 ? 2 : 1, banco.data(), utili);
    else
        std::memcpy(banco.data(), dati.data(), std::min(dati.size(), utili));
    if (testa.diretto)
        diretti(banco.data(), pixel);
    else
        indici(banco.data(), pixel);
}

void DecodificaRighe::indici(const std::uint8_t* da, std::uint32_t* pixel) const {
    const auto larghi = static_cast<std::size_t>(testa.larghezza());
    if (testa.pixelSize == 8) {
        for (std::size_t i = 0; i < larghi; ++i) pixel[i] = testa.tavola[da[i]];
        return;
    }
    const auto bit = static_cast<std::size_t>(testa.pixelSize);
    const unsigned maschera = (1U << bit) - 1;
    for (std::size_t i = 0; i < larghi; ++i) {
        const std::size_t posto = i * bit;
        pixel[i] = testa.tavola[(da[posto / 8] >> (8 - bit - posto % 8)) & maschera];
    }
}

void DecodificaRighe::diretti(const std::uint8_t* da, std::uint32_t* pixel) const {
    const auto larghi = static_cast<std::size_t>(testa.larghezza());
    const auto rgb = [](std::uint32_t r, std::uint32_t g, std::uint32_t b) { return nero | (r << 16) | (g << 8) | b; };
    if (testa.pixelSize == 16) {
        for (std::size_t i = 0; i < larghi; ++i)
            pixel[i] = da555((static_cast<std::uint32_t>(da[2 * i]) << 8) | da[2 * i + 1]);
    } else if (testa.imballato) {   // component planes; a fourth one in front is alpha, which nothing uses
        const std::uint8_t* r = da + (testa.cmpCount == 4 ? larghi : 0);
        for (std::size_t i = 0; i < larghi; ++i) pixel[i] = rgb(r[i], r[larghi + i], r[2 * larghi + i]);
    } else if (testa.packType == 2) {
        for (std::size_t i = 0; i < larghi; ++i) pixel[i] = rgb(da[3 * i], da[3 * i + 1], da[3 * i + 2]);
    } else {
        for (std::size_t i = 0; i < larghi; ++i) pixel[i] = rgb(da[4 * i + 1], da[4 * i + 2], da[4 * i + 3]);
    }
}

void ApplicaModo(std::int16_t mode, std::uint32_t sfondo, std::uint32_t* pixel, std::size_t n) {
    const int base = mode & ~64;
    if (base == bitsBic) {   // black becomes the background, the rest stays as it was
        for (std::size_t i = 0; i < n; ++i) pixel[i] = pixel[i] == nero ? sfondo : pixel[i] & 0x00FFFFFFU;
        return;
    }
    if (!ModoTrasparente(mode)) return;
    const std::uint32_t fuori = base == bitsTrasparente ? sfondo : bianco;
    for (std::size_t i = 0; i < n; ++i)
        if (pixel[i] == fuori) pixel[i] &= 0x00FFFFFFU;
}

bool LeggiRegione(std::string_view dati, std::vector<Rect>& parti) {
    constexpr std::size_t tante = 4096;
    constexpr std::int16_t fine = 0x7FFF;
    Lettore l(dati);
    const std::size_t lunga = l.u16();
    const Rect box = l.rettangolo();
    parti.clear();
    if (l.guasto() || lunga < 10) return false;
    if (EmptyRect(box)) return true;
    parti.push_back(box);
    if (lunga == 10) return true;

    std::vector<Rect> fatte;
    std::vector<std::int32_t> svolte;   // the inversion points in force, sorted
    std::int32_t sopra = l.i16();
    if (sopra == fine) return true;
    while (!l.guasto()) {
        for (std::int32_t x = l.i16(); x != fine && !l.guasto(); x = l.i16()) {
            const auto posto = std::lower_bound(svolte.begin(), svolte.end(), x);
            if (posto != svolte.end() && *posto == x)
                svolte.erase(posto);
            else
                svolte.insert(posto, x);
        }
        const std::int32_t sotto = l.i16();
        if (sotto == fine || l.guasto() || sotto <= sopra) break;
        for (std::size_t i = 0; i + 1 < svolte.size(); i += 2) {
            const Rect r = SectRect(Rect{sopra, svolte[i], sotto, svolte[i + 1]}, box);
            if (!EmptyRect(r)) fatte.push_back(r);
        }
        if (fatte.size() > tante) return true;   // too fine to be worth keeping: the box serves
        sopra = sotto;
    }
    if (l.guasto()) return true;
    parti = std::move(fatte);
    return true;
}

}   // namespace tessaro
