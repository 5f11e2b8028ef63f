// The player's state: pens, patterns, colours, texts, clips and origins.
#include <algorithm>
#include <cmath>

#include "platform/pict/Esegui.h"

namespace tessaro {

namespace {

std::int32_t intero(double v) { return static_cast<std::int32_t>(std::lround(std::clamp(v, -1e6, 1e6))); }

const Pattern tuttoNero{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};

}   // namespace

void EsecutorePict::stato(const Voce& v) {
    Lettore l(v.dati);
    if (v.op == opClip) return ritaglia(v.dati);
    if (v.op == opOvSize) {
        ovale = l.punto();
    } else if (v.op == opOrigin) {
        const std::int32_t dh = l.i16();
        const std::int32_t dv = l.i16();
        // Kept within what 16-bit pictures can mean: repeated shifts of a damaged file must not run off.
        const Rect r = OffsetRect(mappa.da, dh, dv);
        if (std::abs(r.left) < 1000000 && std::abs(r.top) < 1000000) mappa.da = r;
    } else if (v.op >= opTxFont && v.op <= opTxMode) {
        statoTesto(v);
    } else if (v.op == opTxSize || v.op == opTxRatio) {
        statoTesto(v);
    } else if (v.op == opHiliteMode) {
        evidenzia = true;
    } else if (v.op == opHiliteColor || v.op == opDefHilite) {
        evidenza = v.op == opDefHilite ? evidenzaUsuale : l.colore();
    } else if (v.op == opFgColor || v.op == opBkColor || v.op == opRGBFgCol || v.op == opRGBBkCol) {
        statoColore(v);
    } else if (v.op >= opBkPixPat && v.op <= opFillPixPat) {
        retinoColore(v);
    } else {
        statoPenna(v);
    }
}

void EsecutorePict::statoPenna(const Voce& v) {
    Lettore l(v.dati);
    switch (v.op) {
    case opBkPat: fondo = Retino{l.retino(), false, {}, {}}; break;
    case opPnPat: penna = Retino{l.retino(), false, {}, {}}; break;
    case opFillPat: area = Retino{l.retino(), false, {}, {}}; break;
    case opPnMode: modoPenna = l.i16(); break;
    case opPnSize: {
        misuraPenna = l.punto();
        const auto lato = [](std::int32_t n, double scala) {
            return n <= 0 ? 0 : std::max<std::int32_t>(1, intero(n * std::abs(scala)));
        };
        porto.pen.pnSize = Point{lato(misuraPenna.v, mappa.sy), lato(misuraPenna.h, mappa.sx)};
        break;
    }
    default: break;
    }
}

void EsecutorePict::statoTesto(const Voce& v) {
    Lettore l(v.dati);
    switch (v.op) {
    case opTxFont: porto.text.txFont = l.i16(); break;
    case opTxFace: porto.text.txFace = l.u8(); break;
    case opTxMode: modoTesto = l.i16(); break;
    case opTxSize: corpo = l.i16(); break;
    case opTxRatio: {
        const Point numeratore = l.punto();
        const Point denominatore = l.punto();
        if (numeratore.v > 0 && denominatore.v > 0) rapportoTesto = double(numeratore.v) / denominatore.v;
        break;
    }
    default: break;
    }
}

void EsecutorePict::statoColore(const Voce& v) {
    Lettore l(v.dati);
    const RGBColor c = v.op == opFgColor || v.op == opBkColor ? ColoreFisso(l.i32()) : l.colore();
    if (v.op == opFgColor || v.op == opRGBFgCol)
        porto.foreground = fronte = c;
    else
        porto.background = sfondo = c;
}

// A pattern with colours: one colour stays itself, two colours become bits, more are drawn in their mean.
void EsecutorePict::retinoColore(const Voce& v) {
    Retino& r = v.op == opBkPixPat ? fondo : v.op == opPnPixPat ? penna : area;
    Lettore l(v.dati);
    const std::uint16_t tipo = l.u16();
    r = Retino{l.retino(), false, {}, {}};
    if (tipo == 2) r = Retino{tuttoNero, true, l.colore(), sfondo};
    if (tipo != 1) return;
    BitsTesta t;
    if (!LeggiPixMap(l, false, t)) return;
    t.imballato = t.rowBytes >= 8;
    t.contoLungo = t.rowBytes > 250;
    const auto larghi = static_cast<std::size_t>(std::max<std::int32_t>(t.larghezza(), 1));
    std::vector<std::uint32_t> riga(larghi);
    std::array<std::uint32_t, 2> colori{};
    std::size_t quanti = 0;
    double somma[3] = {0, 0, 0};
    double conto = 0;
    Pattern bit;
    DecodificaRighe decodifica(t);
    std::string_view dati;
    for (std::int32_t y = 0; y < t.altezza() && ProssimaRiga(l, t, dati); ++y) {
        decodifica.riga(dati, riga.data());
        for (std::size_t x = 0; x < larghi; ++x) {
            const std::uint32_t p = riga[x];
            const std::size_t quale = quanti > 0 && p == colori[0] ? 0 : quanti > 1 && p == colori[1] ? 1 : quanti++;
            if (quale < 2) colori[quale] = p;
            if (quale == 1 && y < 8 && x < 8)
                bit.pat[static_cast<std::size_t>(y)] |= static_cast<std::uint8_t>(0x80 >> x);
            for (int k = 0; k < 3; ++k) somma[k] += (p >> (16 - 8 * k)) & 0xFF;
            conto += 1;
        }
    }
    if (conto == 0) return;
    if (quanti <= 2 && larghi == 8 && t.altezza() == 8) {
        r = Retino{bit, true, coloreDi(colori[1]), coloreDi(colori[0])};
        return;
    }
    const auto medio = [&](int k) { return static_cast<std::uint16_t>(std::lround(somma[k] / conto) * 257); };
    r = Retino{tuttoNero, true, RGBColor{medio(0), medio(1), medio(2)}, sfondo};
}

void EsecutorePict::ritaglia(std::string_view dati) {
    std::vector<Rect> parti;
    if (!LeggiRegione(dati, parti)) return;
    Region r;
    for (const Rect& p : parti) {
        const Rect m = mappa.rett(p);
        if (!EmptyRect(m)) r.parti.push_back(m);
    }
    r.intersect(mappa.a);
    porto.clip = clipPrima;
    porto.clip.intersect(r);
}

}   // namespace tessaro
