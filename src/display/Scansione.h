// One scan of the records in their order, onto the current port: a record whose box cannot touch the clip is passed over,
// and the pen is set only where it differs from the last element's.
#pragma once

#include <cstdint>
#include <mutex>

#include "display/Disegno.h"
#include "display/Filtro.h"
#include "display/Interruzione.h"
#include "display/Tratteggi.h"
#include "model/Penna.h"

namespace tessaro {

// --- the pen as the last element left it

class PennaScansione {
    static constexpr std::int32_t ignoto = 1 << 20, grigio = 1 << 21;
    std::int32_t colore = ignoto, pattern = ignoto, larghezza = ignoto;

public:
    void dimentica() { colore = pattern = larghezza = ignoto; }

    // Sets what differs; a veiled element takes light grey.
    void poni(std::int16_t coloreElem, std::int16_t patternElem, std::int16_t spessoreElem, bool velato) {
        if (colore != coloreElem) {
            colore = coloreElem;
            ColoreDaTabella(coloreElem);
        }
        const std::int32_t voluto = velato ? grigio : patternElem;
        if (pattern != voluto) {
            pattern = voluto;
            PenPat(PatternVista(velato ? qdLtGray : GetIndPattern(patternElem)));
        }
        if (larghezza != spessoreElem) {
            larghezza = spessoreElem;
            // A width from a damaged record is held to what a view can show.
            const auto pixel = std::clamp<std::int16_t>(spessoreElem, 0, 1000);
            const std::int32_t lato = pixel * GetPort()->finezza;
            PenSize(lato, lato);
            PenSizeLaser(static_cast<std::int16_t>(pixel - 1));
            spess = static_cast<std::int16_t>(lato / 2);
        }
    }
};

class Scansione {
    Filtro filtro;
    PennaScansione penna;

    void segmento(const elemento& e) {
        // A segment goes onto paper in its own pattern, whatever sheet is the current one.
        const bool velato = !DisegnaPict && LucidoGrigio(e.lucido);
        penna.poni(e.segm.colore, e.segm.pattern, e.segm.spessore, velato);
        if (filtro.anteprima()) {
            fai(tSegmento, e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2, 0);
        } else {
            LineaFoglio(e.segm.x1, e.segm.y1, e.segm.x2, e.segm.y2);
        }
    }
    void marker(const elemento& e) {
        penna.poni(e.mark.colore, e.mark.pattern, e.mark.spessore, LucidoGrigio(e.lucido));
        const std::int16_t forma = e.mark.forma;
        fai(tMarker, e.mark.x, e.mark.y, forma, 0, 0);
        if (forma != 6) return;
        PenMode(patCopy);   // the painted square leaves the rubber band's pen behind
        penna.dimentica();
    }
    void poligono(std::int32_t i) {
        const elemento& e = Elem(i);
        if (!filtro.passaPoligono(i, Filtro::ultimoDi(i))) return;
        penna.poni(e.poli.colore, e.poli.pattern, e.poli.spessore, LucidoGrigio(e.lucido));
        FaiPoly(i);
        if (!VisioneGraf.mostraTratteggi || !e.poli.tratteggio) return;
        if (DisegnoInterrotto(static_cast<double>(i) / indElem)) return;   // a hatch or a picture may last by itself
        PenSize(GetPort()->finezza, GetPort()->finezza);
        Hatch_Poligon(i);
        penna.dimentica();
    }
    void cerchio(std::int32_t i) {
        const elemento& e = Elem(i);
        penna.poni(e.cerc.colore, e.cerc.pattern, e.cerc.spessore, LucidoGrigio(e.lucido));
        const double cx = e.cerc.cx, cy = e.cerc.cy, r = e.cerc.raggio;
        FillCerchio(i, cx, cy, r, 0, 0);
        fai(tCerchio, cx, cy, r, 0, 0);
    }
    void arco(std::int32_t i) {
        const elemento& e = Elem(i);
        penna.poni(e.arco.colore, e.arco.pattern, e.arco.spessore, LucidoGrigio(e.lucido));
        const double cx = e.arco.cx, cy = e.arco.cy, r = e.arco.raggio;
        const double partenza = e.arco.angoloInizio, ampiezza = e.arco.ampiezza;
        FillArco(i, cx, cy, r, partenza, ampiezza);
        fai(tArco, cx, cy, r, partenza, ampiezza);
    }
    // Out of line: texts are rare, and their code inside the scan slows every segment down.
    [[gnu::noinline]] void testo(std::int32_t i) {
        if (!VisioneGraf.mostraTesti || !filtro.passaTesto(Elem(i))) return;
        static std::mutex unoAllaVolta;   // letters come from the toolbox
        const std::lock_guard guardia(unoAllaVolta);
        FaiT(i);
        penna.dimentica();
    }
    void immagine(std::int32_t i) {
        if (!filtro.passaPict(Elem(i)) || DisegnoInterrotto(static_cast<double>(i) / indElem)) return;
        DisPict(i);
        PenMode(patCopy);
        penna.dimentica();
    }

public:
    // Record i, which the filter lets pass.
    void elementoNumero(std::int32_t i) {
        const elemento& e = Elem(i);
        switch (e.tipo) {
        case tSegmento: segmento(e); break;
        case tMarker: marker(e); break;
        case tPoligono: poligono(i); break;
        case tTesto: testo(i); break;
        case tPict: immagine(i); break;
        case tCerchio: cerchio(i); break;
        case tArco: arco(i); break;
        default: break;
        }
    }
    template <bool soloSelezionati>
    void esegui() {
        constexpr std::int32_t traDomande = 0x3FFF;   // a power of two less one
        for (std::int32_t i = 3; i <= indElem; ++i) {
            if ((i & traDomande) == 0 && DisegnoInterrotto(static_cast<double>(i) / indElem)) return;
            const elemento& e = Elem(i);
            if (soloSelezionati && !e.selezionato) continue;
            if (filtro.passa(e)) elementoNumero(i);
        }
    }
};

// All records, or those that are selected.
inline void Scandisci(bool soloSelezionati) {
    Scansione s;
    if (soloSelezionati) {
        s.esegui<true>();
    } else {
        s.esegui<false>();
    }
}

}   // namespace tessaro
