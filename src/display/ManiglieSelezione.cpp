// The selection in its own colour: a band along each selected thing, below the dotted highlight, and a grip at each of its
// points, above it.
#include <array>
#include <cmath>

#include "display/Disegno.h"
#include "display/Pixel.h"
#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/PreferenzeVista.h"
#include "model/PuntiElemento.h"
#include "model/Selezione.h"
#include "platform/Windows.h"
#include "text/Conversione.h"

namespace tessaro {

namespace {

constexpr std::int32_t latoManiglia = 7, distanzaManiglie = 9;   // pixels

// Grips of the view. One that would lie on the one before it is left out, so that a thick run of vertices stays to be seen and
// a large selection costs no more than the screen holds.
class Maniglie {
    Rect area = AreaDisegnabile();
    Point ultima{-1000000, -1000000};

    static void quadro(Point p, std::int32_t lato, const RGBColor& c) {
        RGBForeColor(c);
        PaintRect(SetRect(p.h - lato / 2, p.v - lato / 2, p.h - lato / 2 + lato, p.v - lato / 2 + lato));
    }

public:
    void metti(double x, double y) {
        Point p;
        if (!PuntoIntero(x, y, p)) return;
        if (std::abs(p.h - ultima.h) < distanzaManiglie && std::abs(p.v - ultima.v) < distanzaManiglie) return;
        ultima = p;   // also outside: what is left out must not depend on the part of the view that is drawn
        const auto fuori = [](std::int32_t v, std::int32_t da, std::int32_t a) {
            return v < da - latoManiglia || v > a + latoManiglia;
        };
        if (fuori(p.h, area.left, area.right) || fuori(p.v, area.top, area.bottom)) return;
        quadro(p, latoManiglia, SopraEvidenza({65535, 65535, 65535}));
        quadro(p, latoManiglia - 2, SopraEvidenza(coloreEvidenza));
    }
    void di(std::int32_t n) {
        const elemento& e = Elem(n);
        switch (e.tipo) {
        case tSegmento:
            metti(e.segm.x1, e.segm.y1);
            metti(e.segm.x2, e.segm.y2);
            break;
        case tMarker: metti(e.mark.x, e.mark.y); break;
        case tTesto: metti(e.test.x, e.test.y); break;
        case tPoligono:
            for (std::int32_t i = n; i <= UltimoRecord(n); ++i) metti(Elem(i).poli.x, Elem(i).poli.y);
            break;
        case tPict:
            for (const double x : {0.0, 1.0})
                for (const double y : {0.0, 1.0}) metti(e.pict.x + x * e.pict.larghezza, e.pict.y + y * e.pict.altezza);
            break;
        case tCerchio: curva(e.cerc.cx, e.cerc.cy, e.cerc.raggio, {0, 90, 180, 270}); break;
        case tArco: {
            const double da = e.arco.angoloInizio, ampiezza = e.arco.ampiezza;
            curva(e.arco.cx, e.arco.cy, e.arco.raggio, {da, da + ampiezza, da + ampiezza / 2, da});
            break;
        }
        default: break;
        }
    }

private:
    // Its centre, and the places of the edge at these angles: degrees from straight up, clockwise.
    void curva(double cx, double cy, double r, const std::array<double, 4>& gradi) {
        metti(cx, cy);
        for (const double g : gradi) {
            const double t = g * static_cast<double>(Pig) / 180;
            metti(cx + r * std::sin(t), cy - r * std::cos(t));
        }
    }
};

void maniglie() {
    const bool mesh = !Puntosel.multipla && Puntosel.oggetto >= oMeshOrigine;
    if (mesh) return;   // a mesh is moved by its nodes, which its lines show
    constexpr std::int32_t molti =
        5000;   // things whose grips nobody could tell apart, and that take longer than the lines
    if (Puntosel.multipla && Puntosel.numSel > molti) return;
    PenNormal();
    Maniglie m;
    if (!Puntosel.multipla) {
        if (Puntosel.indice >= 3 && Puntosel.indice <= indElem) m.di(Puntosel.indice);
        return;
    }
    for (std::int32_t i = 3; i <= indElem; ++i)
        if (Elem(i).selezionato) m.di(i);
}

}   // namespace

void DipingiColore() {
    if (!Puntosel.attiva || EmptyRect(AreaDisegnabile())) return;
    DipingiBanda();
    maniglie();
}

}   // namespace tessaro
