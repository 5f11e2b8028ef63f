// Colour tables of images of few bits, and the checks before an image is unpacked.
#include "platform/pict/CodificheParti.h"

#include <algorithm>

#include "platform/pict/Bits.h"

namespace tessaro {

namespace {

constexpr std::int16_t grigi = 32;   // added to a depth: grey levels in place of colours
constexpr std::uint32_t opaco = 0xFF000000U;

void sfuma(TavolaColori& t, std::uint32_t quanti) {
    for (std::uint32_t i = 0; i < quanti; ++i)
        t[i] = opaco | (255 - std::min(i, quanti - 1) * 255 / (quanti - 1)) * 0x010101U;
}

// Six steps a component from white on, then ten steps each of red, green, blue and grey between them, and black last.
void otto(TavolaColori& t) {
    constexpr std::uint32_t gradi[] = {0xEE, 0xDD, 0xBB, 0xAA, 0x88, 0x77, 0x55, 0x44, 0x22, 0x11};
    std::size_t n = 0;
    for (std::uint32_t i = 0; i < 215; ++i)
        t[n++] = opaco | (255 - i / 36 * 51) << 16 | (255 - i / 6 % 6 * 51) << 8 | (255 - i % 6 * 51);
    for (const std::uint32_t peso : {0x10000U, 0x100U, 1U, 0x10101U})
        for (const std::uint32_t v : gradi) t[n++] = opaco | v * peso;
    t[n] = opaco;
}

void delSistema(TavolaColori& t, std::int16_t bit) {
    constexpr std::uint32_t sedici[] = {0xFFFFFF, 0xFBF305, 0xFF6402, 0xDD0806, 0xF20884, 0x4600A5, 0x0000D4, 0x02ABEA,
                                        0x1FB714, 0x006411, 0x562C05, 0x90713A, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
    sfuma(t, 1U << bit);
    if (bit == 8) otto(t);
    if (bit == 4)
        std::transform(std::begin(sedici), std::end(sedici), t.begin(), [](std::uint32_t c) { return opaco | c; });
}

}   // namespace

std::int16_t BitIndice(const ImmagineCompressa& c) {
    return static_cast<std::int16_t>(c.depth > grigi ? c.depth - grigi : c.depth);
}

TavolaColori TavolaDi(const ImmagineCompressa& c) {
    constexpr std::size_t lungaDescrizione = 86;
    const std::int16_t bit = BitIndice(c);
    TavolaColori t;
    t.fill(opaco);
    if (c.depth > grigi) {
        sfuma(t, 1U << bit);
        return t;
    }
    delSistema(t, bit);
    if (c.descrizione.size() < lungaDescrizione + 8) return t;
    Lettore l(c.descrizione);
    l.vai(lungaDescrizione - 2);
    if (l.i16() != 0) return t;   // a table of the system's
    l.salta(6);
    const std::int32_t ultimo = std::min<std::int32_t>(l.u16(), 255);
    for (std::int32_t i = 0; i <= ultimo; ++i) {
        l.salta(2);
        const std::uint32_t p = pixelDi(l.colore());
        if (!l.guasto()) t[static_cast<std::size_t>(i)] = p;
    }
    return t;
}

bool Credibile(const ImmagineCompressa& c, double pixelPerByte) {
    constexpr double sempre = 1 << 20;
    return double(c.width) * c.height <= std::max(sempre, static_cast<double>(c.dati.size()) * pixelPerByte);
}

void ApriBianca(const ImmagineCompressa& c, Immagine& out) {
    out.width = c.width;
    out.height = c.height;
    out.depth = 32;
    out.pixels.assign(static_cast<std::size_t>(c.width) * static_cast<std::size_t>(c.height), 0xFFFFFFFFU);
}

}   // namespace tessaro
