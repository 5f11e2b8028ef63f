// A point of the table dragged in the drawing: residuals, arrows and preview follow it.
#include <algorithm>
#include <cmath>

#include "display/Ridisegno.h"
#include "model/Cursore.h"
#include "model/Stato.h"
#include "model/Vista.h"
#include "platform/Events.h"
#include "registration/TabellaPunti.h"
#include "shell/PuntiAzioni.h"
#include "tools/CursoreVincolato.h"

namespace tessaro {

namespace {

// The row, from 0, whose mark is under the press; the size when none is.
std::size_t segnoPremuto(const TabellaPunti& t) {
    constexpr double vicino = 6;   // pixels: the mark's arm and one
    const Point p = EventPoint;
    std::size_t quale = t.righe.size();
    double meglio = vicino;
    for (std::size_t i = 0; i < t.righe.size(); ++i) {
        if (!t.righe[i].conFoglio) continue;
        const double d = std::hypot(XVidD(t.righe[i].foglio.x) - p.h, YVidD(t.righe[i].foglio.y) - p.v);
        if (!(d < meglio)) continue;
        meglio = d;
        quale = i;
    }
    return quale;
}

}   // namespace

std::size_t TrascinaPuntoTabella(void (*mostra)()) {
    TabellaPunti t = LaTabella();
    const std::size_t i = segnoPremuto(t);
    if (i >= t.righe.size()) return 0;
    Coppia& posto = t.righe[i].foglio;
    const Coppia prima = posto;
    const std::uint32_t inizio = TickCount();
    const Point da = EventPoint;
    Point qui = da;
    const auto segui = [&](Point p) {
        if (p == qui) return;
        qui = p;
        puntot q{xcurs, ycurs, 0};
        VidToReal(p, q);
        xcurs = q.x;
        ycurs = q.y;
        posto = {q.x, q.y};
        PoniTabella(t);
        mostra();
        Ridisegna();
    };
    for (Point p; TrackMouseLocation(p);) segui(p);
    segui(GetMouse());
    // A press that was not held is a click: it chooses the row, and a hand that trembles moves nothing.
    const bool tenuto = !DragGivenUp() && TickCount() - inizio > GetDblTime() >> 1;
    if (tenuto && !(qui == da)) {
        AttaccaCursore(posto.x, posto.y, zcurs);
    } else {
        posto = prima;
    }
    PoniTabella(t);
    return i + 1;
}

}   // namespace tessaro
