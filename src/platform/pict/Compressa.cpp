// Parsing of the compressed and uncompressed image opcodes.
#include "platform/pict/Compressa.h"

#include <algorithm>
#include <cmath>

#include "platform/pict/Bits.h"
#include "platform/pict/Codifiche.h"

namespace tessaro {

namespace {

constexpr std::size_t lungaDescrizione = 86;

std::int32_t intero(double v) {
    if (!(v > -1e8)) return -100000000;
    return static_cast<std::int32_t>(std::lround(std::min(v, 1e8)));
}

void leggiMatrice(Lettore& l, ImmagineCompressa& c) {
    c.a = l.fixed();
    const double b = l.fixed();
    l.salta(4);
    const double cc = l.fixed();
    c.d = l.fixed();
    l.salta(4);
    c.tx = l.fixed();
    c.ty = l.fixed();
    l.salta(4);
    c.diritta = b == 0 && cc == 0 && c.a > 0 && c.d > 0;
    if (c.a == 0 || c.d == 0) c.a = c.d = 1;
}

// A matte hides nothing here: it is passed over.
void saltaMaschera(Lettore& l, std::size_t lunga) {
    if (lunga == 0) return;
    Lettore prova = l;
    l.salta(prova.u32());
    l.salta(lunga);
}

}   // namespace

Rect ImmagineCompressa::destinazione() const {
    return Rect{intero(src.top * d + ty), intero(src.left * a + tx), intero(src.bottom * d + ty),
                intero(src.right * a + tx)};
}

bool LeggiCompressa(std::string_view dati, ImmagineCompressa& c) {
    Lettore l(dati);
    l.salta(4 + 2);   // length, version
    leggiMatrice(l, c);
    const std::size_t maschera = l.u32();
    l.salta(8);
    c.mode = l.i16();
    c.src = l.rettangolo();
    l.salta(4);   // accuracy
    const std::size_t regione = l.u32();
    saltaMaschera(l, maschera);
    l.salta(regione);
    const std::size_t inizio = l.posto();
    const std::size_t lunga = l.u32();
    if (l.guasto() || lunga < lungaDescrizione) return false;
    c.codice = l.u32();
    l.salta(4 + 2 + 2 + 2 + 2 + 4 + 4 + 4);
    c.width = l.u16();
    c.height = l.u16();
    l.salta(8);
    const std::size_t claim = l.u32();
    l.salta(2 + 32);
    c.depth = l.i16();
    l.vai(inizio);
    c.descrizione = l.prendi(lunga);
    if (l.guasto() || c.width <= 0 || c.height <= 0) return false;
    c.dati = l.prendi(claim != 0 ? std::min(claim, l.resto()) : l.resto());
    if (EmptyRect(c.src)) c.src = Rect{0, 0, c.height, c.width};
    return !c.dati.empty();
}

bool LeggiNonCompressa(std::string_view dati, ImmagineCompressa& c, std::uint16_t& op, std::string_view& bits) {
    Lettore l(dati);
    l.salta(4 + 2);
    leggiMatrice(l, c);
    const std::size_t maschera = l.u32();
    l.salta(8);
    saltaMaschera(l, maschera);
    op = l.u16();
    bits = l.prendi(l.resto());
    return !l.guasto() && OpcodeBits(op);
}

bool DecodificaCompressa(const ImmagineCompressa& c, std::int32_t reduce, Immagine& out) {
    if (DecodificaAntica(c, out)) return true;
    if (!DecodeImageBytes(c.dati, reduce, out) || out.pixels.empty()) return false;
    return out.width > 0 && out.height > 0;
}

}   // namespace tessaro
