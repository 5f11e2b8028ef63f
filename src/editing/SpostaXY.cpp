// Keeping the drawing on positive coordinates: its extent by points, and the shift of everything.
#include "editing/SpostaXY.h"

#include "display/Ridisegno.h"
#include "editing/AttacchiCambiati.h"
#include "model/Archivio.h"
#include "model/Documento.h"
#include "platform/Dialogs.h"
#include "registration/PuntiControllo.h"

namespace tessaro {

void AggMinMax(const double& x, const double& y) {
    if (x < Xmin) Xmin = x;
    if (x > Xmax) Xmax = x;
    if (y < Ymin) Ymin = y;
    if (y > Ymax) Ymax = y;
}

namespace {

void estensione() {
    const bool quattro = Elem(2).att.quattroPunti != 0;
    Xmin = Ymin = Xmax = Ymax = 0;
    for (std::int16_t n = 1, ultimo = quattro ? 3 : 2; n <= ultimo; ++n) {
        const Coppia p = LeggiAttacco(n);
        AggMinMax(p.x, p.y);
    }
    for (std::int32_t i = 2; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        if (e.tipo == tMarker) {
            AggMinMax(e.mark.x, e.mark.y);
        } else if (e.tipo == tSegmento) {
            AggMinMax(e.segm.x1, e.segm.y1);
            AggMinMax(e.segm.x2, e.segm.y2);
        } else if (e.tipo == tAttacco2 && quattro) {
            AggMinMax(e.att.z1, e.att.z2);
        }
    }
}

// From a negative minimum to 1, so that -5 moves by 6.
double scarto(double minimo) { return minimo < 0 ? 1 - minimo : 0; }

void spostaRecord(elemento& e, double dx, double dy, bool quattro) {
    const auto sposta = [dx, dy](f64& x, f64& y) {
        x += dx;
        y += dy;
    };
    switch (e.tipo) {
    case tSegmento:
        sposta(e.segm.x1, e.segm.y1);
        sposta(e.segm.x2, e.segm.y2);
        break;
    case tMarker:
    case tPoligono:
    case tVertice:
    case tPict:
    case tCerchio:
    case tArco: sposta(e.mark.x, e.mark.y); break;   // all hold their first point at the same place
    case tTesto: sposta(e.test.x, e.test.y); break;
    case tAttacco2:
        if (quattro) sposta(e.att.z1, e.att.z2);
        break;
    default: break;
    }
}

void spostaTutti(double dx, double dy) {
    const bool quattro = Elem(2).att.quattroPunti != 0;
    for (std::int16_t n = 1, ultimo = quattro ? 3 : 2; n <= ultimo; ++n) {
        const Coppia p = LeggiAttacco(n);
        AssegnaAttacco(n, p.x + dx, p.y + dy);
    }
    for (std::int32_t i = 2; i <= indElem; ++i) spostaRecord(Elem(i), dx, dy, quattro);
}

}   // namespace

void SpostaXY() {
    constexpr std::int16_t domanda = 3011, sposta = 2;
    estensione();
    const double dx = scarto(Xmin), dy = scarto(Ymin);
    if (dx == 0 && dy == 0) return;
    if (NoteAlert(domanda) != sposta) return;
    spostaTutti(dx, dy);
    AttacchiCambiati();
}

}   // namespace tessaro
