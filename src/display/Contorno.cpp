// The outline of what a move carries.
#include "display/Contorno.h"

#include "display/Disegno.h"
#include "display/RiquadroTesto.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Documento.h"
#include "model/Penna.h"
#include "model/Selezione.h"
#include "model/Stato.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vista.h"

namespace tessaro {

namespace {

Polygon PolySel;

std::int32_t h(double x) { return arrotonda32(XVidD(x)); }
std::int32_t v(double y) { return arrotonda32(YVidD(y)); }

void rettangolo(double x1, double y1, double x2, double y2) {
    MoveTo(h(x1), v(y1));
    LineTo(h(x2), v(y1));
    LineTo(h(x2), v(y2));
    LineTo(h(x1), v(y2));
    LineTo(h(x1), v(y1));
}

void quadratoDi(double cx, double cy, double r) { rettangolo(cx - r, cy - r, cx + r, cy + r); }

void CreaPolyText(const elemento& e) {
    const auto angoli = AngoliTesto(e);
    const auto punto = [](const PuntoD& p) { return Point{arrotonda32(p.v), arrotonda32(p.h)}; };
    const Point inizio = punto(angoli.back());
    MoveTo(inizio.h, inizio.v);
    for (const PuntoD& q : angoli) LineTo(punto(q).h, punto(q).v);
}

void contornoSingolo() {
    const elemento& e = Elem(Puntosel.indice);
    switch (e.tipo) {
    case tMarker: DisegnaMarker(e.mark.forma, h(e.mark.x), v(e.mark.y)); break;
    case tSegmento:
        MoveTo(h(e.segm.x1), v(e.segm.y1));
        LineTo(h(e.segm.x2), v(e.segm.y2));
        break;
    case tPoligono:
        MoveTo(h(e.poli.x), v(e.poli.y));
        for (std::int32_t i = 1; i <= e.poli.numVertici && Puntosel.indice + i <= indElem; ++i) {
            const elemento& w = Elem(Puntosel.indice + i);
            LineTo(h(w.vert.x), v(w.vert.y));
        }
        break;
    case tTesto: CreaPolyText(e); break;
    case tPict: rettangolo(e.pict.x, e.pict.y, e.pict.x + e.pict.larghezza, e.pict.y + e.pict.altezza); break;
    case tCerchio: quadratoDi(e.cerc.cx, e.cerc.cy, e.cerc.raggio); break;
    case tArco: quadratoDi(e.arco.cx, e.arco.cy, e.arco.raggio); break;
    default: rettangolo(rettSel.xmin, rettSel.ymin, rettSel.xmax, rettSel.ymax); break;
    }
}

}   // namespace

void FaiContorno() {
    PolySel.punti.clear();
    if (!Puntosel.attiva) return;
    OpenPoly();
    if (Puntosel.multipla || Puntosel.oggetto >= oMeshOrigine || Puntosel.indice < 3 || Puntosel.indice > indElem) {
        rettangolo(rettSel.xmin, rettSel.ymin, rettSel.xmax, rettSel.ymax);
    } else {
        contornoSingolo();
    }
    PolySel = ClosePoly();
}

void DisegnaContorno() {
    if (Modalita != mSpostamento || !Sposta2ndClick || !Puntosel.attiva) return;
    FaiContorno();
    OffsetPoly(PolySel, h(xcurs) - h(XSpost1), v(ycurs) - v(YSpost1));
    PenNormal();
    PenMode(patXor);
    PenPat(qdGray);
    ForeColor(blackColor);
    FramePoly(PolySel);
}

}   // namespace tessaro
