// The records of a thing and the places that they hold on the sheet, in sheet units, for what is done to every kind alike.
#pragma once

#include <algorithm>
#include <cstdint>

#include "model/Archivio.h"

namespace tessaro {

// The last record of the thing that begins at n: a polyline's last vertex, else n itself.
inline std::int32_t UltimoRecord(std::int32_t n) {
    if (Elem(n).tipo != tPoligono) return n;
    return std::min(n + std::max<std::int32_t>(Elem(n).poli.numVertici, 0), indElem);
}

// f(x, y), by reference, for each: both ends of a segment, the centre of a curve, the corner of a picture, one otherwise.
// A polyline's vertices are records of their own.
template <typename F>
void PerPunti(elemento& e, F f) {
    switch (e.tipo) {
    case tSegmento:
        f(e.segm.x1, e.segm.y1);
        f(e.segm.x2, e.segm.y2);
        break;
    case tMarker: f(e.mark.x, e.mark.y); break;
    case tPoligono: f(e.poli.x, e.poli.y); break;
    case tVertice: f(e.vert.x, e.vert.y); break;
    case tTesto: f(e.test.x, e.test.y); break;
    case tPict: f(e.pict.x, e.pict.y); break;
    case tCerchio: f(e.cerc.cx, e.cerc.cy); break;
    case tArco: f(e.arco.cx, e.arco.cy); break;
    default: break;
    }
}

// f(x, y) for the points that the extent of thing n spreads over: both ends, all vertices, two corners of a picture and
// of the square round a whole circle, also for an arc. A text's extent is its box's: it gives none here.
template <typename F>
void PerEstremi(std::int32_t n, F f) {
    const auto quadrato = [&f](double cx, double cy, double r) {
        f(cx - r, cy - r);
        f(cx + r, cy + r);
    };
    const elemento& e = Elem(n);
    switch (e.tipo) {
    case tSegmento:
        f(e.segm.x1, e.segm.y1);
        f(e.segm.x2, e.segm.y2);
        break;
    case tMarker: f(e.mark.x, e.mark.y); break;
    case tPoligono: {
        const std::int32_t ultimo = UltimoRecord(n);
        for (std::int32_t i = n; i <= ultimo; ++i) f(Elem(i).poli.x, Elem(i).poli.y);
        break;
    }
    case tPict:
        f(e.pict.x, e.pict.y);
        f(e.pict.x + e.pict.larghezza, e.pict.y + e.pict.altezza);
        break;
    case tCerchio: quadrato(e.cerc.cx, e.cerc.cy, e.cerc.raggio); break;
    case tArco: quadrato(e.arco.cx, e.arco.cy, e.arco.raggio); break;
    default: break;
    }
}

}   // namespace tessaro
