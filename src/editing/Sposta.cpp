// Moving the selection or everything: each kind of element by its points, Z where it has one.
#include "editing/Sposta.h"

#include <cmath>

#include "display/Ridisegno.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Figura.h"
#include "model/Mesh.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "model/Vista.h"
#include "platform/Events.h"

namespace tessaro {

void SpostaPunto(double& x, double& y, double& z) {
    x += XDeltaSpost;
    y += YDeltaSpost;
    z += ZDeltaSpost;
}

namespace {

void sposta3(f64& x, f64& y, f64& z) {
    x += XDeltaSpost;
    y += YDeltaSpost;
    z += ZDeltaSpost;
}

void sposta2(f64& x, f64& y) {
    x += XDeltaSpost;
    y += YDeltaSpost;
}

// A vertex record by itself is passed over: its head takes it along, so it never moves twice.
void spostaElemento(std::int32_t n) {
    elemento& e = Elem(n);
    switch (e.tipo) {
    case tSegmento:
        sposta3(e.segm.x1, e.segm.y1, e.segm.z1);
        sposta3(e.segm.x2, e.segm.y2, e.segm.z2);
        break;
    case tMarker: sposta3(e.mark.x, e.mark.y, e.mark.z); break;
    case tPoligono: {
        sposta3(e.poli.x, e.poli.y, e.poli.z);
        const std::int32_t ultimo = n + e.poli.numVertici;
        for (std::int32_t i = n + 1; i <= ultimo && i <= indElem; ++i)
            sposta3(Elem(i).vert.x, Elem(i).vert.y, Elem(i).vert.z);
        break;
    }
    case tTesto: sposta2(e.test.x, e.test.y); break;
    case tPict: sposta2(e.pict.x, e.pict.y); break;
    case tCerchio: sposta2(e.cerc.cx, e.cerc.cy); break;
    case tArco: sposta2(e.arco.cx, e.arco.cy); break;
    default: break;
    }
}

void spostaNodi(Mesh& m) {
    for (std::int32_t riga = 0; riga < m.ny && riga < 100; ++riga)
        for (std::int32_t colonna = 0; colonna < m.nx && colonna < 100; ++colonna) {
            m.x[riga][colonna] += XDeltaSpost;
            m.y[riga][colonna] += YDeltaSpost;
        }
}

// A delta that a registration has made infinite would take everything away for good.
bool spostamentoFinito() {
    if (std::isfinite(XDeltaSpost) && std::isfinite(YDeltaSpost) && std::isfinite(ZDeltaSpost)) return true;
    XDeltaSpost = YDeltaSpost = ZDeltaSpost = 0;
    SysBeep(30);
    return false;
}

}   // namespace

void SpostaMesh() {
    const bool origine = Puntosel.oggetto == oMeshOrigine;
    Mesh& m = origine ? meshOrigine : meshDestinazione;
    spostaNodi(m);
    PoniAnnulla(origine ? aMeshOrigine : aMeshDestinazione);
}

void SpostaSelezione() {
    if (!Puntosel.attiva || !spostamentoFinito()) return;
    FineFigura();   // its next point would lie where it was
    if (Puntosel.multipla) {
        for (std::int32_t i = 3; i <= indElem; ++i)
            if (Elem(i).selezionato) spostaElemento(i);
    } else if (Puntosel.oggetto >= oMeshOrigine) {
        SpostaMesh();
    } else if (Puntosel.indice >= 3 && Puntosel.indice <= indElem) {
        spostaElemento(Puntosel.indice);
    }
    double scarto = 0;
    SpostaPunto(rettSel.xmin, rettSel.ymin, scarto);
    SpostaPunto(rettSel.xmax, rettSel.ymax, scarto);
    PoniAnnulla(aSposta);
}

void SpostaDiPixel(std::int32_t dh, std::int32_t dv) {
    if (!Puntosel.attiva) return;
    XDeltaSpost = dh / scalavid;
    YDeltaSpost = dv / scalavid;
    ZDeltaSpost = 0;
    SpostaSelezione();
    InvalFinestra();
}

void SpostaTutto() {
    if (!spostamentoFinito()) return;
    FineFigura();
    for (std::int32_t i = 3; i <= indElem; ++i) spostaElemento(i);
}

}   // namespace tessaro
