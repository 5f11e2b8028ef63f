// The decoders. Every one is bounded by the described size, which is checked against the bytes that are there.
#include "platform/pict/Codifiche.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/pict/Bits.h"
#include "platform/pict/CodificheParti.h"

namespace tessaro {

namespace {

// How one pixel of these codings stands in memory.
bool testaPer(const ImmagineCompressa& c, BitsTesta& t) {
    const bool indici = BitIndice(c) == 8;
    if (!indici && c.depth != 16 && c.depth != 24 && c.depth != 32) return false;
    t.diretto = !indici;
    t.pixelSize = indici ? std::int16_t{8} : c.depth == 16 ? std::int16_t{16} : std::int16_t{32};
    t.packType = c.depth == 24 ? 2 : 1;
    t.cmpCount = 3;
    if (indici) {
        const TavolaColori colori = TavolaDi(c);
        std::copy(colori.begin(), colori.end(), t.tavola.begin());
    }
    return true;
}

std::size_t bytePerPixel(const ImmagineCompressa& c) {
    return BitIndice(c) == 8 ? 1 : static_cast<std::size_t>(c.depth) / 8;
}

// Uncoded pixels: rows without padding, alpha in front at 32 bits.
bool grezza(const ImmagineCompressa& c, Immagine& out) {
    BitsTesta t;
    if (!testaPer(c, t)) return false;
    const auto larghi = static_cast<std::size_t>(c.width);
    const std::size_t riga = larghi * bytePerPixel(c);
    const std::size_t righe = std::min(static_cast<std::size_t>(c.height), c.dati.size() / riga);
    if (righe == 0 || !Credibile(c, 1e4)) return false;
    t.bounds = Rect{0, 0, static_cast<std::int32_t>(righe), c.width};
    ApriBianca(c, out);
    DecodificaRighe decodifica(t);
    for (std::size_t y = 0; y < righe; ++y)
        decodifica.riga(c.dati.substr(y * riga, riga), out.pixels.data() + y * larghi);
    return true;
}

// --- blocks of 4 by 4 pixels, each of one colour, of four between two, or of sixteen

std::uint32_t da555(std::uint32_t v) {
    const auto cinque = [](std::uint32_t n) { return (n & 31) << 3 | (n & 31) >> 2; };
    return 0xFF000000U | cinque(v >> 10) << 16 | cinque(v >> 5) << 8 | cinque(v);
}

class Blocchi {
public:
    Blocchi(const ImmagineCompressa& c, Immagine& im) : l(c.dati), out(im) {
        perRiga = (static_cast<std::size_t>(im.width) + 3) / 4;
        quanti = perRiga * ((static_cast<std::size_t>(im.height) + 3) / 4);
    }
    bool esegui() {
        l.salta(4);   // a mark and the length
        while (qui < quanti && l.resto() > 0) passo();
        return qui > 0;
    }

private:
    void passo() {
        std::uint32_t op = l.u8();
        std::size_t n = (op & 0x1F) + 1;
        std::uint32_t a = 0;
        if ((op & 0x80)
            == 0) {   // no code but a colour: four of it and another follow when the next byte is one's second
            a = op << 8 | l.u8();
            Lettore prova = l;
            op = (prova.u8() & 0x80) != 0 ? 0x20 : 0;
            n = 1;
        }
        switch (op & 0xE0) {
        case 0x80: qui += std::min(n, quanti - qui); break;   // as it was before: left open
        case 0xA0: {
            const std::uint32_t uno = da555(l.u16());
            while (n-- > 0) blocco([&](std::size_t) { return uno; });
            break;
        }
        case 0xC0: a = l.u16(); [[fallthrough]];
        case 0x20: quattro(a, l.u16(), n); break;
        case 0x00: sedici(a); break;
        default: qui = quanti; break;   // no code of this coding
        }
    }
    void quattro(std::uint32_t a, std::uint32_t b, std::size_t n) {
        const auto tra = [&](std::uint32_t pa, std::uint32_t pb) {
            std::uint32_t v = 0;
            for (const int giu : {10, 5, 0}) v |= ((pa * (a >> giu & 31) + pb * (b >> giu & 31)) >> 5) << giu;
            return da555(v);
        };
        const std::array<std::uint32_t, 4> colori{da555(b), tra(11, 21), tra(21, 11), da555(a)};
        while (n-- > 0) {
            const std::uint32_t indici = l.u32();
            if (l.guasto()) return;
            blocco([&](std::size_t i) { return colori[indici >> (30 - 2 * i) & 3]; });
        }
    }
    void sedici(std::uint32_t a) {
        std::array<std::uint32_t, 16> p{da555(a)};
        for (std::size_t i = 1; i < p.size(); ++i) p[i] = da555(l.u16());
        if (!l.guasto()) blocco([&](std::size_t i) { return p[i]; });
    }
    template <class F>
    void blocco(const F& colore) {
        if (qui >= quanti) return;
        const std::size_t x0 = qui % perRiga * 4, y0 = qui / perRiga * 4;
        const auto w = static_cast<std::size_t>(out.width), h = static_cast<std::size_t>(out.height);
        for (std::size_t i = 0; i < 16; ++i)
            if (x0 + i % 4 < w && y0 + i / 4 < h) out.pixels[(y0 + i / 4) * w + x0 + i % 4] = colore(i);
        ++qui;
    }
    Lettore l;
    Immagine& out;
    std::size_t perRiga = 0, quanti = 0, qui = 0;
};

bool aBlocchi(const ImmagineCompressa& c, Immagine& out) {
    constexpr double perByte = 32 * 16;   // a code of one byte fills 32 blocks
    if (!Credibile(c, perByte)) return false;
    ApriBianca(c, out);
    return Blocchi(c, out).esegui();
}

// --- runs of pixels, row by row

// Indices of 2 and 4 bits go four bytes at a time; those of 1 bit two, and there a row begins where a code says so.
class TrattiDiBit {
public:
    TrattiDiBit(const ImmagineCompressa& c, Immagine& im, Lettore dati, std::size_t da, std::size_t a)
        : l(dati), out(im), colori(TavolaDi(c)), bit(static_cast<unsigned>(BitIndice(c))), y(da), fondo(a) {}
    bool esegui() { return bit == 1 ? unBit() : perRighe(); }

private:
    [[nodiscard]] std::size_t insieme() const { return (bit == 1 ? 16U : 32U) / bit; }   // pixels that go together

    bool perRighe() {
        for (; y < fondo && l.resto() > 0; ++y) {
            x = (l.u8() - std::size_t{1}) * insieme();
            for (std::int8_t n = l.i8(); n != -1 && !l.guasto(); n = l.i8()) {
                if (n == 0)
                    x += (l.u8() - std::size_t{1}) * insieme();
                else
                    metti(n);
            }
        }
        return qualcuna;
    }
    // A skip with its high bit begins the next row, the first one too.
    bool unBit() {
        bool iniziata = false;
        while (l.resto() > 1) {
            const std::size_t salto = l.u8();
            const std::int8_t n = l.i8();
            if (n == 0) break;
            if ((salto & 0x80) != 0) {
                if (iniziata) ++y;
                iniziata = true;
                x = 0;
            }
            if (y >= fondo) break;
            x += (salto & 0x7F) * insieme();
            if (n != -1) metti(n);
        }
        return qualcuna;
    }
    void metti(std::int8_t n) {
        const std::size_t byte = insieme() * bit / 8;
        const std::string_view dati = l.prendi(n < 0 ? byte : byte * static_cast<std::size_t>(n));
        const auto w = static_cast<std::size_t>(out.width);
        for (int volte = n < 0 ? -n : 1; volte > 0; --volte)
            for (const char v : dati)
                for (unsigned da = 8; da >= bit; da -= bit)
                    if (x < w)
                        out.pixels[y * w + x++] =
                            colori[static_cast<std::uint8_t>(v) >> (da - bit) & ((1U << bit) - 1)];
        qualcuna = qualcuna || !dati.empty();
    }

    Lettore l;
    Immagine& out;
    TavolaColori colori;
    unsigned bit;
    std::size_t x = 0, y, fondo;
    bool qualcuna = false;
};

bool aTratti(const ImmagineCompressa& c, Immagine& out) {
    constexpr std::uint32_t conRighe = 8;   // the header tells which rows come
    const std::int16_t bit = BitIndice(c);
    const bool pochi = bit == 1 || bit == 2 || bit == 4;
    BitsTesta t;
    if ((!pochi && !testaPer(c, t)) || !Credibile(c, 1e4)) return false;
    const std::size_t passo = pochi ? 1 : bytePerPixel(c);
    const std::size_t insieme = passo == 1 ? 4 : 1;   // indices go four at a time
    Lettore l(c.dati);
    l.salta(4);
    const bool parte = (l.u16() & conRighe) != 0;
    std::size_t y = parte ? l.u16() : 0;
    if (parte) l.salta(2);
    const std::size_t righe = parte ? l.u16() : static_cast<std::size_t>(c.height);
    if (parte) l.salta(2);
    ApriBianca(c, out);
    const auto w = static_cast<std::size_t>(c.width);
    const std::size_t fondo = std::min(y + righe, static_cast<std::size_t>(c.height));
    if (pochi) return TrattiDiBit(c, out, l, std::min(y, fondo), fondo).esegui();
    bool qualcuna = false;
    for (; y < fondo && l.resto() > 0; ++y) {
        std::size_t x = (l.u8() - std::size_t{1}) * insieme;
        const auto metti = [&](std::string_view pixel, std::size_t volte) {
            const std::size_t n = pixel.size() / passo;
            t.bounds = Rect{0, 0, 1, static_cast<std::int32_t>(n)};
            std::vector<std::uint32_t> letti(n);
            if (n > 0) DecodificaRighe(t).riga(pixel, letti.data());
            for (; volte > 0; --volte)
                for (const std::uint32_t p : letti)
                    if (x < w) out.pixels[y * w + x++] = p;
            qualcuna = true;
        };
        for (std::int8_t n = l.i8(); n != -1 && !l.guasto(); n = l.i8()) {
            if (n == 0)
                x += (l.u8() - std::size_t{1}) * insieme;
            else if (n < 0)
                metti(l.prendi(passo * insieme), static_cast<std::size_t>(-n));
            else
                metti(l.prendi(passo * insieme * static_cast<std::size_t>(n)), 1);
        }
    }
    return qualcuna;
}

}   // namespace

bool DecodificaAntica(const ImmagineCompressa& c, Immagine& out) {
    if (c.width <= 0 || c.height <= 0) return false;
    switch (c.codice) {
    case CodiceDi("raw "): return grezza(c, out);
    case CodiceDi("rpza"): return aBlocchi(c, out);
    case CodiceDi("rle "): return aTratti(c, out);
    case CodiceDi("smc "): return DecodificaSmc(c, out);
    case CodiceDi("cvid"): return DecodificaCinepak(c, out);
    default: return false;
    }
}

}   // namespace tessaro
