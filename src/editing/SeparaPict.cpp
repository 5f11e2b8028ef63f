// The picture played on the splitter's port, and the selection of what came.
#include "editing/SeparaPict.h"

#include <algorithm>

#include "display/SeparaPort.h"
#include "display/Zoom.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/Figura.h"
#include "platform/Events.h"
#include "platform/pict/Codici.h"
#include "platform/pict/Pict.h"
#include "platform/Windows.h"

namespace tessaro {

namespace {

// Whole coordinates finer than the picture's own: what it tells in its 16 bits stays exact.
constexpr std::int32_t finezza = 16;

bool gioca(const elemento& e) {
    const std::string bytes = PictBytes(e.pict.maniglia);
    const VociPict voci(bytes);
    if (!voci.valido() || EmptyRect(voci.sorgente)) return false;
    const std::int32_t larga = voci.sorgente.right - voci.sorgente.left;
    const std::int32_t alta = voci.sorgente.bottom - voci.sorgente.top;
    const Rect dst{0, 0, alta * finezza, larga * finezza};
    SeparaPort porto(
        dst, ScalaSepara{e.pict.larghezza / dst.right, e.pict.altezza / dst.bottom, finezza, e.pict.x, e.pict.y});
    const GrafPtr prima = GetPort();
    SetPort(&porto);
    HidePen();
    DrawPicture(bytes, dst);
    ShowPen();
    SetPort(prima);
    if (porto.pieno()) SysBeep(30);
    return true;
}

// Kept: of a polyline the head alone, as its vertices were stored at their places.
void sposta(elemento& e, double dx, double dy) {
    switch (e.tipo) {
    case tSegmento:
        e.segm.x1 += dx;
        e.segm.y1 += dy;
        e.segm.x2 += dx;
        e.segm.y2 += dy;
        break;
    case tPoligono:
        e.poli.x += dx;
        e.poli.y += dy;
        break;
    case tTesto:
        e.test.x += dx;
        e.test.y += dy;
        break;
    default: break;
    }
}

std::int32_t oggettoDi(std::uint8_t tipo) {
    return tipo == tSegmento ? oSegmento : tipo == tTesto ? oTesto : oPoligono;
}

// The new elements become the selection.
void seleziona(std::int32_t primo) {
    NessunaSelezione();
    for (std::int32_t i = primo; i <= indElem; ++i) {
        elemento& e = Elem(i);
        if (e.tipo == tVertice) continue;
        e.selezionato = 1;
        ++Puntosel.numSel;
        Puntosel.indice = i;
        Puntosel.oggetto = oggettoDi(e.tipo);
    }
    Puntosel.attiva = Puntosel.numSel > 0;
    Puntosel.multipla = Puntosel.numSel > 1;
    RifaiRettSel();
}

}   // namespace

void SeparaPict() {
    const std::int32_t n = Puntosel.indice;
    if (!Puntosel.attiva || Puntosel.multipla || n < 3 || n > indElem || Elem(n).tipo != tPict) return SysBeep(30);
    SetCursor(ClockCursor);
    CominciaAggiunta();
    PoniAnnulla(aNiente);
    gioca(Elem(n));
    const double dx = Elem(n).pict.x, dy = Elem(n).pict.y;
    for (std::int32_t i = inizioAggiunta + 1; i <= indElem; ++i) sposta(Elem(i), dx, dy);
    const bool aggiunti = inizioAggiunta < indElem;
    if (aggiunti) seleziona(inizioAggiunta + 1);
    PoniAnnulla(aNiente);
    if (aggiunti) PoniAnnulla(aAggiunta);
    SetCursor(arrowCursor);
    InvalFinestra();
}

}   // namespace tessaro
