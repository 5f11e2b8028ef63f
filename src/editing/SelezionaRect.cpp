// Selecting by rectangle and as a whole, and the box of what is selected.
#include <algorithm>

#include "display/RiquadroTesto.h"
#include "display/Sovrapposto.h"
#include "editing/Scelta.h"
#include "model/Archivio.h"
#include "model/Cursore.h"
#include "model/NomiLucidi.h"
#include "model/PuntiElemento.h"
#include "model/TabellaStato.h"
#include "platform/Windows.h"

namespace tessaro {

constinit puntot xyzLT{}, xyzRB{};

namespace {

bool dentro(std::int32_t i, const Rect& rect) {
    const elemento& e = Elem(i);
    switch (e.tipo) {
    case tSegmento: return SegmentoInRect(e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2);
    case tMarker: return PuntoInRect(e.mark.x, e.mark.y);
    case tPoligono: return PolyInRect(i);
    case tTesto: return VisioneGraf.mostraTesti && TestoInRect(i, rect);
    case tPict: return PictInRect(i, rect);
    case tCerchio: return CerchioInRect(e.cerc.cx, e.cerc.cy, e.cerc.raggio);
    case tArco: return CerchioInRect(e.arco.cx, e.arco.cy, e.arco.raggio);   // Kept: its sweep is ignored
    default: return false;
    }
}

bool pixelDentro(double h, double v, const Rect& r) { return h >= r.left && h < r.right && v >= r.top && v < r.bottom; }

}   // namespace

bool PuntoInRect(const double& x, const double& y) { return x > xyzLT.x && x < xyzRB.x && y > xyzLT.y && y < xyzRB.y; }

bool SegmentoInRect(const double& x1, const double& y1, const double& x2, const double& y2) {
    return PuntoInRect(x1, y1) && PuntoInRect(x2, y2);
}

bool PolyInRect(std::int32_t index) {
    for (std::int32_t i = index; i <= UltimoRecord(index); ++i)
        if (!PuntoInRect(Elem(i).poli.x, Elem(i).poli.y)) return false;
    return true;
}

bool CerchioInRect(const double& cx, const double& cy, const double& r) {
    return PuntoInRect(cx - r, cy - r) && PuntoInRect(cx + r, cy + r);
}

bool PictInRect(std::int32_t index, const Rect& rect) {
    const auto& p = Elem(index).pict;
    return pixelDentro(XVidD(p.x), YVidD(p.y), rect)
           && pixelDentro(XVidD(p.x + p.larghezza), YVidD(p.y + p.altezza), rect);
}

bool TestoInRect(std::int32_t index, const Rect& rect) {
    const auto angoli = AngoliTesto(Elem(index));
    return std::all_of(angoli.begin(), angoli.end(), [&](PuntoD p) { return pixelDentro(p.h, p.v, rect); });
}

bool SelezionaRect(const Rect& rect) {
    SetCursor(ClockCursor);
    const Point pLT{rect.top, rect.left}, pRB{rect.bottom, rect.right};
    VidToReal(pLT, xyzLT);
    VidToReal(pRB, xyzRB);
    bool qualcosa = false;
    for (std::int32_t i = 3; i <= indElem; ++i) {
        elemento& e = Elem(i);
        if (!LucidoRaggiungibile(e.lucido)) continue;
        if (!dentro(i, rect)) continue;
        qualcosa = true;
        if (e.selezionato) continue;
        e.selezionato = 1;
        ++Puntosel.numSel;
        Puntosel.oggetto = OggettoDi(e.tipo);
        Puntosel.indice = i;
    }
    SetCursor(arrowCursor);
    return qualcosa;
}

void SelezionaTutto() {
    SetCursor(ClockCursor);
    if (!(KeyModifiers() & shiftKey)) TogliSelezione();
    for (std::int32_t i = 3; i <= indElem; ++i) {
        elemento& e = Elem(i);
        if (LucidoVisibile(e.lucido) && !LucidoBloccato(e.lucido) && (e.tipo != tTesto || VisioneGraf.mostraTesti))
            e.selezionato = 1;
    }
    if (Puntosel.attiva && Puntosel.oggetto >= oMeshOrigine) Puntosel.attiva = 0;   // records are selected now
    RistabilisciSelezione();                                                        // vertex records count one by one
    DisegnaSelezione();
    SetCursor(arrowCursor);
}

namespace {
std::string puntoJson(const puntot& p) {
    std::string s = "[";
    s += NumeroJson(p.x);
    s += ',';
    s += NumeroJson(p.y);
    s += ']';
    return s;
}
const VoceStato righe[] = {
    {"xyzLT", [] { xyzLT = {}; }, [] { return puntoJson(xyzLT); }},
    {"xyzRB", [] { xyzRB = {}; }, [] { return puntoJson(xyzRB); }},
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
