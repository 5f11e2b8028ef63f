// Writing buffers as stored pictures. The opcodes count pixels, whatever the frame: a resolution in the head tells how
// the two belong together, so that no piece of a raster is ever scaled by itself.
#include "raster/NuovaImmagine.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <vector>

#include "dialogs/Errori.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "model/Penna.h"
#include "platform/Dialogs.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Scrittore.h"
#include "platform/Quickdraw.h"
#include "raster/Lavoro.h"

namespace tessaro {

namespace {

constexpr std::int64_t massimoPict = 0x7FFFFFFF;
constexpr std::int32_t bandaStdBits = 20000;   // columns of a piece: the coordinates of a stored picture have 16 bits
constexpr std::int32_t righePezzo = 1024;
constexpr double nonSiSa = std::numeric_limits<double>::quiet_NaN();   // packing is no part of the percents

std::int32_t intere(std::int32_t lato, std::int32_t unita) { return (lato + unita - 1) / unita; }

// Rows of the buffer as 0xFFRRGGBB, completed to whole units.
struct Lettura {
    const Tela& t;
    const Formato& f;
    std::int32_t larghezza;   // completed
    std::vector<std::uint32_t> riga;
    std::vector<std::uint8_t> indici;

    [[nodiscard]] std::int32_t y(std::int32_t v) const { return std::min(v, t.altezza - 1); }
    const std::uint32_t* pixel(std::int32_t v) {
        riga.resize(static_cast<std::size_t>(larghezza));
        f.decodifica(t.riga(y(v)), t.larghezza, riga.data());
        std::fill(riga.begin() + t.larghezza, riga.end(), riga[static_cast<std::size_t>(t.larghezza - 1)]);
        return riga.data();
    }
    // n rows of columns [da, a) as indices side by side.
    const std::uint8_t* piani(std::int32_t v, std::int32_t n, std::int32_t da, std::int32_t a) {
        indici.clear();
        for (std::int32_t k = 0; k < n; ++k) {
            const std::uint8_t* p = t.riga(y(v + k));
            for (std::int32_t x = da; x < a; ++x) indici.push_back(p[std::min(x, t.larghezza - 1)]);
        }
        return indici.data();
    }
};

// The head tells frame and resolution, its source rectangle the space of the opcodes.
void testa(Scrittore& s, const Rect& frame, const Rect& spazio) {
    const auto dpi = [](double unita, double punti) { return punti > 0 ? 72 * unita / punti : 72; };
    s.u16(0);
    s.rettangolo(frame);
    s.u16(opVersion);
    s.u16(0x02FF);
    s.u16(opHeader);
    s.u16(-2);
    s.u16(0);
    s.fixed(dpi(spazio.right, frame.right - frame.left));
    s.fixed(dpi(spazio.bottom, frame.bottom - frame.top));
    s.rettangolo(spazio);
    s.u32(0);
    s.codice(opDefHilite);
    s.codice(opClip);
    s.u16(10);
    s.rettangolo(spazio);
}

// Columns [da, a) of the completed raster, told in units.
void stdBits(Scrittore& s, Lettura& l, std::int32_t da, std::int32_t a, std::int32_t altezza, std::int32_t unita,
             std::int16_t modo) {
    if (da >= a) return;   // Kept: bands that come out even are followed by an empty one
    // Pieces stay whole units wide, and within what one pixel opcode holds.
    const std::int32_t largo = std::max(unita, maxRowBytes / 4 / unita * unita);
    for (std::int32_t x = da; x < a; x += largo)
        for (std::int32_t y = 0; y < altezza; y += righePezzo * unita) {
            if (ProgressStopped()) return;
            const std::int32_t w = std::min(largo, a - x), h = std::min(righePezzo * unita, altezza - y);
            const PostoBits posto{Rect{0, 0, h, w}, Rect{y / unita, x / unita, (y + h) / unita, (x + w) / unita}, modo};
            if (l.f.bit == 8) {
                std::vector<RGBColor> tavola;
                for (const std::uint32_t c : l.f.colori) tavola.push_back(coloreDi(c));
                if (!ProgressStep(nonSiSa)) return;
                ScriviIndici(s, l.piani(y, h, x, x + w), tavola, w, h, l.f.dueColori ? 1 : 8, posto);
                continue;
            }
            PixelInCorso corso(s, w, h, posto, l.f.bit);
            constexpr std::int32_t traDomande = 64;   // rows
            for (std::int32_t k = 0; k < h; ++k) {
                if (k % traDomande == 0 && !ProgressStep(nonSiSa)) return;
                corso.riga(l.pixel(y + k) + x);
            }
        }
}

std::string scrivi(const Tela& t, const Formato& f, const Rect& frame, std::int16_t tipo, std::int32_t banda) {
    try {
        const std::int32_t unita = PixelPerUnita(t.larghezza, t.altezza);
        const std::int32_t w = intere(t.larghezza, unita) * unita, h = intere(t.altezza, unita) * unita;
        const std::int64_t stima = std::int64_t(w) * h * (f.bit == 8 ? 1 : 3);
        if (stima / 64 > massimoPict) return {};
        Scrittore s;
        s.bytes.reserve(static_cast<std::size_t>(std::min(stima + stima / 64 + 65536, massimoPict)));
        testa(s, frame, Rect{0, 0, h / unita, w / unita});
        Lettura l{t, f, w, {}, {}};
        const std::int32_t larga = std::max(unita, banda / unita * unita), bande = t.larghezza / larga;
        for (std::int32_t i = 0; i < bande; ++i) stdBits(s, l, i * larga, (i + 1) * larga, h, unita, ModoDi(tipo));
        stdBits(s, l, bande * larga, w, h, unita, ModoDi(tipo));
        if (ProgressStopped()) return {};
        if (static_cast<std::int64_t>(s.bytes.size()) > massimoPict - 2) return {};
        return s.fine();
    } catch (const std::bad_alloc&) { return {}; }
}

}   // namespace

Rect FrameDi(const Tela& t) {
    const std::int32_t unita = PixelPerUnita(t.larghezza, t.altezza);
    return Rect{0, 0, intere(t.altezza, unita), intere(t.larghezza, unita)};
}

double Completamento(std::int32_t lato, std::int32_t unita) {
    return lato > 0 ? double(intere(lato, unita)) * unita / lato : 1;
}

std::int16_t ModoDi(std::int16_t tipo) { return tipo == 2 ? bitsOr : tipo == 3 ? bitsTrasparente : bitsCopia; }

std::string ImmagineDaTela(const Tela& t, const Formato& f, const Rect& frame, std::int16_t tipo) {
    return scrivi(t, f, frame, tipo, 0x7FFFFFF0);
}

std::string ExtendedStdBits(const Tela& t, const Formato& f, const Rect& dstRect, std::int16_t tipo) {
    return scrivi(t, f, dstRect, tipo, bandaStdBits);
}

bool AggiungiImmagine(LavoroRaster& lavoro, std::string bytes, double x, double y, double larghezza, double altezza) {
    constexpr std::size_t vuota = 20;
    if (!lavoro.passo(1)) return false;
    if (bytes.size() <= vuota) {
        AvvisoMemoria();
        return false;
    }
    PoniAnnulla(aNiente);
    CominciaAggiunta();
    if (indElem >= maxElementi) return true;
    Memorizza(tPict, x, y, zcurs, larghezza, altezza, 0, spessore, colorCorrente, NumPat, PStr255(""));
    Elem(indElem).pict.maniglia = NewPict(std::move(bytes));
    return true;
}

}   // namespace tessaro
