// 'cvid': strips of 4 by 4 blocks, each one vector or four out of two books of 256. A vector is four lightnesses and, but in
// pictures of greys, two differences of colour: R = Y + 2 V, G = Y - U / 2 - V, B = Y + 2 U.
#include <algorithm>
#include <array>

#include "platform/pict/CodificheParti.h"

namespace tessaro {

namespace {

struct Vettore {
    std::array<std::uint32_t, 4> pixel{};   // upper left, upper right, lower left, lower right
};
using Libro = std::array<Vettore, 256>;

class Cinepak {
public:
    Cinepak(const ImmagineCompressa& c, Immagine& im) : l(c.dati), out(im) {
        indici = BitIndice(c) == 8;   // lightness is then the place in a table
        if (indici) tavola = TavolaDi(c);
    }
    bool esegui() {
        const bool libriPropri = (l.u8() & 1) != 0;   // else a strip begins with the books of the one above
        l.salta(7);                                   // length, width, height
        const std::size_t strisce = l.u16();
        std::size_t cima = 0;
        for (std::size_t n = 0; n < strisce && l.resto() >= 12; ++n) {
            if (libriPropri) uno = quattro = Libro{};
            l.salta(1);
            const std::size_t lunga = tre(l), y1 = l.u16();
            l.salta(2);
            const std::size_t y2 = l.u16();
            l.salta(2);
            // A strip from row 0 goes on where the one above ended.
            const std::size_t da = y1 == 0 ? cima : y1, a = y1 == 0 ? cima + y2 : std::max(y1, y2);
            Lettore pezzi(l.prendi(lunga > 12 ? lunga - 12 : 0));
            striscia(pezzi, da, a);
            cima = a;
        }
        return qualcosa;
    }

private:
    static std::size_t tre(Lettore& l) {
        const std::size_t alto = l.u8();
        return alto << 16 | l.u16();
    }

    void striscia(Lettore& p, std::size_t da, std::size_t a) {
        while (p.resto() >= 4) {
            const std::uint8_t che = p.u8();
            const std::size_t lungo = tre(p);
            Lettore dati(p.prendi(lungo > 4 ? lungo - 4 : 0));
            if ((che & 0xF0) == 0x20)
                leggiLibro(dati, (che & 2) != 0 ? uno : quattro, (che & 1) != 0, (che & 4) != 0);
            else if ((che & 0xF0) == 0x30)
                disponi(dati, che, da, a);
        }
    }

    // The flags of 32 things, and one after the other of them.
    struct Segni {
        std::uint32_t bit = 0;
        int restano = 0;
        bool prossimo(Lettore& l) {
            if (restano == 0) {
                bit = l.u32();
                restano = 32;
            }
            return (bit >> --restano & 1) != 0;
        }
    };

    void leggiLibro(Lettore& d, Libro& libro, bool scelti, bool senzaColore) {
        Segni segni;
        for (Vettore& v : libro) {
            if (scelti && !segni.prossimo(d)) continue;
            if (d.resto() < (senzaColore ? 4U : 6U)) return;
            std::array<int, 4> y{};
            for (int& n : y) n = d.u8();
            const int u = senzaColore ? 0 : d.i8(), w = senzaColore ? 0 : d.i8();
            for (std::size_t i = 0; i < 4; ++i) v.pixel[i] = colore(y[i], u, w);
        }
    }

    [[nodiscard]] std::uint32_t colore(int y, int u, int v) const {
        if (indici) return tavola[static_cast<std::size_t>(y)];
        const auto tieni = [](int n) { return static_cast<std::uint32_t>(std::clamp(n, 0, 255)); };
        return 0xFF000000U | tieni(y + 2 * v) << 16 | tieni(y - u / 2 - v) << 8 | tieni(y + 2 * u);
    }

    // 0x30: each block by one vector or four; 0x31: or as it was before; 0x32: all by one.
    void disponi(Lettore& d, std::uint8_t che, std::size_t y0, std::size_t y1) {
        Segni segni;
        const bool saltabili = (che & 1) != 0, soloUno = (che & 2) != 0;
        const auto w = static_cast<std::size_t>(out.width), fondo = std::min(y1, static_cast<std::size_t>(out.height));
        for (std::size_t y = y0; y < fondo; y += 4)
            for (std::size_t x = 0; x < w; x += 4) {
                if (d.resto() == 0) return;
                if (saltabili && !segni.prossimo(d)) continue;
                const bool perQuattro = !soloUno && segni.prossimo(d);
                if (d.resto() < (perQuattro ? 4U : 1U)) return;
                std::array<std::uint8_t, 4> n{};
                for (std::size_t i = 0; i < (perQuattro ? 4U : 1U); ++i) n[i] = d.u8();
                for (std::size_t i = 0; i < 16; ++i) {
                    const std::size_t px = i % 4, py = i / 4, quarto = py / 2 * 2 + px / 2;
                    if (x + px >= w || y + py >= fondo) continue;
                    out.pixels[(y + py) * w + x + px] =
                        perQuattro ? quattro[n[quarto]].pixel[py % 2 * 2 + px % 2] : uno[n[0]].pixel[quarto];
                }
                qualcosa = true;
            }
    }

    Lettore l;
    Immagine& out;
    TavolaColori tavola{};
    Libro uno{}, quattro{};
    bool indici = false, qualcosa = false;
};

}   // namespace

bool DecodificaCinepak(const ImmagineCompressa& c, Immagine& out) {
    constexpr double perByte = 32 * 16;   // a byte of flags lets 32 blocks be
    if (!Credibile(c, perByte)) return false;
    ApriBianca(c, out);
    return Cinepak(c, out).esegui();
}

}   // namespace tessaro
