// What a click on the grips of the selected thing does: drags, coordinate dialogs, vertices removed and inserted.
#include "editing/Vertici.h"

#include <cmath>
#include <limits>

#include "display/Ridisegno.h"
#include "editing/MeshPunti.h"
#include "editing/Modifica.h"
#include "editing/Scelta.h"
#include "model/Annulla.h"
#include "model/Archivio.h"
#include "model/Figura.h"
#include "model/Strumento.h"
#include "model/Vista.h"

namespace tessaro {

namespace {

bool vicino(const puntot& p, double x, double y) {
    return std::fabs(p.x - x) < diffCerca && std::fabs(p.y - y) < diffCerca;
}

bool doppioClick(const EventRecord& e) { return e.when - Tempo < GetDblTime(); }

// A field is no reference: the edit works on locals, which come back to the record.
template <class Modifica>
void conCampi(f64& fx, f64& fy, f64& fz, Modifica modifica) {
    double x = fx, y = fy, z = fz;
    modifica(x, y, z);
    fx = x;
    fy = y;
    fz = z;
}

// --- marker: Kept: no drag, and the click goes on to the hit test

bool muoviMarker(const EventRecord& event, const puntot& p) {
    auto& m = Elem(Puntosel.indice).mark;
    if (!vicino(p, m.x, m.y)) return false;
    PoniAnnulla(aNiente);
    conCampi(m.x, m.y, m.z, [&](double& x, double& y, double& z) {
        if (ModificaC(event, x, y, z)) InvalWind();
    });
    return false;
}

// --- segment

bool muoviSegmento(const EventRecord& event, const puntot& p) {
    auto& s = Elem(Puntosel.indice).segm;
    const bool primo = vicino(p, s.x1, s.y1);
    if (!primo && !vicino(p, s.x2, s.y2)) return false;
    PoniAnnulla(aNiente);
    const auto modifica = [&](f64& fx, f64& fy, f64& fz, double fissoX, double fissoY) {
        conCampi(fx, fy, fz, [&](double& x, double& y, double& z) {
            if (ModificaC(event, x, y, z)) return;
            PoniAnnulla(aElemento);
            SpostaLinea(fissoX, fissoY, x, y);
        });
    };
    if (primo) {
        modifica(s.x1, s.y1, s.z1, s.x2, s.y2);
    } else {
        modifica(s.x2, s.y2, s.z2, s.x1, s.y1);
    }
    return true;
}

// --- polyline

// Head and vertices hold their point at the same place.
void copiaPunto(std::int32_t a, std::int32_t da) {
    Elem(a).poli.x = static_cast<double>(Elem(da).poli.x);
    Elem(a).poli.y = static_cast<double>(Elem(da).poli.y);
    Elem(a).poli.z = static_cast<double>(Elem(da).poli.z);
}

// After a change of their places, the vertices from `da` on know their head again.
void rinumera(std::int32_t testa, std::int32_t da) {
    for (std::int32_t i = da; i <= UltimoRecord(testa); ++i) Elem(i).vert.distanzaTesta = i - testa;
}

// Records behind a polyline have moved: the one in progress goes with them, and so does its undo.
void figuraCorrenteScala(std::int32_t testa, std::int32_t passo) {
    if (IndicePolCorrente > testa) IndicePolCorrente += passo;
    if (ContinuaPoligono && inizioAggiunta > testa) inizioAggiunta += passo;
}

void togliVertice(std::int32_t testa, std::int32_t n) {
    PoniAnnulla(aNiente);
    if (n == testa) copiaPunto(testa, testa + 1);
    const std::int32_t via = n == testa ? testa + 1 : n;
    CopiaRecord(via, via + 1, indElem - via);
    --indElem;
    Elem(testa).poli.numVertici -= 1;
    rinumera(testa, via);
    figuraCorrenteScala(testa, -1);
}

// Doubles the point of record n: the drag that follows moves the first of the two.
void inserisciVertice(std::int32_t testa, std::int32_t n) {
    PoniAnnulla(aNiente);
    CopiaRecord(n + 2, n + 1, indElem - n);
    ++indElem;
    // Behind the head the new record keeps what the first vertex had, all but the point.
    if (n != testa) {
        Elem(n + 1) = Elem(n);
    } else {
        copiaPunto(n + 1, n);
    }
    Elem(testa).poli.numVertici += 1;
    rinumera(testa, n + 1);
    figuraCorrenteScala(testa, 1);
}

void trascinaVertice(const EventRecord& event, std::int32_t testa, std::int32_t n) {
    PoniAnnulla(aNiente);
    auto& v = Elem(n).poli;
    conCampi(v.x, v.y, v.z, [&](double& x, double& y, double& z) {
        if (ModificaC(event, x, y, z)) return;
        PoniAnnulla(aElemento);
        const auto punto = [](std::int32_t i) { return puntot{Elem(i).poli.x, Elem(i).poli.y, 0}; };
        if (n == testa) {
            const puntot dopo = punto(n + 1);
            SpostaLinea(dopo.x, dopo.y, x, y);
        } else if (n == UltimoRecord(testa)) {
            const puntot prima = punto(n - 1);
            SpostaLinea(prima.x, prima.y, x, y);
        } else {
            const puntot prima = punto(n - 1), dopo = punto(n + 1);
            SpostaVertice(prima.x, prima.y, dopo.x, dopo.y, x, y);
        }
    });
}

bool muoviPolilinea(const EventRecord& event, const puntot& p) {
    const std::int32_t testa = Puntosel.indice, ultimo = UltimoRecord(testa);
    std::int32_t n = testa;
    while (n <= ultimo && !vicino(p, Elem(n).poli.x, Elem(n).poli.y)) ++n;
    if (n > ultimo || ultimo == testa) return false;
    const bool inserire = (event.modifiers & cmdKey) != 0, togliere = !inserire && (event.modifiers & optionKey) != 0;
    if (togliere) {
        if (ContinuaPoligono && testa == IndicePolCorrente) FineFigura();
        // With a single side nothing goes, and the click is handled all the same.
        if (ultimo - testa > 1) togliVertice(testa, n);
        return true;
    }
    if (ContinuaPoligono && testa == IndicePolCorrente)
        FineFigura();   // its next side would begin where the vertex was
    const bool posto = indElem < maxElementi && Elem(testa).poli.numVertici < std::numeric_limits<std::int16_t>::max();
    if (inserire && posto) inserisciVertice(testa, n);
    trascinaVertice(event, testa, n);
    if (inserire && posto && DragGivenUp()) togliVertice(testa, n + 1);   // its double
    return true;
}

// --- curves

bool modificaCurva(const EventRecord& event, bool colpita, bool cerchio) {
    if (!colpita || !doppioClick(event)) return colpita;
    PoniAnnulla(aElemento);
    ModificaCurva(Puntosel.indice, cerchio);
    return true;
}

bool muoviCerchio(const EventRecord& event, const puntot& p) {
    const auto& c = Elem(Puntosel.indice).cerc;
    return modificaCurva(event, SelCerchio(p, c.cx, c.cy, c.raggio), true);
}

bool muoviArco(const EventRecord& event, const puntot& p) {
    const auto& a = Elem(Puntosel.indice).arco;
    return modificaCurva(event, SelArco(p, a.cx, a.cy, a.raggio, a.angoloInizio, a.ampiezza), false);
}

struct Presa {
    std::int32_t oggetto;
    Tipoelem tipo;   // what the record must be: the summary outlives its record
    bool (*azione)(const EventRecord&, const puntot&);
};
// Texts and pictures have no grips; the nodes of a mesh stand in MeshPunti.
constexpr Presa prese[] = {
    {oMarker, tMarker, muoviMarker},
    {oSegmento, tSegmento, muoviSegmento},
    {oPoligono, tPoligono, muoviPolilinea},
    {oCerchio, tCerchio, muoviCerchio},
    {oArco, tArco, muoviArco},
};

}   // namespace

bool ModificaC(const EventRecord& event, double& x, double& y, double& z) {
    if (!doppioClick(event)) return false;
    ModificaCoord(x, y, z);
    return true;
}

bool MuoviPunto(const EventRecord& event, const puntot& point) {
    if (MuoviNodoMesh(event, point)) {
        InvalWind();
        Tempo = event.when;
        return true;
    }
    if (Puntosel.indice < 3 || Puntosel.indice > indElem) return false;
    for (const Presa& presa : prese) {
        if (presa.oggetto != Puntosel.oggetto || presa.tipo != Elem(Puntosel.indice).tipo) continue;
        if (!presa.azione(event, point)) return false;
        if (Puntosel.attiva) RifaiRettSel();
        InvalWind();
        Tempo = event.when;
        return true;
    }
    return false;
}

}   // namespace tessaro
