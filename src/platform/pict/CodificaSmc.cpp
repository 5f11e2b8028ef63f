// 'smc ': blocks of 4 by 4 indices, of one to sixteen colours; sets of 2, 4 and 8 colours that came before are named by
// their place in a ring of 256.
#include <algorithm>
#include <array>

#include "platform/pict/CodificheParti.h"

namespace tessaro {

namespace {

class Smc {
public:
    Smc(const ImmagineCompressa& c, Immagine& im) : l(c.dati), out(im), tavola(TavolaDi(c)) {
        perRiga = (static_cast<std::size_t>(im.width) + 3) / 4;
        quanti = perRiga * ((static_cast<std::size_t>(im.height) + 3) / 4);
    }
    bool esegui() {
        l.salta(4);   // flags and the length
        while (qui < quanti && l.resto() > 0) passo();
        return qui > 0;
    }

private:
    template <std::size_t N>
    struct Anello {
        std::array<std::array<std::uint8_t, N>, 256> gruppi{};
        std::uint8_t prossimo = 0;
        // A set of colours that comes now, or one by its place.
        const std::array<std::uint8_t, N>& prendi(Lettore& l, bool noto) {
            if (noto) return gruppi[l.u8()];
            auto& g = gruppi[prossimo++];
            for (std::uint8_t& v : g) v = l.u8();
            return g;
        }
    };

    // How many blocks: in the code's low half, or in the next byte where its 16 is set.
    std::size_t volte(std::uint8_t op) { return ((op & 0x10) != 0 ? l.u8() : op & 0x0FU) + std::size_t{1}; }

    void passo() {
        const std::uint8_t op = l.u8();
        const bool noto = (op & 0x10) != 0;
        const std::size_t corti = (op & 0x0FU) + std::size_t{1};
        switch (op & 0xE0) {
        case 0x00: qui += std::min(volte(op), quanti - qui); break;   // as it was before: left open
        case 0x20: ripeti(volte(op), 1); break;
        case 0x40: ripeti(volte(op) * 2, 2); break;
        case 0x60: {
            const std::size_t n = volte(op);
            const std::uint8_t uno = l.u8();
            for (std::size_t k = 0; k < n; ++k) blocco([uno](std::size_t) { return uno; });
            break;
        }
        case 0x80: {
            const auto& g = due.prendi(l, noto);
            for (std::size_t k = 0; k < corti; ++k) {
                const std::uint32_t bit = l.u16();
                blocco([&](std::size_t i) { return g[bit >> (15 - i) & 1]; });
            }
            break;
        }
        case 0xA0: {
            const auto& g = quattro.prendi(l, noto);
            for (std::size_t k = 0; k < corti; ++k) {
                const std::uint32_t bit = l.u32();
                blocco([&](std::size_t i) { return g[bit >> (30 - 2 * i) & 3]; });
            }
            break;
        }
        case 0xC0: {
            const auto& g = otto.prendi(l, noto);
            for (std::size_t k = 0; k < corti; ++k) {
                // Three words: 12 bits of each half go together, the words' last four make the rest of the second.
                const std::uint32_t a = l.u16(), b = l.u16(), c = l.u16();
                const std::uint32_t alto = (a & 0xFFF0U) << 8 | b >> 4;
                const std::uint32_t basso = (c & 0xFFF0U) << 8 | (a & 15U) << 8 | (b & 15U) << 4 | (c & 15U);
                blocco([&](std::size_t i) { return g[(i < 8 ? alto : basso) >> (21 - 3 * (i % 8)) & 7]; });
            }
            break;
        }
        default:
            if (noto) {   // no code of this coding
                qui = quanti;
                break;
            }
            for (std::size_t k = 0; k < corti && !l.guasto(); ++k) blocco([&](std::size_t) { return l.u8(); });
            break;
        }
    }

    [[nodiscard]] std::uint32_t* posto(std::size_t b) {
        return out.pixels.data() + b / perRiga * 4 * static_cast<std::size_t>(out.width) + b % perRiga * 4;
    }
    [[nodiscard]] bool dentro(std::size_t b, std::size_t i) const {
        return b % perRiga * 4 + i % 4 < static_cast<std::size_t>(out.width)
               && b / perRiga * 4 + i / 4 < static_cast<std::size_t>(out.height);
    }
    template <class F>
    void blocco(const F& indice) {
        if (qui >= quanti) return;
        std::array<std::uint8_t, 16> v{};
        for (std::size_t i = 0; i < v.size(); ++i) v[i] = indice(i);
        if (l.guasto()) return;
        for (std::size_t i = 0; i < v.size(); ++i)
            if (dentro(qui, i)) posto(qui)[i / 4 * static_cast<std::size_t>(out.width) + i % 4] = tavola[v[i]];
        ++qui;
    }
    // The last block, or the last two, n times in all.
    void ripeti(std::size_t n, std::size_t passi) {
        if (qui < passi) {
            qui = quanti;
            return;
        }
        const auto w = static_cast<std::size_t>(out.width);
        for (; n > 0 && qui < quanti; --n, ++qui)
            for (std::size_t i = 0; i < 16; ++i)
                if (dentro(qui, i) && dentro(qui - passi, i))
                    posto(qui)[i / 4 * w + i % 4] = posto(qui - passi)[i / 4 * w + i % 4];
    }

    Lettore l;
    Immagine& out;
    TavolaColori tavola;
    Anello<2> due;
    Anello<4> quattro;
    Anello<8> otto;
    std::size_t perRiga = 0, quanti = 0, qui = 0;
};

}   // namespace

bool DecodificaSmc(const ImmagineCompressa& c, Immagine& out) {
    constexpr double perByte = 512 * 16;   // two bytes fill 512 blocks at most
    if (BitIndice(c) != 8 || !Credibile(c, perByte)) return false;
    ApriBianca(c, out);
    return Smc(c, out).esegui();
}

}   // namespace tessaro
