// The highlight of what is selected: grey xor, two pixels wide; and the band in the selection's colour that lies below it.
#include <algorithm>
#include <optional>

#include "display/Disegno.h"
#include "display/Elastico.h"
#include "display/Pixel.h"
#include "display/RiquadroTesto.h"
#include "display/Sovrapposto.h"
#include "model/Archivio.h"
#include "model/Mesh.h"
#include "model/Penna.h"
#include "model/PreferenzeVista.h"
#include "model/Selezione.h"
#include "model/Strumento.h"
#include "platform/Windows.h"
#include "registration/attaccoDinamico.h"

namespace tessaro {

namespace {

constinit bool aColori = false;   // the band is being painted, not the highlight

void pennaSelezione(std::int16_t larghezza) {
    if (aColori) {
        PenNormal();
        PenSize(2 * larghezza, 2 * larghezza);
        RGBForeColor(SottoEvidenza(coloreEvidenza));
        return;
    }
    PenSize(larghezza, larghezza);
    PenPat(PatternVista(qdGray));
    PenMode(patXor);
    ForeColor(blackColor);
}

// The pen of the highlight as a scope.
class Evidenza {
public:
    explicit Evidenza(std::int16_t larghezza = 2) { pennaSelezione(larghezza); }
    ~Evidenza() { PennaAttuale(); }
    Evidenza(const Evidenza&) = delete;
    Evidenza& operator=(const Evidenza&) = delete;
};

void markerSel(std::int32_t i) {
    if (aColori) return;   // its grip shows it
    fai(tMarker, Elem(i).mark.x, Elem(i).mark.y, 6, 0, 0);
}

// The highlight of record i as a thing of kind `oggetto`.
void evidenzia(std::int32_t i, std::int32_t oggetto) {
    switch (oggetto) {
    case oMarker: markerSel(i); break;
    case oSegmento: DisegnaLineaSel(i); break;
    case oTesto: DisegnaTestoSel(i); break;
    case oPoligono: DisegnaPolySel(i); break;
    case oPict: DisPictSel(i); break;
    case oCerchio: DisegnaCerchioSel(i); break;
    case oArco: DisegnaArcoSel(i); break;
    case oMeshOrigine:
    case oMeshDestinazione: DisegnaMeshSelezionata(oggetto); break;
    default: break;
    }
}

void rettangoloFoglio(double x1, double y1, double x2, double y2) {
    LineaFoglio(x1, y1, x2, y1);
    LineaFoglio(x2, y1, x2, y2);
    LineaFoglio(x2, y2, x1, y2);
    LineaFoglio(x1, y2, x1, y1);
}

void riquadroTesto(const elemento& e) {
    const auto angoli = AngoliTesto(e);
    for (std::size_t k = 0; k < angoli.size(); ++k) LineaD(angoli[k], angoli[(k + 1) % angoli.size()]);
}

void selezioneMultipla() {
    std::optional<Evidenza> penna;   // of a run of segments: to set it for each takes longer than its line
    for (std::int32_t i = 3; i <= indElem; ++i) {
        const elemento& e = Elem(i);
        if (!e.selezionato) continue;
        if (e.tipo == tSegmento) {
            if (!penna) penna.emplace();
            fai(tSegmento, e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2, 0);
        } else {
            penna.reset();
            evidenzia(i, OggettoDi(e.tipo));
        }
    }
}

void rettangoloSelezione() {
    if (rettSel.xmin > rettSel.xmax || rettSel.ymin > rettSel.ymax) return;
    const Evidenza penna(1);
    rettangoloFoglio(rettSel.xmin, rettSel.ymin, rettSel.xmax, rettSel.ymax);
}

void spostamentoInCorso() {
    if (Puntosel.multipla) rettangoloSelezione();
    if (Sposta2ndClick) {
        Dis_CursSel(XSpost1, YSpost1);
    } else {
        Dis_CursSel(XSpost2, YSpost2);
    }
}

void scelti() {
    if (Puntosel.multipla) {
        selezioneMultipla();
    } else if (Puntosel.oggetto >= oMeshOrigine) {
        DisegnaMeshSelezionata(Puntosel.oggetto);
    } else if (Puntosel.indice >= 3 && Puntosel.indice <= indElem
               && OggettoDi(Elem(Puntosel.indice).tipo) == Puntosel.oggetto) {
        evidenzia(Puntosel.indice, Puntosel.oggetto);
    }
}

}   // namespace

void DipingiEvidenza() {
    if (!Puntosel.attiva) return;
    if (EmptyRect(AreaDisegnabile())) return;   // nothing would be seen
    const std::int16_t spessPrima = spess;
    spess = 1;
    scelti();
    if (Modalita == mSpostamento) spostamentoInCorso();
    spess = spessPrima;
}

void DipingiBanda() {
    const std::int16_t spessPrima = spess;
    spess = 2;   // half of the pen, so that the dots run in its middle
    aColori = true;
    scelti();
    aColori = false;
    spess = spessPrima;
}

void DisegnaLineaSel(std::int32_t i) {
    const Evidenza penna;
    const auto& s = Elem(i).segm;
    fai(tSegmento, s.x1, s.y1, s.x2, s.y2, 0);
}

void DisegnaPolySel(std::int32_t i) {
    const Evidenza penna;
    FaiPolyFill(i, 0);
}

void DisegnaCerchioSel(std::int32_t i) {
    const Evidenza penna;
    const auto& c = Elem(i).cerc;
    fai(tCerchio, c.cx, c.cy, c.raggio, 0, 0);
}

void DisegnaArcoSel(std::int32_t i) {
    const Evidenza penna;
    const auto& a = Elem(i).arco;
    fai(tArco, a.cx, a.cy, a.raggio, a.angoloInizio, a.ampiezza);
}

// Its box, and under the live transformation's preview the box that a click finds there too.
void DisegnaTestoSel(std::int32_t i) {
    const Evidenza penna;
    riquadroTesto(Elem(i));
    if (!AnteprimaAttiva()) return;
    elemento copia = Elem(i);
    attaccoAttivo.TrasformaCopia(copia);
    riquadroTesto(copia);
}

void DisPictSel(std::int32_t i) {
    const Evidenza penna;
    const auto& p = Elem(i).pict;
    rettangoloFoglio(p.x, p.y, p.x + p.larghezza, p.y + p.altezza);
}

void DisegnaMeshSelezionata(std::int32_t oggetto) {
    const Mesh& m = oggetto == oMeshOrigine ? meshOrigine : meshDestinazione;
    if (m.nx < 2 || m.ny < 2) return;
    const Evidenza penna;
    DisegnaRete(m);
}

}   // namespace tessaro
