// Entities that become many records: polylines, and the copies of blocks that INSERT makes.
#include <cmath>
#include <limits>

#include "exchange/DXF.h"
#include "exchange/EntitaDXF.h"
#include "exchange/GruppiDXF.h"
#include "model/Archivio.h"
#include "model/Penna.h"
#include "model/Unita.h"
#include "platform/Events.h"
#include "registration/Coordinate.h"
#include "text/Conversione.h"
#include "text/FileDati.h"

namespace tessaro {

struct TLeggiEntitaDXF::Figura {
    std::int32_t testa = 0;      // 0 when the store had no room for it
    std::int32_t corrente = 0;   // head that new vertices belong to
    std::int32_t vertici = 0;
    bool chiusa = false;
};

void TLeggiEntitaDXF::Poligono() {
    Figura f;
    const std::int32_t prima = indElem;
    memorizza(tPoligono, {}, colorCorrente, NumPat);
    if (indElem > prima) f.testa = f.corrente = indElem;
    testaPoligono(f);
    while (fineEntita && !lettura.righe.finite()) {
        const std::string_view nome = lettura.righe.riga();
        if (StessaParola(nome, "VERTEX")) {
            vertice(f);
            continue;
        }
        if (StessaParola(nome, "SEQEND")) {
            saltaEntita();
        } else {
            SysBeep(30);
            sospeso = nome;
            nomeLetto = true;
        }
        break;
    }
    // Kept: a head to which no vertex came stays, at the origin of the sheet.
    if (f.testa == 0 || f.vertici == 0) return;
    const auto& testa = Elem(f.testa).poli;
    if (!f.chiusa) return;
    aggiungiVertice(f, testa.x, testa.y, testa.z);
    lettura.resoconto.cambiati.aggiungi(cPoligoniChiusi);
}

void TLeggiEntitaDXF::testaPoligono(Figura& f) {
    constexpr std::int16_t interoMalformato = 0;
    f16 col, pat;
    col = colorCorrente;
    pat = NumPat;
    while (prossimo()) {
        if (gruppo == g70) {
            std::int16_t v = 0;
            if (InteroDaRiga(lettura.righe.riga(), -100, 1000, v) == Intero::malformato)
                Sbaglio(interoMalformato, uscita);
            f.chiusa = (v & 1) != 0;
        } else if (!attributi(pat, col)) {
            saltaValore();
        } else if (gruppo == g62 && uscita != 0) {
            uscita = 0;   // Kept: of all entities this one gets over a bad colour, and then has none
            col = colorCorrente;
        }
    }
    if (f.testa == 0) return;
    Elem(f.testa).poli.colore = col;
    Elem(f.testa).poli.pattern = pat;
}

void TLeggiEntitaDXF::vertice(Figura& f) {
    auto& v = scratch.vert;
    double curvatura = 0;
    while (prossimo()) {
        switch (gruppo) {
        case g10: reale(v.x); break;
        case g20: reale(v.y); break;
        case g30:
        case g38: reale(v.z); break;
        case g42: reale(curvatura); break;
        default: saltaValore();
        }
    }
    if (!fineEntita) return;
    if (curvatura != 0) lettura.resoconto.cambiati.aggiungi(cLatiRaddrizzati);
    double x = v.x, y = v.y;
    posizione(x, y);
    if (++f.vertici > 1) {
        aggiungiVertice(f, x, y, v.z);
    } else if (f.testa != 0) {
        Elem(f.testa).poli.x = x;   // Kept: the head keeps its own elevation, 0
        Elem(f.testa).poli.y = y;
    }
}

// A head counts its vertices in 16 bits: a longer figure goes on in a new one, from where the old one ends.
void TLeggiEntitaDXF::aggiungiVertice(Figura& f, double x, double y, double z) {
    if (f.corrente != 0 && Elem(f.corrente).poli.numVertici == std::numeric_limits<std::int16_t>::max()) {
        const auto& ultimo = Elem(indElem).vert;
        const std::int32_t prima = indElem;
        const auto& testa = Elem(f.testa).poli;
        memorizza(tPoligono, {ultimo.x, ultimo.y, ultimo.z, 0, 0}, testa.colore, testa.pattern);
        f.corrente = indElem > prima ? indElem : 0;
    }
    if (f.corrente == 0) {
        lettura.resoconto.senzaPosto();
        return;
    }
    memorizza(tVertice, {x, y, z, 0, 0}, colorCorrente, NumPat);
}

struct TLeggiEntitaDXF::Inserimento {
    f16 colore, pattern;
    bool conColore = false, conPattern = false;
    double rotazione = 0, colonne = 1, righe = 1;
    std::int16_t lucido = -1;   // none told
};

void TLeggiEntitaDXF::Insert() {
    Inserimento ins;
    std::string nome;
    scalaX = scalaY = scalaZ = 1;
    insX = insY = insZ = 0;
    while (prossimo()) {
        switch (gruppo) {
        case g2: nome = lettura.alfabeto.nome(lettura.righe.riga()).substr(0, 63); break;
        case g10: reale(insX); break;
        case g20: reale(insY); break;
        case g30:
        case g38: reale(insZ); break;
        case g41: reale(scalaX); break;
        case g42: reale(scalaY); break;
        case g43: reale(scalaZ); break;
        case g50: reale(ins.rotazione); break;
        case g70: reale(ins.colonne); break;
        case g71: reale(ins.righe); break;
        case g8: ins.lucido = LucidoDelLayerDXF(layer()); break;
        case g62: ins.conColore = colore(ins.colore); break;
        case g6:
            ins.pattern = RigaToPat(lettura.righe.riga());
            ins.conPattern = true;
            break;
        default: saltaValore();
        }
    }
    if (!fineEntita) return;
    auto& cambiati = lettura.resoconto.cambiati;
    if (ins.rotazione != 0) cambiati.aggiungi(cInserimentiGirati);
    if (ins.colonne > 1 || ins.righe > 1) cambiati.aggiungi(cInserimentiInSerie);
    if (scalaX * scalaY < 0) cambiati.aggiungi(cBlocchiSpecchiati);
    for (const std::int32_t blocco : BlocchiDiNomeDXF(nome)) {
        copiaBlocco(blocco, ins);
        if (indElem >= maxElementi) break;
    }
}

void TLeggiEntitaDXF::copiaBlocco(std::int32_t blocco, const Inserimento& ins) {
    const TBloccoDXF& b = BlocchiDXF[static_cast<std::size_t>(blocco - 1)];
    std::int32_t testa = 0;
    for (std::int32_t i = b.primo + 1; i <= b.ultimo + 1; ++i) {
        if (indElem >= maxElementi) {
            lettura.resoconto.senzaPosto();
            break;
        }
        CopiaRecord(++indElem, i, 1);
        if (Elem(indElem).tipo == tPoligono) testa = indElem;
        trasforma(blocco, ins, Elem(indElem));
    }
    // A polyline that the end of the store cut off has fewer vertices than its head says.
    if (testa != 0 && testa + Elem(testa).poli.numVertici > indElem)
        Elem(testa).poli.numVertici = static_cast<std::int16_t>(indElem - testa);
}

// Under a mirror an arc runs the other way; here all run clockwise, so that its end becomes its start.
void TLeggiEntitaDXF::specchiaArco(elemento& e) const {
    auto& a = e.arco;
    double da = a.angoloInizio;
    if (scalaX < 0) da = -(da + a.ampiezza);
    if (scalaY < 0) da = 180 - (da + a.ampiezza);
    a.angoloInizio = da - 360 * std::floor(da / 360);
}

void TLeggiEntitaDXF::trasforma(std::int32_t blocco, const Inserimento& ins, elemento& e) {
    const auto punto = [&](f64& x, f64& y, f64* z) {
        double px = x, py = y, pz = z ? static_cast<double>(*z) : 0;
        TrasfCoordInsert(blocco, px, py, pz);
        x = px;
        y = py;
        if (z) *z = pz;
    };
    const auto attributi = [&](f16& col, f16* pat) {
        if (ins.conColore) col = ins.colore;
        if (ins.conPattern && pat) *pat = ins.pattern;
    };
    // By the mean of both scales' sizes: a mirrored circle is as large as the one it mirrors.
    const auto scala = [&](f64& r) { r = raggio(r * ((std::fabs(scalaX) + std::fabs(scalaY)) / 2)); };
    e.selezionato = 0;
    if (ins.lucido >= 0) e.lucido = ins.lucido;
    switch (e.tipo) {
    case tSegmento:
        punto(e.segm.x1, e.segm.y1, &e.segm.z1);
        punto(e.segm.x2, e.segm.y2, &e.segm.z2);
        attributi(e.segm.colore, &e.segm.pattern);
        break;
    case tMarker:
        punto(e.mark.x, e.mark.y, &e.mark.z);
        attributi(e.mark.colore, &e.mark.pattern);
        break;
    case tPoligono:
        punto(e.poli.x, e.poli.y, &e.poli.z);
        attributi(e.poli.colore, &e.poli.pattern);
        break;
    case tVertice: punto(e.vert.x, e.vert.y, &e.vert.z); break;
    case tTesto:
        punto(e.test.x, e.test.y, nullptr);
        attributi(e.test.colore, nullptr);
        break;
    case tCerchio:
        punto(e.cerc.cx, e.cerc.cy, nullptr);
        scala(e.cerc.raggio);
        attributi(e.cerc.colore, &e.cerc.pattern);
        break;
    case tArco:
        punto(e.arco.cx, e.arco.cy, nullptr);
        scala(e.arco.raggio);
        specchiaArco(e);
        attributi(e.arco.colore, &e.arco.pattern);
        break;
    default: break;
    }
}

void TLeggiEntitaDXF::TrasfCoordInsert(std::int32_t blocco, double& x, double& y, double& z) {
    const TBloccoDXF& b = BlocchiDXF[static_cast<std::size_t>(blocco - 1)];
    x = scalaX * (x - b.x) + insX;
    y = scalaY * (y - b.y) + insY;
    z = scalaZ * (z - b.z) + insZ;
    posizione(x, y);
}

}   // namespace tessaro
