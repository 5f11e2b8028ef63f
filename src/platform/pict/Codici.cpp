// Lengths of the opcodes' data, those of reserved ones too, so that unknown opcodes are passed over.
#include "platform/pict/Codici.h"

#include <array>

#include "platform/pict/Bits.h"

namespace tessaro {

namespace {

// How the data of an opcode below 0x100 are measured; values from 0 up are a fixed number of bytes.
enum Misura : std::int8_t {
    propria = -1,     // a 16-bit length that counts itself: regions and polygons
    davanti = -2,     // a 16-bit length in front of the data
    davanti32 = -3,   // a 32-bit one
    testo = -4,
    commento = -5,
    bits = -6,
    retinoColore = -7,
};

struct Tratto {
    std::uint16_t da, a;
    std::int8_t misura;
};

constexpr std::array tratti{
    Tratto{0x00, 0x00, 0},       Tratto{0x01, 0x01, propria},   Tratto{0x02, 0x02, 8},
    Tratto{0x03, 0x03, 2},       Tratto{0x04, 0x04, 1},         Tratto{0x05, 0x05, 2},
    Tratto{0x06, 0x07, 4},       Tratto{0x08, 0x08, 2},         Tratto{0x09, 0x0A, 8},
    Tratto{0x0B, 0x0C, 4},       Tratto{0x0D, 0x0D, 2},         Tratto{0x0E, 0x0F, 4},
    Tratto{0x10, 0x10, 8},       Tratto{0x11, 0x11, 1},         Tratto{0x12, 0x14, retinoColore},
    Tratto{0x15, 0x16, 2},       Tratto{0x17, 0x19, 0},         Tratto{0x1A, 0x1B, 6},
    Tratto{0x1C, 0x1C, 0},       Tratto{0x1D, 0x1D, 6},         Tratto{0x1E, 0x1E, 0},
    Tratto{0x1F, 0x1F, 6},       Tratto{0x20, 0x20, 8},         Tratto{0x21, 0x21, 4},
    Tratto{0x22, 0x22, 6},       Tratto{0x23, 0x23, 2},         Tratto{0x24, 0x27, davanti},
    Tratto{0x28, 0x2B, testo},   Tratto{0x2C, 0x2F, davanti},   Tratto{0x30, 0x37, 8},
    Tratto{0x38, 0x3F, 0},       Tratto{0x40, 0x47, 8},         Tratto{0x48, 0x4F, 0},
    Tratto{0x50, 0x57, 8},       Tratto{0x58, 0x5F, 0},         Tratto{0x60, 0x67, 12},
    Tratto{0x68, 0x6F, 4},       Tratto{0x70, 0x77, propria},   Tratto{0x78, 0x7F, 0},
    Tratto{0x80, 0x87, propria}, Tratto{0x88, 0x8F, 0},         Tratto{0x90, 0x91, bits},
    Tratto{0x92, 0x97, davanti}, Tratto{0x98, 0x9B, bits},      Tratto{0x9C, 0x9F, davanti},
    Tratto{0xA0, 0xA0, 2},       Tratto{0xA1, 0xA1, commento},  Tratto{0xA2, 0xAF, davanti},
    Tratto{0xB0, 0xCF, 0},       Tratto{0xD0, 0xFE, davanti32}, Tratto{0xFF, 0xFF, 0},
};

constexpr std::array<std::int8_t, 256> misure = [] {
    std::array<std::int8_t, 256> m{};
    for (const Tratto& t : tratti)
        for (std::size_t i = t.da; i <= t.a; ++i) m[i] = t.misura;
    return m;
}();

bool saltaRighe(Lettore& l, const BitsTesta& t) {
    std::string_view riga;
    for (std::int32_t y = 0; y < t.altezza(); ++y)
        if (!ProssimaRiga(l, t, riga)) return false;
    return !l.guasto();
}

bool saltaBits(Lettore& l, std::uint16_t op) {
    BitsTesta t;
    return LeggiBitsTesta(l, op, t) && saltaRighe(l, t);
}

bool saltaRetinoColore(Lettore& l) {
    const std::uint16_t tipo = l.u16();
    l.salta(8);
    if (tipo == 2) l.salta(6);
    if (tipo != 1) return !l.guasto();
    BitsTesta t;
    if (!LeggiPixMap(l, false, t) || t.diretto || t.larghezza() <= 0 || t.altezza() <= 0) return false;
    t.imballato = t.rowBytes >= 8;
    t.contoLungo = t.rowBytes > 250;
    return saltaRighe(l, t);
}

bool saltaTesto(Lettore& l, std::uint16_t op) {
    constexpr std::array<std::size_t, 4> davantiAlConto{4, 1, 1, 2};
    l.salta(davantiAlConto[op - opLongText]);
    l.salta(l.u8());
    return !l.guasto();
}

bool saltaPropria(Lettore& l) {
    const std::uint16_t lunga = l.u16();
    if (lunga < 2) return false;
    l.salta(lunga - 2U);
    return !l.guasto();
}

bool saltaBasso(Lettore& l, std::uint16_t op) {
    const std::int8_t m = misure[op];
    switch (m) {
    case propria: return saltaPropria(l);
    case davanti: l.salta(l.u16()); break;
    case davanti32: l.salta(l.u32()); break;
    case testo: return saltaTesto(l, op);
    case commento:
        l.salta(2);
        l.salta(l.u16());
        break;
    case bits: return saltaBits(l, op);
    case retinoColore: return saltaRetinoColore(l);
    default: l.salta(static_cast<std::size_t>(m)); break;
    }
    return !l.guasto();
}

}   // namespace

VociPict::VociPict(std::string_view bytes) : l(bytes), tutto(bytes) {
    l.salta(2);   // the size's low 16 bits: of no use for pictures above 64K
    frame = l.rettangolo();
    sorgente = frame;
    if (!l.guasto()) leggiTesta();
}

void VociPict::leggiTesta() {
    // The version opcode should come first; padding in front of it is met in old files.
    while (l.resto() >= 2 && tutto[l.posto()] == 0 && tutto[l.posto() + 1] == 0) l.salta(2);
    if (l.resto() < 2) return;
    const std::uint8_t primo = l.u8();
    if (primo == opVersion) {
        if (l.u8() == 1) versione = 1;
        return;
    }
    if (primo != 0 || l.u8() != opVersion || l.u16() != 0x02FF) return;
    versione = 2;
    Lettore testa = l;
    if (testa.u16() != opHeader) return;
    const std::int16_t tipo = testa.i16();
    if (tipo != -2) return;
    testa.salta(2);
    const double x = testa.fixed();
    const double y = testa.fixed();
    const Rect r = testa.rettangolo();
    if (testa.guasto()) return;
    esteso = true;
    if (x >= 1 && y >= 1) {
        dpiX = x;
        dpiY = y;
    }
    if (!EmptyRect(r)) sorgente = r;
}

double VociPict::parte() const {
    return tutto.empty() ? 1 : 1 - static_cast<double>(l.resto()) / static_cast<double>(tutto.size());
}

bool VociPict::prossima(Voce& v) {
    if (fine || versione == 0) return false;
    if (versione == 2 && l.posto() % 2 != 0) l.salta(1);
    if (l.resto() < (versione == 2 ? 2U : 1U)) return false;
    v.op = versione == 2 ? l.u16() : l.u8();
    if (v.op == opEndPic) {
        fine = true;
        return false;
    }
    return misura(v);
}

bool VociPict::misura(Voce& v) {
    const std::size_t inizio = l.posto();
    if (v.op < 0x100)
        v.intera = saltaBasso(l, v.op);
    else {
        if (v.op < 0x8000)
            l.salta(static_cast<std::size_t>(v.op >> 8) * 2);
        else if (v.op >= 0x8100)
            l.salta(l.u32());
        v.intera = !l.guasto();
    }
    v.dati = tutto.substr(inizio, l.posto() - inizio);
    if (v.intera) return true;
    v.dati = tutto.substr(inizio);   // what is left can still be drawn in part; nothing can follow it
    l.vai(tutto.size());
    return true;
}

}   // namespace tessaro
