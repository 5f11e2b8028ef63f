// What a click in the selecting mode picks: the topmost record under the pointer, then the summary and the box.
#include "editing/Scelta.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "display/palette.h"
#include "display/Ridisegno.h"
#include "display/RiquadroTesto.h"
#include "display/Sovrapposto.h"
#include "display/Zoom.h"
#include "editing/MeshPunti.h"
#include "editing/TestoSelezione.h"
#include "model/Archivio.h"
#include "model/NomiLucidi.h"
#include "model/Strumento.h"
#include "model/TabellaStato.h"
#include "model/Vincoli.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

constinit std::uint8_t selezionePrec = 0;
bool (*trascinaFuori)() = nullptr;
constinit std::uint32_t Tempo = 0;

namespace {

bool raggiungibile(const elemento& e) { return LucidoRaggiungibile(e.lucido); }

// Is e hit? A vertex is hit by the side that joins it to `prima`, the record before it.
bool colpito(const puntot& p, const elemento& prima, const elemento& e) {
    switch (e.tipo) {
    case tSegmento: return Sellinea(p, e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2);
    case tMarker: return std::fabs(p.x - e.mark.x) < DiffSelez && std::fabs(p.y - e.mark.y) < DiffSelez;
    case tVertice: return Sellinea(p, prima.vert.x, prima.vert.y, e.vert.x, e.vert.y);
    case tTesto: return VisioneGraf.mostraTesti && SelTesto(p, e);
    case tPict: return SelPict(p, e.pict.x, e.pict.y, e.pict.x + e.pict.larghezza, e.pict.y + e.pict.altezza);
    case tCerchio: return SelCerchio(p, e.cerc.cx, e.cerc.cy, e.cerc.raggio);
    case tArco: return SelArco(p, e.arco.cx, e.arco.cy, e.arco.raggio, e.arco.angoloInizio, e.arco.ampiezza);
    default: return false;   // a polygon is hit by its sides only
    }
}

// Where the preview of the live transformation shows it.
bool colpitoInAnteprima(const puntot& p, std::int32_t i) {
    if (Elem(i).tipo == tPict) return false;   // pictures have no preview
    elemento e = Elem(i), prima = e;
    attaccoAttivo.TrasformaCopia(e);
    if (e.tipo == tVertice) {
        prima = Elem(i - 1);
        attaccoAttivo.TrasformaCopia(prima);
    }
    return colpito(p, prima, e);
}

// The topmost record hit from number `da` down, 0 for none.
std::int32_t primoColpito(const puntot& p, std::int32_t da) {
    const bool anteprima = AnteprimaAttiva();
    for (std::int32_t i = da; i >= 3; --i) {
        if (!raggiungibile(Elem(i))) continue;
        if (colpito(p, Elem(i - 1), Elem(i)) || (anteprima && colpitoInAnteprima(p, i))) return i;
    }
    return 0;
}

// The record that a hit selects: a vertex stands for its head. 0 when a damaged record names none.
std::int32_t bersaglio(std::int32_t i) {
    if (Elem(i).tipo != tVertice) return i;
    const std::int32_t testa = i - Elem(i).vert.distanzaTesta;
    return testa >= 3 && testa < i && Elem(testa).tipo == tPoligono ? testa : 0;
}

// The side hit is what a parallel or perpendicular constraint refers to next.
void riferisciVincoli(double x1, double y1, double x2, double y2) {
    if (x2 - x1 == 0) {
        statoCursore.verticale = 1;
        return;
    }
    const double m = (y2 - y1) / (x2 - x1);
    statoCursore.verticale = 0;
    statoCursore.pendenza = m;
    statoCursore.pendenza2 = m * m;
    statoCursore.kPendenza = 1 / (1 + m * m);
}

void latoColpito(std::int32_t i) {
    const elemento& e = Elem(i);
    if (e.tipo == tSegmento) riferisciVincoli(e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2);
    if (e.tipo == tVertice) riferisciVincoli(Elem(i - 1).vert.x, Elem(i - 1).vert.y, e.vert.x, e.vert.y);
}

void prendi(std::int32_t i, bool shift, bool& ripresa) {
    const std::int32_t n = bersaglio(i);
    if (n == 0) return;
    elemento& e = Elem(n);
    if (shift && e.selezionato) {
        for (std::int32_t k = n; k <= UltimoRecord(n); ++k) Elem(k).selezionato = 0;   // "all" flags vertices too
        if (Puntosel.numSel > 0) --Puntosel.numSel;
    } else {
        ripresa = e.selezionato != 0;
        Puntosel.attiva = 1;
        e.selezionato = 1;
        ++Puntosel.numSel;
    }
    Puntosel.oggetto = OggettoDi(e.tipo);
    Puntosel.indice = n;
    latoColpito(i);
}

// Summary and box after what was hit or caught.
void riassumi(bool ripresa) {
    const std::int32_t contati = Puntosel.numSel;
    RistabilisciSelezione();
    if (!ripresa) return;
    // Kept: an option-click counts a thing that is already selected once more.
    Puntosel.numSel = std::max(contati, Puntosel.numSel);
    Puntosel.multipla = Puntosel.numSel > 1;
}

// Nothing under the pointer and the button held: a rubber rectangle selects what it encloses.
bool daRettangolo() {
    PenSize(1, 1);
    Rect r;
    return SelRect(r) && SelezionaRect(r);
}

// At once, before the summary and the box are made: they tell of the text as it is edited. A text that Shift has just
// taken off is edited too, for `attiva` falls later. A repaint behind the dialog may have shown the highlight.
void apriTesto() {
    PoniTesti(1);
    InvalWind();
}

void passaASpostare() {
    if (Modalita != mSpostamento && Puntosel.multipla) DisegnaRettSel();
    Modalita = mSpostamento;
    DrawPallette();
}

}   // namespace

void ScegliElemento(const EventRecord& event, const puntot& point) {
    const bool shift = (event.modifiers & shiftKey) != 0, opzione = (event.modifiers & optionKey) != 0;
    if (Puntosel.attiva) DisegnaSelezione();
    if (!shift && !opzione) TogliSelezione();
    const bool mesh = Button() && !shift && SelezionaMesh(event, point);
    if (mesh) AggRettSelMesh();
    const std::int32_t i = mesh ? 0 : primoColpito(point, indElem);
    bool preso = mesh || i != 0, ripresa = false;
    if (i != 0) {
        prendi(i, shift, ripresa);
        if (Elem(i).tipo == tTesto && event.when - Tempo < GetDblTime()) apriTesto();
    }
    if (preso || !Button()) {
        Tempo = event.when;
    } else if (opzione) {   // beside everything
        if (trascinaFuori) trascinaFuori();
    } else {
        preso = daRettangolo();
    }
    if (preso && Puntosel.oggetto < oMeshOrigine) riassumi(ripresa);
    if (!Puntosel.attiva) return;
    DisegnaSelezione();
    if (opzione) passaASpostare();
}

namespace {

// Records that are hit, topmost first, one for each thing.
std::vector<std::int32_t> tuttiColpiti(const puntot& p) {
    std::vector<std::int32_t> colpiti;
    for (std::int32_t i = primoColpito(p, indElem); i != 0; i = primoColpito(p, i - 1)) {
        const std::int32_t n = bersaglio(i);
        const bool nuovo = colpiti.empty() || bersaglio(colpiti.back()) != n;   // a polyline's records stand together
        if (n != 0 && nuovo) colpiti.push_back(i);
    }
    return colpiti;
}

void scegliSolo(std::int32_t i) {
    TogliSelezione();
    bool ripresa = false;
    prendi(i, false, ripresa);
    riassumi(false);
    DisegnaSelezione();
}

}   // namespace

bool ScegliSotto(const puntot& point, bool indietro) {
    const std::vector<std::int32_t> colpiti = tuttiColpiti(point);
    if (colpiti.empty()) return false;
    const auto quanti = static_cast<std::ptrdiff_t>(colpiti.size());
    std::ptrdiff_t scelto = 0;
    if (Puntosel.attiva && !Puntosel.multipla && Puntosel.oggetto < oMeshOrigine) {
        const auto ora = std::find_if(colpiti.begin(), colpiti.end(),
                                      [](std::int32_t i) { return bersaglio(i) == Puntosel.indice; });
        if (ora != colpiti.end()) scelto = (ora - colpiti.begin() + (indietro ? quanti - 1 : 1)) % quanti;
    }
    scegliSolo(colpiti[static_cast<std::size_t>(scelto)]);
    return true;
}

bool ScegliPerMenu(const puntot& point) {
    const std::vector<std::int32_t> colpiti = tuttiColpiti(point);
    if (colpiti.empty()) return false;
    const bool scelto =
        std::any_of(colpiti.begin(), colpiti.end(), [](std::int32_t i) { return Elem(bersaglio(i)).selezionato != 0; });
    if (!scelto) scegliSolo(colpiti.front());
    return true;
}

void TogliSelezione() {
    if (!Puntosel.attiva) return;
    if (Puntosel.multipla) {
        for (std::int32_t i = 3; i <= indElem; ++i) Elem(i).selezionato = 0;
    } else if (Puntosel.indice >= 3 && Puntosel.indice <= indElem) {
        Elem(Puntosel.indice).selezionato = 0;
    }
    selezionePrec = Puntosel.attiva && !Puntosel.multipla;
    AzzeraPuntosel();
    AzzeraRettSel();
}

void NessunaSelezione() {
    for (std::int32_t i = 3; i <= indElem; ++i) Elem(i).selezionato = 0;
    selezionePrec = 0;
    AzzeraPuntosel();
    AzzeraRettSel();
}

namespace {
const VoceStato righe[] = {
    voce<selezionePrec>("selezionePrec"),
    voce<Tempo>("Tempo"),
};
const TabellaStato tabella(righe);
}   // namespace

}   // namespace tessaro
