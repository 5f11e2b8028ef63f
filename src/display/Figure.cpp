// The figures of the drawing in the pen of the moment: segments, markers, circles, arcs and polygons, each once as it
// stands and, while the live transformation is previewed, once more as it would become.
#include <algorithm>

#include "display/Disegno.h"
#include "display/Pixel.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "model/Lucidi.h"
#include "model/Penna.h"
#include "registration/attaccoDinamico.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

bool anteprima() { return AnteprimaAttiva(); }

Coppia trasformato(double x, double y) {
    attaccoAttivo.Traf4Pt(x, y);
    return {x, y};
}

// A circle or an arc under the preview: centre and radius through two mapped points.
struct Curva {
    double cx, cy, raggio, inizio, ampiezza;
};
Curva curvaTrasformata(const Curva& c) {
    const Coppia centro = trasformato(c.cx, c.cy), bordo = trasformato(c.cx + c.raggio, c.cy);
    Curva t = c;
    t.cx = centro.x;
    t.cy = centro.y;
    t.raggio = Distanza(centro.x, centro.y, bordo.x, bordo.y);
    constexpr std::int32_t rigida = 0;
    if (TipoMappa() == rigida) t.inizio += attaccoAttivo.rotazione * 180 / static_cast<double>(Pig);
    return t;
}

constexpr std::int32_t troppoGrande = 16000;   // pixels of extent above which an oval is drawn by its points

// On a page a frame's line runs where the figure is, and the area ends there.
bool suPagina() { return GetPort()->finezza > 1; }

// The rectangle of a circle's frame; false when it is too large for a port's ovals.
bool rettangoloDi(const Curva& c, Rect& r) {
    Point a, b;
    if (!PuntoIntero(c.cx - c.raggio, c.cy - c.raggio, a) || !PuntoIntero(c.cx + c.raggio, c.cy + c.raggio, b))
        return false;
    r = Rect{a.v - spess, a.h - spess, b.v + spess, b.h + spess};
    const std::int64_t massimo = std::int64_t{troppoGrande} * GetPort()->finezza;
    return std::int64_t{r.right} - r.left <= massimo && std::int64_t{r.bottom} - r.top <= massimo;
}

// The polygon being drawn, kept so that a repaint does not allocate; one a thread, for a repaint in bands.
thread_local Polygon figura;
thread_local std::vector<PuntoD> figuraD;   // the same where whole pixels do not hold it

void puntiCurva(const Curva& c, bool intera) {
    constexpr double grado = 3.14159265358979323846 / 180;
    figuraD.clear();
    const double inizio = intera ? 0 : arrotonda32(c.inizio), ampiezza = intera ? 360 : arrotonda32(c.ampiezza);
    const double s = spess;
    const PuntoD centro{scalavid * c.cx - OrigX - s, scalavid * c.cy - OrigY - s};
    const double raggio = scalavid * std::fabs(c.raggio);
    if (!std::isfinite(centro.h) || !std::isfinite(centro.v) || !std::isfinite(raggio)) return;
    PuntiArco(centro, raggio, inizio * grado, (inizio + ampiezza) * grado, figuraD);
    if (!intera) figuraD.push_back(centro);   // last, so that a frame can leave it out
}

void incornicia(const std::vector<PuntoD>& punti, std::size_t quanti) {
    for (std::size_t i = 1; i < quanti; ++i) LineaD(punti[i - 1], punti[i]);
}

void curva(const Curva& c, bool intera) {
    Rect r;
    if (!rettangoloDi(c, r)) {
        puntiCurva(c, intera);
        if (!figuraD.empty()) incornicia(figuraD, figuraD.size() - (intera ? 0 : 1));
    } else if (intera) {
        FrameOval(r);
    } else {
        FrameArc(r, arrotonda32(c.inizio), arrotonda32(c.ampiezza));
    }
}

// Light grey over a filled figure of another sheet.
template <class Dipingi>
void vela(std::int16_t lucido, Dipingi dipingi) {
    if (!LucidoGrigio(lucido)) return;
    const PenState prima = GetPenState();
    PenMode(notPatBic);
    PenPat(PatternVista(qdLtGray));
    dipingi();
    SetPenState(prima);
}

void riempiCurva(const Curva& c, bool intera, std::int16_t pattern, std::int16_t lucido) {
    const Pattern area = PatternVista(GetIndPattern(pattern));
    Rect r;
    if (!rettangoloDi(c, r)) {
        puntiCurva(c, intera);
        TagliaPoligono(figuraD, figura);
        FillPoly(figura, area);
        vela(lucido, [] { PaintPoly(figura); });
        return;
    }
    if (suPagina()) r = InsetRect(r, spess, spess);
    if (intera) {
        FillOval(r, area);
        vela(lucido, [&] { PaintOval(r); });
        return;
    }
    const std::int32_t inizio = arrotonda32(c.inizio), ampiezza = arrotonda32(c.ampiezza);
    FillArc(r, inizio, ampiezza, area);
    vela(lucido, [&] { PaintArc(r, inizio, ampiezza); });
}

// --- polygons

Coppia vertice(std::int32_t n, bool comeDiventa) {
    const double x = Elem(n).poli.x, y = Elem(n).poli.y;   // head and vertices hold their point at the same place
    return comeDiventa ? trasformato(x, y) : Coppia{x, y};
}

// The vertices in whole pixels, or in figuraD when one does not fit.
bool raccogli(std::int32_t testa, std::int32_t ultimo, bool comeDiventa) {
    figura.punti.resize(static_cast<std::size_t>(ultimo - testa + 1));
    Point* p = figura.punti.data();
    std::int32_t n = testa;
    for (; n <= ultimo; ++n, ++p) {
        const Coppia c = vertice(n, comeDiventa);
        if (!PuntoIntero(c.x, c.y, *p)) break;
        p->h -= spess;
        p->v -= spess;
    }
    if (n > ultimo) return true;
    figuraD.clear();
    for (n = testa; n <= ultimo; ++n) {
        const Coppia c = vertice(n, comeDiventa);
        figuraD.push_back({XVidD(c.x) - spess, YVidD(c.y) - spess});
    }
    return false;
}

void poligono(std::int32_t testa, std::int32_t ultimo, bool riempi, bool comeDiventa) {
    const bool intero = raccogli(testa, ultimo, comeDiventa);
    const std::int16_t area = Elem(testa).poli.patternArea;
    if (riempi && area > 0) {
        if (!intero) TagliaPoligono(figuraD, figura);
        if (suPagina()) OffsetPoly(figura, spess, spess);
        FillPoly(figura, PatternVista(GetIndPattern(area)));
        vela(Elem(testa).lucido, [] { PaintPoly(figura); });
        if (suPagina()) OffsetPoly(figura, -spess, -spess);
    }
    if (intero) {
        FramePoly(figura);
    } else {
        incornicia(figuraD, figuraD.size());
    }
}

}   // namespace

void faiGen(std::int16_t tipo, const double& a, const double& b, const double& c, const double& d, const double& e) {
    switch (tipo) {
    case tSegmento:
    case tElastico: LineaFoglio(a, b, c, d); break;
    case tMarker: {
        Point p;
        if (PuntoIntero(a, b, p)) DisegnaMarker(arrotonda16(c), p.h, p.v);
        break;
    }
    case tCerchio: curva({a, b, c, 0, 0}, true); break;
    case tArco: curva({a, b, c, d, e}, false); break;
    default: break;
    }
}

namespace {

// The ends are mapped before anything is drawn: the processor draws the one line while it still divides for the other.
void segmentoConAnteprima(std::int16_t tipo, double x1, double y1, double x2, double y2) {
    const Coppia p = trasformato(x1, y1), q = trasformato(x2, y2);
    faiGen(tipo, x1, y1, x2, y2, 0);
    faiGen(tipo, p.x, p.y, q.x, q.y, 0);
}

}   // namespace

void fai(std::int16_t tipo, const double& a, const double& b, const double& c, const double& d, const double& e) {
    const bool doppia = anteprima();
    if (doppia && (tipo == tSegmento || tipo == tElastico)) return segmentoConAnteprima(tipo, a, b, c, d);
    faiGen(tipo, a, b, c, d, e);
    if (!doppia) return;
    if (tipo == tMarker) {
        const Coppia p = trasformato(a, b);
        faiGen(tipo, p.x, p.y, c, d, e);
    } else if (tipo == tCerchio || tipo == tArco) {
        const Curva t = curvaTrasformata({a, b, c, d, e});
        faiGen(tipo, t.cx, t.cy, t.raggio, t.inizio, t.ampiezza);
    }
}

void FaiPolyFill(std::int32_t index, std::uint8_t fill) {
    const std::int32_t vertici = std::max<std::int32_t>(Elem(index).poli.numVertici, 0);
    const std::int32_t ultimo = std::min(index + vertici, std::max(indElem, index));
    if (anteprima()) poligono(index, ultimo, fill != 0, true);
    poligono(index, ultimo, fill != 0, false);
}

void FaiPoly(std::int32_t index) { FaiPolyFill(index, 1); }

void FillCerchio(std::int32_t index, const double& cx, const double& cy, const double& r, const double& a,
                 const double& b) {
    const std::int16_t area = Elem(index).cerc.patternArea;
    if (area <= 0) return;
    const Curva c{cx, cy, r, a, b};
    riempiCurva(c, true, area, Elem(index).lucido);
    if (anteprima()) riempiCurva(curvaTrasformata(c), true, area, Elem(index).lucido);
}

void FillArco(std::int32_t index, const double& cx, const double& cy, const double& r, const double& partenza,
              const double& ampiezza) {
    const std::int16_t area = Elem(index).arco.patternArea;
    if (area <= 0) return;
    const Curva c{cx, cy, r, partenza, ampiezza};
    riempiCurva(c, false, area, Elem(index).lucido);
    if (anteprima()) riempiCurva(curvaTrasformata(c), false, area, Elem(index).lucido);
}

}   // namespace tessaro
