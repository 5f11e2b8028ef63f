// The player's loop and figures: which opcode goes where; the state and the pixels stand beside it.
#include "platform/pict/Esegui.h"

#include <algorithm>
#include <cmath>

namespace tessaro {

namespace {

constexpr double limiteCoordinata = 1 << 28;

std::int32_t intero(double v) {
    return static_cast<std::int32_t>(std::lround(std::clamp(v, -limiteCoordinata, limiteCoordinata)));
}

// What a stored pen mode becomes here: one of the modes a port knows, with the pattern turned over for the `not` ones.
struct ModoPenna {
    std::int16_t modo;
    bool rovescia;
};
ModoPenna modoPennaDi(std::int16_t stored) {
    constexpr std::array<ModoPenna, 8> modi{{{patCopy, false},
                                             {patOr, false},
                                             {patXor, false},
                                             {patBic, false},
                                             {patCopy, true},
                                             {patOr, true},
                                             {patXor, true},
                                             {notPatBic, false}}};
    if (stored < 0 || stored > 15) return stored == bitsTrasparente ? ModoPenna{patOr, false} : modi[0];
    return modi[static_cast<std::size_t>(stored & 7)];
}

Pattern rovescio(Pattern p) {
    for (auto& r : p.pat) r = static_cast<std::uint8_t>(~r);
    return p;
}

const Pattern tuttoNero{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};

}   // namespace

Mappa::Mappa(const Rect& from, const Rect& to) : da(from), a(to) {
    const auto lato = [](std::int32_t fine, std::int32_t inizio) { return static_cast<double>(fine) - inizio; };
    if (da.right != da.left) sx = lato(a.right, a.left) / lato(da.right, da.left);
    if (da.bottom != da.top) sy = lato(a.bottom, a.top) / lato(da.bottom, da.top);
}
std::int32_t Mappa::x(double h) const { return intero(a.left + (h - da.left) * sx); }
std::int32_t Mappa::y(double v) const { return intero(a.top + (v - da.top) * sy); }

EsecutorePict::EsecutorePict(GrafPort& port, std::string_view bytes, const Rect& dst)
    : porto(port), voci(bytes), mappa(voci.sorgente, dst), pennaPrima(port.pen), testoPrima(port.text),
      frontePrima(port.foreground), fondoPrima(port.background), clipPrima(port.clip) {
    penna.bit = area.bit = tuttoNero;
    porto.pen.pnSize = Point{porto.finezza, porto.finezza};
    porto.foreground = fronte;
    porto.background = sfondo;
    porto.clip.intersect(dst);
}

EsecutorePict::~EsecutorePict() {
    porto.pen = pennaPrima;
    porto.text = testoPrima;
    porto.foreground = frontePrima;
    porto.background = fondoPrima;
    porto.clip = clipPrima;
}

bool EsecutorePict::esegui(EsitoPict& esito) {
    esito.rotta = !voci.valido() || !tutte(esito);
    esito.finita = voci.finito();
    if (!esito.rotta) return tuttoBene;
    porto.clip = clipPrima;
    crociata(mappa.a);
    return false;
}

bool EsecutorePict::tutte(EsitoPict& esito) {
    constexpr double limite = 2e10;   // pixels: some seconds of work, far above any real picture
    Voce v;
    while (voci.prossima(v)) {
        if (esito.avanti != nullptr && !esito.avanti(voci.parte())) return esito.fermata = true;
        if (!voce(v)) {
            if (v.op != opCompresso) return false;
            tuttoBene = false;   // in a coding that nobody here knows: its place was crossed out
        }
        if (!v.intera) return false;
        speso += 16;
        if (speso > limite) return false;
    }
    return true;
}

bool EsecutorePict::voce(const Voce& v) {
    const bool scritta = v.op >= opLongText && v.op <= opDHDVText;
    if (sostituita && (scritta || OpcodeBits(v.op))) return true;
    if (OpcodeBits(v.op)) return bits(v.op, v.dati);
    if (!v.intera) return false;
    if (v.op >= opLine && v.op < 0x90) sostituita = false;
    if (v.op == opCompresso) return compressa(v);
    if (v.op == opNonCompresso) return nonCompressa(v);
    if (v.op >= opRect && v.op < 0x90)
        figura(v);
    else if (v.op >= opLine && v.op <= opShortLineFrom)
        linea(v);
    else if (v.op >= opLongText && v.op <= opDHDVText)
        testo(v);
    else if (v.op == opShortComment || v.op == opLongComment)
        commento(v);
    else if (v.op < opLine)
        stato(v);
    return true;
}

void EsecutorePict::spendi(const Rect& r) {
    const Rect visto = SectRect(r, porto.clip.box());
    if (!EmptyRect(visto))
        speso += (static_cast<double>(visto.right) - visto.left) * (static_cast<double>(visto.bottom) - visto.top);
    speso += 64.0 * static_cast<double>(porto.clip.parti.size());
}

template <class F>
void EsecutorePict::conRetino(GrafVerb verbo, const F& disegna) {
    Retino r = verbo == GrafVerb::fill ? area : verbo == GrafVerb::erase ? fondo : penna;
    if (verbo == GrafVerb::erase && (r.propri || r.bit != Pattern{})) verbo = GrafVerb::fill;
    if (verbo == GrafVerb::frame || verbo == GrafVerb::paint) {
        const ModoPenna m = modoPennaDi(modoPenna);
        porto.pen.pnMode = m.modo;
        porto.pen.pnPat = m.rovescia ? rovescio(r.bit) : r.bit;
    }
    if (verbo == GrafVerb::invert && evidenzia) {   // white becomes the highlight, and the highlight white
        verbo = GrafVerb::paint;
        porto.pen.pnMode = patXor;
        porto.pen.pnPat = tuttoNero;
        porto.foreground = evidenza;
    } else if (r.propri) {
        porto.foreground = r.fronte;
        porto.background = r.fondo;
    }
    disegna(verbo, r.bit);
    porto.foreground = fronte;
    porto.background = sfondo;
    evidenzia = false;
}

void EsecutorePict::commento(const Voce& v) {
    Lettore l(v.dati);
    const std::int16_t kind = l.i16();
    porto.stdComment(kind, v.op == opLongComment ? l.prendi(l.u16()) : std::string_view{});
}

void EsecutorePict::linea(const Voce& v) {
    Lettore l(v.dati);
    Point da = pennaQui;
    if (v.op == opLine || v.op == opShortLine) da = l.punto();
    Point a = da;
    if (v.op == opLine || v.op == opLineFrom) {
        a = l.punto();
    } else {
        a.h += l.i8();
        a.v += l.i8();
    }
    pennaQui = a;
    const Point pa = mappa.punto(da);
    const Point pb = mappa.punto(a);
    speso += std::abs(double(pa.h) - pb.h) + std::abs(double(pa.v) - pb.v) > 1e5 ? 1e5 : 1e3;
    conRetino(GrafVerb::frame, [&](GrafVerb, const Pattern&) {
        porto.pen.pnLoc = pa;
        porto.stdLine(pa, pb);
        porto.pen.pnLoc = pb;
    });
}

void EsecutorePict::testo(const Voce& v) {
    Lettore l(v.dati);
    if (v.op == opLongText) {
        testoQui = l.punto();
    } else {
        if (v.op != opDVText) testoQui.h += l.u8();
        if (v.op != opDHText) testoQui.v += l.u8();
    }
    const std::string_view bytes = l.prendi(l.u8());
    if (bytes.empty()) return;
    const double misura = (corpo == 0 ? 12 : corpo) * rapportoTesto * std::abs(mappa.sy);
    if (!(misura >= 0.5) || misura > 8000) return;   // below half a pixel nothing shows
    porto.text.txSize = static_cast<std::int16_t>(std::max(1L, std::lround(misura)));
    porto.text.txMode = modoTesto == srcCopy ? srcCopy : srcOr;
    if (modoTesto == bitsBic) porto.foreground = sfondo;
    porto.pen.pnLoc = mappa.punto(testoQui);
    speso += misura * misura * static_cast<double>(bytes.size());
    porto.stdText(bytes);
    porto.foreground = fronte;
}

void EsecutorePict::figura(const Voce& v) {
    const int quale = v.op & 7;
    if (quale > 4) return;   // reserved
    const auto verbo = static_cast<GrafVerb>(quale);
    const bool stesso = (v.op & 8) != 0;
    const int famiglia = v.op & 0xF0;
    if (famiglia == opPoly)
        poligono(v, verbo, stesso);
    else if (famiglia == opRgn)
        regione(v, verbo, stesso);
    else if (famiglia == opArc)
        arco(v, verbo, stesso);
    else
        rettangoli(v, verbo, stesso);
}

void EsecutorePict::rettangoli(const Voce& v, GrafVerb verbo, bool stesso) {
    if (!stesso) ultimo = Lettore(v.dati).rettangolo();
    const Rect r = mappa.rett(ultimo);
    if (EmptyRect(r)) return;
    spendi(r);
    const int famiglia = v.op & 0xF0;
    conRetino(verbo, [&](GrafVerb verb, const Pattern& p) {
        if (famiglia == opRect)
            porto.stdRect(verb, r, p);
        else if (famiglia == opOval)
            porto.stdOval(verb, r, p);
        else
            disegnaRRett(verb, r, p);
    });
}

void EsecutorePict::arco(const Voce& v, GrafVerb verbo, bool stesso) {
    Lettore l(v.dati);
    if (!stesso) ultimo = l.rettangolo();
    const std::int32_t inizio = l.i16();
    const std::int32_t ampiezza = l.i16();
    const Rect r = mappa.rett(ultimo);
    if (EmptyRect(r)) return;
    spendi(r);
    conRetino(verbo, [&](GrafVerb verb, const Pattern& p) { porto.stdArc(verb, r, inizio, ampiezza, p); });
}

void EsecutorePict::poligono(const Voce& v, GrafVerb verbo, bool stesso) {
    if (!stesso) {
        Lettore l(v.dati);
        l.salta(2 + 8);
        ultimoPoligono.punti.clear();
        while (l.resto() >= 4) ultimoPoligono.punti.push_back(l.punto());
    }
    if (ultimoPoligono.punti.size() < 2) return;
    Polygon p;
    Rect box{mappa.a.bottom, mappa.a.right, mappa.a.top, mappa.a.left};
    for (const Point& punto : ultimoPoligono.punti) {
        const Point q = mappa.punto(punto);
        p.punti.push_back(q);
        box = Rect{std::min(box.top, q.v), std::min(box.left, q.h), std::max(box.bottom, q.v + 1),
                   std::max(box.right, q.h + 1)};
    }
    spendi(box);
    speso += 1e3 * static_cast<double>(p.punti.size());
    conRetino(verbo, [&](GrafVerb verb, const Pattern& pat) { porto.stdPoly(verb, p, pat); });
}

void EsecutorePict::regione(const Voce& v, GrafVerb verbo, bool stesso) {
    if (!stesso) {
        std::vector<Rect> parti;
        if (!LeggiRegione(v.dati, parti)) return;
        ultimaRegione.parti = std::move(parti);
    }
    Region r;
    for (const Rect& parte : ultimaRegione.parti) {
        const Rect m = mappa.rett(parte);
        if (!EmptyRect(m)) r.parti.push_back(m);
    }
    if (r.empty()) return;
    for (const Rect& parte : r.parti) spendi(parte);
    conRetino(verbo, [&](GrafVerb verb, const Pattern& p) { porto.stdRgn(verb, r, p); });
}

// A port has no bottleneck for rounded rectangles: they go as polygons with the corners in short sides.
void EsecutorePict::disegnaRRett(GrafVerb verbo, const Rect& r, const Pattern& p) {
    constexpr int passi = 8;
    constexpr double quarto = 1.57079632679489661923;
    Rect f = r;
    if (verbo == GrafVerb::frame) {   // the pen hangs to the right and below: the outline stays inside
        f.right -= porto.pen.pnSize.h;
        f.bottom -= porto.pen.pnSize.v;
    }
    const double rx = std::min(ovale.h * std::abs(mappa.sx), double(f.right) - f.left) / 2;
    const double ry = std::min(ovale.v * std::abs(mappa.sy), double(f.bottom) - f.top) / 2;
    if (rx <= 0 || ry <= 0) return porto.stdRect(verbo, r, p);
    Polygon q;
    for (int angolo = 0; angolo < 4; ++angolo) {
        const bool destra = angolo == 0 || angolo == 3;
        const double cx = destra ? f.right - rx : f.left + rx;
        const double cy = angolo < 2 ? f.top + ry : f.bottom - ry;
        for (int i = 0; i <= passi; ++i) {
            const double t = quarto * (angolo + double(i) / passi);
            q.punti.push_back(Point{intero(cy - ry * std::sin(t)), intero(cx + rx * std::cos(t))});
        }
    }
    q.punti.push_back(q.punti.front());
    porto.stdPoly(verbo, q, p);
}

bool DrawPicture(std::string_view bytes, const Rect& dst, EsitoPict* esito) {
    EsitoPict suo;
    if (esito == nullptr) esito = &suo;
    if (EmptyRect(dst)) return VociPict(bytes).valido();
    return EsecutorePict(*GetPort(), bytes, dst).esegui(*esito);
}

}   // namespace tessaro
