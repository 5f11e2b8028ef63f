// The walk, strip by strip. On one thread each block of pixels is placed and copied while it is at hand; on several the
// places of a strip are worked out first, its rows shared out, and then copied, the rows of the result shared out.
#include "raster/Percorri.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>

#include "bitmap/PerRighe.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

// --- the cut at the destination

namespace {

// By how much a crossing that is rounded to single precision may miss its place, and by how much a mapped point its pixel.
double tolleranza(const Piano& p) {
    double grande = std::max(std::fabs(p.x1Pict2) + p.larghezza / p.stepD, std::fabs(p.y1Pict2) + p.altezza / p.stepD);
    for (std::int32_t i = 0; i <= ultimoTaglio; ++i)
        grande = std::max(
            {grande, std::fabs(Xtaglio[static_cast<std::size_t>(i)]), std::fabs(Ytaglio[static_cast<std::size_t>(i)])});
    return 0.0002 + grande * 2.4e-7;
}

std::int32_t entro(double v, std::int32_t limite) {
    return static_cast<std::int32_t>(std::clamp(v, 0.0, static_cast<double>(limite)));
}

}   // namespace

// Pixels that the side passes by, with a margin.
void MascheraTaglio::orla(const Piano& p, double x1, double y1, double x2, double y2) {
    const double margine = tolleranza(p) * p.stepD + 1.01;
    const auto u = [&p](double x) { return (x - p.x1Pict2) * p.stepD; };
    const auto w = [&p](double y) { return (y - p.y1Pict2) * p.stepD; };
    double ua = u(x1), wa = w(y1), ub = u(x2), wb = w(y2);
    if (!(std::isfinite(ua) && std::isfinite(wa) && std::isfinite(ub) && std::isfinite(wb))) {
        std::fill(stati.begin(), stati.end(), std::uint8_t{orlo});
        return;
    }
    if (wa > wb) {
        std::swap(ua, ub);
        std::swap(wa, wb);
    }
    const double pendenza = wb > wa ? (ub - ua) / (wb - wa) : 0;
    const std::int32_t prima = entro(wa - margine, p.altezza), ultima = entro(wb + margine + 1, p.altezza);
    for (std::int32_t r = prima; r < ultima; ++r) {
        const double da = std::clamp(r - margine, wa, wb), a = std::clamp(r + 1 + margine, wa, wb);
        const double c1 = wb > wa ? ua + (da - wa) * pendenza : ua, c2 = wb > wa ? ua + (a - wa) * pendenza : ub;
        const std::int32_t k1 = entro(std::min(c1, c2) - margine, p.larghezza),
                           k2 = entro(std::max(c1, c2) + margine + 1, p.larghezza);
        const auto riga = stati.begin() + static_cast<std::ptrdiff_t>(std::uint64_t(r) * p.passo);
        std::fill(riga + k1, riga + std::max(k1, k2), std::uint8_t{orlo});
    }
}

bool MascheraTaglio::prepara(const Piano& p) {
    try {
        stati.assign(std::size_t(p.passo) * static_cast<std::size_t>(p.altezza), fuori);
    } catch (const std::bad_alloc&) { return false; }
    std::vector<TrattoFila> tratti;
    for (std::int32_t r = 0; r < p.altezza; ++r) {   // the middles of the pixels
        const FilaPunti fila{p.x1Pict2 + 0.5 / p.stepD, 1 / p.stepD, p.y1Pict2 + (r + 0.5) / p.stepD};
        TrattiInterni(fila, 0, p.larghezza, tratti);
        const auto riga = stati.begin() + static_cast<std::ptrdiff_t>(std::uint64_t(r) * p.passo);
        for (const TrattoFila& t : tratti) std::fill(riga + t.da, riga + t.a, std::uint8_t{dentro});
    }
    for (std::int32_t i = 0; i <= ultimoTaglio; ++i) {
        const auto a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(i == ultimoTaglio ? 0 : i + 1);
        orla(p, Xtaglio[a], Ytaglio[a], Xtaglio[b], Ytaglio[b]);
    }
    return true;
}

// --- the walk

namespace {

// A block of a source row, from column h on.
struct Blocco {
    std::int32_t v = 0, h = 0, n = 0;
    EsitoBlocco esito;
};

void tagliaDestinazione(const Percorso& p, Blocco& b, std::uint32_t* indici) {
    for (std::int32_t i = 0; i < b.n; ++i) {
        if (indici[i] == nessunPixel) continue;
        const std::uint8_t s = p.maschera->stato(indici[i]);
        if (s == MascheraTaglio::dentro) continue;
        bool tieni = false;
        if (s == MascheraTaglio::orlo) {
            double x = p.piano.x1PictBase + (b.h + i) * p.piano.stepS, y = p.piano.y1PictBase + b.v * p.piano.stepS;
            attaccoAttivo.Traf4Pt(x, y);
            tieni = InternoPol(x, y);
        }
        if (tieni) continue;
        indici[i] = nessunPixel;
        b.esito.pieno = false;
    }
}

void collocaBlocco(const Percorso& p, Blocco& b, std::uint32_t* indici) {
    b.esito = IndiciBlocco(p.mappa, p.piano, b.v, b.h, b.n, indici);
    if (p.taglio == TaglioWalk::destinazione) tagliaDestinazione(p, b, indici);
}

// The blocks of row v: all of it, or what the cut at the source leaves.
void blocchiDi(const Percorso& p, std::int32_t v, std::vector<TrattoFila>& tratti, std::vector<Blocco>& blocchi) {
    const Rect& r = p.pictRect;
    tratti.assign(1, {r.left, r.right});
    if (p.taglio == TaglioWalk::sorgente) {
        const FilaPunti fila{p.piano.x1PictBase, p.piano.stepS, p.piano.y1PictBase + v * p.piano.stepS};
        TrattiInterni(fila, r.left, r.right, tratti);
    }
    for (const TrattoFila& t : tratti)
        for (std::int32_t h = t.da; h < t.a; h += bloccoPixel)
            blocchi.push_back(Blocco{v, h, std::min(bloccoPixel, t.a - h), {}});
}

// Source rows that are drawn at once: those with anything to walk, and the columns in use.
struct Striscia {
    std::vector<Blocco> blocchi;   // row by row
    Rect area;

    void vuota() {
        blocchi.clear();
        area = Rect{};
    }
    void prendi(std::size_t daBlocco) {
        for (std::size_t k = daBlocco; k < blocchi.size(); ++k) {
            const Blocco& b = blocchi[k];
            area = UnionRect(area, Rect{b.v, b.h, b.v + 1, b.h + b.n});
        }
    }
    [[nodiscard]] std::int64_t pixel() const { return std::int64_t(area.right - area.left) * (area.bottom - area.top); }
};

// Copies what lands in rows [da, a) of the result.
template <class Pixel>
void copiaBlocco(const Percorso& p, std::int32_t sinistra, const Blocco& b, const std::uint32_t* indici,
                 std::int32_t da, std::int32_t a) {
    const EsitoBlocco& e = b.esito;
    if (e.prima > e.ultima || e.ultima < da || e.prima >= a) return;
    const auto* src = reinterpret_cast<const Pixel*>(p.sorgente.riga(b.v)) + (b.h - sinistra);
    auto* dst = reinterpret_cast<Pixel*>(p.risultato.dati.get());
    if (e.pieno && e.prima >= da && e.ultima < a) {
        for (std::int32_t i = 0; i < b.n; ++i) dst[indici[i]] = src[i];
        return;
    }
    const std::uint32_t inizio = static_cast<std::uint32_t>(da) * p.piano.passo;
    const std::uint32_t quanti = static_cast<std::uint32_t>(a - da) * p.piano.passo;
    for (std::int32_t i = 0; i < b.n; ++i)
        if (indici[i] - inizio < quanti) dst[indici[i]] = src[i];
}

template <class Pixel>
void daSolo(const Percorso& p, Striscia& s) {
    std::array<std::uint32_t, bloccoPixel> indici;
    for (Blocco& b : s.blocchi) {
        collocaBlocco(p, b, indici.data());
        copiaBlocco<Pixel>(p, s.area.left, b, indici.data(), 0, p.piano.altezza);
    }
}

template <class Pixel>
void inMolti(const Percorso& p, Striscia& s, std::vector<std::uint32_t>& indici) {
    indici.resize(s.blocchi.size() * bloccoPixel);
    const auto posti = [&indici](std::size_t k) { return indici.data() + k * bloccoPixel; };
    perRighe(static_cast<std::int32_t>(s.blocchi.size()), [&](std::int32_t da, std::int32_t a, std::int32_t) {
        for (auto k = static_cast<std::size_t>(da); k < static_cast<std::size_t>(a); ++k)
            collocaBlocco(p, s.blocchi[k], posti(k));
    });
    std::int32_t prima = p.piano.altezza, ultima = -1;
    for (const Blocco& b : s.blocchi) {
        if (b.esito.prima > b.esito.ultima) continue;
        prima = std::min(prima, b.esito.prima);
        ultima = std::max(ultima, b.esito.ultima);
    }
    perRighe(ultima - prima + 1, [&](std::int32_t da, std::int32_t a, std::int32_t) {
        for (std::size_t k = 0; k < s.blocchi.size(); ++k)   // in the order of the source
            copiaBlocco<Pixel>(p, s.area.left, s.blocchi[k], posti(k), prima + da, prima + a);
    });
}

template <class Pixel>
EsitoPercorso percorri(const Percorso& p, const std::function<bool(double)>& passo) {
    const Rect& r = p.pictRect;
    const std::int64_t perVolta = p.sorgente.pixelPerStriscia();
    Striscia s;
    std::vector<TrattoFila> tratti;
    std::vector<std::uint32_t> indici;
    const auto disegna = [&] {
        if (s.blocchi.empty()) return true;
        const Rect& a = s.area;
        if (!p.sorgente.disegna(a.top, a.bottom - a.top, a.left, a.right)) return false;
        if (Fili() > 1)
            inMolti<Pixel>(p, s, indici);
        else
            daSolo<Pixel>(p, s);
        s.vuota();
        return true;
    };
    for (std::int32_t v = r.top; v < r.bottom; ++v) {
        const std::size_t prima = s.blocchi.size();
        blocchiDi(p, v, tratti, s.blocchi);
        if (prima > 0 && s.blocchi.size() > prima && v > s.area.bottom) {   // nothing is drawn for rows between
            s.blocchi.resize(prima);
            if (!disegna()) return EsitoPercorso::memoria;
            blocchiDi(p, v, tratti, s.blocchi);
            s.prendi(0);
        } else {
            s.prendi(prima);
        }
        if (s.pixel() < perVolta && v + 1 < r.bottom) continue;
        if (!disegna()) return EsitoPercorso::memoria;
        if (!passo((double(v) + 1 - r.top) / (double(r.bottom) - r.top))) return EsitoPercorso::fermato;
    }
    return EsitoPercorso::fatto;
}

}   // namespace

EsitoPercorso Percorri(const Percorso& p, const std::function<bool(double)>& passo) {
    if (EmptyRect(p.pictRect)) return EsitoPercorso::fatto;
    try {
        switch (p.risultato.byte) {
        case 1: return percorri<std::uint8_t>(p, passo);
        case 2: return percorri<std::uint16_t>(p, passo);
        default: return percorri<std::uint32_t>(p, passo);
        }
    } catch (const std::bad_alloc&) { return EsitoPercorso::memoria; }
}

}   // namespace tessaro
