// Where each type keeps its attributes, and the four changes of them on the selection.
#include "editing/AttributiSel.h"

#include "display/Ridisegno.h"
#include "editing/Selezionati.h"
#include "model/Annulla.h"
#include "platform/Events.h"

namespace tessaro {

f16* SpessoreDi(elemento& e) {
    switch (e.tipo) {
    case tSegmento: return &e.segm.spessore;
    case tMarker: return &e.mark.spessore;
    case tPoligono: return &e.poli.spessore;
    case tCerchio: return &e.cerc.spessore;
    case tArco: return &e.arco.spessore;
    default: return nullptr;
    }
}

f16* PatternDi(elemento& e) {
    switch (e.tipo) {
    case tSegmento: return &e.segm.pattern;
    case tMarker: return &e.mark.pattern;
    case tPoligono: return &e.poli.pattern;
    case tCerchio: return &e.cerc.pattern;
    case tArco: return &e.arco.pattern;
    default: return nullptr;
    }
}

f16* PatternAreaDi(elemento& e) {
    switch (e.tipo) {
    case tPoligono: return &e.poli.patternArea;
    case tCerchio: return &e.cerc.patternArea;
    case tArco: return &e.arco.patternArea;
    default: return nullptr;
    }
}

namespace {

void cambiaCampo(f16* (*campoDi)(elemento&), std::int16_t valore) {
    const auto cambia = [&](std::int32_t n) {
        f16* campo = campoDi(Elem(n));
        if (campo == nullptr) return false;
        *campo = valore;
        return true;
    };
    const bool preso = PerSelezionati(cambia);
    if (Puntosel.attiva && !preso) {
        SysBeep(30);
        return;
    }
    if (preso) PoniAnnulla(Puntosel.multipla ? aNiente : aElemento);
    InvalFinestra();
}

}   // namespace

void CambiaColoreSel(std::int16_t colore) { cambiaCampo(ColoreDi, colore); }
void CambiaSpessSel(std::int16_t spessore) { cambiaCampo(SpessoreDi, spessore); }
void CambiaRetSel(std::int16_t pattern) { cambiaCampo(PatternDi, pattern); }
void CambiaRetAreaSel(std::int16_t pattern) { cambiaCampo(PatternAreaDi, pattern); }

}   // namespace tessaro
