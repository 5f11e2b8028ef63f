// The recorder: a port that writes what is drawn on it as a version 2 picture. State is written when it is used.
#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include "platform/Fonts.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Esegui.h"
#include "platform/pict/Pict.h"
#include "platform/pict/Scrittore.h"

namespace tessaro {

namespace {

constexpr std::size_t massimoPict = 0x7FFFFFFF;
constexpr std::size_t massimoPunti = 8000;   // of one polygon: its length has 16 bits, and old readers count it signed

// Where line y of a region turns over against the line above it: ends that stand on one side only.
std::vector<std::int32_t> svolteDi(const Region& r, std::int32_t y, std::vector<std::int32_t>& prima) {
    std::vector<std::int32_t> qui;
    for (const Rect& p : r.parti)
        if (p.top <= y && y < p.bottom) qui.insert(qui.end(), {p.left, p.right});
    std::sort(qui.begin(), qui.end());
    std::vector<std::int32_t> svolte;
    std::set_symmetric_difference(qui.begin(), qui.end(), prima.begin(), prima.end(), std::back_inserter(svolte));
    // A shared edge of two neighbours stands twice and turns nothing over.
    for (std::size_t i = 0; i + 1 < svolte.size();)
        if (svolte[i] == svolte[i + 1])
            svolte.erase(svolte.begin() + std::ptrdiff_t(i), svolte.begin() + std::ptrdiff_t(i) + 2);
        else
            ++i;
    prima = std::move(qui);
    return svolte;
}

// Region data from disjoint rectangles: for each line where something changes, the points where it turns over.
void scriviRegione(Scrittore& s, const Region& r) {
    const Rect box = r.box();
    if (r.parti.size() <= 1) {
        s.u16(10);
        s.rettangolo(box);
        return;
    }
    std::vector<std::int32_t> righe;
    for (const Rect& p : r.parti) {
        righe.push_back(p.top);
        righe.push_back(p.bottom);
    }
    std::sort(righe.begin(), righe.end());
    righe.erase(std::unique(righe.begin(), righe.end()), righe.end());
    Scrittore dentro;
    std::vector<std::int32_t> prima;
    for (const std::int32_t y : righe) {
        const std::vector<std::int32_t> svolte = svolteDi(r, y, prima);
        if (svolte.empty()) continue;
        dentro.u16(std::clamp(y, -32768, 32766));
        for (const std::int32_t x : svolte) dentro.u16(std::clamp(x, -32768, 32766));
        dentro.u16(0x7FFF);
    }
    dentro.u16(0x7FFF);
    if (dentro.bytes.size() + 10 > 0x7FFE) {   // too fine for its 16-bit length
        s.u16(10);
        s.rettangolo(box);
        return;
    }
    s.u16(static_cast<std::int64_t>(dentro.bytes.size()) + 10);
    s.rettangolo(box);
    s.bytes += dentro.bytes;
}

// The part of a line inside what 16 bits can say. False when nothing of it is.
bool accorcia(Point& da, Point& a) {
    constexpr double limite = 32000;
    double t0 = 0, t1 = 1;
    const double x = da.h, y = da.v, dx = double(a.h) - da.h, dy = double(a.v) - da.v;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x + limite, limite - x, y + limite, limite - y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
    }
    if (t0 > t1) return false;
    const auto n = [](double v) { return static_cast<std::int32_t>(std::lround(v)); };
    da = Point{n(y + t0 * dy), n(x + t0 * dx)};
    a = Point{n(y + t1 * dy), n(x + t1 * dx)};
    return true;
}

Rect inPunti(const Rect& r, double dpi) {
    const auto punti = [dpi](std::int32_t n) { return static_cast<std::int32_t>(std::lround(n * 72.0 / dpi)); };
    const Rect p{punti(r.top), punti(r.left), punti(r.bottom), punti(r.right)};
    return Rect{p.top, p.left, std::max(p.bottom, p.top + 1), std::max(p.right, p.left + 1)};
}

class RegistratorePict final : public GrafPort, public PortaDiPassaggio {
public:
    RegistratorePict(const Rect& frame, double dpi, const GrafPort& come) {
        portRect = frame;
        clip = Region::of(frame);
        pen = come.pen;
        text = come.text;
        foreground = come.foreground;
        background = come.background;
        s.testa(inPunti(frame, dpi), frame, dpi, dpi);
        scritto.clip = clip;
    }
    std::string chiudi() {
        if (troppo || s.bytes.size() > massimoPict - 16) return {};
        return s.fine();
    }

    void stdLine(Point from, Point to) override {
        if (penHidden > 0 || !accorcia(from, to) || pieno()) return;
        penna();
        s.codice(opLine);
        s.punto(from);
        s.punto(to);
    }
    void stdRect(GrafVerb verb, const Rect& r, const Pattern& p) override { figura(opRect, verb, r, p); }
    void stdOval(GrafVerb verb, const Rect& r, const Pattern& p) override { figura(opOval, verb, r, p); }
    void stdArc(GrafVerb verb, const Rect& r, std::int32_t start, std::int32_t sweep, const Pattern& p) override {
        if (!figura(opArc, verb, r, p)) return;
        s.u16(start);
        s.u16(sweep);
    }
    void stdPoly(GrafVerb verb, const Polygon& p, const Pattern& pattern) override;
    void stdRgn(GrafVerb verb, const Region& r, const Pattern& p) override {
        if (r.empty() || !inizia(opRgn, verb, p)) return;
        scriviRegione(s, r);
    }
    void stdBits(const PixMap& bits, const Rect& src, const Rect& dst) override;
    void stdText(std::string_view macRoman) override;
    void stdComment(std::int16_t kind, std::string_view data) override {
        if (pieno()) return;
        s.codice(data.empty() ? opShortComment : opLongComment);
        s.u16(kind);
        if (data.empty()) return;
        data = data.substr(0, 0x7FFF);
        s.u16(static_cast<std::int64_t>(data.size()));
        s.bytes += data;
    }
    void passa(std::uint16_t op, std::string_view dati) override {
        if (s.bytes.size() + dati.size() > massimoPict - 16) troppo = true;
        if (pieno()) return;
        ritaglio();
        // A plain bit map takes the colours of the moment, as any figure does.
        colori();
        s.codice(op);
        s.bytes += dati;
    }

private:
    bool pieno() {
        if (s.bytes.size() > massimoPict - (1 << 20)) troppo = true;
        return troppo;
    }
    // The opcode and its value, unless a reader holds that value by now.
    template <class T, class A>
    void seCambia(T& noto, const T& ora, std::uint16_t op, void (Scrittore::*scrivi)(A)) {
        if (ora == noto) return;
        noto = ora;
        s.codice(op);
        (s.*scrivi)(ora);
    }
    void ritaglio() {
        if (clip.parti == scritto.clip.parti) return;
        scritto.clip = clip;
        s.codice(opClip);
        scriviRegione(s, clip);
    }
    void colori() {
        seCambia(scritto.fronte, foreground, opRGBFgCol, &Scrittore::colore);
        seCambia(scritto.fondo, background, opRGBBkCol, &Scrittore::colore);
    }
    void penna() {
        ritaglio();
        colori();
        seCambia(scritto.penna.pnSize, pen.pnSize, opPnSize, &Scrittore::punto);
        seCambia(scritto.penna.pnMode, pen.pnMode, opPnMode, &Scrittore::u16);
        seCambia(scritto.penna.pnPat, pen.pnPat, opPnPat, &Scrittore::retino);
        scritto.penna = pen;
    }
    bool inizia(std::uint16_t famiglia, GrafVerb verb, const Pattern& p) {
        if (penHidden > 0 || pieno()) return false;
        if (verb == GrafVerb::frame || verb == GrafVerb::paint) {
            penna();
        } else {
            ritaglio();
            colori();
        }
        if (verb == GrafVerb::fill && p != scritto.area) {
            s.codice(opFillPat);
            s.retino(scritto.area = p);
        }
        s.codice(static_cast<std::uint16_t>(famiglia + static_cast<int>(verb)));
        return true;
    }
    bool figura(std::uint16_t famiglia, GrafVerb verb, const Rect& r, const Pattern& p) {
        if (EmptyRect(r) || !inizia(famiglia, verb, p)) return false;
        s.rettangolo(r);
        return true;
    }
    bool indicizzati(const PixMap& bits, const Rect& src, const Rect& dst);

    struct Scritto {   // what a reader holds by now
        Region clip;
        PenState penna;
        Pattern area{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}};
        TextState testo{0, 0, srcOr, 12};
        RGBColor fronte, fondo{65535, 65535, 65535};
        std::vector<std::int16_t> caratteri;   // fonts whose names were told
    };
    Scrittore s;
    Scritto scritto;
    bool troppo = false;
};

void RegistratorePict::stdPoly(GrafVerb verb, const Polygon& p, const Pattern& pattern) {
    std::vector<Point> punti;
    for (const Point& q : p.punti)
        if (punti.empty() || punti.back() != q) punti.push_back(q);
    if (punti.size() < 2) return;
    if (verb == GrafVerb::frame) {   // sides one by one have no limit, and far ones can be cut
        const bool lungo = punti.size() > massimoPunti;
        const bool lontano = std::any_of(punti.begin(), punti.end(), [](const Point& q) {
            return std::abs(double(q.h)) > maxLato || std::abs(double(q.v)) > maxLato;
        });
        if (lungo || lontano) {
            for (std::size_t i = 1; i < punti.size(); ++i) stdLine(punti[i - 1], punti[i]);
            return;
        }
    }
    const std::size_t passo = (punti.size() + massimoPunti - 1) / massimoPunti;
    Rect box{punti[0].v, punti[0].h, punti[0].v, punti[0].h};
    std::vector<Point> tenuti;
    for (std::size_t i = 0; i < punti.size(); ++i) {
        const Point& q = punti[i];
        box =
            Rect{std::min(box.top, q.v), std::min(box.left, q.h), std::max(box.bottom, q.v), std::max(box.right, q.h)};
        if (i % passo == 0 || i + 1 == punti.size()) tenuti.push_back(q);
    }
    if (!inizia(opPoly, verb, pattern)) return;
    s.u16(static_cast<std::int64_t>(10 + 4 * tenuti.size()));
    s.rettangolo(box);
    for (const Point& q : tenuti) s.punto(q);
}

void RegistratorePict::stdText(std::string_view macRoman) {
    while (!macRoman.empty() && !pieno()) {
        const std::string_view pezzo = macRoman.substr(0, 255);
        macRoman.remove_prefix(pezzo.size());
        ritaglio();
        colori();
        if (text.txFont != scritto.testo.txFont) {
            if (std::find(scritto.caratteri.begin(), scritto.caratteri.end(), text.txFont) == scritto.caratteri.end()) {
                scritto.caratteri.push_back(text.txFont);
                const std::string nome = GetFontName(text.txFont).substr(0, 255);
                s.codice(0x2C);
                s.u16(static_cast<std::int64_t>(nome.size()) + 3);
                s.u16(text.txFont);
                s.u8(static_cast<std::uint32_t>(nome.size()));
                s.bytes += nome;
            }
        }
        seCambia(scritto.testo.txFont, text.txFont, opTxFont, &Scrittore::u16);
        seCambia(scritto.testo.txFace, text.txFace, opTxFace, &Scrittore::u8);
        seCambia(scritto.testo.txMode, text.txMode, opTxMode, &Scrittore::u16);
        seCambia(scritto.testo.txSize, text.txSize, opTxSize, &Scrittore::u16);
        scritto.testo = text;
        s.codice(opLongText);
        s.punto(pen.pnLoc);
        s.u8(static_cast<std::uint32_t>(pezzo.size()));
        s.bytes += pezzo;
        pen.pnLoc.h += TextWidth(text.txFont, text.txSize, text.txFace, pezzo);
    }
}

// Up to 256 colours go as indices: smaller, and nothing is lost.
bool RegistratorePict::indicizzati(const PixMap& bits, const Rect& src, const Rect& dst) {
    const std::int32_t larghi = src.right - src.left;
    std::unordered_map<std::uint32_t, std::uint8_t> numeri;
    std::vector<RGBColor> palette;
    std::vector<std::uint8_t> indici;
    indici.reserve(static_cast<std::size_t>(larghi) * static_cast<std::size_t>(src.bottom - src.top));
    std::uint32_t ultimo = 0;
    std::uint8_t numero = 0;
    for (std::int32_t y = src.top; y < src.bottom; ++y) {
        const std::uint32_t* riga = bits.base + std::ptrdiff_t(y - bits.bounds.top) * bits.rowPixels - bits.bounds.left;
        for (std::int32_t x = src.left; x < src.right; ++x) {
            const std::uint32_t p = riga[x] | 0xFF000000U;
            if (p != ultimo) {
                const auto [posto, nuovo] = numeri.try_emplace(p, static_cast<std::uint8_t>(palette.size()));
                if (nuovo) {
                    if (palette.size() == 256) return false;
                    palette.push_back(coloreDi(p));
                }
                ultimo = p;
                numero = posto->second;
            }
            indici.push_back(numero);
        }
    }
    const std::int16_t depth = palette.size() <= 2 ? 1 : 8;
    ScriviIndici(s, indici.data(), palette, larghi, src.bottom - src.top, depth, PostoBits{src, dst, bitsCopia});
    return true;
}

void RegistratorePict::stdBits(const PixMap& bits, const Rect& src, const Rect& dst) {
    const Rect r = SectRect(src, bits.bounds);
    if (r != src || EmptyRect(r) || EmptyRect(dst) || bits.base == nullptr || pieno()) return;
    const std::int32_t larghi = r.right - r.left;
    const std::int32_t alti = r.bottom - r.top;
    if (larghi > maxLato || alti > maxLato
        || s.bytes.size() + std::size_t(larghi) * std::size_t(alti) * 4 > massimoPict) {
        troppo = true;
        return;
    }
    ritaglio();
    const Rect zero{0, 0, alti, larghi};
    const PixMap mossa{bits.base + std::ptrdiff_t(r.top - bits.bounds.top) * bits.rowPixels
                           + (r.left - bits.bounds.left),
                       bits.rowPixels, zero};
    if (indicizzati(mossa, zero, dst)) return;
    PixelInCorso corso(s, larghi, alti, PostoBits{zero, dst, bitsCopia});
    for (std::int32_t y = 0; y < alti; ++y) corso.riga(mossa.base + std::ptrdiff_t(y) * mossa.rowPixels);
}

struct Registrazione {
    std::unique_ptr<RegistratorePict> porto;
    GrafPtr prima = nullptr;
};
Registrazione inCorso;

}   // namespace

void OpenPicture(const Rect& frame, double dpi) {
    if (inCorso.porto != nullptr || EmptyRect(frame) || !(dpi > 0)) return;
    inCorso.prima = GetPort();
    inCorso.porto = std::make_unique<RegistratorePict>(frame, dpi, *inCorso.prima);
    SetPort(inCorso.porto.get());
}

std::string ClosePicture() {
    if (inCorso.porto == nullptr) return {};
    SetPort(inCorso.prima);
    std::string bytes = inCorso.porto->chiudi();
    inCorso.porto.reset();
    return bytes;
}

}   // namespace tessaro
