// The player's pixels: bits opcodes row by row, images in a coding of their own, and the frame of what cannot be read.
#include <algorithm>
#include <cmath>
#include <string>

#include "platform/pict/Esegui.h"

namespace tessaro {

namespace {

constexpr std::int64_t fascia = 16 << 20;   // pixels unpacked at a time

void scriviFixed(std::string& s, std::size_t dove, double v) {
    const auto n =
        static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(std::clamp(v, -32767.0, 32767.0) * 65536)));
    for (std::size_t i = 0; i < 4; ++i) s[dove + i] = static_cast<char>(n >> (24 - 8 * i));
}

void scriviRett(std::string& s, std::size_t dove, const Rect& r) {
    const std::int32_t lati[4] = {r.top, r.left, r.bottom, r.right};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::int32_t v = std::clamp(lati[i], -32768, 32767);
        s[dove + 2 * i] = static_cast<char>(v >> 8);
        s[dove + 2 * i + 1] = static_cast<char>(v);
    }
}

}   // namespace

bool EsecutorePict::bits(std::uint16_t op, std::string_view dati) {
    Lettore l(dati);
    BitsTesta t;
    if (!LeggiBitsTesta(l, op, t)) return false;
    if (!t.pixmap) {
        t.tavola[0] = pixelDi(sfondo);
        t.tavola[1] = pixelDi(fronte);
    }
    const Rect dst = mappa.rett(t.dst);
    if (EmptyRect(dst) || EmptyRect(SectRect(t.src, t.bounds))) return true;
    auto* passaggio = dynamic_cast<PortaDiPassaggio*>(&porto);
    if (passaggio != nullptr && t.maschera.empty()) {
        const std::size_t prima = l.posto() - 10;   // in front of the first row: destination and mode
        std::string copiati(dati);
        scriviRett(copiati, prima, dst);
        passaggio->passa(op, copiati);
        return true;
    }
    const Region prima = porto.clip;
    std::vector<Rect> parti;
    if (!t.maschera.empty() && LeggiRegione(t.maschera, parti)) {
        Region m;
        for (const Rect& p : parti) m.parti.push_back(mappa.rett(p));
        porto.clip.intersect(m);
    }
    spendi(dst);
    const bool bene = righeBits(l, t);
    porto.clip = prima;
    return bene;
}

// Bands of whole rows: memory follows the rows that are really there, not the height that is claimed.
bool EsecutorePict::righeBits(Lettore& l, const BitsTesta& t) {
    const std::int32_t larghi = t.larghezza();
    const std::int64_t perFascia = std::max<std::int64_t>(1, fascia / larghi);
    const Rect src = SectRect(t.src, t.bounds);
    const Mappa interna(t.src, t.dst);   // of the picture's own coordinates
    const auto dove = [&](const Rect& s) {
        const auto h = [&](std::int32_t x) { return mappa.x(t.dst.left + (double(x) - t.src.left) * interna.sx); };
        const auto v = [&](std::int32_t y) { return mappa.y(t.dst.top + (double(y) - t.src.top) * interna.sy); };
        return Rect{v(s.top), h(s.left), v(s.bottom), h(s.right)};
    };
    DecodificaRighe decodifica(t);
    std::vector<std::uint32_t> pixel;
    std::string_view riga;
    std::int32_t primaRiga = t.bounds.top;
    std::int32_t y = t.bounds.top;
    const auto scarica = [&] {
        const Rect s = SectRect(src, Rect{primaRiga, t.bounds.left, y, t.bounds.right});
        if (!EmptyRect(s)) {
            ApplicaModo(t.mode, pixelDi(sfondo), pixel.data(), pixel.size());
            const PixMap fasciaPixel{pixel.data(), larghi, Rect{primaRiga, t.bounds.left, y, t.bounds.right}};
            if (ModoTrasparente(t.mode))
                CopiaConBuchi(porto, fasciaPixel, s, dove(s));
            else
                porto.stdBits(fasciaPixel, s, dove(s));
        }
        pixel.clear();
        primaRiga = y;
    };
    while (y < t.bounds.bottom && ProssimaRiga(l, t, riga)) {
        pixel.resize(pixel.size() + static_cast<std::size_t>(larghi));
        decodifica.riga(riga, pixel.data() + pixel.size() - static_cast<std::size_t>(larghi));
        speso += larghi;
        ++y;
        if (y - primaRiga >= perFascia) scarica();
    }
    if (y > primaRiga) scarica();
    return y >= t.bounds.bottom;
}

void CopiaConBuchi(GrafPort& port, const PixMap& bits, const Rect& src, const Rect& dst) {
    const Mappa m(src, dst);
    for (std::int32_t y = src.top; y < src.bottom; ++y) {
        const std::uint32_t* riga = bits.base + std::ptrdiff_t(y - bits.bounds.top) * bits.rowPixels;
        const auto pieno = [&](std::int32_t x) { return riga[x - bits.bounds.left] >> 24 != 0; };
        for (std::int32_t x = src.left; x < src.right;) {
            while (x < src.right && !pieno(x)) ++x;
            const std::int32_t inizio = x;
            while (x < src.right && pieno(x)) ++x;
            const Rect s{y, inizio, y + 1, x};
            const Rect d = m.rett(s);
            if (x > inizio && port.clip.touches(d)) port.stdBits(bits, s, d);
        }
    }
}

bool EsecutorePict::compressa(const Voce& v) {
    ImmagineCompressa c;
    if (!LeggiCompressa(v.dati, c)) return false;
    const Rect dst = mappa.rett(c.destinazione());
    auto* passaggio = dynamic_cast<PortaDiPassaggio*>(&porto);
    if (passaggio != nullptr && c.diritta) {
        constexpr std::size_t matrice = 6;
        std::string copiati(v.dati);
        const double sx = c.a * mappa.sx;
        const double sy = c.d * mappa.sy;
        scriviFixed(copiati, matrice, sx);
        scriviFixed(copiati, matrice + 16, sy);
        scriviFixed(copiati, matrice + 24, dst.left - c.src.left * sx);
        scriviFixed(copiati, matrice + 28, dst.top - c.src.top * sy);
        passaggio->passa(v.op, copiati);
        sostituita = true;
        return true;
    }
    Immagine im;
    if (!DecodificaCompressa(c, 1, im)) {
        crociata(dst);
        return false;
    }
    sostituita = true;
    // The coded size rules over the described one where they differ.
    const double fx = double(im.width) / c.width;
    const double fy = double(im.height) / c.height;
    const Rect tutta{0, 0, im.height, im.width};
    const auto n = [](double x) { return static_cast<std::int32_t>(std::lround(x)); };
    const Rect src =
        SectRect(tutta, Rect{n(c.src.top * fy), n(c.src.left * fx), n(c.src.bottom * fy), n(c.src.right * fx)});
    if (EmptyRect(src) || EmptyRect(dst)) return true;
    spendi(dst);
    ApplicaModo(c.mode, pixelDi(sfondo), im.pixels.data(), im.pixels.size());
    const PixMap tutti{im.pixels.data(), im.width, tutta};
    if (ModoTrasparente(c.mode))
        CopiaConBuchi(porto, tutti, src, dst);
    else
        porto.stdBits(tutti, src, dst);
    return true;
}

bool EsecutorePict::nonCompressa(const Voce& v) {
    ImmagineCompressa c;
    std::uint16_t op = 0;
    std::string_view dati;
    if (!LeggiNonCompressa(v.dati, c, op, dati)) return false;
    const Mappa prima = mappa;
    if (c.diritta) {
        mappa.a.left = prima.x(c.tx);
        mappa.a.top = prima.y(c.ty);
        mappa.da.left = mappa.da.top = 0;
        mappa.sx = prima.sx * c.a;
        mappa.sy = prima.sy * c.d;
    }
    const bool bene = bits(op, dati);
    mappa = prima;
    return bene;
}

void EsecutorePict::crociata(const Rect& r) {
    if (EmptyRect(r)) return;
    spendi(r);
    const PenState prima = porto.pen;
    porto.pen = PenState{};
    porto.foreground = RGBColor{};
    porto.stdRect(GrafVerb::frame, r, Pattern{});
    porto.stdLine(Point{r.top, r.left}, Point{r.bottom - 1, r.right - 1});
    porto.stdLine(Point{r.bottom - 1, r.left}, Point{r.top, r.right - 1});
    porto.foreground = fronte;
    porto.pen = prima;
}

}   // namespace tessaro
