// The hatch of a polyline: scan lines in a frame turned by the hatch's angle, paired by the even-odd rule.
#include "display/Tratteggi.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>
#include <vector>

#include "display/Disegno.h"
#include "display/Interruzione.h"
#include "display/Pixel.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "model/Registrazione.h"
#include "model/TabellaStato.h"
#include "platform/Dialogs.h"
#include "platform/paint/RasterPort.h"
#include "text/Conversione.h"

namespace tessaro {

constinit elemento TrattCorrente{};

constinit std::uint8_t UscitaTratt = 0;

namespace {

constexpr std::int16_t alertMemoriaTratteggio = 3012;
constexpr double troppeLinee = 100000;   // more than any view can show apart: spacing from a damaged record
constexpr double maxLivello = 1e15;      // line numbers beyond are no whole numbers any more

// The frame whose p axis runs along the hatch lines; q counts across them.
struct Riferimento {
    double c, s;
    [[nodiscard]] Coppia dentro(double x, double y) const { return {x * c + y * s, -x * s + y * c}; }
    [[nodiscard]] Coppia fuori(double p, double q) const { return {p * c - q * s, p * s + q * c}; }
};

struct Estremi {
    double min = 1e30, max = -1e30;
    void allarga(double q) {
        min = std::min(min, q);
        max = std::max(max, q);
    }
};

// What can be seen, in the frame.
struct Vista {
    Estremi p, q;
};

// A side that the scan has reached, with its crossing on the line of the moment.
struct Lato {
    double p;
    double pa, qa, pendenza;      // p runs by `pendenza` a unit of q
    std::int64_t primo, ultimo;   // lines that meet it
};

// Work space of the scan, kept between repaints so that no line asks for memory.
std::vector<Lato> lati;              // of one direction, in the ring's order
std::vector<std::uint32_t> ordine;   // the sides by the first line that meets them
std::vector<std::uint32_t> inizi;    // where each line's part of `ordine` begins
std::vector<Lato> attivi, fusi;      // sides met by the line of the moment, falling; room to merge them

// Lines are counted from the sheet's origin, so the lines of all polygons with one spacing lie on one grid.
struct Linee {
    double passo;
    std::int64_t prima, ultima;

    [[nodiscard]] double livello(std::int64_t n) const { return static_cast<double>(n) * passo; }
    // The first line at q or above and the last at q or below. A line that meets a vertex counts in both its sides.
    [[nodiscard]] std::int64_t sopra(double q) const {
        auto n = static_cast<std::int64_t>(std::ceil(q / passo));
        if (livello(n) < q) ++n;
        if (livello(n - 1) >= q) --n;
        return n;
    }
    [[nodiscard]] std::int64_t sotto(double q) const {
        auto n = static_cast<std::int64_t>(std::floor(q / passo));
        if (livello(n) > q) --n;
        if (livello(n + 1) <= q) ++n;
        return n;
    }
};

Vista inVista(const Riferimento& r) {
    const Rect area = AreaDisegnabile();
    Vista v;
    for (const std::int32_t h : {area.left, area.right})
        for (const std::int32_t w : {area.top, area.bottom}) {
            const Coppia c = r.dentro((h + 0.0 + OrigX) / scalavid, (w + 0.0 + OrigY) / scalavid);
            v.p.allarga(c.x);
            v.q.allarga(c.y);
        }
    return v;
}

// The side from a to b, when lines within the bounds meet it. One that lies along the lines has no crossing of its own.
void aggiungiLato(const Linee& l, Coppia a, Coppia b) {
    const double basso = std::min(a.y, b.y), alto = std::max(a.y, b.y);
    if (!(alto > basso) || !std::isfinite(alto - basso) || !std::isfinite(a.x - b.x)) return;
    if (alto < l.livello(l.prima) || basso > l.livello(l.ultima)) return;
    const double da = std::max(basso, l.livello(l.prima)), fino = std::min(alto, l.livello(l.ultima));
    Lato lato{
        0, a.x, a.y, (a.x - b.x) / (a.y - b.y), std::max(l.sopra(da), l.prima), std::min(l.sotto(fino), l.ultima)};
    if (lato.primo <= lato.ultimo) lati.push_back(lato);
}

// The ring of sides: the last vertex joins the first, whether the polyline is closed or not.
void faiLati(std::int32_t testa, std::int32_t ultimo, const Riferimento& r, const Linee& l) {
    lati.clear();
    const auto punto = [&](std::int32_t i) { return r.dentro(Elem(i).poli.x, Elem(i).poli.y); };
    const Coppia primo = punto(testa);
    Coppia a = primo;
    for (std::int32_t i = testa + 1; i <= ultimo; ++i) {
        const Coppia b = punto(i);
        aggiungiLato(l, a, b);
        a = b;
    }
    aggiungiLato(l, a, primo);
}

// Counting sort of the sides by their first line.
void ordina(const Linee& l) {
    const auto riga = [&](const Lato& lato) { return static_cast<std::size_t>(lato.primo - l.prima); };
    inizi.assign(static_cast<std::size_t>(l.ultima - l.prima) + 2, 0);
    for (const Lato& lato : lati) ++inizi[riga(lato)];
    for (std::size_t i = 1; i < inizi.size(); ++i) inizi[i] += inizi[i - 1];   // where each part ends
    ordine.resize(lati.size());
    for (std::size_t i = lati.size(); i-- > 0;) ordine[--inizi[riga(lati[i])]] = static_cast<std::uint32_t>(i);
}

bool prima(const Lato& a, const Lato& b) { return a.p > b.p; }

// From line to line crossings change their order only where sides cross, so insertion finds nearly nothing to do. A
// figure that crosses itself everywhere is sorted in full.
void riordina() {
    std::size_t spostamenti = 8 * attivi.size();
    for (std::size_t i = 1; i < attivi.size(); ++i) {
        if (!prima(attivi[i], attivi[i - 1])) continue;
        const Lato lato = attivi[i];
        std::size_t k = i;
        for (; k > 0 && prima(lato, attivi[k - 1]); --k) attivi[k] = attivi[k - 1];
        attivi[k] = lato;
        if (i - k > spostamenti) {
            std::sort(attivi.begin(), attivi.end(), prima);
            return;
        }
        spostamenti -= i - k;
    }
}

// The crossings of line n, in falling order.
void incroci(const Linee& l, std::int64_t n) {
    const double s = l.livello(n);
    const auto incrocio = [s](Lato& lato) { lato.p = lato.pa - (lato.qa - s) * lato.pendenza; };
    std::erase_if(attivi, [n](const Lato& lato) { return lato.ultimo < n; });
    for (Lato& lato : attivi) incrocio(lato);
    riordina();
    const auto riga = static_cast<std::size_t>(n - l.prima);
    const std::uint32_t da = inizi[riga], fino = inizi[riga + 1];
    if (da == fino) return;
    const auto vecchi = static_cast<std::ptrdiff_t>(attivi.size());
    for (std::uint32_t i = da; i < fino; ++i) incrocio(attivi.emplace_back(lati[ordine[i]]));
    std::sort(attivi.begin() + vecchi, attivi.end(), prima);
    if (vecchi == 0) return;
    fusi.resize(attivi.size());
    std::merge(attivi.begin(), attivi.begin() + vecchi, attivi.begin() + vecchi, attivi.end(), fusi.begin(), prima);
    attivi.swap(fusi);
}

// Strokes on their way to the port. On a raster, a plain pen may paint a pixel twice without harm: strokes of one row or
// column that touch go out as one, and one already painted is dropped, so a hatch finer than the pixels costs little.
class Tratti {
    Point da, a;
    bool aperto = false;
    const bool unisce;

    [[nodiscard]] bool unito(Point p, Point q) {
        if ((p == da && q == a) || (p == q && (p == da || p == a))) return true;
        if (p.v == q.v && da.v == a.v && p.v == da.v) return allunga(p.h, q.h, da.h, a.h);
        if (p.h == q.h && da.h == a.h && p.h == da.h) return allunga(p.v, q.v, da.v, a.v);
        return false;
    }
    static bool allunga(std::int32_t p, std::int32_t q, std::int32_t& inizio, std::int32_t& fine) {
        const auto [basso, alto] = std::minmax(p, q);
        const auto [giu, su] = std::minmax(inizio, fine);
        if (basso > su + 1 || alto < giu - 1) return false;
        const std::int32_t min = std::min(basso, giu), max = std::max(alto, su);
        inizio = min;
        fine = max;
        return true;
    }

public:
    Tratti()
        : unisce(!DisegnaPict && GetPort()->pen.pnMode == patCopy && dynamic_cast<RasterPort*>(GetPort()) != nullptr) {}

    void linea(Point p, Point q) {
        if (aperto && unito(p, q)) return;
        chiudi();
        da = p;
        a = q;
        aperto = true;
        if (!unisce) chiudi();
    }
    void chiudi() {
        if (!aperto) return;
        aperto = false;
        MoveTo(da.h, da.v);
        LineTo(a.h, a.v);
    }
};

// Crossings in pairs, by the even-odd rule; an odd last one has no partner.
void disegnaLinea(const Riferimento& r, double s, const Estremi& visti, Tratti& tratti) {
    if (attivi.size() < 2) return;
    // All crossings lie between the first and the last: what these can be in pixels, all can.
    const Coppia inizio = r.fuori(attivi.front().p, s), fine = r.fuori(attivi.back().p, s);
    Point tenuto;
    const bool vicini = PuntoIntero(inizio.x, inizio.y, tenuto) && PuntoIntero(fine.x, fine.y, tenuto);
    const double sx = -(s * r.s), sy = s * r.c;
    const std::int32_t oh = OrigX, ov = OrigY;
    const double scala = scalavid;
    const auto intero = [](double t, std::int32_t orig) { return static_cast<std::int32_t>(PixelVicino(t) - orig); };
    const auto pixel = [&](double p) {
        return Point{intero(scala * (p * r.s + sy), ov), intero(scala * (p * r.c + sx), oh)};
    };
    for (std::size_t i = 1; i < attivi.size(); i += 2) {
        const double alto = attivi[i - 1].p, basso = attivi[i].p;
        if (basso > visti.max || alto < visti.min) continue;
        if (vicini) [[likely]] {
            tratti.linea(pixel(alto), pixel(basso));
            continue;
        }
        const Coppia a = r.fuori(alto, s), b = r.fuori(basso, s);
        LineaFoglio(a.x, a.y, b.x, b.y);
    }
    tratti.chiudi();
}

void direzione(std::int32_t testa, std::int32_t ultimo, double angolo, double passo) {
    const Riferimento r{std::cos(angolo), std::sin(angolo)};
    const Vista vista = inVista(r);
    Estremi figura;
    for (std::int32_t i = testa; i <= ultimo; ++i) figura.allarga(r.dentro(Elem(i).poli.x, Elem(i).poli.y).y);
    const double basso = std::max(std::trunc(figura.min / passo), std::floor(vista.q.min / passo));
    const double alto = std::floor(std::min(figura.max, vista.q.max) / passo);
    if (!(alto >= basso) || !(alto - basso < troppeLinee) || !(std::fabs(basso) < maxLivello)) return;
    const Linee l{passo, static_cast<std::int64_t>(basso), static_cast<std::int64_t>(alto)};
    faiLati(testa, ultimo, r, l);
    ordina(l);
    attivi.clear();
    Tratti tratti;
    constexpr std::int64_t traDomande = 64;   // lines
    for (std::int64_t n = l.prima; n <= l.ultima; ++n) {
        if (n % traDomande == 0 && DisegnoInterrotto()) return;
        incroci(l, n);
        disegnaLinea(r, l.livello(n), vista.p, tratti);
    }
}

}   // namespace

void Hatch_Poligon(std::int32_t index) {
    const auto& e = Elem(index).poli;
    const double passo = e.passoTratt * 100.0, angolo = static_cast<double>(PigMezzi) + e.angoloTratt;
    if (!(passo > 0) || !std::isfinite(passo) || !std::isfinite(angolo)) return;
    const std::int32_t ultimo = std::min(index + std::max<std::int32_t>(e.numVertici, 0), indElem);
    const std::int16_t spessPrima = spess;
    spess = 0;
    try {
        direzione(index, ultimo, angolo, passo);
        if (e.incrociato) direzione(index, ultimo, angolo + static_cast<double>(PigMezzi), passo);
    } catch (const std::bad_alloc&) { ESCITRATTEGGIO(); }
    spess = spessPrima;
}

void CopiaTratteggio(elemento& a, const elemento& da) {
    a.poli.passoTratt = da.poli.passoTratt;
    a.poli.angoloTratt = da.poli.angoloTratt;
    a.poli.tratteggio = da.poli.tratteggio;
    a.poli.incrociato = da.poli.incrociato;
}

void TratteggiaNuovo(std::int32_t testa) { CopiaTratteggio(Elem(testa), TrattCorrente); }

void ESCITRATTEGGIO() {
    StopAlert(alertMemoriaTratteggio);
    VisioneGraf.mostraTratteggi = 0;
    UscitaTratt = 1;
}

namespace {
const VoceStato righe[] = {{"TrattCorrente",
                            [] {
                                TrattCorrente = elemento{};
                                TrattCorrente.tipo = tPoligono;
                            }},
                           voce<UscitaTratt>("UscitaTratt")};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
