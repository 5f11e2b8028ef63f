// The grid of pages over the sheet, and which of them show nothing.
#include "display/StampaPiastrelle.h"

#include <algorithm>
#include <cmath>

#include "model/Lucidi.h"
#include "model/PuntiElemento.h"
#include "model/Registrazione.h"
#include "model/TabellaStato.h"
#include "model/Unita.h"

namespace tessaro {

constinit ScelteStampa scelteStampa{};

namespace {

constexpr double puntiUnita = 72 / DecPollice;   // points a sheet unit
constexpr double puntiMm = 72 / 25.4;
constexpr std::int32_t orloMarche = 23;   // points: 8 mm

std::int32_t punti(double v) { return static_cast<std::int32_t>(std::lround(v)); }

// The sides of a box that may be inside out.
struct Riquadro {
    double x1, y1, x2, y2;
    [[nodiscard]] bool tocca(double xa, double ya, double xb, double yb) const {
        return std::max(xa, xb) >= x1 && std::min(xa, xb) <= x2 && std::max(ya, yb) >= y1 && std::min(ya, yb) <= y2;
    }
    // The segment itself, not its box: a long diagonal crosses few pages.
    [[nodiscard]] bool tocca(Coppia a, Coppia b) const {
        if (!tocca(a.x, a.y, b.x, b.y)) return false;
        const auto lato = [&](double x, double y) { return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x); };
        const double s[4] = {lato(x1, y1), lato(x2, y1), lato(x1, y2), lato(x2, y2)};
        const auto [min, max] = std::minmax_element(std::begin(s), std::end(s));
        return *min <= 0 && *max >= 0;
    }
};

bool poligonoTocca(std::int32_t testa, const Riquadro& r) {
    const auto& p = Elem(testa).poli;
    const std::int32_t ultimo = UltimoRecord(testa);
    if (p.patternArea > 0 || p.tratteggio) {
        double sx = p.x, sy = p.y, dx = sx, dy = sy;
        PerEstremi(testa, [&](double x, double y) {
            sx = std::min(sx, x);
            dx = std::max(dx, x);
            sy = std::min(sy, y);
            dy = std::max(dy, y);
        });
        return r.tocca(sx, sy, dx, dy);
    }
    for (std::int32_t i = testa; i < ultimo; ++i)
        if (r.tocca(Coppia{Elem(i).poli.x, Elem(i).poli.y}, Coppia{Elem(i + 1).poli.x, Elem(i + 1).poli.y}))
            return true;
    return r.tocca(p.x, p.y, p.x, p.y);
}

bool tocca(std::int32_t n, const Riquadro& r) {
    const elemento& e = Elem(n);
    switch (e.tipo) {
    case tSegmento: return r.tocca(Coppia{e.segm.x1, e.segm.y1}, Coppia{e.segm.x2, e.segm.y2});
    case tMarker: return r.tocca(e.mark.x, e.mark.y, e.mark.x, e.mark.y);
    case tPoligono: return poligonoTocca(n, r);
    case tTesto: {
        // Round the anchor, whatever the angle.
        const double lungo = DecPunto * (std::abs(e.test.larghezza) + 2.0 * std::abs(e.test.altezza));
        return VisioneGraf.mostraTesti
               && r.tocca(e.test.x - lungo, e.test.y - lungo, e.test.x + lungo, e.test.y + lungo);
    }
    case tPict: return r.tocca(e.pict.x, e.pict.y, e.pict.x + e.pict.larghezza, e.pict.y + e.pict.altezza);
    case tCerchio:
    case tArco: {
        const double raggio = std::fabs(e.cerc.raggio);
        return r.tocca(e.cerc.cx - raggio, e.cerc.cy - raggio, e.cerc.cx + raggio, e.cerc.cy + raggio);
    }
    default: return false;
    }
}

}   // namespace

Piastrelle PiastrelleDi(const Rect& pagina, const ScelteStampa& scelte) {
    Piastrelle p;
    const std::int32_t w = pagina.right - pagina.left, h = pagina.bottom - pagina.top;
    if (scelte.crocini || scelte.numeri || scelte.righello) p.bordo = std::min({orloMarche, w / 4, h / 4});
    p.larga = std::max(1, w - 2 * p.bordo);
    p.alta = std::max(1, h - 2 * p.bordo);
    const double foglioH = puntiUnita * XFDecimi, foglioV = puntiUnita * YFDecimi;
    p.passoH = p.larga;
    p.passoV = p.alta;
    if (scelte.unaPagina) {
        p.scala = std::min({1.0, p.larga / std::max(foglioH, 1.0), p.alta / std::max(foglioV, 1.0)});
        return p;
    }
    if (scelte.sovrapposte) {
        const std::int32_t striscia = punti(scelte.strisciaMm * puntiMm);
        p.passoH = std::max(p.larga / 4, p.larga - striscia);
        p.passoV = std::max(p.alta / 4, p.alta - striscia);
    }
    p.passoH = std::max(1, p.passoH);
    p.passoV = std::max(1, p.passoV);
    p.righe = punti(foglioV) / p.passoV + 1;
    p.colonne = punti(foglioH) / p.passoH + 1;
    return p;
}

bool PiastrellaVuota(const Piastrelle& p, std::int32_t n) {
    const double unita = 1 / (puntiUnita * p.scala);
    const double margine = 4 * unita;   // marks and pens reach so far
    const double x = p.colonna(n) * p.passoH * unita, y = p.riga(n) * p.passoV * unita;
    const Riquadro r{x - margine, y - margine, x + p.larga * unita + margine, y + p.alta * unita + margine};
    for (std::int32_t i = 3; i <= indElem; ++i)
        if (LucidoVisibile(Elem(i).lucido) && tocca(i, r)) return false;
    return true;
}

namespace {
const VoceStato righe[] = {{"scelteStampa", [] { scelteStampa = {}; }}};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
